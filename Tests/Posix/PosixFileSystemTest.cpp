#include "Platform/Posix/PosixFileSystem.h"

#include "SignalTimer.h"
#include "Support/TemporaryFolder.h"
#include "Support/WaitFor.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <thread>

namespace fs = std::filesystem;
using TestSupport::SignalTimer;
using TestSupport::TemporaryFolder;
using TestSupport::waitFor;
using Vexora::FileHandle;

namespace {

class PosixFileSystem : public testing::Test {
protected:
    std::string pathOf(const std::string& name) const { return folder.path() / name; }

    TemporaryFolder folder;
    Vexora::PosixFileSystem files;
};

class PosixFileSystemText : public PosixFileSystem {
protected:
    std::optional<std::string> textOf(const std::string& bytes) {
        return files.utf16TextOfFile(folder.write("text", bytes));
    }
};

/// The permission bits of what lies at the path.
mode_t modeOf(const std::string& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 07777;
}

/// Sets the umask and puts the former one back.
class ScopedUmask {
public:
    explicit ScopedUmask(mode_t mask) : previous_(::umask(mask)) {}
    ScopedUmask(const ScopedUmask&) = delete;
    ScopedUmask& operator=(const ScopedUmask&) = delete;
    ~ScopedUmask() { ::umask(previous_); }

private:
    mode_t previous_;
};

/// Whether the check holds in a process of its own.
bool holdsInAnotherProcess(const std::function<bool()>& check) {
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(check() ? 0 : 1);
    }
    int status = -1;
    EXPECT_EQ(::waitpid(child, &status, 0), child);
    return status == 0;
}

/// Whether the check holds for a user whom permissions bind, which they do not for root.
bool holdsForOrdinaryUser(const std::function<bool()>& check) {
    return holdsInAnotherProcess([&] {
        constexpr unsigned nobody = 65534;
        const bool ordinary = ::getuid() != 0 || (::setgroups(0, nullptr) == 0 &&
                                                  ::setgid(nobody) == 0 && ::setuid(nobody) == 0);
        return ordinary && check();
    });
}

} // namespace

TEST_F(PosixFileSystem, anythingAtThePathExists) {
    folder.write("file", "");
    fs::create_directory(folder.path() / "folder");
    fs::create_symlink("file", folder.path() / "link");
    EXPECT_TRUE(files.fileExistsAtPath(pathOf("file")));
    EXPECT_TRUE(files.fileExistsAtPath(pathOf("folder")));
    EXPECT_TRUE(files.fileExistsAtPath(pathOf("link")));
    EXPECT_TRUE(files.fileExistsAtPath("/"));
}

TEST_F(PosixFileSystem, whatIsMissingDoesNotExist) {
    folder.write("file", "");
    fs::create_symlink("nowhere", folder.path() / "link");
    EXPECT_FALSE(files.fileExistsAtPath(pathOf("missing")));
    EXPECT_FALSE(files.fileExistsAtPath(pathOf("file/below")));
    EXPECT_FALSE(files.fileExistsAtPath(pathOf("link")));
    EXPECT_FALSE(files.fileExistsAtPath(pathOf(std::string(5000, 'x'))));
    EXPECT_FALSE(files.fileExistsAtPath(""));
}

TEST_F(PosixFileSystem, whatLiesInALockedFolderDoesNotExistForTheUser) {
    fs::permissions(folder.path(), fs::perms(0755));
    folder.write("open/file", "");
    folder.write("locked/file", "");
    fs::permissions(folder.path() / "locked", fs::perms::none);
    EXPECT_TRUE(holdsForOrdinaryUser([&] { return files.fileExistsAtPath(pathOf("open/file")); }));
    EXPECT_TRUE(
        holdsForOrdinaryUser([&] { return !files.fileExistsAtPath(pathOf("locked/file")); }));
}

