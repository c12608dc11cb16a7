#include "trtools.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using namespace VXLOCAL;
using Pieces = std::vector<std::string>;

namespace {

constexpr const char* pairSeparator = "\" = \"";

/// The bytes that escape() changes, and what it makes of them.
const std::vector<std::pair<std::string, std::string>> escapeTable = {
    {"\a", "\\a"}, {"\b", "\\b"}, {"\t", "\\t"},  {"\n", "\\n"},  {"\v", "\\v"},
    {"\f", "\\f"}, {"\r", "\\r"}, {"\"", "\\\""}, {"\\", "\\\\"},
};

/// Collects what is written and counts how often it is flushed.
class CountingBuffer : public std::stringbuf {
public:
    int flushes = 0;

protected:
    int sync() override {
        ++flushes;
        return 0;
    }
};

/// Puts a buffer under standard output, and the old buffer and format back at its end.
class StandardOutput {
public:
    explicit StandardOutput(std::streambuf& buffer)
        : buffer_(std::cout.rdbuf(&buffer)), flags_(std::cout.flags()) {}
    StandardOutput(const StandardOutput&) = delete;
    StandardOutput& operator=(const StandardOutput&) = delete;
    ~StandardOutput() {
        std::cout.rdbuf(buffer_);
        std::cout.flags(flags_);
    }

private:
    std::streambuf* buffer_;
    std::ios_base::fmtflags flags_;
};

} // namespace

TEST(TRTools, splitsTheEmptyTextIntoNoPieces) {
    EXPECT_EQ(TRTools::split("", "_"), Pieces());
}

TEST(TRTools, splitsALocaleNameIntoLanguageAndRegion) {
    EXPECT_EQ(TRTools::split("pt_BR", "_"), (Pieces{"pt", "BR"}));
}

TEST(TRTools, splitDropsATrailingEmptyPiece) {
    EXPECT_EQ(TRTools::split("a_", "_"), Pieces{"a"});
    EXPECT_EQ(TRTools::split("a__", "_"), (Pieces{"a", ""}));
}

TEST(TRTools, splitsALoneSeparatorIntoOneEmptyPiece) {
    EXPECT_EQ(TRTools::split("_", "_"), Pieces{""});
}

TEST(TRTools, splitKeepsLeadingAndInnerEmptyPieces) {
    EXPECT_EQ(TRTools::split("_BR", "_"), (Pieces{"", "BR"}));
    EXPECT_EQ(TRTools::split("a__b", "_"), (Pieces{"a", "", "b"}));
}

TEST(TRTools, splitOfATextWithoutTheSeparatorIsTheText) {
    EXPECT_EQ(TRTools::split("pt-BR", "_"), Pieces{"pt-BR"});
    EXPECT_EQ(TRTools::split("a", "ab"), Pieces{"a"});
}

TEST(TRTools, splitsAtWholeOccurrencesOfALongSeparatorOnly) {
    EXPECT_EQ(TRTools::split("\"a\" = \"b\"", pairSeparator), (Pieces{"\"a", "b\""}));
    EXPECT_EQ(TRTools::split("\"a\"= \"b\"", pairSeparator), Pieces{"\"a\"= \"b\""});
    EXPECT_EQ(TRTools::split("\" = ", pairSeparator), Pieces{"\" = "});
}

TEST(TRTools, splitFindsOccurrencesFromTheFrontWithoutOverlap) {
    EXPECT_EQ(TRTools::split("\" = \" = \"", pairSeparator), (Pieces{"", " = \""}));
    EXPECT_EQ(TRTools::split("aaa", "aa"), (Pieces{"", "a"}));
}

TEST(TRTools, splitTakesZeroBytesAsBytes) {
    const std::string zero(1, '\0');
    EXPECT_EQ(TRTools::split("a" + zero + "b", zero), (Pieces{"a", "b"}));
    EXPECT_EQ(TRTools::split("a" + zero + "_b", "_"), (Pieces{"a" + zero, "b"}));
}

TEST(TRTools, splitsALongTextIntoMillionsOfPieces) {
    constexpr std::size_t count = 2'000'000;
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += "a_";
    }
    EXPECT_EQ(TRTools::split(text, "_"), Pieces(count, "a"));
}

TEST(TRTools, trimmingQuotesFromTwoQuotesLeavesNothing) {
    EXPECT_EQ(TRTools::trim("\"\"", "\"", false), "");
}

TEST(TRTools, trimmingWhitespaceNeedsNoFurtherCharacters) {
    EXPECT_EQ(TRTools::trim("  x  ", "", true), "x");
}

