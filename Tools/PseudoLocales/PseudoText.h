// Makes texts of no language out of English ones, so that a text that is not translated, cut off or
// laid out for one script alone shows at first sight; and tells which of several texts tries the
// layout the hardest. Main thread.
#pragma once

#include <QString>

#include <compare>

namespace PseudoLocales {

/// The text in accented letters, between brackets, and at least 40 % longer. Tags, printf
/// conversions and the words of the product's name stay as they are.
QString accented(const QString& text);

/// The same with letters of a script that is written from right to left.
QString rightToLeft(const QString& text);

struct TextWidth {
    /// The widest part that cannot be wrapped.
    qreal word = 0.0;
    /// The text in one line.
    qreal whole = 0.0;

    friend auto operator<=>(const TextWidth&, const TextWidth&) = default;
};

/// How wide a text is drawn, all texts in one font; of tags nothing is seen.
TextWidth widthOf(const QString& text);

} // namespace PseudoLocales
