#include "CheckStringsFixture.h"

#include <filesystem>

using namespace std::string_literals;

/// A resource directory with two sound languages, for each test to spoil.
class Resources : public CheckStringsFixture {
protected:
    Resources() {
        addLanguage("en");
        addLanguage("de");
    }

    void addLanguage(const std::string& code, const std::vector<std::string>& keys = {"Start"}) {
        folder_.write("all/" + code + ".lproj/Localizable.strings", stringsOf(keys));
        folder_.write("all/LA_" + code, text_);
    }

    /// What is found after the German licence got these bytes.
    Lines findingsInLicense(const std::string& bytes) {
        folder_.write("all/LA_de", bytes);
        return findings({"all"});
    }

    const std::string text_ = {"\xFF\xFEO\0k\0", 6};
};

TEST_F(Resources, soundOnesPass) {
    EXPECT_EQ(findings({"all"}), Lines{});
}

TEST_F(Resources, everyLanguageIsHeldToTheEnglishKeys) {
    addLanguage("fr", {"Stop"});
    EXPECT_EQ(findings({"all"}), (Lines{"all/fr.lproj/Localizable.strings:0: missing-key: Start",
                                        "all/fr.lproj/Localizable.strings:1: unknown-key: "
                                        "not a key of the reference: Stop"}));
}

TEST_F(Resources, areHeldToTheReferenceThatIsNamed) {
    folder_.write("reference", stringsOf({"Stop"}));
    EXPECT_EQ(findings({"--reference", "reference", "all"}).size(), 4U);
    folder_.write("reference", stringsOf({"Start"}));
    EXPECT_EQ(findings({"--reference", "reference", "all"}), Lines{});
}

TEST_F(Resources, englishStringsAreCheckedToo) {
    folder_.write("all/en.lproj/Localizable.strings", "\n\"Start\" = \"100%\"\n");
    EXPECT_EQ(findings({"all"}), Lines{"all/en.lproj/Localizable.strings:2: single-percent: "
                                       "a percent sign is written doubled"});
}

TEST_F(Resources, languageWithoutLicenseIsFound) {
    std::filesystem::remove(folder_.path() / "all/LA_de");
    EXPECT_EQ(findings({"all"}),
              Lines{"all/LA_de:0: missing-license: the language has no licence file"});
}

TEST_F(Resources, otherFilesAreLeftAlone) {
    folder_.write("all/install", "\x80;");
    folder_.write("all/notes.lproj.txt", "x");
    folder_.write("all/images/LA_xx", "x");
    EXPECT_EQ(findings({"all"}), Lines{});
}

TEST_F(Resources, missingStringsFileIsFoundAndTheRestIsChecked) {
    std::filesystem::remove(folder_.path() / "all/de.lproj/Localizable.strings");
    addLanguage("fr", {"Start", "Stop"});
    EXPECT_EQ(findings({"all"}), (Lines{"all/de.lproj/Localizable.strings:0: unreadable-file: "
                                        "cannot read the file all/de.lproj/Localizable.strings",
                                        "all/fr.lproj/Localizable.strings:2: unknown-key: "
                                        "not a key of the reference: Stop"}));
}

TEST_F(Resources, folderThatTheProgramNeverOpensIsFound) {
    const std::string fault = ".lproj:0: language-folder: the program opens only folders, each "
                              "named by two lower-case letters";
    for (const std::string name : {"DE", "Base", "d", "deu", "pt_BR", "q9"}) {
        folder_.write("all/" + name + ".lproj/Localizable.strings", stringsOf({"Stop"}));
    }
    EXPECT_EQ(findings({"all"}), (Lines{"all/Base" + fault, "all/DE" + fault, "all/d" + fault,
                                        "all/deu" + fault, "all/pt_BR" + fault, "all/q9" + fault}));
}

TEST_F(Resources, languageThatIsNoFolderIsFound) {
    const std::string fault = ".lproj:0: language-folder: the program opens only folders, each "
                              "named by two lower-case letters";
    folder_.write("all/fr.lproj", "x");
    std::filesystem::create_symlink("nowhere", folder_.path() / "all/it.lproj");
    std::filesystem::create_symlink("sv.lproj", folder_.path() / "all/sv.lproj");
    EXPECT_EQ(findings({"all"}), (Lines{"all/fr" + fault, "all/it" + fault, "all/sv" + fault}));
}

TEST_F(Resources, linkToALanguageFolderIsOne) {
    std::filesystem::create_directory_symlink("de.lproj", folder_.path() / "all/nb.lproj");
    EXPECT_EQ(findings({"all"}),
              Lines{"all/LA_nb:0: missing-license: the language has no licence file"});
}

TEST_F(Resources, whatTheProgramIsShippedWithPasses) {
    EXPECT_EQ(findings({VEXORA_STAGED_RESOURCES}), Lines{});
}

