#include "parser.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

using namespace VXLOCAL;

namespace {

/// The least that makes a catalogue.
class SomeParser : public Parser {
public:
    using Parser::Parser;
    void parse() override { ++parses; }
    std::string getMessage(const std::string& key) const override { return key; }

    int parses = 0;
};

} // namespace

TEST(Parser, localeFileJoinsFolderAndFileNameWhateverTheLocale) {
    SomeParser parser("Localizable.strings");
    parser.setLocaleDir("/res/de.lproj");
    for (const char* locale : {"", "de", "pt_BR", "../en"}) {
        EXPECT_EQ(parser.localeFile(locale), "/res/de.lproj/Localizable.strings");
        parser.setLocale(locale);
        EXPECT_EQ(parser.localeFile("de"), "/res/de.lproj/Localizable.strings");
    }
    parser.setLocaleDir("/res/de.lproj/");
    EXPECT_EQ(parser.localeFile("de"), "/res/de.lproj//Localizable.strings");
    EXPECT_EQ(SomeParser("").localeFile("de"), "/");
}

TEST(Parser, startsWithItsFileNameAndOtherwiseEmpty) {
    const SomeParser parser("Localizable.strings");
    EXPECT_EQ(parser.getFilename(), "Localizable.strings");
    EXPECT_EQ(parser.getLocale(), "");
    EXPECT_EQ(parser.getLocaleDir(), "");
}

TEST(Parser, settersReplaceAndNeverRead) {
    SomeParser parser("a");
    parser.setLocale("de");
    parser.setLocale("pt_BR");
    parser.setLocaleDir("/one");
    parser.setLocaleDir("/two");
    parser.setFilename("b");
    EXPECT_EQ(parser.getLocale(), "pt_BR");
    EXPECT_EQ(parser.getLocaleDir(), "/two");
    EXPECT_EQ(parser.getFilename(), "b");
    EXPECT_EQ(parser.localeFile(""), "/two/b");
    parser.setLocale("");
    parser.setLocaleDir("");
    parser.setFilename("");
    EXPECT_EQ(parser.getLocale(), "");
    EXPECT_EQ(parser.localeFile(""), "/");
    EXPECT_EQ(parser.parses, 0);
}

TEST(Parser, isAbstractAndDestroyedThroughItsBase) {
    EXPECT_TRUE(std::is_abstract_v<Parser>);
    EXPECT_TRUE(std::has_virtual_destructor_v<Parser>);
}
