// Reading a whole file.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

namespace CheckStrings {

/// Thrown for a file that cannot be read; says which.
class UnreadableFile : public std::runtime_error {
public:
    explicit UnreadableFile(const std::filesystem::path& file);
};

/// \return all bytes of a regular file, or of the one that a link leads to.
/// \throws UnreadableFile when there is none, or when it cannot be read to its end.
std::string readBytes(const std::filesystem::path& file);

} // namespace CheckStrings
