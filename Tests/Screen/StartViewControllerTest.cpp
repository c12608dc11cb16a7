#include "StartViewController.h"

#include "ScreenFixture.h"

using namespace ScreenTest;
using Vexora::Font;
using Vexora::TextAlignment;
using Vexora::TextRun;

namespace {

using Runs = std::vector<TextRun>;

const std::string instruction = "To install Ondrel Vexora Lumiq, click <b>Start</b>.";

class StartViewController : public ScreenFixture {};

TEST_F(StartViewController, wholeInstructionIsCentredTheMarkedWordIncluded) {
    openWindow();
    const Vexora::StyledText& text = textField("startLabel")->attributedStringValue();
    EXPECT_EQ(text.runs(), (Runs{{"To install Ondrel Vexora Lumiq, click ", {}, {}},
                                 {"Start", Font{"QuillaSans-SemiBold", 18.0}, {}},
                                 {".", {}, {}}}));
    EXPECT_EQ(text.alignment(), TextAlignment::Center);
}

TEST_F(StartViewController, afterStartTheInstallScreenIsTheLowestAndTheStartScreenIsGone) {
    openWindow();
    pressStart();
    EXPECT_EQ(namesOfSubviews(*root),
              (Lines{"view(InstallViewController)", "lumiqLogo", "containerView", "licenseLabel"}));
    EXPECT_EQ(window->startView()->view()->superview(), nullptr);
    EXPECT_TRUE(window->containerView()->subviews().empty());
}

TEST_F(StartViewController, translationWithoutTagsIsPlainAndStillCentred) {
    addLanguage("en", {{instruction, "Press the button."}});
    openWindow();
    const Vexora::StyledText& text = textField("startLabel")->attributedStringValue();
    EXPECT_EQ(text.runs(), (Runs{{"Press the button.", {}, {}}}));
    EXPECT_EQ(text.alignment(), TextAlignment::Center);
}

TEST_F(StartViewController, textsAreTranslated) {
    addLanguage("de", {{instruction, "Klicken Sie auf <b>Starten</b>!"}, {"Start", "Starten"}});
    platform.environment.locale = "de_DE";
    openWindow();
    EXPECT_EQ(textField("startLabel")->attributedStringValue().runs(),
              (Runs{{"Klicken Sie auf ", {}, {}},
                    {"Starten", Font{"QuillaSans-SemiBold", 18.0}, {}},
                    {"!", {}, {}}}));
    EXPECT_EQ(button("startButton")->title(), "Starten");
}

TEST_F(StartViewController, startShowsTheInstallScreenAndThenRemovesItself) {
    openWindow();
    platform.calls.clear();
    pressStart();
    EXPECT_EQ(platform.calls.lines(),
              (Lines{"load InstallViewController", "closeButton.onClick",
                     "installProgress.setIndeterminate false",
                     "installProgress.setUsesThreadedAnimation true", "mainQueue.async",
                     "backgroundQueue.async",
                     "installLabel.setAttributedStringValue Installing Ondrel Vexora Lumiq...",
                     "closeButton.setTitle Close",
                     "view(ViewController).addSubview view(InstallViewController) below 3 others",
                     "view(StartViewController).removeFromSuperview"}));
}

TEST_F(StartViewController, nothingIsInstalledBeforeStartIsPressed) {
    openWindow();
    platform.time.advance(3600.0);
    EXPECT_EQ(platform.backgroundQueue.pending(), 0U);
    EXPECT_TRUE(platform.processes.launches.empty());
}

TEST_F(StartViewController, secondPressInstallsNothingMore) {
    openWindow();
    pressStart();
    EXPECT_EQ(platform.backgroundQueue.pending(), 1U);
    EXPECT_TRUE(platform.processes.launches.empty());
    window->startView()->startAction();
    EXPECT_EQ(platform.backgroundQueue.pending(), 1U);
    EXPECT_EQ(namesOfSubviews(*root),
              (Lines{"view(InstallViewController)", "lumiqLogo", "containerView", "licenseLabel"}));
}

TEST_F(StartViewController, controllerLivesOnAsChildZero) {
    openWindow();
    pressStart();
    EXPECT_EQ(window->childViewControllers()[0], window->startView());
    window->startView()->log("still here");
    EXPECT_EQ(platform.files.content(logFile), "still here");
}

TEST_F(StartViewController, missingOutletsAreSkipped) {
    platform.interfaces.leaveOut("StartViewController", "startLabel");
    platform.interfaces.leaveOut("StartViewController", "startButton");
    openWindow();
    window->startView()->startAction();
    EXPECT_EQ(platform.backgroundQueue.pending(), 1U);
}

} // namespace
