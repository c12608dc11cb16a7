// Between the values of the seam and those of the toolkit.
// Any thread, except that fonts and styled texts belong to the main thread.
#pragma once

#include "Platform/AppKit/Compatibility.h"
#include "Platform/StyledText.h"

#include <string>

namespace Vexora {

/// UTF-8 to the toolkit's text; bytes that are no UTF-8 become replacement characters.
Strong<NSString> toNSString(const std::string& text);

/// The bytes of a file, also where the path is no UTF-8; null when it cannot be read.
NSData* dataOfFile(const std::string& path);

/// The toolkit's text to UTF-8; null is the empty text.
std::string toUtf8(NSString* text);

NSColor* toNSColor(const Color& color);

/// The typeface of that name when the system or the bundle has it, otherwise the system font, in
/// semibold when the name asks for it. The size is taken in points.
NSFont* toNSFont(const Font& font);

/// A text with all its attributes: those of its runs, and where a run has none, the given ones.
/// An alignment that the text leaves open is the natural one.
Strong<NSMutableAttributedString> toAttributedText(const StyledText& text, NSFont* font,
                                                   NSColor* color);

} // namespace Vexora
