#include "Color.h"
#include "Platform/Qt/Conversions.h"
#include "Platform/Qt/Pane.h"
#include "Platform/Qt/Picture.h"
#include "Platform/Qt/Views.h"
#include "Qt/QtFixture.h"

#include <QApplication>

namespace QtTest {

class Screens : public EveryLanguage {
protected:
    /// The format of the only styled run, which must cover exactly these words.
    QTextCharFormat onlyFormat(const Vexora::TextLabel& label, const QString& before,
                               const QString& words) {
        EXPECT_EQ(label.formats().size(), 1);
        if (label.formats().isEmpty()) {
            return {};
        }
        const QTextLayout::FormatRange& range = label.formats().front();
        EXPECT_EQ(range.start, before.size());
        EXPECT_EQ(label.text().mid(range.start, range.length), words);
        return range.format;
    }

    void expectSemibold(const QTextCharFormat& format, double size) {
        EXPECT_EQ(format.font().weight(), QFont::DemiBold);
        EXPECT_DOUBLE_EQ(format.font().pointSizeF(), size);
    }

    /// The widgets beside and including this one, from the lowest to the topmost.
    static QList<const QObject*> stackOf(const QWidget* widget) {
        QList<const QObject*> stack;
        for (const QObject* sibling : widget->parentWidget()->children()) {
            if (sibling->isWidgetType()) {
                stack.append(sibling);
            }
        }
        return stack;
    }

    static QColor fontBlue() { return Vexora::toQColor(Vexora::OndrelFontBlueColor); }

