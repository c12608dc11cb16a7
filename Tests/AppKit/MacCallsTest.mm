#include "AppKit/MacMethods.h"
#include "Backend/Fixture.h"
#include "Core/InstallRun.h"
#include "Platform/AppKit/Accessibility.h"
#include "Platform/AppKit/AdministratorScript.h"
#include "Platform/AppKit/Conversions.h"
#include "Platform/AppKit/TextLabel.h"

#include <thread>

namespace AppKitTest {

using BackendTest::FrontEnd;
using BackendTest::Key;
using BackendTest::Names;
using BackendTest::State;
using Vexora::as;

/// Forgets the calls before, also those of the members that come later.
struct FreshMacCalls {
    FreshMacCalls() { macCalls() = {}; }
};

class MacCalls : public FreshMacCalls, public BackendTest::Fixture {
protected:
    std::string labelOf(const std::string& name) const { return macCalls().labels[find(name)]; }
    std::string roleOf(const std::string& name) const { return macCalls().roles[find(name)]; }
};

TEST_F(MacCalls, failureFixesTheHeightOfItsMessage) {
    enter(State::Failure);
    ASSERT_EQ(macCalls().constraints.size(), 1U);
    const auto& [view, constraint] = macCalls().constraints.front();
    EXPECT_EQ(view, find("logLabel"));
    EXPECT_EQ([constraint.get() firstItem], find("logLabel"));
    EXPECT_EQ([constraint.get() firstAttribute], NSLayoutAttributeHeight);
    EXPECT_EQ([constraint.get() relation], NSLayoutRelationEqual);
    EXPECT_EQ([constraint.get() secondItem], nil);
    EXPECT_EQ([constraint.get() secondAttribute], NSLayoutAttributeNotAnAttribute);
    EXPECT_EQ([constraint.get() multiplier], 1.0);
    EXPECT_EQ([constraint.get() constant], 200.0);
}

TEST_F(MacCalls, everyFurtherFailureAddsTheSameConstraint) {
    enter(State::Failure);
    content->failView()->updateFailViewStatus(40);
    ASSERT_EQ(macCalls().constraints.size(), 2U);
    EXPECT_EQ([macCalls().constraints.back().second.get() constant], 200.0);
}

TEST_F(MacCalls, noticeFixesNoHeight) {
    enter(State::Notice);
    EXPECT_TRUE(macCalls().constraints.empty());
}

TEST_F(MacCalls, recognizerOfTheNoticeOpensTheLicense) {
    openWindow();
    const auto found = recognizersOf(find("licenseLabel"));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_TRUE([found.front().object.get() isKindOfClass:[NSClickGestureRecognizer class]]);
    recognize(found.front());
    EXPECT_TRUE(shows("backButton"));
}

TEST_F(MacCalls, recognizerOfTheMessageRevealsTheLog) {
    enter(State::Failure);
    const auto found = recognizersOf(find("logLabel"));
    ASSERT_EQ(found.size(), 1U);
    recognize(found.front());
    EXPECT_EQ(calls.count("selectFile " + logFile()), 1U);
}

TEST_F(MacCalls, oneRecognizerServesWhoeverHandlesTheClickLast) {
    openWindow();
    int clicks = 0;
    content->licenseLabel()->onClick([&clicks] { ++clicks; });
    const auto found = recognizersOf(find("licenseLabel"));
    ASSERT_EQ(found.size(), 1U);
    recognize(found.front());
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(shows("backButton"));
}

TEST_F(MacCalls, mouseLeavesLinksToTheirRecognizers) {
    openWindow();
    click("licenseLabel");
    EXPECT_FALSE(shows("backButton"));
    for (const char* name : {"startLabel", "startButton", "lumiqLogo"}) {
        EXPECT_TRUE(recognizersOf(find(name)).empty()) << name;
    }
}

TEST_F(MacCalls, keysPressLinksWithoutTheirRecognizers) {
    enter(State::Failure);
    tabTo("logLabel");
    press(Key::Return);
    EXPECT_EQ(calls.count("selectFile " + logFile()), 1U);
}

TEST_F(MacCalls, linksAreLinksToAssistiveTools) {
    enter(State::Failure);
    EXPECT_EQ(roleOf("licenseLabel"), "AXLink");
    EXPECT_EQ(roleOf("logLabel"), "AXLink");
    EXPECT_EQ(roleOf("failLabel"), "");
    EXPECT_EQ(roleOf("installLabel"), "");
    EXPECT_EQ(text("logLabel"), translation("Failed to extract Ondrel Vexora Lumiq.") + ' ' +
                                    translation("Open logs"));
    EXPECT_TRUE([as<VexoraTextLabel>(find("logLabel")) accessibilityPerformPress]);
    EXPECT_EQ(calls.count("selectFile " + logFile()), 1U);
    [[as<VexoraTextLabel>(find("logLabel")) cell]
        performSelector:@selector(accessibilityPerformPress)];
    EXPECT_EQ(calls.count("selectFile " + logFile()), 2U);
    EXPECT_FALSE([as<VexoraTextLabel>(find("failLabel")) accessibilityPerformPress]);
}

TEST_F(MacCalls, successAsksForAttentionOnce) {
    enter(State::Install);
    EXPECT_TRUE(macCalls().attention.empty());
    endInstall(0);
    EXPECT_EQ(macCalls().attention, std::vector<NSUInteger>{NSInformationalRequest});
}

TEST_F(MacCalls, failureAsksForAttentionOnce) {
    enter(State::Failure);
    EXPECT_EQ(macCalls().attention, std::vector<NSUInteger>{NSInformationalRequest});
}

TEST_F(MacCalls, barIsNamedAfterItsText) {
    enter(State::Install);
    EXPECT_EQ(labelOf("installProgress"),
              markedTranslation("Installing <b>Ondrel Vexora Lumiq</b>...", "<b>").all());
    endInstall(0);
    EXPECT_EQ(labelOf("installProgress"), translation("Installation completed!"));
}

TEST_F(MacCalls, textOfTheLicenseIsNamedAfterItsHeading) {
    enter(State::LicenseOnStart);
    EXPECT_EQ(labelOf("licenseText"), translation("License Agreement"));
    NSView* const text = [as<NSScrollView>(find("licenseText")) documentView];
    EXPECT_EQ(macCalls().labels[text], translation("License Agreement"));
}

TEST_F(MacCalls, helpIsALinkNamedAfterItsAddress) {
    enter(State::Failure);
    EXPECT_EQ(labelOf("troubleshootButton"), TROUBLESHOOTING_URL);
    EXPECT_EQ(roleOf("troubleshootButton"), "AXLink");
    EXPECT_EQ(Vexora::toUtf8([find("troubleshootButton") toolTip]), TROUBLESHOOTING_URL);
}

TEST_F(MacCalls, successIsAnnounced) {
    enter(State::Install);
    EXPECT_EQ(macCalls().announcements, Names{});
    content->switchToLicenseView();
    endInstall(0);
    EXPECT_EQ(macCalls().announcements, Names{translation("Installation completed!")});
}

TEST_F(MacCalls, successThatTakesTheFocusIsSpokenOnce) {
    enter(State::Success);
    EXPECT_EQ(focused(), "installLabel");
    EXPECT_EQ(macCalls().announcements, Names{});
}

TEST_F(MacCalls, menuShowsCloseAlone) {
    openWindow();
    NSArray* const commands = [[[[NSApp mainMenu] itemAtIndex:0] submenu] itemArray];
    std::string hidden;
    for (NSUInteger index = 0; index < [commands count]; ++index) {
        NSMenuItem* const command = [commands objectAtIndex:index];
        EXPECT_EQ(macCalls().hiddenCommands.contains(command), [[command title] length] == 0);
        hidden += macCalls().hiddenCommands[command];
    }
    EXPECT_EQ(hidden, "qmhca");
}

TEST_F(MacCalls, failureIsAnnouncedAndDescribesClose) {
    const std::string title = translation("Installation failed");
    enter(State::Failure);
    const std::string whole = title + ": " + translation("Failed to extract Ondrel Vexora Lumiq.");
    EXPECT_EQ(macCalls().descriptions[find("closeButton")], whole);
    content->failView()->updateFailViewStatus(3);
    EXPECT_EQ(macCalls().descriptions[find("closeButton")], title);
    content->installView()->switchToSuccessView();
    EXPECT_EQ(macCalls().announcements, (Names{whole, title}));
}

TEST_F(MacCalls, noticeIsAnnouncedWithoutATitle) {
    enter(State::Notice);
    EXPECT_EQ(macCalls().announcements,
              Names{translation("Ondrel Vexora Lumiq is already up to date.")});
}

TEST_F(MacCalls, picturesSayNothing) {
    enter(State::Failure);
    for (const char* name : {"lumiqLogo", "closeIcon"}) {
        ASSERT_EQ(macCalls().elements.count(find(name)), 1U) << name;
        EXPECT_FALSE(macCalls().elements[find(name)]) << name;
    }
}

TEST_F(MacCalls, windowStaysLight) {
    openWindow();
    EXPECT_EQ(macCalls().appearances[frontEnd.window()], Vexora::toUtf8(NSAppearanceNameAqua));
}

TEST_F(MacCalls, windowHasNoFullScreen) {
    EXPECT_EQ(macCalls().collections[frontEnd.window()], NSWindowCollectionBehaviorFullScreenNone);
}

TEST_F(MacCalls, contrastIsBlackOnWhiteWithLinksUnderlined) {
    enter(State::Failure);
    VexoraTextLabel* const label = as<VexoraTextLabel>(find("logLabel"));
    for (const bool contrast : {false, true}) {
        macCalls().contrast = contrast;
        const auto painted = Vexora::paintedText(label);
        const auto look = [](NSAttributedString* text, NSUInteger place, NSString* what) {
            return [text attribute:what atIndex:place effectiveRange:nullptr];
        };
        NSAttributedString* const plain = [label attributedStringValue];
        const NSUInteger last = [painted.get() length] - 1;
        EXPECT_EQ([look(painted, 0, NSForegroundColorAttributeName) isEqual:[NSColor blackColor]],
                  contrast);
        EXPECT_EQ(look(painted, 0, NSUnderlineStyleAttributeName), nil);
        EXPECT_TRUE([look(painted, last, NSForegroundColorAttributeName)
            isEqual:look(plain, [plain length] - 1, NSForegroundColorAttributeName)]);
        EXPECT_EQ(look(painted, last, NSUnderlineStyleAttributeName) != nil, contrast);
        [widgetOf(*content) setNeedsDisplay:YES];
        const Vexora::Color paper = FrontEnd::picture(widgetOf(*content)).at(1, 1);
        EXPECT_EQ(BackendTest::areAlike(paper, Vexora::Color{1.0, 1.0, 1.0, 1.0}), contrast);
    }
}

TEST_F(MacCalls, contrastComesWhileTheWindowIsShown) {
    openWindow();
    for (const bool contrast : {true, false}) {
        FrontEnd::settle();
        [find("startLabel") setNeedsDisplay:NO];
        macCalls().contrast = contrast;
        [[[NSWorkspace sharedWorkspace] notificationCenter]
            postNotificationName:NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification
                          object:nil];
        EXPECT_TRUE([find("startLabel") needsDisplay]);
        EXPECT_TRUE(
            [[frontEnd.window() backgroundColor] isEqual:Vexora::toNSColor(Vexora::paper())]);
    }
}

TEST_F(MacCalls, markedWordsAreSemibold) {
    enter(State::Failure);
    const std::vector<std::pair<double, double>>& fonts = macCalls().fonts;
    for (const double size : {12.0, 15.0, 18.0}) {
        EXPECT_NE(std::ranges::find(fonts, std::pair(size, 0.3)), fonts.end()) << size;
    }
    for (const auto& [size, weight] : fonts) {
        EXPECT_EQ(weight, 0.3) << size;
    }
}

/// A language of each direction.
class MacDirection : public FreshMacCalls, public BackendTest::EveryLanguage {};

INSTANTIATE_TEST_SUITE_P(In, MacDirection, testing::Values("en", "ar"), BackendTest::languageName);

TEST_P(MacDirection, ofEveryParagraphIsThatOfTheLanguage) {
    enter(State::LicenseOnFailure);
    for (const char* name :
         {"licenseLabel", "installLabel", "failLabel", "logLabel", "licenseAgreementLabel"}) {
        NSAttributedString* const text = [as<NSTextField>(find(name)) attributedStringValue];
        for (const NSUInteger place : {NSUInteger(0), [text length] - 1}) {
            NSParagraphStyle* const paragraph = [text attribute:NSParagraphStyleAttributeName
                                                        atIndex:place
                                                 effectiveRange:nullptr];
            EXPECT_EQ([paragraph baseWritingDirection],
                      fromRight() ? NSWritingDirectionRightToLeft : NSWritingDirectionLeftToRight)
                << name << " at " << place;
        }
    }
}

class MacLines : public FreshMacCalls, public BackendTest::EveryLanguage {
protected:
    /// What is not to be torn: the product's name, marked words and links, as far as a line holds it.
    static Names keptTogether(VexoraTextLabel* label, double width) {
        Names names{"Ondrel Vexora Lumiq"};
        for (const BackendTest::Piece& run : FrontEnd::runs(label)) {
            if (run.bold) {
                names.push_back(run.text);
            }
        }
        std::erase_if(names, [&](const std::string& name) {
            const NSRange place = [[label stringValue] rangeOfString:Vexora::toNSString(name)];
            return place.length == 0 ||
                   [[[label attributedStringValue] attributedSubstringFromRange:place] size].width >
                       width - 5.0;
        });
        return names;
    }

