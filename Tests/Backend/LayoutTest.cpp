#include "Backend/Fixture.h"
#include "Color.h"
#include "Platform/Palette.h"

#include <algorithm>

namespace BackendTest {

/// What must hold whatever the window shows.
class Layout : public EveryStateInEveryLanguage {};

INSTANTIATE_TEST_SUITE_P(In, Layout, testing::Combine(everyState, languages), stateAndLanguageName);

TEST_P(Layout, showsEverythingWholeAndApart) {
    enter(state());
    expectWholeAndApart();
    frontEnd.shrink();
    expectWholeAndApart();
}

TEST_P(Layout, isOneColumnInTheMiddleOfALargeWindow) {
    enter(state());
    frontEnd.resize(2560.0, 1440.0);
    expectWholeAndApart();
    const Place column = frontEnd.place(widgetOf(*content));
    EXPECT_LE(column.width, 720.0);
    EXPECT_GT(frontEnd.area().width, 720.0);
    EXPECT_NEAR(column.middle().x, frontEnd.area().middle().x, 1.0);
    for (const std::string& name : visible()) {
        EXPECT_TRUE(column.contains(place(name))) << name;
    }
}

class Pictures : public EveryStateInEveryLanguage {};

INSTANTIATE_TEST_SUITE_P(In, Pictures, testing::Combine(everyState, testing::Values("en", "ja")),
                         stateAndLanguageName);

TEST_P(Pictures, showEveryControlOnPaperAndLinksInBlue) {
    enter(state());
    for (const std::string& name : visible()) {
        const Picture shown = picture(name);
        EXPECT_GT(shown.colors(), 3U) << name;
        if (name == "licenseLabel" || name == "logLabel") {
            EXPECT_TRUE(shown.find(Vexora::OndrelFontBlueColor)) << name;
            EXPECT_TRUE(shown.find(Vexora::inkColor)) << name;
        }
    }
    EXPECT_TRUE(areAlike(FrontEnd::picture(widgetOf(*content)).at(1, 1), Vexora::paperColor));
}

class ClicksEverywhere : public EveryStateInEveryLanguage {};

INSTANTIATE_TEST_SUITE_P(In, ClicksEverywhere, testing::Combine(everyState, languages),
                         stateAndLanguageName);

TEST_P(ClicksEverywhere, findEveryUsableControlAndNoOther) {
    enter(state());
    Names names = usable();
    for (const std::string& name : names) {
        const Place inside = place(name);
        for (const double across : {0.2, 0.5, 0.8}) {
            for (const double down : {0.3, 0.5, 0.7}) {
                const Point point{inside.left + inside.width * across,
                                  inside.top + inside.height * down};
                EXPECT_EQ(nameOf(frontEnd.at(point)), name)
                    << name << " at " << point.x << ", " << point.y;
            }
        }
    }
    Names expected = usableIn(state());
    std::ranges::sort(names);
    std::ranges::sort(expected);
    EXPECT_EQ(names, expected);
}

class TabOrder : public EveryStateInEveryLanguage {
protected:
    /// The controls that the key reaches one after the other, until it comes round, beginning with
    /// the one that comes first in reading.
    Names reachedBy(Key key, const std::string& first) {
        Names names;
        press(key);
        while (std::ranges::count(names, focused()) == 0 && names.size() < 20) {
            names.push_back(focused());
            press(key);
        }
        const auto found = std::ranges::find(names, first);
        std::rotate(names.begin(), found == names.end() ? names.begin() : found, names.end());
        return names;
    }
};

INSTANTIATE_TEST_SUITE_P(In, TabOrder, testing::Combine(everyState, testing::Values("en", "ar")),
                         stateAndLanguageName);

TEST_P(TabOrder, followsReading) {
    enter(state());
    const Names expected = usableIn(state());
    EXPECT_EQ(reachedBy(Key::Tab, expected.front()), expected);
}

TEST_P(TabOrder, goesBackwardsToo) {
    enter(state());
    Names expected = usableIn(state());
    std::ranges::reverse(expected);
    const bool stays =
        expected.back() == "licenseText" && !hasHabit(Habit::TabGoesBackOutOfTheLicense);
    EXPECT_EQ(reachedBy(Key::Backtab, expected.front()), stays ? Names{"licenseText"} : expected);
}

} // namespace BackendTest
