#include "Backend/Fixture.h"

namespace BackendTest {

class Keyboard : public Fixture {
protected:
    bool licenseIsOpen() const { return shows("backButton"); }
};

class PressingKey : public Keyboard, public testing::WithParamInterface<Key> {};

INSTANTIATE_TEST_SUITE_P(Is, PressingKey, testing::Values(Key::Return, Key::Enter, Key::Space));

TEST_P(PressingKey, startsWithoutAnythingElseTouchedFirst) {
    openWindow();
    EXPECT_EQ(focused(), "startButton");
    press(GetParam());
    EXPECT_EQ(backgroundQueue.pending(), 1U);
}

TEST_F(Keyboard, heldReturnNeitherStartsNorCloses) {
    openWindow();
    hold(Key::Return);
    EXPECT_EQ(backgroundQueue.pending(), 0U);
    press(Key::Return);
    hold(Key::Return);
    EXPECT_EQ(backgroundQueue.pending(), 1U);
    EXPECT_TRUE(application.exits.empty());
}

TEST_F(Keyboard, heldTabGoesOn) {
    openWindow();
    ASSERT_EQ(focused(), "startButton");
    for (const char* next : {"licenseLabel", "startButton"}) {
        hold(Key::Tab);
        EXPECT_EQ(focused(), next);
    }
}

TEST_F(Keyboard, anotherReturnAfterStartDoesNotClose) {
    openWindow();
    for (const Key key : {Key::Return, Key::Return, Key::Space}) {
        press(key);
    }
    EXPECT_EQ(backgroundQueue.pending(), 1U);
    EXPECT_TRUE(application.exits.empty());
}

TEST_F(Keyboard, returnOnTheNoticeOpensTheLicenseInsteadOfStarting) {
    openWindow();
    tabTo("licenseLabel");
    press(Key::Return);
    EXPECT_TRUE(licenseIsOpen());
    EXPECT_EQ(focused(), "licenseText");
    EXPECT_EQ(backgroundQueue.pending(), 0U);
    hold(Key::Return);
    EXPECT_TRUE(licenseIsOpen());
}

TEST_F(Keyboard, spaceOnTheNoticeOpensTheLicense) {
    enter(State::Install);
    tabTo("licenseLabel");
    press(Key::Space);
    EXPECT_TRUE(licenseIsOpen());
}

TEST_F(Keyboard, heldKeysOnTheNoticeDoNotOpenTheLicense) {
    openWindow();
    tabTo("licenseLabel");
    hold(Key::Return);
    hold(Key::Space);
    EXPECT_FALSE(licenseIsOpen());
    EXPECT_EQ(backgroundQueue.pending(), 0U);
}

TEST_F(Keyboard, goingBackReturnsTheFocusToTheNotice) {
    openWindow();
    tabTo("licenseLabel");
    for (const Key key : {Key::Return, Key::Enter, Key::Escape}) {
        press(Key::Space);
        ASSERT_TRUE(licenseIsOpen());
        leaveLicense(key);
        EXPECT_EQ(focused(), "licenseLabel");
    }
    press(Key::Return);
    ASSERT_TRUE(licenseIsOpen());
    click("backButton");
    EXPECT_EQ(focused(), "licenseLabel");
    EXPECT_EQ(backgroundQueue.pending(), 0U);
}

TEST_F(Keyboard, everyWayOutOfTheLicenseLeadsBackToTheStart) {
    openWindow();
    for (const Key key : {Key::Return, Key::Enter, Key::Escape}) {
        click("licenseLabel");
        EXPECT_EQ(focused(), "licenseText");
        leaveLicense(key);
        EXPECT_TRUE(shows("startButton"));
        EXPECT_EQ(focused(), "startButton");
        EXPECT_EQ(backgroundQueue.pending(), 0U);
    }
}

TEST_F(Keyboard, returnOnAFocusedButton) {
    const bool presses = hasHabit(Habit::ReturnPressesAnyFocusedButton);
    enter(State::Failure);
    tabTo("troubleshootButton");
    press(Key::Return);
    EXPECT_EQ(calls.count("openUrl " TROUBLESHOOTING_URL), presses ? 1U : 0U);
    EXPECT_EQ(application.exits.size(), presses ? 0U : 1U);
    application.exits.clear();
    tabTo("closeButton");
    press(Key::Return);
    EXPECT_EQ(application.exits.size(), 1U);
}

TEST_F(Keyboard, spacePressesTheFocusedButton) {
    enter(State::Failure);
    tabTo("troubleshootButton");
    press(Key::Space);
    EXPECT_EQ(calls.count("openUrl " TROUBLESHOOTING_URL), 1U);
    tabTo("closeButton");
    press(Key::Space);
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Keyboard, keysOnTheLogLinkRevealTheLog) {
    enter(State::Failure);
    tabTo("logLabel");
    press(Key::Return);
    press(Key::Space);
    EXPECT_EQ(calls.count("selectFile " + logFile()), 2U);
}

TEST_F(Keyboard, focusIsOnTheBarWhileItMoves) {
    enter(State::Install);
    EXPECT_EQ(focused(), "installProgress");
    press(Key::Tab);
    EXPECT_EQ(focused(), "closeButton");
}

TEST_F(Keyboard, focusIsOnCloseWhateverTheFailure) {
    enter(State::Install);
    for (const int status : {3, 5, 30}) {
        SCOPED_TRACE(status);
        if (status == 3) {
            endInstall(status);
        } else {
            tabTo("troubleshootButton");
            content->failView()->updateFailViewStatus(status);
        }
        EXPECT_EQ(focused(), "closeButton");
    }
}

TEST_P(PressingKey, onTheTextOfTheSuccessClosesOnceItIsPressedAnew) {
    enter(State::Install);
    hold(GetParam());
    endInstall(0);
    EXPECT_EQ(focused(), "installLabel");
    hold(GetParam());
    press(Key::Escape);
    EXPECT_TRUE(application.exits.empty());
    press(GetParam());
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_P(PressingKey, heldSinceBeforeTheFailureDoesNotClose) {
    enter(State::Install);
    hold(GetParam());
    endInstall(30);
    hold(GetParam());
    EXPECT_TRUE(application.exits.empty());
}

TEST_F(Keyboard, successUnderTheLicenseTakesTheFocusOnceItShows) {
    enter(State::Install);
    content->switchToLicenseView();
    tabTo("backButton");
    endInstall(0);
    EXPECT_EQ(focused(), "backButton");
    leaveLicense();
    EXPECT_EQ(focused(), "installLabel");
}

TEST_F(Keyboard, successAsTheLicenseIsLeftTakesTheFocus) {
    enter(State::LicenseOnInstall);
    content->licenseView()->backAction();
    content->installView()->switchToSuccessView();
    FrontEnd::settle();
    EXPECT_EQ(focused(), "installLabel");
}

TEST_F(Keyboard, failureAsTheLicenseIsLeftGivesCloseTheFocus) {
    enter(State::LicenseOnInstall);
    content->licenseView()->backAction();
    content->installView()->switchToFailView(30);
    FrontEnd::settle();
    EXPECT_EQ(focused(), "closeButton");
    press(Key::Return);
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Keyboard, escapeOutsideTheLicenseDoesNothing) {
    openWindow();
    press(Key::Escape);
    EXPECT_TRUE(shows("startButton"));
    click("startButton");
    press(Key::Escape);
    EXPECT_TRUE(shows("installProgress"));
    content->switchToLicenseView();
    leaveLicense();
    press(Key::Escape);
    EXPECT_TRUE(shows("installProgress"));
    endInstall(30);
    press(Key::Escape);
    EXPECT_TRUE(shows("logLabel"));
    EXPECT_TRUE(application.exits.empty());
    EXPECT_TRUE(frontEnd.hasKeyboard());
}

} // namespace BackendTest
