#include "AppKit/AppKitFixture.h"
#include "AppKit/Pieces.h"

#include <map>

namespace AppKitTest {
namespace {

/// The place of a control in the window's content, without the frame around it.
NSRect placeInContent(NSView* view) {
    return [view convertRect:[view bounds] toView:[[view window] contentView]];
}

const Names placedControls{"lumiqLogo",    "containerView",      "licenseLabel",
                           "installLabel", "closeButton",        "closeIcon",
                           "failLabel",    "troubleshootButton", "logLabel"};

} // namespace

class LayoutDirection : public EveryLanguage {
protected:
    NSTextAlignment alignmentOf(const std::string& label) const {
        return piecesOf([get<NSTextField>(label) attributedStringValue]).front().alignment;
    }

    NSUserInterfaceLayoutDirection expected() const {
        return fromRight() ? NSUserInterfaceLayoutDirectionRightToLeft
                           : NSUserInterfaceLayoutDirectionLeftToRight;
    }

    /// The distance of a control to the side of the window where reading begins.
    double distance(const std::string& name) {
        const NSRect place = placeInContent(get(name));
        return fromRight() ? NSWidth([[window() contentView] bounds]) - NSMaxX(place)
                           : NSMinX(place);
    }
};

INSTANTIATE_TEST_SUITE_P(In, LayoutDirection, languages, languageName);

TEST_P(LayoutDirection, followsTheLanguage) {
    openWindow();
    EXPECT_EQ([[window() contentView] userInterfaceLayoutDirection], expected());
    EXPECT_EQ([paneOf(*content) userInterfaceLayoutDirection], expected());
    EXPECT_EQ([paneOf(*content->startView()) userInterfaceLayoutDirection], expected());
}

TEST_P(LayoutDirection, putsTheButtonsOfTheFailureScreenWhereReadingBeginsAndEnds) {
    enter(State::Failure);
    EXPECT_EQ(distance("troubleshootButton"), 32.0);
    EXPECT_GT(distance("closeButton"), 280.0);
    EXPECT_EQ(distance("logLabel"), 32.0);
}

TEST_P(LayoutDirection, mirrorsTheLicense) {
    enter(State::LicenseOnStart);
    EXPECT_GT(distance("backButton"), 280.0);
    EXPECT_EQ(distance("licenseText"), 32.0);
    EXPECT_EQ(alignmentOf("licenseAgreementLabel"),
              fromRight() ? NSTextAlignmentRight : NSTextAlignmentNatural);
}

TEST_P(LayoutDirection, keepsTheSidesWhenTheWindowGrows) {
    enter(State::Failure);
    const double help = distance("troubleshootButton");
    const double close = distance("closeButton");
    [window() setContentSize:NSMakeSize(700.0, 500.0)];
    settle();
    EXPECT_EQ(distance("troubleshootButton"), help);
    EXPECT_EQ(distance("closeButton"), close + 140.0);
    EXPECT_EQ(NSWidth([get("logLabel") frame]), 496.0 + 140.0);
}

class Mirroring : public AppKitFixture {
protected:
    /// The places of the controls of the failure screen in that language.
    std::map<std::string, NSRect> placesIn(const std::string& language) {
        useLanguage(language);
        enter(State::Failure);
        std::map<std::string, NSRect> places;
        for (const std::string& name : placedControls) {
            places[name] = placeInContent(get(name));
        }
        content.reset();
        return places;
    }
};

TEST_F(Mirroring, turnsEveryPlaceAroundTheMiddle) {
    const auto english = placesIn("en");
    const auto arabic = placesIn("ar");
    const double width = NSWidth([[window() contentView] bounds]);
    for (const std::string& name : placedControls) {
        const NSRect before = english.at(name);
        const NSRect after = arabic.at(name);
        EXPECT_EQ(NSMinX(after), width - NSMaxX(before)) << name;
        EXPECT_EQ(NSMinY(after), NSMinY(before)) << name;
        EXPECT_TRUE(NSEqualSizes(after.size, before.size)) << name;
    }
}

TEST_F(Mirroring, andBackAgainChangesNothing) {
    const auto before = placesIn("en");
    placesIn("ar");
    const auto after = placesIn("en");
    for (const std::string& name : placedControls) {
        EXPECT_TRUE(NSEqualRects(before.at(name), after.at(name))) << name;
    }
}

class ButtonWidth : public AppKitFixture {
protected:
    /// Where a button is before and after its title has become long.
    std::pair<NSRect, NSRect> grown(const std::string& name) {
        VexoraButton* const button = get<VexoraButton>(name);
        const NSRect before = [button frame];
        [button setTitle:@"A title that takes much more room than any button has"];
        return {before, [button frame]};
    }
};

TEST_F(ButtonWidth, growsToBothSidesInTheMiddle) {
    openWindow();
    const auto [before, after] = grown("startButton");
    EXPECT_GT(NSWidth(after), NSWidth(before) + 50.0);
    EXPECT_EQ(NSMidX(after), NSMidX(before));
}

TEST_F(ButtonWidth, growsToTheLeftFromTheRightSide) {
    enter(State::Install);
    const auto [before, after] = grown("closeButton");
    EXPECT_GT(NSWidth(after), NSWidth(before) + 50.0);
    EXPECT_EQ(NSMaxX(after), NSMaxX(before));
}

TEST_F(ButtonWidth, growsToTheRightInALanguageFromTheRight) {
    useLanguage("ar");
    enter(State::LicenseOnStart);
    const auto [before, after] = grown("backButton");
    EXPECT_GT(NSWidth(after), NSWidth(before) + 50.0);
    EXPECT_EQ(NSMinX(after), NSMinX(before));
}

TEST_F(ButtonWidth, isTheDefinitionsWithAShortTitle) {
    openWindow();
    const auto [before, after] = grown("startButton");
    [get<VexoraButton>("startButton") setTitle:@"Go"];
    EXPECT_TRUE(NSEqualRects([get("startButton") frame], before));
    EXPECT_FALSE(NSEqualRects(after, before));
}

} // namespace AppKitTest