TEST_F(PosixFileSystem, createsAFolderWithAllMissingFoldersAboveIt) {
    EXPECT_FALSE(files.createDirectoryAtPath(pathOf("Library/Logs/Vexora_Lumiq")));
    EXPECT_TRUE(fs::is_directory(folder.path() / "Library/Logs/Vexora_Lumiq"));
}

TEST_F(PosixFileSystem, createsFoldersWithSpacesAndLettersOutsideAscii) {
    EXPECT_FALSE(files.createDirectoryAtPath(pathOf("J\u00f8rn M\u00fcller/\u65e5\u672c \"x\"")));
    EXPECT_TRUE(fs::is_directory(folder.path() / "J\u00f8rn M\u00fcller/\u65e5\u672c \"x\""));
}

TEST_F(PosixFileSystem, anExistingFolderIsNoFailure) {
    fs::create_directories(folder.path() / "a/b");
    fs::create_directory_symlink("a", folder.path() / "link");
    EXPECT_FALSE(files.createDirectoryAtPath(pathOf("a/b")));
    EXPECT_FALSE(files.createDirectoryAtPath(pathOf("link/b/c")));
    EXPECT_FALSE(files.createDirectoryAtPath(pathOf("a//b//d/")));
    EXPECT_FALSE(files.createDirectoryAtPath("/"));
    EXPECT_TRUE(fs::is_directory(folder.path() / "a/b/c"));
    EXPECT_TRUE(fs::is_directory(folder.path() / "a/b/d"));
}

TEST_F(PosixFileSystem, foldersAndFilesGetTheDefaultAttributesLessTheUmask) {
    const ScopedUmask mask(027);
    ASSERT_FALSE(files.createDirectoryAtPath(pathOf("a/b")));
    ASSERT_TRUE(files.createFileAtPath(pathOf("a/file")));
    EXPECT_EQ(modeOf(pathOf("a")), 0750u);
    EXPECT_EQ(modeOf(pathOf("a/b")), 0750u);
    EXPECT_EQ(modeOf(pathOf("a/file")), 0640u);
    const ScopedUmask none(0);
    ASSERT_FALSE(files.createDirectoryAtPath(pathOf("c")));
    ASSERT_TRUE(files.createFileAtPath(pathOf("file")));
    EXPECT_EQ(modeOf(pathOf("c")), 0777u);
    EXPECT_EQ(modeOf(pathOf("file")), 0666u);
}

TEST_F(PosixFileSystem, somethingElseInThePlaceOfAFolderIsAnError) {
    folder.write("file", "kept");
    fs::create_symlink("nowhere", folder.path() / "link");
    for (const char* const path : {"file", "file/below/it", "link/below"}) {
        EXPECT_TRUE(files.createDirectoryAtPath(pathOf(path))) << path;
    }
    EXPECT_EQ(folder.read("file"), "kept");
}

TEST_F(PosixFileSystem, whatTheSystemRefusesIsAnError) {
    for (const std::string& path :
         {pathOf(std::string(300, 'x')), std::string(), std::string("/proc/vexora/log")}) {
        EXPECT_TRUE(files.createDirectoryAtPath(path)) << path;
    }
}

