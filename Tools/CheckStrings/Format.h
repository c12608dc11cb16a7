// Texts as printf formats.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace CheckStrings {

struct Format {
    /// The arguments that the format takes, in order: length and letter of each conversion, such as
    /// "d" or "ls", and before it "*" for each width or precision that is an argument. Flags and
    /// numbers do not count. A conversion that chooses its argument by position ("%1$s") is kept
    /// whole, since no key has one.
    std::vector<std::string> conversions;
    /// The bytes of the result without those that conversions add.
    std::size_t literalBytes = 0;
    /// Whether a percent sign is neither doubled nor begins a conversion.
    bool hasSinglePercent = false;
};

Format readFormat(std::string_view text);

} // namespace CheckStrings
