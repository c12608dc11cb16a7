#include "InstallViewController.h"

#include "ScreenFixture.h"

#include <system_error>

using namespace ScreenTest;
using Vexora::Font;
using Vexora::TextAlignment;
using Vexora::TextRun;
using Vexora::Recording::RecordingProgressIndicator;

namespace {

using Runs = std::vector<TextRun>;

class InstallViewController : public ScreenFixture {
protected:
    /// Installs with success and lets the bar run to its end.
    void succeed() {
        install({.polls = 3, .status = 0});
        platform.time.advance(1.0);
    }

    /// A screen with its first tick and its run before it; the tick fills the bar.
    std::shared_ptr<Vexora::InstallViewController> loadedScreen() {
        auto screen = std::make_shared<Vexora::InstallViewController>(platform.seam);
        screen->view();
        screen->setIncrement(100.0);
        return screen;
    }

    /// A screen whose ticks and run are over.
    std::shared_ptr<Vexora::InstallViewController> idleScreen() {
        auto screen = loadedScreen();
        platform.time.advance(1.0);
        platform.backgroundQueue.runNext();
        return screen;
    }

    /// Expects an installation that ended without an outcome: one line in the system log, and a
    /// window that shows what it showed, for ever, and can be closed.
    void expectNoOutcome(const std::string& reason) {
        platform.time.advance(3600.0);
        EXPECT_EQ(platform.calls.beginningWith("log: "),
                  Lines{"log: Failed to install: " + reason});
        EXPECT_EQ(window->installView()->increment(), 0.0);
        EXPECT_FALSE(bar()->usesThreadedAnimation());
        EXPECT_FALSE(window->installView()->successfulInstall());
        EXPECT_LT(bar()->doubleValue(), 90.0);
        EXPECT_EQ(textField("installLabel")->stringValue(), "Installing Ondrel Vexora Lumiq...");
        EXPECT_EQ(button("closeButton")->title(), "Close");
        EXPECT_FALSE(window->failView()->isViewLoaded());
        EXPECT_EQ(platform.processes.launches.size(), 0U);
        platform.calls.clear();
        click("closeButton");
        EXPECT_EQ(platform.calls.lines(), Lines{"exit 0"});
    }
};

TEST_F(InstallViewController, closeDuringTheInstallationExitsAtOnceWithoutUnmount) {
    platform.time.post(2.5, [this] { click("closeButton"); });

    install({.polls = endless, .status = 0});

    EXPECT_EQ(platform.calls.lines().back(), "exit 0");
    EXPECT_EQ(platform.time.now(), 2.5);
    EXPECT_EQ(platform.calls.count(unmountLine()), 0U);
    EXPECT_EQ(platform.processes.launches.size(), 1U);
}

TEST_F(InstallViewController, closeAfterAFailureExitsWithoutUnmount) {
    install({.polls = 1, .status = 30});
    platform.calls.clear();
    click("closeButton");
    EXPECT_EQ(platform.calls.lines(), Lines{"exit 0"});
}

TEST_F(InstallViewController, closeAfterASuccessStartsUnmountWithASingleArgumentAndExits) {
    succeed();
    platform.calls.clear();

    click("closeButton");

    ASSERT_EQ(platform.processes.launches.size(), 2U);
    EXPECT_EQ(platform.processes.launches[1].path, "/usr/bin/nohup");
    EXPECT_EQ(platform.processes.launches[1].arguments,
              (Lines{platform.environment.resources + "/unmount", "&"}));
    EXPECT_EQ(platform.processes.launches[1].output, std::nullopt);
    EXPECT_EQ(platform.calls.lines(), (Lines{unmountLine(), "process released", "exit 0"}));
}

TEST_F(InstallViewController, closeAfterASuccessDoesNotWaitForTheFullBar) {
    install({.polls = 1, .status = 0});
    ASSERT_LT(bar()->doubleValue(), 100.0);
    click("closeButton");
    EXPECT_EQ(platform.calls.count(unmountLine()), 1U);
    EXPECT_EQ(platform.calls.lines().back(), "exit 0");
}

TEST_F(InstallViewController, unmountThatCannotBeStartedDoesNotKeepTheApplication) {
    succeed();
    platform.processes.refusal = std::errc::no_such_file_or_directory;
    platform.calls.clear();
    click("closeButton");
    EXPECT_EQ(platform.calls.lines(), (Lines{unmountLine(), "exit 0"}));
}

TEST_F(InstallViewController, unmountIsNeitherAwaitedNorExamined) {
    succeed();
    platform.processes.scripts = {{.polls = endless, .status = 9, .output = "ignored"}};
    platform.calls.clear();
    click("closeButton");
    EXPECT_EQ(platform.calls.beginningWith("terminationStatus"), Lines{});
    EXPECT_EQ(platform.calls.beginningWith("sleep"), Lines{});
    EXPECT_EQ(platform.calls.lines().back(), "exit 0");
}

TEST_F(InstallViewController, refusedAdministratorPromptShowsTheFailureScreenForStatusOne) {
    platform.administratorScript.succeeds = false;
    install({.polls = 1, .status = 1});
    EXPECT_EQ(root->subviews().back(), window->failView()->view());
    EXPECT_EQ(textField("logLabel")->stringValue(),
              "A system-wide installation already exists. Removing or upgrading requires "
              "administrator-level access. Open logs");
    EXPECT_FALSE(window->installView()->successfulInstall());
}

TEST_F(InstallViewController, successTextAfterAnUnfrozenFailureChangesOnlyTheFadedLabel) {
    install({.polls = 1, .status = 30});
    platform.calls.clear();

    platform.time.advance(60.0);

    EXPECT_EQ(bar()->doubleValue(), 100.0);
    EXPECT_EQ(textField("installLabel")->stringValue(), "Installation completed!");
    EXPECT_EQ(textField("installLabel")->alphaValue(), 0.0);
    EXPECT_EQ(platform.calls.beginningWith("installLabel."),
              Lines{"installLabel.setAttributedStringValue Installation completed!"});
    EXPECT_TRUE(bar()->isHidden());
    EXPECT_EQ(root->subviews().back(), window->failView()->view());
    click("closeButton");
    EXPECT_EQ(platform.calls.count(unmountLine()), 0U);
}

TEST_F(InstallViewController, loadingTakesItsStepsInOrder) {
    const auto screen = std::make_shared<Vexora::InstallViewController>(platform.seam);
    screen->view();
    EXPECT_EQ(platform.calls.lines(),
              (Lines{"load InstallViewController", "closeButton.onClick",
                     "createDirectory " + logFolder, "installProgress.setIndeterminate false",
                     "installProgress.setUsesThreadedAnimation true", "mainQueue.async",
                     "backgroundQueue.async",
                     "installLabel.setAttributedStringValue Installing Ondrel Vexora Lumiq...",
                     "closeButton.setTitle Close"}));
}

TEST_F(InstallViewController, loadingSetsTheModelAndMovesNothingYet) {
    openWindow();
    pressStart();
    const Vexora::InstallViewController& screen = *window->installView();
    EXPECT_EQ(screen.base(), 2.0);
    EXPECT_EQ(screen.exponent(), -5.0);
    EXPECT_EQ(screen.increment(), 1.0);
    EXPECT_FALSE(screen.successfulInstall());
    EXPECT_EQ(screen.queue(), &platform.backgroundQueue);
    EXPECT_FALSE(bar()->isIndeterminate());
    EXPECT_TRUE(bar()->usesThreadedAnimation());
    EXPECT_EQ(bar()->doubleValue(), 0.0);
    platform.time.runDue();
    EXPECT_EQ(bar()->doubleValue(), 1.0);
}

TEST_F(InstallViewController, postedRunHoldsTheScreenByItself) {
    const std::weak_ptr<Vexora::InstallViewController> watched = loadedScreen();
    platform.time.advance(1.0);
    ASSERT_EQ(platform.time.pending(), 0U);
    ASSERT_FALSE(watched.expired());
    platform.backgroundQueue.runNext();
    EXPECT_TRUE(watched.expired());
}

TEST_F(InstallViewController, postedTickHoldsTheScreenByItself) {
    const std::weak_ptr<Vexora::InstallViewController> watched = loadedScreen();
    platform.backgroundQueue.runNext();
    ASSERT_EQ(platform.time.pending(), 1U);
    ASSERT_FALSE(watched.expired());
    platform.time.advance(5.0);
    EXPECT_TRUE(watched.expired());
}

TEST_F(InstallViewController, postedSuccessHoldsTheScreenByItself) {
    std::weak_ptr<Vexora::InstallViewController> watched;
    {
        const auto screen = idleScreen();
        screen->incrementProgressBar();
        watched = screen;
    }
    ASSERT_EQ(platform.mainQueue.delays().back(), 0.0);
    ASSERT_FALSE(watched.expired());
    platform.time.runDue();
    EXPECT_TRUE(watched.expired());
}

TEST_F(InstallViewController, postedFailureHoldsTheScreenByItself) {
    std::weak_ptr<Vexora::InstallViewController> watched;
    {
        const auto screen = idleScreen();
        platform.processes.scripts = {{.polls = 0, .status = 30}};
        screen->startInstall();
        watched = screen;
    }
    EXPECT_EQ(platform.time.pending(), 1U);
    EXPECT_FALSE(watched.expired());
}

TEST_F(InstallViewController, scheduledTickHoldsTheScreenByItself) {
    std::weak_ptr<Vexora::InstallViewController> watched;
    {
        const auto screen = idleScreen();
        platform.interfaces.find<RecordingProgressIndicator>("installProgress")
            ->setRange(0.0, 1000.0);
        screen->incrementProgressBar();
        watched = screen;
    }
    ASSERT_GT(platform.mainQueue.delays().back(), 0.0);
    EXPECT_FALSE(watched.expired());
}

TEST_F(InstallViewController, runElevatedRunsTheProgramAsAdministrator) {
    const auto screen = idleScreen();
    EXPECT_TRUE(screen->runElevated());
    platform.administratorScript.succeeds = false;
    EXPECT_FALSE(screen->runElevated());
    EXPECT_EQ(platform.calls.beginningWith("log: "),
              (Lines{"log: Upgrade system-wide successfully", "log: Upgrade system-wide failed"}));
}

TEST_F(InstallViewController, headingHasTheProductInSemiboldEighteenWithoutColour) {
    openWindow();
    pressStart();
    const Vexora::StyledText& text = textField("installLabel")->attributedStringValue();
    EXPECT_EQ(text.runs(), (Runs{{"Installing ", {}, {}},
                                 {"Ondrel Vexora Lumiq", Font{"QuillaSans-SemiBold", 18.0}, {}},
                                 {"...", {}, {}}}));
    EXPECT_EQ(text.alignment(), TextAlignment::Natural);
}

TEST_F(InstallViewController, successTextIsInTheRegularTypefaceAndNothingElseChanges) {
    install({.polls = 3, .status = 0});
    platform.calls.clear();
    platform.time.advance(1.0);
    EXPECT_EQ(textField("installLabel")->attributedStringValue().runs(),
              (Runs{{"Installation completed!", Font{"QuillaSans", 18.0}, {}}}));
    EXPECT_EQ(textField("installLabel")->attributedStringValue().alignment(),
              TextAlignment::Natural);
    EXPECT_EQ(platform.calls.lines().back(),
              "installLabel.setAttributedStringValue Installation completed!");
    EXPECT_EQ(bar()->doubleValue(), 100.0);
    EXPECT_FALSE(bar()->isHidden());
    EXPECT_EQ(button("closeButton")->title(), "Close");
    EXPECT_EQ(platform.calls.beginningWith("view("), Lines{});
}

TEST_F(InstallViewController, textsAreTranslated) {
    addLanguage("de",
                {{"Installing <b>Ondrel Vexora Lumiq</b>...", "<b>Lumiq</b> wird installiert"},
                 {"Installation completed!", "Fertig!"},
                 {"Close", "Schließen"}});
    platform.environment.locale = "de_DE";
    openWindow();
    pressStart();
    EXPECT_EQ(
        textField("installLabel")->attributedStringValue().runs(),
        (Runs{{"Lumiq", Font{"QuillaSans-SemiBold", 18.0}, {}}, {" wird installiert", {}, {}}}));
    EXPECT_EQ(button("closeButton")->title(), "Schließen");
    window->installView()->switchToSuccessView();
    EXPECT_EQ(textField("installLabel")->stringValue(), "Fertig!");
    EXPECT_FALSE(window->installView()->successfulInstall());
}

TEST_F(InstallViewController, failureShowsTheScreenItsMessageAndFadesItsOwnElementsInOrder) {
    openWindow();
    pressStart();
    platform.calls.clear();
    window->installView()->switchToFailView(40);
    EXPECT_EQ(
        platform.calls.lines(),
        (Lines{"load FailViewController", "troubleshootButton.onClick",
               "licenseLabel.setHidden true", "logLabel.onClick",
               "failLabel.setAttributedStringValue Installation failed", "failLabel.setHidden true",
               "closeIcon.setHidden true", "logLabel.setAttributedStringValue Open logs",
               "view(ViewController).addSubview view(FailViewController) above 4 others",
               "failLabel.setHidden false", "closeIcon.setHidden false",
               "logLabel.addHeightConstraint 200",
               "logLabel.setAttributedStringValue Failed to copy Ondrel Vexora Lumiq Web "
               "plugin. Open logs",
               "installLabel.setAlphaValue 0", "installProgress.setAlphaValue 0",
               "installProgress.setHidden true"}));
}

TEST_F(InstallViewController, installScreenStaysUnderTheFailureScreen) {
    install({.polls = 1, .status = 20});
    EXPECT_EQ(namesOfSubviews(*root),
              (Lines{"view(InstallViewController)", "lumiqLogo", "containerView", "licenseLabel",
                     "view(FailViewController)"}));
    EXPECT_FALSE(window->installView()->view()->isCovered());
    EXPECT_FALSE(button("closeButton")->isHidden());
    EXPECT_EQ(button("closeButton")->alphaValue(), 1.0);
}

TEST_F(InstallViewController, failureWhileTheLicenceIsOpenShowsAtOnce) {
    platform.time.post(0.5, [this] { click("licenseLabel"); });

    install({.polls = 2, .status = 50});

    EXPECT_EQ(namesOfSubviews(*root),
              (Lines{"view(InstallViewController)", "lumiqLogo", "containerView", "licenseLabel",
                     "view(LicenseViewController)", "view(FailViewController)"}));
    for (const auto& view : root->subviews()) {
        EXPECT_EQ(view->isCovered(), view == window->licenseView()->view());
    }
    EXPECT_EQ(platform.calls.count("view(LicenseViewController).setHidden true"), 0U);
    EXPECT_EQ(textField("logLabel")->stringValue(), "Post-installation steps failed. Open logs");
}

TEST_F(InstallViewController, installLogTakesTheOutputFromItsFirstByte) {
    platform.files.addFile(logFile, "earlier content");
    install({.polls = 1, .status = 0, .output = "LATER"});
    EXPECT_EQ(platform.files.content(logFile), "LATERer content");
}

TEST_F(InstallViewController, launchFailureLeavesStartInstall) {
    const auto screen = idleScreen();
    platform.processes.refusal = std::errc::no_such_file_or_directory;
    EXPECT_THROW(screen->startInstall(), std::system_error);
    EXPECT_EQ(platform.calls.beginningWith("log: "), Lines{});
}

TEST_F(InstallViewController, launchFailureEndsTheRunWithoutAnOutcome) {
    platform.processes.refusal = std::errc::no_such_file_or_directory;
    openWindow();
    pressStart();
    platform.backgroundQueue.runNext();
    expectNoOutcome("Cannot start /usr/bin/nohup: No such file or directory");
}

TEST_F(InstallViewController, runWithoutAThreadHasNoOutcomeAndTheTextsAreSet) {
    platform.backgroundQueue.refuses = true;
    openWindow();
    pressStart();
    EXPECT_EQ(platform.backgroundQueue.pending(), 0U);
    expectNoOutcome("Cannot start a thread: Resource temporarily unavailable");
}

TEST_F(InstallViewController, missingOutletsAreSkippedInASuccess) {
    platform.interfaces.leaveOutEverything();
    platform.processes.scripts = {{.polls = 3, .status = 0, .output = {}}};
    openWindow();
    window->startView()->startAction();
    platform.backgroundQueue.runNext();
    platform.time.advance(2.0);
    EXPECT_EQ(window->installView()->installProgress()->doubleValue(), 100.0);
    EXPECT_EQ(platform.time.pending(), 0U);
    window->installView()->closeAction();
    EXPECT_EQ(platform.calls.count(unmountLine()), 1U);
    EXPECT_EQ(platform.calls.lines().back(), "exit 0");
}

TEST_F(InstallViewController, missingOutletsAreSkippedInAFailure) {
    platform.interfaces.leaveOutEverything();
    platform.processes.scripts = {{.polls = 1, .status = 10, .output = {}}};
    openWindow();
    window->startView()->startAction();
    platform.backgroundQueue.runNext();
    platform.time.runDue();
    EXPECT_EQ(namesOfSubviews(*root),
              (Lines{"view(InstallViewController)", "view(FailViewController)"}));
}

} // namespace
