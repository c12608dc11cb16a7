// Over the typefaces that the tests' packages bring, and whatever else the system has.
#include "Platform/Qt/Typeface.h"

#include "Qt/Printing.h"

#include <QFontInfo>

#include <gtest/gtest.h>

#include <string>
#include <utility>

using Vexora::fontForLanguage;

namespace {

/// What the desktop has, to begin with.
QString firstFamily(const char* desktop, const char* language) {
    return fontForLanguage(QFont(desktop, 11), language).families().value(0);
}

TEST(Typeface, isTheDesktopsWhereThatHasTheLanguage) {
    for (const char* family : {"DejaVu Sans", "DejaVu Serif", "DejaVu Sans Mono", "Noto Sans"}) {
        for (const char* language : {"en", "de", "el", "pl", "uk"}) {
            const QFont desktop(family, 11);
            EXPECT_EQ(fontForLanguage(desktop, language), desktop) << family << ", " << language;
        }
    }
    EXPECT_EQ(firstFamily("DejaVu Sans", "ar"), "DejaVu Sans");
    EXPECT_EQ(firstFamily("DejaVu Sans", "ka"), "DejaVu Sans");
}

TEST(Typeface, hasTheWholeScriptWhereTheDesktopsHasNot) {
    const std::pair<const char*, const char*> families[] = {
        {"ar", "Noto Sans Arabic"},   {"bn", "Noto Sans Bengali"},    {"fa", "Noto Sans Arabic"},
        {"he", "Noto Sans Hebrew"},   {"hi", "Noto Sans Devanagari"}, {"ja", "Noto Sans CJK JP"},
        {"ka", "Noto Sans Georgian"}, {"ko", "Noto Sans CJK KR"},     {"ta", "Noto Sans Tamil"},
        {"te", "Noto Sans Telugu"},   {"th", "Noto Sans Thai"},       {"ur", "Noto Sans Arabic"},
        {"zh", "Noto Sans CJK SC"}};
    for (const auto& [language, family] : families) {
        EXPECT_EQ(firstFamily("Noto Sans", language), family) << language;
    }
    EXPECT_EQ(firstFamily("DejaVu Sans", "th"), "Noto Sans Thai");
    EXPECT_EQ(firstFamily("DejaVu Serif", "hi"), "Noto Sans Devanagari");
}

TEST(Typeface, leavesTheDesktopsForLettersOfOtherScripts) {
    const QFont font = fontForLanguage(QFont("DejaVu Sans", 11), "th");
    EXPECT_EQ(font.families(), (QStringList{"Noto Sans Thai", "Noto Sans", "DejaVu Sans"}));
    EXPECT_EQ(font.pointSize(), 11);
}

TEST(Typeface, isPlainWhereTheDesktopNamesNone) {
    for (const char* name : {"Sans Serif", "Sans", "monospace", "serif", "No Such Typeface"}) {
        for (const char* language : {"en", "ar", "hi", "ta", "th", "ur"}) {
            const std::string family =
                QFontInfo(fontForLanguage(QFont(name, 11), language)).family().toStdString();
            EXPECT_TRUE(family.starts_with("Noto Sans") || family == "DejaVu Sans")
                << name << ", " << language << ": " << family;
        }
    }
}

TEST(Typeface, isTheDesktopsForALanguageThatNobodyKnows) {
    const QFont desktop("DejaVu Sans", 11);
    for (const char* language : {"", "xx", "not a language"}) {
        EXPECT_EQ(fontForLanguage(desktop, language), desktop) << language;
    }
}

} // namespace
