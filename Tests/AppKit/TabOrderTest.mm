#include "AppKit/AppKitFixture.h"

#include <algorithm>

namespace AppKitTest {

class TabOrder : public AppKitFixture, public testing::WithParamInterface<StateAndLanguage> {
protected:
    TabOrder() { useLanguage(std::get<1>(GetParam())); }

    static State state() { return std::get<0>(GetParam()); }

    /// The controls that the key reaches one after the other, until it comes round.
    Names reachedBy(const std::string& key, NSUInteger modifiers) {
        Names names;
        press(key, modifiers);
        while (std::count(names.begin(), names.end(), focus()) == 0 && names.size() < 20) {
            names.push_back(focus());
            press(key, modifiers);
        }
        return names;
    }

    /// The same names, beginning with the one that comes first in reading.
    static Names fromFirst(Names names, const std::string& first) {
        const auto found = std::find(names.begin(), names.end(), first);
        std::rotate(names.begin(), found == names.end() ? names.begin() : found, names.end());
        return names;
    }
};

INSTANTIATE_TEST_SUITE_P(In, TabOrder, testing::Combine(testing::ValuesIn(everyState), languages),
                         stateAndLanguageName);

TEST_P(TabOrder, followsReading) {
    enter(state());
    const Names expected = usableIn(state());
    EXPECT_EQ(usableControls().size(), expected.size());
    EXPECT_EQ(fromFirst(reachedBy(tabKey, 0), expected.front()), expected);
}

/// Here a scrolled text gives the keys back to itself, so the licence is left out.
class TabOrderBackwards : public TabOrder {};

INSTANTIATE_TEST_SUITE_P(In, TabOrderBackwards,
                         testing::Combine(testing::Values(State::Start, State::Install,
                                                          State::Failure, State::Notice),
                                          testing::Values("en", "ar")),
                         stateAndLanguageName);

TEST_P(TabOrderBackwards, followsReading) {
    enter(state());
    Names expected = usableIn(state());
    std::reverse(expected.begin(), expected.end());
    EXPECT_EQ(fromFirst(reachedBy(backTabKey, NSShiftKeyMask), expected.front()), expected);
}

} // namespace AppKitTest
