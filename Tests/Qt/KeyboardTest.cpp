#include "Qt/QtFixture.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWindow>

namespace QtTest {

class Keyboard : public QtFixture {
protected:
    /// Presses Tab until the control has the focus.
    void tabTo(const QString& name) {
        for (int steps = 0; focus() != name && steps < 10; ++steps) {
            press(Qt::Key_Tab);
        }
        ASSERT_EQ(focus(), name);
    }

    /// What the desktop sends while a key is held down.
    void hold(int key) {
        for (int times = 0; times < 3; ++times) {
            QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
            QCoreApplication::sendEvent(window().windowHandle(), &repeated);
            settle();
        }
    }

    bool licenseIsOpen() { return find("backButton") != nullptr; }
};

TEST_F(Keyboard, returnStartsWithoutTouchingAnythingElseFirst) {
    openWindow();
    press(Qt::Key_Return);
    EXPECT_EQ(backgroundQueue.pending(), 1U);
}

TEST_F(Keyboard, enterOfTheNumberPadStarts) {
    openWindow();
    press(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(backgroundQueue.pending(), 1U);
}

TEST_F(Keyboard, spaceStartsFromTheFirstFocus) {
    openWindow();
    EXPECT_EQ(focus(), "startButton");
    press(Qt::Key_Space);
    EXPECT_EQ(backgroundQueue.pending(), 1U);
}

TEST_F(Keyboard, heldReturnNeitherStartsNorCloses) {
    openWindow();
    hold(Qt::Key_Return);
    EXPECT_EQ(backgroundQueue.pending(), 0U);
    press(Qt::Key_Return);
    hold(Qt::Key_Return);
    EXPECT_EQ(backgroundQueue.pending(), 1U);
    EXPECT_TRUE(application.exits.empty());
}

TEST_F(Keyboard, anotherReturnAfterStartDoesNotClose) {
    openWindow();
    press(Qt::Key_Return);
    press(Qt::Key_Return);
    press(Qt::Key_Space);
    EXPECT_EQ(backgroundQueue.pending(), 1U);
    EXPECT_TRUE(application.exits.empty());
}

TEST_F(Keyboard, returnOnTheNoticeOpensTheLicenseInsteadOfStarting) {
    openWindow();
    tabTo("licenseLabel");
    press(Qt::Key_Return);
    EXPECT_TRUE(licenseIsOpen());
    EXPECT_EQ(backgroundQueue.pending(), 0U);
}

TEST_F(Keyboard, spaceOnTheNoticeOpensTheLicense) {
    enter(State::Install);
    tabTo("licenseLabel");
    press(Qt::Key_Space);
    EXPECT_TRUE(licenseIsOpen());
}

TEST_F(Keyboard, heldReturnOnTheNoticeDoesNotOpenTheLicense) {
    openWindow();
    tabTo("licenseLabel");
    hold(Qt::Key_Return);
    hold(Qt::Key_Space);
    EXPECT_FALSE(licenseIsOpen());
    EXPECT_EQ(backgroundQueue.pending(), 0U);
}

TEST_F(Keyboard, returnThatOpensTheLicenseDoesNotCloseItWhileHeld) {
    openWindow();
    tabTo("licenseLabel");
    press(Qt::Key_Return);
    hold(Qt::Key_Return);
    EXPECT_TRUE(licenseIsOpen());
}

TEST_F(Keyboard, returnOnCloseLeaves) {
    enter(State::Install);
    tabTo("closeButton");
    press(Qt::Key_Return);
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Keyboard, spaceOnCloseLeaves) {
    enter(State::Failure);
    tabTo("closeButton");
    press(Qt::Key_Space);
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Keyboard, focusIsOnTheLogLinkWhenTheFailureAppears) {
    enter(State::Failure);
    EXPECT_EQ(focus(), "logLabel");
    press(Qt::Key_Return);
    press(Qt::Key_Space);
    EXPECT_EQ(calls.count("selectFile " + logFile()), 2U);
}

TEST_F(Keyboard, returnAndSpaceOnHelpOpenThePage) {
    enter(State::Failure);
    tabTo("troubleshootButton");
    press(Qt::Key_Return);
    press(Qt::Key_Space);
    EXPECT_EQ(calls.count("openUrl " TROUBLESHOOTING_URL), 2U);
}

TEST_F(Keyboard, escapeOutsideTheLicenseDoesNothing) {
    openWindow();
    press(Qt::Key_Escape);
    EXPECT_TRUE(find("startButton")->isVisible());
    click("startButton");
    press(Qt::Key_Escape);
    EXPECT_TRUE(find("installProgress")->isVisible());
    endInstall(30);
    press(Qt::Key_Escape);
    EXPECT_TRUE(find("logLabel")->isVisible());
    EXPECT_TRUE(application.exits.empty());
    EXPECT_TRUE(window().isVisible());
}

TEST_F(Keyboard, escapeAfterTheLicenseWasLeftDoesNothing) {
    enter(State::LicenseOnInstall);
    leaveLicense();
    press(Qt::Key_Escape);
    EXPECT_TRUE(find("installProgress")->isVisible());
    EXPECT_TRUE(application.exits.empty());
}

TEST_F(Keyboard, focusRingShowsOnlyForTheKeyboard) {
    openWindow();
    const auto notice = [this] { return label("licenseLabel").grab().toImage(); };
    label("licenseLabel").setFocus(Qt::MouseFocusReason);
    settle();
    const QImage plain = notice();
    press(Qt::Key_Tab);
    tabTo("licenseLabel");
    EXPECT_NE(notice(), plain);
}

} // namespace QtTest
