#include "FailViewController.h"

#include "ScreenFixture.h"

using namespace ScreenTest;
using Vexora::Color;
using Vexora::Font;
using Vexora::TextAlignment;
using Vexora::TextRun;

namespace {

using Runs = std::vector<TextRun>;

TextRun plain(const std::string& text) {
    return {text, {}, {}};
}

TextRun link(const std::string& text = "Open logs") {
    return {text, Font{"QuillaSans-SemiBold", 15.0}, Color{0.24, 0.44, 0.70, 1.0}};
}

class FailViewController : public ScreenFixture {
protected:
    /// Loads the screen as the failed installation does, and shows the status.
    void fail(std::int32_t status) {
        loadScreen();
        window->failView()->updateFailViewStatus(status);
    }

    void loadScreen() {
        openWindow();
        window->failView()->view();
    }

    const Vexora::StyledText& message() { return textField("logLabel")->attributedStringValue(); }

    void expectPresentation(bool failure) {
        EXPECT_EQ(textField("failLabel")->isHidden(), !failure);
        EXPECT_EQ(platform.interfaces.view("closeIcon")->isHidden(), !failure);
        EXPECT_EQ(textField("logLabel")->heightConstraints(),
                  failure ? std::vector<double>{200.0} : std::vector<double>{});
    }
};

TEST_F(FailViewController, failuresHaveTitleIconAndAHeightOf200AndTheNoticeHasNone) {
    const std::pair<std::int32_t, Runs> texts[] = {
        {30, {plain("Failed to extract Ondrel Vexora Lumiq."), plain(" "), link()}},
        {5, {plain("Ondrel Vexora Lumiq is already up to date."), plain(" "), link()}},
        {3, {plain(" "), link()}}};
    for (const auto& [status, runs] : texts) {
        fail(status);
        EXPECT_EQ(message().runs(), runs);
        EXPECT_EQ(message().alignment(), TextAlignment::Center);
        EXPECT_EQ(textField("failLabel")->stringValue(), "Installation failed");
        expectPresentation(status != 5);
    }
}

TEST_F(FailViewController, clickOnTheMessageWordsRevealsTheLogFile) {
    fail(30);
    platform.calls.clear();
    ASSERT_EQ(platform.files.content(logFile), std::nullopt);
    click("logLabel");
    EXPECT_EQ(platform.calls.lines(), Lines{"selectFile " + logFile});
}

TEST_F(FailViewController, secondFailureReplacesTheTextAndAddsAnEqualConstraint) {
    fail(30);
    window->failView()->updateFailViewStatus(20);
    EXPECT_EQ(message().string(), "Pre-installation steps failed. Open logs");
    EXPECT_EQ(textField("logLabel")->heightConstraints(), (std::vector<double>{200.0, 200.0}));
}

TEST_F(FailViewController, licenceNoticeStaysHiddenOnceTheScreenHasLoaded) {
    openWindow();
    ASSERT_FALSE(textField("licenseLabel")->isHidden());
    window->failView()->view();
    EXPECT_TRUE(textField("licenseLabel")->isHidden());
    window->failView()->updateFailViewStatus(5);
    window->retranslate();
    EXPECT_TRUE(textField("licenseLabel")->isHidden());
}

/// A parser without messages that notes which ones it is asked for.
class AskedParser : public VXLOCAL::Parser {
public:
    explicit AskedParser(Lines& asked) : Parser("none"), asked_(asked) {}

