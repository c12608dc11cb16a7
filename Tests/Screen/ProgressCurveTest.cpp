#include "InstallViewController.h"

#include "ScreenFixture.h"

#include <cmath>
#include <limits>
#include <vector>

using namespace ScreenTest;
using Vexora::Recording::RecordingProgressIndicator;

namespace {

/// The ticks of the install screen in virtual time.
class ProgressCurve : public ScreenFixture {
protected:
    /// Runs an installation of an endless program for so long; the bar's values after each second.
    std::vector<double> valuesPerSecond(double seconds) {
        std::vector<double> values;
        platform.clock.endAt = seconds;
        platform.clock.afterSleep = [&] { values.push_back(bar()->doubleValue()); };
        install({.polls = endless, .status = 0});
        return values;
    }

    /// Shows the install screen without ever running the installation.
    void showWithoutRunning() {
        openWindow();
        pressStart();
    }

    Vexora::InstallViewController& screen() { return *window->installView(); }

    std::size_t successes() {
        return platform.calls.count(
            "installLabel.setAttributedStringValue Installation completed!");
    }
};

TEST_F(ProgressCurve, withoutAnIncrementTheTicksGoOnForEverAndNothingIsCompleted) {
    showWithoutRunning();
    screen().setIncrement(0.0);
    platform.time.advance(3600.0);
    EXPECT_EQ(bar()->doubleValue(), 0.0);
    EXPECT_EQ(platform.time.pending(), 1U);
    EXPECT_EQ(successes(), 0U);
    EXPECT_EQ(platform.mainQueue.delays().size(), 3600U * 32U + 1U);
}

TEST_F(ProgressCurve, tickAtTheMaximumAddsAndThenEndsTheChain) {
    showWithoutRunning();
    bar()->incrementBy(100.0);
    platform.calls.clear();

    platform.time.advance(60.0);

    EXPECT_EQ(platform.calls.lines(),
              (Lines{"installProgress.doubleValue 100", "mainQueue.after 0",
                     "installLabel.setAttributedStringValue Installation completed!"}));
    EXPECT_EQ(platform.time.pending(), 0U);
}

TEST_F(ProgressCurve, raisingTheIncrementAtNinetyCompletesTheBarInOneTick) {
    showWithoutRunning();
    bar()->incrementBy(90.0);
    screen().setIncrement(0.0);
    platform.time.runDue();
    ASSERT_EQ(bar()->doubleValue(), 90.0);
    screen().setIncrement(10.0);
    platform.calls.clear();

    platform.time.advance(0.03125);

    EXPECT_EQ(platform.calls.lines(),
              (Lines{"installProgress.doubleValue 100", "mainQueue.after 0",
                     "installLabel.setAttributedStringValue Installation completed!"}));
    EXPECT_EQ(bar()->doubleValue(), 100.0);
}

TEST_F(ProgressCurve, changedExponentAltersOnlyTheDelayOfTheTickAfterTheChange) {
    showWithoutRunning();
    platform.time.runDue();
    screen().setExponent(-1.0);
    platform.time.advance(0.03125);
    EXPECT_EQ(bar()->doubleValue(), 2.0);
    platform.time.advance(0.4999);
    EXPECT_EQ(bar()->doubleValue(), 2.0);
    platform.time.advance(0.0001);
    EXPECT_EQ(bar()->doubleValue(), 3.0);
    EXPECT_EQ(platform.mainQueue.delays(), (std::vector<double>{0.03125, 0.5, 0.5}));
}

TEST_F(ProgressCurve, maximumIsReadOnEveryTick) {
    showWithoutRunning();
    platform.time.runDue();
    ASSERT_EQ(platform.time.pending(), 1U);
    platform.interfaces.find<RecordingProgressIndicator>("installProgress")->setRange(10.0, 13.0);
    platform.time.advance(1.0);
    EXPECT_EQ(bar()->doubleValue(), 13.0);
    EXPECT_EQ(successes(), 1U);
    EXPECT_EQ(platform.time.pending(), 0U);
}

TEST_F(ProgressCurve, valueThatIsNotANumberEndsTheChainToo) {
    showWithoutRunning();
    screen().setIncrement(std::numeric_limits<double>::quiet_NaN());
    platform.time.advance(1.0);
    EXPECT_EQ(platform.time.pending(), 0U);
    EXPECT_EQ(successes(), 1U);
}

TEST_F(ProgressCurve, longInstallationFollowsTheWorkedExample) {
    const std::vector<double> values = valuesPerSecond(60.0);
    ASSERT_EQ(values.size(), 60U);
    const double worked[] = {23.0, 39.0, 51.0, 59.0, 65.0, 69.0, 72.0};
    for (std::size_t second = 0; second < std::size(worked); ++second) {
        EXPECT_NEAR(values[second], worked[second], 2.0) << "after second " << second + 1;
    }
    for (std::size_t second = 7; values[second] < 90.0; ++second) {
        EXPECT_EQ(values[second] - values[second - 1], 2.0) << "second " << second + 1;
    }
    EXPECT_LT(values[14], 90.0);
    EXPECT_GE(values[16], 90.0);
    for (std::size_t second = 17; second < values.size(); ++second) {
        EXPECT_EQ(values[second], values[17]);
    }
    EXPECT_GE(values[17], 90.0);
    EXPECT_LE(values[17], 92.0);
    EXPECT_EQ(screen().increment(), 0.0);
    EXPECT_EQ(successes(), 0U);
}

TEST_F(ProgressCurve, ticksUseTheDelaysOfTheExponentsInTurn) {
    valuesPerSecond(60.0);
    std::vector<double> distinct;
    for (const double delay : platform.mainQueue.delays()) {
        if (distinct.empty() || distinct.back() != delay) {
            distinct.push_back(delay);
        }
    }
    std::vector<double> expected;
    for (const double exponent : {-4.5, -4.0, -3.5, -3.0, -2.5, -2.0, -1.5, -1.0}) {
        expected.push_back(std::pow(2.0, exponent));
    }
    EXPECT_EQ(distinct, expected);
}

TEST_F(ProgressCurve, ticksBeforeTheFirstPassUseTheFirstExponent) {
    showWithoutRunning();
    platform.time.advance(1.0);
    EXPECT_EQ(bar()->doubleValue(), 33.0);
    for (const double delay : platform.mainQueue.delays()) {
        EXPECT_EQ(delay, std::pow(2.0, -5.0));
    }
}

TEST_F(ProgressCurve, installationThatEndsAtThreeSecondsFinishesInFiveStepsOfTen) {
    platform.processes.scripts = {{.polls = 3, .status = 0, .output = {}}};
    openWindow();
    pressStart();
    platform.backgroundQueue.runNext();
    ASSERT_EQ(platform.time.now(), 3.0);
    const double value = bar()->doubleValue();
    EXPECT_NEAR(value, 51.0, 2.0);
    EXPECT_EQ(screen().exponent(), -3.5);
    const std::size_t ticksBefore = platform.mainQueue.delays().size();
    platform.calls.clear();

    platform.time.advance(1.0);

    EXPECT_EQ(platform.calls.beginningWith("installProgress.doubleValue"),
              (Lines{"installProgress.doubleValue " + Vexora::Recording::written(value + 10.0),
                     "installProgress.doubleValue " + Vexora::Recording::written(value + 20.0),
                     "installProgress.doubleValue " + Vexora::Recording::written(value + 30.0),
                     "installProgress.doubleValue " + Vexora::Recording::written(value + 40.0),
                     "installProgress.doubleValue 100"}));
    const auto& delays = platform.mainQueue.delays();
    const double step = std::pow(2.0, -3.5);
    EXPECT_EQ(std::vector<double>(delays.begin() + static_cast<std::ptrdiff_t>(ticksBefore),
                                  delays.end()),
              (std::vector<double>{step, step, step, step, 0.0}));
    EXPECT_EQ(successes(), 1U);
}

TEST_F(ProgressCurve, successOfAFrozenBarCompletesOnTheNextTickWithinHalfASecond) {
    platform.processes.scripts = {{.polls = 30, .status = 0, .output = {}}};
    openWindow();
    pressStart();
    platform.backgroundQueue.runNext();
    ASSERT_EQ(platform.time.now(), 30.0);
    ASSERT_GE(bar()->doubleValue(), 90.0);
    EXPECT_EQ(screen().increment(), 10.0);
    EXPECT_EQ(successes(), 0U);
    platform.time.advance(0.5);
    EXPECT_EQ(bar()->doubleValue(), 100.0);
    EXPECT_EQ(successes(), 1U);
}

TEST_F(ProgressCurve, successfulRerunCompletesTheBar) {
    platform.administratorScript.promptSeconds = 45.0;
    double valueDuringThePrompt = 0.0;
    platform.time.post(40.0, [&] { valueDuringThePrompt = bar()->doubleValue(); });
    install({.polls = 3, .status = 1});
    EXPECT_EQ(platform.time.now(), 48.0);
    EXPECT_NEAR(valueDuringThePrompt, 51.0, 2.0);
    platform.time.advance(1.0);
    EXPECT_EQ(bar()->doubleValue(), 100.0);
    EXPECT_EQ(successes(), 1U);
    EXPECT_FALSE(window->failView()->isViewLoaded());
}

TEST_F(ProgressCurve, refusedRerunLeavesTheTicksRunningWithoutEverCompleting) {
    platform.administratorScript.succeeds = false;
    install({.polls = 3, .status = 1});
    const double value = bar()->doubleValue();
    platform.time.advance(3600.0);
    EXPECT_EQ(bar()->doubleValue(), value);
    EXPECT_EQ(platform.time.pending(), 1U);
    EXPECT_EQ(successes(), 0U);
}

TEST_F(ProgressCurve, failureOfAFrozenBarNeverCompletes) {
    install({.polls = 30, .status = 20});
    platform.time.advance(3600.0);
    EXPECT_GE(bar()->doubleValue(), 90.0);
    EXPECT_LE(bar()->doubleValue(), 92.0);
    EXPECT_EQ(successes(), 0U);
}

} // namespace
