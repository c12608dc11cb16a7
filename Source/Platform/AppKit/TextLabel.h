// The view behind a text field: styled runs that wrap, and that can be clicked like a link. Only the
// words look like one then, and the coloured are underlined under the pointer and while a key has
// given them the focus. To assistive tools it is a text, or a link with a press action once it is
// clickable.
#pragma once

#include "Platform/AppKit/Handler.h"

@interface VexoraTextLabel : NSTextField {
@public
    /// Whether lines are centred when their text leaves that open.
    BOOL centered;
    /// Whether lines stand around the middle of the label instead of at its top.
    BOOL centersVertically;
    /// The font of runs that have none.
    Vexora::Strong<NSFont> plainFont;
    /// The control that this label's text names to assistive tools; null for none.
    Vexora::Strong<NSView> buddy;
    /// Texts that are set in the window are news, and announced. The name of the button that then takes
    /// the focus, described by the words of all labels beside this one that do so and show; null for
    /// none.
    Vexora::Strong<NSString> describes;
    /// The name of the button that Return and Space then press, while the label has the focus; null for
    /// none.
    Vexora::Strong<NSString> dismissedBy;
    /// The text without a link at its end.
    Vexora::Strong<NSString> spokenWords;
    /// Whether the pointer is over the words, and whether a key has given them the focus.
    BOOL hovered;
    BOOL showsFocus;

@private
    Vexora::Strong<NSAttributedString> styledText;
    Vexora::Strong<VexoraHandler> clickHandler;
    NSUserInterfaceLayoutDirection direction;
    BOOL hasNews;
    NSTrackingRectTag words;
}

/// Shows a text. It also becomes the accessible name of the label's buddy.
- (void)setStyledText:(NSAttributedString*)text;

/// Sets what a click, Return or Space does, and lets the label take the keyboard's focus.
- (void)setClickHandler:(VexoraHandler*)handler;

/// Whether a click does something.
- (BOOL)isClickable;

/// Whether the key does what a click does, or would if it were not held down.
- (BOOL)isPressedBy:(NSEvent*)event;

/// Does what a click does.
- (void)click;

/// Does the same for assistive tools. Returns whether anything was done.
- (BOOL)accessibilityPerformPress;

@end

namespace Vexora {

/// The text of a label as it is painted: with ends of lines where they are chosen, and with what makes
/// it stand out now.
Strong<NSMutableAttributedString> paintedText(VexoraTextLabel* label);

} // namespace Vexora
