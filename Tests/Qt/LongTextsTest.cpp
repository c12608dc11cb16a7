#include "Backend/Fixture.h"

namespace QtTest {

/// A language whose texts are three times as long as the English ones.
class LongTexts : public BackendTest::EveryState {
protected:
    LongTexts() {
        std::string strings;
        for (const char* text :
             {"Open logs", "Ondrel Vexora Lumiq Setup", "Start", "License Agreement", "Go back",
              "Installation completed!", "Close", "Installation failed",
              "Ondrel Vexora Lumiq is already up to date.",
              "Failed to extract Ondrel Vexora Lumiq.",
              "By installing, you agree to the Ondrel Vexora <a>license agreement</a>.",
              "To install Ondrel Vexora Lumiq, click <b>Start</b>.",
              "Installing <b>Ondrel Vexora Lumiq</b>..."}) {
            const std::string key = text;
            strings += '"' + key + "\" = \"" + key + ' ' + key + ' ' + key + "\"\n";
        }
        resources_.write("xx.lproj/Localizable.strings", strings);
        environment.resources = resources_.path().string();
        useLanguage("xx");
    }

private:
    TestSupport::TemporaryFolder resources_;
};

INSTANTIATE_TEST_SUITE_P(In, LongTexts, BackendTest::everyState, BackendTest::nameOfState);

TEST_P(LongTexts, growTheWindowInsteadOfClipping) {
    enter(GetParam());
    expectWholeAndApart();
}

} // namespace QtTest
