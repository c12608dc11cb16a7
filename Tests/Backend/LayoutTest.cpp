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
    std::sort(names.begin(), names.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(names, expected);
}

class TabOrder : public EveryStateInEveryLanguage {
protected:
    /// The controls that the key reaches one after the other, until it comes round, beginning with
    /// the one that comes first in reading.
    Names reachedBy(Key key, const std::string& first) {
        Names names;
        press(key);
        while (std::count(names.begin(), names.end(), focused()) == 0 && names.size() < 20) {
            names.push_back(focused());
            press(key);
        }
        const auto found = std::find(names.begin(), names.end(), first);
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
    std::reverse(expected.begin(), expected.end());
    const bool stays =
        expected.back() == "licenseText" && !hasHabit(Habit::TabGoesBackOutOfTheLicense);
    EXPECT_EQ(reachedBy(Key::Backtab, expected.front()), stays ? Names{"licenseText"} : expected);
}

class LayoutDirection : public EveryLanguage {
protected:
    /// Where a control begins and ends on the way that reading takes through the window.
    double begin(const std::string& name) const {
        return fromRight() ? frontEnd.area().width - place(name).right() : place(name).left;
    }
    double end(const std::string& name) const { return begin(name) + place(name).width; }
    double middle() const { return frontEnd.area().width / 2; }
};

INSTANTIATE_TEST_SUITE_P(In, LayoutDirection, languages, languageName);

TEST_P(LayoutDirection, ofTheFailureScreenIsThatOfTheLanguage) {
    enter(State::Failure);
    EXPECT_EQ(frontEnd.fromRight(), fromRight());
    EXPECT_EQ(begin("troubleshootButton"), begin("logLabel"));
    EXPECT_EQ(end("closeButton"), end("logLabel"));
    EXPECT_LT(end("troubleshootButton"), middle());
    EXPECT_GT(begin("closeButton"), middle());
    EXPECT_NEAR(place("closeButton").middle().y, place("troubleshootButton").middle().y, 1.0);
}

TEST_P(LayoutDirection, ofTheLicenseIsThatOfTheLanguage) {
    enter(State::LicenseOnStart);
    EXPECT_GT(begin("backButton"), middle());
    EXPECT_EQ(begin("licenseText"), begin("licenseAgreementLabel"));
    EXPECT_EQ(runs("licenseAgreementLabel").front().alignment,
              fromRight() ? Alignment::Right : Alignment::Left);
}

TEST_P(LayoutDirection, keepsTheSidesWhenTheWindowGrows) {
    enter(State::Failure);
    const double help = begin("troubleshootButton");
    const double close = begin("closeButton");
    const double message = place("logLabel").width;
    frontEnd.resize(frontEnd.area().width + 140.0, frontEnd.area().height);
    EXPECT_EQ(begin("troubleshootButton"), help);
    EXPECT_EQ(begin("closeButton"), close + 140.0);
    EXPECT_EQ(place("logLabel").width, message + 140.0);
}

class ButtonWidth : public Fixture {
protected:
    /// Where a button is once its title has become long.
    Place grown(const std::string& name, Vexora::Button& button) {
        const Place before = place(name);
        button.setTitle("A title that takes much more room than any button has");
        FrontEnd::settle();
        EXPECT_GT(place(name).width, before.width + 50.0);
        EXPECT_TRUE(FrontEnd::isWhole(find(name)));
        return place(name);
    }
};

TEST_F(ButtonWidth, growsToBothSidesInTheMiddleAndBack) {
    openWindow();
    const Place before = place("startButton");
    Vexora::Button& button = *content->startView()->startButton();
    EXPECT_NEAR(grown("startButton", button).middle().x, before.middle().x, 1.0);
    button.setTitle("Go");
    FrontEnd::settle();
    EXPECT_EQ(place("startButton"), before);
}

TEST_F(ButtonWidth, growsToTheLeftFromTheRightSide) {
    enter(State::Install);
    const Place before = place("closeButton");
    const Place after = grown("closeButton", *content->installView()->closeButton());
    EXPECT_EQ(after.right(), before.right());
}

TEST_F(ButtonWidth, growsToTheRightInALanguageFromTheRight) {
    useLanguage("ar");
    enter(State::LicenseOnStart);
    const Place before = place("backButton");
    const Place after = grown("backButton", *content->licenseView()->backButton());
    EXPECT_EQ(after.left, before.left);
}

} // namespace BackendTest
