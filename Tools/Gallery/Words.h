// How faults write places, and what they ask about texts. Any thread.
#pragma once

#include <QRectF>
#include <QString>

namespace Gallery {

/// "x, y, width x height", with at most one decimal.
QString words(const QRectF& rect);

/// Where the letters end that begin at a position and belong to one script, marks and joiners
/// included; one further where no letter is.
int endOfWord(const QString& text, int start);

/// A character as "U+0E40".
QString characterName(char32_t character);

} // namespace Gallery
