#include "Platform/Posix/FileSystem.h"

#include "AnotherProcess.h"
#include "Platform/Posix/Descriptor.h"
#include "SignalTimer.h"
#include "Support/TemporaryFolder.h"
#include "Support/WaitFor.h"

#include <fcntl.h>
#include <grp.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <thread>

namespace fs = std::filesystem;
using namespace std::string_literals;
using TestSupport::holdsInAnotherProcess;
using TestSupport::SignalTimer;
using TestSupport::TemporaryFolder;
using TestSupport::waitFor;
using Vexora::FileHandle;

namespace {

class PosixFileSystem : public testing::Test {
protected:
    std::string pathOf(const std::string& name) const { return folder.path() / name; }

    std::optional<std::string> textOf(const std::string& bytes) {
        return files.utf16TextOfFile(folder.write("text", bytes));
    }

    TemporaryFolder folder;
    Vexora::PosixFileSystem files;
};

/// The permission bits of what lies at the path.
mode_t modeOf(const std::string& path) {
    struct stat status = {};
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
    fs::create_symlink("nowhere", folder.path() / "dangling");
    for (const std::string& path : {pathOf("file"), pathOf("folder"), pathOf("link"), "/"s}) {
        EXPECT_TRUE(files.fileExistsAtPath(path)) << path;
    }
    for (const std::string& path : {pathOf("missing"), pathOf("file/below"), pathOf("dangling"),
                                    pathOf(std::string(5000, 'x')), ""s}) {
        EXPECT_FALSE(files.fileExistsAtPath(path)) << path;
    }
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
    for (const char* path :
         {"Library/Logs/Vexora_Lumiq", "J\u00f8rn M\u00fcller/\u65e5\u672c \"x\""}) {
        EXPECT_FALSE(files.createDirectoryAtPath(pathOf(path))) << path;
        EXPECT_TRUE(fs::is_directory(folder.path() / path)) << path;
    }
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
    for (const std::string& path : {pathOf(std::string(300, 'x')), ""s, "/proc/vexora/log"s}) {
        EXPECT_TRUE(files.createDirectoryAtPath(path)) << path;
    }
}

TEST_F(PosixFileSystem, aFolderThatTheUserMayNotWriteToIsAnError) {
    fs::permissions(folder.path(), fs::perms(0555));
    EXPECT_TRUE(holdsForOrdinaryUser(
        [&] { return bool(files.createDirectoryAtPath(pathOf("Logs/Vexora_Lumiq"))); }));
    EXPECT_TRUE(holdsForOrdinaryUser([&] { return !files.createFileAtPath(pathOf("log")); }));
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST_F(PosixFileSystem, createsAnEmptyFile) {
    EXPECT_TRUE(files.createFileAtPath(pathOf("a \u00fc\"'$file")));
    EXPECT_EQ(folder.read("a \u00fc\"'$file"), "");
}

TEST_F(PosixFileSystem, createsNothingOverAFileThatExists) {
    folder.write("file", "content");
    EXPECT_TRUE(files.createFileAtPath(pathOf("file")));
    EXPECT_EQ(folder.read("file"), "content");
}

TEST_F(PosixFileSystem, tellsWhenAFileCannotBeCreated) {
    folder.write("file", "kept");
    for (const std::string& path :
         {pathOf("missing/file"), pathOf("file/below"), folder.path().string(),
          pathOf(std::string(300, 'x')), "/proc/vexora"s, ""s}) {
        EXPECT_FALSE(files.createFileAtPath(path)) << path;
    }
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
    handle->writeData("d\0f"s);
    EXPECT_EQ(folder.read("file"), "abcd\0f"s);
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
                                    pathOf(std::string(300, 'x')), ""s, running}) {
        EXPECT_EQ(files.fileHandleForWritingAtPath(path), nullptr) << path;
        EXPECT_EQ(files.fileHandleForUpdatingAtPath(path), nullptr) << path;
    }
    EXPECT_FALSE(fs::exists(folder.path() / "missing"));
}

TEST_F(PosixFileSystem, whatAnotherProgramWouldHaveToAnswerCannotBeOpened) {
    ASSERT_EQ(::mkfifo(pathOf("fifo").c_str(), 0600), 0);
    const Vexora::PosixDescriptor socket(::socket(AF_UNIX, SOCK_STREAM, 0));
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    pathOf("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(::bind(socket.value(), reinterpret_cast<const sockaddr*>(&address), sizeof address),
              0);
    fs::create_symlink("fifo", folder.path() / "link");
    // Who waits would do so for ever.
    ::alarm(600);
    for (const std::string& path : {pathOf("fifo"), pathOf("socket"), pathOf("link")}) {
        EXPECT_FALSE(files.createFileAtPath(path)) << path;
        EXPECT_EQ(files.fileHandleForWritingAtPath(path), nullptr) << path;
        EXPECT_EQ(files.fileHandleForUpdatingAtPath(path), nullptr) << path;
        EXPECT_EQ(files.utf16TextOfFile(path), std::nullopt) << path;
    }
    ::alarm(0);
}

