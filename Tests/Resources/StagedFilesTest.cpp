#include "FileBytes.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

namespace {

/// Width and height that a PNG file states in its header.
std::pair<std::uint32_t, std::uint32_t> pngSize(const fs::path& file) {
    const std::string bytes = CheckStrings::readBytes(file);
    if (!bytes.starts_with("\x89PNG\r\n\x1a\n") || bytes.substr(12, 4) != "IHDR") {
        throw std::runtime_error("no PNG header");
    }
    const auto number = [&bytes](std::size_t at) {
        std::uint32_t value = 0;
        for (const char byte : bytes.substr(at, 4)) {
            value = value << 8 | static_cast<unsigned char>(byte);
        }
        return value;
    };
    return {number(16), number(20)};
}

const fs::path staged = VEXORA_STAGED_RESOURCES;
const std::vector<std::uint32_t> stagedIconSizes{VEXORA_STAGED_ICON_SIZES};

std::string iconName(std::uint32_t size) {
    return "vexora-one-click-installer-" + std::to_string(size) + ".png";
}

} // namespace

TEST(StagedFiles, imagesHaveTheSizesTheirNamesPromise) {
    EXPECT_EQ(pngSize(staged / "lumiqLogo.png"), std::pair(96U, 96U));
    EXPECT_EQ(pngSize(staged / "lumiqLogo@2x.png"), std::pair(192U, 192U));
    EXPECT_EQ(pngSize(staged / "closeIcon.png"), std::pair(32U, 32U));
    EXPECT_EQ(pngSize(staged / "closeIcon@2x.png"), std::pair(64U, 64U));
    for (const std::uint32_t size : stagedIconSizes) {
        EXPECT_EQ(pngSize(staged / iconName(size)), std::pair(size, size)) << size;
    }
}

TEST(StagedFiles, iconIsDrawnInEverySizeThatSystemsAskFor) {
    const fs::path images = fs::path(VEXORA_RESOURCES_SOURCE) / "Images";
    for (const std::uint32_t size : {32U, 64U, 128U, 256U, 512U, 1024U}) {
        EXPECT_EQ(pngSize(images / iconName(size)), std::pair(size, size)) << size;
    }
}

TEST(StagedFiles, payloadIsCompleteAndExecutable) {
    for (const char* name : {"install", "unmount"}) {
        EXPECT_NE(fs::status(staged / name).permissions() & fs::perms::others_exec, fs::perms::none)
            << name;
    }
    for (const char* name : {"payload.conf", "lumiq-plugin.tar.gz", "lumiq-plugin.tar.gz.cksum"}) {
        EXPECT_GT(fs::file_size(staged / name), 0U) << name;
    }
}
