// The colours of the window that every backend shows alike: ink on light paper, in every theme.
// Text in ink keeps a contrast of at least 4.5:1 to the paper and to the sheet.
#pragma once

#include "Platform/StyledText.h"

namespace Vexora {

/// What the window is made of.
inline constexpr Color paperColor{0xfa / 255.0, 0xf9 / 255.0, 0xf6 / 255.0, 1.0};
/// What the licence is set on.
inline constexpr Color sheetColor{1.0, 1.0, 1.0, 1.0};
/// The text.
inline constexpr Color inkColor{0x1f / 255.0, 0x2a / 255.0, 0x37 / 255.0, 1.0};
/// Links and marked words, and what is drawn of the controls; dark enough to be read on the paper.
inline constexpr Color blueColor{0.24, 0.44, 0.70, 1.0};
/// The mark of an installation that has come to its end.
inline constexpr Color doneColor{0x2e / 255.0, 0x7d / 255.0, 0x32 / 255.0, 1.0};

} // namespace Vexora
