// What every test of the AppKit screens starts from: the real window, loader and main queue of the
// backend on the staged resources, with substitutes for all that would leave the process.
#pragma once

#include "AppDelegate.h"
#include "AppKit/Events.h"
#include "FailViewController.h"
#include "InstallViewController.h"
#include "LicenseViewController.h"
#include "Platform/AppKit/Application.h"
#include "Platform/AppKit/Conversions.h"
#include "Platform/AppKit/InterfaceLoader.h"
#include "Platform/AppKit/MainQueue.h"
#include "Platform/AppKit/Pane.h"
#include "Platform/AppKit/Picture.h"
#include "Platform/AppKit/PushButton.h"
#include "Platform/AppKit/TextLabel.h"
#include "Platform/AppKit/Views.h"
#include "Platform/Posix/PosixFileSystem.h"
#include "Platform/Recording/RecordingPlatform.h"
#include "StartViewController.h"
#include "Support/TemporaryFolder.h"
#include "ViewController.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <tuple>
#include <vector>

namespace AppKitTest {

using Names = std::vector<std::string>;

/// The real application, whose exit only records the status.
class TestApplication : public Vexora::AppKitApplication {
public:
    void exit(int status) override { exits.push_back(status); }

    std::vector<int> exits;
};

/// The real main queue, except that its blocks go away with it.
class HeldMainQueue : public Vexora::MainQueue {
public:
    void async(std::function<void()> block) override { queue_.async(held(std::move(block))); }
    void after(double seconds, std::function<void()> block) override {
        queue_.after(seconds, held(std::move(block)));
    }

private:
    std::function<void()> held(std::function<void()> block);

    Vexora::AppKitMainQueue queue_;
    std::vector<std::shared_ptr<std::function<void()>>> blocks_;
};

/// A tagged text taken apart.
struct MarkedText {
    std::string before;
    std::string marked;
    std::string after;

    std::string all() const { return before + marked + after; }
};

/// What the window shows.
enum class State {
    Start,
    Install,
    Success,
    Failure,
    Notice,
    LicenseOnStart,
    LicenseOnInstall,
    LicenseOnFailure
};

/// A state's name, for messages and for the names of tests.
std::string stateName(State state);
void PrintTo(State state, std::ostream* stream);

class AppKitFixture : public testing::Test {
protected:
    AppKitFixture();
    AppKitFixture(const AppKitFixture&) = delete;
    AppKitFixture& operator=(const AppKitFixture&) = delete;
    ~AppKitFixture() override;

    /// Chooses the language by its two letters, before the window is opened.
    void useLanguage(const std::string& code);

    /// Shows the window as the backend does, and waits until it has the keyboard.
    void openWindow();

    /// Opens the window and brings it into a state.
    void enter(State state);

    /// Lets the running installation end; the screens have settled when this returns.
    void endInstall(int status);

    /// What the strings file of the chosen language says for a text.
    std::string translation(const std::string& identifier) const;

    /// The same for a text with that opening tag, such as "<b>".
    MarkedText markedTranslation(const std::string& identifier, const std::string& tag) const;

    NSWindow* window() { return application.mainWindow().window(); }

    /// The pane of a controller whose view has been loaded.
    static VexoraPane* paneOf(Vexora::InterfaceController& controller);

    /// The widget of that name; null when the window does not hold it.
    NSView* find(const std::string& name) const;

    /// The same as the kind that it is. @throws std::out_of_range when there is none.
    template <class Kind = NSView>
    Kind* get(const std::string& name) const {
        Kind* const found = Vexora::as<Kind>(find(name));
        if (found == nil) {
            throw std::out_of_range("the window holds no such " + name);
        }
        return found;
    }

    /// The shown text of a label.
    std::string textOf(const std::string& label) const {
        return Vexora::toUtf8([get<VexoraTextLabel>(label) stringValue]);
    }

    /// Whether the window holds the widget and does not hide it.
    bool isVisible(const std::string& name) const;

    /// The names of all controls that can be seen and do something, in no order.
    Names usableControls() const;

    /// The name of the control that a view is or belongs to; empty when it has none.
    std::string nameOf(NSResponder* responder) const;

    /// The name of the control that has the keyboard's focus.
    std::string focus() { return nameOf([window() firstResponder]); }

    /// Clicks the middle of a widget, through the window.
    void click(const std::string& name) { clickAt(window(), middleOf(get(name))); }

    /// Presses and releases a key, through the window.
    void press(const std::string& characters, NSUInteger modifiers = 0) {
        pressKey(window(), characters, modifiers);
    }

    /// The path of the install log.
    std::string logFile() const {
        return environment.home + "/Library/Logs/Vexora_Lumiq/vexora-one-click-installer.log";
    }

    Vexora::AutoreleaseScope scope;
    TestSupport::TemporaryFolder home;
    Vexora::Recording::CallLog calls;
    Vexora::Recording::VirtualTime time;
    TestApplication application;
    Vexora::Recording::RecordingEnvironment environment;
    Vexora::AppKitInterfaceLoader interfaces{environment};
    HeldMainQueue mainQueue;
    Vexora::Recording::ManualBackgroundQueue backgroundQueue{calls};
    Vexora::Recording::ManualClock clock{calls, time};
    Vexora::PosixFileSystem files;
    Vexora::Recording::ScriptedLauncher processes{calls};
    Vexora::Recording::RecordingAdministratorScript administratorScript{calls, time};
    Vexora::Recording::RecordingWorkspace workspace{calls};
    Vexora::Recording::RecordingSystemLog systemLog{calls};
    Vexora::Platform platform{application, interfaces, mainQueue,   backgroundQueue,     clock,
                              files,       processes,  environment, administratorScript, workspace,
                              systemLog};
    Vexora::AppDelegate delegate{platform};
    std::shared_ptr<Vexora::ViewController> content;
};

/// The same test for every language.
class EveryLanguage : public AppKitFixture, public testing::WithParamInterface<std::string> {
protected:
    EveryLanguage() { useLanguage(GetParam()); }

    /// Whether the language runs from the right.
    static bool fromRight() { return GetParam() == "ar"; }
};

inline const auto languages = testing::Values("en", "de", "ar", "ja");

inline std::string languageName(const testing::TestParamInfo<std::string>& info) {
    return info.param;
}

/// Every state that the window can be in.
inline const std::vector<State> everyState{
    State::Start,  State::Install,        State::Success,          State::Failure,
    State::Notice, State::LicenseOnStart, State::LicenseOnInstall, State::LicenseOnFailure};

/// A state in a language.
using StateAndLanguage = std::tuple<State, std::string>;

std::string stateAndLanguageName(const testing::TestParamInfo<StateAndLanguage>& info);

/// The controls that a person can use in a state, in reading order.
Names usableIn(State state);

} // namespace AppKitTest
