#include "FileRules.h"
#include "Languages.h"
#include "PseudoText.h"
#include "TextWidth.h"

#include <kvparser.h>

#include <QDir>
#include <QFile>
#include <QFontMetricsF>
#include <QStringDecoder>

#include <gtest/gtest.h>

namespace GalleryTest {

using Gallery::Language;
using Gallery::languages;
using Gallery::widthOf;

class PseudoLocales : public testing::Test {
protected:
    static const Language& language(const std::string& code) {
        const auto& all = languages();
        return *std::find_if(all.begin(), all.end(),
                             [&code](const Language& one) { return one.code == code; });
    }

    static CheckStrings::Keys keys() {
        return CheckStrings::readKeys(language("en").resources + "/en.lproj/Localizable.strings");
    }

    static std::string text(const std::string& code, const std::string& key) {
        VXLOCAL::KVParser catalogue("Localizable.strings");
        catalogue.setLocaleDir(language(code).resources + "/" + code + ".lproj");
        catalogue.parse();
        return catalogue.getMessage(key);
    }

    static QString licence(const std::string& code) {
        QFile file(QString::fromStdString(language(code).resources + "/LA_" + code));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << code;
        QStringDecoder decoder(QStringDecoder::Utf16);
        return decoder(file.readAll());
    }
};

TEST_F(PseudoLocales, areBesideTheLanguagesAndNotAmongThem) {
    const QDir staged(QString::fromStdString(language("en").resources));
    EXPECT_TRUE(staged.exists("en.lproj"));
    for (const char* code : {"xa", "xr", "xl"}) {
        EXPECT_TRUE(language(code).isPseudo());
        EXPECT_NE(language(code).resources, language("en").resources);
        EXPECT_FALSE(staged.exists(QString(code) + ".lproj")) << code;
        EXPECT_FALSE(staged.exists(QString("LA_") + code)) << code;
    }
}

TEST_F(PseudoLocales, followTheEnglishTexts) {
    for (const std::string& key : keys()) {
        const std::string english = text("en", key);
        EXPECT_EQ(text("xa", key), Gallery::accented(english));
        EXPECT_EQ(text("xr", key), Gallery::rightToLeft(english));
    }
}

TEST_F(PseudoLocales, takeTheTextWithTheWidestWordOfAllLanguages) {
    for (const std::string& key : keys()) {
        const std::string longest = text("xl", key);
        bool isOneOfThem = false;
        for (const Language& one : languages()) {
            if (!one.isPseudo()) {
                const std::string other = text(one.code, key);
                EXPECT_FALSE(widthOf(key, longest) < widthOf(key, other))
                    << one.code << ": " << other;
                isOneOfThem = isOneOfThem || other == longest;
            }
        }
        EXPECT_TRUE(isOneOfThem) << longest;
    }
}

TEST_F(PseudoLocales, takeWordsNoNarrowerThanKnownLongOnes) {
    const std::pair<const char*, const char*> words[] = {
        {"A system-wide installation already exists. Removing or upgrading requires "
         "administrator-level access.",
         "administratorrettigheter."},
        {"By installing, you agree to the Ondrel Vexora <a>license agreement</a>.",
         "käyttöoikeussopimuksen."}};
    for (const auto& [key, word] : words) {
        EXPECT_GE(widthOf(key, text("xl", key)).word, widthOf(key, word).word) << text("xl", key);
    }
}

TEST(TextWidth, isThatOfTheWidestWordAndOfTheWhole) {
    const QFontMetricsF plain{QFont("Noto Sans", 12)};
    const QFontMetricsF bold{QFont("Noto Sans", 12, QFont::Bold)};
    const Gallery::TextWidth width = widthOf("Open logs", "a longest word");
    EXPECT_NEAR(width.word, plain.horizontalAdvance("longest"), 1.0);
    EXPECT_NEAR(width.whole, plain.horizontalAdvance("a longest word"), 1.0);
    EXPECT_NEAR(widthOf("Close", "longest").word, bold.horizontalAdvance("longest"), 1.0);
    EXPECT_NEAR(widthOf("", "to <a>a</a> <b>longest</b>").word, bold.horizontalAdvance("longest"),
                1.0);
    EXPECT_GT(bold.horizontalAdvance("longest"), plain.horizontalAdvance("longest") + 2.0);
    EXPECT_LT(widthOf("", "many short ones"), widthOf("", "longest"));
    EXPECT_LT(widthOf("", "longest"), widthOf("", "a longest"));
}

TEST_F(PseudoLocales, haveLicences) {
    const QString english = licence("en");
    EXPECT_GT(licence("xa").size() * 10, english.size() * 13);
    EXPECT_EQ(licence("xr").count('\n'), english.count('\n'));
    for (const Language& one : languages()) {
        if (!one.isPseudo()) {
            EXPECT_LE(licence(one.code).size(), licence("xl").size()) << one.code;
        }
    }
}

TEST_F(PseudoLocales, areNamedAndDirected) {
    EXPECT_TRUE(language("xr").isRightToLeft());
    EXPECT_FALSE(language("xa").isRightToLeft());
    EXPECT_FALSE(language("xl").isRightToLeft());
    EXPECT_EQ(language("xa").englishName(), "Accented English");
}

TEST(Languages, areNamedInEnglishAndInTheirOwn) {
    for (const Language& one : languages()) {
        EXPECT_FALSE(one.englishName().isEmpty()) << one.code;
        EXPECT_FALSE(one.ownName().isEmpty()) << one.code;
        EXPECT_NE(one.englishName(), "C") << one.code;
    }
    EXPECT_EQ(languages().front().ownName(), "العربية");
    EXPECT_TRUE(languages().front().isRightToLeft());
}

} // namespace GalleryTest
