#include "Backend/AppKitFrontEnd.h"

#include "Platform/AppKit/Conversions.h"
#include "Platform/AppKit/Pane.h"
#include "Platform/AppKit/TextLabel.h"

#include <map>

namespace BackendTest {
namespace {

using Vexora::as;
using Vexora::toUtf8;

Vexora::Color colorOf(NSColor* color) {
    NSColor* const plain = [color colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
    return {[plain redComponent],
            [plain greenComponent],
            [plain blueComponent],
            [plain alphaComponent]};
}

Alignment alignmentOf(NSTextAlignment alignment) {
    return alignment == NSTextAlignmentCenter  ? Alignment::Centre
           : alignment == NSTextAlignmentRight ? Alignment::Right
                                               : Alignment::Left;
}

std::string charactersOf(Key key) {
    static const std::map<Key, unichar> keys{{Key::Return, '\r'},
                                             {Key::Enter, 3},
                                             {Key::Space, ' '},
                                             {Key::Escape, 27},
                                             {Key::Tab, '\t'},
                                             {Key::Backtab, 25},
                                             {Key::PageDown, NSPageDownFunctionKey},
                                             {Key::Down, NSDownArrowFunctionKey},
                                             {Key::Up, NSUpArrowFunctionKey},
                                             {Key::Home, NSHomeFunctionKey},
                                             {Key::End, NSEndFunctionKey},
                                             {Key::Letter, 'x'},
                                             {Key::Backspace, 127}};
    return toUtf8([NSString stringWithFormat:@"%C", keys.at(key)]);
}

} // namespace

bool FrontEnd::isUsable(const NSView* view) {
    NSView* const widget = const_cast<NSView*>(view);
    VexoraTextLabel* const label = as<VexoraTextLabel>(widget);
    return label != nil ? [label isClickable]
                        : as<NSButton>(widget) != nil || as<NSScrollView>(widget) != nil;
}

std::vector<NSView*> FrontEnd::children(const NSView* view) {
    std::vector<NSView*> views;
    for (NSUInteger index = 0; index < [[view subviews] count]; ++index) {
        views.push_back([[view subviews] objectAtIndex:index]);
    }
    return views;
}

std::string FrontEnd::title() const {
    return toUtf8([window() title]);
}

std::string FrontEnd::text(NSView* view) {
    if (VexoraTextLabel* const label = as<VexoraTextLabel>(view)) {
        return toUtf8([label stringValue]);
    }
    if (NSButton* const button = as<NSButton>(view)) {
        return toUtf8([button title]);
    }
    return toUtf8([as<NSTextView>([as<NSScrollView>(view) documentView]) string]);
}

Pieces FrontEnd::runs(NSView* label) {
    NSAttributedString* const text = [as<NSTextField>(label) attributedStringValue];
    Pieces pieces;
    NSRange range = NSMakeRange(0, 0);
    for (NSUInteger start = 0; start < [text length]; start = NSMaxRange(range)) {
        NSDictionary* const attributes = [text attributesAtIndex:start effectiveRange:&range];
        NSFont* const font = [attributes objectForKey:NSFontAttributeName];
        NSParagraphStyle* const paragraph = [attributes objectForKey:NSParagraphStyleAttributeName];
        const bool bold =
            ([[NSFontManager sharedFontManager] traitsOfFont:font] & NSBoldFontMask) != 0;
        pieces.push_back({toUtf8([[text string] substringWithRange:range]), [font pointSize], bold,
                          colorOf([attributes objectForKey:NSForegroundColorAttributeName]),
                          alignmentOf([paragraph alignment])});
    }
    return pieces;
}

double FrontEnd::filled(const NSView* view) {
    NSProgressIndicator* const bar = as<NSProgressIndicator>(const_cast<NSView*>(view));
    return [bar isIndeterminate]
               ? -1.0
               : ([bar doubleValue] - [bar minValue]) / ([bar maxValue] - [bar minValue]);
}

Place FrontEnd::lines(const NSView* area) {
    const NSSize size = [[as<NSScrollView>(const_cast<NSView*>(area)) documentView] frame].size;
    return {0.0, 0.0, size.width, size.height};
}

Place FrontEnd::visiblePart(const NSView* area) {
    const NSSize size = [as<NSScrollView>(const_cast<NSView*>(area)) contentSize];
    return {0.0, 0.0, size.width, size.height};
}

bool FrontEnd::isWhole(const NSView* view) {
    NSView* const control = const_cast<NSView*>(view);
    const NSSize room = [control bounds].size;
    if (VexoraTextLabel* const label = as<VexoraTextLabel>(control)) {
        // Two points are free on each side of the lines.
        const NSRect lines = [Vexora::paintedText(label).get()
            boundingRectWithSize:NSMakeSize(room.width - 4.0, 1.0e6)
                         options:NSStringDrawingUsesLineFragmentOrigin];
        return NSWidth(lines) <= room.width && NSHeight(lines) <= room.height;
    }
    const NSSize title =
        as<NSButton>(control) == nil ? NSZeroSize : [[as<NSButton>(control) cell] cellSize];
    return title.width <= room.width && title.height <= room.height;
}

double FrontEnd::scrolled(const NSView* area) {
    return NSMinY([[as<NSScrollView>(const_cast<NSView*>(area)) contentView] bounds]);
}

Picture FrontEnd::picture(NSView* view) {
    [[view window] display];
    [view lockFocus];
    const auto pixels = Vexora::adopt<NSBitmapImageRep>(
        [[NSBitmapImageRep alloc] initWithFocusedViewRect:[view bounds]]);
    [view unlockFocus];
    Picture picture{static_cast<int>([pixels.get() pixelsWide]),
                    static_cast<int>([pixels.get() pixelsHigh]),
                    {}};
    for (int y = 0; y < picture.height; ++y) {
        const unsigned char* pixel = [pixels.get() bitmapData] + y * [pixels.get() bytesPerRow];
        for (int x = 0; x < picture.width; ++x, pixel += [pixels.get() bitsPerPixel] / 8) {
            picture.pixels.push_back({pixel[0] / 255.0, pixel[1] / 255.0, pixel[2] / 255.0, 1.0});
        }
    }
    return picture;
}

Place FrontEnd::place(const NSView* view) const {
    const NSRect rect = [view convertRect:[view bounds] toView:[window() contentView]];
    return {NSMinX(rect), NSMinY(rect), NSWidth(rect), NSHeight(rect)};
}

Point FrontEnd::middle() const {
    return {NSMidX([window() frame]), NSMidY([window() frame])};
}

Point FrontEnd::middleOfDisplay() const {
    const NSRect visible = [[window() screen] visibleFrame];
    return {NSMidX(visible), NSMidY(visible)};
}

void FrontEnd::resize(double width, double height) {
    [window() setContentSize:NSMakeSize(width, height)];
    settle();
}

void FrontEnd::shrink() {
    const NSSize least = [window() contentMinSize];
    resize(least.width, least.height);
}

bool FrontEnd::fromRight() const {
    return [[window() contentView] userInterfaceLayoutDirection] ==
           NSUserInterfaceLayoutDirectionRightToLeft;
}

NSView* FrontEnd::focus() const {
    return as<NSView>([window() firstResponder]);
}

NSView* FrontEnd::at(Point point) const {
    NSView* const content = [window() contentView];
    return [content hitTest:[content convertPoint:NSMakePoint(point.x, point.y)
                                           toView:[content superview]]];
}

void FrontEnd::click(Point from, Point to) {
    const auto inWindow = [this](Point point) {
        return [[window() contentView] convertPoint:NSMakePoint(point.x, point.y) toView:nil];
    };
    drag(window(), inWindow(from), inWindow(to));
}

void FrontEnd::press(Key key, bool held) {
    NSUInteger modifiers = 0;
    if (key == Key::Enter) {
        modifiers = NSNumericPadKeyMask;
    } else if (key == Key::Backtab) {
        modifiers = NSShiftKeyMask;
    }
    pressKey(window(), charactersOf(key), modifiers, held);
}

} // namespace BackendTest