TEST(TRTools, trimmingQuotesLeavesSpaces) {
    EXPECT_EQ(TRTools::trim("  x", "\"", false), "  x");
}

TEST(TRTools, trimmingAnEmptySetLeavesTheTextUnchanged) {
    EXPECT_EQ(TRTools::trim(" \"x\" ", "", false), " \"x\" ");
    EXPECT_EQ(TRTools::trim("", "", false), "");
}

TEST(TRTools, trimmingRemovesAllSixKindsOfWhitespaceAndTheCharacters) {
    EXPECT_EQ(TRTools::trim(" \t\n\r\f\v\"x\"\v\f\r\n\t ", "\"", true), "x");
    EXPECT_EQ(TRTools::trim(" \t\n\r\f\v", "", true), "");
    EXPECT_EQ(TRTools::trim("\b x", "", true), "\b x");
}

TEST(TRTools, trimmingNeverTouchesTheInside) {
    EXPECT_EQ(TRTools::trim("\"a \" b\"", "\"", true), "a \" b");
}

TEST(TRTools, trimmingComparesBytes) {
    EXPECT_EQ(TRTools::trim("\xC3\xA4x", "\xC3", false), "\xA4x");
    EXPECT_EQ(TRTools::trim(std::string("\0x\0", 3), std::string(1, '\0'), false), "x");
}

TEST(TRTools, escapesALineFeedAsBackslashN) {
    EXPECT_EQ(TRTools::escape("a\nb"), "a\\nb");
}

TEST(TRTools, unescapesBackslashNAsALineFeed) {
    EXPECT_EQ(TRTools::unescape("a\\nb"), "a\nb");
}

TEST(TRTools, unescapesBackslashVAsTheLetter) {
    EXPECT_EQ(TRTools::unescape("\\v"), "v");
}

TEST(TRTools, unescapeKeepsASingleTrailingBackslash) {
    EXPECT_EQ(TRTools::unescape("\\"), "\\");
    EXPECT_EQ(TRTools::unescape("a\\"), "a\\");
}

TEST(TRTools, escapesEveryByteOfTheTableAndNoOther) {
    for (int value = 0; value < 256; ++value) {
        const std::string byte(1, static_cast<char>(value));
        std::string expected = byte;
        for (const auto& [plain, escaped] : escapeTable) {
            expected = plain == byte ? escaped : expected;
        }
        EXPECT_EQ(TRTools::escape(byte), expected) << value;
        EXPECT_EQ(TRTools::needsEscape(byte), expected != byte) << value;
    }
}

TEST(TRTools, needsEscapeLooksAtEveryByte) {
    EXPECT_FALSE(TRTools::needsEscape(""));
    EXPECT_FALSE(TRTools::needsEscape("Open logs, \xC3\xA4"));
    EXPECT_TRUE(TRTools::needsEscape("Open logs\t"));
    EXPECT_TRUE(TRTools::needsEscape("\"Open logs"));
}

TEST(TRTools, unescapesTheSevenLettersAndDropsEveryOtherByte) {
    const std::string letters = "abfnrtv";
    const std::string meanings = "\a\b\f\n\r\tv";
    for (int value = 0; value < 256; ++value) {
        const char byte = static_cast<char>(value);
        const std::size_t letter = letters.find(byte);
        const char expected = letter == std::string::npos ? '\\' : meanings[letter];
        EXPECT_EQ(TRTools::unescape(std::string{'\\', byte}), std::string(1, expected)) << value;
    }
}

TEST(TRTools, unescapeConsumesABackslashTogetherWithTheByteBehindIt) {
    EXPECT_EQ(TRTools::unescape("\\\\n"), "\\n");
    EXPECT_EQ(TRTools::unescape("a\\\"b"), "a\\b");
    EXPECT_EQ(TRTools::unescape("\\\\\\"), "\\\\");
}

TEST(TRTools, unescapeUndoesEscapeButForVerticalTabAndDoubleQuote) {
    for (const std::string text : {"\a\b\t\n\f\r", "\\", "\\n", "\\\\x"}) {
        EXPECT_EQ(TRTools::unescape(TRTools::escape(text)), text);
    }
    EXPECT_EQ(TRTools::unescape(TRTools::escape("\v")), "v");
    EXPECT_EQ(TRTools::unescape(TRTools::escape("\"")), "\\");
}

TEST(TRTools, localeCountryOfTheEmptyNameIsEmpty) {
    EXPECT_EQ(TRTools::localeCountry(""), "");
}