TEST_F(PosixFileSystem, aFolderThatTheUserMayNotWriteToIsAnError) {
    fs::permissions(folder.path(), fs::perms(0555));
    EXPECT_TRUE(holdsForOrdinaryUser(
        [&] { return files.createDirectoryAtPath(pathOf("Logs/Vexora_Lumiq")); }));
    EXPECT_TRUE(holdsForOrdinaryUser([&] { return !files.createFileAtPath(pathOf("log")); }));
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(PosixFileSystem, createsAnEmptyFile) {
    EXPECT_TRUE(files.createFileAtPath(pathOf("a \u00fc\"'$file")));
    EXPECT_EQ(folder.read("a \u00fc\"'$file"), "");
}

TEST_F(PosixFileSystem, emptiesAnExistingFile) {
    folder.write("file", "content");
    EXPECT_TRUE(files.createFileAtPath(pathOf("file")));
    EXPECT_EQ(folder.read("file"), "");
}

TEST_F(PosixFileSystem, tellsWhenAFileCannotBeCreated) {
    folder.write("file", "kept");
    EXPECT_FALSE(files.createFileAtPath(pathOf("missing/file")));
    EXPECT_FALSE(files.createFileAtPath(pathOf("file/below")));
    EXPECT_FALSE(files.createFileAtPath(folder.path()));
    EXPECT_FALSE(files.createFileAtPath(pathOf(std::string(300, 'x'))));
    EXPECT_FALSE(files.createFileAtPath("/proc/vexora"));
    EXPECT_FALSE(files.createFileAtPath(""));
    EXPECT_EQ(folder.read("file"), "kept");
}

TEST_F(PosixFileSystem, writingStartsAtTheFirstByteAndKeepsTheRest) {
    folder.write("file", "0123456789");
    files.fileHandleForWritingAtPath(pathOf("file"))->writeData("abc");
    EXPECT_EQ(folder.read("file"), "abc3456789");
    files.fileHandleForUpdatingAtPath(pathOf("file"))->writeData("XY");
    EXPECT_EQ(folder.read("file"), "XYc3456789");
}

TEST_F(PosixFileSystem, successiveWritesFollowOneAnother) {
    folder.write("file", "");
    const auto handle = files.fileHandleForWritingAtPath(pathOf("file"));
    handle->writeData("abc");
    handle->writeData("");
    handle->writeData(std::string("d\0f", 3));
    EXPECT_EQ(folder.read("file"), std::string("abcd\0f", 6));
}

TEST_F(PosixFileSystem, seeksToTheEndAsItIsThen) {
    folder.write("file", "first ");
    const auto handle = files.fileHandleForWritingAtPath(pathOf("file"));
    const auto other = files.fileHandleForWritingAtPath(pathOf("file"));
    other->seekToEndOfFile();
    other->writeData("second ");
    handle->seekToEndOfFile();
    handle->writeData("third");
    EXPECT_EQ(folder.read("file"), "first second third");
}

TEST_F(PosixFileSystem, onlyTheUpdatingHandleCanRead) {
    folder.write("file", "x");
    char byte = 0;
    const auto writing = files.fileHandleForWritingAtPath(pathOf("file"));
    EXPECT_EQ(::read(writing->fileDescriptor(), &byte, 1), -1);
    const auto updating = files.fileHandleForUpdatingAtPath(pathOf("file"));
    EXPECT_EQ(::read(updating->fileDescriptor(), &byte, 1), 1);
    EXPECT_EQ(byte, 'x');
}

TEST_F(PosixFileSystem, thereIsNoHandleForWhatCannotBeOpened) {
    folder.write("file", "");
    const std::string running = fs::read_symlink("/proc/self/exe");
    for (const std::string& path : {pathOf("missing"), pathOf("file/below"), pathOf("."),
                                    pathOf(std::string(300, 'x')), std::string(), running}) {
        EXPECT_EQ(files.fileHandleForWritingAtPath(path), nullptr) << path;
        EXPECT_EQ(files.fileHandleForUpdatingAtPath(path), nullptr) << path;
    }
    EXPECT_FALSE(fs::exists(folder.path() / "missing"));
}

TEST_F(PosixFileSystem, permissionsDecideWhichHandlesThereAre) {
    fs::permissions(folder.path(), fs::perms(0755));
    for (const char* name : {"both", "readOnly", "writeOnly"}) {
        folder.write(name, "");
    }
    fs::permissions(folder.path() / "both", fs::perms(0666));
    fs::permissions(folder.path() / "readOnly", fs::perms(0444));
    fs::permissions(folder.path() / "writeOnly", fs::perms(0222));
    const auto opens = [&](const char* name) {
        return std::pair(files.fileHandleForWritingAtPath(pathOf(name)) != nullptr,
                         files.fileHandleForUpdatingAtPath(pathOf(name)) != nullptr);
    };
    EXPECT_TRUE(holdsForOrdinaryUser([&] { return opens("both") == std::pair(true, true); }));
    EXPECT_TRUE(holdsForOrdinaryUser([&] { return opens("readOnly") == std::pair(false, false); }));
    EXPECT_TRUE(holdsForOrdinaryUser([&] { return opens("writeOnly") == std::pair(true, false); }));
}

TEST_F(PosixFileSystem, aHandleIsClosedInOtherProgramsAndWithItself) {
    folder.write("file", "");
    auto handle = files.fileHandleForUpdatingAtPath(pathOf("file"));
    const int descriptor = handle->fileDescriptor();
    EXPECT_EQ(::fcntl(descriptor, F_GETFD), FD_CLOEXEC);
    handle.reset();
    EXPECT_EQ(::fcntl(descriptor, F_GETFD), -1);
}

TEST_F(PosixFileSystem, aHandleNeverTakesThePlaceOfAStandardStream) {
    folder.write("file", "");
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        EXPECT_TRUE(holdsInAnotherProcess([&] {
            ::close(stream);
            const auto handle = files.fileHandleForUpdatingAtPath(pathOf("file"));
            return handle->fileDescriptor() > STDERR_FILENO && ::fcntl(stream, F_GETFD) == -1 &&
                   ::fcntl(handle->fileDescriptor(), F_GETFD) == FD_CLOEXEC;
        }));
    }
}

