#include "Backend/Fixture.h"
#include "Color.h"
#include "Platform/Palette.h"

namespace BackendTest {

class Clicks : public Fixture {
protected:
    bool licenseIsOpen() const { return shows("backButton"); }

    /// Clicks where the label shows that colour.
    void clickColor(const std::string& name, const Vexora::Color& color) {
        const auto found = picture(name).find(color);
        ASSERT_TRUE(found) << name << " shows no such colour";
        frontEnd.click({place(name).left + found->x, place(name).top + found->y});
    }
};

TEST_F(Clicks, onStartBeginTheInstallation) {
    openWindow();
    click("startButton");
    EXPECT_EQ(backgroundQueue.pending(), 1U);
    EXPECT_EQ(find("startButton"), nullptr);
    EXPECT_TRUE(shows("closeButton"));
}

TEST_F(Clicks, thriceOnStartBeginOneInstallationAndDoNotClose) {
    openWindow();
    const Point middle = place("startButton").middle();
    for (int times = 0; times < 3; ++times) {
        frontEnd.click(middle);
    }
    EXPECT_EQ(backgroundQueue.pending(), 1U);
    EXPECT_TRUE(application.exits.empty());
}

TEST_F(Clicks, onMarkedAndPlainWordsOfTheNoticeOpenTheLicense) {
    openWindow();
    for (const Vexora::Color& color : {Vexora::OndrelFontBlueColor, Vexora::inkColor}) {
        clickColor("licenseLabel", color);
        ASSERT_TRUE(licenseIsOpen());
        click("backButton");
        EXPECT_FALSE(licenseIsOpen());
    }
}

TEST_F(Clicks, onTheNoticeOpenTheLicenseDuringTheInstallation) {
    enter(State::Install);
    click("licenseLabel");
    ASSERT_TRUE(licenseIsOpen());
    click("backButton");
    EXPECT_TRUE(shows("installProgress"));
    EXPECT_EQ(backgroundQueue.pending(), 1U);
}

TEST_F(Clicks, onCloseLeaveDuringTheInstallation) {
    enter(State::Install);
    click("closeButton");
    EXPECT_EQ(application.exits, std::vector<int>{0});
    EXPECT_TRUE(calls.beginningWith("launch ").empty());
}

TEST_F(Clicks, onCloseUnmountAndLeaveAfterSuccess) {
    enter(State::Success);
    calls.clear();
    click("closeButton");
    EXPECT_EQ(application.exits, std::vector<int>{0});
    EXPECT_EQ(calls.beginningWith("launch "),
              Vexora::Recording::Lines{"launch /usr/bin/nohup [" + environment.resources +
                                       "/unmount] [&]"});
}

TEST_F(Clicks, onCloseLeaveUnderTheFailureScreen) {
    enter(State::Failure);
    calls.clear();
    click("closeButton");
    EXPECT_EQ(application.exits, std::vector<int>{0});
    EXPECT_TRUE(calls.beginningWith("launch ").empty());
}

TEST_F(Clicks, onCloseLeaveUnderTheNotice) {
    enter(State::Notice);
    click("closeButton");
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Clicks, onMessageAndLinkAndBesideThemRevealTheLog) {
    enter(State::Failure);
    clickColor("logLabel", Vexora::inkColor);
    EXPECT_EQ(calls.count("selectFile " + logFile()), 1U);
    clickColor("logLabel", Vexora::OndrelFontBlueColor);
    EXPECT_EQ(calls.count("selectFile " + logFile()), 2U);
    frontEnd.click({place("logLabel").left + 5.0, place("logLabel").bottom() - 5.0});
    EXPECT_EQ(calls.count("selectFile " + logFile()), 3U);
}

TEST_F(Clicks, onHelpOpenTheTroubleshootingPage) {
    enter(State::Failure);
    click("troubleshootButton");
    EXPECT_EQ(calls.count("openUrl " TROUBLESHOOTING_URL), 1U);
}

TEST_F(Clicks, doNothingToWhatTheLicenseCovers) {
    enter(State::Install);
    const Point close = place("closeButton").middle();
    const Point notice = place("licenseLabel").middle();
    click("licenseLabel");
    EXPECT_NE(nameOf(frontEnd.at(close)), "closeButton");
    frontEnd.click(close);
    EXPECT_TRUE(application.exits.empty());
    EXPECT_NE(nameOf(frontEnd.at(notice)), "licenseLabel");
}

TEST_F(Clicks, endInsideTheLink) {
    openWindow();
    frontEnd.click(place("licenseLabel").middle(), {5.0, 5.0});
    EXPECT_FALSE(licenseIsOpen());
}

TEST_F(Clicks, needALink) {
    openWindow();
    click("startLabel");
    click("lumiqLogo");
    EXPECT_FALSE(licenseIsOpen());
    EXPECT_EQ(backgroundQueue.pending(), 0U);
}

TEST_F(Clicks, leaveTheFocusWhereItIs) {
    openWindow();
    click("startLabel");
    EXPECT_EQ(focused(), "startButton");
    click("licenseLabel");
    click("backButton");
    EXPECT_TRUE(FrontEnd::waitFor([this] { return focused() == "startButton"; })) << focused();
    press(Key::Return);
    EXPECT_FALSE(licenseIsOpen());
    EXPECT_EQ(backgroundQueue.pending(), 1U);
}

TEST_F(Clicks, onAButtonLeaveTheFocusWhereItIs) {
    enter(State::Failure);
    tabTo("logLabel");
    click("troubleshootButton");
    EXPECT_EQ(focused(), "logLabel");
    click("closeButton");
    EXPECT_EQ(focused(), "logLabel");
}

} // namespace BackendTest
