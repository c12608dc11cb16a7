// What a view shows, pixel by pixel. Main thread only.
#pragma once

#include "Platform/AppKit/Compatibility.h"
#include "Platform/StyledText.h"

#include <cstddef>
#include <optional>
#include <string>

namespace AppKitTest {

class Snapshot {
public:
    /// Draws the view, with what it holds, as it is now.
    explicit Snapshot(NSView* view);

    int width() const { return static_cast<int>([pixels_.get() pixelsWide]); }
    int height() const { return static_cast<int>([pixels_.get() pixelsHigh]); }

    /// The colour at a place, which counts from the top left.
    Vexora::Color at(int x, int y) const;

    /// How many colours an area shows, which counts from the top left.
    std::size_t colorsIn(NSRect area) const;
    std::size_t colors() const;

    /// The first point that is painted in a colour, as near to it as smoothed edges come.
    std::optional<NSPoint> find(const Vexora::Color& color) const;

    /// Writes a PNG file. @return whether that worked.
    bool write(const std::string& path) const;

private:
    Vexora::Strong<NSBitmapImageRep> pixels_;
};

} // namespace AppKitTest
