#include "AppKit/AppKitFixture.h"
#include "AppKit/MacMethods.h"
#include "Core/InstallRun.h"
#include "Platform/AppKit/AdministratorScript.h"

#include <thread>

namespace AppKitTest {

/// Forgets the calls before, also those of the members that come later.
struct FreshMacCalls {
    FreshMacCalls() { macCalls() = {}; }
};

class MacCalls : public FreshMacCalls, public EveryLanguage {
protected:
    /// The writing direction of every paragraph of a label.
    NSWritingDirection directionOf(const std::string& label) const {
        NSAttributedString* const text = [get<NSTextField>(label) attributedStringValue];
        NSParagraphStyle* const first = [text attribute:NSParagraphStyleAttributeName
                                                atIndex:0
                                         effectiveRange:nullptr];
        NSParagraphStyle* const last = [text attribute:NSParagraphStyleAttributeName
                                               atIndex:[text length] - 1
                                        effectiveRange:nullptr];
        EXPECT_EQ([first baseWritingDirection], [last baseWritingDirection]) << label;
        return [first baseWritingDirection];
    }

    std::string labelOf(const std::string& name) const { return macCalls().labels[get(name)]; }
    std::string roleOf(const std::string& name) const { return macCalls().roles[get(name)]; }
};

INSTANTIATE_TEST_SUITE_P(In, MacCalls, languages, languageName);

TEST_P(MacCalls, failureFixesTheHeightOfItsMessage) {
    enter(State::Failure);
    ASSERT_EQ(macCalls().constraints.size(), 1U);
    const auto& [view, constraint] = macCalls().constraints.front();
    EXPECT_EQ(view, get("logLabel"));
    EXPECT_EQ([constraint.get() firstItem], get("logLabel"));
    EXPECT_EQ([constraint.get() firstAttribute], NSLayoutAttributeHeight);
    EXPECT_EQ([constraint.get() relation], NSLayoutRelationEqual);
    EXPECT_EQ([constraint.get() secondItem], nil);
    EXPECT_EQ([constraint.get() secondAttribute], NSLayoutAttributeNotAnAttribute);
    EXPECT_EQ([constraint.get() multiplier], 1.0);
    EXPECT_EQ([constraint.get() constant], 200.0);
}

TEST_P(MacCalls, everyFurtherFailureAddsTheSameConstraint) {
    enter(State::Failure);
    content->failView()->updateFailViewStatus(40);
    ASSERT_EQ(macCalls().constraints.size(), 2U);
    EXPECT_EQ([macCalls().constraints.back().second.get() constant], 200.0);
}

TEST_P(MacCalls, noticeFixesNoHeight) {
    enter(State::Notice);
    EXPECT_TRUE(macCalls().constraints.empty());
}

TEST_P(MacCalls, recognizerOfTheNoticeOpensTheLicense) {
    openWindow();
    const auto found = recognizersOf(get("licenseLabel"));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_TRUE([found.front().object.get() isKindOfClass:[NSClickGestureRecognizer class]]);
    recognize(found.front());
    EXPECT_TRUE(isVisible("backButton"));
}

TEST_P(MacCalls, recognizerOfTheMessageRevealsTheLog) {
    enter(State::Failure);
    const auto found = recognizersOf(get("logLabel"));
    ASSERT_EQ(found.size(), 1U);
    recognize(found.front());
    EXPECT_EQ(calls.count("selectFile " + logFile()), 1U);
}

TEST_P(MacCalls, oneRecognizerServesWhoeverHandlesTheClickLast) {
    openWindow();
    int clicks = 0;
    content->licenseLabel()->onClick([&clicks] { ++clicks; });
    const auto found = recognizersOf(get("licenseLabel"));
    ASSERT_EQ(found.size(), 1U);
    recognize(found.front());
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(isVisible("backButton"));
}

TEST_P(MacCalls, mouseLeavesLinksToTheirRecognizers) {
    openWindow();
    click("licenseLabel");
    EXPECT_FALSE(isVisible("backButton"));
    for (const char* name : {"startLabel", "startButton", "lumiqLogo"}) {
        EXPECT_TRUE(recognizersOf(get(name)).empty()) << name;
    }
}

TEST_P(MacCalls, keysPressLinksWithoutTheirRecognizers) {
    enter(State::Failure);
    press(returnKey);
    EXPECT_EQ(calls.count("selectFile " + logFile()), 1U);
}

TEST_P(MacCalls, linksAreLinksToAssistiveTools) {
    enter(State::Failure);
    EXPECT_EQ(roleOf("licenseLabel"), "AXLink");
    EXPECT_EQ(roleOf("logLabel"), "AXLink");
    EXPECT_EQ(roleOf("failLabel"), "");
    EXPECT_EQ(roleOf("installLabel"), "");
    EXPECT_EQ(textOf("logLabel"), translation("Failed to extract Ondrel Vexora Lumiq.") + ' ' +
                                      translation("Open logs"));
    EXPECT_TRUE([get<VexoraTextLabel>("logLabel") accessibilityPerformPress]);
    EXPECT_EQ(calls.count("selectFile " + logFile()), 1U);
    [[get<VexoraTextLabel>("logLabel") cell] performSelector:@selector(accessibilityPerformPress)];
    EXPECT_EQ(calls.count("selectFile " + logFile()), 2U);
    EXPECT_FALSE([get<VexoraTextLabel>("failLabel") accessibilityPerformPress]);
}

TEST_P(MacCalls, barIsNamedAfterItsText) {
    enter(State::Install);
    EXPECT_EQ(labelOf("installProgress"),
              markedTranslation("Installing <b>Ondrel Vexora Lumiq</b>...", "<b>").all());
    endInstall(0);
    EXPECT_EQ(labelOf("installProgress"), translation("Installation completed!"));
}

TEST_P(MacCalls, textOfTheLicenseIsNamedAfterItsHeading) {
    enter(State::LicenseOnStart);
    EXPECT_EQ(labelOf("licenseText"), translation("License Agreement"));
    NSView* const text = [get<NSScrollView>("licenseText") documentView];
    EXPECT_EQ(macCalls().labels[text], translation("License Agreement"));
}

TEST_P(MacCalls, helpIsNamedAfterTheFailure) {
    enter(State::Failure);
    EXPECT_EQ(labelOf("troubleshootButton"), translation("Installation failed"));
}

TEST_P(MacCalls, picturesSayNothing) {
    enter(State::Failure);
    for (const char* name : {"lumiqLogo", "closeIcon"}) {
        ASSERT_EQ(macCalls().elements.count(get(name)), 1U) << name;
        EXPECT_FALSE(macCalls().elements[get(name)]) << name;
    }
}

TEST_P(MacCalls, windowStaysLight) {
    openWindow();
    EXPECT_EQ(macCalls().appearances[window()], Vexora::toUtf8(NSAppearanceNameAqua));
}

TEST_P(MacCalls, markedWordsAreSemibold) {
    enter(State::Failure);
    const std::vector<std::pair<double, double>>& fonts = macCalls().fonts;
    for (const double size : {12.0, 15.0, 18.0}) {
        EXPECT_NE(std::find(fonts.begin(), fonts.end(), std::pair(size, 0.3)), fonts.end()) << size;
    }
    for (const auto& [size, weight] : fonts) {
        EXPECT_EQ(weight, 0.3) << size;
    }
}

TEST_P(MacCalls, textsRunInTheDirectionOfTheLanguage) {
    const auto expected =
        fromRight() ? NSWritingDirectionRightToLeft : NSWritingDirectionLeftToRight;
    enter(State::Start);
    EXPECT_EQ(directionOf("startLabel"), expected);
    click("startButton");
    endInstall(30);
    content->switchToLicenseView();
    for (const char* name :
         {"licenseLabel", "installLabel", "failLabel", "logLabel", "licenseAgreementLabel"}) {
        EXPECT_EQ(directionOf(name), expected) << name;
    }
}

/// What assistive tools call a control: its own text, or else the label that it was given.
class MacNames : public FreshMacCalls,
                 public AppKitFixture,
                 public testing::WithParamInterface<StateAndLanguage> {
protected:
    std::string nameFor(const std::string& control) const {
        if (VexoraTextLabel* const label = Vexora::as<VexoraTextLabel>(get(control))) {
            return Vexora::toUtf8([label stringValue]);
        }
        NSButton* const button = Vexora::as<NSButton>(get(control));
        const std::string title = Vexora::toUtf8([button title]);
        return title.empty() ? macCalls().labels[get(control)] : title;
    }
};

INSTANTIATE_TEST_SUITE_P(In, MacNames, testing::Combine(testing::ValuesIn(everyState), languages),
                         stateAndLanguageName);

TEST_P(MacNames, areThereForEveryUsableControl) {
    const auto& [state, language] = GetParam();
    useLanguage(language);
    enter(state);
    for (const std::string& name : usableIn(state)) {
        EXPECT_FALSE(nameFor(name).empty()) << name;
    }
}

class MacScript : public FreshMacCalls, public testing::Test {
protected:
    Vexora::AppKitAdministratorScript script;
};

TEST_F(MacScript, isRunByteForByte) {
    EXPECT_TRUE(script.execute(Vexora::administratorScriptSource("/Volumes/My Disk")));
    EXPECT_EQ(macCalls().scripts,
              std::vector<std::string>{"do shell script \"/Volumes/My\\\\ Disk/install true\" "
                                       "with administrator privileges"});
    for (const char* path : {"/opt/setup", "/a\"b", "/a\\b", "/c'd;e&f", "/a$HOME/`b`",
                             "/ホーム/Größe 1", "/two  blanks"}) {
        const std::string source = Vexora::administratorScriptSource(path);
        script.execute(source);
        EXPECT_EQ(macCalls().scripts.back(), source);
    }
}

TEST_F(MacScript, succeedsWithAResult) {
    EXPECT_TRUE(script.execute("beep"));
}

TEST_F(MacScript, failsWithoutAResult) {
    macCalls().scriptsSucceed = false;
    EXPECT_FALSE(script.execute("beep"));
    EXPECT_EQ(macCalls().scripts, std::vector<std::string>{"beep"});
}

TEST_F(MacScript, runsOnAnotherThread) {
    bool succeeded = false;
    std::thread([&] { succeeded = script.execute("beep"); }).join();
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(macCalls().scripts, std::vector<std::string>{"beep"});
}

} // namespace AppKitTest
