#include "AppKit/AppKitFixture.h"
#include "AppKit/Pieces.h"
#include "Color.h"
#include "Platform/Palette.h"

namespace AppKitTest {

class Screens : public EveryLanguage {
protected:
    using Pieces = std::vector<Piece>;

    /// A piece as the tests of one label expect it.
    static Piece plain(const std::string& text, double size,
                       NSTextAlignment alignment = NSTextAlignmentCenter) {
        return {text, size, false, Vexora::inkColor, alignment};
    }

    static Piece semibold(const std::string& text, double size,
                          Vexora::Color color = Vexora::inkColor) {
        Piece piece = plain(text, size);
        piece.bold = true;
        piece.color = color;
        return piece;
    }

    /// The marked words semibold between the plain ones.
    static Pieces marked(const MarkedText& text, double size,
                         Vexora::Color color = Vexora::inkColor) {
        Pieces pieces{plain(text.before, size), semibold(text.marked, size, color),
                      plain(text.after, size)};
        std::erase_if(pieces, [](const Piece& piece) { return piece.text.empty(); });
        return pieces;
    }

    Pieces shown(const std::string& label) const {
        return piecesOf([get<NSTextField>(label) attributedStringValue]);
    }

    std::string titleOf(const std::string& button) const {
        return Vexora::toUtf8([get<NSButton>(button) title]);
    }

    /// The pieces of a message of the failure screen.
    Pieces message(const std::string& text) const {
        return {plain(text + ' ', 15.0),
                semibold(translation("Open logs"), 15.0, Vexora::OndrelFontBlueColor)};
    }
};

INSTANTIATE_TEST_SUITE_P(In, Screens, languages, languageName);

TEST_P(Screens, findMainOutletsOfTheirKinds) {
    openWindow();
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::AppKitImageView>(content->lumiqLogo()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::AppKitTextField>(content->licenseLabel()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::AppKitView>(content->containerView()));
}

TEST_P(Screens, findScreenOutletsOfTheirKinds) {
    openWindow();
    const auto& start = *content->startView();
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::AppKitTextField>(start.startLabel()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::AppKitButton>(start.startButton()));
    auto& install = *content->installView();
    install.view();
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::AppKitTextField>(install.installLabel()));
    EXPECT_TRUE(
        std::dynamic_pointer_cast<Vexora::AppKitProgressIndicator>(install.installProgress()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::AppKitButton>(install.closeButton()));
    auto& license = *content->licenseView();
    license.view();
    EXPECT_TRUE(
        std::dynamic_pointer_cast<Vexora::AppKitTextField>(license.licenseAgreementLabel()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::AppKitScrollView>(license.licenseText()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::AppKitButton>(license.backButton()));
    auto& fail = *content->failView();
    fail.view();
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::AppKitImageView>(fail.closeIcon()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::AppKitTextField>(fail.failLabel()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::AppKitTextField>(fail.logLabel()));
    EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::AppKitButton>(
        fail.outlet<Vexora::Button>("troubleshootButton")));
}

TEST_P(Screens, windowHasItsTranslatedTitle) {
    openWindow();
    EXPECT_EQ(Vexora::toUtf8([window() title]), translation("Ondrel Vexora Lumiq Setup"));
}

TEST_P(Screens, noticeMarksTheAgreementInBlueSemibold) {
    openWindow();
    const auto notice = markedTranslation(
        "By installing, you agree to the Ondrel Vexora <a>license agreement</a>.", "<a>");
    EXPECT_EQ(shown("licenseLabel"), marked(notice, 12.0, Vexora::OndrelFontBlueColor));
}

TEST_P(Screens, startTextIsCentredWithItsMarkedWordSemibold) {
    openWindow();
    const auto text =
        markedTranslation("To install Ondrel Vexora Lumiq, click <b>Start</b>.", "<b>");
    EXPECT_EQ(shown("startLabel"), marked(text, 18.0));
    EXPECT_EQ(titleOf("startButton"), translation("Start"));
}

TEST_P(Screens, installTextMarksTheProductSemibold) {
    enter(State::Install);
    const auto text = markedTranslation("Installing <b>Ondrel Vexora Lumiq</b>...", "<b>");
    EXPECT_EQ(shown("installLabel"), marked(text, 18.0));
    EXPECT_EQ(titleOf("closeButton"), translation("Close"));
}

TEST_P(Screens, installationRaisesADeterminateBar) {
    enter(State::Install);
    NSProgressIndicator* const bar = get<NSProgressIndicator>("installProgress");
    EXPECT_FALSE([bar isIndeterminate]);
    EXPECT_TRUE([bar usesThreadedAnimation]);
    EXPECT_EQ([bar minValue], 0.0);
    EXPECT_EQ([bar maxValue], 100.0);
    EXPECT_TRUE(waitFor([bar] { return [bar doubleValue] >= 3.0; }));
    EXPECT_EQ([bar doubleValue], content -> installView() -> installProgress() -> doubleValue());
}

TEST_P(Screens, successShowsItsTextOverAFullBar) {
    enter(State::Success);
    EXPECT_EQ(shown("installLabel"), Pieces{plain(translation("Installation completed!"), 18.0)});
    EXPECT_TRUE(isVisible("installProgress"));
    EXPECT_EQ([get<NSProgressIndicator>("installProgress") doubleValue], 100.0);
}

TEST_P(Screens, licenseHeadingAndButtonAreTranslated) {
    enter(State::LicenseOnStart);
    Piece heading = plain(translation("License Agreement"), 18.0,
                          fromRight() ? NSTextAlignmentRight : NSTextAlignmentNatural);
    heading.bold = true;
    EXPECT_EQ(shown("licenseAgreementLabel"), Pieces{heading});
    EXPECT_EQ(titleOf("backButton"), translation("Go back"));
}

TEST_P(Screens, failureShowsItsTitleAndMessageWithABlueLink) {
    enter(State::Failure);
    EXPECT_EQ(shown("failLabel"), Pieces{semibold(translation("Installation failed"), 18.0)});
    EXPECT_EQ(shown("logLabel"), message(translation("Failed to extract Ondrel Vexora Lumiq.")));
}

TEST_P(Screens, noticeShowsItsMessageWithABlueLink) {
    enter(State::Notice);
    EXPECT_EQ(shown("logLabel"),
              message(translation("Ondrel Vexora Lumiq is already up to date.")));
}

TEST_P(Screens, everyListedStatusHasItsMessage) {
    enter(State::Failure);
    const std::vector<std::pair<int, const char*>> messages{
        {1, "A system-wide installation already exists. Removing or upgrading requires "
            "administrator-level access."},
        {10, "A newer version of Ondrel Vexora Lumiq is installed on your system. Installation "
             "terminated."},
        {20, "Pre-installation steps failed."},
        {30, "Failed to extract Ondrel Vexora Lumiq."},
        {40, "Failed to copy Ondrel Vexora Lumiq Web plugin."},
        {50, "Post-installation steps failed."}};
    for (const auto& [status, identifier] : messages) {
        content->failView()->updateFailViewStatus(status);
        EXPECT_EQ(shown("logLabel"), message(translation(identifier))) << status;
    }
    content->failView()->updateFailViewStatus(3);
    EXPECT_EQ(shown("logLabel"), message(""));
}

} // namespace AppKitTest
