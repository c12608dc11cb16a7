#include "AppKit/Pieces.h"

#include "Platform/AppKit/Conversions.h"

#include <cmath>

namespace AppKitTest {

bool Piece::operator==(const Piece& other) const {
    return text == other.text && size == other.size && bold == other.bold &&
           areAlike(color, other.color) && alignment == other.alignment;
}

void PrintTo(const Piece& piece, std::ostream* stream) {
    *stream << '"' << piece.text << "\" " << piece.size << (piece.bold ? " bold" : " regular")
            << " rgb " << piece.color.red << ' ' << piece.color.green << ' ' << piece.color.blue
            << ' ' << piece.color.alpha << " alignment " << piece.alignment;
}

std::vector<Piece> piecesOf(NSAttributedString* text) {
    std::vector<Piece> pieces;
    NSRange range = NSMakeRange(0, 0);
    for (NSUInteger start = 0; start < [text length]; start = NSMaxRange(range)) {
        NSDictionary* const attributes = [text attributesAtIndex:start effectiveRange:&range];
        NSFont* const font = [attributes objectForKey:NSFontAttributeName];
        NSParagraphStyle* const paragraph = [attributes objectForKey:NSParagraphStyleAttributeName];
        pieces.push_back({Vexora::toUtf8([[text string] substringWithRange:range]),
                          [font pointSize], isBold(font),
                          colorOf([attributes objectForKey:NSForegroundColorAttributeName]),
                          [paragraph alignment]});
    }
    return pieces;
}

Vexora::Color colorOf(NSColor* color) {
    NSColor* const plain = [color colorUsingColorSpaceName:NSCalibratedRGBColorSpace];
    return {[plain redComponent],
            [plain greenComponent],
            [plain blueComponent],
            [plain alphaComponent]};
}

bool isBold(NSFont* font) {
    return ([[NSFontManager sharedFontManager] traitsOfFont:font] & NSBoldFontMask) != 0;
}

bool areAlike(const Vexora::Color& one, const Vexora::Color& other) {
    const double most = 0.5 / 255.0;
    return std::abs(one.red - other.red) < most && std::abs(one.green - other.green) < most &&
           std::abs(one.blue - other.blue) < most && std::abs(one.alpha - other.alpha) < most;
}

} // namespace AppKitTest
