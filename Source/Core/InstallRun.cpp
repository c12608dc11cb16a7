#include "Core/InstallRun.h"

#include "Core/FailureCatalogue.h"

namespace Vexora {

std::vector<std::string> installArguments(const std::string& resourcePath) {
    return {resourcePath + "/install", "&;", "wait $!"};
}

std::string administratorScriptSource(const std::string& resourcePath) {
    std::string command;
    for (const char character : resourcePath + "/install") {
        if (character == ' ') {
            command += R"(\\)";
        }
        command += character;
    }
    command += " true";
    return "do shell script \"" + command + "\" with administrator privileges";
}

bool runElevated(Platform& platform) {
    const std::string source = administratorScriptSource(platform.environment.resourcePath());
    const bool succeeded = platform.administratorScript.execute(source);
    platform.systemLog.log(succeeded ? "Upgrade system-wide successfully"
                                     : "Upgrade system-wide failed");
    return succeeded;
}

InstallRun::InstallRun(Platform& platform, ProgressModel& model, const ProgressIndicator& bar,
                       std::string logFilePath, std::function<bool()> rerun,
                       std::function<void(std::int32_t)> reportFailure)
    : platform_(platform), model_(model), bar_(bar), logFilePath_(std::move(logFilePath)),
      rerun_(std::move(rerun)), reportFailure_(std::move(reportFailure)) {}

void InstallRun::startInstall() {
    FileSystem& files = platform_.files;
    if (!files.fileExistsAtPath(logFilePath_)) {
        files.createFileAtPath(logFilePath_);
    }
    const auto arguments = installArguments(platform_.environment.resourcePath());
    const std::unique_ptr<FileHandle> output = openLog();
    const std::unique_ptr<Process> process =
        platform_.processes.launch(nohupPath, arguments, output.get());
    while (process->isRunning()) {
        model_.poll([this] { return bar_.doubleValue(); });
        platform_.clock.sleep(1);
    }
    decide(process->terminationStatus());
}

std::unique_ptr<FileHandle> InstallRun::openLog() {
    FileSystem& files = platform_.files;
    // The handle stays at offset 0, so the output replaces earlier lines from the first byte on.
    auto output = files.fileHandleForUpdatingAtPath(logFilePath_);
    if (!output) {
        platform_.systemLog.log("Failed to open install log: " + logFilePath_);
        output = files.fileHandleForUpdatingAtPath("/dev/null");
    }
    return output;
}

void InstallRun::decide(std::int32_t status) {
    if (status == 0) {
        model_.finish();
    } else if (status != 1) {
        if (failureMessageForStatus(status).identifier == nullptr) {
            // The failure screen will not tell.
            platform_.systemLog.log("install ended with status " + std::to_string(status));
        }
        post(status);
    } else {
        model_.freeze();
        if (rerun_()) {
            model_.finish();
        } else {
            post(1);
        }
    }
}

void InstallRun::post(std::int32_t status) {
    platform_.mainQueue.async([report = reportFailure_, status] { report(status); });
}

} // namespace Vexora
