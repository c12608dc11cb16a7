// Work on byte strings for the localisation library: cutting, trimming, escaping, locale names and
// paths. Functions take bytes, never code points, keep no state, and except printBytes
// may run on any thread. They throw std::bad_alloc only.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace VXLOCAL::TRTools {

/// Cuts a text at every occurrence of a separator, in linear time for a separator of fixed length.
/// \param separator any bytes, not empty.
/// \return the pieces in order. Leading and inner empty pieces are kept, a trailing empty piece is
///     not, so the empty text has no pieces.
std::vector<std::string> split(const std::string& text, const std::string& separator);

/// Removes bytes from both ends of a text.
/// \param characters the bytes to remove, each for itself, in any order and number.
/// \param whitespace whether space, tab, line feed, carriage return, form feed and vertical tab are
///     removed as well.
/// \return the text from the first to the last byte that stays; empty when none stays.
std::string trim(const std::string& text, const std::string& characters, bool whitespace);

/// Writes the control characters 7 to 13, double quotes and backslashes of a text as a backslash
/// and a second character. unescape() undoes that but for two: the vertical tab comes back as the
/// letter v, and the double quote as a backslash.
std::string escape(const std::string& text);

/// \return whether escape() would change the text.
bool needsEscape(std::string_view text);

/// Replaces every backslash and the byte behind it by one byte: a control character for a, b, f, n,
/// r and t, the letter v for v, and a lone backslash for any other byte, which is lost. A backslash
/// at the end of the text stays.
std::string unescape(const std::string& text);

/// \return the part of a locale name before the first underscore, which is its language
///     whatever the function's name says: "pt" for "pt_BR".
std::string localeCountry(const std::string& locale);

/// \return whether split() cuts a locale name at underscores into more than one piece: true for
///     "pt_BR" and "_BR", false for "pt_".
bool localeHasRegion(const std::string& locale);

/// \return whether something exists at the path, symbolic links followed; false when that cannot be
///     found out.
bool pathExists(const std::string& path);

/// \return whether the bit 0x4000 is set in the mode of what exists at the path. Directories have
///     it, and so have block devices and sockets. False when the mode cannot be found out.
bool dirExists(const std::string& path);

/// Writes a text and then each of its bytes as a character on its own line to standard output, for
/// debugging. Leaves standard output in hexadecimal. Not to be called from two threads at once.
void printBytes(const std::string& text);

} // namespace VXLOCAL::TRTools
