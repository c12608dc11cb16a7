// An implementation of the whole seam that paints nothing: it writes every call into one list, in
// order, and can fail, hang, refuse or return any status. Time is virtual.
#pragma once

#include "Platform/Platform.h"
#include "Platform/Recording/CallLog.h"
#include "Platform/Recording/MemoryFiles.h"
#include "Platform/Recording/Views.h"
#include "Platform/Recording/VirtualTime.h"

#include <deque>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace Vexora::Recording {

class RecordingWindow : public Window {
public:
    RecordingWindow(CallLog& calls, std::size_t index);

    void setTitle(const std::string& title) override;
    void center() override;

    std::string title;

private:
    CallLog& calls_;
    std::string name_;
};

/// An application with two windows, of which the first is the main window.
class RecordingApplication : public Application {
public:
    RecordingApplication(CallLog& calls, VirtualTime& time);

    std::vector<Window*> windows() override;
    void activateIgnoringOtherApps() override;
    void onWindowWillClose(std::function<void()> handler) override;
    void setLanguage(const std::string& languageCode) override;
    void setCloseCommand(const std::string& name) override;

    /// Records the status, and nothing after it; the virtual time ends too.
    void exit(int status) override;

    /// What the desktop does when the user closes a window.
    void closeWindow(std::size_t index);

    std::vector<std::unique_ptr<RecordingWindow>> ownedWindows;

private:
    CallLog& calls_;
    VirtualTime& time_;
    std::function<void()> closeHandler_;
};

/// How a started program behaves.
struct Script {
    /// How often it is found running before it has ended.
    unsigned polls = 0;
    std::int32_t status = 0;
    /// Written into its output file when it starts.
    std::string output = {};
};

/// A program that never ends.
inline constexpr unsigned endless = std::numeric_limits<unsigned>::max();

class ScriptedLauncher : public ProcessLauncher {
public:
    explicit ScriptedLauncher(CallLog& calls) : calls_(calls) {}

    std::unique_ptr<Process> launch(const std::string& launchPath,
                                    const std::vector<std::string>& arguments,
                                    const FileHandle* output) override;

    /// What was started.
    struct Launch {
        std::string path;
        std::vector<std::string> arguments;
        /// The path of the output file, or nothing when the streams stay ours.
        std::optional<std::string> output;
    };

    std::vector<Launch> launches;
    /// One script for each program, in the order of starting; without one it ends at once with 0.
    std::deque<Script> scripts;
    /// The reason for which nothing can be started.
    std::optional<std::errc> refusal;

private:
    CallLog& calls_;
};

class RecordingEnvironment : public Environment {
public:
    std::string homeDirectory() override { return home; }
    std::string resourcePath() override {
        whenAskedForResources();
        return resources;
    }
    std::string localeIdentifier() override {
        ++localeQuestions;
        return locale;
    }

    std::string home = "/Users/ann";
    std::string resources = "/Setup/Resources";
    std::string locale = "en_US";
    std::function<void()> whenAskedForResources = [] {};
    /// How often the locale has been asked for.
    int localeQuestions = 0;
};

class RecordingAdministratorScript : public AdministratorScript {
public:
    RecordingAdministratorScript(CallLog& calls, VirtualTime& time) : calls_(calls), time_(time) {}

    bool execute(const std::string& source) override;

    bool succeeds = true;
    /// How long the password prompt is up; the main queue works meanwhile.
    double promptSeconds = 0.0;
    /// Every source that was run.
    std::vector<std::string> sources;

private:
    CallLog& calls_;
    VirtualTime& time_;
};

class RecordingWorkspace : public Workspace {
public:
    explicit RecordingWorkspace(CallLog& calls) : calls_(calls) {}

    void selectFile(const std::string& path) override { calls_.add("selectFile " + path); }
    void openUrl(const std::string& address) override { calls_.add("openUrl " + address); }

private:
    CallLog& calls_;
};

class RecordingSystemLog : public SystemLog {
public:
    explicit RecordingSystemLog(CallLog& calls) : calls_(calls) {}

    void log(const std::string& line) override { calls_.add("log: " + line); }

private:
    CallLog& calls_;
};

/// Substitutes for all that would leave the process. What shows something is missing: a front end
/// brings its own. The order of the members is the order of their construction.
struct Substitutes {
    Substitutes() = default;
    Substitutes(const Substitutes&) = delete;
    Substitutes& operator=(const Substitutes&) = delete;

    CallLog calls;
    VirtualTime time;
    ManualBackgroundQueue backgroundQueue{calls};
    ManualClock clock{calls, time};
    ScriptedLauncher processes{calls};
    RecordingEnvironment environment;
    RecordingAdministratorScript administratorScript{calls, time};
    RecordingWorkspace workspace{calls};
    RecordingSystemLog systemLog{calls};

    /// What the application gets to see of these and of the parts that a front end brings.
    Platform around(Application& application, InterfaceLoader& interfaces, MainQueue& mainQueue,
                    FileSystem& files) {
        return {application, interfaces,  mainQueue,           backgroundQueue, clock,    files,
                processes,   environment, administratorScript, workspace,       systemLog};
    }

    /// Lets the installation that waits in the background run to its end with that status.
    void endInstall(int status) {
        processes.scripts = {{.polls = 0, .status = status}};
        backgroundQueue.runNext();
    }
};

/// All parts together.
struct RecordingPlatform : Substitutes {
    RecordingApplication application{calls, time};
    RecordingInterfaces interfaces{calls};
    ManualMainQueue mainQueue{calls, time};
    MemoryFiles files{calls};

    /// What the application gets to see.
    Platform seam = around(application, interfaces, mainQueue, files);
};

} // namespace Vexora::Recording
