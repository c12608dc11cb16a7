#include "kvparser.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

using namespace VXLOCAL;

namespace {

constexpr const char* filename = "Localizable.strings";

class KVParserTest : public testing::Test {
protected:
    KVParserTest() { parser_.setLocaleDir(folder_.path().string()); }

    /// Has the catalogue read these bytes on top of what it holds.
    void parse(std::string_view bytes) {
        folder_.write(filename, bytes);
        parser_.parse();
    }

    std::string message(const std::string& key) const { return parser_.getMessage(key); }

    /// The text that parse() throws, or "nothing thrown".
    std::string parseError() {
        try {
            parser_.parse();
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "nothing thrown";
    }

    std::string path() const { return parser_.localeFile(""); }

    TemporaryFolder folder_;
    KVParser parser_{filename};
};

} // namespace

TEST_F(KVParserTest, storesKeyAndValueOfAnEntryLine) {
    parse("\"Install\" = \"Installieren\"\n");
    EXPECT_EQ(message("Install"), "Installieren");
}

TEST_F(KVParserTest, keepsQuoteAndSemicolonBehindTheValue) {
    parse("\"Install\" = \"Installieren\";\n");
    EXPECT_EQ(message("Install"), "Installieren\";");
}

TEST_F(KVParserTest, ignoresALineWithoutSpacesAroundTheEqualsSign) {
    parse("\"Install\"=\"Installieren\"\n");
    EXPECT_EQ(message("Install"), "Install");
}

TEST_F(KVParserTest, keyOfAnIndentedLineMatchesNoLookUp) {
    parse("  \"Install\" = \"Installieren\"\n");
    EXPECT_EQ(message("Install"), "Install");
    EXPECT_EQ(message("  \"Install"), "  \"Install");
}

TEST_F(KVParserTest, ignoresALineWithTheSeparatorTwice) {
    parse("\"Install\" = \"Installieren\" = \"Installer\"\n");
    EXPECT_EQ(message("Install"), "Install");
}

TEST_F(KVParserTest, lineFeedInKeyAndValueIsWrittenAsBackslashN) {
    parse("\"Install\\nnow\" = \"Jetzt\\ninstallieren\"\n");
    EXPECT_EQ(message("Install\nnow"), "Jetzt\ninstallieren");
}

TEST_F(KVParserTest, escapedQuoteInAValueComesBackAsALoneBackslash) {
    parse("\"Install\" = \"Jetzt \\\"gleich\\\" installieren\"\n");
    EXPECT_EQ(message("Install"), "Jetzt \\gleich\\ installieren");
}

TEST_F(KVParserTest, valueOfALineWithCarriageReturnLacksIt) {
    parse("\"Install\" = \"Installieren\"\r\n\"Close\" = \"Beenden\"\r");
    EXPECT_EQ(message("Install"), "Installieren");
    EXPECT_EQ(message("Close"), "Beenden");
}

TEST_F(KVParserTest, ignoresALineWithAnEmptyValue) {
    parse("\"Install\" = \"\"\n\"Close\" = \"\r\n\"Start\" = \"\"\"\"\n");
    EXPECT_EQ(message("Install"), "Install");
    EXPECT_EQ(message("Close"), "Close");
    EXPECT_EQ(message("Start"), "Start");
}

TEST_F(KVParserTest, ignoresALineWithAnEmptyKey) {
    parse("\"\" = \"Installieren\"\n\" = \"Beenden\"\n\"\"\"\" = \"Start\"\n");
    EXPECT_EQ(message(""), "");
}

TEST_F(KVParserTest, secondOfTwoLinesWithOneKeyWins) {
    parse(
        "\"Install\" = \"Einrichten\"\n\"Close\" = \"Beenden\"\n\"Install\" = \"Installieren\"\n");
    EXPECT_EQ(message("Install"), "Installieren");
    EXPECT_EQ(message("Close"), "Beenden");
}

TEST_F(KVParserTest, lastOfManyLinesWithOneKeyWins) {
    std::string bytes;
    for (int i = 0; i < 1000; ++i) {
        bytes += "\"Key " + std::to_string(i % 7) + "\" = \"" + std::to_string(i) + "\"\n";
    }
    parse(bytes);
    for (int i = 993; i < 1000; ++i) {
        EXPECT_EQ(message("Key " + std::to_string(i % 7)), std::to_string(i));
    }
}

TEST_F(KVParserTest, keyThatIsNotInTheTableComesBackUnchanged) {
    parse("\"Install\" = \"Installieren\"\n");
    EXPECT_EQ(message("Open logs"), "Open logs");
    EXPECT_EQ(message("Open\nlogs\t\"\\\v"), "Open\nlogs\t\"\\\v");
    EXPECT_EQ(message(""), "");
}

TEST_F(KVParserTest, missingFileThrowsWithItsFullPath) {
    EXPECT_EQ(parseError(), "Could not open " + folder_.path().string() + "/" + filename + "\n");
}

TEST_F(KVParserTest, unreadableFileThrowsAndKeepsTheTable) {
    parse("\"Install\" = \"Installieren\"\n");
    std::filesystem::remove(path());
    std::filesystem::create_symlink(filename,
                                    path()); // a link to itself, which not even root can open
    EXPECT_EQ(parseError(), "Could not open " + path() + "\n");
    EXPECT_EQ(message("Install"), "Installieren");
}

TEST_F(KVParserTest, directoryInPlaceOfTheFileHoldsNoEntriesAndIsNoError) {
    parse("\"Install\" = \"Installieren\"\n");
    std::filesystem::remove(path());
    std::filesystem::create_directory(path());
    EXPECT_EQ(parseError(), "nothing thrown");
    EXPECT_EQ(message("Install"), "Installieren");
}

TEST_F(KVParserTest, tableIsEmptyBeforeTheFirstParse) {
    folder_.write(filename, "\"Install\" = \"Installieren\"\n");
    EXPECT_EQ(message("Install"), "Install");
}

TEST_F(KVParserTest, emptyFileHoldsNoEntries) {
    parse("");
    EXPECT_EQ(message("Install"), "Install");
}

TEST_F(KVParserTest, secondParseMergesIntoTheTable) {
    parse("\"Close\" = \"Beenden\"\n\"Install\" = \"Installieren\"\n");
    parse("\"Install\" = \"Installer\"\n\"Start\" = \"Commencer\"\n");
    EXPECT_EQ(message("Close"), "Beenden");
    EXPECT_EQ(message("Install"), "Installer");
    EXPECT_EQ(message("Start"), "Commencer");
}

TEST_F(KVParserTest, readsALastLineWithoutLineFeed) {
    parse("\"Close\" = \"Beenden\"\n\"Install\" = \"Installieren\"");
    EXPECT_EQ(message("Install"), "Installieren");
}

TEST_F(KVParserTest, ignoresEveryLineThatIsNotAnEntry) {
    parse("\n// comment\n/* comment */\n# Heading\n[Section]\nInstall = Installieren\n\r\n"
          "\"Install\" =  \"a\"\n\"Install\"  = \"b\"\n\"Install\"\t=\t\"c\"\n\"Install\" = d\n"
          "\"Close\" = \"Beenden\"\n\n");
    EXPECT_EQ(message("Install"), "Install");
    EXPECT_EQ(message("Close"), "Beenden");
}

TEST_F(KVParserTest, byteOrderMarkBelongsToTheFirstKey) {
    const std::string mark = "\xEF\xBB\xBF";
    parse(mark + "\"Install\" = \"Installieren\"\n\"Close\" = \"Beenden\"\n");
    EXPECT_EQ(message("Install"), "Install");
    EXPECT_EQ(message("Close"), "Beenden");
    parse(mark + "Install\" = \"Installieren\"\n");
    EXPECT_EQ(message(mark + "Install"), "Installieren");
}

TEST_F(KVParserTest, dropsAnyNumberOfQuotesAtTheEnds) {
    parse("\"\"\"Install\"\"\" = \"\"\"Installieren\"\"\"\n");
    EXPECT_EQ(message("Install"), "Installieren");
}

TEST_F(KVParserTest, keepsPlainQuotesInsideTheValue) {
    parse("\"Install\" = \"Jetzt \"gleich\" installieren\"\n");
    EXPECT_EQ(message("Install"), "Jetzt \"gleich\" installieren");
}

TEST_F(KVParserTest, escapedQuoteAtTheEndOfTheValueLosesItsQuoteOnly) {
    parse("\"Install\" = \"Installieren \\\"gleich\\\"\"\n");
    EXPECT_EQ(message("Install"), "Installieren \\gleich\\");
}

TEST_F(KVParserTest, secondSeparatorAtTheEndOfTheLineDoesNotCount) {
    parse("\"Install\" = \"Installieren\" = \"\n\"Close\" = \"Beenden\" = \"\r\n");
    EXPECT_EQ(message("Install"), "Installieren");
    EXPECT_EQ(message("Close"), "Close");
}

TEST_F(KVParserTest, carriageReturnsAreDroppedBeforeQuotesAndOnlyAtTheEnds) {
    parse("\"Install\" = \"\r\r\"Instal\rlieren\"\r\r\n\"Close\" = \"Beenden\r\"\n"
          "\"Start\r\" = \"Beginnen\"\n");
    EXPECT_EQ(message("Install"), "Instal\rlieren");
    EXPECT_EQ(message("Close"), "Beenden\r");
    EXPECT_EQ(message("Start"), "Start");
}

TEST_F(KVParserTest, spaceBehindTheClosingQuoteKeepsBoth) {
    parse("\"Install\" = \"Installieren\" \n");
    EXPECT_EQ(message("Install"), "Installieren\" ");
}

TEST_F(KVParserTest, quotesAreNeededOnlyInTheSeparator) {
    parse("Install\" = \"Installieren\n");
    EXPECT_EQ(message("Install"), "Installieren");
}

TEST_F(KVParserTest, interpretsEveryEscapeOfAValue) {
    parse("\"Install\" = \"\\a\\b\\f\\n\\r\\t\\v\\x\\\\.\\\"\n");
    EXPECT_EQ(message("Install"), "\a\b\f\n\r\tv\\\\.\\");
}

TEST_F(KVParserTest, findsKeysWithEveryByteThatIsEscaped) {
    parse("\"<\\a\\b\\t\\n\\v\\f\\r\\\"\\\\>\" = \"Installieren\"\n");
    EXPECT_EQ(message("<\a\b\t\n\v\f\r\"\\>"), "Installieren");
}

TEST_F(KVParserTest, keyWrittenWithItsControlCharacterIsNotFound) {
    parse("\"Install\tnow\" = \"Installieren\"\n");
    EXPECT_EQ(message("Install\tnow"), "Install\tnow");
}

TEST_F(KVParserTest, zeroBytesAreBytes) {
    const std::string key("In\0stall", 8);
    const std::string value("Install\0ieren", 13);
    parse("\"" + key + "\" = \"" + value + "\"\n\"In\" = \"Hinein\"\n");
    EXPECT_EQ(message(key), value);
    EXPECT_EQ(message("In"), "Hinein");
}

TEST_F(KVParserTest, findsKeysOfEveryByteBesideTheirNeighbours) {
    std::string bytes;
    for (int value = 255; value >= 0; --value) {
        if (value != '\n' && value != '"') {
            bytes += "\"k" + std::string(1, static_cast<char>(value)) + "\" = \"" +
                     std::to_string(value) + "\"\n\"k" + std::string(2, static_cast<char>(value)) +
                     "\" = \"twice " + std::to_string(value) + "\"\n";
        }
    }
    parse(bytes + "\"k\" = \"none\"\n");
    EXPECT_EQ(message("k"), "none");
    EXPECT_EQ(message("k "), "32");
    EXPECT_EQ(message("k~~"), "twice 126");
    EXPECT_EQ(message("k\x7F"), "127");
    EXPECT_EQ(message("k\x80"), "128");
    EXPECT_EQ(message("k\xFF\xFF"), "twice 255");
    EXPECT_EQ(message(std::string("k\0", 2)), "0");
}

TEST_F(KVParserTest, settingTheLocaleAloneReadsTheSameFile) {
    parse("\"Install\" = \"Installieren\"\n");
    parser_.setLocale("fr");
    folder_.write(filename, "\"Install\" = \"Installer\"\n");
    EXPECT_EQ(parseError(), "nothing thrown");
    EXPECT_EQ(message("Install"), "Installer");
}

TEST_F(KVParserTest, isACatalogueThroughItsBase) {
    folder_.write(filename, "\"Install\" = \"Installieren\"\n");
    const std::unique_ptr<Parser> parser = std::make_unique<KVParser>(filename);
    parser->setLocaleDir(folder_.path().string());
    parser->parse();
    EXPECT_EQ(parser->getMessage("Install"), "Installieren");
}

TEST_F(KVParserTest, loadsAMillionEntriesInAnyOrder) {
    constexpr std::size_t count = 1'000'000;
    constexpr std::size_t step = 611'953; // prime to the count, so that every number comes up once
    std::string bytes;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string number = std::to_string(i * step % count);
        bytes += "\"Message " + number + "\" = \"Nachricht " + number + "\"\n";
    }
    parse(bytes);
    std::size_t found = 0;
    for (std::size_t i = 0; i < count; i += 7) {
        const std::string number = std::to_string(i);
        found += message("Message " + number) == "Nachricht " + number;
    }
    EXPECT_EQ(found, (count + 6) / 7);
    EXPECT_EQ(message("Message 1000000"), "Message 1000000");
}

TEST_F(KVParserTest, loadsALineOf64Megabytes) {
    constexpr std::size_t size = std::size_t{64} << 20;
    const std::string value(size, 'x');
    parse("\"Install\" = \"" + value + "\"\n\"Close\" = \"Beenden\"\n");
    EXPECT_TRUE(message("Install") == value);
    EXPECT_EQ(message("Close"), "Beenden");
}

TEST_F(KVParserTest, ignoresALineOf64MegabytesFullOfSeparators) {
    constexpr std::size_t size = std::size_t{64} << 20;
    std::string bytes;
    bytes.reserve(size + 64);
    while (bytes.size() < size) {
        bytes += "\" = \"";
    }
    parse(bytes + "\n\"Close\" = \"Beenden\"\n");
    EXPECT_EQ(message("Close"), "Beenden");
}
