// Styled texts of the toolkit taken apart, so that a test can look at each piece.
#pragma once

#include "Platform/AppKit/Compatibility.h"
#include "Platform/StyledText.h"

#include <ostream>
#include <string>
#include <vector>

namespace AppKitTest {

/// A piece of a text with one look.
struct Piece {
    std::string text;
    double size;
    bool bold;
    Vexora::Color color;
    NSTextAlignment alignment;

    bool operator==(const Piece& other) const;
};

void PrintTo(const Piece& piece, std::ostream* stream);

/// The pieces of a text, in reading order.
std::vector<Piece> piecesOf(NSAttributedString* text);

/// A colour of the toolkit as the seam knows it.
Vexora::Color colorOf(NSColor* color);

bool isBold(NSFont* font);

/// Whether two colours look the same.
bool areAlike(const Vexora::Color& one, const Vexora::Color& other);

} // namespace AppKitTest
