#include "Backend/Fixture.h"
#include "Platform/AppKit/Conversions.h"

#include "Platform/AppKit/TextLabel.h"

#include <map>

/// What the toolkit asks of views that only macOS draws rings around.
@interface VexoraTextLabel (Ring)
- (NSRect)focusRingMaskBounds;
@end

/// A label that tells where the pointer becomes a hand.
@interface PointedLabel : VexoraTextLabel {
@public
    NSRect hand;
}
@end

@implementation PointedLabel

- (void)addCursorRect:(NSRect)place cursor:(NSCursor*)cursor {
    hand = [cursor isEqual:[NSCursor pointingHandCursor]] ? place : NSZeroRect;
}

@end

namespace AppKitTest {

using BackendTest::FrontEnd;
using BackendTest::Names;
using BackendTest::Place;
using BackendTest::State;
using Vexora::as;

class Window : public BackendTest::Fixture {
protected:
    NSWindow* window() const { return frontEnd.window(); }

    /// Some other window of the application.
    static Vexora::Strong<NSPanel> makePanel() {
        const auto panel = Vexora::adopt<NSPanel>([[NSPanel alloc]
            initWithContentRect:NSMakeRect(50.0, 50.0, 100.0, 60.0)
                      styleMask:NSTitledWindowMask | NSClosableWindowMask
                        backing:NSBackingStoreBuffered
                          defer:NO]);
        [panel.get() setReleasedWhenClosed:NO];
        return panel;
    }
};

TEST_F(Window, leavesWhenAnyOtherOneClosesButNotWhenItHides) {
    openWindow();
    const auto panel = makePanel();
    [panel.get() orderFront:nil];
    [panel.get() orderOut:nil];
    [panel.get() orderFront:nil];
    FrontEnd::settle();
    EXPECT_TRUE(application.exits.empty());
    [panel.get() close];
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Window, isToldOfNoClosingOnceTheApplicationIsGone) {
    int closings = 0;
    {
        Vexora::AppKitApplication gone;
        gone.onWindowWillClose([&closings] { ++closings; });
    }
    [makePanel().get() close];
    EXPECT_EQ(closings, 0);
}

TEST_F(Window, isAsLargeAsItsContentAndGetsNoSmaller) {
    openWindow();
    const NSSize size = NSMakeSize(560.0, 500.0);
    EXPECT_TRUE(NSEqualSizes([[window() contentView] frame].size, size));
    EXPECT_TRUE(NSEqualSizes([window() contentMinSize], size));
    EXPECT_TRUE(NSEqualSizes([widgetOf(*content) frame].size, size));
    EXPECT_NE([window() styleMask] & NSClosableWindowMask, 0U);
    EXPECT_TRUE([window() isMainWindow]);
}

TEST_F(Window, leavesByCommandWAndCommandQ) {
    openWindow();
    for (const char* key : {"w", "q"}) {
        application.exits.clear();
        [window() makeKeyAndOrderFront:nil];
        BackendTest::pressKey(window(), key, NSCommandKeyMask);
        EXPECT_EQ(application.exits, std::vector<int>{0}) << key;
    }
}

TEST_F(Window, leavesByTheMenuWhenItIsMinimized) {
    openWindow();
    BackendTest::pressKey(window(), "m", NSCommandKeyMask);
    EXPECT_TRUE([window() isMiniaturized]);
    EXPECT_TRUE(application.exits.empty());
    NSMenuItem* const close = [[[[NSApp mainMenu] itemAtIndex:0] submenu] itemAtIndex:0];
    EXPECT_TRUE([close isEnabled]);
    [[close menu] performActionForItemAtIndex:0];
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Window, hasAMenuWithOneNamedCommandInItsLanguage) {
    for (const char* language : {"en", "ar"}) {
        useLanguage(language);
        openWindow();
        ASSERT_EQ([[NSApp mainMenu] numberOfItems], 1);
        NSArray* const commands = [[[[NSApp mainMenu] itemAtIndex:0] submenu] itemArray];
        Names names;
        for (NSUInteger index = 0; index < [commands count]; ++index) {
            names.push_back(Vexora::toUtf8([[commands objectAtIndex:index] title]));
        }
        std::erase(names, "");
        EXPECT_EQ(names, Names{translation("Close")});
        content.reset();
    }
}

TEST_F(Window, selectsTheWholeLicenseByCommandA) {
    enter(State::LicenseOnStart);
    BackendTest::pressKey(window(), "a", NSCommandKeyMask);
    NSTextView* const shown = as<NSTextView>([window() firstResponder]);
    ASSERT_NE(shown, nil);
    EXPECT_GT([[shown string] length], 0U);
    EXPECT_EQ([shown selectedRange].length, [[shown string] length]);
}

TEST_F(Window, copiesNothingByCommandCWhereNothingIsSelected) {
    openWindow();
    BackendTest::pressKey(window(), "c", NSCommandKeyMask);
    EXPECT_TRUE(shows("startButton"));
    EXPECT_EQ(backgroundQueue.pending(), 0U);
}

TEST_F(Window, hasAHandOverTheWordsOfALinkAlone) {
    const auto label = Vexora::adopt<PointedLabel>(
        [[PointedLabel alloc] initWithFrame:NSMakeRect(0.0, 0.0, 400.0, 200.0)]);
    label.get()->centered = YES;
    NSFont* const font = [NSFont systemFontOfSize:12.0];
    for (const bool centers : {false, true}) {
        label.get()->centersVertically = centers;
        [label.get() setStyledText:Vexora::toAttributedText(Vexora::StyledText("A link"), font,
                                                            [NSColor blackColor])];
        label.get()->hand = NSZeroRect;
        [label.get() resetCursorRects];
        EXPECT_TRUE(centers || NSIsEmptyRect(label.get()->hand));
        [label.get() setClickHandler:Vexora::makeHandler([] {})];
        [label.get() resetCursorRects];
        const NSRect hand = label.get()->hand;
        EXPECT_FALSE(NSIsEmptyRect(hand));
        EXPECT_LT(NSWidth(hand), 100.0);
        EXPECT_LT(NSHeight(hand), 50.0);
        EXPECT_NEAR(NSMidX(hand), 200.0, 1.0);
        EXPECT_EQ(NSMinY(hand) > 50.0, centers);
    }
}

TEST_F(Window, beginsWithTheButtonThatStarts) {
    openWindow();
    EXPECT_EQ([window() initialFirstResponder], find("startButton"));
}

/// What is underlined of a label, and where its focus ring is.
class Links : public Window {
protected:
    Names underlined(const std::string& name) const {
        const auto text = Vexora::paintedText(label(name));
        Names parts;
        NSRange run = NSMakeRange(0, 0);
        for (NSUInteger start = 0; start < [text.get() length]; start = NSMaxRange(run)) {
            NSDictionary* const look = [text.get() attributesAtIndex:start effectiveRange:&run];
            if ([look objectForKey:NSUnderlineStyleAttributeName] != nil) {
                parts.push_back(Vexora::toUtf8([[text.get() string] substringWithRange:run]));
            }
        }
        return parts;
    }

