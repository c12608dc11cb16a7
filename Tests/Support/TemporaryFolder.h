// A folder of its own for one test, which disappears with the fixture.
// Everything in it is written and read as bytes.
#pragma once

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>

namespace TestSupport {

/// Makes a new, empty folder below the system's folder for temporary files, and removes it with all
/// that it then holds, also when a test took permissions away. One object is used by one thread at
/// a time.
class TemporaryFolder {
public:
    /// \throws std::system_error when no folder can be made.
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "vexora-test-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) {
            throw std::system_error(errno, std::generic_category(), name);
        }
        path_ = name;
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    ~TemporaryFolder() {
        unlock(path_);
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    const std::filesystem::path& path() const { return path_; }

    /// Writes a whole file and makes the folders on the way to it.
    /// \param relativePath where, seen from the folder.
    /// \return the file's full path.
    /// \throws std::runtime_error when the file cannot be written completely.
    std::filesystem::path write(const std::filesystem::path& relativePath,
                                std::string_view bytes) const {
        const std::filesystem::path file = path_ / relativePath;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream stream(file, std::ios::binary | std::ios::trunc);
        stream.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        stream.close();
        if (!stream) {
            throw std::runtime_error("cannot write " + file.string());
        }
        return file;
    }

    /// \return all bytes of a file in the folder.
    /// \throws std::runtime_error when it cannot be opened.
    std::string read(const std::filesystem::path& relativePath) const {
        const std::filesystem::path file = path_ / relativePath;
        std::ifstream stream(file, std::ios::binary);
        if (!stream) {
            throw std::runtime_error("cannot open " + file.string());
        }
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }

private:
    /// Makes a folder and the folders in it listable and writable again.
    static void unlock(const std::filesystem::path& folder) {
        std::error_code error;
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all,
                                     std::filesystem::perm_options::add, error);
        for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
             entry.increment(error)) {
            std::error_code ignored;
            if (!entry->is_symlink(ignored) && entry->is_directory(ignored)) {
                unlock(entry->path());
            }
        }
    }

    std::filesystem::path path_;
};

} // namespace TestSupport
