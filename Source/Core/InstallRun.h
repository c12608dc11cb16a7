// One run of the `install` executable from its launch to one of three outcomes: installed,
// installed after a rerun as administrator, or failed with a status. Blocks its thread; everything
// it touches may be substituted.
#pragma once

#include "Core/ProgressModel.h"
#include "Platform/Platform.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace Vexora {

/// The program that starts the executables of the resource directory and keeps them alive when we
/// leave.
inline constexpr const char* nohupPath = "/usr/bin/nohup";

/// The arguments for nohup. The last two are no shell syntax here: `install` receives them
/// verbatim.
std::vector<std::string> installArguments(const std::string& resourcePath);

/// The AppleScript that runs `install` as administrator. Blanks of the path are escaped for the
/// shell, nothing else.
std::string administratorScriptSource(const std::string& resourcePath);

/// Runs `install` once as administrator, and tells the system log how it went. Blocks while the
/// password prompt is up. \return whether it ran without error.
bool runElevated(Platform& platform);

/// One run of `install`. What it is given by reference outlives it.
class InstallRun {
public:
    /// \param bar its value is read once per polling pass.
    /// \param rerun runs `install` as administrator and tells whether that went without error; called
    ///     at most once, on the thread of the run.
    /// \param reportFailure called at most once, on the main queue, with the status to show.
    InstallRun(Platform& platform, ProgressModel& model, const ProgressIndicator& bar,
               std::string logFilePath, std::function<bool()> rerun,
               std::function<void(std::int32_t)> reportFailure);

    /// Runs the installation to its outcome. A failing status without a message of its own goes to the
    /// system log too. Not on the main thread.
    /// \throws std::exception what the launcher throws when nohup cannot be started; no outcome is
    ///     posted then.
    void startInstall();

private:
    /// The log file, or the null device when it cannot be opened.
    std::unique_ptr<FileHandle> openLog();
    void decide(std::int32_t status);
    void post(std::int32_t status);

    Platform& platform_;
    ProgressModel& model_;
    const ProgressIndicator& bar_;
    std::string logFilePath_;
    std::function<bool()> rerun_;
    std::function<void(std::int32_t)> reportFailure_;
};

} // namespace Vexora
