#include "Backend/Fixture.h"

namespace BackendTest {

class SmallScreen : public EveryStateInEveryLanguage {};

INSTANTIATE_TEST_SUITE_P(In, SmallScreen, testing::Combine(everyState, languages),
                         stateAndLanguageName);

TEST_P(SmallScreen, hasRoomForTheWindowWithItsFrame) {
    if (!hasHabit(Habit::FitsASmallScreen)) {
        GTEST_SKIP() << differences.at(Habit::FitsASmallScreen).reason;
    }
    enter(state());
    frontEnd.resize(472.0, 440.0);
    EXPECT_EQ(frontEnd.area(), (Place{0.0, 0.0, 472.0, 440.0}));
    expectWholeAndApart();
}

} // namespace BackendTest