TEST(TRTools, localeHasRegionIsFalseForTheEmptyName) {
    EXPECT_FALSE(TRTools::localeHasRegion(""));
}

TEST(TRTools, localeCountryIsTheLanguage) {
    EXPECT_EQ(TRTools::localeCountry("pt_BR"), "pt");
    EXPECT_EQ(TRTools::localeCountry("de"), "de");
    EXPECT_EQ(TRTools::localeCountry("_BR"), "");
    EXPECT_EQ(TRTools::localeCountry("_"), "");
    EXPECT_EQ(TRTools::localeCountry("pt-BR"), "pt-BR");
}

TEST(TRTools, localeHasRegionWhenThereIsMoreThanOnePiece) {
    EXPECT_TRUE(TRTools::localeHasRegion("pt_BR"));
    EXPECT_TRUE(TRTools::localeHasRegion("_BR"));
    EXPECT_TRUE(TRTools::localeHasRegion("pt__"));
    EXPECT_FALSE(TRTools::localeHasRegion("pt"));
    EXPECT_FALSE(TRTools::localeHasRegion("pt_"));
    EXPECT_FALSE(TRTools::localeHasRegion("pt-BR"));
}

TEST(TRTools, dirExistsIsFalseForARegularFile) {
    const TemporaryFolder folder;
    const std::string file = folder.write("file", "").string();
    EXPECT_FALSE(TRTools::dirExists(file));
    EXPECT_TRUE(TRTools::pathExists(file));
}

TEST(TRTools, pathExistsAndDirExistsAreFalseForAMissingPath) {
    const TemporaryFolder folder;
    const std::string missing = (folder.path() / "missing").string();
    EXPECT_FALSE(TRTools::pathExists(missing));
    EXPECT_FALSE(TRTools::dirExists(missing));
    EXPECT_FALSE(TRTools::pathExists(""));
    EXPECT_FALSE(TRTools::dirExists(""));
}

TEST(TRTools, pathExistsAndDirExistsAreTrueForADirectory) {
    const TemporaryFolder folder;
    EXPECT_TRUE(TRTools::pathExists(folder.path().string()));
    EXPECT_TRUE(TRTools::dirExists(folder.path().string()));
}

TEST(TRTools, pathExistsAndDirExistsFollowSymbolicLinks) {
    const TemporaryFolder folder;
    const std::string link = (folder.path() / "link").string();
    const std::string broken = (folder.path() / "broken").string();
    std::filesystem::create_directory_symlink(folder.path(), link);
    std::filesystem::create_symlink("missing", broken);
    EXPECT_TRUE(TRTools::dirExists(link));
    EXPECT_FALSE(TRTools::pathExists(broken));
}

TEST(TRTools, dirExistsTestsOneBitThatSocketsHaveToo) {
    const TemporaryFolder folder;
    const std::string path = (folder.path() / "socket").string();
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.size(), sizeof(address.sun_path));
    path.copy(address.sun_path, path.size());
    const int descriptor = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_GE(descriptor, 0);
    const int bound = bind(descriptor, reinterpret_cast<sockaddr*>(&address), sizeof(address));
    close(descriptor);
    ASSERT_EQ(bound, 0);
    EXPECT_TRUE(TRTools::dirExists(path));
}

TEST(TRTools, printBytesWritesTheTextAndEachByteOnItsOwnFlushedLine) {
    CountingBuffer buffer;
    {
        const StandardOutput redirected(buffer);
        TRTools::printBytes("a1\xC3\xA4");
    }
    EXPECT_EQ(buffer.str(), "Printing bytes of: a1\xC3\xA4\na\n1\n\xC3\n\xA4\n");
    EXPECT_EQ(buffer.flushes, 5);
}

TEST(TRTools, printBytesLeavesStandardOutputInHexadecimal) {
    CountingBuffer buffer;
    {
        const StandardOutput redirected(buffer);
        std::cout << std::dec;
        TRTools::printBytes("a");
        std::cout << 255;
    }
    EXPECT_EQ(buffer.str(), "Printing bytes of: a\na\nff");
}

TEST(TRTools, printBytesOfTheEmptyTextLeavesTheNumberBaseAlone) {
    CountingBuffer buffer;
    {
        const StandardOutput redirected(buffer);
        std::cout << std::dec;
        TRTools::printBytes("");
        std::cout << 255;
    }
    EXPECT_EQ(buffer.str(), "Printing bytes of: \n255");
}
