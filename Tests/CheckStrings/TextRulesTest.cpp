#include "CheckStringsFixture.h"

using TextRules = LineCaseTest;

TEST_P(TextRules, findsOneFaultOrPasses) {
    check();
}

INSTANTIATE_TEST_SUITE_P(Escapes, TextRules,
                         testing::Values(found("quote", "Start", R"(Das \"Los\" da)",
                                               "lost-escape"),
                                         found("letter", "Start", R"(a\xb)", "lost-escape"),
                                         found("verticalTab", "Start", R"(a\vb)", "lost-escape"),
                                         found("character", "Start", "a\\\xC3\xA9", "lost-escape"),
                                         found("atTheEnd", "Start", "Los\\", "lost-escape"),
                                         passes("backslash", "Start", R"(a\\b)"),
                                         passes("backslashAtTheEnd", "Start", R"(Los\\)"),
                                         passes("backslashBeforeALetter", "Start", R"(a\\xb)"),
                                         passes("controlCharacters", "Start", R"(\a\b\f\n\r\t)"),
                                         passes("inTheKey", R"(Say \"go\" now)", "Los")),
                         TextRules::nameOf);

INSTANTIATE_TEST_SUITE_P(
    EmptyText, TextRules,
    testing::Values(found("blank", "Start", " ", "empty-text"),
                    found("escapes", "Start", R"(\n\t)", "empty-text"),
                    found("noBreakSpace", "Start", "\u00A0", "empty-text"),
                    found("zeroWidthSpace", "Start", "\u200B", "empty-text"),
                    found("softHyphen", "Start", "\u00AD", "empty-text"),
                    found("ideographicSpace", "Start", "\u3000", "empty-text"),
                    found("byteOrderMarkAndWordJoiner", "Start", "\uFEFF\u2060", "empty-text"),
                    found("withoutTheTagsOfTheKey", "<b>Go</b>", "\u2003", "empty-text"),
                    passes("dotAmongBlanks", "Start", " .\u00A0"),
                    passes("conversion", "%d", " %d ")),
    TextRules::nameOf);

namespace {

constexpr const char* lre = "\u202A";
constexpr const char* rle = "\u202B";
constexpr const char* pdf = "\u202C";
constexpr const char* lro = "\u202D";
constexpr const char* rlo = "\u202E";
constexpr const char* lri = "\u2066";
constexpr const char* rli = "\u2067";
constexpr const char* fsi = "\u2068";
constexpr const char* pdi = "\u2069";

std::string joined(std::initializer_list<const char*> parts) {
    std::string text = "x";
    for (const char* part : parts) {
        text += std::string(part) + "x";
    }
    return text;
}

LineCase balanced(const char* name, std::initializer_list<const char*> parts) {
    return passes(name, "Start", joined(parts));
}

LineCase unbalanced(const char* name, std::initializer_list<const char*> parts) {
    return found(name, "Start", joined(parts), "unbalanced-bidi");
}

} // namespace

INSTANTIATE_TEST_SUITE_P(
    Bidi, TextRules,
    testing::Values(
        unbalanced("lreAlone", {lre}), unbalanced("rleAlone", {rle}), unbalanced("lroAlone", {lro}),
        unbalanced("rloAlone", {rlo}), unbalanced("lriAlone", {lri}), unbalanced("rliAlone", {rli}),
        unbalanced("fsiAlone", {fsi}), unbalanced("pdfAlone", {pdf}), unbalanced("pdiAlone", {pdi}),
        unbalanced("pdfFirst", {pdf, lre}), unbalanced("embeddingEndedAsIsolate", {lre, pdi}),
        unbalanced("isolateEndedAsEmbedding", {fsi, pdf}),
        unbalanced("crossed", {lri, rle, pdi, pdf}), unbalanced("oneEndTooMany", {lri, pdi, pdi}),
        balanced("lre", {lre, pdf}), balanced("rle", {rle, pdf}), balanced("lro", {lro, pdf}),
        balanced("rlo", {rlo, pdf}), balanced("lri", {lri, pdi}), balanced("rli", {rli, pdi}),
        balanced("fsi", {fsi, pdi}), balanced("oneInTheOther", {fsi, rle, pdf, pdi}),
        balanced("oneAfterTheOther", {lri, pdi, rlo, pdf}),
        balanced("marks", {"\u200E", "\u200F", "\u061C"})),
    TextRules::nameOf);

INSTANTIATE_TEST_SUITE_P(
    Tags, TextRules,
    testing::Values(
        found("closingMissing", "<b>Go</b>", "<b>Los", "unbalanced-tags"),
        found("openingMissing", "<b>Go</b>", "Los</b>", "unbalanced-tags"),
        found("closingFirst", "<b>Go</b>", "</b>Los<b>", "unbalanced-tags"),
        found("closingTwice", "<b>Go</b>", "<b>Los</b></b>", "unbalanced-tags"),
        found("brokenClosing", "<b>Go</b>", "<b>Los</b", "unbalanced-tags"),
        found("endedByAnotherTag", "<a>Go</a>, <b>now</b>", "<a>Los</b>", "unbalanced-tags"),
        found("oneInsideTheOther", "<b>Go</b>", "<b>L<b>o</b>s</b>", "nested-tags"),
        found("otherName", "<b>Go</b>", "<b>Lo</b><i>", "foreign-tags"),
        found("capitals", "<b>Go</b>", "<b>Lo</b></B>", "foreign-tags"),
        found("attributes", "<b>Go</b>", "<b>Lo</b><b id=1>", "foreign-tags"),
        found("noneInTheKey", "Start", "Lo<br>s", "foreign-tags"),
        found("none", "<b>Go</b>", "Los", "missing-tags"),
        passes("moved", "Now <b>go</b>!", "<b>Los</b> jetzt!"),
        passes("otherTag", "<a>Go</a>", "<a>Los</a>"),
        found("repeatedOneAfterTheOther", "<b>Go</b>", "<b>Lo</b> <b>los</b>", "repeated-tags"),
        found("oneOfTwoPairs", "<a>Go</a> <b>now</b>", "<a>Los</a> jetzt", "missing-tags"),
        found("oneOfTwoEqualPairs", "<b>Go</b> <b>now</b>", "<b>Los</b> jetzt", "missing-tags"),
        found("nothingBetween", "<b>Go</b>", "Los<b></b>", "empty-tags"),
        found("onlyBlanksBetween", "<b>Go</b>", "Los<b> \u200B</b>", "empty-tags"),
        found("lookAlikeWithBlanks", "<b>Go</b>", "<b>Lo</b>< b >", "foreign-tags"),
        found("lookAlikeOfAClosingOne", "<b>Go</b>", "<b>Lo</b>< / b>", "foreign-tags"),
        found("lookAlikeBehindASlash", "<b>Go</b>", "<b>Lo</b></ b>", "foreign-tags"),
        passes("bothOfTwoPairsMoved", "<a>Go</a> <b>now</b>", "<b>Jetzt</b> <a>los</a>"),
        passes("bothOfTwoEqualPairs", "<b>Go</b> <b>now</b>", "<b>Los</b>, <b>los</b>"),
        passes("comparisonBesideTags", "<b>Go</b>", "<b>Los</b>: 1 < a + b > 2, < 3 >"),
        passes("plainAngleBrackets", "Start", "1 < 2 > 1, <>, </>, < b>, <3>, <-- a"),
        passes("letterBehindAPlainAngleBracket", "<b>Go</b>", "a<b <b>Los</b>"),
        passes("plainAngleBracketBeforeATag", "<b>Go</b>", "1 <<b>Los</b>> 2")),
    TextRules::nameOf);