TEST_F(Resources, licenseMayBeALink) {
    std::filesystem::remove(folder_.path() / "all/LA_de");
    std::filesystem::create_symlink("LA_en", folder_.path() / "all/LA_de");
    EXPECT_EQ(findings({"all"}), Lines{});
}

TEST_F(Resources, licenseWithoutLanguagePassesOrIsFoundLikeAnyOther) {
    folder_.write("all/LA_fr", text_);
    EXPECT_EQ(findings({"all"}), Lines{});
    folder_.write("all/LA_fr", "Ok");
    EXPECT_EQ(findings({"all"}), Lines{"all/LA_fr:0: license-encoding: "
                                       "the file does not begin with a byte-order mark of UTF-16"});
}

TEST_F(Resources, licenseThatIsNoReadableFileIsFoundAndTheRestIsChecked) {
    const std::filesystem::path license = folder_.path() / "all/LA_de";
    const Lines expected = {"all/LA_de:0: unreadable-file: cannot read the file all/LA_de",
                            "all/LA_fr:0: license-encoding: the file has an odd number of bytes"};
    folder_.write("all/LA_fr", text_ + "x");
    std::filesystem::remove(license);
    std::filesystem::create_symlink("nowhere", license);
    EXPECT_EQ(findings({"all"}), expected);
    std::filesystem::remove(license);
    std::filesystem::create_symlink("LA_de", license);
    EXPECT_EQ(findings({"all"}), expected);
    std::filesystem::remove(license);
    std::filesystem::create_directory(license);
    EXPECT_EQ(findings({"all"}), expected);
}

TEST_F(Resources, licenseWithoutUtf16MarkIsFound) {
    for (const std::string& bytes :
         {"O\0k\0"s, "\0O\0k"s, "Ok\n"s, "\xEF\xBB\xBFOk"s, "\xFE"s, "\xFF\xFF"s, ""s}) {
        EXPECT_EQ(findingsInLicense(bytes),
                  Lines{"all/LA_de:0: license-encoding: "
                        "the file does not begin with a byte-order mark of UTF-16"});
    }
}

TEST_F(Resources, licenseOfAnOddLengthIsFound) {
    EXPECT_EQ(findingsInLicense(text_ + "x"),
              Lines{"all/LA_de:0: license-encoding: the file has an odd number of bytes"});
}

TEST_F(Resources, licenseWithoutTextIsFound) {
    EXPECT_EQ(
        findingsInLicense("\xFE\xFF"),
        Lines{"all/LA_de:0: license-encoding: the file has no text behind its byte-order mark"});
}

TEST_F(Resources, licenseWithBrokenSurrogatesIsFound) {
    for (const std::string& units : {"\xD8\0\0x"s, "\xDB\xFF"s, "\0x\xDC\0"s, "\xD8\0\xD8\0\xDC\0"s,
                                     "\xDC\0\xD8\0"s, "\xD8\0\xDC\0\xDF\xFF"s}) {
        EXPECT_EQ(findingsInLicense("\xFE\xFF" + units),
                  Lines{"all/LA_de:0: license-encoding: the file holds half a pair of surrogates"});
    }
}

TEST_F(Resources, licenseWithASecondMarkIsFound) {
    for (const std::string& bytes :
         {"\xFF\xFE\xFF\xFEO\0"s, "\xFE\xFF\xFE\xFF\0O"s, "\xFF\xFE\xFE\xFFO\0"s}) {
        EXPECT_EQ(findingsInLicense(bytes),
                  Lines{"all/LA_de:0: license-encoding: "
                        "the file has a second byte-order mark behind the first"});
    }
}

TEST_F(Resources, licenseWithAZeroIsFound) {
    for (const std::string& bytes : {"\xFF\xFE\0\0O\0\0\0"s, "\xFF\xFE\0\0"s, "\xFE\xFF\0O\0\0"s}) {
        EXPECT_EQ(findingsInLicense(bytes),
                  Lines{"all/LA_de:0: license-encoding: the file holds U+0000, as UTF-32 would"});
    }
}

TEST_F(Resources, licenseInEitherByteOrderPasses) {
    EXPECT_EQ(findingsInLicense("\xFE\xFF\0O\xD8\0\xDC\0\xDB\xFF\xDF\xFF\xD7\xFF\xE0\0"s), Lines{});
    EXPECT_EQ(findingsInLicense("\xFF\xFEO\0\0\xD8\0\xDC\xFF\xDB\xFF\xDF\xFF\xD7\0\xE0"s), Lines{});
    EXPECT_EQ(findingsInLicense("\xFF\xFE\xD8\0\xDC\0"s), Lines{}); // U+00D8, U+00DC
}
