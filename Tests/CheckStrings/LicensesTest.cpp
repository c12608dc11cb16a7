#include "ResourcesFixture.h"

#include <filesystem>

using namespace std::string_literals;

using LicensesTest = ResourcesFixture;

TEST_F(LicensesTest, mayBeALink) {
    std::filesystem::remove(folder_.path() / "all/LA_de");
    std::filesystem::create_symlink("LA_en", folder_.path() / "all/LA_de");
    EXPECT_EQ(faults({"all"}), Lines{});
}

TEST_F(LicensesTest, licenseWithoutLanguagePassesOrIsFoundLikeAnyOther) {
    folder_.write("all/LA_fr", text_);
    EXPECT_EQ(faults({"all"}), Lines{});
    folder_.write("all/LA_fr", "Ok");
    EXPECT_EQ(faults({"all"}), Lines{"all/LA_fr:0: license-encoding: "
                                     "the file does not begin with a byte-order mark of UTF-16"});
}

TEST_F(LicensesTest, licenseThatIsNoReadableFileIsFoundAndTheRestIsChecked) {
    const std::filesystem::path license = folder_.path() / "all/LA_de";
    const Lines expected = {"all/LA_de:0: unreadable-file: cannot read the file all/LA_de",
                            "all/LA_fr:0: license-encoding: the file has an odd number of bytes"};
    folder_.write("all/LA_fr", text_ + "x");
    std::filesystem::remove(license);
    std::filesystem::create_symlink("nowhere", license);
    EXPECT_EQ(faults({"all"}), expected);
    std::filesystem::remove(license);
    std::filesystem::create_symlink("LA_de", license);
    EXPECT_EQ(faults({"all"}), expected);
    std::filesystem::remove(license);
    std::filesystem::create_directory(license);
    EXPECT_EQ(faults({"all"}), expected);
}

TEST_F(LicensesTest, licenseWithoutUtf16MarkIsFound) {
    for (const std::string& bytes :
         {"O\0k\0"s, "\0O\0k"s, "Ok\n"s, "\xEF\xBB\xBFOk"s, "\xFE"s, "\xFF\xFF"s, ""s}) {
        EXPECT_EQ(faultsInLicense(bytes),
                  Lines{"all/LA_de:0: license-encoding: "
                        "the file does not begin with a byte-order mark of UTF-16"});
    }
}

TEST_F(LicensesTest, licenseOfAnOddLengthIsFound) {
    EXPECT_EQ(faultsInLicense(text_ + "x"),
              Lines{"all/LA_de:0: license-encoding: the file has an odd number of bytes"});
}

TEST_F(LicensesTest, licenseWithoutTextIsFound) {
    EXPECT_EQ(
        faultsInLicense("\xFE\xFF"),
        Lines{"all/LA_de:0: license-encoding: the file has no text behind its byte-order mark"});
}

TEST_F(LicensesTest, licenseWithBrokenSurrogatesIsFound) {
    for (const std::string& units : {"\xD8\0\0x"s, "\xDB\xFF"s, "\0x\xDC\0"s, "\xD8\0\xD8\0\xDC\0"s,
                                     "\xDC\0\xD8\0"s, "\xD8\0\xDC\0\xDF\xFF"s}) {
        EXPECT_EQ(faultsInLicense("\xFE\xFF" + units),
                  Lines{"all/LA_de:0: license-encoding: the file holds half a pair of surrogates"});
    }
}

TEST_F(LicensesTest, licenseWithASecondMarkIsFound) {
    for (const std::string& bytes :
         {"\xFF\xFE\xFF\xFEO\0"s, "\xFE\xFF\xFE\xFF\0O"s, "\xFF\xFE\xFE\xFFO\0"s}) {
        EXPECT_EQ(faultsInLicense(bytes),
                  Lines{"all/LA_de:0: license-encoding: "
                        "the file has a second byte-order mark behind the first"});
    }
}

TEST_F(LicensesTest, licenseWithAZeroIsFound) {
    for (const std::string& bytes : {"\xFF\xFE\0\0O\0\0\0"s, "\xFF\xFE\0\0"s, "\xFE\xFF\0O\0\0"s}) {
        EXPECT_EQ(faultsInLicense(bytes),
                  Lines{"all/LA_de:0: license-encoding: the file holds U+0000, as UTF-32 would"});
    }
}

TEST_F(LicensesTest, licenseInEitherByteOrderPasses) {
    EXPECT_EQ(faultsInLicense("\xFE\xFF\0O\xD8\0\xDC\0\xDB\xFF\xDF\xFF\xD7\xFF\xE0\0"s), Lines{});
    EXPECT_EQ(faultsInLicense("\xFF\xFEO\0\0\xD8\0\xDC\xFF\xDB\xFF\xDF\xFF\xD7\0\xE0"s), Lines{});
    EXPECT_EQ(faultsInLicense("\xFF\xFE\xD8\0\xDC\0"s), Lines{}); // U+00D8, U+00DC
}
