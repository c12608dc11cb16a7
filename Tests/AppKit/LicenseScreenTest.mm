#include "AppKit/AppKitFixture.h"

#include <limits>

namespace AppKitTest {

class LicenseScreen : public EveryLanguage {
protected:
    NSScrollView* area() const { return get<NSScrollView>("licenseText"); }
    NSTextView* text() const { return Vexora::as<NSTextView>([area() documentView]); }

    /// How far the text is scrolled down.
    double place() const { return NSMinY([[area() contentView] bounds]); }

    /// The agreement as the staged file holds it.
    std::string agreement() {
        return files.utf16TextOfFile(environment.resources + "/LA_" + GetParam()).value();
    }
};

INSTANTIATE_TEST_SUITE_P(In, LicenseScreen, languages, languageName);

TEST_P(LicenseScreen, coversEverything) {
    enter(State::LicenseOnInstall);
    VexoraPane* const screen = paneOf(*content->licenseView());
    EXPECT_TRUE([screen isOpaque]);
    EXPECT_TRUE(NSEqualRects(placeOf(screen), placeOf([window() contentView])));
    EXPECT_EQ(usableControls(), (Names{"backButton", "licenseText"}));
    [window() setContentSize:NSMakeSize(700.0, 600.0)];
    settle();
    EXPECT_TRUE(NSEqualSizes([screen frame].size, NSMakeSize(700.0, 600.0)));
}

TEST_P(LicenseScreen, showsTheAgreementOfItsLanguage) {
    enter(State::LicenseOnStart);
    EXPECT_GT(agreement().size(), 500U);
    EXPECT_EQ(Vexora::toUtf8([text() string]), agreement());
}

TEST_P(LicenseScreen, textIsAsLargeAsTheAreaAtFirst) {
    openWindow();
    content->licenseView()->view();
    NSScrollView* const frame = Vexora::as<NSScrollView>(
        std::dynamic_pointer_cast<Vexora::AppKitScrollView>(content->licenseView()->licenseText())
            ->widget());
    const Vexora::Size visible = content->licenseView()->licenseText()->contentSize();
    EXPECT_EQ(visible.width, [frame contentSize].width);
    EXPECT_EQ(visible.height, [frame contentSize].height);
    EXPECT_GT(visible.height, 300.0);
    const auto made = interfaces.makeTextView(visible);
    const NSRect place = [dynamic_cast<Vexora::AppKitTextView&>(*made).edit() frame];
    EXPECT_TRUE(NSEqualRects(place, NSMakeRect(0.0, 0.0, visible.width, visible.height)));
}

TEST_P(LicenseScreen, textIsRichAndReadOnly) {
    enter(State::LicenseOnStart);
    EXPECT_TRUE([text() isRichText]);
    EXPECT_FALSE([text() isEditable]);
    const std::string before = Vexora::toUtf8([text() string]);
    [window() makeFirstResponder:text()];
    press("x");
    press("\177");
    EXPECT_EQ(Vexora::toUtf8([text() string]), before);
    EXPECT_TRUE(isVisible("backButton"));
}

TEST_P(LicenseScreen, textWrapsAtTheAreaAndGrowsDownwards) {
    enter(State::LicenseOnStart);
    const NSSize visible = [area() contentSize];
    EXPECT_LE([[text() textContainer] containerSize].width, visible.width);
    EXPECT_GT([[text() textContainer] containerSize].width, visible.width - 40.0);
    EXPECT_GE([[text() textContainer] containerSize].height, 1.0e6);
    EXPECT_EQ(NSWidth([text() frame]), visible.width);
    EXPECT_GT(NSHeight([text() frame]), visible.height);
    EXPECT_TRUE([area() hasVerticalScroller]);
    EXPECT_FALSE([area() hasHorizontalScroller]);
}

TEST_P(LicenseScreen, textFollowsTheWidthOfTheWindow) {
    enter(State::LicenseOnStart);
    for (const double width : {760.0, 560.0}) {
        [window() setContentSize:NSMakeSize(width, 500.0)];
        settle();
        EXPECT_EQ(NSWidth([text() frame]), [area() contentSize].width) << width;
    }
}

TEST_P(LicenseScreen, pageKeysScroll) {
    enter(State::LicenseOnStart);
    EXPECT_EQ(focus(), "licenseText");
    EXPECT_EQ(place(), 0.0);
    press(Vexora::toUtf8([NSString stringWithFormat:@"%C", unichar(NSPageDownFunctionKey)]));
    EXPECT_GT(place(), 100.0);
}

TEST_P(LicenseScreen, keepsItsPlaceAndTextWhenOpenedAgain) {
    enter(State::LicenseOnStart);
    NSTextView* const before = text();
    [before scrollPoint:NSMakePoint(0.0, 120.0)];
    ASSERT_EQ(place(), 120.0);
    press(escapeKey);
    ASSERT_FALSE(isVisible("licenseText"));
    content->switchToLicenseView();
    settle();
    EXPECT_EQ(text(), before);
    EXPECT_EQ(place(), 120.0);
    EXPECT_EQ(focus(), "licenseText");
}

TEST_P(LicenseScreen, isLeftByMouseReturnEnterAndEscape) {
    openWindow();
    for (const std::string& key : {std::string(), returnKey, enterKey, escapeKey}) {
        content->switchToLicenseView();
        settle();
        ASSERT_TRUE(isVisible("backButton"));
        if (key.empty()) {
            click("backButton");
        } else {
            press(key);
        }
        EXPECT_EQ(find("backButton"), nil) << key;
        EXPECT_TRUE(isVisible("startButton")) << key;
        EXPECT_EQ(backgroundQueue.pending(), 0U) << key;
    }
}

TEST_P(LicenseScreen, uncoversTheInstallScreenWithItsProgress) {
    enter(State::Install);
    content->switchToLicenseView();
    const double covered = content->installView()->installProgress()->doubleValue();
    ASSERT_TRUE(waitFor(
        [&] { return content->installView()->installProgress()->doubleValue() > covered; }));
    click("backButton");
    EXPECT_GT([get<NSProgressIndicator>("installProgress") doubleValue], covered);
    EXPECT_TRUE(isVisible("installProgress"));
    EXPECT_EQ(backgroundQueue.pending(), 1U);
}

class LicenseFile : public AppKitFixture {
protected:
    LicenseFile() {
        std::filesystem::copy(std::filesystem::path(STAGED_RESOURCES) / "Interface",
                              resources.path() / "Interface");
        environment.resources = resources.path().string();
    }

