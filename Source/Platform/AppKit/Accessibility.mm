#include "Platform/AppKit/Accessibility.h"

#include "Platform/Palette.h"

#include <array>

namespace Vexora {
namespace {

/// The object, or null when it does not answer the message.
id answering(id object, SEL message) {
    return [object respondsToSelector:message] ? object : nil;
}

/// The view, its cell and what it scrolls, as far as they are there and answer the message.
std::array<id, 3> elementsOf(NSView* view, SEL message) {
    return {answering(view, message), answering([as<NSControl>(view) cell], message),
            answering([as<NSScrollView>(view) documentView], message)};
}

} // namespace

void setAccessibleName(NSView* view, NSString* name) {
    for (id element : elementsOf(view, @selector(setAccessibilityLabel:))) {
        [element setAccessibilityLabel:name];
    }
}

void setAccessibleRole(NSView* view, NSString* role) {
    for (id element : elementsOf(view, @selector(setAccessibilityRole:))) {
        [element setAccessibilityRole:role];
    }
}

void setAccessibleDescription(NSView* view, NSString* description) {
    for (id element : elementsOf(view, @selector(setAccessibilityHelp:))) {
        [element setAccessibilityHelp:description];
    }
}

void announce(NSString* text) {
    NSDictionary* const announcement = [NSDictionary
        dictionaryWithObjectsAndKeys:text, NSAccessibilityAnnouncementKey,
                                     [NSNumber numberWithInteger:NSAccessibilityPriorityHigh],
                                     NSAccessibilityPriorityKey, nil];
    NSAccessibilityPostNotificationWithUserInfo(
        NSApp, NSAccessibilityAnnouncementRequestedNotification, announcement);
}

bool wantsContrast() {
    return [answering([NSWorkspace sharedWorkspace],
                      @selector(accessibilityDisplayShouldIncreaseContrast))
        accessibilityDisplayShouldIncreaseContrast];
}

Color paper() {
    return wantsContrast() ? sheetColor : paperColor;
}

void hideFromAssistiveTools(NSView* view) {
    for (id element : elementsOf(view, @selector(setAccessibilityElement:))) {
        [element setAccessibilityElement:NO];
    }
}

} // namespace Vexora
