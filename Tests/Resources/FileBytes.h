// Reading a file of the resource directory byte by byte.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

/// The whole file. Throws std::runtime_error when it cannot be opened.
inline std::string readFile(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        throw std::runtime_error("cannot open " + file.string());
    }
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A byte as a number. Throws std::out_of_range behind the end.
inline std::uint32_t byteAt(const std::string& bytes, std::size_t index) {
    return static_cast<unsigned char>(bytes.at(index));
}
