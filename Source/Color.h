// The one colour that the screens share.
#pragma once

#include "Platform/Palette.h"

namespace Vexora {

/// The blue of links and of marked words.
inline constexpr Color OndrelFontBlueColor = blueColor;

} // namespace Vexora
