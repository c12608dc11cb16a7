// Whether texts are shown whole: inside their control, every character of them, and no tag.
// Measured on what the control paints. Main thread only.
#pragma once

#include "Fault.h"
#include "PaintedText.h"

namespace Gallery {

/// Text that leaves its control, or ink that the control's edge or mask cuts off. What scrolls may
/// leave it above and below.
Faults checkInside(const PaintedText& painted);

/// A control that paints another text than it holds, such as one with an ellipsis.
Faults checkWhole(const PaintedText& painted);

/// Tags of a markup, whole or begun, and named characters of one in a text that a person sees.
/// \param text in the order in which it is read.
Faults checkTags(const QString& control, const QString& text);

/// A label's word that is wider than its lines, and so is broken without a hyphen.
Faults checkWords(const PaintedText& painted);

/// A control that holds a text of which nothing can be seen.
Faults checkBlank(const PaintedText& painted);

/// Letters from right to left in a layout from left to right, and a text without any in a layout
/// from right to left. Text areas are free: a licence may be in another language.
Faults checkLetters(const QString& control, const QString& text, Qt::LayoutDirection direction);

/// What can be told of a window's title: that it is not blank, and what holds for every text.
Faults checkTitle(const QWidget& window);

/// Lines that follow one another more closely than the control's own font asks for.
Faults checkLines(const PaintedText& painted);

/// A text area that scrolls sideways, or whose paragraphs do not begin on their own reading side.
Faults checkParagraphs(const PaintedText& painted);

} // namespace Gallery