    NSRect ring(const std::string& name) const { return [label(name) focusRingMaskBounds]; }

    VexoraTextLabel* label(const std::string& name) const {
        return as<VexoraTextLabel>(find(name));
    }
};

TEST_F(Links, areUnderlinedUnderThePointerAndWithTheFocusOfAKey) {
    enter(State::Failure);
    const Names link{translation("Open logs")};
    EXPECT_EQ(underlined("logLabel"), Names{});
    [label("logLabel") mouseEntered:[NSApp currentEvent]];
    [label("failLabel") mouseEntered:[NSApp currentEvent]];
    EXPECT_EQ(underlined("logLabel"), link);
    EXPECT_EQ(underlined("failLabel"), Names{});
    [label("logLabel") mouseExited:[NSApp currentEvent]];
    EXPECT_EQ(underlined("logLabel"), Names{});
    [label("logLabel") mouseEntered:[NSApp currentEvent]];
    [label("logLabel") setHidden:YES];
    [label("logLabel") setHidden:NO];
    EXPECT_EQ(underlined("logLabel"), Names{});
    tabTo("logLabel");
    EXPECT_EQ(underlined("logLabel"), link);
    tabTo("closeButton");
    EXPECT_EQ(underlined("logLabel"), Names{});
}

TEST_F(Links, haveTheirFocusRingAroundTheWordsAndOnlyAfterAKey) {
    enter(State::Success);
    EXPECT_EQ(focused(), "installLabel");
    EXPECT_TRUE(NSIsEmptyRect(ring("installLabel")));
    tabTo("licenseLabel");
    EXPECT_FALSE(NSIsEmptyRect(ring("licenseLabel")));
    EXPECT_LT(NSHeight(ring("licenseLabel")), 30.0);
    EXPECT_LT(NSWidth(ring("licenseLabel")), 450.0);
    EXPECT_EQ([label("licenseLabel") currentEditor], nil);
}

/// The one button that Return presses.
class DefaultButton : public Window {
protected:
    std::string name() const {
        for (const std::string& control : visible()) {
            NSButton* const button = as<NSButton>(find(control));
            const bool chosen = button != nil && [window() defaultButtonCell] == [button cell];
            EXPECT_EQ([[button keyEquivalent] isEqualToString:@"\r"], chosen) << control;
            if (chosen) {
                return control;
            }
        }
        EXPECT_EQ([window() defaultButtonCell], nil);
        return {};
    }
};

TEST_F(DefaultButton, followsTheScreens) {
    openWindow();
    EXPECT_EQ(name(), "startButton");
    content->switchToLicenseView();
    EXPECT_EQ(name(), "backButton");
    leaveLicense();
    EXPECT_EQ(name(), "startButton");
    click("startButton");
    EXPECT_EQ(name(), "");
    content->switchToLicenseView();
    EXPECT_EQ(name(), "backButton");
    endInstall(0);
    EXPECT_EQ(name(), "backButton");
    leaveLicense();
    EXPECT_EQ(name(), "closeButton");
}

TEST_F(DefaultButton, isCloseAfterEveryFailure) {
    for (const State state : {State::Failure, State::Notice, State::LicenseOnFailure}) {
        enter(state);
        EXPECT_EQ(name(), "closeButton") << testing::PrintToString(state);
    }
}

TEST_F(Window, animatesItsBarInAThread) {
    enter(State::Install);
    EXPECT_TRUE([as<NSProgressIndicator>(find("installProgress")) usesThreadedAnimation]);
}

TEST_F(Window, hasATextAsLargeAsTheAreaOfTheLicense) {
    enter(State::LicenseOnStart);
    NSScrollView* const area = as<NSScrollView>(find("licenseText"));
    const Vexora::Size visible = content->licenseView()->licenseText()->contentSize();
    EXPECT_EQ(visible.width, [area contentSize].width);
    EXPECT_EQ(visible.height, [area contentSize].height);
    EXPECT_GT(visible.height, 300.0);
    const auto made = interfaces.makeTextView(visible);
    const NSRect place = [dynamic_cast<Vexora::AppKitTextView&>(*made).edit() frame];
    EXPECT_TRUE(NSEqualRects(place, NSMakeRect(0.0, 0.0, visible.width, visible.height)));
    NSTextView* const text = as<NSTextView>([area documentView]);
    EXPECT_TRUE([text isRichText]);
    EXPECT_FALSE([text isEditable]);
    EXPECT_GE([[text textContainer] containerSize].height, 1.0e6);
    EXPECT_TRUE([area hasVerticalScroller]);
    EXPECT_FALSE([area hasHorizontalScroller]);
}

/// The definitions give places, which a language from the right turns around.
class Mirroring : public Window {
protected:
    /// The places of the controls of the failure screen in that language.
    std::map<std::string, Place> placesIn(const std::string& language) {
        useLanguage(language);
        enter(State::Failure);
        std::map<std::string, Place> places;
        for (const char* name :
             {"lumiqLogo", "containerView", "licenseLabel", "installLabel", "closeButton",
              "closeIcon", "failLabel", "troubleshootButton", "logLabel"}) {
            places[name] = place(name);
        }
        content.reset();
        return places;
    }
};

TEST_F(Mirroring, turnsEveryPlaceAroundTheMiddleAndBack) {
    const auto english = placesIn("en");
    const auto arabic = placesIn("ar");
    for (const auto& [name, before] : english) {
        const Place turned{frontEnd.area().width - before.right(), before.top, before.width,
                           before.height};
        EXPECT_EQ(arabic.at(name), turned) << name;
    }
    EXPECT_EQ(placesIn("en"), english);
}

} // namespace AppKitTest
