// Invisible characters that direct the order of right-to-left and left-to-right text.
#pragma once

#include <string_view>

namespace CheckStrings {

/// @return whether each embedding and override is ended by a PDF and each isolate by a PDI, one
///     inside the other, and nothing else is ended. Plain direction marks need no partner.
bool hasBalancedBidiControls(std::u32string_view text);

} // namespace CheckStrings
