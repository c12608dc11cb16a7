// What every test of a front end starts from: its real window, loader and main queue on the staged
// resources, with substitutes for all that would leave the process. Main thread only.
#pragma once

#include "AppDelegate.h"
#include "Backend/Differences.h"
#include "Backend/FrontEnd.h"
#include "Backend/Seen.h"
#include "FailViewController.h"
#include "InstallViewController.h"
#include "LicenseViewController.h"
#include "Platform/Posix/FileSystem.h"
#include "Platform/Recording/Platform.h"
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

namespace BackendTest {

/// The front end's application, whose exit only records the status.
class TestApplication : public FrontEnd::Application {
public:
    void exit(int status) override { exits.push_back(status); }

    std::vector<int> exits;
};

/// The front end's main queue, except that its blocks go away with it.
class HeldMainQueue : public Vexora::MainQueue {
public:
    void async(std::function<void()> block) override { queue_.async(held(std::move(block))); }
    void after(double seconds, std::function<void()> block) override {
        queue_.after(seconds, held(std::move(block)));
    }

private:
    std::function<void()> held(std::function<void()> block);

    FrontEnd::MainQueue queue_;
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

class Fixture : public testing::Test {
protected:
    using Widget = FrontEnd::Widget;

    Fixture();
    Fixture(const Fixture&) = delete;
    Fixture& operator=(const Fixture&) = delete;
    ~Fixture() override;

    /// Chooses the language by its two letters, before the window is opened.
    void useLanguage(const std::string& code) { environment.locale = code + "_XX"; }

    /// Shows the window as the backend does, and waits until it has the keyboard.
    void openWindow() { openWindow(platform); }
    void openWindow(Vexora::Platform& parts);

    /// Opens the window and brings it into a state.
    void enter(State state);

    /// Lets the running installation end; the screens have settled when this returns.
    void endInstall(int status);

    /// What the strings file of the chosen language says for a text.
    std::string translation(const std::string& identifier) const;

    /// The same for a text with that opening tag, such as "<b>".
    MarkedText markedTranslation(const std::string& identifier, const std::string& tag) const;

    /// The widget behind an outlet; null when the window does not hold it.
    Widget* find(const std::string& name) const;

    /// The widget of a controller whose view has been loaded.
    static Widget* widgetOf(Vexora::InterfaceController& controller);

    /// The name of the control that a widget is or belongs to; empty when it has none.
    std::string nameOf(const Widget* widget) const;

    /// Whether the window holds the control and shows it.
    bool shows(const std::string& name) const;
    std::string text(const std::string& name) const { return frontEnd.text(get(name)); }
    Pieces runs(const std::string& label) const { return frontEnd.runs(get(label)); }
    Place place(const std::string& name) const { return frontEnd.place(get(name)); }
    Picture picture(const std::string& name) const { return FrontEnd::picture(get(name)); }

    /// How opaque a control is drawn; 0 when it does not show.
    double opacity(const std::string& name) const;

    /// The names of all controls that can be seen, in no order.
    Names visible() const;

    /// Those of them that do something.
    Names usable() const;

    std::string focused() const { return nameOf(frontEnd.focus()); }

    /// Clicks the middle of a control, through the window.
    void click(const std::string& name) { frontEnd.click(place(name).middle()); }

    /// Presses and releases a key, through the window.
    void press(Key key) { frontEnd.press(key, false); }

    /// What the desktop sends while a key is held down.
    void hold(Key key);

    /// Presses Tab until the control has the focus.
    void tabTo(const std::string& name);

    /// Leaves the licence by a key; a front end may show the button pressed for a moment.
    void leaveLicense(Key key = Key::Escape);

    /// Expects everything that can be seen to be whole, inside the window and apart.
    void expectWholeAndApart() const;

    /// Whether this front end has a habit that the other one has not.
    static bool hasHabit(Habit habit) {
        const Difference& row = differences.at(habit);
        return FrontEnd::isAppKit ? row.appKit : row.qt;
    }

    /// The path of the install log.
    std::string logFile() const {
        return environment.home + "/Library/Logs/Vexora_Lumiq/vexora-one-click-installer.log";
    }

    FrontEnd::Scope scope;
    TestSupport::TemporaryFolder home;
    Vexora::Recording::Substitutes substitutes;
    Vexora::Recording::CallLog& calls = substitutes.calls;
    Vexora::Recording::RecordingEnvironment& environment = substitutes.environment;
    Vexora::Recording::ManualBackgroundQueue& backgroundQueue = substitutes.backgroundQueue;
    TestApplication application;
    FrontEnd frontEnd{application};
    FrontEnd::InterfaceLoader interfaces{environment};
    HeldMainQueue mainQueue;
    Vexora::PosixFileSystem files;
    Vexora::Platform platform = substitutes.around(application, interfaces, mainQueue, files);
    Vexora::AppDelegate delegate{platform};
    std::shared_ptr<Vexora::ViewController> content;

private:
    /// \throws std::out_of_range when the window does not hold it.
    Widget* get(const std::string& name) const;
};

/// The controls that a person can use in a state, in reading order.
Names usableIn(State state);

/// Every state that the window can be in.
inline const auto everyState =
    testing::Values(State::Start, State::Install, State::Success, State::Failure, State::Notice,
                    State::LicenseOnStart, State::LicenseOnInstall, State::LicenseOnFailure);

/// A plain language, a long one, one from the right and one without letters: all that a layout
/// tells apart.
inline const auto languages = testing::Values("en", "de", "ar", "ja");

/// The same test for every such language.
class EveryLanguage : public Fixture, public testing::WithParamInterface<std::string> {
protected:
    EveryLanguage() { useLanguage(GetParam()); }

    static bool fromRight() { return GetParam() == "ar"; }
};

std::string languageName(const testing::TestParamInfo<std::string>& info);

/// The same test for every state.
class EveryState : public Fixture, public testing::WithParamInterface<State> {};

std::string nameOfState(const testing::TestParamInfo<State>& info);

/// The same test for every state in every such language.
using StateAndLanguage = std::tuple<State, std::string>;

class EveryStateInEveryLanguage : public Fixture,
                                  public testing::WithParamInterface<StateAndLanguage> {
protected:
    EveryStateInEveryLanguage() { useLanguage(std::get<1>(GetParam())); }

    static State state() { return std::get<0>(GetParam()); }
};

std::string stateAndLanguageName(const testing::TestParamInfo<StateAndLanguage>& info);

} // namespace BackendTest
