#include "Bidi.h"

#include <string>

namespace CheckStrings {

namespace {

constexpr char32_t endOfEmbedding = U'\u202C';
constexpr char32_t endOfIsolate = U'\u2069';

/// The character that ends what this one begins, or 0 when it begins nothing.
char32_t partnerOf(char32_t character) {
    switch (character) {
    case U'\u202A': // LRE
    case U'\u202B': // RLE
    case U'\u202D': // LRO
    case U'\u202E': // RLO
        return endOfEmbedding;
    case U'\u2066': // LRI
    case U'\u2067': // RLI
    case U'\u2068': // FSI
        return endOfIsolate;
    default:
        return 0;
    }
}

} // namespace

bool hasBalancedBidiControls(std::u32string_view text) {
    std::u32string expected;
    for (const char32_t character : text) {
        if (const char32_t partner = partnerOf(character); partner != 0) {
            expected += partner;
        } else if (character == endOfEmbedding || character == endOfIsolate) {
            if (expected.empty() || expected.back() != character) {
                return false;
            }
            expected.pop_back();
        }
    }
    return expected.empty();
}

} // namespace CheckStrings
