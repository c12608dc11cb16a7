#include "Backend/Fixture.h"
#include "Platform/Posix/ProcessLauncher.h"
#include "Platform/Posix/Queues.h"

#include <atomic>

namespace BackendTest {
namespace {

namespace fs = std::filesystem;

/// The real background queue, of which a test knows when it has nothing left to do.
class WatchedQueue : public Vexora::BackgroundQueue {
public:
    void async(std::function<void()> block) override {
        const auto kept = std::make_shared<std::function<void()>>(std::move(block));
        const auto running = running_;
        ++*running;
        queue_.async([=] {
            (*kept)();
            *kept = nullptr;
            --*running;
        });
    }

    bool isIdle() const { return *running_ == 0; }

private:
    Vexora::PosixBackgroundQueue queue_;
    std::shared_ptr<std::atomic<int>> running_ = std::make_shared<std::atomic<int>>(0);
};

} // namespace

/// A whole installation with everything real, from a copy of the staged resources.
class Installation : public Fixture {
protected:
    Installation() {
        fs::copy(STAGED_RESOURCES, resources(), fs::copy_options::recursive);
        environment.resources = resources();
    }

    std::string resources() const { return (folder.path() / "The Resources").string(); }

    /// Replaces a script of the resources by a shell script with that body.
    void writeScript(const std::string& name, const std::string& body) {
        const fs::path file =
            folder.write("The Resources/" + name,
                         "#!/bin/sh\nmarks='" + folder.path().string() + "'\n" + body + "\n");
        fs::permissions(file, fs::perms::owner_all);
    }

    /// Opens the window on the real parts and presses Start.
    void start() {
        openWindow(real);
        click("startButton");
    }

    std::string readLog() const {
        return home.read("Library/Logs/Vexora_Lumiq/vexora-one-click-installer.log");
    }

    double bar() const { return FrontEnd::filled(find("installProgress")); }

    /// Waits for the end of the run's thread, which needs the parts until then.
    bool waitForTheRun() {
        return FrontEnd::waitFor([this] { return queue.isIdle(); });
    }

    TestSupport::TemporaryFolder folder;
    WatchedQueue queue;
    Vexora::PosixClock realClock;
    Vexora::PosixProcessLauncher launcher;
    Vexora::Platform real{application,
                          interfaces,
                          mainQueue,
                          queue,
                          realClock,
                          files,
                          launcher,
                          environment,
                          substitutes.administratorScript,
                          substitutes.workspace,
                          substitutes.systemLog};
};

TEST_F(Installation, thatSucceedsEndsWithAFullBarAndUnmounts) {
    writeScript("install", "for a; do printf '<%s>\\n' \"$a\"; done; echo oops >&2; exit 0");
    writeScript("unmount",
                "printf '<%s>' \"$@\" >\"$marks/part\"; mv \"$marks/part\" \"$marks/unmounted\"");
    start();
    const std::string done = translation("Installation completed!");
    EXPECT_TRUE(FrontEnd::waitFor([&] { return text("installLabel") == done; }));
    EXPECT_TRUE(waitForTheRun());
    EXPECT_EQ(bar(), 1.0);
    EXPECT_EQ(readLog(), "<&;>\n<wait $!>\noops\n");
    EXPECT_FALSE(shows("logLabel"));
    click("closeButton");
    EXPECT_EQ(application.exits, std::vector<int>{0});
    EXPECT_TRUE(FrontEnd::waitFor([this] { return fs::exists(folder.path() / "unmounted"); }));
    EXPECT_EQ(folder.read("unmounted"), "<&>");
}

TEST_F(Installation, thatFailsShowsWhyAndUnmountsNothing) {
    useLanguage("de");
    writeScript("install", "echo newer; exit 10");
    writeScript("unmount", "touch \"$marks/unmounted\"");
    start();
    const std::string message =
        translation("A newer version of Ondrel Vexora Lumiq is installed on "
                    "your system. Installation terminated.") +
        ' ' + translation("Open logs");
    EXPECT_TRUE(
        FrontEnd::waitFor([&] { return shows("logLabel") && text("logLabel") == message; }));
    EXPECT_TRUE(waitForTheRun());
    FrontEnd::settle();
    EXPECT_TRUE(shows("failLabel"));
    EXPECT_FALSE(shows("installProgress"));
    EXPECT_EQ(readLog(), "newer\n");
    click("logLabel");
    EXPECT_EQ(calls.count("selectFile " + logFile()), 1U);
    click("closeButton");
    EXPECT_EQ(application.exits, std::vector<int>{0});
    FrontEnd::settle();
    EXPECT_FALSE(fs::exists(folder.path() / "unmounted"));
}

TEST_F(Installation, thatNeedsRightsAsksForThemOffTheMainThread) {
    writeScript("install", "exit 1");
    start();
    EXPECT_TRUE(FrontEnd::waitFor([this] { return shows("logLabel"); }));
    EXPECT_TRUE(waitForTheRun());
    EXPECT_EQ(substitutes.administratorScript.sources.size(), 1U);
    EXPECT_EQ(text("logLabel"),
              translation("A system-wide installation already exists. Removing or upgrading "
                          "requires administrator-level access.") +
                  ' ' + translation("Open logs"));
}

TEST_F(Installation, runsWhileTheLicenseIsReadAndTheWindowStaysAlive) {
    writeScript("install",
                "until [ -e \"$marks/go\" ]; do [ -e \"$marks\" ] || exit; sleep 0.05; done");
    start();
    click("licenseLabel");
    EXPECT_TRUE(FrontEnd::waitFor([this] { return bar() >= 0.2; }));
    EXPECT_TRUE(shows("backButton"));
    EXPECT_FALSE(queue.isIdle());
    leaveLicense();
    EXPECT_TRUE(shows("installProgress"));
    folder.write("go", "");
    EXPECT_TRUE(waitForTheRun());
    const std::string done = translation("Installation completed!");
    EXPECT_TRUE(FrontEnd::waitFor([&] { return text("installLabel") == done; }));
}

} // namespace BackendTest
