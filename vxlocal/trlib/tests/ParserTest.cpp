#include "parser.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

using namespace VXLOCAL;

namespace {

/// The least that makes a catalogue; reports its end.
class SomeParser : public Parser {
public:
    explicit SomeParser(const char* name, bool* destroyed = nullptr)
        : Parser(name), destroyed_(destroyed) {}
    ~SomeParser() override {
        if (destroyed_ != nullptr) {
            *destroyed_ = true;
        }
    }
    void parse() override { ++parses; }
    std::string getMessage(const std::string& key) const override { return key; }

    int parses = 0;

private:
    bool* destroyed_;
};

} // namespace

TEST(Parser, localeFileJoinsFolderAndFileNameWhateverTheLocale) {
    SomeParser parser("Localizable.strings");
    parser.setLocaleDir("/res/de.lproj");
    for (const char* locale : {"", "de", "pt_BR", "../en"}) {
        EXPECT_EQ(parser.localeFile(locale), "/res/de.lproj/Localizable.strings");
    }
}

TEST(Parser, localeFileDoublesTheSlashOfAFolderThatEndsInOne) {
    SomeParser parser("Localizable.strings");
    parser.setLocaleDir("/res/de.lproj/");
    EXPECT_EQ(parser.localeFile("de"), "/res/de.lproj//Localizable.strings");
}

TEST(Parser, localeFileIsALoneSlashWhenFolderAndFileNameAreEmpty) {
    EXPECT_EQ(SomeParser("").localeFile("de"), "/");
}

TEST(Parser, setLocaleAloneDoesNotChangeLocaleFile) {
    SomeParser parser("Localizable.strings");
    parser.setLocaleDir("/res/de.lproj");
    const std::string before = parser.localeFile(parser.getLocale());
    parser.setLocale("en");
    EXPECT_EQ(parser.localeFile(parser.getLocale()), before);
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
    EXPECT_EQ(parser.parses, 0);
}

TEST(Parser, isDestroyedThroughItsVirtualDestructor) {
    bool destroyed = false;
    const Parser* parser = new SomeParser("a", &destroyed);
    delete parser;
    EXPECT_TRUE(destroyed);
}

TEST(Parser, isAbstract) {
    EXPECT_TRUE(std::is_abstract_v<Parser>);
}
