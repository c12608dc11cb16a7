// How a catalogue finds keys: whatever their bytes, their number and their hashes are.
#include "kvparser.h"

#include "TemporaryFolder.h"
#include "trtools.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

using namespace VXLOCAL;

namespace {

std::string entryLine(const std::string& key, const std::string& value) {
    return "\"" + key + "\" = \"" + value + "\"\n";
}

class KVParserIndex : public testing::Test {
protected:
    /// Has the catalogue read these bytes on top of what it holds.
    void parse(const std::string& bytes) { parse(parser_, bytes); }

    void parse(KVParser& parser, const std::string& bytes) {
        parser.setLocaleDir(folder_.write(filename, bytes).parent_path().string());
        parser.parse();
    }

    std::string message(const std::string& key) const { return parser_.getMessage(key); }

    static constexpr const char* filename = "Localizable.strings";
    TemporaryFolder folder_;
    KVParser parser_{filename};
};

} // namespace

TEST_F(KVParserIndex, findsKeysOfEveryByteBesideTheirNeighbours) {
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

TEST_F(KVParserIndex, holdsAnyNumberOfEntriesAndMergesAnyNumberMore) {
    for (const int count : {0, 1, 2, 3, 4, 7, 8, 9, 64, 1000}) {
        KVParser parser(filename);
        for (const int start : {0, count / 2}) {
            std::string bytes;
            for (int i = start; i < start + count; ++i) {
                bytes += entryLine(std::to_string(i),
                                   std::to_string(start) + " to " + std::to_string(i));
            }
            parse(parser, bytes);
        }
        for (int i = 0; i < count + count / 2; ++i) {
            const int start = i < count / 2 ? 0 : count / 2;
            EXPECT_EQ(parser.getMessage(std::to_string(i)),
                      std::to_string(start) + " to " + std::to_string(i));
        }
        const std::string behind = std::to_string(count + count / 2);
        EXPECT_EQ(parser.getMessage(behind), behind);
    }
}

TEST_F(KVParserIndex, keysThatBeginAlikeAreToldApartAtAnyLength) {
    std::string bytes;
    for (const std::string value : {"first ", "last "}) {
        for (int length = 200; length > 0; --length) {
            const std::string key(static_cast<std::size_t>(length), 'x');
            bytes += entryLine(key, value + std::to_string(length));
            bytes += entryLine(key + '\0', value + "zero " + std::to_string(length));
            bytes += entryLine(key + 'y', value + "y " + std::to_string(length));
        }
    }
    const std::string endless(100'000, 'x');
    parse(bytes + entryLine(endless, "first") + entryLine(endless, "last"));
    for (int length = 1; length <= 200; ++length) {
        const std::string key(static_cast<std::size_t>(length), 'x');
        EXPECT_EQ(message(key), "last " + std::to_string(length));
        EXPECT_EQ(message(key + '\0'), "last zero " + std::to_string(length));
        EXPECT_EQ(message(key + 'y'), "last y " + std::to_string(length));
    }
    EXPECT_EQ(message(endless), "last");
}

TEST_F(KVParserIndex, findsAndMergesKeysWhoseHashesEndAlike) {
    // As the file writes them; too many for the bucket where they belong.
    std::vector<std::string> keys;
    for (int i = 0; keys.size() < 200; ++i) {
        const std::string key = "This is the message\\nnumber " + std::to_string(i);
        if (std::hash<std::string>()(key) % 1024 == 1022) {
            keys.push_back(key);
        }
    }
    std::string bytes;
    for (std::size_t i = 0; i < keys.size(); i += 2) {
        bytes = entryLine(keys[i], "earlier") + bytes + entryLine(keys[i], "first " + keys[i]);
    }
    parse(bytes);
    bytes.clear();
    for (std::size_t i = 0; i < keys.size(); i += 3) {
        bytes += entryLine(keys[i], "second " + keys[i]);
    }
    parse(bytes);
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const std::string key = TRTools::unescape(keys[i]);
        EXPECT_EQ(message(key), (i % 3 == 0 ? "second " : i % 2 == 0 ? "first " : "") + key);
        EXPECT_EQ(message(keys[i]), keys[i]);
    }
}
