#include "AppKit/AppKitFixture.h"
#include "AppKit/Snapshot.h"
#include "Color.h"
#include "Platform/Palette.h"

namespace AppKitTest {

class Clicks : public EveryLanguage {
protected:
    /// Clicks where the label shows that colour.
    void clickColor(const std::string& name, const Vexora::Color& color) {
        NSView* const label = get(name);
        const auto found = Snapshot(label).find(color);
        ASSERT_TRUE(found) << name << " shows no such colour";
        clickAt(window(), [label convertPoint:*found toView:nil]);
    }
};

INSTANTIATE_TEST_SUITE_P(In, Clicks, languages, languageName);

TEST_P(Clicks, onStartBeginTheInstallation) {
    openWindow();
    click("startButton");
    EXPECT_EQ(backgroundQueue.pending(), 1U);
    EXPECT_EQ(find("startButton"), nil);
    EXPECT_TRUE(isVisible("closeButton"));
}

TEST_P(Clicks, twiceOnStartBeginOneInstallationAndDoNotClose) {
    openWindow();
    const NSPoint place = middleOf(get("startButton"));
    clickAt(window(), place);
    clickAt(window(), place);
    EXPECT_EQ(backgroundQueue.pending(), 1U);
    EXPECT_TRUE(application.exits.empty());
}

TEST_P(Clicks, onMarkedAndPlainWordsOfTheNoticeOpenTheLicense) {
    openWindow();
    clickColor("licenseLabel", Vexora::OndrelFontBlueColor);
    ASSERT_TRUE(isVisible("backButton"));
    click("backButton");
    EXPECT_EQ(find("backButton"), nil);
    clickColor("licenseLabel", Vexora::inkColor);
    EXPECT_TRUE(isVisible("backButton"));
}

TEST_P(Clicks, onTheNoticeOpenTheLicenseDuringTheInstallation) {
    enter(State::Install);
    click("licenseLabel");
    ASSERT_TRUE(isVisible("backButton"));
    click("backButton");
    EXPECT_TRUE(isVisible("installProgress"));
    EXPECT_EQ(backgroundQueue.pending(), 1U);
}

TEST_P(Clicks, onCloseLeaveDuringTheInstallation) {
    enter(State::Install);
    click("closeButton");
    EXPECT_EQ(application.exits, std::vector<int>{0});
    EXPECT_TRUE(calls.beginningWith("launch ").empty());
}

TEST_P(Clicks, onCloseUnmountAndLeaveAfterSuccess) {
    enter(State::Success);
    calls.clear();
    click("closeButton");
    EXPECT_EQ(application.exits, std::vector<int>{0});
    EXPECT_EQ(calls.beginningWith("launch "),
              Vexora::Recording::Lines{"launch /usr/bin/nohup [" + environment.resources +
                                       "/unmount] [&]"});
}

TEST_P(Clicks, onCloseLeaveUnderTheFailureScreen) {
    enter(State::Failure);
    calls.clear();
    click("closeButton");
    EXPECT_EQ(application.exits, std::vector<int>{0});
    EXPECT_TRUE(calls.beginningWith("launch ").empty());
}

TEST_P(Clicks, onCloseLeaveUnderTheNoticeOfTheFailureScreen) {
    enter(State::Notice);
    click("closeButton");
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_P(Clicks, onMessageAndLinkRevealTheLog) {
    enter(State::Failure);
    clickColor("logLabel", Vexora::inkColor);
    EXPECT_EQ(calls.count("selectFile " + logFile()), 1U);
    clickColor("logLabel", Vexora::OndrelFontBlueColor);
    EXPECT_EQ(calls.count("selectFile " + logFile()), 2U);
}

TEST_P(Clicks, besideTheWordsOfTheMessageRevealTheLogToo) {
    enter(State::Failure);
    const NSRect place = placeOf(get("logLabel"));
    clickAt(window(), NSMakePoint(NSMinX(place) + 5.0, NSMinY(place) + 60.0));
    EXPECT_EQ(calls.count("selectFile " + logFile()), 1U);
}

TEST_P(Clicks, onHelpOpenTheTroubleshootingPage) {
    enter(State::Failure);
    click("troubleshootButton");
    EXPECT_EQ(calls.count("openUrl " TROUBLESHOOTING_URL), 1U);
}

TEST_P(Clicks, doNothingToWhatTheLicenseCovers) {
    enter(State::Install);
    const NSPoint close = middleOf(get("closeButton"));
    const NSPoint notice = middleOf(get("licenseLabel"));
    content->switchToLicenseView();
    settle();
    clickAt(window(), close);
    EXPECT_TRUE(application.exits.empty());
    clickAt(window(), notice);
    EXPECT_TRUE(isVisible("licenseText"));
}

class ClicksOnLinks : public AppKitFixture {};

TEST_F(ClicksOnLinks, endInsideTheLink) {
    openWindow();
    const NSPoint place = middleOf(get("licenseLabel"));
    drag(window(), place, NSMakePoint(5.0, 490.0));
    EXPECT_EQ(find("backButton"), nil);
}

TEST_F(ClicksOnLinks, needALink) {
    openWindow();
    click("startLabel");
    click("lumiqLogo");
    EXPECT_EQ(find("backButton"), nil);
    EXPECT_EQ(backgroundQueue.pending(), 0U);
    EXPECT_EQ(focus(), "startButton");
}

} // namespace AppKitTest
