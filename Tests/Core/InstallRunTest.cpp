#include "Core/InstallRun.h"

#include "Platform/Recording/RecordingPlatform.h"

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

const std::string logFile = "/Users/ann/Library/Logs/Vexora_Lumiq/vexora-one-click-installer.log";
const std::string administratorScript =
    "do shell script \"/Setup/Resources/install true\" with administrator privileges";

class InstallRun : public testing::Test {
protected:
    InstallRun() {
        model.reset();
        platform.files.addFile(logFile, "");
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
                [this](std::int32_t status) { reported.push_back(status); }};
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

TEST_F(InstallRun, statusZeroPostsNothingAndAsksForNoRights) {
    install({.polls = 2, .status = 0});
    EXPECT_EQ(model.increment, 10.0);
    EXPECT_TRUE(model.successfulInstall);
    EXPECT_EQ(platform.calls.count("mainQueue.async"), 0U);
    EXPECT_EQ(platform.administratorScript.sources, Lines{});
    EXPECT_EQ(reported, std::vector<std::int32_t>{});
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

} // namespace
