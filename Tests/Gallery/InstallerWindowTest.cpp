#include "InstallerWindow.h"

#include "Core/FailureCatalogue.h"
#include "Platform/Qt/TextLabel.h"
#include "Portrait.h"
#include "Support/TemporaryFolder.h"

#include <QApplication>
#include <QProgressBar>
#include <QPushButton>
#include <QTextEdit>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <stdexcept>

namespace GalleryTest {

using Gallery::InstallerWindow;
using Gallery::Language;
using Gallery::Scene;

class InstallerWindowTest : public testing::Test {
protected:
    static const Language& language(const std::string& code) {
        const auto& all = Gallery::languages();
        return *std::find_if(all.begin(), all.end(),
                             [&code](const Language& one) { return one.code == code; });
    }

    static const Scene& scene(const std::string& name) {
        const auto& all = Gallery::scenes();
        return *std::find_if(all.begin(), all.end(),
                             [&name](const Scene& one) { return one.name == name; });
    }

    /// What a label shows after a scene was entered; nothing when it cannot be seen.
    static QString shown(InstallerWindow& installer, const QString& name) {
        const auto* label = installer.window().findChild<Vexora::TextLabel*>(name);
        return label != nullptr && label->isVisible() ? label->text() : QString();
    }
};

TEST_F(InstallerWindowTest, showsTheStartScreenFirst) {
    InstallerWindow installer(language("en"));
    EXPECT_EQ(shown(installer, "startLabel"), "To install Ondrel Vexora Lumiq, click Start.");
    EXPECT_EQ(installer.window().windowTitle(), "Ondrel Vexora Lumiq Setup");
    EXPECT_EQ(installer.window().size(), QSize(640, 580));
}

TEST_F(InstallerWindowTest, installsWithTheBarOnItsWay) {
    InstallerWindow installer(language("en"));
    installer.enter(scene("installing"));
    EXPECT_EQ(shown(installer, "installLabel"), "Installing Ondrel Vexora Lumiq...");
    const int value = installer.window().findChild<QProgressBar*>()->value();
    EXPECT_GT(value, 10);
    EXPECT_LT(value, 90);
}

TEST_F(InstallerWindowTest, completesByItsTicks) {
    InstallerWindow installer(language("en"));
    installer.enter(scene("completed"));
    EXPECT_EQ(shown(installer, "installLabel"), "Installation completed!");
    EXPECT_EQ(installer.window().findChild<QProgressBar*>()->value(), 100);
}

TEST_F(InstallerWindowTest, endsWithTheMessageOfEachStatus) {
    std::size_t ended = 0;
    for (const Scene& one : Gallery::scenes()) {
        if (one.reached != Gallery::Reached::ByStatus || one.status == 0) {
            continue;
        }
        ++ended;
        const Vexora::FailureMessage row = Vexora::failureMessageForStatus(one.status);
        const bool fails = row.presentation == Vexora::Presentation::Failure;
        InstallerWindow installer(language("en"));
        installer.enter(one);
        EXPECT_EQ(shown(installer, "logLabel"), QString(row.identifier) + " Open logs") << one.name;
        EXPECT_EQ(shown(installer, "failLabel"), fails ? "Installation failed" : "") << one.name;
        EXPECT_EQ(shown(installer, "installLabel"), QString()) << one.name;
    }
    // Every listed status, and one that is not.
    EXPECT_EQ(ended, Vexora::failureMessages.size() + 1);
}

TEST_F(InstallerWindowTest, showsTheLicenceOfTheLanguage) {
    InstallerWindow installer(language("de"));
    installer.enter(scene("licence"));
    EXPECT_EQ(shown(installer, "licenseAgreementLabel"), "Lizenzvereinbarung");
    EXPECT_TRUE(
        installer.window().findChild<QTextEdit*>()->toPlainText().contains("LIZENZVEREINBARUNG"));
}

TEST_F(InstallerWindowTest, laysTheRightToLeftPseudoLocaleOutFromRightToLeft) {
    {
        InstallerWindow installer(language("xr"));
        EXPECT_EQ(installer.window().layoutDirection(), Qt::RightToLeft);
        EXPECT_TRUE(shown(installer, "startLabel").contains("Ondrel Vexora Lumiq"));
    }
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
    InstallerWindow mirror(language("xr").leftToRight());
    EXPECT_EQ(mirror.window().layoutDirection(), Qt::LeftToRight);
}

TEST_F(InstallerWindowTest, isNeverOnTheDisplay) {
    InstallerWindow installer(language("en"));
    EXPECT_TRUE(installer.window().testAttribute(Qt::WA_DontShowOnScreen));
    EXPECT_TRUE(installer.window().isVisible());
}

TEST_F(InstallerWindowTest, isPortrayedAtTheScaleOfTheDisplay) {
    const Gallery::Portrait portrait = Gallery::portray(language("en"), scene("start"));
    EXPECT_EQ(portrait.title, "Ondrel Vexora Lumiq Setup");
    EXPECT_EQ(portrait.picture.deviceIndependentSize(), QSizeF(640, 580));
    EXPECT_EQ(portrait.picture.devicePixelRatio(), qApp->devicePixelRatio());
    EXPECT_TRUE(portrait.faults.isEmpty());
}

/// Does something to every window that is shown.
class WhenShown : public QObject {
public:
    explicit WhenShown(std::function<void(QWidget&)> action) : action_(std::move(action)) {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        auto* window = qobject_cast<QWidget*>(watched);
        if (event->type() == QEvent::Show && window != nullptr && window->isWindow()) {
            action_(*window);
        }
        return QObject::eventFilter(watched, event);
    }

private:
    std::function<void(QWidget&)> action_;
};

TEST_F(InstallerWindowTest, isPortrayedWithASizeThatIsNotItsOwn) {
    const WhenShown grow([](QWidget& window) { window.setMinimumWidth(641); });
    const auto faults = Gallery::portray(language("en"), scene("start")).faults;
    ASSERT_EQ(faults.size(), 1);
    EXPECT_EQ(faults.front().text, "is 641 x 580, but its definition says 640 x 580");
}

TEST_F(InstallerWindowTest, isPortrayedWithWhatDoesNotMirror) {
    const WhenShown intrude([](QWidget& window) {
        auto* control = new QWidget(&window);
        control->setObjectName("intruder");
        control->setGeometry(0, 0, 5, 5);
        control->show();
    });
    EXPECT_TRUE(Gallery::portray(language("en"), scene("start")).faults.isEmpty());
    const auto faults = Gallery::portray(language("ar"), scene("start")).faults;
    ASSERT_EQ(faults.size(), 1);
    EXPECT_EQ(faults.front().control, "intruder");
    EXPECT_TRUE(faults.front().text.startsWith("the control at 0, 0, 5 x 5 is no mirror image"));
}

TEST_F(InstallerWindowTest, isPortrayedWithAWordThatItsLinesDoNotHold) {
    const TestSupport::TemporaryFolder resources;
    resources.write("de.lproj/Localizable.strings",
                    "\"License Agreement\" = \"" + std::string(80, 'n') + "\"\n");
    const auto faulty = Gallery::languageIn(resources.path().string(), "de");
    const auto faults = Gallery::portray(faulty, scene("licence")).faults;
    ASSERT_EQ(faults.size(), 1);
    EXPECT_EQ(faults.front().control, "licenseAgreementLabel");
    EXPECT_TRUE(faults.front().text.startsWith("has a word "));
}

TEST_F(InstallerWindowTest, everySceneHasANameOfItsOwn) {
    QStringList names;
    for (const Scene& one : Gallery::scenes()) {
        names.append(QString::fromStdString(one.name));
    }
    EXPECT_EQ(names.size(), static_cast<qsizetype>(Vexora::failureMessages.size() + 5));
    EXPECT_EQ(names.removeDuplicates(), 0);
}

} // namespace GalleryTest
