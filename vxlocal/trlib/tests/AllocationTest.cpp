// What the library allocates, counted by replacing the global operator new of this program. The
// blocks come from malloc, so that the sanitizers still see each of them.
#include "kvparser.h"
#include "tr.h"

#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <string>

namespace {

std::atomic<std::size_t> allocations = 0;
std::atomic<std::size_t> bytesInUse = 0;

/// Stands before every block and holds its size.
constexpr std::size_t headerSize = alignof(std::max_align_t);

} // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    void* block = std::malloc(size + headerSize);
    if (block == nullptr) {
        return nullptr;
    }
    *static_cast<std::size_t*>(block) = size;
    ++allocations;
    bytesInUse += size;
    return static_cast<std::byte*>(block) + headerSize;
}

void* operator new(std::size_t size) {
    void* memory = operator new(size, std::nothrow);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    return memory;
}

void operator delete(void* memory) noexcept {
    if (memory != nullptr) {
        void* block = static_cast<std::byte*>(memory) - headerSize;
        bytesInUse -= *static_cast<std::size_t*>(block);
        std::free(block);
    }
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

// The sanitizers have their own, which would not come to those above.
void* operator new[](std::size_t size) {
    return operator new(size);
}

void operator delete[](void* memory) noexcept {
    operator delete(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
    operator delete(memory);
}

using namespace VXLOCAL;

namespace {

const std::string longKey = "To install Ondrel Vexora Lumiq, click <b>Start</b>.";
const std::string longValue =
    "Klicken Sie auf <b>Start</b>, um Ondrel Vexora Lumiq zu installieren.";

/// Counts the allocations that a call makes for as long as its result lives.
template <typename Call>
std::size_t allocationsOf(const Call& call) {
    const std::size_t before = allocations;
    [[maybe_unused]] const auto result = call();
    return allocations - before;
}

class Allocation : public testing::Test {
protected:
    Allocation() {
        folder_.write("Localizable.strings", "\"" + longKey + "\" = \"Los\"\n\"Start\" = \"" +
                                                 longValue +
                                                 "\"\n\"Installing %d of %d files now\" = \"%d von "
                                                 "%d Dateien werden installiert\"\n");
        parser_.setLocaleDir(folder_.path().string());
        parser_.parse();
    }

    TemporaryFolder folder_;
    KVParser parser_{"Localizable.strings"};
};

} // namespace

TEST_F(Allocation, countsWhatIsAllocated) {
    EXPECT_EQ(allocationsOf([] { return std::string(100, 'x'); }), 1U);
    EXPECT_EQ(allocationsOf([] { return 1; }), 0U);
}

TEST_F(Allocation, keyWithNothingToEscapeAllocatesNothingToBeLookedUp) {
    ASSERT_EQ(parser_.getMessage(longKey), "Los");
    EXPECT_EQ(allocationsOf([this] { return parser_.getMessage(longKey); }), 0U);
}

TEST_F(Allocation, longResultOfALookUpIsItsOneAllocation) {
    const std::string start = "Start";
    const std::string missing(100, 'x');
    ASSERT_EQ(parser_.getMessage(start), longValue);
    EXPECT_EQ(allocationsOf([&] { return parser_.getMessage(start); }), 1U);
    EXPECT_EQ(allocationsOf([&] { return parser_.getMessage(missing); }), 1U);
}

TEST_F(Allocation, translationAllocatesTheFormatCopyAndTheResultOnly) {
    auto* translator = Translator::getInstance();
    translator->init(new KVParser("Localizable.strings"), "de", folder_.path().string(),
                     "Localizable.strings");
    ASSERT_EQ(translator->tr("Installing %d of %d files now", 1, 2),
              "1 von 2 Dateien werden installiert");
    EXPECT_EQ(allocationsOf([=] { return translator->tr("Start"); }), 1U);
    ASSERT_EQ(translator->tr("To install Ondrel Vexora Lumiq, click <b>Start</b>."), "Los");
    EXPECT_EQ(allocationsOf([=] {
                  return translator->tr("To install Ondrel Vexora Lumiq, click <b>Start</b>.");
              }),
              0U);
    EXPECT_LE(allocationsOf([=] { return translator->tr("Installing %d of %d files now", 1, 2); }),
              2U);
    EXPECT_LE(allocationsOf([=] { return translator->tr("A text that has no translation"); }), 2U);
}

TEST_F(Allocation, parsingAgainAndAgainDoesNotGrow) {
    parser_.parse();
    const std::size_t before = bytesInUse;
    for (int i = 0; i < 100; ++i) {
        parser_.parse();
    }
    EXPECT_EQ(bytesInUse, before);
}

TEST_F(Allocation, replacedValuesAreNotKept) {
    const std::string large(1'000'000, 'x');
    folder_.write("Localizable.strings", "\"Start\" = \"" + large + "\"\n");
    parser_.parse();
    const std::size_t before = bytesInUse;
    folder_.write("Localizable.strings", "\"Start\" = \"Los\"\n");
    parser_.parse();
    EXPECT_LE(bytesInUse + large.size() - longValue.size(), before);
}

TEST_F(Allocation, fileIsKeptAsItIsWhenItIsMostlyKeysAndValues) {
    constexpr std::size_t size = 1'000'000;
    for (const std::size_t useful : {size * 4 / 10, size * 6 / 10}) {
        folder_.write("Localizable.strings", "\"Start\" = \"" + std::string(useful, 'x') +
                                                 "\"\n//" + std::string(size - useful, 'x') + "\n");
        const std::size_t before = bytesInUse;
        KVParser parser("Localizable.strings");
        parser.setLocaleDir(folder_.path().string());
        parser.parse();
        EXPECT_NEAR(static_cast<double>(bytesInUse - before),
                    static_cast<double>(useful > size / 2 ? size : useful), 10'000.0);
    }
}

TEST_F(Allocation, whatIsNoEntryIsNotKept) {
    constexpr std::size_t size = 1'000'000;
    folder_.write("Localizable.strings",
                  "// " + std::string(size, 'x') + "\n\"Start\" = \"Los\"\n");
    const std::size_t before = bytesInUse;
    KVParser parser("Localizable.strings");
    parser.setLocaleDir(folder_.path().string());
    parser.parse();
    EXPECT_EQ(parser.getMessage("Start"), "Los");
    EXPECT_LT(bytesInUse - before, size / 100);
}

TEST_F(Allocation, linesOfOneKeyAreKeptOnce) {
    std::string bytes;
    for (int i = 0; i < 10'000; ++i) {
        bytes += "\"Start\" = \"Los\"\n";
    }
    folder_.write("Localizable.strings", bytes);
    parser_.parse();
    const std::size_t before = bytesInUse;
    parser_.parse();
    KVParser parser("Localizable.strings");
    parser.setLocaleDir(folder_.path().string());
    parser.parse();
    EXPECT_EQ(parser.getMessage("Start"), "Los");
    EXPECT_LT(bytesInUse - before, 1'000U);
}

TEST_F(Allocation, parsingAllocatesNothingPerEntry) {
    std::string bytes;
    for (int i = 0; i < 1'000; ++i) {
        bytes += "\"Key " + std::to_string(i) + "\" = \"Los\"\n";
    }
    folder_.write("Localizable.strings", bytes);
    KVParser parser("Localizable.strings");
    parser.setLocaleDir(folder_.path().string());
    EXPECT_LT(allocationsOf([&] {
                  parser.parse();
                  return 0;
              }),
              30U);
    EXPECT_EQ(parser.getMessage("Key 999"), "Los");
}
