// The desktop's part in a test: an event loop that runs until something holds, and the events that
// a mouse and a keyboard send. Main thread only.
#pragma once

#include "Platform/AppKit/Compatibility.h"

#include <chrono>
#include <functional>
#include <string>

namespace BackendTest {

inline const std::string tabKey = "\t";
inline const std::string backTabKey = "\x19";
inline const std::string returnKey = "\r";
inline const std::string enterKey = "\003";
inline const std::string escapeKey = "\033";

/// Runs the event loop until the predicate holds or the time is over.
/// \return whether the predicate held.
bool waitFor(const std::function<bool()>& predicate,
             std::chrono::milliseconds limit = std::chrono::seconds(10));

/// Lets everything run that is due now.
void settle();

/// The middle of a view, in its window.
NSPoint middleOf(NSView* view);

/// The place of a view, in its window.
NSRect placeOf(NSView* view);

/// Presses the left button at one point of a window and releases it at another.
void drag(NSWindow* window, NSPoint from, NSPoint to);

/// Presses and releases the left button at a point of a window.
void clickAt(NSWindow* window, NSPoint point);

/// Presses and releases a key; held says that it has been down for a while.
void pressKey(NSWindow* window, const std::string& characters, NSUInteger modifiers = 0,
              bool held = false);

} // namespace BackendTest
