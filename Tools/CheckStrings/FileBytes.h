// Reading a whole file.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace CheckStrings {

/// @return all bytes of a regular file, or of the one that a link leads to.
/// @throws std::runtime_error when there is none or it cannot be read.
inline std::string readBytes(const std::filesystem::path& file) {
    std::ifstream stream;
    if (std::error_code ignored; std::filesystem::is_regular_file(file, ignored)) {
        stream.open(file, std::ios::binary);
    }
    std::string bytes{std::istreambuf_iterator<char>(stream), {}};
    if (!stream.is_open() || stream.bad()) {
        throw std::runtime_error("cannot read the file " + file.string());
    }
    return bytes;
}

} // namespace CheckStrings
