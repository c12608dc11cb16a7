// What the catalogue makes of a file that opens but cannot be read to its end. The linker sends
// every call of read(2) to the function here, which can fail it.
#include "kvparser.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <unistd.h>

using namespace VXLOCAL;

namespace {

/// How the next calls of read(2) go.
struct Fault {
    bool active = false;
    /// At most so many bytes per call.
    std::size_t chunk = 0;
    /// So many of them in the first call, but for 0.
    std::size_t start = 0;
    /// So many bytes are read before the error comes.
    std::size_t bytes = 0;
    int error = 0;
    /// Whether the error comes once, and reading goes on behind it.
    bool once = false;
    /// What somebody appends to the file once the first call has come.
    std::string grown = {};
};

Fault fault;

/// How the file stood open when it was read last, and how often it was read.
int flags = 0;
int descriptorFlags = 0;
int reads = 0;

/// The file that grows.
std::filesystem::path growing;

} // namespace

extern "C" ssize_t __real_read(int descriptor, void* buffer, size_t size);
extern "C" ssize_t __wrap_read(int descriptor, void* buffer, size_t size);

extern "C" ssize_t __wrap_read(int descriptor, void* buffer, size_t size) {
    if (!fault.active) {
        return __real_read(descriptor, buffer, size);
    }
    flags = fcntl(descriptor, F_GETFL);
    descriptorFlags = fcntl(descriptor, F_GETFD);
    ++reads;
    std::ofstream(growing, std::ios::app) << std::exchange(fault.grown, {});
    if (fault.bytes == 0 && fault.error != 0) {
        errno = fault.error;
        if (fault.once) {
            fault.error = 0;
        }
        return -1;
    }
    size = std::min(size, fault.start != 0 ? std::exchange(fault.start, 0) : fault.chunk);
    if (fault.error != 0) {
        size = std::min(size, fault.bytes);
    }
    const ssize_t count = __real_read(descriptor, buffer, size);
    if (count > 0 && fault.error != 0) {
        fault.bytes -= static_cast<std::size_t>(count);
    }
    return count;
}

namespace {

constexpr const char* first = "\"Close\" = \"Beenden\"\n";
constexpr const char* second = "\"Install\" = \"Installieren\"\n";

class KVParserRead : public testing::Test {
protected:
    KVParserRead() {
        parser_.setLocaleDir(folder_.path().string());
        growing = folder_.write("Localizable.strings", std::string(first) + second);
    }

    void parse(const Fault& given) {
        fault = given;
        fault.active = true;
        EXPECT_NO_THROW(parser_.parse());
        fault = {};
    }

    TemporaryFolder folder_;
    KVParser parser_{"Localizable.strings"};
};

} // namespace

TEST_F(KVParserRead, errorInMidFileKeepsTheEntriesReadSoFar) {
    const std::size_t complete = std::string(first).size();
    for (const std::size_t bytes : {complete, complete + 1, complete + 23}) {
        parse({.chunk = 7, .bytes = bytes, .error = EIO});
        EXPECT_EQ(parser_.getMessage("Close"), "Beenden");
        EXPECT_EQ(parser_.getMessage("Install"), "Install");
    }
}

TEST_F(KVParserRead, errorKeepsTheLastByteOfTheLinesReadSoFar) {
    folder_.write("Localizable.strings", "Close\" = \"Beenden\nInstall\" = \"Installieren\n");
    parse({.chunk = 4096, .bytes = 30, .error = EIO});
    EXPECT_EQ(parser_.getMessage("Close"), "Beenden");
    EXPECT_EQ(parser_.getMessage("Install"), "Install");
}

TEST_F(KVParserRead, errorInTheFirstLineLeavesNoEntry) {
    parse({.chunk = 4096, .bytes = 17, .error = EIO});
    EXPECT_EQ(parser_.getMessage("Close"), "Close");
}

TEST_F(KVParserRead, errorKeepsWhatTheTableHeldBefore) {
    parse({.chunk = 4096});
    parse({.chunk = 4096, .bytes = 0, .error = EIO});
    EXPECT_EQ(parser_.getMessage("Install"), "Installieren");
}

TEST_F(KVParserRead, interruptedReadIsTriedAgain) {
    folder_.write("Localizable.strings", std::string(first) + "\"Install\" = \"Installieren\"");
    parse({.chunk = 5, .bytes = 10, .error = EINTR, .once = true});
    EXPECT_EQ(parser_.getMessage("Close"), "Beenden");
    EXPECT_EQ(parser_.getMessage("Install"), "Installieren");
}

TEST_F(KVParserRead, fileThatGrowsMeanwhileIsReadToItsEnd) {
    std::string grown;
    for (int i = 0; i < 200; ++i) {
        grown += "\"Key " + std::to_string(i) + "\" = \"" + std::to_string(i) + "\"\n";
    }
    // Chunks end where the file ended, and one is as long as it was.
    const std::size_t length = std::string(first).size();
    for (const auto& [before, start, chunk] :
         std::vector<std::tuple<std::string, std::size_t, std::size_t>>{
             {first, 0, 4096}, {first, 0, 5}, {first, 1, length}, {"", 0, 4096}}) {
        KVParser parser("Localizable.strings");
        parser.setLocaleDir(folder_.path().string());
        folder_.write("Localizable.strings", before);
        fault = {.active = true, .chunk = chunk, .start = start, .grown = grown};
        parser.parse();
        fault = {};
        EXPECT_EQ(parser.getMessage("Close"), before.empty() ? "Close" : "Beenden");
        EXPECT_EQ(parser.getMessage("Key 0"), "0");
        EXPECT_EQ(parser.getMessage("Key 199"), "199");
    }
}

TEST_F(KVParserRead, onlyOpeningDoesNotWait) {
    flags = O_NONBLOCK;
    parse({.chunk = 4096});
    EXPECT_EQ(flags & O_NONBLOCK, 0);
}

TEST_F(KVParserRead, noOtherProgramInheritsTheFile) {
    descriptorFlags = 0;
    parse({.chunk = 4096});
    EXPECT_EQ(descriptorFlags, FD_CLOEXEC);
}

TEST_F(KVParserRead, fileIsReadAtOnce) {
    reads = 0;
    parse({.chunk = 4096});
    EXPECT_EQ(reads, 1);
    EXPECT_EQ(parser_.getMessage("Install"), "Installieren");
}

TEST_F(KVParserRead, fileIsReadInPiecesOfAnySize) {
    for (std::size_t chunk = 1; chunk < 50; ++chunk) {
        KVParser parser("Localizable.strings");
        parser.setLocaleDir(folder_.path().string());
        fault = {.active = true, .chunk = chunk};
        parser.parse();
        fault = {};
        EXPECT_EQ(parser.getMessage("Install"), "Installieren") << chunk;
    }
}
