#include "Core/ProgressModel.h"

#include <gtest/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

namespace {

class ProgressModel : public testing::Test {
protected:
    ProgressModel() { model.reset(); }

    void poll(double barValue) {
        model.poll([barValue] { return barValue; });
    }

    Vexora::ProgressModel model;
};

TEST(ProgressModelAtFirst, movesNothing) {
    const Vexora::ProgressModel untouched;
    EXPECT_EQ(untouched.increment, 0.0);
    EXPECT_EQ(untouched.base, 0.0);
    EXPECT_EQ(untouched.exponent, 0.0);
    EXPECT_FALSE(untouched.successfulInstall);
}

TEST_F(ProgressModel, resetSetsTheValuesThatHoldBeforeTheFirstTick) {
    model.base = 7.0;
    model.exponent = 7.0;
    model.increment = 7.0;
    model.successfulInstall = true;

    model.reset();

    EXPECT_EQ(model.base, 2.0);
    EXPECT_EQ(model.exponent, -5.0);
    EXPECT_EQ(model.increment, 1.0);
    EXPECT_FALSE(model.successfulInstall);
}

TEST_F(ProgressModel, exponentRisesByHalfAStepPerPollAndStopsAtMinusOne) {
    for (const double expected : {-4.5, -4.0, -3.5, -3.0, -2.5, -2.0, -1.5, -1.0, -1.0, -1.0}) {
        poll(0.0);
        EXPECT_EQ(model.exponent, expected);
    }
}

TEST_F(ProgressModel, exponentIsRaisedBeforeTheBarIsReadOnce) {
    std::vector<double> exponents;
    model.poll([&] {
        exponents.push_back(model.exponent);
        return 95.0;
    });
    EXPECT_EQ(exponents, std::vector<double>{-4.5});
    EXPECT_EQ(model.increment, 0.0);
}

TEST_F(ProgressModel, onlyAnExponentBelowMinusOneIsRaised) {
    const std::pair<double, double> exponents[] = {
        {-1.25, -0.75}, {-1.0, -1.0}, {-0.75, -0.75}, {0.0, 0.0}, {3.0, 3.0}};
    for (const auto& [before, after] : exponents) {
        model.exponent = before;
        poll(0.0);
        EXPECT_EQ(model.exponent, after);
    }
}

TEST_F(ProgressModel, delayIsTwoToThePowerOfEachOfTheNineExponents) {
    const double root = std::sqrt(2.0);
    const double delays[] = {1.0 / 32, root / 32, 1.0 / 16, root / 16, 1.0 / 8,
                             root / 8, 1.0 / 4,   root / 4, 1.0 / 2};
    for (const double expected : delays) {
        EXPECT_EQ(model.tickDelay(), std::pow(2.0, model.exponent));
        EXPECT_DOUBLE_EQ(model.tickDelay(), expected);
        poll(0.0);
    }
    EXPECT_EQ(model.tickDelay(), 0.5);
}

TEST_F(ProgressModel, delayFollowsTheBaseToo) {
    model.base = 4.0;
    model.exponent = -0.5;
    EXPECT_EQ(model.tickDelay(), 0.5);
}

TEST_F(ProgressModel, barAtNinetyOrAboveIsFrozen) {
    const std::pair<double, double> increments[] = {
        {std::nextafter(90.0, 0.0), 1.0}, {90.0, 0.0}, {100.0, 0.0}};
    for (const auto& [value, increment] : increments) {
        model.reset();
        poll(value);
        EXPECT_EQ(model.increment, increment) << value;
        EXPECT_EQ(model.exponent, -4.5) << value;
    }
}

TEST_F(ProgressModel, everyPollAtNinetyFreezesAgainAndNoneThaws) {
    poll(91.0);
    poll(10.0);
    EXPECT_EQ(model.increment, 0.0);
    model.increment = 1.0;
    poll(91.0);
    EXPECT_EQ(model.increment, 0.0);
}

TEST_F(ProgressModel, freezingTouchesNothingButTheIncrement) {
    model.freeze();
    EXPECT_EQ(model.increment, 0.0);
    EXPECT_EQ(model.exponent, -5.0);
    EXPECT_FALSE(model.successfulInstall);
}

TEST_F(ProgressModel, finishingRaisesTheIncrementToTenAndTellsTheSuccess) {
    model.freeze();
    model.finish();
    EXPECT_EQ(model.increment, 10.0);
    EXPECT_TRUE(model.successfulInstall);
    EXPECT_EQ(model.exponent, -5.0);
}

TEST_F(ProgressModel, everyMemberIsReadAndWrittenWithoutALock) {
    EXPECT_TRUE(decltype(model.base)::is_always_lock_free);
    EXPECT_TRUE(decltype(model.exponent)::is_always_lock_free);
    EXPECT_TRUE(decltype(model.increment)::is_always_lock_free);
    EXPECT_TRUE(decltype(model.successfulInstall)::is_always_lock_free);
}

} // namespace
