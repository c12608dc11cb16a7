// What macOS and GNUstep do not have in common. Everything else in this folder is the same source
// for both: a method that GNUstep lacks is declared here, and called only where it is answered.
// GNUstep is built without automatic reference counting, macOS with it; Strong serves both.
#pragma once

#import <AppKit/AppKit.h>

#include <csignal>
#include <utility>

#ifdef GNUSTEP

// GNUstep 0.32 has constraints, but the layout engine that the first one starts releases what it
// does not own when its window goes. Under this name nobody answers, so the frame alone fixes the
// height.
#define addConstraint addConstraintOnlyOnMac

@interface NSGestureRecognizer (OnlyOnMac)
- (id)initWithTarget:(id)target action:(SEL)action;
@end

@interface NSView (OnlyOnMac)
- (void)addGestureRecognizer:(NSGestureRecognizer*)recognizer;
- (void)addConstraint:(NSLayoutConstraint*)constraint;
- (void)setAccessibilityLabel:(NSString*)label;
- (void)setAccessibilityHelp:(NSString*)help;
- (void)setAccessibilityRole:(NSString*)role;
- (void)setAccessibilityElement:(BOOL)element;
@end

@interface NSApplication (OnlyOnMac)
- (BOOL)isFullKeyboardAccessEnabled;
@end

@interface NSWindow (OnlyOnMac)
- (void)setAppearance:(NSAppearance*)appearance;
@end

@interface NSMenuItem (OnlyOnMac)
- (void)setHidden:(BOOL)hidden;
- (void)setAllowsKeyEquivalentWhenHidden:(BOOL)allowed;
@end

@interface NSWorkspace (OnlyOnMac)
- (BOOL)accessibilityDisplayShouldIncreaseContrast;
@end

@interface NSFont (OnlyOnMac)
+ (NSFont*)systemFontOfSize:(CGFloat)size weight:(CGFloat)weight;
@end

@interface NSAppleScript (OnlyOnMac)
- (id)initWithSource:(NSString*)source;
- (id)executeAndReturnError:(NSDictionary**)error;
@end

#define NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification                                \
    @"NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification"
#define NSAccessibilityLinkRole @"AXLink"
#define NSFontWeightSemibold CGFloat(0.3)
#define NSBezelStyleRounded NSRoundedBezelStyle
#define NSBezelStyleHelpButton NSHelpButtonBezelStyle
#define NSEventTypeLeftMouseDown NSLeftMouseDown
#define NSEventTypeKeyDown NSKeyDown
#define NSEventTypeKeyUp NSKeyUp
#define NSWindowCollectionBehaviorFullScreenNone NSUInteger(1 << 9)
#define NSEventModifierFlagCommand NSCommandKeyMask

#endif

#ifndef __has_feature
#define __has_feature(feature) 0
#endif

namespace Vexora {

/// The user's home folder; null for GNUstep's, which does not heed the environment.
inline NSString* homeFolder() {
#ifdef GNUSTEP
    return nil;
#else
    return NSHomeDirectory();
#endif
}

/// Where the bundle keeps its resources. GNUstep takes the folder of the program for the bundle.
inline NSString* bundleResourcePath() {
#ifdef GNUSTEP
    NSString* program = [[NSBundle mainBundle] executablePath];
    NSString* contents =
        [[program stringByDeletingLastPathComponent] stringByDeletingLastPathComponent];
    return [contents stringByAppendingPathComponent:@"Resources"];
#else
    return [[NSBundle mainBundle] resourcePath];
#endif
}

/// Leaves the status of a program that has ended to whoever started it. GNUstep collects those of
/// all programs once it has started one itself.
inline void leaveEndedProgramsAlone() {
#ifdef GNUSTEP
    [NSTask class];
    std::signal(SIGCHLD, SIG_DFL);
#endif
}

/// The margins over and under what a pane holds. A pane counts from its top, and on macOS so do its
/// margins.
#ifdef GNUSTEP
inline constexpr NSUInteger marginOver = NSViewMaxYMargin;
inline constexpr NSUInteger marginUnder = NSViewMinYMargin;
#else
inline constexpr NSUInteger marginOver = NSViewMinYMargin;
inline constexpr NSUInteger marginUnder = NSViewMaxYMargin;
#endif

/// Has the Tab key reach what the window holds now. macOS sees to that by itself.
inline void renewKeyViewLoop(NSWindow* window) {
#ifdef GNUSTEP
    [window recalculateKeyViewLoop];
    // Where the key begins while nothing has the focus.
    [window setInitialFirstResponder:[window contentView]];
#endif
}

#if __has_feature(objc_arc)
inline void retain(id) {}
inline void release(id) {}
// NOLINTBEGIN(readability-identifier-naming): the run time's names.
extern "C" void* objc_autoreleasePoolPush();
extern "C" void objc_autoreleasePoolPop(void* pool);
// NOLINTEND(readability-identifier-naming)
#else
inline void retain(id object) {
    [object retain];
}
inline void release(id object) {
    [object release];
}
inline void* objc_autoreleasePoolPush() {
    return [[NSAutoreleasePool alloc] init];
}
inline void objc_autoreleasePoolPop(void* pool) {
    [static_cast<id>(pool) release];
}
#endif

/// Makes a menu that of the application. GNUstep would give it the keys before the window has them, and
/// its window goes on asking a menu that is gone.
inline void setMainMenu(NSMenu* menu) {
#ifdef GNUSTEP
    retain(menu);
    [NSApp performSelector:@selector(setMainMenu:) withObject:menu afterDelay:0.0];
#else
    [NSApp setMainMenu:menu];
#endif
}

/// Keeps an object alive for as long as it lives itself.
template <class Kind>
class Strong {
public:
    Strong() = default;
    Strong(Kind* object) : object_(object) { retain(object_); }
    Strong(const Strong& other) : Strong(other.object_) {}
    Strong& operator=(Strong other) {
        std::swap(object_, other.object_);
        return *this;
    }
    ~Strong() { release(object_); }

    Kind* get() const { return object_; }
    operator Kind*() const { return object_; }

private:
    Kind* object_ = nil;
};

/// Takes over the reference that comes with an object just created.
template <class Kind>
Strong<Kind> adopt(id created) {
    const Strong<Kind> owner(created);
    release(created);
    return owner;
}

/// The object as one of that class; null when it is something else.
template <class Kind>
Kind* as(id object) {
    return [object isKindOfClass:[Kind class]] ? object : nil;
}

/// Has objects of the call released at its end, on threads without an event loop to do so.
class AutoreleaseScope {
public:
    AutoreleaseScope() = default;
    AutoreleaseScope(const AutoreleaseScope&) = delete;
    AutoreleaseScope& operator=(const AutoreleaseScope&) = delete;
    ~AutoreleaseScope() { objc_autoreleasePoolPop(pool_); }

private:
    void* pool_ = objc_autoreleasePoolPush();
};

} // namespace Vexora
