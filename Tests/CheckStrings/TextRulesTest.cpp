#include "CheckStringsFixture.h"

using TextRulesTest = LineCaseTest;

TEST_P(TextRulesTest, findsOneFaultOrPasses) {
    check();
}

namespace {

LineCase found(const char* name, const std::string& key, const std::string& text,
               const std::string& rule) {
    return {name, key, "\"" + key + "\" = \"" + text + "\"", rule};
}

LineCase passes(const char* name, const std::string& key, const std::string& text) {
    return found(name, key, text, "");
}

} // namespace

INSTANTIATE_TEST_SUITE_P(
    Conversions, TextRulesTest,
    testing::Values(found("missing", "%d of %s", "%d", "conversions"),
                    found("additional", "Start", "Los, %s", "conversions"),
                    found("reordered", "%d of %s", "%s: %d", "conversions"),
                    found("otherLetter", "%d files", "%u Dateien", "conversions"),
                    found("otherLength", "%ld files", "%d Dateien", "conversions"),
                    found("positional", "%d of %s", "%1$d von %2$s", "conversions"),
                    found("positionalReordered", "%d of %s", "%2$s: %1$d", "conversions"),
                    found("widthFromAnArgument", "%d files", "%*d Dateien", "conversions"),
                    found("precisionFromAnArgument", "%f times", "%.*f mal", "conversions"),
                    found("blankAsFlag", "Start", "zu 100 % da", "conversions"),
                    found("writtenByAnEscape", "a\\n%s", "a\\nb", "conversions"),
                    passes("same", "%d of %s", "%d von %s"),
                    passes("otherFlag", "%d files", "%+d Dateien"),
                    passes("otherWidth", "%5d files", "%-8d Dateien"),
                    passes("otherPrecision", "%.1f times", "%08.3f mal"),
                    passes("sameWithArgumentsAsWidthAndPrecision", "%*.*f times", "%-*.*f mal"),
                    passes("longLength", "%lld files", "%lld Dateien"),
                    passes("doubledPercentIsNone", "%d files", "%%s %d %%d")),
    TextRulesTest::nameOf);

INSTANTIATE_TEST_SUITE_P(
    SinglePercent, TextRulesTest,
    testing::Values(found("atTheEnd", "Start", "100%", "single-percent"),
                    found("beforeAnotherCharacter", "Start", "100%!", "single-percent"),
                    found("behindADoubledOne", "Start", "100%%%", "single-percent"),
                    found("withFlagsOnly", "Start", "100%-5", "single-percent"),
                    found("positionWithoutLetter", "Start", "%1$", "single-percent"),
                    found("doubledWithAWidthBetween", "Start", "%5%", "single-percent"),
                    found("withAnArgumentAsWidthOnly", "Start", "%*!", "single-percent"),
                    passes("doubled", "Start", "100%%"),
                    passes("doubledTwice", "Start", "%%%%, %%")),
    TextRulesTest::nameOf);

INSTANTIATE_TEST_SUITE_P(
    Tags, TextRulesTest,
    testing::Values(found("closingMissing", "<b>Go</b>", "<b>Los", "unbalanced-tags"),
                    found("openingMissing", "<b>Go</b>", "Los</b>", "unbalanced-tags"),
                    found("closingFirst", "<b>Go</b>", "</b>Los<b>", "unbalanced-tags"),
                    found("closingTwice", "<b>Go</b>", "<b>Los</b></b>", "unbalanced-tags"),
                    found("brokenClosing", "<b>Go</b>", "<b>Los</b", "unbalanced-tags"),
                    found("endedByAnotherTag", "<a>Go</a>, <b>now</b>", "<a>Los</b>",
                          "unbalanced-tags"),
                    found("oneInsideTheOther", "<b>Go</b>", "<b>L<b>o</b>s</b>", "nested-tags"),
                    found("otherName", "<b>Go</b>", "<b>Lo</b><i>", "foreign-tags"),
                    found("capitals", "<b>Go</b>", "<b>Lo</b></B>", "foreign-tags"),
                    found("attributes", "<b>Go</b>", "<b>Lo</b><b id=1>", "foreign-tags"),
                    found("noneInTheKey", "Start", "Lo<br>s", "foreign-tags"),
                    found("none", "<b>Go</b>", "Los", "missing-tags"),
                    passes("moved", "Now <b>go</b>!", "<b>Los</b> jetzt!"),
                    passes("otherTag", "<a>Go</a>", "<a>Los</a>"),
                    passes("repeatedOneAfterTheOther", "<b>Go</b>", "<b>Lo</b> <b>los</b>"),
                    passes("plainAngleBrackets", "Start", "1 < 2 > 1, <>, </>, < b>, <3>, <-- a"),
                    passes("letterBehindAPlainAngleBracket", "<b>Go</b>", "a<b <b>Los</b>"),
                    passes("plainAngleBracketBeforeATag", "<b>Go</b>", "1 <<b>Los</b>> 2")),
    TextRulesTest::nameOf);

INSTANTIATE_TEST_SUITE_P(Escapes, TextRulesTest,
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
                         TextRulesTest::nameOf);

namespace {

std::string many(std::size_t count) {
    return std::string(count, 'x');
}

} // namespace

INSTANTIATE_TEST_SUITE_P(
    Length, TextRulesTest,
    testing::Values(
        found("oneByteTooLong", "Start", many(999), "long-result"),
        found("oneByteTooLongWithEscapes", "Start", many(998) + "\\n", "long-result"),
        found("oneByteTooLongWithAPercentSign", "Start", many(998) + "%%", "long-result"),
        found("oneByteTooLongWithAConversion", "%s", many(999) + "%s", "long-result"),
        found("fewCharactersOfManyBytes", "Start", many(997) + "\xC3\xA9", "long-result"),
        passes("longest", "Start", many(998)),
        passes("longestAfterUnescaping", "Start", many(996) + "\\n\\n"),
        passes("longestAfterFormatting", "%d", many(997) + "%%%d"),
        passes("longestWithManyBytes", "Start", many(996) + "\xC3\xA9")),
    TextRulesTest::nameOf);

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
    Bidi, TextRulesTest,
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
    TextRulesTest::nameOf);