TEST_F(PosixFileSystem, writeErrorsAreSwallowed) {
    const auto full = files.fileHandleForWritingAtPath("/dev/full");
    ASSERT_NE(full, nullptr);
    EXPECT_NO_THROW(full->writeData("dropped"));
}

TEST_F(PosixFileSystem, writesEverythingInSpiteOfSignalsAndShortWrites) {
    ASSERT_EQ(::mkfifo(pathOf("pipe").c_str(), 0600), 0);
    const int readEnd = ::open(pathOf("pipe").c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    ASSERT_GE(readEnd, 0);
    ASSERT_EQ(::fcntl(readEnd, F_SETFL, 0), 0);
    auto handle = files.fileHandleForWritingAtPath(pathOf("pipe"));
    ASSERT_NE(handle, nullptr);
    std::string sent;
    while (sent.size() < 1000000) {
        sent += std::to_string(sent.size()) + ' ';
    }
    const SignalTimer timer;
    bool interrupted = false;
    std::string received;
    std::thread reader([&] {
        // The signals are for the writer, and the pipe stays full until some have arrived.
        sigset_t alarm;
        ::sigemptyset(&alarm);
        ::sigaddset(&alarm, SIGALRM);
        ::pthread_sigmask(SIG_BLOCK, &alarm, nullptr);
        interrupted = waitFor([] { return SignalTimer::interruptions >= 3; });
        std::string chunk(65536, '\0');
        for (ssize_t count = 1; count > 0;) {
            count = ::read(readEnd, chunk.data(), chunk.size());
            received.append(chunk, 0, count > 0 ? static_cast<std::size_t>(count) : 0);
        }
        ::close(readEnd);
    });
    handle->writeData(sent);
    // Without a writer the reader meets the end of what was sent.
    handle.reset();
    reader.join();
    EXPECT_TRUE(interrupted);
    EXPECT_TRUE(received == sent);
}

TEST_F(PosixFileSystemText, readsBothByteOrders) {
    const std::string bigEndian("\xFE\xFF\x00H\x00i\x20\xAC\x00\n", 10);
    const std::string littleEndian("\xFF\xFEH\x00i\x00\xAC\x20\n\x00", 10);
    EXPECT_EQ(textOf(bigEndian), "Hi\u20ac\n");
    EXPECT_EQ(textOf(littleEndian), "Hi\u20ac\n");
}

TEST_F(PosixFileSystemText, readsPairsOfSurrogatesAndZeroCharacters) {
    EXPECT_EQ(textOf(std::string("\xFE\xFF\xD8\x3D\xDE\x00\x00\x00\x00x", 10)),
              std::string("\xF0\x9F\x98\x80\x00x", 6));
    EXPECT_EQ(textOf("\xFF\xFE\xFF\xDB\xFF\xDF"), "\xF4\x8F\xBF\xBF");
}

TEST_F(PosixFileSystemText, onlyTheFirstMarkIsTakenAway) {
    EXPECT_EQ(textOf("\xFE\xFF\xFE\xFF"), "\xEF\xBB\xBF");
    EXPECT_EQ(textOf("\xFF\xFE\xFF\xFE"), "\xEF\xBB\xBF");
}

TEST_F(PosixFileSystemText, aMarkAloneIsAnEmptyText) {
    EXPECT_EQ(textOf("\xFF\xFE"), "");
    EXPECT_EQ(textOf("\xFE\xFF"), "");
}

TEST_F(PosixFileSystemText, withoutAMarkThereIsNoText) {
    EXPECT_EQ(textOf(""), std::nullopt);
    EXPECT_EQ(textOf("\xFF"), std::nullopt);
    EXPECT_EQ(textOf(std::string("H\x00i\x00", 4)), std::nullopt);
    EXPECT_EQ(textOf("plain text"), std::nullopt);
    EXPECT_EQ(textOf("\xEF\xBB\xBFplain text"), std::nullopt);
}

TEST_F(PosixFileSystemText, anOddNumberOfBytesIsNoText) {
    EXPECT_EQ(textOf(std::string("\xFF\xFEH\x00i", 5)), std::nullopt);
    EXPECT_EQ(textOf("\xFE\xFF\x20"), std::nullopt);
}

TEST_F(PosixFileSystemText, aLoneSurrogateIsNoText) {
    EXPECT_EQ(textOf(std::string("\xFE\xFF\xD8\x00\x00x", 6)), std::nullopt);
    EXPECT_EQ(textOf(std::string("\xFE\xFF\xD8\x00", 4)), std::nullopt);
    EXPECT_EQ(textOf(std::string("\xFE\xFF\xDC\x00\x00x", 6)), std::nullopt);
    EXPECT_EQ(textOf(std::string("\xFF\xFE\x00\xD8x\x00", 6)), std::nullopt);
    EXPECT_EQ(textOf(std::string("\xFF\xFE\x00\xDC", 4)), std::nullopt);
}

TEST_F(PosixFileSystemText, whatCannotBeReadIsNoText) {
    folder.write("file", "");
    EXPECT_EQ(files.utf16TextOfFile(pathOf("missing")), std::nullopt);
    EXPECT_EQ(files.utf16TextOfFile(pathOf("file/below")), std::nullopt);
    EXPECT_EQ(files.utf16TextOfFile(folder.path()), std::nullopt);
    EXPECT_EQ(files.utf16TextOfFile("/proc/self/mem"), std::nullopt);
    EXPECT_EQ(files.utf16TextOfFile(""), std::nullopt);
}

TEST_F(PosixFileSystemText, whatTheUserMayNotReadIsNoText) {
    fs::permissions(folder.path(), fs::perms(0755));
    const std::string path = folder.write("text", "\xFE\xFF\x20\xAC");
    fs::permissions(path, fs::perms(0444));
    EXPECT_TRUE(holdsForOrdinaryUser([&] { return files.utf16TextOfFile(path) == "\u20ac"; }));
    fs::permissions(path, fs::perms(0200));
    EXPECT_TRUE(holdsForOrdinaryUser([&] { return files.utf16TextOfFile(path) == std::nullopt; }));
}

TEST_F(PosixFileSystemText, readsALargeFileWhole) {
    std::string bytes = "\xFE\xFF";
    std::string text;
    while (bytes.size() < (std::size_t{16} << 20)) {
        bytes.append("\x00x\x20\xAC\xD8\x3D\xDE\x00", 8);
        text += "x\u20ac\U0001F600";
    }
    EXPECT_TRUE(textOf(bytes) == text);
}
