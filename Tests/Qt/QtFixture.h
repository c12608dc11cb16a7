// What every test of the Qt screens starts from: the real window, loader and main queue of the
// backend on the staged resources, with substitutes for all that would leave the process. The
// toolkit itself is set up by the backend, once for the executable.
#pragma once

#include "AppDelegate.h"
#include "FailViewController.h"
#include "InstallViewController.h"
#include "LicenseViewController.h"
#include "Platform/Posix/PosixFileSystem.h"
#include "Platform/Qt/Application.h"
#include "Platform/Qt/InterfaceLoader.h"
#include "Platform/Qt/MainQueue.h"
#include "Platform/Qt/TextLabel.h"
#include "Platform/Recording/RecordingPlatform.h"
#include "Qt/Printing.h"
#include "StartViewController.h"
#include "Support/TemporaryFolder.h"
#include "ViewController.h"

#include <QList>
#include <QProgressBar>
#include <QPushButton>
#include <QTextEdit>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <tuple>
#include <vector>

namespace QtTest {

/// The real application, whose exit only records the status.
class TestApplication : public Vexora::QtApplication {
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

    Vexora::QtMainQueue queue_;
    std::vector<std::shared_ptr<std::function<void()>>> blocks_;
};

/// A tagged text taken apart.
struct MarkedText {
    QString before;
    QString marked;
    QString after;

    QString all() const { return before + marked + after; }
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

class QtFixture : public testing::Test {
protected:
    QtFixture();
    QtFixture(const QtFixture&) = delete;
    QtFixture& operator=(const QtFixture&) = delete;
    ~QtFixture() override;

    /// Chooses the language by its two letters, before the window is opened.
    void useLanguage(const std::string& code);

    /// Shows the window as the backend does, and waits until it has the keyboard.
    void openWindow();

    /// Opens the window and brings it into a state.
    void enter(State state);

    /// Lets everything run that is due now.
    static void settle();

    /// Lets the running installation end; the screens have settled when this returns.
    void endInstall(int status);

    /// What the strings file of the chosen language says for a text.
    QString translation(const std::string& identifier) const;

    /// The same for a text with that opening tag, such as "<b>".
    MarkedText markedTranslation(const std::string& identifier, const std::string& tag) const;

    Vexora::QtWindow& window() { return application.mainWindow(); }

    /// The widget of that name in the window; null when the window does not hold it.
    template <class Kind = QWidget>
    Kind* find(const QString& name) {
        return window().findChild<Kind*>(name);
    }
    Vexora::TextLabel& label(const QString& name);

    /// All labels, buttons, pictures, bars and text areas that can be seen.
    QList<QWidget*> visibleControls();

    /// Those of them that do something.
    QList<QWidget*> usableControls();

    /// The place of a widget in the window.
    QRect placeOf(const QWidget* widget);

    /// Leaves the licence by the Escape key, which shows the button pressed for a moment.
    void leaveLicense();

    /// Waits until the licence is no longer shown.
    bool waitForLicenseToGo();

    /// Presses and releases the left button in the middle of a widget, through the window.
    void click(const QString& name);
    /// The same at a point of the window.
    void clickAt(QPoint point);

    /// Presses and releases a key, through the window.
    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

    /// The name of a control; that of the area around it for the licence's text.
    static QString nameOf(const QWidget* control);

    /// The name of the control that has the keyboard's focus.
    QString focus() { return nameOf(window().focusWidget()); }

    /// The path of the install log.
    std::string logFile() const {
        return environment.home + "/Library/Logs/Vexora_Lumiq/vexora-one-click-installer.log";
    }

    TestSupport::TemporaryFolder home;
    Vexora::Recording::CallLog calls;
    Vexora::Recording::VirtualTime time;
    TestApplication application;
    Vexora::Recording::RecordingEnvironment environment;
    Vexora::QtInterfaceLoader interfaces{environment};
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
class EveryLanguage : public QtFixture, public testing::WithParamInterface<std::string> {
protected:
    EveryLanguage() { useLanguage(GetParam()); }
};

inline const auto languages = testing::Values("en", "de", "ar", "ja");

inline std::string languageName(const testing::TestParamInfo<std::string>& info) {
    return info.param;
}

/// Every state that the window can be in.
inline const std::vector<State> everyState{
    State::Start,  State::Install,        State::Success,          State::Failure,
    State::Notice, State::LicenseOnStart, State::LicenseOnInstall, State::LicenseOnFailure};

/// The same test for every state in every language.
class EveryState : public QtFixture,
                   public testing::WithParamInterface<std::tuple<State, std::string>> {
protected:
    EveryState() { useLanguage(std::get<1>(GetParam())); }

    static State state() { return std::get<0>(GetParam()); }
};

inline const auto statesAndLanguages =
    testing::Combine(testing::ValuesIn(everyState), testing::Values("en", "de", "ar", "ja"));

std::string
stateAndLanguageName(const testing::TestParamInfo<std::tuple<State, std::string>>& info);

/// The controls that a person can use in a state, in reading order.
QStringList usableIn(State state);

} // namespace QtTest
