// The colours of the window and of the controls that are drawn here, the same on every desktop and
// in every theme. Every text colour keeps a contrast of at least 4.5:1 to what lies under it.
#pragma once

#include "Platform/Palette.h"
#include "Platform/Qt/Conversions.h"

namespace Vexora::Palette {

inline const QColor paper = toQColor(paperColor);
inline const QColor sheet = toQColor(sheetColor);
inline const QColor ink = toQColor(inkColor);
inline const QColor inkOnBlue(0xff, 0xff, 0xff);
inline const QColor blue = toQColor(blueColor);
inline const QColor blueHover(0x34, 0x64, 0xa3);
inline const QColor bluePressed(0x2a, 0x54, 0x8c);
inline const QColor sheetHover(0xf1, 0xf4, 0xf8);
inline const QColor sheetPressed(0xe3, 0xe9, 0xf1);
inline const QColor outline(0x76, 0x82, 0x92);
inline const QColor done = toQColor(doneColor);
inline const QColor track(0xdd, 0xe3, 0xea);

} // namespace Vexora::Palette