    void parse() override {}
    std::string getMessage(const std::string& key) const override {
        asked_.push_back(key);
        return key;
    }

private:
    Lines& asked_;
};

TEST_F(FailViewController, unlistedStatusesDoNotConsultTheTranslatorForAMessage) {
    Lines asked;
    loadScreen();
    VXLOCAL::Translator::getInstance()->init(new AskedParser(asked), "en", "", "");
    for (const std::int32_t status : {7, 11, 0, -1}) {
        window->failView()->updateFailViewStatus(status);
        EXPECT_EQ(message().runs(), (Runs{plain(" "), link()})) << status;
    }
    EXPECT_EQ(asked, Lines{});
    window->failView()->updateFailViewStatus(50);
    EXPECT_EQ(asked, Lines{"Post-installation steps failed."});
}

TEST_F(FailViewController, noticeAfterAFailureReplacesOnlyTheText) {
    fail(30);
    platform.calls.clear();
    window->failView()->updateFailViewStatus(5);
    EXPECT_EQ(platform.calls.lines(),
              Lines{"logLabel.setAttributedStringValue Ondrel Vexora Lumiq is already up to "
                    "date. Open logs"});
}

TEST_F(FailViewController, loadingTakesItsStepsInOrder) {
    openWindow();
    platform.calls.clear();
    window->failView()->view();
    EXPECT_EQ(
        platform.calls.lines(),
        (Lines{"load FailViewController", "troubleshootButton.onClick",
               "licenseLabel.setHidden true", "logLabel.onClick",
               "failLabel.setAttributedStringValue Installation failed", "failLabel.setHidden true",
               "closeIcon.setHidden true", "logLabel.setAttributedStringValue Open logs"}));
}

TEST_F(FailViewController, loadedScreenShowsTheLinkAlone) {
    loadScreen();
    EXPECT_EQ(message().runs(), Runs{link()});
    EXPECT_EQ(window->failView()->open_logs().runs(), Runs{link()});
    EXPECT_EQ(window->failView()->error(), "");
    expectPresentation(false);
}

TEST_F(FailViewController, failureTakesItsStepsInOrder) {
    loadScreen();
    platform.calls.clear();
    window->failView()->updateFailViewStatus(10);
    EXPECT_EQ(platform.calls.lines(),
              (Lines{"failLabel.setHidden false", "closeIcon.setHidden false",
                     "logLabel.addHeightConstraint 200",
                     "logLabel.setAttributedStringValue A newer version of Ondrel Vexora Lumiq "
                     "is installed on your system. Installation terminated. Open logs"}));
}

TEST_F(FailViewController, messageIsTranslatedWhenItIsShownAndTheLinkWhenTheScreenLoads) {
    addLanguage("en", {{"Open logs", "Protokoll"}, {"Installation failed", "Fehlgeschlagen"}});
    loadScreen();
    EXPECT_EQ(textField("failLabel")->attributedStringValue().runs(),
              Runs{plain("Fehlgeschlagen")});
    addLanguage("en", {{"Open logs", "Journal"},
                       {"Pre-installation steps failed.", "Vorbereitung fehlgeschlagen."}});
    window->initializeTranslator();
    window->failView()->updateFailViewStatus(20);
    EXPECT_EQ(message().runs(),
              (Runs{plain("Vorbereitung fehlgeschlagen."), plain(" "), link("Protokoll")}));
    window->failView()->retranslate();
    EXPECT_EQ(message().runs(), Runs{link("Protokoll")});
}

TEST_F(FailViewController, retranslatingHidesTheFailureAgainAndKeepsTheLink) {
    fail(30);
    window->failView()->retranslate();
    EXPECT_TRUE(textField("failLabel")->isHidden());
    EXPECT_TRUE(platform.interfaces.view("closeIcon")->isHidden());
    EXPECT_EQ(message().runs(), Runs{link()});
}

TEST_F(FailViewController, propertiesAreWhatWasWritten) {
    loadScreen();
    auto& screen = *window->failView();
    const auto icon = std::make_shared<Vexora::ImageView>();
    const auto title = std::make_shared<Vexora::TextField>();
    const auto label = std::make_shared<Vexora::TextField>();
    screen.setCloseIcon(icon);
    screen.setFailLabel(title);
    screen.setLogLabel(label);
    screen.setError("reason");
    screen.setOpen_logs(Vexora::StyledText("here"));
    EXPECT_EQ(screen.closeIcon(), icon);
    EXPECT_EQ(screen.failLabel(), title);
    EXPECT_EQ(screen.logLabel(), label);
    EXPECT_EQ(screen.error(), "reason");
    EXPECT_EQ(screen.open_logs().runs(), Runs{plain("here")});
    screen.retranslate();
    EXPECT_TRUE(icon->isHidden());
    EXPECT_EQ(title->stringValue(), "Installation failed");
    screen.updateFailViewStatus(3);
    EXPECT_EQ(label->stringValue(), " here");
    EXPECT_EQ(screen.error(), "reason");
}

TEST_F(FailViewController, propertyWithoutAViewIsSkipped) {
    loadScreen();
    platform.calls.clear();
    window->failView()->setLogLabel(nullptr);
    window->failView()->updateFailViewStatus(5);
    EXPECT_EQ(platform.calls.lines(), Lines{});
}

TEST_F(FailViewController, helpButtonOpensTheTroubleshootingPage) {
    fail(20);
    platform.calls.clear();
    click("troubleshootButton");
    EXPECT_EQ(platform.calls.lines(), Lines{"openUrl " VEXORA_TROUBLESHOOTING_URL});
}

TEST_F(FailViewController, iconHasNoAction) {
    fail(20);
    platform.calls.clear();
    click("closeIcon");
    EXPECT_EQ(platform.calls.lines(), Lines{});
}

TEST_F(FailViewController, screenWithoutAParentHidesNoNotice) {
    Vexora::FailViewController alone(platform.seam);
    alone.view();
    EXPECT_EQ(platform.calls.count("licenseLabel.setHidden true"), 0U);
    EXPECT_EQ(message().runs(), Runs{link()});
}

TEST_F(FailViewController, missingOutletsAreSkipped) {
    for (const std::string outlet : {"closeIcon", "failLabel", "logLabel", "troubleshootButton"}) {
        platform.interfaces.leaveOut("FailViewController", outlet);
    }
    platform.interfaces.leaveOut("ViewController", "licenseLabel");
    fail(30);
    window->failView()->openLogs();
    EXPECT_EQ(platform.calls.lines().back(), "selectFile " + logFile);
    window->failView()->openTroubleshoot();
    EXPECT_EQ(platform.calls.lines().back(), "openUrl " VEXORA_TROUBLESHOOTING_URL);
}

} // namespace
