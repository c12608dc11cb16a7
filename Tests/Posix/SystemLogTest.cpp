#include "Platform/Posix/SystemLog.h"

#include "Platform/Posix/ProcessLauncher.h"
#include "Support/TemporaryFolder.h"

#include <fcntl.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <thread>
#include <vector>

namespace {

/// The standard error stream goes into a file.
class PosixSystemLog : public testing::Test {
public:
    PosixSystemLog() : former_(::dup(STDERR_FILENO)) {
        const int file = ::open(folder_.write("errors", "").c_str(), O_WRONLY | O_APPEND);
        ::dup2(file, STDERR_FILENO);
        ::close(file);
    }
    PosixSystemLog(const PosixSystemLog&) = delete;
    PosixSystemLog& operator=(const PosixSystemLog&) = delete;
    ~PosixSystemLog() override {
        ::dup2(former_, STDERR_FILENO);
        ::close(former_);
    }

protected:
    std::string written() const { return folder_.read("errors"); }

    Vexora::PosixSystemLog log;

private:
    TestSupport::TemporaryFolder folder_;
    int former_;
};

} // namespace

TEST_F(PosixSystemLog, eachTextIsALineOfItsOwn) {
    log.log("Failed to create logging directory: /home/J\u00f8rn M\u00fcller");
    log.log("");
    log.log("100 %@ %s %n");
    EXPECT_EQ(written(),
              "Failed to create logging directory: /home/J\u00f8rn M\u00fcller\n\n100 %@ %s %n\n");
}

TEST_F(PosixSystemLog, linesOfSeveralThreadsDoNotMix) {
    std::vector<std::thread> threads;
    std::map<std::string, int> expected;
    for (const char letter : {'a', 'b', 'c', 'd'}) {
        expected[std::string(200, letter)] = 500;
        threads.emplace_back([this, letter] {
            for (int count = 0; count < 500; ++count) {
                log.log(std::string(200, letter));
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    std::map<std::string, int> found;
    std::istringstream lines(written());
    for (std::string line; std::getline(lines, line);) {
        ++found[line];
    }
    EXPECT_EQ(found, expected);
}

TEST_F(PosixSystemLog, aClosedOrUnreadStreamSwallowsTheLine) {
    EXPECT_EQ(Vexora::PosixProcessLauncher()
                  .launchProcess(PROCESS_HELPER, {"log-to-nobody"}, nullptr)
                  ->waitUntilExit(),
              0);
    EXPECT_EQ(written(), "");
}