    std::string shownText() {
        enter(State::LicenseOnStart);
        NSScrollView* const area = get<NSScrollView>("licenseText");
        return Vexora::toUtf8([Vexora::as<NSTextView>([area documentView]) string]);
    }

    TestSupport::TemporaryFolder resources;
};

TEST_F(LicenseFile, thatIsMissingShowsEmpty) {
    resources.write("de.lproj/Localizable.strings", "\"Go back\" = \"Zurück\"\n");
    useLanguage("de");
    EXPECT_EQ(shownText(), "");
    EXPECT_EQ(Vexora::toUtf8([get<NSButton>("backButton") title]), "Zurück");
    press(escapeKey);
    EXPECT_TRUE(isVisible("startButton"));
}

TEST_F(LicenseFile, thatIsNotUtf16ShowsEmpty) {
    resources.write("LA_de", "Nur gewöhnlicher Text");
    useLanguage("de");
    EXPECT_EQ(shownText(), "");
}

TEST_F(LicenseFile, isShownWithoutInterpretingMarkup) {
    const std::u16string agreement = u"\ufeff<b>Text</b> & <i>more</i>";
    resources.write("LA_de", {reinterpret_cast<const char*>(agreement.data()),
                              agreement.size() * sizeof(char16_t)});
    useLanguage("de");
    EXPECT_EQ(shownText(), "<b>Text</b> & <i>more</i>");
}

TEST_F(LicenseFile, ofALocaleWithOneLetterIsLookedForWithoutHarm) {
    environment.locale = "C";
    EXPECT_EQ(shownText(), "");
}

} // namespace AppKitTest
