#include "tr.h"

#include "kvparser.h"
#include "parser.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <utility>
#include <vector>

using VXLOCAL::KVParser;
using VXLOCAL::Parser;
using VXLOCAL::TemporaryFolder;

namespace {

constexpr const char* stringsFile = "Localizable.strings";
constexpr std::size_t longestResult = 998;

VXLOCAL::Translator& translator() {
    return *VXLOCAL::Translator::getInstance();
}

/// Runs a check where the translator was never touched before, and fails when the check does.
/// Assertions in it print their failures as everywhere else.
template <typename Check>
void inAFreshProcess(const Check& check) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto run = [&check] {
        check();
        std::exit(testing::Test::HasFailure() ? EXIT_FAILURE : EXIT_SUCCESS);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(EXIT_SUCCESS), "");
}

/// The text of the runtime error that a call throws, or "nothing thrown".
template <typename Call>
std::string errorOf(const Call& call) {
    try {
        call();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "nothing thrown";
}

class Translator : public testing::Test {
protected:
    /// Writes a language's strings file.
    /// \return the language's folder.
    std::string language(const std::string& name, std::string_view strings) {
        return folder().write(name + ".lproj/" + stringsFile, strings).parent_path().string();
    }

    /// Has the translator read a new catalogue of these bytes.
    void init(std::string_view strings) {
        translator().init(new KVParser(stringsFile), "de", language("de", strings), stringsFile);
    }

    /// Made when first asked for, since a fresh process ends without destroying its fixture.
    const TemporaryFolder& folder() {
        if (!folder_) {
            folder_.emplace();
        }
        return *folder_;
    }

private:
    std::optional<TemporaryFolder> folder_;
};

/// A catalogue that reports what it is asked for.
class RecordingParser : public Parser {
public:
    explicit RecordingParser(std::vector<std::string>& events, std::string message = "")
        : Parser("constructed"), events_(events), message_(std::move(message)) {}
    ~RecordingParser() override {
        events_.push_back("destroyed, held: " + translator().localeFile(""));
    }
    void parse() override {
        events_.push_back("parse " + getLocale() + " " + localeFile(getLocale()));
    }
    std::string getMessage(const std::string& key) const override {
        events_.push_back("getMessage " + key);
        return message_;
    }

private:
    std::vector<std::string>& events_;
    std::string message_;
};

} // namespace

TEST_F(Translator, everyTextStandsForItselfWithoutACatalogue) {
    inAFreshProcess([] {
        EXPECT_EQ(translator().tr("%d of 100 %%", 42), "42 of 100 %");
        EXPECT_EQ(translator().getMessage("100 %% %d"), "100 %% %d");
        EXPECT_THROW(translator().init(nullptr, "fr", "/nowhere", "none"), const char*);
        EXPECT_NO_THROW(translator().setLocale("de"));
        EXPECT_NO_THROW(translator().setLocaleDir("/nowhere"));
        EXPECT_EQ(translator().localeDir(), "");
        EXPECT_EQ(translator().localeFile("de"), "");
        EXPECT_EQ(translator().tr("Install"), "Install");
    });
}

TEST_F(Translator, nullCatalogueThrowsAndLeavesTheEarlierOneInPlace) {
    init("\"Install\" = \"Installieren\"\n");
    try {
        translator().init(nullptr, "fr", "/nowhere", "none");
        FAIL() << "nothing thrown";
    } catch (const char* text) {
        EXPECT_STREQ(text, "Parser is NULL\n");
    }
    EXPECT_EQ(translator().tr("Install"), "Installieren");
    EXPECT_EQ(translator().localeDir(), (folder().path() / "de.lproj").string());
}

TEST_F(Translator, missingStringsFileThrowsAndTextsStayUntranslatedUntilItIsThere) {
    init("\"Install %d\" = \"Installieren %d\"\n");
    const std::string missing = (folder().path() / "xx.lproj").string();
    auto* parser = new KVParser(stringsFile);
    EXPECT_EQ(errorOf([&] { translator().init(parser, "xx", missing, stringsFile); }),
              "Could not open " + missing + "/" + stringsFile + "\n");
    EXPECT_EQ(translator().tr("Install %d", 42), "Install 42");
    EXPECT_EQ(translator().tr("100 %%"), "100 %");
    ASSERT_EQ(translator().localeDir(), missing);
    EXPECT_EQ(parser->getLocale(), "xx");
    language("xx", "\"Install %d\" = \"Installer %d\"\n");
    translator().setLocale("xx");
    EXPECT_EQ(translator().tr("Install %d", 42), "Installer 42");
}

