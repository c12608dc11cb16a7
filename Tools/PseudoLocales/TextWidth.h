// How wide a message is when it is drawn, to tell which language tries the layout the hardest. Main
// thread only.
#pragma once

#include <QtGlobal>

#include <compare>
#include <string>

namespace Gallery {

struct TextWidth {
    /// The widest part that cannot be wrapped.
    qreal word = 0.0;
    /// The text in one line.
    qreal whole = 0.0;

    friend auto operator<=>(const TextWidth&, const TextWidth&) = default;
};

/// \param identifier the message's, which tells whether it is set in bold throughout.
/// \param text may hold tags; what <b> encloses is bold.
TextWidth widthOf(const std::string& identifier, const std::string& text);

} // namespace Gallery
