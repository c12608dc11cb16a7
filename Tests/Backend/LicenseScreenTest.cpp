#include "Backend/Fixture.h"

#include <filesystem>

namespace BackendTest {

class LicenseScreen : public Fixture {
protected:
    void expectWrapped() const {
        const Place lines = FrontEnd::lines(find("licenseText"));
        const Place visible = FrontEnd::visiblePart(find("licenseText"));
        EXPECT_LE(lines.width, visible.width);
        EXPECT_GT(lines.width, visible.width - 40.0);
        EXPECT_GT(lines.height, visible.height);
    }

    double scrolled() const { return FrontEnd::scrolled(find("licenseText")); }

    const Names screen{"licenseAgreementLabel", "backButton", "licenseText"};
};

TEST_F(LicenseScreen, coversEverything) {
    enter(State::LicenseOnInstall);
    const Widget* const pane = widgetOf(*content->licenseView());
    EXPECT_EQ(frontEnd.place(pane), frontEnd.area());
    EXPECT_EQ(visible(), screen);
    const Place before = frontEnd.area();
    frontEnd.resize(before.width + 60.0, before.height + 100.0);
    EXPECT_EQ(frontEnd.area(), (Place{0.0, 0.0, before.width + 60.0, before.height + 100.0}));
    EXPECT_EQ(frontEnd.place(pane), frontEnd.area());
}

TEST_F(LicenseScreen, uncoversTheStartScreenUnchanged) {
    openWindow();
    const Names before = visible();
    content->switchToLicenseView();
    EXPECT_EQ(visible(), screen);
    click("backButton");
    EXPECT_EQ(visible(), before);
}

TEST_F(LicenseScreen, uncoversTheInstallScreenWithItsProgress) {
    enter(State::Install);
    const Names before = visible();
    content->switchToLicenseView();
    const auto progress = [this] {
        return content->installView()->installProgress()->doubleValue();
    };
    const double covered = progress();
    ASSERT_TRUE(FrontEnd::waitFor([&] { return progress() > covered + 2.0; }));
    click("backButton");
    EXPECT_EQ(visible(), before);
    EXPECT_GT(FrontEnd::filled(find("installProgress")), covered / 100.0);
    EXPECT_EQ(backgroundQueue.pending(), 1U);
}

TEST_F(LicenseScreen, staysOverTheSuccessUntilItIsLeft) {
    enter(State::LicenseOnInstall);
    endInstall(0);
    EXPECT_EQ(visible(), screen);
    leaveLicense();
    EXPECT_EQ(text("installLabel"), translation("Installation completed!"));
    EXPECT_TRUE(shows("installProgress"));
}

TEST_F(LicenseScreen, textCannotBeChanged) {
    enter(State::LicenseOnStart);
    const std::string before = text("licenseText");
    for (const Key key : {Key::Letter, Key::Backspace}) {
        press(key);
        EXPECT_EQ(text("licenseText"), before);
    }
    EXPECT_TRUE(shows("backButton"));
}

TEST_F(LicenseScreen, anotherTextTakesThePlaceOfTheFirst) {
    enter(State::LicenseOnStart);
    const auto area = content->licenseView()->licenseText();
    const auto first = area->documentView();
    const auto other = interfaces.makeTextView(area->contentSize());
    other->setString("other");
    area->setDocumentView(other);
    FrontEnd::settle();
    EXPECT_EQ(text("licenseText"), "other");
}

TEST_F(LicenseScreen, textWrapsAtTheAreaHoweverWideItIs) {
    enter(State::LicenseOnStart);
    expectWrapped();
    const Place before = frontEnd.area();
    for (const double wider : {200.0, 0.0}) {
        frontEnd.resize(before.width + wider, before.height);
        expectWrapped();
    }
}

TEST_F(LicenseScreen, keepsItsPlaceAndTextWhenOpenedAgain) {
    enter(State::LicenseOnStart);
    EXPECT_EQ(scrolled(), 0.0);
    press(Key::PageDown);
    const double reached = scrolled();
    EXPECT_GT(reached, 100.0);
    const std::string before = text("licenseText");
    leaveLicense();
    content->switchToLicenseView();
    FrontEnd::settle();
    EXPECT_EQ(text("licenseText"), before);
    EXPECT_EQ(scrolled(), reached);
    EXPECT_EQ(focused(), "licenseText");
}

class Agreement : public EveryLanguage {};

INSTANTIATE_TEST_SUITE_P(In, Agreement, languages, languageName);

TEST_P(Agreement, isThatOfTheLanguage) {
    enter(State::LicenseOnStart);
    const std::string agreement =
        files.utf16TextOfFile(environment.resources + "/LA_" + GetParam()).value();
    EXPECT_GT(agreement.size(), 500U);
    EXPECT_EQ(text("licenseText"), agreement);
}

class LicenseFile : public Fixture {
protected:
    LicenseFile() {
        const std::filesystem::path definitions =
            std::filesystem::path(STAGED_RESOURCES) / "Interface";
        if (std::filesystem::exists(definitions)) {
            std::filesystem::copy(definitions, resources.path() / "Interface");
        }
        environment.resources = resources.path().string();
    }

    /// What is shown for a file with that text.
    std::string shown(const std::u16string& agreement) {
        resources.write("LA_de", {reinterpret_cast<const char*>(agreement.data()),
                                  agreement.size() * sizeof(char16_t)});
        return shownIn("de_DE");
    }

    std::string shownIn(const std::string& locale) {
        environment.locale = locale;
        enter(State::LicenseOnStart);
        return text("licenseText");
    }

    TestSupport::TemporaryFolder resources;
};

TEST_F(LicenseFile, thatIsMissingShowsEmpty) {
    resources.write("de.lproj/Localizable.strings", "\"Go back\" = \"Zurück\"\n");
    EXPECT_EQ(shownIn("de_DE"), "");
    EXPECT_EQ(text("backButton"), "Zurück");
    EXPECT_TRUE(shows("licenseText"));
    leaveLicense();
    EXPECT_TRUE(shows("startButton"));
}

TEST_F(LicenseFile, thatIsNotUtf16ShowsEmpty) {
    resources.write("LA_de", "Nur gewöhnlicher Text");
    EXPECT_EQ(shownIn("de_DE"), "");
}

TEST_F(LicenseFile, isShownWithoutInterpretingMarkup) {
    EXPECT_EQ(shown(u"\ufeff<b>Text</b> & <i>more</i>"), "<b>Text</b> & <i>more</i>");
}

TEST_F(LicenseFile, withLongWordsStillWraps) {
    EXPECT_EQ(shown(u"\ufeff" + std::u16string(5000, u'W')).size(), 5000U);
    EXPECT_LE(FrontEnd::lines(find("licenseText")).width,
              FrontEnd::visiblePart(find("licenseText")).width);
}

TEST_F(LicenseFile, ofALocaleWithOneLetterIsLookedForWithoutHarm) {
    EXPECT_EQ(shownIn("C"), "");
    leaveLicense();
    EXPECT_TRUE(shows("startButton"));
}

TEST_F(LicenseFile, ofALocaleWithoutANameIsLookedForWithoutHarm) {
    EXPECT_EQ(shownIn(""), "");
}

} // namespace BackendTest
