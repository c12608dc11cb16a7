#include "Core/InstallRun.h"

#include "Platform/Recording/RecordingPlatform.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <system_error>
#include <vector>

using Vexora::Recording::Lines;
using Vexora::Recording::RecordingPlatform;
using Vexora::Recording::Script;

namespace {

const std::string logFolder = "/Users/ann/Library/Logs/Vexora_Lumiq";
const std::string logFile = logFolder + "/vexora-one-click-installer.log";
const std::string launchLine = "launch /usr/bin/nohup [/Setup/Resources/install] [&;] [wait $!] > ";

/// The order of the steps of a run, and what happens when one of them fails.
class InstallRunOrder : public testing::Test {
protected:
    InstallRunOrder() {
        model.reset();
        platform.files.addFolder(logFolder);
    }

    void install(const Script& script) {
        platform.processes.scripts = {script};
        Vexora::InstallRun(
            platform.seam, model, bar, logFile,
            [this] { return Vexora::runElevated(platform.seam); },
            [this](std::int32_t status) { platform.calls.add("report " + std::to_string(status)); })
            .startInstall();
        platform.time.runDue();
    }

    RecordingPlatform platform;
    Vexora::ProgressModel model;
    Vexora::ProgressIndicator bar;
};

TEST_F(InstallRunOrder, successCreatesTheLogLaunchesPollsDecidesAndReleases) {
    install({.polls = 2, .status = 0});
    EXPECT_EQ(platform.calls.lines(),
              (Lines{"createFile " + logFile, "openForUpdating " + logFile, launchLine + logFile,
                     "sleep 1", "sleep 1", "terminationStatus 0", "process released",
                     "close " + logFile}));
}

TEST_F(InstallRunOrder, resourcePathIsAskedForOnceTheLogIsThereAndBeforeItIsOpened) {
    platform.environment.whenAskedForResources = [this] { platform.calls.add("resourcePath"); };
    install({.polls = 0, .status = 0});
    EXPECT_EQ(platform.calls.lines(),
              (Lines{"createFile " + logFile, "resourcePath", "openForUpdating " + logFile,
                     launchLine + logFile, "terminationStatus 0", "process released",
                     "close " + logFile}));
}

TEST_F(InstallRunOrder, failureIsPostedBeforeProcessAndLogAreReleased) {
    install({.polls = 1, .status = 40});
    EXPECT_EQ(platform.calls.lines(),
              (Lines{"createFile " + logFile, "openForUpdating " + logFile, launchLine + logFile,
                     "sleep 1", "terminationStatus 40", "mainQueue.async", "process released",
                     "close " + logFile, "report 40"}));
}

TEST_F(InstallRunOrder, refusedRerunIsToldToTheSystemLogAndThenPosted) {
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

TEST_F(InstallRunOrder, successfulRerunIsToldToTheSystemLog) {
    install({.polls = 0, .status = 1});
    EXPECT_EQ(platform.calls.beginningWith("log: "),
              Lines{"log: Upgrade system-wide successfully"});
}

TEST_F(InstallRunOrder, rerunWritesNothingIntoTheInstallLog) {
    install({.polls = 0, .status = 1, .output = "normal run"});
    EXPECT_EQ(platform.files.content(logFile), "normal run");
    EXPECT_EQ(platform.processes.launches.size(), 1U);
}

TEST_F(InstallRunOrder, existingLogIsNotCreatedAgain) {
    platform.files.addFile(logFile, "earlier");
    install({.polls = 0, .status = 0});
    EXPECT_EQ(platform.calls.count("createFile " + logFile), 0U);
    EXPECT_EQ(platform.files.content(logFile), "earlier");
}

TEST_F(InstallRunOrder, logThatCannotBeOpenedIsReplacedByTheNullDevice) {
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

TEST_F(InstallRunOrder, logThatCannotBeCreatedIsReplacedByTheNullDeviceToo) {
    platform.files.refusedFiles.insert(logFile);
    install({.polls = 0, .status = 30});
    EXPECT_EQ(platform.calls.beginningWith("log: "),
              Lines{"log: Failed to open install log: " + logFile});
    ASSERT_EQ(platform.processes.launches.size(), 1U);
    EXPECT_EQ(platform.processes.launches[0].output, "/dev/null");
    EXPECT_EQ(platform.calls.count("report 30"), 1U);
}

TEST_F(InstallRunOrder, launchFailureIsLoggedAndPassedOnAndPostsNoOutcome) {
    platform.processes.refusal = std::errc::permission_denied;
    try {
        install({});
        FAIL() << "nothing was thrown";
    } catch (const std::system_error& error) {
        EXPECT_EQ(error.code(), std::errc::permission_denied);
    }
    platform.time.advance(60.0);

    const Lines told = platform.calls.beginningWith("log: ");
    ASSERT_EQ(told.size(), 1U);
    EXPECT_NE(told[0].find("/usr/bin/nohup"), std::string::npos);
    EXPECT_NE(told[0].find("Permission denied"), std::string::npos);
    EXPECT_EQ(platform.calls.count("mainQueue.async"), 0U);
    EXPECT_EQ(platform.calls.beginningWith("report"), Lines{});
    EXPECT_EQ(model.increment, 1.0);
    EXPECT_FALSE(model.successfulInstall);
    EXPECT_EQ(platform.administratorScript.sources, Lines{});
    EXPECT_EQ(platform.calls.count("close " + logFile), 1U);
}

} // namespace
