#include "ResourcesFixture.h"

#include <filesystem>

using ResourcesTest = ResourcesFixture;

TEST_F(ResourcesTest, soundOnesPass) {
    EXPECT_EQ(faults({"all"}), Lines{});
}

TEST_F(ResourcesTest, everyLanguageIsHeldToTheEnglishKeys) {
    addLanguage("fr", {"Stop"});
    EXPECT_EQ(faults({"all"}), (Lines{"all/fr.lproj/Localizable.strings:0: missing-key: Start",
                                      "all/fr.lproj/Localizable.strings:1: unknown-key: "
                                      "not a key of the reference: Stop"}));
}

TEST_F(ResourcesTest, areHeldToTheReferenceThatIsNamed) {
    folder_.write("reference", stringsOf({"Stop"}));
    EXPECT_EQ(faults({"--reference", "reference", "all"}).size(), 4U);
    folder_.write("reference", stringsOf({"Start"}));
    EXPECT_EQ(faults({"--reference", "reference", "all"}), Lines{});
}

TEST_F(ResourcesTest, englishStringsAreCheckedToo) {
    folder_.write("all/en.lproj/Localizable.strings", "\n\"Start\" = \"100%\"\n");
    EXPECT_EQ(faults({"all"}), Lines{"all/en.lproj/Localizable.strings:2: single-percent: "
                                     "a percent sign is written doubled"});
}

TEST_F(ResourcesTest, languageWithoutLicenseIsFound) {
    std::filesystem::remove(folder_.path() / "all/LA_de");
    EXPECT_EQ(faults({"all"}),
              Lines{"all/LA_de:0: missing-license: the language has no licence file"});
}

TEST_F(ResourcesTest, otherFilesAreLeftAlone) {
    folder_.write("all/install", "\x80;");
    folder_.write("all/notes.lproj.txt", "x");
    folder_.write("all/images/LA_xx", "x");
    EXPECT_EQ(faults({"all"}), Lines{});
}

TEST_F(ResourcesTest, missingStringsFileIsFoundAndTheRestIsChecked) {
    std::filesystem::remove(folder_.path() / "all/de.lproj/Localizable.strings");
    addLanguage("fr", {"Start", "Stop"});
    EXPECT_EQ(faults({"all"}), (Lines{"all/de.lproj/Localizable.strings:0: unreadable-file: "
                                      "cannot read the file all/de.lproj/Localizable.strings",
                                      "all/fr.lproj/Localizable.strings:2: unknown-key: "
                                      "not a key of the reference: Stop"}));
}

TEST_F(ResourcesTest, folderThatTheProgramNeverOpensIsFound) {
    const std::string fault = ".lproj:0: language-folder: the program opens only folders, each "
                              "named by two lower-case letters";
    for (const std::string name : {"DE", "Base", "d", "deu", "pt_BR", "q9"}) {
        folder_.write("all/" + name + ".lproj/Localizable.strings", stringsOf({"Stop"}));
    }
    EXPECT_EQ(faults({"all"}), (Lines{"all/Base" + fault, "all/DE" + fault, "all/d" + fault,
                                      "all/deu" + fault, "all/pt_BR" + fault, "all/q9" + fault}));
}

TEST_F(ResourcesTest, languageThatIsNoFolderIsFound) {
    const std::string fault = ".lproj:0: language-folder: the program opens only folders, each "
                              "named by two lower-case letters";
    folder_.write("all/fr.lproj", "x");
    std::filesystem::create_symlink("nowhere", folder_.path() / "all/it.lproj");
    std::filesystem::create_symlink("sv.lproj", folder_.path() / "all/sv.lproj");
    EXPECT_EQ(faults({"all"}), (Lines{"all/fr" + fault, "all/it" + fault, "all/sv" + fault}));
}

TEST_F(ResourcesTest, linkToALanguageFolderIsOne) {
    std::filesystem::create_directory_symlink("de.lproj", folder_.path() / "all/nb.lproj");
    EXPECT_EQ(faults({"all"}),
              Lines{"all/LA_nb:0: missing-license: the language has no licence file"});
}

TEST_F(ResourcesTest, whatTheProgramIsShippedWithPasses) {
    EXPECT_EQ(faults({VEXORA_STAGED_RESOURCES}), Lines{});
}
