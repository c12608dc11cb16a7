#include "Platform/LineBreaking.h"

#include <gtest/gtest.h>

#include <string>

using Vexora::TextPiece;
using Vexora::TextRange;

namespace {

constexpr std::u16string_view blanks = u" \u2028";

/// Every character is as wide as any other, and a line may end after a blank and beside every
/// character of a script that has none.
std::vector<TextPiece> piecesOf(std::u16string_view text) {
    std::vector<TextPiece> pieces;
    std::size_t start = 0;
    for (std::size_t end = 1; end <= text.size(); ++end) {
        const bool afterBlank = blanks.find(text[end - 1]) != std::u16string_view::npos;
        if (end == text.size() || afterBlank || text[end - 1] > u'\u2E80' ||
            text[end] > u'\u2E80') {
            const std::size_t letters = end - start - (afterBlank ? 1 : 0);
            pieces.push_back({end, static_cast<double>(letters), afterBlank ? 1.0 : 0.0, letters});
            start = end;
        }
    }
    return pieces;
}

/// The text in lines, in which what stands between "<" and ">" is marked, and "/" ends a line.
std::u16string lines(std::u16string text, double room) {
    std::vector<TextRange> marked;
    for (std::size_t at = text.find(u'<'); at != std::u16string::npos; at = text.find(u'<')) {
        text.erase(at, 1);
        marked.push_back({at, text.find(u'>')});
        text.erase(marked.back().end, 1);
    }
    const std::vector<TextPiece> pieces = piecesOf(text);
    for (const std::size_t end : Vexora::lineEnds(text, pieces, marked, room)) {
        text.insert(pieces.at(end).end, u"/");
    }
    return text;
}

struct Case {
    std::u16string text;
    double room;
    std::u16string expected;
};

void expect(const std::vector<Case>& cases) {
    for (const auto& [text, room, expected] : cases) {
        EXPECT_EQ(lines(text, room), expected);
    }
}

TEST(LineBreaking, setsFewLinesOfLikeLength) {
    expect({{u"", 10, u""},
            {u"one line", 10, u"one line/"},
            {u"one two three", 10, u"one two /three/"},
            {u"aaaa aaaa aaaa aaaa", 14, u"aaaa aaaa /aaaa aaaa/"},
            {u"aaaa aaaa aaaa", 9, u"aaaa aaaa /aaaa/"},
            {u"one\u2028two", 10, u"one\u2028/two/"},
            {u"a bbbbbbbbbbbb c", 10, u"a /bbbbbbbbbbbb /c/"}});
}

TEST(LineBreaking, tearsNeitherANameNorMarkedWords) {
    expect({{u"To install Ondrel Vexora Lumiq", 20, u"To install /Ondrel Vexora Lumiq/"},
            {u"a of Ondrel Vexora", 14, u"a of /Ondrel Vexora/"},
            {u"aaaaaa Ondrel Vexora Lumiq aaaaaa", 21, u"aaaaaa /Ondrel Vexora Lumiq /aaaaaa/"},
            {u"aaaa Ondrel Vexora aaaaaa", 20, u"aaaa Ondrel Vexora /aaaaaa/"},
            {u"Ondrel Vexora, aa aaaaa Ondrel Vexora aaaaaaaaaaaaaaaaa", 31,
             u"Ondrel Vexora, aa aaaaa /Ondrel Vexora aaaaaaaaaaaaaaaaa/"},
            {u"<aa to Ondrel Vexora Lumiq>", 20, u"aa to /Ondrel Vexora Lumiq/"},
            {u"agree to <the terms> of it", 13, u"agree to /the terms /of it/"},
            {u"ああああ<開始>に", 5, u"ああああ/開始に/"},
            {u"<安装失>败安装", 4, u"安装失/败安装/"}});
}

TEST(LineBreaking, tearsANameThatNoLineHolds) {
    expect({{u"to Ondrel Vexora Lumiq", 12, u"to Ondrel /Vexora Lumiq/"}});
}

TEST(LineBreaking, endsLinesBetweenPhrases) {
    expect({{u"aa, aaa aa aaa aaaa", 14, u"aa, aaa aa /aaa aaaa/"},
            {u"aaaaa. aaa aaa", 11, u"aaaaa. /aaa aaa/"},
            {u"aaa, aaaaa aaaa", 11, u"aaa, /aaaaa aaaa/"},
            {u"aa, aaaa aaaa aaa", 13, u"aa, aaaa /aaaa aaa/"},
            {u"aa aaaa安装失败", 10, u"aa /aaaa安装失败/"},
            {u"安装ぁ失败失败", 5, u"安装ぁ/失败失败/"},
            {u"安装ゟ失败失败", 5, u"安装ゟ/失败失败/"},
            {u"已存在安装。移除安装权限。", 9, u"已存在安装。/移除安装权限。/"},
            {u"新しいバージョンのソフトを", 9, u"新しいバージョンの/ソフトを/"},
            {u"Lumiq を開始する", 8, u"Lumiq を/開始する/"}});
}

TEST(LineBreaking, leavesNoCharacterAlone) {
    expect({{u"失败失败。了", 5, u"失败失/败。了/"},
            {u"失败失败，失败", 6, u"失败失败，/失败/"},
            {u"aaaa aaaa a", 9, u"aaaa /aaaa a/"}});
}

} // namespace
