#include "FileRules.h"
#include "PseudoText.h"

#include <kvparser.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QStringDecoder>

#include <gtest/gtest.h>

namespace PseudoLocalesTest {
namespace {

const QDir pseudo(PSEUDO_RESOURCES);
const QDir staged(STAGED_RESOURCES);

QString textIn(const QDir& resources, const QString& code, const std::string& key) {
    VXLOCAL::KVParser parser("Localizable.strings");
    parser.setLocaleDir(resources.filePath(code + ".lproj").toStdString());
    parser.parse();
    return QString::fromStdString(parser.getMessage(key));
}

QString licenceIn(const QDir& resources, const QString& code) {
    QFile file(resources.filePath("LA_" + code));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << code.toStdString();
    QStringDecoder decoder(QStringDecoder::Utf16);
    return decoder(file.readAll());
}

CheckStrings::Keys keys() {
    return CheckStrings::readKeys(RESOURCES "/en.lproj/Localizable.strings");
}

} // namespace

TEST(PseudoLocales, areBesideTheLanguagesAndNotAmongThem) {
    EXPECT_TRUE(staged.exists("en.lproj"));
    for (const QString code : {"xa", "xr", "xl"}) {
        EXPECT_TRUE(pseudo.exists(code + ".lproj")) << code.toStdString();
        EXPECT_FALSE(staged.exists(code + ".lproj")) << code.toStdString();
        EXPECT_FALSE(staged.exists("LA_" + code)) << code.toStdString();
    }
}

TEST(PseudoLocales, followTheEnglishTexts) {
    for (const std::string& key : keys()) {
        const QString english = textIn(staged, "en", key);
        EXPECT_EQ(textIn(pseudo, "xa", key), PseudoLocales::accented(english));
        EXPECT_EQ(textIn(pseudo, "xr", key), PseudoLocales::rightToLeft(english));
    }
}

TEST(PseudoLocales, takeTheTextWithTheWidestWordOfAllLanguages) {
    for (const std::string& key : keys()) {
        const QString longest = textIn(pseudo, "xl", key);
        bool isOneOfThem = false;
        for (const QString& code : QString(LANGUAGES).split(' ')) {
            const QString other = textIn(staged, code, key);
            EXPECT_FALSE(PseudoLocales::widthOf(longest) < PseudoLocales::widthOf(other))
                << code.toStdString() << ": " << other.toStdString();
            isOneOfThem = isOneOfThem || other == longest;
        }
        EXPECT_TRUE(isOneOfThem) << longest.toStdString();
    }
}

TEST(PseudoLocales, haveLicences) {
    const QString english = licenceIn(staged, "en");
    EXPECT_GT(licenceIn(pseudo, "xa").size() * 10, english.size() * 13);
    EXPECT_EQ(licenceIn(pseudo, "xr").count('\n'), english.count('\n'));
    const QString longest = licenceIn(pseudo, "xl");
    for (const QString& code : QString(LANGUAGES).split(' ')) {
        EXPECT_LE(licenceIn(staged, code).size(), longest.size()) << code.toStdString();
    }
}

} // namespace PseudoLocalesTest

int main(int argc, char** argv) {
    // As the build measures: with the typefaces of nobody's desktop.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("FC_LANG", "en");
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication toolkit(argc, argv);
    return RUN_ALL_TESTS();
}