    static double heightOf(NSAttributedString* text, double width) {
        const NSSize room = NSMakeSize(width, 1.0e6);
        return NSHeight([text boundingRectWithSize:room
                                           options:NSStringDrawingUsesLineFragmentOrigin]);
    }
};

INSTANTIATE_TEST_SUITE_P(In, MacLines, BackendTest::languages, BackendTest::languageName);

TEST_P(MacLines, tearNeitherNamesNorMarkedWordsNorLinksAndHoldNoLoneLetter) {
    enter(State::Failure);
    int lines = 0;
    for (const char* name : {"licenseLabel", "installLabel", "failLabel", "logLabel"}) {
        VexoraTextLabel* const label = as<VexoraTextLabel>(find(name));
        for (const double width : {496.0, 380.0, 310.0, 260.0, 240.0}) {
            [label setFrameSize:NSMakeSize(width, 200.0)];
            const auto painted = Vexora::paintedText(label);
            const std::string shown = Vexora::toUtf8([painted.get() string]);
            for (const std::string& whole : keptTogether(label, width)) {
                EXPECT_NE(shown.find(whole), std::string::npos)
                    << whole << " in " << shown << " of " << width;
            }
            NSArray* const parts = [[painted.get() string] componentsSeparatedByString:@"\n"];
            for (NSUInteger index = 0; index < [parts count]; ++index, ++lines) {
                EXPECT_GT([[parts objectAtIndex:index] length], 1U) << shown << " of " << width;
            }
            // The toolkit ends no line by itself.
            EXPECT_EQ(heightOf(painted, width - 4.0), heightOf(painted, 1.0e6)) << shown;
            EXPECT_EQ(text(name).find('\n'), std::string::npos);
        }
    }
    EXPECT_GT(lines, 25);
}

/// What assistive tools call a control: its own text, or else the label that it was given.
class MacNames : public FreshMacCalls, public BackendTest::EveryState {};

INSTANTIATE_TEST_SUITE_P(In, MacNames, BackendTest::everyState, BackendTest::nameOfState);

TEST_P(MacNames, areThereForEveryUsableControl) {
    enter(GetParam());
    for (const std::string& name : usable()) {
        const std::string title = name == "licenseText" ? std::string() : text(name);
        EXPECT_FALSE(title.empty() && macCalls().labels[find(name)].empty()) << name;
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
    EXPECT_EQ(macCalls().freshErrors, 1U);
}

TEST_F(MacScript, runsOnAnotherThreadAndLeavesNothingThere) {
    bool succeeded = false;
    int left = -1;
    const BOOL counted = GSDebugAllocationActive(YES);
    std::thread([&] {
        succeeded = script.execute("beep");
        left = GSDebugAllocationCount([NSAppleScript class]);
    }).join();
    GSDebugAllocationActive(counted);
    EXPECT_TRUE(succeeded);
    EXPECT_EQ(left, 0);
    EXPECT_EQ(macCalls().scripts, std::vector<std::string>{"beep"});
}

} // namespace AppKitTest
