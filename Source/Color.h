// The one colour that the screens share.
#pragma once

#include "Platform/Palette.h"

namespace Vexora {

/// The blue of links and of marked words; every source unit has its own.
constexpr Color OndrelFontBlueColor = blueColor;

} // namespace Vexora
