#include "AppDelegate.h"

#include "ScreenFixture.h"

using namespace ScreenTest;

namespace {

class AppDelegate : public ScreenFixture {
protected:
    Vexora::AppDelegate delegate{platform.seam};
};

TEST_F(AppDelegate, launchingActivatesCentresAndWatchesInThisOrder) {
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(platform.calls.lines(),
              (Lines{"activateIgnoringOtherApps", "window 0.center", "onWindowWillClose"}));
}

TEST_F(AppDelegate, launchingWithoutAWindowStillWatches) {
    platform.application.ownedWindows.clear();
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(platform.calls.lines(), (Lines{"activateIgnoringOtherApps", "onWindowWillClose"}));
}

TEST_F(AppDelegate, closingTheWindowDuringTheInstallationExitsAtOnceWithStatusZero) {
    delegate.applicationDidFinishLaunching();
    platform.time.post(5.25, [this] { platform.application.closeWindow(0); });

    install({.polls = endless, .status = 0});

    EXPECT_EQ(platform.time.now(), 5.25);
    EXPECT_EQ(platform.calls.lines().back(), "exit 0");
    EXPECT_EQ(platform.calls.count("exit 0"), 1U);
    EXPECT_EQ(platform.calls.count("sleep 1"), 6U);
    EXPECT_EQ(platform.calls.beginningWith("terminationStatus"), Lines{});
    EXPECT_EQ(platform.calls.count(unmountLine()), 0U);
}

TEST_F(AppDelegate, closingTheWindowDuringThePasswordPromptExitsAtOnce) {
    delegate.applicationDidFinishLaunching();
    platform.administratorScript.promptSeconds = 600.0;
    platform.time.post(20.0, [this] { platform.application.closeWindow(0); });

    install({.polls = 2, .status = 1});

    EXPECT_EQ(platform.time.now(), 20.0);
    EXPECT_EQ(platform.calls.lines().back(), "exit 0");
}

TEST_F(AppDelegate, closingAnyOtherWindowExitsInTheSameWay) {
    delegate.applicationDidFinishLaunching();
    platform.calls.clear();
    platform.application.closeWindow(1);
    EXPECT_EQ(platform.calls.lines(), (Lines{"window 1 closes", "exit 0"}));
}

TEST_F(AppDelegate, closingAfterASuccessStartsNoUnmount) {
    delegate.applicationDidFinishLaunching();
    install({.polls = 1, .status = 0});
    platform.application.closeWindow(0);
    EXPECT_EQ(platform.calls.count(unmountLine()), 0U);
    EXPECT_EQ(platform.calls.count("exit 0"), 1U);
}

TEST_F(AppDelegate, closingAfterAFailureExitsWithStatusZero) {
    delegate.applicationDidFinishLaunching();
    install({.polls = 1, .status = 30});
    platform.application.closeWindow(0);
    EXPECT_EQ(platform.calls.lines().back(), "exit 0");
}

TEST_F(AppDelegate, noticeOfAClosingWindowExitsDirectly) {
    delegate.onWindowClose();
    EXPECT_EQ(platform.calls.lines(), Lines{"exit 0"});
}

TEST_F(AppDelegate, terminationDoesNothing) {
    delegate.applicationWillTerminate();
    EXPECT_EQ(platform.calls.lines(), Lines{});
}

} // namespace
