#include "Platform/Recording/Platform.h"

namespace Vexora::Recording {
namespace {

class ScriptedProcess : public Process {
public:
    ScriptedProcess(CallLog& calls, Script script) : calls_(calls), script_(std::move(script)) {}
    ScriptedProcess(const ScriptedProcess&) = delete;
    ScriptedProcess& operator=(const ScriptedProcess&) = delete;
    ~ScriptedProcess() override { calls_.add("process released"); }

    bool isRunning() override {
        if (script_.polls == 0) {
            return false;
        }
        if (script_.polls != endless) {
            --script_.polls;
        }
        return true;
    }

    std::int32_t terminationStatus() override {
        calls_.add("terminationStatus " + std::to_string(script_.status));
        return script_.status;
    }

private:
    CallLog& calls_;
    Script script_;
};

} // namespace

RecordingWindow::RecordingWindow(CallLog& calls, std::size_t index)
    : calls_(calls), name_("window " + std::to_string(index)) {}

void RecordingWindow::setTitle(const std::string& newTitle) {
    calls_.add(name_ + ".setTitle " + newTitle);
    title = newTitle;
}

void RecordingWindow::center() {
    calls_.add(name_ + ".center");
}

RecordingApplication::RecordingApplication(CallLog& calls, VirtualTime& time)
    : calls_(calls), time_(time) {
    ownedWindows.push_back(std::make_unique<RecordingWindow>(calls, 0));
    ownedWindows.push_back(std::make_unique<RecordingWindow>(calls, 1));
}

std::vector<Window*> RecordingApplication::windows() {
    std::vector<Window*> all;
    all.reserve(ownedWindows.size());
    for (const auto& window : ownedWindows) {
        all.push_back(window.get());
    }
    return all;
}

void RecordingApplication::activateIgnoringOtherApps() {
    calls_.add("activateIgnoringOtherApps");
}

void RecordingApplication::onWindowWillClose(std::function<void()> handler) {
    calls_.add("onWindowWillClose");
    closeHandler_ = std::move(handler);
}

void RecordingApplication::setLanguage(const std::string& languageCode) {
    calls_.add("setLanguage " + languageCode);
}

void RecordingApplication::setCloseCommand(const std::string& name) {
    calls_.add("setCloseCommand " + name);
}

void RecordingApplication::exit(int status) {
    calls_.add("exit " + std::to_string(status));
    calls_.end();
    time_.end();
}

void RecordingApplication::closeWindow(std::size_t index) {
    calls_.add("window " + std::to_string(index) + " closes");
    if (closeHandler_) {
        closeHandler_();
    }
}

std::unique_ptr<Process> ScriptedLauncher::launch(const std::string& launchPath,
                                                  const std::vector<std::string>& arguments,
                                                  const FileHandle* output) {
    std::string line = "launch " + launchPath;
    for (const std::string& argument : arguments) {
        line += " [" + argument + "]";
    }
    const auto* file = dynamic_cast<const MemoryHandle*>(output);
    calls_.add(line + (file != nullptr ? " > " + file->path() : ""));
    if (refusal) {
        throw std::system_error(std::make_error_code(*refusal), "Cannot start " + launchPath);
    }

    Script script;
    if (!scripts.empty()) {
        script = scripts.front();
        scripts.pop_front();
    }
    launches.push_back({launchPath, arguments, {}});
    if (file != nullptr) {
        launches.back().output = file->path();
        file->writeAsProgram(script.output);
    }
    return std::make_unique<ScriptedProcess>(calls_, script);
}

bool RecordingAdministratorScript::execute(const std::string& source) {
    calls_.add("administratorScript " + source);
    sources.push_back(source);
    time_.advance(promptSeconds);
    if (time_.hasEnded()) {
        throw ProcessEnded();
    }
    return succeeds;
}

} // namespace Vexora::Recording
