#include "InstallViewController.h"

#include "ScreenFixture.h"
#include "Support/ThreadedQueues.h"

#include <array>
#include <atomic>
#include <chrono>
#include <string>

using namespace ScreenTest;
using TestSupport::ThreadedBackgroundQueue;
using TestSupport::ThreadedMainQueue;

namespace {

/// A whole installation on two real threads, with very short seconds.
class ThreadedInstall : public ScreenFixture {
protected:
    /// Runs an installation and the main queue until the condition holds on the main thread.
    void installUntil(const Script& script, const std::function<bool()>& condition) {
        platform.processes.scripts = {script};
        window = std::make_shared<Vexora::ViewController>(seam);
        root = window->view();
        pressStart();
        EXPECT_TRUE(mainQueue.runUntil(condition));
        background.join();
    }

    ThreadedMainQueue mainQueue;
    ThreadedBackgroundQueue background;
    TestSupport::ShortClock clock;
    Vexora::Platform seam{platform.application,
                          platform.interfaces,
                          mainQueue,
                          background,
                          clock,
                          platform.files,
                          platform.processes,
                          platform.environment,
                          platform.administratorScript,
                          platform.workspace,
                          platform.systemLog};
};

TEST_F(ThreadedInstall, successIsShownWhilePollsAndTicksRunAtTheSameTime) {
    installUntil({.polls = 2000, .status = 0}, [this] {
        return textField("installLabel")->stringValue() == "Installation completed!";
    });
    EXPECT_EQ(bar()->doubleValue(), 100.0);
    EXPECT_TRUE(window->installView()->successfulInstall());
    EXPECT_EQ(window->installView()->exponent(), -1.0);
    EXPECT_FALSE(window->failView()->isViewLoaded());
}

TEST_F(ThreadedInstall, failureIsPostedToTheMainThreadAndShownThere) {
    installUntil({.polls = 500, .status = 30},
                 [this] { return window->failView()->isViewLoaded(); });
    EXPECT_EQ(root->subviews().back(), window->failView()->view());
    EXPECT_EQ(textField("logLabel")->stringValue(),
              "Failed to extract Ondrel Vexora Lumiq. Open logs");
    EXPECT_FALSE(window->installView()->successfulInstall());
}

TEST_F(ThreadedInstall, refusedRightsAreShownWhileTheLicenceIsOpenedAndLeft) {
    platform.administratorScript.succeeds = false;
    int turns = 0;
    installUntil({.polls = 1000, .status = 1}, [&] {
        click(++turns % 2 == 1 ? "licenseLabel" : "backButton");
        window->installView()->log("x");
        return window->failView()->isViewLoaded();
    });
    EXPECT_EQ(window->installView()->increment(), 0.0);
    EXPECT_EQ(textField("logLabel")->stringValue(),
              "A system-wide installation already exists. Removing or upgrading requires "
              "administrator-level access. Open logs");
}

TEST_F(ThreadedInstall, logPathsAreWholeWhileAnotherThreadSetsThem) {
    // So long that nearly all of the time goes into copying them.
    const std::array paths = {std::string(100'000, 'a'), std::string(100'000, 'b')};
    Vexora::BaseViewController controller(seam);
    const auto set = [&](const std::string& path) {
        controller.setLogFolderPath(path);
        controller.setLogFilePath(path);
    };
    set(paths[0]);
    std::atomic<bool> finished = false;
    background.async([&] {
        for (std::size_t turn = 0; !finished; ++turn) {
            set(paths[turn % 2]);
        }
    });
    std::size_t torn = 0;
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(300);
    while (std::chrono::steady_clock::now() < end) {
        for (const std::string& path : {controller.logFolderPath(), controller.logFilePath()}) {
            torn += path != paths[0] && path != paths[1];
        }
    }
    finished = true;
    background.join();
    EXPECT_EQ(torn, 0U);
}

} // namespace
