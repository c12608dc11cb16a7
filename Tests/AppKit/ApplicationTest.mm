#include "AppKit/AppKitFixture.h"

namespace AppKitTest {

class Application : public AppKitFixture {
protected:
    /// Some other window of the application.
    static Vexora::Strong<NSPanel> makePanel() {
        const auto panel = Vexora::adopt<NSPanel>([[NSPanel alloc]
            initWithContentRect:NSMakeRect(50.0, 50.0, 100.0, 60.0)
                      styleMask:NSTitledWindowMask | NSClosableWindowMask
                        backing:NSBackingStoreBuffered
                          defer:NO]);
        [panel.get() setReleasedWhenClosed:NO];
        return panel;
    }
};

TEST_F(Application, closingTheMainWindowLeaves) {
    openWindow();
    [window() close];
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Application, closingTheMainWindowByItsButtonLeaves) {
    openWindow();
    EXPECT_NE([window() styleMask] & NSClosableWindowMask, 0U);
    [window() performClose:nil];
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Application, closingTheMainWindowLeavesDuringTheInstallation) {
    enter(State::Install);
    [window() performClose:nil];
    EXPECT_EQ(application.exits, std::vector<int>{0});
    EXPECT_TRUE(calls.beginningWith("launch ").empty());
}

TEST_F(Application, closingAnyOtherWindowLeavesToo) {
    openWindow();
    const auto panel = makePanel();
    [panel.get() orderFront:nil];
    settle();
    EXPECT_TRUE(application.exits.empty());
    [panel.get() close];
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Application, hidingAWindowDoesNotLeave) {
    openWindow();
    const auto panel = makePanel();
    [panel.get() orderFront:nil];
    [panel.get() orderOut:nil];
    settle();
    EXPECT_TRUE(application.exits.empty());
}

TEST_F(Application, anotherHandlerReplacesTheOneBefore) {
    int closings = 0;
    openWindow();
    application.onWindowWillClose([&closings] { ++closings; });
    [window() close];
    EXPECT_EQ(closings, 1);
    EXPECT_TRUE(application.exits.empty());
}

TEST_F(Application, nothingIsToldOnceItIsGone) {
    int closings = 0;
    {
        Vexora::AppKitApplication gone;
        gone.onWindowWillClose([&closings] { ++closings; });
    }
    [makePanel().get() close];
    EXPECT_EQ(closings, 0);
}

TEST_F(Application, handsOutTheMainWindowFirst) {
    ASSERT_FALSE(application.windows().empty());
    EXPECT_EQ(application.windows().front(), &application.mainWindow());
}

TEST_F(Application, isCentredAndInFrontAfterLaunching) {
    openWindow();
    const NSRect screen = [[window() screen] visibleFrame];
    EXPECT_NEAR(NSMidX([window() frame]), NSMidX(screen), 1.0);
    EXPECT_GT(NSMidY([window() frame]), NSMidY(screen) - 1.0);
    EXPECT_TRUE([window() isKeyWindow]);
    EXPECT_TRUE([window() isMainWindow]);
    EXPECT_TRUE([NSApp isActive]);
}

TEST_F(Application, centresTheWindow) {
    openWindow();
    [window() setFrameOrigin:NSMakePoint(10.0, 10.0)];
    settle();
    application.windows().front()->center();
    settle();
    EXPECT_NEAR(NSMidX([window() frame]), NSMidX([[window() screen] visibleFrame]), 1.0);
}

TEST_F(Application, windowIsAsLargeAsItsContentAndGetsNoSmaller) {
    openWindow();
    const NSSize size = NSMakeSize(560.0, 500.0);
    EXPECT_TRUE(NSEqualSizes([[window() contentView] frame].size, size));
    EXPECT_TRUE(NSEqualSizes([window() contentMinSize], size));
    EXPECT_TRUE(NSEqualSizes([paneOf(*content) frame].size, size));
}

TEST_F(Application, setsTheTitleAsItIs) {
    application.windows().front()->setTitle("Größe & <b>ホーム</b>");
    EXPECT_EQ(Vexora::toUtf8([window() title]), "Größe & <b>ホーム</b>");
}

TEST_F(Application, layoutFollowsTheLanguage) {
    const auto direction = [this] { return [[window() contentView] userInterfaceLayoutDirection]; };
    for (const char* language : {"ar", "he", "fa", "ur"}) {
        application.setLanguage(language);
        EXPECT_EQ(direction(), NSUserInterfaceLayoutDirectionRightToLeft) << language;
        application.setLanguage("en");
        EXPECT_EQ(direction(), NSUserInterfaceLayoutDirectionLeftToRight);
    }
    for (const char* language : {"de", "ja", "e", "", "??", "zz"}) {
        application.setLanguage("ar");
        application.setLanguage(language);
        EXPECT_EQ(direction(), NSUserInterfaceLayoutDirectionLeftToRight) << language;
    }
}

TEST_F(Application, opensWithoutAResourceDirectory) {
    environment.resources = "/missing";
    openWindow();
    EXPECT_EQ(Vexora::toUtf8([window() title]), "Ondrel Vexora Lumiq Setup");
    content->startView()->startAction();
    content->switchToLicenseView();
    endInstall(30);
    EXPECT_TRUE(application.exits.empty());
    [window() close];
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

} // namespace AppKitTest
