#include "FileBytes.h"

#include <array>
#include <fstream>

namespace CheckStrings {

UnreadableFile::UnreadableFile(const std::filesystem::path& file)
    : std::runtime_error("cannot read the file " + file.string()) {}

std::string readBytes(const std::filesystem::path& file) {
    std::ifstream stream;
    if (std::error_code ignored; std::filesystem::is_regular_file(file, ignored)) {
        stream.open(file, std::ios::binary);
    }
    std::string bytes;
    // The stream's own read, unlike an iterator over its buffer, marks a failure as bad.
    for (std::array<char, 65536> part; stream.is_open() && stream.good();) {
        stream.read(part.data(), part.size());
        bytes.append(part.data(), static_cast<std::size_t>(stream.gcount()));
    }
    if (!stream.is_open() || stream.bad()) {
        throw UnreadableFile(file);
    }
    return bytes;
}

} // namespace CheckStrings
