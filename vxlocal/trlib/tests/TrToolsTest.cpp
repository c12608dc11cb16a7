#include "trtools.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstddef>
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

TEST(TRTools, splitsAtWholeOccurrencesFromTheFrontAndDropsATrailingEmptyPiece) {
    struct Case {
        std::string text;
        std::string separator;
        Pieces pieces;
    };
    const std::string zero(1, '\0');
    const std::vector<Case> cases = {
        {"", "_", {}},
        {"pt_BR", "_", {"pt", "BR"}},
        {"pt-BR", "_", {"pt-BR"}},
        {"a_", "_", {"a"}},
        {"a__", "_", {"a", ""}},
        {"_", "_", {""}},
        {"_BR", "_", {"", "BR"}},
        {"a__b", "_", {"a", "", "b"}},
        {"a", "ab", {"a"}},
        {"aaa", "aa", {"", "a"}},
        {"\"a\" = \"b\"", pairSeparator, {"\"a", "b\""}},
        {"\"a\"= \"b\"", pairSeparator, {"\"a\"= \"b\""}},
        {"\" = ", pairSeparator, {"\" = "}},
        {"\" = \" = \"", pairSeparator, {"", " = \""}},
        {"a" + zero + "b", zero, {"a", "b"}},
        {"a" + zero + "_b", "_", {"a" + zero, "b"}},
    };
    for (const Case& given : cases) {
        EXPECT_EQ(TRTools::split(given.text, given.separator), given.pieces) << given.text;
    }
}

TEST(TRTools, splitsALongTextIntoMillionsOfPieces) {
    constexpr std::size_t count = 2'000'000;
    std::string text;
    for (std::size_t i = 0; i < count; ++i) {
        text += "a_";
    }
    EXPECT_EQ(TRTools::split(text, "_"), Pieces(count, "a"));
}

TEST(TRTools, trimsBytesOfTheSetFromBothEndsOnly) {
    struct Case {
        std::string text;
        std::string characters;
        bool whitespace;
        std::string trimmed;
    };
    const std::vector<Case> cases = {
        {"\"\"", "\"", false, ""},
        {"  x  ", "", true, "x"},
        {"  x", "\"", false, "  x"},
        {" \"x\" ", "", false, " \"x\" "},
        {"", "", false, ""},
        {" \t\n\r\f\v\"x\"\v\f\r\n\t ", "\"", true, "x"},
        {" \t\n\r\f\v", "", true, ""},
        {"\b x", "", true, "\b x"},
        {"\"a \" b\"", "\"", true, "a \" b"},
        {"\xC3\xA4x", "\xC3", false, "\xA4x"},
        {std::string("\0x\0", 3), std::string(1, '\0'), false, "x"},
    };
    for (const Case& given : cases) {
        EXPECT_EQ(TRTools::trim(given.text, given.characters, given.whitespace), given.trimmed)
            << given.text;
    }
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
        EXPECT_EQ(TRTools::escape("a" + byte + "b"), "a" + expected + "b") << value;
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
        EXPECT_EQ(TRTools::unescape({'a', '\\', byte, 'b'}), (std::string{'a', expected, 'b'}))
            << value;
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

TEST(TRTools, localeCountryIsTheLanguage) {
    EXPECT_EQ(TRTools::localeCountry(""), "");
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
    EXPECT_FALSE(TRTools::localeHasRegion(""));
    EXPECT_FALSE(TRTools::localeHasRegion("pt"));
    EXPECT_FALSE(TRTools::localeHasRegion("pt_"));
    EXPECT_FALSE(TRTools::localeHasRegion("pt-BR"));
}

TEST(TRTools, dirExistsIsTrueForADirectoryAndFalseForARegularFile) {
    const TemporaryFolder folder;
    const std::string file = folder.write("file", "").string();
    EXPECT_FALSE(TRTools::dirExists(file));
    std::filesystem::permissions(file, std::filesystem::perms::all);
    EXPECT_FALSE(TRTools::dirExists(file));
    EXPECT_TRUE(TRTools::dirExists(folder.path().string()));
    EXPECT_TRUE(TRTools::pathExists(folder.path().string()));
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

TEST(TRTools, pathExistsAndDirExistsFollowSymbolicLinks) {
    const TemporaryFolder folder;
    const std::string link = (folder.path() / "link").string();
    const std::string broken = (folder.path() / "broken").string();
    std::filesystem::create_directory_symlink(folder.path(), link);
    std::filesystem::create_symlink("missing", broken);
    EXPECT_TRUE(TRTools::dirExists(link));
    EXPECT_TRUE(TRTools::pathExists(link));
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

TEST(TRTools, printBytesWritesTheTextAndEachByteOnItsOwnFlushedLineAndLeavesHexadecimal) {
    CountingBuffer buffer;
    {
        const StandardOutput redirected(buffer);
        std::cout << std::dec;
        TRTools::printBytes("a1\xC3\xA4");
        std::cout << 255;
    }
    EXPECT_EQ(buffer.str(), "Printing bytes of: a1\xC3\xA4\na\n1\n\xC3\n\xA4\nff");
    EXPECT_EQ(buffer.flushes, 5);
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
