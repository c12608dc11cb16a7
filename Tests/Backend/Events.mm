#include "Backend/Events.h"

#include "Platform/AppKit/Conversions.h"

namespace BackendTest {
namespace {

/// Handles the next event, if one comes soon; whatever else is due runs too.
/// \return whether there was an event.
bool runLoopOnce() {
    const Vexora::AutoreleaseScope scope;
    NSEvent* const event = [NSApp nextEventMatchingMask:NSAnyEventMask
                                              untilDate:[NSDate dateWithTimeIntervalSinceNow:0.002]
                                                 inMode:NSDefaultRunLoopMode
                                                dequeue:YES];
    if (event != nil) {
        [NSApp sendEvent:event];
    }
    return event != nil;
}

void postMouse(NSEventType type, NSWindow* window, NSPoint point) {
    [NSApp postEvent:[NSEvent mouseEventWithType:type
                                        location:point
                                   modifierFlags:0
                                       timestamp:[NSDate timeIntervalSinceReferenceDate]
                                    windowNumber:[window windowNumber]
                                         context:[window graphicsContext]
                                     eventNumber:0
                                      clickCount:1
                                        pressure:1.0]
             atStart:NO];
}

void postKey(NSEventType type, NSWindow* window, const std::string& characters,
             NSUInteger modifiers, bool held) {
    const auto text = Vexora::toNSString(characters);
    [NSApp postEvent:[NSEvent keyEventWithType:type
                                            location:NSZeroPoint
                                       modifierFlags:modifiers
                                           timestamp:[NSDate timeIntervalSinceReferenceDate]
                                        windowNumber:[window windowNumber]
                                             context:[window graphicsContext]
                                          characters:text
                         charactersIgnoringModifiers:text
                                           isARepeat:held
                                             keyCode:0]
             atStart:NO];
}

} // namespace

bool waitFor(const std::function<bool()>& predicate, std::chrono::milliseconds limit) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (!predicate()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            return false;
        }
        runLoopOnce();
    }
    return true;
}

void settle() {
    // What runs may post further events.
    for (int quiet = 0; quiet < 5;) {
        quiet = runLoopOnce() ? 0 : quiet + 1;
    }
}

NSPoint middleOf(NSView* view) {
    const NSRect place = placeOf(view);
    return NSMakePoint(NSMidX(place), NSMidY(place));
}

NSRect placeOf(NSView* view) {
    return [view convertRect:[view bounds] toView:nil];
}

void drag(NSWindow* window, NSPoint from, NSPoint to) {
    postMouse(NSLeftMouseDown, window, from);
    postMouse(NSLeftMouseUp, window, to);
    settle();
}

void clickAt(NSWindow* window, NSPoint point) {
    drag(window, point, point);
}

void pressKey(NSWindow* window, const std::string& characters, NSUInteger modifiers, bool held) {
    postKey(NSKeyDown, window, characters, modifiers, held);
    postKey(NSKeyUp, window, characters, modifiers, held);
    settle();
}

} // namespace BackendTest
