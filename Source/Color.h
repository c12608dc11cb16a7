// The one colour that the screens share.
#pragma once

#include "Platform/StyledText.h"

namespace Vexora {

/// The blue of links and of marked words, dark enough to be read on the window's paper.
static const Color OndrelFontBlueColor{0.24, 0.44, 0.70, 1.0};

} // namespace Vexora
