#include "LicenseViewController.h"

#include "ScreenFixture.h"

#include <limits>

using namespace ScreenTest;
using Vexora::Recording::RecordingScrollView;
using Vexora::Recording::RecordingTextView;

namespace {

class LicenseViewController : public ScreenFixture {
protected:
    std::string licencePath(const std::string& language) const {
        return platform.environment.resources + "/LA_" + language;
    }

    void addLicence(const std::string& language, const std::string& text) {
        platform.files.addUtf16Text(licencePath(language), text);
    }

    /// Opens the window in a locale and clicks the notice.
    void openLicence(const std::string& locale) {
        platform.environment.locale = locale;
        openWindow();
        platform.calls.clear();
        click("licenseLabel");
    }

    std::shared_ptr<RecordingTextView> textView() {
        return platform.interfaces.find<RecordingTextView>("textView");
    }
};

TEST_F(LicenseViewController, fileIsChosenByTheLanguageOfTheLocale) {
    addLicence("en", "English");
    addLicence("de", "Deutsch");
    addLicence("zh", "中文");
    openLicence("en_US");
    EXPECT_EQ(textView()->string(), "English");
    openLicence("de_DE");
    EXPECT_EQ(textView()->string(), "Deutsch");
    openLicence("de_CH");
    EXPECT_EQ(textView()->string(), "Deutsch");
    openLicence("zh-Hans_CN");
    EXPECT_EQ(textView()->string(), "中文");
    openLicence("EN_GB");
    EXPECT_EQ(textView()->string(), "English");
}

TEST_F(LicenseViewController, missingFileOpensAnEmptyScrollableAreaWithHeadingAndButton) {
    addLanguage("ja", {{"License Agreement", "使用許諾"}, {"Go back", "戻る"}});
    addLicence("en", "English");
    openLicence("ja_JP");
    EXPECT_EQ(textView()->string(), "");
    EXPECT_EQ(window->licenseView()->licenseText()->documentView(), textView());
    EXPECT_EQ(textField("licenseAgreementLabel")->stringValue(), "使用許諾");
    EXPECT_EQ(button("backButton")->title(), "戻る");
    EXPECT_EQ(platform.calls.beginningWith("log: "), Lines{});
    EXPECT_EQ(platform.files.content(logFile), std::nullopt);
}

TEST_F(LicenseViewController, longTextWrapsAtTheWidthScrollsVerticallyAndIsReadOnly) {
    addLicence("en", std::string(100000, 'x'));
    openLicence("en_US");
    EXPECT_EQ(textView()->string().size(), 100000U);
    EXPECT_EQ(textView()->frame, (Vexora::Size{480.0, 260.0}));
    EXPECT_EQ(textView()->containerSize(),
              (Vexora::Size{480.0, static_cast<double>(std::numeric_limits<float>::max())}));
    EXPECT_EQ(textView()->containerSize().height, 3.4028234663852886e38);
    EXPECT_FALSE(textView()->isEditable());
    EXPECT_TRUE(textView()->isRichText());
}

TEST_F(LicenseViewController, secondOpeningShowsTheSameTextWithoutReadingAgain) {
    addLicence("en", "first");
    openLicence("en_US");
    const auto shownFirst = textView();
    click("backButton");
    addLicence("en", "changed on disk");
    platform.calls.clear();

    click("licenseLabel");

    EXPECT_EQ(window->licenseView()->licenseText()->documentView(), shownFirst);
    EXPECT_EQ(shownFirst->string(), "first");
    EXPECT_EQ(platform.calls.lines(),
              Lines{"view(ViewController).addSubview view(LicenseViewController) above 3 others"});
}

TEST_F(LicenseViewController, goBackDuringTheInstallationUncoversTheInstallScreenAsItIs) {
    openWindow();
    pressStart();
    platform.time.advance(1.0);
    const double value = bar()->doubleValue();
    click("licenseLabel");
    platform.calls.clear();

    click("backButton");

    EXPECT_EQ(platform.calls.lines(), Lines{"view(LicenseViewController).removeFromSuperview"});
    EXPECT_EQ(bar()->doubleValue(), value);
    EXPECT_FALSE(window->installView()->view()->isCovered());
    EXPECT_EQ(namesOfSubviews(*root),
              (Lines{"view(InstallViewController)", "lumiqLogo", "containerView", "licenseLabel"}));
}

TEST_F(LicenseViewController, loadingReadsTheFileBuildsTheAreaAndSetsTheTextsInOrder) {
    addLicence("en", "agreement");
    openLicence("en_US");
    EXPECT_EQ(
        platform.calls.lines(),
        (Lines{"load LicenseViewController", "backButton.onClick",
               "utf16TextOfFile " + licencePath("en"), "licenseText.contentSize",
               "makeTextView 480 x 260", "textView.setRichText true",
               "textView.setString agreement", "textView.setEditable false",
               "textView.setContainerSize 480 x 3.40282e+38", "licenseText.setDocumentView",
               "licenseAgreementLabel.setAttributedStringValue License Agreement",
               "backButton.setTitle Go back",
               "view(ViewController).addSubview view(LicenseViewController) above 3 others"}));
}

TEST_F(LicenseViewController, logFolderIsMadeBeforeTheFileIsRead) {
    Vexora::LicenseViewController alone(platform.seam);
    alone.view();
    EXPECT_LT(platform.calls.positionOf("createDirectory " + logFolder),
              platform.calls.positionOf("utf16TextOfFile " + licencePath("en")));
}

TEST_F(LicenseViewController, unreadableFileOpensAnEmptyArea) {
    addLicence("en", "agreement");
    platform.files.lockedFiles.insert(licencePath("en"));
    openLicence("en_US");
    EXPECT_EQ(textView()->string(), "");
}

TEST_F(LicenseViewController, textIsShownAsItIsWithoutMarkup) {
    addLicence("en", "<b>100%</b> %s\r\nsecond line");
    openLicence("en_US");
    EXPECT_EQ(textView()->string(), "<b>100%</b> %s\r\nsecond line");
}

TEST_F(LicenseViewController, textAreaFollowsTheContentSizeAtTheFirstOpening) {
    openWindow();
    click("licenseLabel");
    const auto scrollView = platform.interfaces.find<RecordingScrollView>("licenseText");
    scrollView->visible = {300.0, 100.0};
    window->licenseView()->setupLicenseText();
    EXPECT_EQ(textView()->frame, (Vexora::Size{300.0, 100.0}));
    EXPECT_EQ(textView()->containerSize().width, 300.0);
}

TEST_F(LicenseViewController, identifiersShorterThanTwoCharactersDoNotCrash) {
    openLicence("");
    EXPECT_EQ(platform.calls.count("utf16TextOfFile " + licencePath("")), 1U);
    openLicence("x");
    EXPECT_EQ(platform.calls.count("utf16TextOfFile " + licencePath("x")), 1U);
}

TEST_F(LicenseViewController, goBackKeepsTheScreenLoaded) {
    openLicence("en_US");
    click("backButton");
    EXPECT_TRUE(window->licenseView()->isViewLoaded());
    EXPECT_EQ(window->licenseView()->view()->superview(), nullptr);
    click("backButton");
    EXPECT_EQ(namesOfSubviews(*root), (Lines{"lumiqLogo", "containerView", "licenseLabel"}));
}

TEST_F(LicenseViewController, missingOutletsAreSkipped) {
    platform.interfaces.leaveOut("LicenseViewController", "licenseAgreementLabel");
    platform.interfaces.leaveOut("LicenseViewController", "licenseText");
    platform.interfaces.leaveOut("LicenseViewController", "backButton");
    openLicence("en_US");
    EXPECT_EQ(root->subviews().back(), window->licenseView()->view());
    window->licenseView()->backAction();
    EXPECT_EQ(namesOfSubviews(*root), (Lines{"lumiqLogo", "containerView", "licenseLabel"}));
}

} // namespace