TEST_F(Translator, translationIsFormattedWithTheArguments) {
    init("\"Installed %d of %s\" = \"%d von %s installiert\"\n\"Start\" = \"Los, 100 %%\"\n");
    EXPECT_EQ(translator().tr("Installed %d of %s", 42, "Lumiq"), "42 von Lumiq installiert");
    EXPECT_EQ(translator().tr("Start"), "Los, 100 %");
}

TEST_F(Translator, resultIsCutAt998BytesAlsoInsideACharacter) {
    const std::string text(longestResult + 100, 'x');
    init("\"Plain\" = \"" + text + "\"\n\"Formatted\" = \"%%" + text + "\"\n\"Fits\" = \"" +
         text.substr(0, longestResult) + "\"\n\"Umlaut\" = \"" + text.substr(0, longestResult - 1) +
         "\xC3\xA4\"\n");
    EXPECT_EQ(translator().tr("Plain"), text.substr(0, longestResult));
    EXPECT_EQ(translator().tr("Formatted"), "%" + text.substr(0, longestResult - 1));
    EXPECT_EQ(translator().tr("Fits"), text.substr(0, longestResult));
    EXPECT_EQ(translator().tr("Umlaut"), text.substr(0, longestResult - 1) + "\xC3");
    EXPECT_EQ(translator().tr("%s", text.c_str()), text.substr(0, longestResult));
    EXPECT_EQ(translator().tr("%1000d", 7), std::string(longestResult, ' '));
}

TEST_F(Translator, keysThatOnlyTheEarlierLanguageHadKeepTheirTranslations) {
    init("\"Install\" = \"Installieren\"\n\"Close\" = \"Beenden\"\n");
    translator().setLocaleDir(language("fr", "\"Install\" = \"Installer\"\n"));
    translator().setLocale("fr");
    EXPECT_EQ(translator().tr("Install"), "Installer");
    EXPECT_EQ(translator().tr("Close"), "Beenden");
}

TEST_F(Translator, firstCallsFromManyThreadsGetOneTranslator) {
    inAFreshProcess([] {
        std::vector<VXLOCAL::Translator*> instances(8);
        std::vector<std::thread> threads;
        for (VXLOCAL::Translator*& instance : instances) {
            threads.emplace_back([&instance] { instance = VXLOCAL::Translator::getInstance(); });
        }
        for (std::thread& thread : threads) {
            thread.join();
        }
        const std::set<VXLOCAL::Translator*> different(instances.begin(), instances.end());
        EXPECT_EQ(different, std::set{VXLOCAL::Translator::getInstance()});
    });
}

TEST_F(Translator, isNotCopied) {
    EXPECT_FALSE(std::is_copy_constructible_v<VXLOCAL::Translator>);
    EXPECT_FALSE(std::is_copy_assignable_v<VXLOCAL::Translator>);
    EXPECT_FALSE(std::is_default_constructible_v<VXLOCAL::Translator>);
}

TEST_F(Translator, initDestroysTheHeldCatalogueThenConfiguresAndParsesTheNewOne) {
    std::vector<std::string> events;
    translator().init(new RecordingParser(events), "de", "/res/de.lproj", stringsFile);
    translator().init(new RecordingParser(events), "fr", "/res/fr.lproj", "Other.strings");
    EXPECT_EQ(events, (std::vector<std::string>{
                          "parse de /res/de.lproj/Localizable.strings",
                          "destroyed, held: ", "parse fr /res/fr.lproj/Other.strings"}));
    init("");
    EXPECT_EQ(events.back(), "destroyed, held: ");
}

TEST_F(Translator, setLocaleParsesAgainAndSetLocaleDirDoesNot) {
    std::vector<std::string> events;
    translator().init(new RecordingParser(events), "de", "/res/de.lproj", stringsFile);
    events.clear();
    translator().setLocaleDir("/res/fr.lproj");
    EXPECT_EQ(events, std::vector<std::string>());
    EXPECT_EQ(translator().localeDir(), "/res/fr.lproj");
    EXPECT_EQ(translator().localeFile("any"), "/res/fr.lproj/Localizable.strings");
    translator().setLocale("fr");
    EXPECT_EQ(events, std::vector<std::string>{"parse fr /res/fr.lproj/Localizable.strings"});
    init("");
}

