// What a person sees of a window and does to it, in words that every front end understands.
#pragma once

#include "Platform/StyledText.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace BackendTest {

using Names = std::vector<std::string>;

/// In points, from the top left of the window's content.
struct Point {
    double x = 0.0;
    double y = 0.0;
};

struct Place {
    double left = 0.0;
    double top = 0.0;
    double width = 0.0;
    double height = 0.0;

    double right() const { return left + width; }
    double bottom() const { return top + height; }
    Point middle() const { return {left + width / 2, top + height / 2}; }
    bool meets(const Place& other) const {
        return left < other.right() && other.left < right() && top < other.bottom() &&
               other.top < bottom();
    }
    bool contains(const Place& other) const {
        return left <= other.left && other.right() <= right() && top <= other.top &&
               other.bottom() <= bottom();
    }
    bool operator==(const Place&) const = default;
};

inline void PrintTo(const Place& place, std::ostream* stream) {
    *stream << place.left << ", " << place.top << ", " << place.width << " x " << place.height;
}

enum class Alignment { Left, Centre, Right };

inline bool areAlike(const Vexora::Color& one, const Vexora::Color& other) {
    const double most = 0.5 / 255.0;
    return std::abs(one.red - other.red) < most && std::abs(one.green - other.green) < most &&
           std::abs(one.blue - other.blue) < most && std::abs(one.alpha - other.alpha) < most;
}

/// A piece of a label's text with one look.
struct Piece {
    std::string text;
    double size;
    bool bold;
    Vexora::Color color;
    Alignment alignment = Alignment::Centre;

    bool operator==(const Piece& other) const {
        return text == other.text && size == other.size && bold == other.bold &&
               areAlike(color, other.color) && alignment == other.alignment;
    }
};

using Pieces = std::vector<Piece>;

inline void PrintTo(const Piece& run, std::ostream* stream) {
    *stream << '"' << run.text << "\" " << run.size << (run.bold ? " bold" : " regular") << " rgb "
            << run.color.red << ' ' << run.color.green << ' ' << run.color.blue << ' '
            << run.color.alpha << " alignment " << static_cast<int>(run.alignment);
}

/// What a widget shows, pixel by pixel, row by row from the top left.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<Vexora::Color> pixels;

    const Vexora::Color& at(int x, int y) const {
        return pixels.at(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                         static_cast<std::size_t>(x));
    }

    /// How many colours there are.
    std::size_t colors() const {
        std::set<std::tuple<double, double, double>> found;
        for (const Vexora::Color& pixel : pixels) {
            found.emplace(pixel.red, pixel.green, pixel.blue);
        }
        return found.size();
    }

    /// The first point that is painted in a colour, as near to it as smoothed edges come.
    std::optional<Point> find(const Vexora::Color& color) const {
        const auto found = std::ranges::find_if(pixels, [&color](const Vexora::Color& pixel) {
            return std::abs(pixel.red - color.red) + std::abs(pixel.green - color.green) +
                       std::abs(pixel.blue - color.blue) <
                   0.12;
        });
        const auto index = static_cast<int>(found - pixels.begin());
        return found == pixels.end() ? std::nullopt
                                     : std::optional<Point>({static_cast<double>(index % width),
                                                             static_cast<double>(index / width)});
    }
};

enum class Key {
    Return,
    Enter,
    Space,
    Escape,
    Tab,
    Backtab,
    PageDown,
    Down,
    Up,
    Home,
    End,
    Letter,
    Backspace
};

} // namespace BackendTest
