#include "TextWidth.h"

#include "PseudoText.h"

#include <QFont>
#include <QString>
#include <QTextLayout>

#include <algorithm>
#include <array>
#include <string_view>

namespace Gallery {
namespace {

/// The titles, and the buttons that a screen ends with.
constexpr std::array<std::string_view, 5> boldMessages = {"Start", "License Agreement", "Go back",
                                                          "Close", "Installation failed"};

/// The part of the text between the tags of the first pair of <b>.
QTextLayout::FormatRange boldPart(const std::string& text) {
    QTextLayout::FormatRange range{};
    range.format.setFontWeight(QFont::Bold);
    const std::size_t start = text.find("<b>");
    const std::size_t end = text.find("</b>");
    if (start != std::string::npos && end != std::string::npos && start < end) {
        const auto before = QString::fromStdString(withoutTags(text.substr(0, start)));
        const auto inside = QString::fromStdString(withoutTags(text.substr(start, end - start)));
        range.start = static_cast<int>(before.size());
        range.length = static_cast<int>(inside.size());
    }
    return range;
}

} // namespace

TextWidth widthOf(const std::string& identifier, const std::string& text) {
    const bool isBold =
        std::find(boldMessages.begin(), boldMessages.end(), identifier) != boldMessages.end();
    const QFont font("Noto Sans", 12, isBold ? QFont::Bold : QFont::Normal);
    QTextLayout layout(QString::fromStdString(withoutTags(text)), font);
    layout.setFormats({boldPart(text)});
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return {layout.minimumWidth(), line.isValid() ? line.naturalTextWidth() : 0.0};
}

} // namespace Gallery
