#include "Platform/AppKit/Application.h"

#include "Platform/AppKit/Accessibility.h"
#include "Platform/AppKit/Pane.h"

#include <cmath>

/// A window that no key held down presses.
@interface VexoraWindow : NSWindow
@end

@implementation VexoraWindow

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
namespace {

/// Puts a command into a menu that a key gives together with the Command key. Without a name it is
/// not shown, and the key gives it nevertheless.
void addCommand(NSMenu* menu, NSString* name, NSString* key, SEL action, id target) {
    NSMenuItem* const item = as<NSMenuItem>([menu addItemWithTitle:name
                                                            action:action
                                                     keyEquivalent:key]);
    [item setTarget:target];
    if ([name length] == 0 &&
        [item respondsToSelector:@selector(setAllowsKeyEquivalentWhenHidden:)]) {
        [item setHidden:YES];
        [item setAllowsKeyEquivalentWhenHidden:YES];
    }
}

/// Has a view and all that it holds painted anew.
void paintAnew(NSView* view) {
    [view setNeedsDisplay:YES];
    for (NSUInteger index = 0; index < [[view subviews] count]; ++index) {
        paintAnew([[view subviews] objectAtIndex:index]);
    }
}

NSNotificationCenter* workspaceNews() {
    return [[NSWorkspace sharedWorkspace] notificationCenter];
}

} // namespace

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
    contrastObserver_ = makeHandler([this] {
        [window() setBackgroundColor:toNSColor(paper())];
        paintAnew([window() contentView]);
    });
    [workspaceNews() addObserver:contrastObserver_
                        selector:@selector(handle:)
                            name:NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification
                          object:nil];
}

AppKitWindow::~AppKitWindow() {
    [workspaceNews() removeObserver:contrastObserver_];
    [window() orderOut:nil];
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

void AppKitApplication::setCloseCommand(const std::string& name) {
    const auto bar = adopt<NSMenu>([[NSMenu alloc] initWithTitle:@""]);
    const auto menu = adopt<NSMenu>([[NSMenu alloc] initWithTitle:@""]);
    NSWindow* const window = mainWindow_.window();
    addCommand(menu, toNSString(name), @"w", @selector(performClose:), window);
    addCommand(menu, @"", @"q", @selector(performClose:), window);
    addCommand(menu, @"", @"m", @selector(performMiniaturize:), window);
    addCommand(menu, @"", @"h", @selector(hide:), NSApp);
    addCommand(menu, @"", @"c", @selector(copy:), nil);
    addCommand(menu, @"", @"a", @selector(selectAll:), nil);
    [[bar.get() addItemWithTitle:@"" action:nullptr keyEquivalent:@""] setSubmenu:menu];
    setMainMenu(bar);
}

} // namespace Vexora