    QString message(const char* identifier) {
        return translation(identifier) + ' ' + translation("Open logs");
    }
};

INSTANTIATE_TEST_SUITE_P(In, Screens, languages, languageName);

TEST_P(Screens, findMainOutletsOfTheirKinds) {
    openWindow();
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::QtImageView>(content->lumiqLogo()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::QtTextField>(content->licenseLabel()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::QtView>(content->containerView()));
}

TEST_P(Screens, findScreenOutletsOfTheirKinds) {
    openWindow();
    const auto& start = *content->startView();
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::QtTextField>(start.startLabel()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::QtButton>(start.startButton()));
    auto& install = *content->installView();
    install.view();
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::QtTextField>(install.installLabel()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::QtProgressIndicator>(install.installProgress()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::QtButton>(install.closeButton()));
    auto& license = *content->licenseView();
    license.view();
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::QtTextField>(license.licenseAgreementLabel()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::QtScrollView>(license.licenseText()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::QtButton>(license.backButton()));
    auto& fail = *content->failView();
    fail.view();
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::QtImageView>(fail.closeIcon()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::QtTextField>(fail.failLabel()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::QtTextField>(fail.logLabel()));
}

TEST_P(Screens, titleAndNoticeAreTranslated) {
    openWindow();
    EXPECT_EQ(window().windowTitle(), translation("Ondrel Vexora Lumiq Setup"));
    const auto notice = markedTranslation(
        "By installing, you agree to the Ondrel Vexora <a>license agreement</a>.", "<a>");
    EXPECT_EQ(label("licenseLabel").text(), notice.all());
}

TEST_P(Screens, noticeMarksTheAgreementInBlueSemibold) {
    openWindow();
    const auto notice = markedTranslation(
        "By installing, you agree to the Ondrel Vexora <a>license agreement</a>.", "<a>");
    const auto format = onlyFormat(label("licenseLabel"), notice.before, notice.marked);
    expectSemibold(format, 12.0);
    EXPECT_EQ(format.foreground().color(), fontBlue());
    EXPECT_EQ(label("licenseLabel").lineAlignment(), Qt::AlignHCenter);
}

TEST_P(Screens, startTextIsCentredWithItsMarkedWordSemibold) {
    openWindow();
    const auto text =
        markedTranslation("To install Ondrel Vexora Lumiq, click <b>Start</b>.", "<b>");
    EXPECT_EQ(label("startLabel").text(), text.all());
    const auto format = onlyFormat(label("startLabel"), text.before, text.marked);
    expectSemibold(format, 18.0);
    EXPECT_FALSE(format.hasProperty(QTextFormat::ForegroundBrush));
    EXPECT_EQ(label("startLabel").lineAlignment(), Qt::AlignHCenter);
    EXPECT_EQ(find<QPushButton>("startButton")->text(), translation("Start"));
}

TEST_P(Screens, installTextMarksTheProductSemibold) {
    enter(State::Install);
    const auto text = markedTranslation("Installing <b>Ondrel Vexora Lumiq</b>...", "<b>");
    EXPECT_EQ(label("installLabel").text(), text.all());
    const auto format = onlyFormat(label("installLabel"), text.before, text.marked);
    expectSemibold(format, 18.0);
    EXPECT_FALSE(format.hasProperty(QTextFormat::ForegroundBrush));
    EXPECT_EQ(find<QPushButton>("closeButton")->text(), translation("Close"));
}

TEST_P(Screens, successShowsItsTextOverAFullBar) {
    enter(State::Success);
    const QString done = translation("Installation completed!");
    EXPECT_EQ(label("installLabel").text(), done);
    const auto format = onlyFormat(label("installLabel"), "", done);
    EXPECT_DOUBLE_EQ(format.font().pointSizeF(), 18.0);
    EXPECT_EQ(format.font().weight(), QApplication::font().weight());
    const auto* bar = find<QProgressBar>("installProgress");
    EXPECT_TRUE(bar->isVisible());
    EXPECT_EQ(bar->minimum(), 0);
    EXPECT_EQ(bar->maximum(), 100);
    EXPECT_EQ(bar->value(), 100);
}

TEST_P(Screens, licenseHeadingAndButtonAreTranslated) {
    enter(State::LicenseOnStart);
    EXPECT_EQ(label("licenseAgreementLabel").text(), translation("License Agreement"));
    EXPECT_EQ(find<QPushButton>("backButton")->text(), translation("Go back"));
}

TEST_P(Screens, failureShowsTitleIconAndMessageWithABlueLink) {
    enter(State::Failure);
    EXPECT_TRUE(label("failLabel").isVisible());
    EXPECT_EQ(label("failLabel").text(), translation("Installation failed"));
    EXPECT_TRUE(find("closeIcon")->isVisible());
    const QString link = translation("Open logs");
    const QString before = translation("Failed to extract Ondrel Vexora Lumiq.") + ' ';
    EXPECT_EQ(label("logLabel").text(), before + link);
    const auto format = onlyFormat(label("logLabel"), before, link);
    expectSemibold(format, 15.0);
    EXPECT_EQ(format.foreground().color(), fontBlue());
    EXPECT_EQ(label("logLabel").lineAlignment(), Qt::AlignHCenter);
    EXPECT_EQ(label("logLabel").height(), 200);
}

TEST_P(Screens, failureFadesLabelAndBarAndHidesTheNotice) {
    enter(State::Failure);
    EXPECT_FALSE(label("installLabel").isVisible());
    EXPECT_FALSE(find("installProgress")->isVisible());
    EXPECT_FALSE(label("licenseLabel").isVisible());
    EXPECT_TRUE(find("closeButton")->isVisible());
}

TEST_P(Screens, noticeHasNeitherTitleNorIconNorFixedHeight) {
    enter(State::Notice);
    EXPECT_FALSE(label("failLabel").isVisible());
    EXPECT_FALSE(find("closeIcon")->isVisible());
    EXPECT_EQ(label("logLabel").text(), message("Ondrel Vexora Lumiq is already up to date."));
    EXPECT_EQ(label("logLabel").lineAlignment(), Qt::AlignHCenter);
    EXPECT_NE(label("logLabel").minimumHeight(), label("logLabel").maximumHeight());
}

TEST_P(Screens, everyListedStatusHasItsMessage) {
    openWindow();
    click("startButton");
    endInstall(20);
    const std::vector<std::pair<int, const char*>> messages{
        {1, "A system-wide installation already exists. Removing or upgrading requires "
            "administrator-level access."},
        {10, "A newer version of Ondrel Vexora Lumiq is installed on your system. Installation "
             "terminated."},
        {20, "Pre-installation steps failed."},
        {30, "Failed to extract Ondrel Vexora Lumiq."},
        {40, "Failed to copy Ondrel Vexora Lumiq Web plugin."},
        {50, "Post-installation steps failed."}};
    for (const auto& [status, identifier] : messages) {
        content->failView()->updateFailViewStatus(status);
        settle();
        EXPECT_EQ(label("logLabel").text(), message(identifier)) << status;
        EXPECT_EQ(label("logLabel").height(), 200) << status;
    }
    content->failView()->updateFailViewStatus(3);
    EXPECT_EQ(label("logLabel").text(), ' ' + translation("Open logs"));
}

TEST_P(Screens, startScreenLiesInTheContainer) {
    openWindow();
    EXPECT_EQ(content->startView()->view()->superview(), content->containerView().get());
    EXPECT_EQ(placeOf(find("startButton")).intersected(placeOf(find("containerView"))),
              placeOf(find("startButton")));
}

TEST_P(Screens, installScreenLiesBelowItsSiblings) {
    enter(State::Install);
    const auto& subviews = content->view()->subviews();
    EXPECT_EQ(subviews.front(), content->installView()->view());
    EXPECT_EQ(content->startView()->view()->superview(), nullptr);
    const QWidget* install = find("closeButton")->parentWidget();
    EXPECT_EQ(stackOf(install).front(), install);
}

TEST_P(Screens, failureScreenLiesAboveItsSiblings) {
    enter(State::Failure);
    EXPECT_EQ(content->view()->subviews().back(), content->failView()->view());
    EXPECT_EQ(content->view()->subviews().front(), content->installView()->view());
    const QWidget* fail = find("logLabel")->parentWidget();
    EXPECT_EQ(stackOf(fail).back(), fail);
}

TEST_P(Screens, licenseScreenLiesAboveItsSiblings) {
    enter(State::LicenseOnInstall);
    EXPECT_EQ(content->view()->subviews().back(), content->licenseView()->view());
    const QWidget* license = find("backButton")->parentWidget();
    EXPECT_EQ(stackOf(license).back(), license);
}

TEST_P(Screens, picturesComeFromTheResources) {
    enter(State::Failure);
    for (const char* name : {"lumiqLogo", "closeIcon"}) {
        auto* picture = find<Vexora::Picture>(name);
        ASSERT_NE(picture, nullptr) << name;
        QImage image(picture->size(), QImage::Format_ARGB32);
        image.fill(Qt::transparent);
        picture->render(&image, {}, {}, QWidget::RenderFlags());
        QImage empty(image.size(), image.format());
        empty.fill(Qt::transparent);
        EXPECT_NE(image, empty) << name;
    }
}

} // namespace QtTest
