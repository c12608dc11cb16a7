#include "AppKit/Snapshot.h"

#include "Platform/AppKit/Conversions.h"

#include <cmath>
#include <set>
#include <tuple>

namespace AppKitTest {

Snapshot::Snapshot(NSView* view) {
    [[view window] display];
    [view lockFocus];
    pixels_ = Vexora::adopt<NSBitmapImageRep>(
        [[NSBitmapImageRep alloc] initWithFocusedViewRect:[view bounds]]);
    [view unlockFocus];
}

Vexora::Color Snapshot::at(int x, int y) const {
    const unsigned char* const pixel = [pixels_.get() bitmapData] +
                                       y * [pixels_.get() bytesPerRow] +
                                       x * [pixels_.get() bitsPerPixel] / 8;
    return {pixel[0] / 255.0, pixel[1] / 255.0, pixel[2] / 255.0, 1.0};
}

std::size_t Snapshot::colorsIn(NSRect area) const {
    std::set<std::tuple<double, double, double>> found;
    const NSRect whole = NSMakeRect(0.0, 0.0, width(), height());
    const NSRect inside = NSIntersectionRect(NSIntegralRect(area), whole);
    for (int y = static_cast<int>(NSMinY(inside)); y < NSMaxY(inside); ++y) {
        for (int x = static_cast<int>(NSMinX(inside)); x < NSMaxX(inside); ++x) {
            const Vexora::Color color = at(x, y);
            found.emplace(color.red, color.green, color.blue);
        }
    }
    return found.size();
}

std::size_t Snapshot::colors() const {
    return colorsIn(NSMakeRect(0.0, 0.0, width(), height()));
}

std::optional<NSPoint> Snapshot::find(const Vexora::Color& color) const {
    for (int y = 0; y < height(); ++y) {
        for (int x = 0; x < width(); ++x) {
            const Vexora::Color found = at(x, y);
            if (std::abs(found.red - color.red) + std::abs(found.green - color.green) +
                    std::abs(found.blue - color.blue) <
                0.12) {
                return NSMakePoint(x, y);
            }
        }
    }
    return std::nullopt;
}

bool Snapshot::write(const std::string& path) const {
    NSData* const file = [pixels_.get() representationUsingType:NSPNGFileType
                                                     properties:[NSDictionary dictionary]];
    return [file writeToFile:Vexora::toNSString(path) atomically:NO];
}

} // namespace AppKitTest
