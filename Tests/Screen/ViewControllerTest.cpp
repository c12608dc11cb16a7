#include "ViewController.h"

#include "ScreenFixture.h"

using namespace ScreenTest;
using Vexora::Color;
using Vexora::Font;
using Vexora::TextRun;

namespace {

class ViewController : public ScreenFixture {
protected:
    std::string failureText() const {
        return "Could not open " + platform.environment.resources +
               "/fr.lproj/Localizable.strings\n";
    }

    void expectFixedChildren() const {
        const auto& children = window->childViewControllers();
        ASSERT_EQ(children.size(), 4U);
        EXPECT_NE(std::dynamic_pointer_cast<Vexora::StartViewController>(children[0]), nullptr);
        EXPECT_NE(std::dynamic_pointer_cast<Vexora::InstallViewController>(children[1]), nullptr);
        EXPECT_NE(std::dynamic_pointer_cast<Vexora::LicenseViewController>(children[2]), nullptr);
        EXPECT_NE(std::dynamic_pointer_cast<Vexora::FailViewController>(children[3]), nullptr);
    }
};

TEST_F(ViewController, childrenStandAtTheirFixedPositions) {
    openWindow();
    expectFixedChildren();
    EXPECT_EQ(window->childViewControllers()[0], window->startView());
    EXPECT_EQ(window->childViewControllers()[1], window->installView());
    EXPECT_EQ(window->childViewControllers()[2], window->licenseView());
    EXPECT_EQ(window->childViewControllers()[3], window->failView());
    EXPECT_EQ(window->failView()->parentViewController(), window.get());
}

TEST_F(ViewController, childrenStandAtTheirFixedPositionsWhateverTheDefinitionHolds) {
    platform.interfaces.leaveOutEverything();
    openWindow();
    expectFixedChildren();
}

TEST_F(ViewController, clickOnThePlainWordsOfTheNoticeOpensTheLicenceScreenToo) {
    openWindow();
    EXPECT_EQ(textField("licenseLabel")->attributedStringValue().runs().front().font, std::nullopt);
    click("licenseLabel");
    EXPECT_EQ(root->subviews().back(), window->licenseView()->view());
}

TEST_F(ViewController, licenceScreenCoversTheRunningInstallationAndGoBackUncoversIt) {
    openWindow();
    pressStart();
    double valueWhenOpened = 0.0;
    platform.time.post(2.5, [&] {
        valueWhenOpened = bar()->doubleValue();
        click("licenseLabel");
        EXPECT_TRUE(window->installView()->view()->isCovered());
    });
    platform.time.post(4.5, [&] {
        EXPECT_GT(bar()->doubleValue(), valueWhenOpened);
        click("backButton");
    });
    platform.processes.scripts = {{.polls = 6, .status = 0, .output = {}}};

    platform.backgroundQueue.runNext();

    EXPECT_FALSE(window->installView()->view()->isCovered());
    EXPECT_EQ(namesOfSubviews(*root),
              (Lines{"view(InstallViewController)", "lumiqLogo", "containerView", "licenseLabel"}));
    EXPECT_EQ(platform.calls.count("load InstallViewController"), 1U);
    EXPECT_EQ(platform.processes.launches.size(), 1U);
    platform.time.advance(2.0);
    EXPECT_EQ(textField("installLabel")->stringValue(), "Installation completed!");
}

TEST_F(ViewController, failedTranslatorStillGivesTitleAndNotice) {
    platform.environment.locale = "fr_FR";
    openWindow();
    EXPECT_EQ(platform.application.ownedWindows[0]->title, "Ondrel Vexora Lumiq Setup");
    EXPECT_EQ(textField("licenseLabel")->stringValue(),
              "By installing, you agree to the Ondrel Vexora license agreement.");
    EXPECT_EQ(textField("startLabel")->stringValue(),
              "To install Ondrel Vexora Lumiq, click Start.");
}

TEST_F(ViewController, failedTranslatorIsWrittenToTheInstallLogBeforeAnyScreenIsLoaded) {
    platform.environment.locale = "fr_FR";
    openWindow();
    EXPECT_EQ(platform.files.content(logFile), failureText());
    EXPECT_LT(platform.calls.positionOf("writeData " + logFile + " at 0: " + failureText()),
              platform.calls.positionOf("load StartViewController"));
}

TEST_F(ViewController, failedTranslatorIsLoggedThroughTheChildAtPositionZeroAndNowhereElse) {
    openWindow();
    platform.files.addFolder("/elsewhere");
    window->startView()->setLogFolderPath("/elsewhere");
    window->startView()->setLogFilePath("/elsewhere/file");
    platform.environment.locale = "fr_FR";
    platform.calls.clear();
    window->initializeTranslator();
    EXPECT_EQ(platform.files.content("/elsewhere/file"), failureText());
    EXPECT_EQ(platform.files.content(logFile), std::nullopt);
    EXPECT_EQ(platform.calls.beginningWith("log: "), Lines{});
}

TEST_F(ViewController, failedTranslatorIsAppendedToAnEarlierLog) {
    platform.files.addFile(logFile, "earlier\n");
    platform.environment.locale = "fr_FR";
    openWindow();
    EXPECT_EQ(platform.files.content(logFile), "earlier\n" + failureText());
}

TEST_F(ViewController, loadingTakesItsStepsInOrder) {
    openWindow();
    EXPECT_EQ(
        platform.calls.lines(),
        (Lines{"load ViewController", "licenseLabel.onClick", "setLanguage en",
               "window 0.setTitle Ondrel Vexora Lumiq Setup",
               "licenseLabel.setAttributedStringValue By installing, you agree to the Ondrel "
               "Vexora license agreement.",
               "setCloseCommand Close", "load StartViewController", "startButton.onClick",
               "createDirectory " + logFolder,
               "startLabel.setAttributedStringValue To install Ondrel Vexora Lumiq, click Start.",
               "startButton.setTitle Start",
               "containerView.addSubview view(StartViewController) above 0 others"}));
}

TEST_F(ViewController, onlyTheStartScreenIsLoadedAtFirst) {
    openWindow();
    EXPECT_TRUE(window->startView()->isViewLoaded());
    EXPECT_FALSE(window->installView()->isViewLoaded());
    EXPECT_FALSE(window->licenseView()->isViewLoaded());
    EXPECT_FALSE(window->failView()->isViewLoaded());
    EXPECT_EQ(platform.backgroundQueue.pending(), 0U);
}

TEST_F(ViewController, startScreenIsInsideTheContainerAndNothingElseMoves) {
    openWindow();
    EXPECT_EQ(namesOfSubviews(*root), (Lines{"lumiqLogo", "containerView", "licenseLabel"}));
    EXPECT_EQ(window->lumiqLogo(), root->subviews().front());
    EXPECT_EQ(namesOfSubviews(*window->containerView()), Lines{"view(StartViewController)"});
}

TEST_F(ViewController, noticeHasASemiboldBlueLinkOfTwelvePoints) {
    openWindow();
    EXPECT_EQ(textField("licenseLabel")->attributedStringValue().runs(),
              (std::vector<TextRun>{{"By installing, you agree to the Ondrel Vexora ", {}, {}},
                                    {"license agreement", Font{"QuillaSans-SemiBold", 12.0},
                                     Color{0.24, 0.44, 0.70, 1.0}},
                                    {".", {}, {}}}));
}

TEST_F(ViewController, textsAreInTheLanguageOfTheLocale) {
    addLanguage("de", {{"Ondrel Vexora Lumiq Setup", "Einrichtung"},
                       {"By installing, you agree to the Ondrel Vexora <a>license agreement</a>.",
                        "Es gilt der <a>Vertrag</a>."},
                       {"Close", "Schließen"}});
    platform.environment.locale = "de_CH";
    openWindow();
    EXPECT_EQ(platform.calls.beginningWith("setCloseCommand"), Lines{"setCloseCommand Schließen"});
    EXPECT_EQ(platform.application.ownedWindows[0]->title, "Einrichtung");
    EXPECT_EQ(platform.application.ownedWindows[1]->title, "");
    EXPECT_EQ(textField("licenseLabel")->stringValue(), "Es gilt der Vertrag.");
    EXPECT_EQ(platform.calls.count("setLanguage de"), 1U);
    EXPECT_EQ(platform.environment.localeQuestions, 1);
}

TEST_F(ViewController, layoutKeepsTheDirectionOfEnglishWhenTheLanguageIsNotLoaded) {
    platform.environment.locale = "fr_FR";
    openWindow();
    EXPECT_EQ(platform.calls.beginningWith("setLanguage"), Lines{});
}

TEST_F(ViewController, layoutKeepsTheDirectionOfEnglishWhenTheLanguageHasNoTexts) {
    addLanguage("ar", {});
    platform.environment.locale = "ar_EG";
    openWindow();
    EXPECT_EQ(platform.calls.beginningWith("setLanguage"), Lines{});
}

TEST_F(ViewController, retranslatingInitialisesTheTranslatorAnew) {
    openWindow();
    addLanguage("en", {{"Ondrel Vexora Lumiq Setup", "Changed"}});
    window->retranslate();
    EXPECT_EQ(platform.application.ownedWindows[0]->title, "Changed");
}

TEST_F(ViewController, shortLocaleIdentifiersOpenTheWindow) {
    for (const std::string identifier : {"", "x"}) {
        platform.environment.locale = identifier;
        openWindow();
        EXPECT_EQ(platform.application.ownedWindows[0]->title, "Ondrel Vexora Lumiq Setup");
    }
}

TEST_F(ViewController, licenceScreenOpensOnTopOfEverything) {
    openWindow();
    platform.calls.clear();
    click("licenseLabel");
    EXPECT_EQ(platform.calls.lines().back(),
              "view(ViewController).addSubview view(LicenseViewController) above 3 others");
    for (const std::string name : {"lumiqLogo", "containerView", "licenseLabel"}) {
        EXPECT_TRUE(platform.interfaces.view(name)->isCovered()) << name;
    }
}

TEST_F(ViewController, openingTheLicenceTwiceShowsItOnce) {
    openWindow();
    window->switchToLicenseView();
    window->switchToLicenseView();
    EXPECT_EQ(namesOfSubviews(*root),
              (Lines{"lumiqLogo", "containerView", "licenseLabel", "view(LicenseViewController)"}));
    EXPECT_TRUE(platform.interfaces.view("lumiqLogo")->isCovered());
}

TEST_F(ViewController, missingOutletsAreSkipped) {
    platform.interfaces.leaveOutEverything();
    openWindow();
    window->switchToLicenseView();
    EXPECT_EQ(platform.application.ownedWindows[0]->title, "Ondrel Vexora Lumiq Setup");
    EXPECT_EQ(namesOfSubviews(*root), Lines{"view(LicenseViewController)"});
}

TEST_F(ViewController, missingWindowIsSkipped) {
    platform.application.ownedWindows.clear();
    openWindow();
    EXPECT_EQ(textField("licenseLabel")->stringValue(),
              "By installing, you agree to the Ondrel Vexora license agreement.");
}

} // namespace