TEST_F(Translator, setLocaleThrowsForAMissingFileAndKeepsTheTranslationsAndTheNewName) {
    auto* parser = new KVParser(stringsFile);
    translator().init(parser, "de", language("de", "\"Install\" = \"Installieren\"\n"),
                      stringsFile);
    const std::string missing = (folder().path() / "xx.lproj").string();
    translator().setLocaleDir(missing);
    EXPECT_EQ(errorOf([] { translator().setLocale("xx"); }),
              "Could not open " + missing + "/" + stringsFile + "\n");
    EXPECT_EQ(translator().tr("Install"), "Installieren");
    EXPECT_EQ(parser->getLocale(), "xx");
}

TEST_F(Translator, getMessageAsksTheCatalogueAndFormatsNothing) {
    std::vector<std::string> events;
    translator().init(new RecordingParser(events, "100 %%"), "de", "/res", stringsFile);
    events.clear();
    EXPECT_EQ(translator().getMessage("Install"), "100 %%");
    EXPECT_EQ(translator().tr("Install %d", 42), "100 %");
    EXPECT_EQ(events, (std::vector<std::string>{"getMessage Install", "getMessage Install %d"}));
    init("");
}

TEST_F(Translator, resultEndsAtItsFirstZeroByte) {
    using namespace std::string_view_literals;
    init("\"Plain\" = \"In\0stall\"\n\"Formatted\" = \"%%In\0stall\"\n\"Behind\" = \"In\0%s\"\n"sv);
    EXPECT_EQ(translator().tr("Plain"), "In");
    EXPECT_EQ(translator().tr("Behind"), "In");
    EXPECT_EQ(translator().tr("Formatted"), "%In");
    EXPECT_EQ(translator().tr("In%cstall", 0), "In");
}

TEST_F(Translator, conversionThatFailsEndsTheResult) {
    init("");
    EXPECT_TRUE(
        std::string_view("Install ").starts_with(translator().tr("Install %ls", L"\xD800")));
}

#ifndef __APPLE__ // There %m means nothing.
TEST_F(Translator, formattingSeesTheCallersError) {
    init("\"Install\" = \"Fehler: %m\"\n");
    errno = EPERM;
    EXPECT_EQ(translator().tr("Install"), std::string("Fehler: ") + std::strerror(EPERM));
}
#endif

TEST_F(Translator, catalogueMayTranslateAnotherTextMeanwhile) {
    class AskingParser : public Parser {
    public:
        AskingParser() : Parser(stringsFile) {}
        void parse() override {}
        std::string getMessage(const std::string& key) const override {
            return key.starts_with("Install") ? translator().tr("Another, longer text") + ", " + key
                                              : key;
        }
    };
    translator().init(new AskingParser, "de", "", stringsFile);
    EXPECT_EQ(translator().tr("Install"), "Another, longer text, Install");
    EXPECT_EQ(translator().tr("Install the product, %d %%", 7),
              "Another, longer text, Install the product, 7 %");
    EXPECT_EQ(translator().tr("Install the product, %d %%", 7),
              "Another, longer text, Install the product, 7 %");
    init("");
}

TEST_F(Translator, catalogueThatIsDestroyedIsNotAsked) {
    class LoudParser : public Parser {
    public:
        LoudParser() : Parser(stringsFile) {}
        ~LoudParser() override {
            std::fputs(translator().tr("The catalogue is destroyed.\n").c_str(), stderr);
        }
        void parse() override {}
        std::string getMessage(const std::string& key) const override { return "Asked: " + key; }
    };
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto run = [] {
        translator().init(new LoudParser, "de", "", stringsFile);
        translator().init(new LoudParser, "de", "", stringsFile);
        std::fputs(translator().tr("A text.\n").c_str(), stderr);
        std::exit(EXIT_SUCCESS);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(EXIT_SUCCESS),
                "^The catalogue is destroyed.\nAsked: A text.\nThe catalogue is destroyed.\n$");
}
