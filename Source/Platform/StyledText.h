// Text that crosses the seam: UTF-8 runs with an optional font and colour, and one paragraph
// alignment. Plain values over the standard library; safe to copy between threads.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace Vexora {

/// An RGB colour; every component lies between 0.0 and 1.0.
struct Color {
    double red;
    double green;
    double blue;
    double alpha;

    bool operator==(const Color&) const = default;
};

/// A typeface by name and its size in points.
struct Font {
    std::string name;
    double size;

    bool operator==(const Font&) const = default;
};

/// A piece of text with one style. Without a font or colour it takes those of the control that
/// shows it.
struct TextRun {
    std::string text;
    std::optional<Font> font;
    std::optional<Color> color;

    bool operator==(const TextRun&) const = default;
};

/// How a paragraph is aligned; Natural leaves it to the control that shows the text.
enum class TextAlignment { Natural, Center };

/// A text made of runs, in reading order.
class StyledText {
public:
    StyledText() = default;

    /// A text of one run without attributes.
    explicit StyledText(std::string plainText) { append({std::move(plainText), {}, {}}); }

    /// Adds a run at the end; a run without text leaves no trace.
    void append(TextRun run) {
        if (!run.text.empty()) {
            runs_.push_back(std::move(run));
        }
    }

    /// Adds the runs of another text at the end; its alignment is not taken over.
    void append(const StyledText& other) {
        runs_.insert(runs_.end(), other.runs_.begin(), other.runs_.end());
    }

    /// Sets the alignment of the whole text, from its first to its last character.
    void setAlignment(TextAlignment alignment) { alignment_ = alignment; }

    const std::vector<TextRun>& runs() const { return runs_; }
    TextAlignment alignment() const { return alignment_; }

    /// The characters alone.
    std::string string() const {
        std::string all;
        for (const TextRun& run : runs_) {
            all += run.text;
        }
        return all;
    }

    /// The characters without those of links, which have a colour of their own, and without the blanks
    /// that separate the two.
    std::string wordsBesideLinks() const {
        std::string words;
        for (const TextRun& run : runs_) {
            words += run.color ? std::string() : run.text;
        }
        return words.substr(0, words.find_last_not_of(' ') + 1);
    }

    bool operator==(const StyledText&) const = default;

private:
    std::vector<TextRun> runs_;
    TextAlignment alignment_ = TextAlignment::Natural;
};

} // namespace Vexora
