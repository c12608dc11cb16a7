#include "Platform/AppKit/Application.h"

#include "Platform/AppKit/Accessibility.h"
#include "Platform/AppKit/Pane.h"
#include "Platform/AppKit/TextLabel.h"

#include <cmath>
#include <map>

/// A window without a menu bar above it: it answers the usual keys by itself.
@interface VexoraWindow : NSWindow
@end

@implementation VexoraWindow

- (BOOL)performKeyEquivalent:(NSEvent*)event {
    static const std::map<std::string, SEL> actions{
        {"w", @selector(performClose:)}, {"q", @selector(performClose:)},
        {"c", @selector(copy:)},         {"a", @selector(selectAll:)},
        {"h", @selector(hide:)},         {"m", @selector(performMiniaturize:)}};
    // With the Command key a keyboard of any script gives Latin letters.
    const auto action = actions.find(Vexora::toUtf8([event characters]));
    if (([event modifierFlags] & NSEventModifierFlagCommand) != 0 && action != actions.end()) {
        return [NSApp sendAction:action->second to:nil from:self];
    }
    // A link that has the focus takes Return before the default button does.
    VexoraTextLabel* const link = Vexora::as<VexoraTextLabel>([self firstResponder]);
    if ([link isPressedBy:event]) {
        [link keyDown:event];
        return YES;
    }
    return [super performKeyEquivalent:event];
}

- (void)keyDown:(NSEvent*)event {
    // What a key pressed that is held down was another control.
    if (![event isARepeat] || !Vexora::isPressing(event)) {
        [super keyDown:event];
    }
}

@end

/// What a window wider than its content shows: the content as a column in the middle.
@interface VexoraColumn : VexoraPane
@end

@implementation VexoraColumn

- (void)resizeSubviewsWithOldSize:(NSSize)oldSize {
    const double aside = std::floor(std::fmax(0.0, (NSWidth([self bounds]) - 720.0) / 2.0));
    for (NSUInteger index = 0; index < [[self subviews] count]; ++index) {
        [[[self subviews] objectAtIndex:index] setFrame:NSInsetRect([self bounds], aside, 0.0)];
    }
}

@end

namespace Vexora {

AppKitWindow::AppKitWindow()
    : window_(adopt<NSWindow>([[VexoraWindow alloc]
          initWithContentRect:NSMakeRect(0.0, 0.0, 100.0, 100.0)
                    styleMask:NSWindowStyleMaskTitled | NSWindowStyleMaskClosable |
                              NSWindowStyleMaskMiniaturizable | NSWindowStyleMaskResizable
                      backing:NSBackingStoreBuffered
                        defer:NO])) {
    [window_.get() setReleasedWhenClosed:NO];
    [window_.get()
        setContentView:adopt<VexoraColumn>([[VexoraColumn alloc] initWithFrame:NSZeroRect])];
    [window_.get() setAutorecalculatesKeyViewLoop:YES];
    [window_.get() setCollectionBehavior:NSWindowCollectionBehaviorFullScreenNone];
    [window_.get() setBackgroundColor:toNSColor(paper())];
    if ([window_.get() respondsToSelector:@selector(setAppearance:)]) {
        // The colours are for light paper, also on a dark desktop.
        [window_.get() setAppearance:[NSAppearance appearanceNamed:NSAppearanceNameAqua]];
    }
}

void AppKitWindow::setContent(NSView* content) {
    const NSSize size = [content frame].size;
    [window_.get() setContentSize:size];
    [window_.get() setContentMinSize:size];
    [window_.get() center];
    [as<VexoraPane>([window_.get() contentView]) addPane:as<VexoraPane>(content)
                                              positioned:Ordering::Above];
    [window_.get() setInitialFirstResponder:as<NSView>([window_.get() firstResponder])];
}

void AppKitApplication::onWindowWillClose(std::function<void()> handler) {
    [[NSNotificationCenter defaultCenter] removeObserver:closeObserver_];
    closeObserver_ = makeHandler(std::move(handler));
    [[NSNotificationCenter defaultCenter] addObserver:closeObserver_
                                             selector:@selector(handle:)
                                                 name:NSWindowWillCloseNotification
                                               object:nil];
}

void AppKitApplication::setLanguage(const std::string& languageCode) {
    const bool fromRight = [NSLocale characterDirectionForLanguage:toNSString(languageCode)] ==
                           NSLocaleLanguageDirectionRightToLeft;
    // Whatever the window is going to show takes over its direction.
    [[mainWindow_.window() contentView]
        setUserInterfaceLayoutDirection:fromRight ? NSUserInterfaceLayoutDirectionRightToLeft
                                                  : NSUserInterfaceLayoutDirectionLeftToRight];
}

} // namespace Vexora
