#include "AnotherProcess.h"
#include "Platform/Posix/Environment.h"
#include "Platform/Posix/FileSystem.h"
#include "Platform/Posix/Start.h"
#include "Support/TemporaryFolder.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <cerrno>

using TestSupport::holdsInAnotherProcess;
using TestSupport::TemporaryFolder;

namespace {

constexpr int streams[] = {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO};

/// Whether the descriptor is open on what lies at the path.
bool isOpenOn(int descriptor, const std::string& path) {
    struct stat open = {};
    struct stat expected = {};
    return ::fstat(descriptor, &open) == 0 && ::stat(path.c_str(), &expected) == 0 &&
           open.st_dev == expected.st_dev && open.st_ino == expected.st_ino;
}

/// Opens the file as each of the streams, except those that the bits of `closed` stand for, and
/// prepares the process. \return whether each stream is then what it should be.
bool fillsStreams(unsigned closed, const std::string& file) {
    const int opened = ::open(file.c_str(), O_RDWR | O_CLOEXEC);
    for (const int stream : streams) {
        ::dup2(opened, stream);
    }
    for (const int stream : streams) {
        if ((closed >> stream & 1U) != 0) {
            ::close(stream);
        }
    }
    Vexora::prepareProcess();
    char byte = 0;
    bool right = ::read(STDIN_FILENO, &byte, 1) == 0 && ::write(STDOUT_FILENO, "x", 1) == 1 &&
                 ::write(STDERR_FILENO, "x", 1) == 1;
    for (const int stream : streams) {
        right = right && isOpenOn(stream, (closed >> stream & 1U) != 0 ? "/dev/null" : file) &&
                ::fcntl(stream, F_GETFD) == 0;
    }
    return right;
}

} // namespace

TEST(PreparedProcess, closedStreamsAreTheNullDeviceAndOpenOnesStay) {
    const TemporaryFolder folder;
    for (unsigned closed = 0; closed < 8; ++closed) {
        const std::string file = folder.write("stream", "");
        EXPECT_TRUE(holdsInAnotherProcess([&] { return fillsStreams(closed, file); })) << closed;
    }
}

TEST(PreparedProcess, aLimitOfFileSizesIsAnErrorOfTheWrite) {
    const TemporaryFolder folder;
    const std::string file = folder.write("log", "");
    EXPECT_TRUE(holdsInAnotherProcess([&] {
        ::signal(SIGXFSZ, SIG_DFL);
        rlimit limit = {};
        ::getrlimit(RLIMIT_FSIZE, &limit);
        limit.rlim_cur = 4;
        ::setrlimit(RLIMIT_FSIZE, &limit);
        Vexora::prepareProcess();
        Vexora::PosixFileSystem().fileHandleForWritingAtPath(file)->writeData("12345678");
        return errno == EFBIG;
    }));
    EXPECT_EQ(folder.read("log"), "1234");
}

TEST(NeededForStart, whatIsFoundIsGiven) {
    EXPECT_EQ(Vexora::neededForStart([] { return std::string("/opt/Resources"); }),
              "/opt/Resources");
}

TEST(NeededForStartDeathTest, anErrorIsToldAndEndsTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(Vexora::neededForStart([] { return Vexora::executableBehind("/missing/link"); }),
                testing::ExitedWithCode(0),
                "^Cannot find the executable: No such file or directory\n$");
}
