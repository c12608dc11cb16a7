#include "Core/InstallRun.h"

#include "Platform/Recording/Platform.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <system_error>
#include <vector>

using Vexora::Recording::endless;
using Vexora::Recording::Lines;
using Vexora::Recording::ProcessEnded;
using Vexora::Recording::RecordingPlatform;
using Vexora::Recording::Script;

namespace {

const std::string logFolder = "/Users/ann/Library/Logs/Vexora_Lumiq";
const std::string logFile = logFolder + "/vexora-one-click-installer.log";
const std::string launchLine = "launch /usr/bin/nohup [/Setup/Resources/install] [&;] [wait $!] > ";
const std::string administratorScript =
    "do shell script \"/Setup/Resources/install true\" with administrator privileges";

class InstallRun : public testing::Test {
protected:
    InstallRun() {
        model.reset();
        platform.files.addFolder(logFolder);
    }

    /// Runs an installation whose program behaves so, and what it posts.
    void install(const Script& script) {
        platform.processes.scripts = {script};
        run().startInstall();
        platform.time.runDue();
    }

    Vexora::InstallRun run() {
        return {platform.seam,
                model,
                bar,
                logFile,
                [this] { return Vexora::runElevated(platform.seam); },
                [this](std::int32_t status) {
                    platform.calls.add("report " + std::to_string(status));
                    reported.push_back(status);
                }};
    }

