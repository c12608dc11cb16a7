// Whether texts are shown whole: inside their control, every character of them, and no tag.
// Measured on what the control paints. Main thread only.
#pragma once

#include "Finding.h"
#include "PaintedText.h"

namespace Gallery {

/// Text that leaves its control, or ink that the control's edge or mask cuts off. What scrolls may
/// leave it above and below.
Findings checkInside(const PaintedText& painted);

/// A control that paints another text than it holds, such as one with an ellipsis.
Findings checkWhole(const PaintedText& painted);

/// A tag of the markup in a text that a person sees.
Findings checkTags(const QString& control, const QString& text);

/// Lines that follow one another more closely than the control's own font asks for.
Findings checkLines(const PaintedText& painted);

/// A text area that scrolls sideways, or whose paragraphs do not begin on their own reading side.
Findings checkParagraphs(const PaintedText& painted);

} // namespace Gallery