TEST_F(PosixFileSystem, aDeviceHasNoContent) {
    folder.write("empty", "");
    EXPECT_EQ(Vexora::contentOfFile(pathOf("empty")), "");
    EXPECT_EQ(Vexora::contentOfFile("/dev/null"), std::nullopt);
}

TEST_F(PosixFileSystem, filesAndDevicesAreWaitedForOnceTheyAreOpen) {
    for (const std::string& path :
         {folder.write("file", "").string(), "/dev/null"s, "/dev/full"s}) {
        const auto handle = files.fileHandleForUpdatingAtPath(path);
        ASSERT_NE(handle, nullptr) << path;
        EXPECT_EQ(::fcntl(handle->fileDescriptor(), F_GETFL) & (O_ACCMODE | O_NONBLOCK), O_RDWR)
            << path;
    }
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
    auto handle = files.fileHandleForWritingAtPath(folder.write("file", ""));
    ASSERT_NE(handle, nullptr);
    // A pipe fills up, which a file does not.
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const int readEnd = ends[0];
    ASSERT_EQ(::dup2(ends[1], handle->fileDescriptor()), handle->fileDescriptor());
    ASSERT_EQ(::close(ends[1]), 0);
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

TEST_F(PosixFileSystem, readsWhatFollowsTheByteOrderMark) {
    const std::pair<std::string, std::string> texts[] = {
        {"\xFE\xFF\x00H\x00i\x20\xAC\x00\n"s, "Hi\u20ac\n"},
        {"\xFF\xFEH\x00i\x00\xAC\x20\n\x00"s, "Hi\u20ac\n"},
        // Pairs of surrogates and zero characters.
        {"\xFE\xFF\xD8\x3D\xDE\x00\x00\x00\x00x"s, "\xF0\x9F\x98\x80\x00x"s},
        {"\xFF\xFE\xFF\xDB\xFF\xDF", "\xF4\x8F\xBF\xBF"},
        // Only the first mark is taken away.
        {"\xFE\xFF\xFE\xFF", "\xEF\xBB\xBF"},
        {"\xFF\xFE\xFF\xFE", "\xEF\xBB\xBF"},
        {"\xFF\xFE", ""},
        {"\xFE\xFF", ""}};
    for (const auto& [bytes, text] : texts) {
        EXPECT_EQ(textOf(bytes), text);
    }
}

TEST_F(PosixFileSystem, whatIsNoUtf16WithAMarkIsNoText) {
    for (const std::string& bytes :
         {// Without a mark.
          ""s, "\xFF"s, "H\x00i\x00"s, "plain text"s, "\xEF\xBB\xBFplain text"s,
          // An odd number of bytes.
          "\xFF\xFEH\x00i"s, "\xFE\xFF\x20"s,
          // Lone surrogates.
          "\xFE\xFF\xD8\x00\x00x"s, "\xFE\xFF\xD8\x00"s, "\xFE\xFF\xDC\x00\x00x"s,
          "\xFF\xFE\x00\xD8x\x00"s, "\xFF\xFE\x00\xDC"s}) {
        EXPECT_EQ(textOf(bytes), std::nullopt) << testing::PrintToString(bytes);
    }
}

TEST_F(PosixFileSystem, whatCannotBeReadIsNoText) {
    folder.write("file", "");
    for (const std::string& path : {pathOf("missing"), pathOf("file/below"), folder.path().string(),
                                    "/proc/self/mem"s, ""s}) {
        EXPECT_EQ(files.utf16TextOfFile(path), std::nullopt) << path;
    }
}

TEST_F(PosixFileSystem, whatTheUserMayNotReadIsNoText) {
    fs::permissions(folder.path(), fs::perms(0755));
    const std::string path = folder.write("text", "\xFE\xFF\x20\xAC");
    fs::permissions(path, fs::perms(0444));
    EXPECT_TRUE(holdsForOrdinaryUser([&] { return files.utf16TextOfFile(path) == "\u20ac"; }));
    fs::permissions(path, fs::perms(0200));
    EXPECT_TRUE(holdsForOrdinaryUser([&] { return files.utf16TextOfFile(path) == std::nullopt; }));
}

TEST_F(PosixFileSystem, readsALargeFileWhole) {
    std::string bytes = "\xFE\xFF";
    std::string text;
    while (bytes.size() < (std::size_t{16} << 20)) {
        bytes.append("\x00x\x20\xAC\xD8\x3D\xDE\x00", 8);
        text += "x\u20ac\U0001F600";
    }
    EXPECT_TRUE(textOf(bytes) == text);
}
