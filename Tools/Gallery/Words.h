// How faults write places, and what they ask about texts. Any thread.
#pragma once

#include <QRectF>
#include <QString>

#include <optional>

namespace Gallery {

/// "x, y, width x height", with at most one decimal.
QString words(const QRectF& rect);

/// The direction of most letters; nothing when there are as many of the one as of the other.
std::optional<Qt::LayoutDirection> prevailingDirection(const QString& text);

/// Where the letters end that begin at a position and belong to one script, marks and joiners
/// included; one further where no letter is.
int endOfWord(const QString& text, int start);

/// A character as "U+0E40 (Thai)"; the script by its English name when a language of the gallery is
/// written in it.
QString characterName(char32_t character);

} // namespace Gallery
