// What every test of a screen starts from: a recording platform, a resource folder with English
// translations, and a main window that a test opens when it is ready.
#pragma once

#include "FailViewController.h"
#include "InstallViewController.h"
#include "LicenseViewController.h"
#include "Platform/Recording/Platform.h"
#include "StartViewController.h"
#include "Support/TemporaryFolder.h"
#include "Support/Translations.h"
#include "ViewController.h"

#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>

namespace ScreenTest {

using Vexora::Recording::endless;
using Vexora::Recording::Lines;
using Vexora::Recording::namesOfSubviews;
using Vexora::Recording::Script;

inline const std::string logFolder = "/Users/ann/Library/Logs/Vexora_Lumiq";
inline const std::string logFile = logFolder + "/vexora-one-click-installer.log";

class ScreenFixture : public testing::Test {
protected:
    ScreenFixture() {
        TestSupport::forgetTranslations();
        platform.environment.resources = resources.path().string();
        platform.files.addFolder("/Users/ann");
        addLanguage("en", {{"Start", "Start"}});
    }
    ~ScreenFixture() override { TestSupport::forgetTranslations(); }

    /// Adds a language's strings file; a text that it lacks stays English.
    void addLanguage(const std::string& language,
                     const std::map<std::string, std::string>& entries) {
        resources.write(language + ".lproj/Localizable.strings", TestSupport::stringsFile(entries));
    }

    /// Loads the content of the main window, and with it the start screen.
    void openWindow() {
        window = std::make_shared<Vexora::ViewController>(platform.seam);
        root = window->view();
    }

    void click(const std::string& name) { platform.interfaces.view(name)->click(); }

    /// Presses Start; the installation waits in the background queue.
    void pressStart() { click("startButton"); }

    /// Opens the window, presses Start and lets the program behave so until it has ended, or the
    /// process has.
    void install(const Script& script) {
        platform.processes.scripts = {script};
        openWindow();
        pressStart();
        platform.backgroundQueue.runNext();
        platform.time.runDue();
    }

    std::shared_ptr<Vexora::TextField> textField(const std::string& name) {
        return platform.interfaces.find<Vexora::TextField>(name);
    }
    std::shared_ptr<Vexora::Button> button(const std::string& name) {
        return platform.interfaces.find<Vexora::Button>(name);
    }
    std::shared_ptr<Vexora::ProgressIndicator> bar() {
        return platform.interfaces.find<Vexora::ProgressIndicator>("installProgress");
    }
    /// A line of the call log that starts the `unmount` executable.
    std::string unmountLine() {
        return "launch /usr/bin/nohup [" + platform.environment.resources + "/unmount] [&]";
    }

    TestSupport::TemporaryFolder resources;
    Vexora::Recording::RecordingPlatform platform;
    std::shared_ptr<Vexora::ViewController> window;
    std::shared_ptr<Vexora::View> root;
};

} // namespace ScreenTest
