#include "Core/LocaleSelection.h"

#include "Platform/Recording/Platform.h"
#include "Support/TemporaryFolder.h"
#include "Support/Translations.h"

#include <tr.h>

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <optional>
#include <stdexcept>
#include <string>

using Vexora::languageCode;
using Vexora::Recording::Lines;

namespace {

class LocaleSelection : public testing::Test {
protected:
    LocaleSelection() {
        TestSupport::forgetTranslations();
        environment.resources = resources.path().string();
    }
    ~LocaleSelection() override { TestSupport::forgetTranslations(); }

    std::optional<std::string> initialize(const std::string& localeIdentifier) {
        environment.locale = localeIdentifier;
        return Vexora::initializeTranslator(environment, log);
    }

    /// Where the loading of translations throws an exception.
    template <class Exception>
    std::optional<std::string> initializeThrowing(Exception thrown) {
        return Vexora::initializeTranslator(
            environment, log,
            [&thrown](const std::string&, const std::string&) -> bool { throw thrown; });
    }

    void addLanguage(const std::string& folder, const std::string& start) {
        resources.write(folder + "/Localizable.strings",
                        TestSupport::stringsFile({{"Start", start}}));
    }

    static VXLOCAL::Translator& translator() { return *VXLOCAL::Translator::getInstance(); }

    TestSupport::TemporaryFolder resources;
    Vexora::Recording::RecordingEnvironment environment;
    Lines logged;
    const std::function<void(const std::string&)> log = [this](const std::string& text) {
        logged.push_back(text);
    };
};

TEST_F(LocaleSelection, translationsAreThoseOfTheTwoLettersOfTheIdentifier) {
    addLanguage("de_CH.lproj", "wrong");
    const std::pair<const char*, const char*> languages[] = {
        {"en_US", "en"}, {"de_CH", "de"}, {"EN_GB", "en"}, {"x", "x"}, {"", ""}};
    for (const auto& [identifier, language] : languages) {
        const std::string folder = std::string(language) + ".lproj";
        addLanguage(folder, folder);
        EXPECT_EQ(initialize(identifier), language);
        EXPECT_EQ(translator().localeDir(), environment.resources + "/" + folder);
        EXPECT_EQ(translator().localeFile(language),
                  environment.resources + "/" + folder + "/Localizable.strings");
        EXPECT_EQ(translator().tr("Start"), folder);
        EXPECT_EQ(logged, Lines{});
    }
}

TEST_F(LocaleSelection, shortIdentifiersWithoutAFolderFailNothing) {
    for (const std::string identifier : {"", "x"}) {
        logged.clear();
        EXPECT_EQ(initialize(identifier), std::nullopt);
        EXPECT_EQ(logged, Lines{"Could not open " + environment.resources + "/" + identifier +
                                ".lproj/Localizable.strings\n"});
    }
}

TEST_F(LocaleSelection, unreadableTranslationsAreLoggedAsOneTextAndTheTextsStayEnglish) {
    EXPECT_EQ(initialize("fr_FR"), std::nullopt);
    EXPECT_EQ(logged,
              Lines{"Could not open " + environment.resources + "/fr.lproj/Localizable.strings\n"});
    EXPECT_EQ(translator().tr("Installation completed!"), "Installation completed!");
}

TEST_F(LocaleSelection, fileWithoutAnEntryLeavesTheTextsEnglishAndIsNotLogged) {
    for (const char* bytes : {"", "\n", "\"Start\" : \"x\"\n", "\"Start\" = \"\"\n", "\xFF\xFE"}) {
        resources.write("ar.lproj/Localizable.strings", bytes);
        EXPECT_EQ(initialize("ar_EG"), std::nullopt) << bytes;
    }
    std::filesystem::create_directories(resources.path() / "he.lproj/Localizable.strings");
    EXPECT_EQ(initialize("he_IL"), std::nullopt);
    EXPECT_EQ(translator().tr("Start"), "Start");
    EXPECT_EQ(logged, Lines{});
}

TEST_F(LocaleSelection, noOtherLanguageIsTriedAndNoneRemains) {
    addLanguage("en.lproj", "Begin");
    ASSERT_TRUE(initialize("en_US"));
    EXPECT_EQ(initialize("fr_FR"), std::nullopt);
    EXPECT_EQ(translator().tr("Start"), "Start");
}

TEST_F(LocaleSelection, laterInitialisationReplacesTheTranslations) {
    addLanguage("en.lproj", "Begin");
    addLanguage("de.lproj", "Starten");
    ASSERT_TRUE(initialize("en_US"));
    ASSERT_TRUE(initialize("de_DE"));
    EXPECT_EQ(translator().tr("Start"), "Starten");
}

TEST_F(LocaleSelection, everyStandardExceptionIsLoggedByItsText) {
    EXPECT_EQ(initializeThrowing(std::runtime_error("Could not open x\n")), std::nullopt);
    EXPECT_EQ(initializeThrowing(std::logic_error("wrong")), std::nullopt);
    EXPECT_EQ(initializeThrowing(std::bad_alloc()), std::nullopt);
    EXPECT_EQ(logged, (Lines{"Could not open x\n", "wrong", std::bad_alloc().what()}));
}

TEST_F(LocaleSelection, exceptionThatIsNoStandardOneIsNotCaught) {
    EXPECT_THROW(initializeThrowing("Parser is NULL\n"), const char*);
    EXPECT_THROW(initializeThrowing(7), int);
    EXPECT_EQ(logged, Lines{});
}

TEST_F(LocaleSelection, languageCodeIsTheLoweredFirstTwoBytes) {
    EXPECT_EQ(languageCode("en_US"), "en");
    EXPECT_EQ(languageCode("pt_BR"), "pt");
    EXPECT_EQ(languageCode("de_CH"), "de");
    EXPECT_EQ(languageCode("EN_GB"), "en");
    EXPECT_EQ(languageCode("zh-Hans_CN"), "zh");
    EXPECT_EQ(languageCode("yue_HK"), "yu");
    EXPECT_EQ(languageCode("x"), "x");
    EXPECT_EQ(languageCode("X"), "x");
    EXPECT_EQ(languageCode(""), "");
}

TEST_F(LocaleSelection, nothingButLettersIsLowered) {
    EXPECT_EQ(languageCode("@["), "@[");
    EXPECT_EQ(languageCode("AZ"), "az");
    EXPECT_EQ(languageCode("az"), "az");
    EXPECT_EQ(languageCode("0_"), "0_");
    EXPECT_EQ(languageCode("\xC3\x89_XX"), "\xC3\x89");
}

TEST_F(LocaleSelection, identifierOutsideAsciiIsCutToTwoBytesAndNotTwoCharacters) {
    EXPECT_EQ(languageCode("\xC3\xA9"
                           "a_XX"),
              "\xC3\xA9");
    EXPECT_EQ(languageCode("a\xC3\xA9"), "a\xC3");
    EXPECT_EQ(languageCode("\xE6\xBC\xA2\xE5\xAD\x97"), "\xE6\xBC");
}

TEST_F(LocaleSelection, directoryIsConcatenatedWithoutAnyCheck) {
    EXPECT_EQ(Vexora::localeDirectory("/Setup/Resources", "en"), "/Setup/Resources/en.lproj");
    EXPECT_EQ(Vexora::localeDirectory("/a b/", ""), "/a b//.lproj");
}

} // namespace
