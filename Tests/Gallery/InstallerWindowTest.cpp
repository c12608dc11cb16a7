#include "InstallerWindow.h"

#include "ContrastCheck.h"
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
#include <set>
#include <stdexcept>

namespace GalleryTest {

using Gallery::languageOf;
using Gallery::Scene;

class InstallerWindow : public testing::Test {
protected:
    static const Scene& scene(const std::string& name) {
        return *std::ranges::find(Gallery::scenes(), name, &Scene::name);
    }

    /// What a label shows after a scene was entered; nothing when it cannot be seen.
    static QString shown(Gallery::InstallerWindow& installer, const QString& name) {
        const auto* label = installer.window().findChild<Vexora::TextLabel*>(name);
        return label != nullptr && label->isVisible() ? label->text() : QString();
    }
};

TEST_F(InstallerWindow, showsTheStartScreenFirst) {
    Gallery::InstallerWindow installer(languageOf("en"));
    EXPECT_EQ(shown(installer, "startLabel"), "To install Ondrel Vexora Lumiq, click Start.");
    EXPECT_EQ(installer.window().windowTitle(), "Ondrel Vexora Lumiq Setup");
    EXPECT_EQ(installer.window().size(), QSize(640, 580));
}

TEST_F(InstallerWindow, installsWithTheBarOnItsWay) {
    Gallery::InstallerWindow installer(languageOf("en"));
    installer.enter(scene("installing"));
    EXPECT_EQ(shown(installer, "installLabel"), "Installing Ondrel Vexora Lumiq...");
    const int value = installer.window().findChild<QProgressBar*>()->value();
    EXPECT_GT(value, 10);
    EXPECT_LT(value, 90);
}

TEST_F(InstallerWindow, completesByItsTicks) {
    Gallery::InstallerWindow installer(languageOf("en"));
    installer.enter(scene("completed"));
    EXPECT_EQ(shown(installer, "installLabel"), "Installation completed!");
    EXPECT_EQ(installer.window().findChild<QProgressBar*>()->value(), 100);
}

TEST_F(InstallerWindow, showsTheMessageOfEachStatus) {
    std::set<std::string> messages;
    for (const Scene& one : Gallery::scenes()) {
        if (one.reached != Gallery::Reached::ByStatus || one.status == 0) {
            continue;
        }
        const Vexora::FailureMessage message = Vexora::failureMessageForStatus(one.status);
        const std::string text = message.identifier == nullptr ? "" : message.identifier;
        const bool isNotice = message.presentation == Vexora::Presentation::Notice;
        Gallery::InstallerWindow installer(languageOf("en"));
        installer.enter(one);
        EXPECT_EQ(shown(installer, "logLabel").toStdString(), text + " Open logs") << one.name;
        EXPECT_EQ(shown(installer, "failLabel"), isNotice ? "" : "Installation failed") << one.name;
        EXPECT_EQ(shown(installer, "installLabel"), "") << one.name;
        messages.insert(text);
    }
    EXPECT_EQ(messages.size(), Vexora::failureMessages.size() + 1);
}

TEST_F(InstallerWindow, showsTheLicenceOfTheLanguage) {
    Gallery::InstallerWindow installer(languageOf("de"));
    installer.enter(scene("licence"));
    EXPECT_EQ(shown(installer, "licenseAgreementLabel"), "Lizenzvereinbarung");
    EXPECT_TRUE(
        installer.window().findChild<QTextEdit*>()->toPlainText().contains("LIZENZVEREINBARUNG"));
}

TEST_F(InstallerWindow, laysTheRightToLeftPseudoLocaleOutFromRightToLeft) {
    {
        Gallery::InstallerWindow installer(languageOf("xr"));
        EXPECT_EQ(installer.window().layoutDirection(), Qt::RightToLeft);
        EXPECT_TRUE(shown(installer, "startLabel").contains("Ondrel Vexora Lumiq"));
    }
    EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
    Gallery::InstallerWindow mirror(languageOf("xr").leftToRight());
    EXPECT_EQ(mirror.window().layoutDirection(), Qt::LeftToRight);
    EXPECT_FALSE(languageOf("xa").isRightToLeft());
    EXPECT_FALSE(languageOf("xl").isRightToLeft());
    EXPECT_TRUE(languageOf("ar").isRightToLeft());
}

TEST_F(InstallerWindow, isOfAKnownLanguage) {
    EXPECT_THROW(languageOf("xx"), std::runtime_error);
}

TEST_F(InstallerWindow, isNeverOnTheDisplay) {
    Gallery::InstallerWindow installer(languageOf("en"));
    EXPECT_TRUE(installer.window().testAttribute(Qt::WA_DontShowOnScreen));
    EXPECT_TRUE(installer.window().isVisible());
}

TEST_F(InstallerWindow, isPortrayedAtTheScaleOfTheDisplay) {
    const Gallery::Portrait portrait = Gallery::portray(languageOf("en"), scene("start"));
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

TEST_F(InstallerWindow, isPortrayedWithASizeThatIsNotItsOwn) {
    const WhenShown grow([](QWidget& window) { window.setMinimumWidth(641); });
    const auto faults = Gallery::portray(languageOf("en"), scene("start")).faults;
    ASSERT_EQ(faults.size(), 1);
    EXPECT_EQ(faults.front().text, "is 641 x 580, but its definition says 640 x 580");
}

TEST_F(InstallerWindow, isPortrayedWithWhatDoesNotMirror) {
    const WhenShown intrude([](QWidget& window) {
        auto* control = new QWidget(&window);
        control->setObjectName("intruder");
        control->setGeometry(0, 0, 5, 5);
        control->show();
    });
    EXPECT_TRUE(Gallery::portray(languageOf("en"), scene("start")).faults.isEmpty());
    const auto faults = Gallery::portray(languageOf("ar"), scene("start")).faults;
    ASSERT_EQ(faults.size(), 1);
    EXPECT_EQ(faults.front().control, "intruder");
    EXPECT_TRUE(faults.front().text.startsWith("the control at 0, 0, 5 x 5 is no mirror image"));
}

TEST_F(InstallerWindow, isPortrayedWithAWordThatItsLinesDoNotHold) {
    const TestSupport::TemporaryFolder resources;
    resources.write("de.lproj/Localizable.strings",
                    "\"License Agreement\" = \"" + std::string(80, 'n') + "\"\n");
    const auto faulty = Gallery::languageIn(resources.path().string(), "de");
    const auto faults = Gallery::portray(faulty, scene("licence")).faults;
    ASSERT_EQ(faults.size(), 1);
    EXPECT_EQ(faults.front().control, "licenseAgreementLabel");
    EXPECT_TRUE(faults.front().text.startsWith("has a word "));
}

/// What the pictures do not show: buttons under the pointer, and pressed.
TEST_F(InstallerWindow, keepsTheContrastOfButtonsInUse) {
    int buttons = 0;
    for (const char* name : {"start", "installing", "failure-30", "licence"}) {
        Gallery::InstallerWindow installer(languageOf("en"));
        installer.enter(scene(name));
        for (auto* button : installer.window().findChildren<QPushButton*>()) {
            buttons += button->isVisible() ? 1 : 0;
            button->setAttribute(Qt::WA_UnderMouse);
            EXPECT_TRUE(Gallery::checkWindow(installer.window()).isEmpty()) << name;
            button->setDown(true);
            EXPECT_TRUE(Gallery::checkWindow(installer.window()).isEmpty()) << name;
        }
    }
    EXPECT_EQ(buttons, 5);
}

/// Nothing but texts is measured in the pictures.
TEST_F(InstallerWindow, tellsTheBarsTrackFromThePaperAndFromWhatIsDone) {
    Gallery::InstallerWindow installer(languageOf("en"));
    installer.enter(scene("installing"));
    const QImage bar = installer.window().findChild<QProgressBar*>()->grab().toImage();
    const QColor paper = bar.pixelColor(0, 0);
    const int middle = bar.height() / 2;
    const QColor done = bar.pixelColor(bar.width() / 20, middle);
    const int ahead = bar.width() * 19 / 20;
    EXPECT_GE(Gallery::contrast(done, bar.pixelColor(ahead, middle)), 3.0);
    double edge = 1.0;
    for (int y = 0; y < middle; ++y) {
        edge = std::max(edge, Gallery::contrast(bar.pixelColor(ahead, y), paper));
    }
    EXPECT_GE(edge, 3.0);
}

TEST_F(InstallerWindow, everySceneHasANameOfItsOwn) {
    std::set<std::string> names;
    for (const Scene& one : Gallery::scenes()) {
        names.insert(one.name);
    }
    EXPECT_EQ(names.size(), Vexora::failureMessages.size() + 5);
    EXPECT_EQ(Gallery::scenes().size(), names.size());
}

} // namespace GalleryTest