    RecordingPlatform platform;
    Vexora::ProgressModel model;
    Vexora::ProgressIndicator bar;
    std::vector<std::int32_t> reported;
};

TEST_F(InstallRun, programThatEndsBeforeTheFirstPollLeavesTheExponentAlone) {
    install({.polls = 0, .status = 0});
    EXPECT_EQ(model.exponent, -5.0);
    EXPECT_EQ(platform.calls.count("sleep 1"), 0U);
    EXPECT_TRUE(model.successfulInstall);
}

TEST_F(InstallRun, statusZeroAtNinetyRaisesTheIncrementFromZeroToTen) {
    bar.incrementBy(90.0);
    double incrementBeforeTheEnd = -1.0;
    platform.clock.afterSleep = [&] { incrementBeforeTheEnd = model.increment; };

    install({.polls = 1, .status = 0});

    EXPECT_EQ(incrementBeforeTheEnd, 0.0);
    EXPECT_EQ(model.increment, 10.0);
    EXPECT_TRUE(model.successfulInstall);
}

TEST_F(InstallRun, statusOneWithASuccessfulRerunSucceedsAndPostsNothing) {
    platform.administratorScript.succeeds = true;
    install({.polls = 1, .status = 1});
    EXPECT_TRUE(model.successfulInstall);
    EXPECT_EQ(model.increment, 10.0);
    EXPECT_EQ(platform.calls.count("mainQueue.async"), 0U);
    EXPECT_EQ(platform.administratorScript.sources, Lines{administratorScript});
}

TEST_F(InstallRun, statusOneWithAFailedRerunPostsExactlyOneBlockThatCarriesOne) {
    platform.administratorScript.succeeds = false;
    install({.polls = 1, .status = 1});
    EXPECT_EQ(platform.calls.count("mainQueue.async"), 1U);
    EXPECT_EQ(reported, std::vector<std::int32_t>{1});
    EXPECT_EQ(model.increment, 0.0);
    EXPECT_FALSE(model.successfulInstall);
    EXPECT_EQ(platform.administratorScript.sources.size(), 1U);
}

TEST_F(InstallRun, barStandsStillWhileThePasswordPromptIsUp) {
    platform.administratorScript.promptSeconds = 30.0;
    double incrementDuringThePrompt = -1.0;
    bool successDuringThePrompt = true;
    platform.time.post(10.0, [&] {
        incrementDuringThePrompt = model.increment;
        successDuringThePrompt = model.successfulInstall;
    });

    install({.polls = 0, .status = 1});

    EXPECT_EQ(incrementDuringThePrompt, 0.0);
    EXPECT_FALSE(successDuringThePrompt);
    EXPECT_EQ(model.increment, 10.0);
    EXPECT_EQ(platform.time.now(), 30.0);
}

TEST_F(InstallRun, anyOtherStatusIsPostedOnceAsItIs) {
    for (const std::int32_t status :
         {2, 5, 9, 10, 11, 20, 30, 40, 50, 126, 127, 255, -1, -2147483647 - 1, 2147483647}) {
        reported.clear();
        platform.calls.clear();
        model.reset();

        install({.polls = 1, .status = status});

        EXPECT_EQ(platform.calls.count("mainQueue.async"), 1U);
        EXPECT_EQ(reported, std::vector<std::int32_t>{status});
        EXPECT_EQ(model.increment, 1.0);
        EXPECT_FALSE(model.successfulInstall);
    }
    EXPECT_EQ(platform.administratorScript.sources, Lines{});
}

TEST_F(InstallRun, statusIsToldToTheSystemLogWhereItHasNoMessage) {
    platform.administratorScript.succeeds = false;
    for (const std::int32_t status : {0, 5, 10, 20, 30, 40, 50}) {
        install({.polls = 0, .status = status});
    }
    EXPECT_EQ(platform.calls.beginningWith("log: "), Lines{});
    for (const std::int32_t status : {1, 2, 9, 15, 127, 255, -1}) {
        install({.polls = 0, .status = status});
    }
    EXPECT_EQ(platform.calls.beginningWith("log: "),
              (Lines{"log: Upgrade system-wide failed", "log: install ended with status 2",
                     "log: install ended with status 9", "log: install ended with status 15",
                     "log: install ended with status 127", "log: install ended with status 255",
                     "log: install ended with status -1"}));
}

TEST_F(InstallRun, failureAfterTheFreezeKeepsTheBarFrozen) {
    bar.incrementBy(95.0);
    install({.polls = 1, .status = 20});
    EXPECT_EQ(model.increment, 0.0);
}

TEST_F(InstallRun, outcomeIsReportedOnTheMainQueueAndNotBeforeItRuns) {
    platform.processes.scripts = {{.polls = 0, .status = 30, .output = {}}};
    run().startInstall();
    EXPECT_EQ(reported, std::vector<std::int32_t>{});
    platform.time.runDue();
    EXPECT_EQ(reported, std::vector<std::int32_t>{30});
}

TEST_F(InstallRun, onlyBlanksOfTheResourcePathAreEscapedForTheElevatedRun) {
    const std::pair<std::string, std::string> paths[] = {
        {"/Volumes/My Fine Disk/Resources", R"(/Volumes/My\\ Fine\\ Disk/Resources)"},
        {"/a  b ", R"(/a\\ \\ b\\ )"},
        {"/a\"b\\c$d'e\tf", "/a\"b\\c$d'e\tf"}};
    for (const auto& [path, escaped] : paths) {
        EXPECT_EQ(Vexora::administratorScriptSource(path),
                  "do shell script \"" + escaped + "/install true\" with administrator privileges");
    }
}

TEST_F(InstallRun, elevatedRunUsesTheEscapedResourcePath) {
    platform.environment.resources = "/Volumes/My Disk";
    EXPECT_TRUE(Vexora::runElevated(platform.seam));
    EXPECT_EQ(platform.administratorScript.sources,
              Lines{R"(do shell script "/Volumes/My\\ Disk/install true" )"
                    "with administrator privileges"});
}

TEST_F(InstallRun, outputReplacesTheLogByteByByteAndTheTailSurvives) {
    platform.files.addFile(logFile, "an earlier log");
    install({.polls = 1, .status = 0, .output = "THE LATER"});
    EXPECT_EQ(platform.files.content(logFile), "THE LATERr log");
    install({.polls = 1, .status = 0, .output = "longer than before"});
    EXPECT_EQ(platform.files.content(logFile), "longer than before");
}

TEST_F(InstallRun, argumentVectorHasExactlyFourEntries) {
    platform.environment.resources = "/My \"Setup$/Resources";
    install({.polls = 0, .status = 0});
    ASSERT_EQ(platform.processes.launches.size(), 1U);
    EXPECT_EQ(platform.processes.launches[0].path, "/usr/bin/nohup");
    EXPECT_EQ(platform.processes.launches[0].arguments,
              (Lines{"/My \"Setup$/Resources/install", "&;", "wait $!"}));
    EXPECT_EQ(platform.processes.launches[0].output, logFile);
}

TEST_F(InstallRun, eachPassRaisesTheExponentBeforeItSleeps) {
    std::vector<double> exponents;
    platform.clock.afterSleep = [&] { exponents.push_back(model.exponent); };
    install({.polls = 10, .status = 0});
    EXPECT_EQ(exponents,
              (std::vector<double>{-4.5, -4.0, -3.5, -3.0, -2.5, -2.0, -1.5, -1.0, -1.0, -1.0}));
    EXPECT_EQ(platform.calls.count("sleep 1"), 10U);
    EXPECT_EQ(platform.time.now(), 10.0);
}

TEST_F(InstallRun, passThatSeesTheProgramEndedRaisesNothingMore) {
    install({.polls = 3, .status = 0});
    EXPECT_EQ(model.exponent, -3.5);
}

TEST_F(InstallRun, hangingProgramIsPolledWithoutEnd) {
    platform.clock.endAt = 86400.0;
    platform.processes.scripts = {{.polls = endless, .status = 0, .output = {}}};
    EXPECT_THROW(run().startInstall(), ProcessEnded);
    EXPECT_EQ(platform.calls.count("sleep 1"), 86400U);
    EXPECT_FALSE(model.successfulInstall);
    EXPECT_EQ(platform.processes.launches.size(), 1U);
}

// The order of the steps of a run, and what happens when one of them fails.

TEST_F(InstallRun, successCreatesTheLogLaunchesPollsDecidesAndReleases) {
    install({.polls = 2, .status = 0});
    EXPECT_EQ(platform.calls.lines(),
              (Lines{"createFile " + logFile, "openForUpdating " + logFile, launchLine + logFile,
                     "sleep 1", "sleep 1", "terminationStatus 0", "process released",
                     "close " + logFile}));
}

TEST_F(InstallRun, resourcePathIsAskedForOnceTheLogIsThereAndBeforeItIsOpened) {
    platform.environment.whenAskedForResources = [this] { platform.calls.add("resourcePath"); };
    install({.polls = 0, .status = 0});
    EXPECT_EQ(platform.calls.lines(),
              (Lines{"createFile " + logFile, "resourcePath", "openForUpdating " + logFile,
                     launchLine + logFile, "terminationStatus 0", "process released",
                     "close " + logFile}));
}

TEST_F(InstallRun, failureIsPostedBeforeProcessAndLogAreReleased) {
    install({.polls = 1, .status = 40});
    EXPECT_EQ(platform.calls.lines(),
              (Lines{"createFile " + logFile, "openForUpdating " + logFile, launchLine + logFile,
                     "sleep 1", "terminationStatus 40", "mainQueue.async", "process released",
                     "close " + logFile, "report 40"}));
}

TEST_F(InstallRun, refusedRerunIsToldToTheSystemLogAndThenPosted) {
    platform.administratorScript.succeeds = false;
    install({.polls = 0, .status = 1});
    EXPECT_EQ(platform.calls.lines(),
              (Lines{"createFile " + logFile, "openForUpdating " + logFile, launchLine + logFile,
                     "terminationStatus 1",
                     "administratorScript do shell script \"/Setup/Resources/install true\" with "
                     "administrator privileges",
                     "log: Upgrade system-wide failed", "mainQueue.async", "process released",
                     "close " + logFile, "report 1"}));
}

TEST_F(InstallRun, successfulRerunIsToldToTheSystemLogAndWritesNothingIntoTheInstallLog) {
    install({.polls = 0, .status = 1, .output = "normal run"});
    EXPECT_EQ(platform.calls.beginningWith("log: "),
              Lines{"log: Upgrade system-wide successfully"});
    EXPECT_EQ(platform.files.content(logFile), "normal run");
    EXPECT_EQ(platform.processes.launches.size(), 1U);
}

TEST_F(InstallRun, existingLogIsNotCreatedAgain) {
    platform.files.addFile(logFile, "earlier");
    install({.polls = 0, .status = 0});
    EXPECT_EQ(platform.calls.count("createFile " + logFile), 0U);
    EXPECT_EQ(platform.files.content(logFile), "earlier");
}

TEST_F(InstallRun, logThatCannotBeOpenedIsReplacedByTheNullDevice) {
    platform.files.addFile(logFile, "kept");
    platform.files.lockedFiles.insert(logFile);

    install({.polls = 1, .status = 0, .output = "unheard"});

    EXPECT_EQ(platform.calls.lines(),
              (Lines{"openForUpdating " + logFile, "log: Failed to open install log: " + logFile,
                     "openForUpdating /dev/null", launchLine + "/dev/null", "sleep 1",
                     "terminationStatus 0", "process released", "close /dev/null"}));
    EXPECT_EQ(platform.files.content(logFile), "kept");
    EXPECT_TRUE(model.successfulInstall);
}

TEST_F(InstallRun, logThatCannotBeCreatedIsReplacedByTheNullDeviceToo) {
    platform.files.refusedFiles.insert(logFile);
    install({.polls = 0, .status = 30});
    EXPECT_EQ(platform.calls.beginningWith("log: "),
              Lines{"log: Failed to open install log: " + logFile});
    ASSERT_EQ(platform.processes.launches.size(), 1U);
    EXPECT_EQ(platform.processes.launches[0].output, "/dev/null");
    EXPECT_EQ(platform.calls.count("report 30"), 1U);
}

TEST_F(InstallRun, launchFailureIsPassedOnAndPostsNoOutcome) {
    platform.processes.refusal = std::errc::permission_denied;
    try {
        install({});
        FAIL() << "nothing was thrown";
    } catch (const std::system_error& error) {
        EXPECT_EQ(std::string(error.what()), "Cannot start /usr/bin/nohup: Permission denied");
    }
    platform.time.advance(60.0);

    EXPECT_EQ(platform.calls.beginningWith("log: "), Lines{});
    EXPECT_EQ(platform.calls.count("mainQueue.async"), 0U);
    EXPECT_EQ(platform.calls.beginningWith("report"), Lines{});
    EXPECT_EQ(model.increment, 1.0);
    EXPECT_FALSE(model.successfulInstall);
    EXPECT_EQ(platform.administratorScript.sources, Lines{});
    EXPECT_EQ(platform.calls.count("close " + logFile), 1U);
}

} // namespace
