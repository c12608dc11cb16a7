// A folder of its own for one test, which disappears with the fixture.
#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

namespace VXLOCAL {

/// A new, empty folder below the system's folder for temporary files, removed with all it holds.
class TemporaryFolder {
public:
    /// \throws std::system_error when no folder can be made.
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "trlib-test-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            throw std::system_error(errno, std::generic_category(), name);
        }
        path_ = name;
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }

    /// Writes a whole file and makes the folders on the way to it.
    /// \return the file's full path.
    /// \throws std::ios_base::failure when the file cannot be written completely.
    std::filesystem::path write(const std::filesystem::path& relativePath,
                                std::string_view bytes) const {
        const std::filesystem::path file = path_ / relativePath;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream stream;
        stream.exceptions(std::ios::failbit | std::ios::badbit);
        stream.open(file, std::ios::binary);
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        stream.close();
        return file;
    }

private:
    std::filesystem::path path_;
};

} // namespace VXLOCAL
