#include "AppKit/AppKitFixture.h"

namespace AppKitTest {

class Keyboard : public AppKitFixture {
protected:
    /// Presses Tab until the control has the focus.
    void tabTo(const std::string& name) {
        for (int steps = 0; focus() != name && steps < 10; ++steps) {
            press(tabKey);
        }
        ASSERT_EQ(focus(), name);
    }

    /// What the desktop sends while a key is held down.
    void hold(const std::string& key) {
        for (int times = 0; times < 3; ++times) {
            pressKey(window(), key, 0, true);
        }
    }

    bool licenseIsOpen() { return isVisible("backButton"); }
};

TEST_F(Keyboard, returnStartsWithoutTouchingAnythingElseFirst) {
    openWindow();
    press(returnKey);
    EXPECT_EQ(backgroundQueue.pending(), 1U);
}

TEST_F(Keyboard, enterOfTheNumberPadStarts) {
    openWindow();
    press(enterKey, NSNumericPadKeyMask);
    EXPECT_EQ(backgroundQueue.pending(), 1U);
}

TEST_F(Keyboard, spaceStartsFromTheFirstFocus) {
    openWindow();
    EXPECT_EQ(focus(), "startButton");
    press(" ");
    EXPECT_EQ(backgroundQueue.pending(), 1U);
}

TEST_F(Keyboard, heldReturnNeitherStartsNorCloses) {
    openWindow();
    hold(returnKey);
    EXPECT_EQ(backgroundQueue.pending(), 0U);
    press(returnKey);
    hold(returnKey);
    EXPECT_EQ(backgroundQueue.pending(), 1U);
    EXPECT_TRUE(application.exits.empty());
}

TEST_F(Keyboard, anotherReturnAfterStartDoesNotClose) {
    openWindow();
    press(returnKey);
    press(returnKey);
    press(" ");
    EXPECT_EQ(backgroundQueue.pending(), 1U);
    EXPECT_TRUE(application.exits.empty());
}

TEST_F(Keyboard, returnOnTheNoticeOpensTheLicenseInsteadOfStarting) {
    openWindow();
    tabTo("licenseLabel");
    press(returnKey);
    EXPECT_TRUE(licenseIsOpen());
    EXPECT_EQ(focus(), "licenseText");
    EXPECT_EQ(backgroundQueue.pending(), 0U);
}

TEST_F(Keyboard, spaceOnTheNoticeOpensTheLicense) {
    enter(State::Install);
    tabTo("licenseLabel");
    press(" ");
    EXPECT_TRUE(licenseIsOpen());
}

TEST_F(Keyboard, heldReturnOnTheNoticeDoesNotOpenTheLicense) {
    openWindow();
    tabTo("licenseLabel");
    hold(returnKey);
    hold(" ");
    EXPECT_FALSE(licenseIsOpen());
    EXPECT_EQ(backgroundQueue.pending(), 0U);
}

TEST_F(Keyboard, returnThatOpensTheLicenseDoesNotCloseItWhileHeld) {
    openWindow();
    tabTo("licenseLabel");
    press(returnKey);
    hold(returnKey);
    EXPECT_TRUE(licenseIsOpen());
}

TEST_F(Keyboard, goingBackReturnsTheFocusToTheNotice) {
    openWindow();
    tabTo("licenseLabel");
    for (const std::string& key : {returnKey, escapeKey}) {
        press(" ");
        ASSERT_TRUE(licenseIsOpen());
        press(key);
        EXPECT_FALSE(licenseIsOpen());
        EXPECT_EQ(focus(), "licenseLabel");
    }
    EXPECT_EQ(backgroundQueue.pending(), 0U);
}

TEST_F(Keyboard, returnInTheTextOfTheLicenseGoesBackButDoesNotStart) {
    enter(State::LicenseOnStart);
    ASSERT_EQ(focus(), "licenseText");
    press(returnKey);
    EXPECT_FALSE(licenseIsOpen());
    EXPECT_EQ(backgroundQueue.pending(), 0U);
}

TEST_F(Keyboard, spaceOnCloseLeaves) {
    enter(State::Failure);
    tabTo("closeButton");
    press(" ");
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Keyboard, focusIsOnTheLogLinkWhenTheFailureAppears) {
    enter(State::Failure);
    EXPECT_EQ(focus(), "logLabel");
    press(returnKey);
    press(" ");
    EXPECT_EQ(calls.count("selectFile " + logFile()), 2U);
}

TEST_F(Keyboard, focusIsOnTheLogLinkWhenTheFailureAppearsOverTheLicense) {
    enter(State::LicenseOnFailure);
    EXPECT_EQ(focus(), "logLabel");
    press(escapeKey);
    EXPECT_EQ(focus(), "logLabel");
    EXPECT_TRUE(isVisible("failLabel"));
}

TEST_F(Keyboard, spaceOnHelpOpensThePage) {
    enter(State::Failure);
    tabTo("troubleshootButton");
    press(" ");
    EXPECT_EQ(calls.count("openUrl " TROUBLESHOOTING_URL), 1U);
}

TEST_F(Keyboard, escapeOutsideTheLicenseDoesNothing) {
    openWindow();
    press(escapeKey);
    EXPECT_TRUE(isVisible("startButton"));
    click("startButton");
    press(escapeKey);
    EXPECT_TRUE(isVisible("installProgress"));
    endInstall(30);
    press(escapeKey);
    EXPECT_TRUE(isVisible("logLabel"));
    EXPECT_TRUE(application.exits.empty());
    EXPECT_TRUE([window() isVisible]);
}

TEST_F(Keyboard, escapeAfterTheLicenseWasLeftDoesNothing) {
    enter(State::LicenseOnInstall);
    press(escapeKey);
    press(escapeKey);
    EXPECT_TRUE(isVisible("installProgress"));
    EXPECT_TRUE(application.exits.empty());
}

TEST_F(Keyboard, commandWAndCommandQLeave) {
    for (const std::string& key : {std::string("w"), std::string("q")}) {
        application.exits.clear();
        openWindow();
        press(key, NSCommandKeyMask);
        EXPECT_EQ(application.exits, std::vector<int>{0}) << key;
    }
}

} // namespace AppKitTest
