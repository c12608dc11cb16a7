// What assistive tools are told about a view, and what the system is told of the user's eyes. A control with a cell is known to them by the cell,
// and an area that scrolls by what is in it, so these are told as well. Main thread only.
#pragma once

#include "Platform/AppKit/Compatibility.h"
#include "Platform/StyledText.h"

namespace Vexora {

/// \param view may be null.
void setAccessibleName(NSView* view, NSString* name);
void setAccessibleRole(NSView* view, NSString* role);
void setAccessibleDescription(NSView* view, NSString* description);

/// Has a text spoken at once.
void announce(NSString* text);

/// Whether the user asks for text and borders that stand out as much as can be.
bool wantsContrast();

/// What the window is made of for such a user and for all others.
Color paper();

/// For what only decorates.
void hideFromAssistiveTools(NSView* view);

} // namespace Vexora
