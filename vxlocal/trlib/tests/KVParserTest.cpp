#include "kvparser.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using VXLOCAL::Parser;
using VXLOCAL::TemporaryFolder;

namespace {

constexpr const char* filename = "Localizable.strings";

/// What the catalogue makes of a strings file.
struct Reading {
    const char* rule;
    std::string file;
    /// Keys as the program asks for them, with the answers.
    std::vector<std::pair<std::string, std::string>> messages;
};

const std::vector<Reading> readings = {
    {"an entry", R"("Install" = "Installieren")", {{"Install", "Installieren"}}},
    {"quote and semicolon behind the value stay",
     R"("Install" = "Installieren";)",
     {{"Install", R"(Installieren";)"}}},
    {"a space behind the closing quote keeps both",
     "\"Install\" = \"Installieren\" \n",
     {{"Install", "Installieren\" "}}},
    {"no entry without spaces around the equals sign",
     R"("Install"="Installieren")",
     {{"Install", "Install"}}},
    {"no look-up finds an indented line",
     R"(  "Install" = "Installieren")",
     {{"Install", "Install"}, {"  \"Install", "  \"Install"}}},
    {"no entry with the separator twice",
     R"("Install" = "Installieren" = "Installer")",
     {{"Install", "Install"}}},
    {"a second separator at the end of the line does not count",
     "\"Install\" = \"Installieren\" = \"\n\"Close\" = \"Beenden\" = \"\r\n",
     {{"Install", "Installieren"}, {"Close", "Close"}}},
    {"everything else is no entry",
     "\n// comment\n/* comment */\n# Heading\n[Section]\nInstall = Installieren\n\r\n"
     "\"Install\" =  \"a\"\n\"Install\"  = \"b\"\n\"Install\"\t=\t\"c\"\n\"Install\" = d\n"
     "\"Close\" = \"Beenden\"\n\n",
     {{"Install", "Install"}, {"Close", "Beenden"}}},
    {"an empty file", "", {{"Install", "Install"}}},
    {"the last line may lack its line feed, and each have a carriage return",
     "\"Install\" = \"Installieren\"\r\n\"Close\" = \"Beenden\"\r",
     {{"Install", "Installieren"}, {"Close", "Beenden"}}},
    {"carriage returns are dropped before quotes, and only at the ends of the value",
     "\"Install\" = \"\r\r\"Instal\rlieren\"\r\r\n\"Close\" = \"Beenden\r\"\n"
     "\"Start\r\" = \"Beginnen\"\n",
     {{"Install", "Instal\rlieren"}, {"Close", "Beenden\r"}, {"Start", "Start"}}},
    {"no entry with an empty value",
     "\"Install\" = \"\"\n\"Close\" = \"\r\n\"Start\" = \"\"\"\"\n",
     {{"Install", "Install"}, {"Close", "Close"}, {"Start", "Start"}}},
    {"no entry with an empty key",
     "\"\" = \"Installieren\"\n\" = \"Beenden\"\n\"\"\"\" = \"Start\"\n",
     {{"", ""}}},
    {"the last line of a key wins",
     "\"Install\" = \"Einrichten\"\n\"Close\" = \"Beenden\"\n\"Install\" = \"Installieren\"\n",
     {{"Install", "Installieren"}, {"Close", "Beenden"}}},
    {"any number of quotes is dropped at the ends",
     R"("""Install""" = """Installieren""")",
     {{"Install", "Installieren"}}},
    {"quotes are needed in the separator only",
     R"(Install" = "Installieren)",
     {{"Install", "Installieren"}}},
    {"a line counts from its first byte to its last",
     "\"Close\" = \"Beenden\"\nInstall\" = \"Installieren\nStart\" = \"Beginnen\n",
     {{"Close", "Beenden"}, {"Install", "Installieren"}, {"Start", "Beginnen"}}},
    {"quotes inside the value are written plainly",
     R"("Install" = "Jetzt "gleich" installieren")",
     {{"Install", R"(Jetzt "gleich" installieren)"}}},
    {"an escaped quote comes back as a lone backslash",
     R"("Install" = "Jetzt \"gleich\" installieren")",
     {{"Install", R"(Jetzt \gleich\ installieren)"}}},
    {"an escaped quote at the end of the value loses its quote",
     R"("Install" = "Installieren \"gleich\"")",
     {{"Install", R"(Installieren \gleich\)"}}},
    {"a byte-order mark belongs to the first key",
     "\xEF\xBB\xBF\"Install\" = \"Installieren\"\n\"Close\" = \"Beenden\"\n",
     {{"Install", "Install"}, {"Close", "Beenden"}}},
    {"a byte-order mark is a part of the key like any other",
     "\xEF\xBB\xBFInstall\" = \"Installieren\"\n",
     {{"\xEF\xBB\xBFInstall", "Installieren"}}},
    {"a line feed is written as backslash n",
     R"("Install\nnow" = "Jetzt\ninstallieren")",
     {{"Install\nnow", "Jetzt\ninstallieren"}}},
    {"every escape of a value",
     R"("Install" = "\a\b\f\n\r\t\v\x\\.\")",
     {{"Install", "\a\b\f\n\r\tv\\\\.\\"}}},
    {"every escape of a key",
     R"("<\a\b\t\n\v\f\r\"\\>" = "Installieren")",
     {{"<\a\b\t\n\v\f\r\"\\>", "Installieren"}}},
    {"a key written with its control character is not found",
     "\"Install\tnow\" = \"Installieren\"\n",
     {{"Install\tnow", "Install\tnow"}}},
    {"a quote or a backslash in a key is written with a backslash",
     "\"a\"b\" = \"quote\"\n\"a\\a\" = \"bell\"\n\"a\\qb\" = \"nothing\"\n",
     {{"a\"b", "a\"b"}, {"a\\a", "a\\a"}, {"a\a", "bell"}, {"a\\qb", "a\\qb"}}},
    {"a control character, its escape and the escape's two characters are three keys",
     "\"a\\tb\" = \"tab\"\n\"a\\\\tb\" = \"backslash\"\n\"a\tb\" = \"nothing\"\n",
     {{"a\tb", "tab"}, {"a\\tb", "backslash"}}},
    {"equals signs beside the separator are like other characters",
     "\"=\" = \"==\"\n\"a =\" = \"= b\"\n=\" = \"=\n\" = \" = \"c\n",
     {{"=", "="}, {"a =", "= b"}, {" = ", " = "}}},
};

class KVParser : public testing::Test {
protected:
    KVParser() { parser_.setLocaleDir(folder_.path().string()); }

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
    VXLOCAL::KVParser parser_{filename};
};

} // namespace

TEST_F(KVParser, readsEveryLineAsTheFormatSays) {
    for (const Reading& reading : readings) {
        const std::unique_ptr<Parser> parser = std::make_unique<VXLOCAL::KVParser>(filename);
        parser->setLocaleDir(folder_.path().string());
        folder_.write(filename, reading.file);
        parser->parse();
        for (const auto& [key, answer] : reading.messages) {
            EXPECT_EQ(parser->getMessage(key), answer) << reading.rule;
        }
    }
}

TEST_F(KVParser, lastOfManyLinesWithOneKeyWins) {
    std::string bytes;
    for (int i = 0; i < 1000; ++i) {
        bytes += "\"Key " + std::to_string(i % 7) + "\" = \"" + std::to_string(i) + "\"\n";
    }
    parse(bytes);
    for (int i = 993; i < 1000; ++i) {
        EXPECT_EQ(message("Key " + std::to_string(i % 7)), std::to_string(i));
    }
}

TEST_F(KVParser, keyThatIsNotInTheTableComesBackUnchanged) {
    parse("\"Install\" = \"Installieren\"\n");
    EXPECT_EQ(message("Open logs"), "Open logs");
    EXPECT_EQ(message("Open\nlogs\t\"\\\v"), "Open\nlogs\t\"\\\v");
    EXPECT_EQ(message(""), "");
}

TEST_F(KVParser, missingFileThrowsWithItsFullPath) {
    EXPECT_EQ(parseError(), "Could not open " + folder_.path().string() + "/" + filename + "\n");
}

TEST_F(KVParser, fifoThrowsAndIsNotWaitedFor) {
    ASSERT_EQ(mkfifo(path().c_str(), 0600), 0);
    alarm(600); // Who waits would do so for ever.
    EXPECT_EQ(parseError(), "Could not open " + path() + "\n");
    alarm(0);
}

TEST_F(KVParser, unreadableFileThrowsAndKeepsTheTable) {
    parse("\"Install\" = \"Installieren\"\n");
    std::filesystem::remove(path());
    std::filesystem::create_symlink(filename,
                                    path()); // a link to itself, which not even root can open
    EXPECT_EQ(parseError(), "Could not open " + path() + "\n");
    EXPECT_EQ(message("Install"), "Installieren");
}

TEST_F(KVParser, directoryInPlaceOfTheFileHoldsNoEntriesAndIsNoError) {
    parse("\"Install\" = \"Installieren\"\n");
    std::filesystem::remove(path());
    std::filesystem::create_directory(path());
    EXPECT_EQ(parseError(), "nothing thrown");
    EXPECT_EQ(message("Install"), "Installieren");
}

TEST_F(KVParser, fileIsClosedWhenItIsRead) {
    const auto lowestFreeDescriptor = [] {
        const int descriptor = open("/dev/null", O_RDONLY | O_CLOEXEC);
        close(descriptor);
        return descriptor;
    };
    const int before = lowestFreeDescriptor();
    parse("\"Install\" = \"Installieren\"\n");
    EXPECT_EQ(lowestFreeDescriptor(), before);
}

TEST_F(KVParser, fileMayHaveTheNumberOfAClosedStandardInput) {
    const int kept = dup(STDIN_FILENO);
    close(STDIN_FILENO);
    parse("\"Install\" = \"Installieren\"\n");
    EXPECT_EQ(message("Install"), "Installieren");
    EXPECT_EQ(fcntl(STDIN_FILENO, F_GETFD), -1);
    if (kept >= 0) {
        dup2(kept, STDIN_FILENO);
        close(kept);
    }
}

TEST_F(KVParser, tableIsEmptyBeforeTheFirstParse) {
    folder_.write(filename, "\"Install\" = \"Installieren\"\n");
    EXPECT_EQ(message("Install"), "Install");
    EXPECT_TRUE(parser_.isEmpty());
    parser_.parse();
    EXPECT_FALSE(parser_.isEmpty());
}

TEST_F(KVParser, secondParseMergesIntoTheTable) {
    parse("\"Close\" = \"Beenden\"\n\"Install\" = \"Installieren\"\n");
    parse("\"Install\" = \"Installer\"\n\"Start\" = \"Commencer\"\n");
    EXPECT_EQ(message("Close"), "Beenden");
    EXPECT_EQ(message("Install"), "Installer");
    EXPECT_EQ(message("Start"), "Commencer");
}

TEST_F(KVParser, zeroBytesAreBytes) {
    const std::string key("In\0stall", 8);
    const std::string value("Install\0ieren", 13);
    parse("\"" + key + "\" = \"" + value + "\"\n\"In\" = \"Hinein\"\n");
    EXPECT_EQ(message(key), value);
    EXPECT_EQ(message("In"), "Hinein");
}

TEST_F(KVParser, settingTheLocaleAloneReadsTheSameFile) {
    parse("\"Install\" = \"Installieren\"\n");
    parser_.setLocale("fr");
    folder_.write(filename, "\"Install\" = \"Installer\"\n");
    EXPECT_EQ(parseError(), "nothing thrown");
    EXPECT_EQ(message("Install"), "Installer");
}

TEST_F(KVParser, loadsAMillionEntriesInAnyOrder) {
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

TEST_F(KVParser, loadsALineOf64Megabytes) {
    constexpr std::size_t size = std::size_t{64} << 20;
    const std::string value(size, 'x');
    parse("\"Install\" = \"" + value + "\"\n\"Close\" = \"Beenden\"\n");
    EXPECT_TRUE(message("Install") == value);
    EXPECT_EQ(message("Close"), "Beenden");
}

TEST_F(KVParser, ignoresALineOf64MegabytesFullOfSeparators) {
    constexpr std::size_t size = std::size_t{64} << 20;
    std::string bytes;
    bytes.reserve(size + 64);
    while (bytes.size() < size) {
        bytes += "\" = \"";
    }
    parse(bytes + "\n\"Close\" = \"Beenden\"\n");
    EXPECT_EQ(message("Close"), "Beenden");
}
