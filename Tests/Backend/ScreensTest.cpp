#include "Backend/Fixture.h"
#include "Color.h"
#include "Core/FailureCatalogue.h"
#include "Platform/Palette.h"

#include <algorithm>

namespace BackendTest {

class Screens : public EveryLanguage {
protected:
    static Piece plain(const std::string& text, double size) {
        return {text, size, false, Vexora::inkColor};
    }

    static Piece semibold(const std::string& text, double size,
                          Vexora::Color color = Vexora::inkColor) {
        return {text, size, true, color};
    }

    /// The marked words semibold between the plain ones.
    static Pieces marked(const MarkedText& text, double size,
                         Vexora::Color color = Vexora::inkColor) {
        Pieces runs{plain(text.before, size), semibold(text.marked, size, color),
                    plain(text.after, size)};
        std::erase_if(runs, [](const Piece& run) { return run.text.empty(); });
        return runs;
    }

    /// A message of the failure screen.
    Pieces withLink(const std::string& text) const {
        return {plain(text + ' ', 15.0),
                semibold(translation("Open logs"), 15.0, Vexora::OndrelFontBlueColor)};
    }

    static Alignment leading() { return fromRight() ? Alignment::Right : Alignment::Left; }
};

INSTANTIATE_TEST_SUITE_P(In, Screens, languages, languageName);

TEST_P(Screens, start) {
    openWindow();
    EXPECT_EQ(frontEnd.title(), translation("Ondrel Vexora Lumiq Setup"));
    const auto text =
        markedTranslation("To install Ondrel Vexora Lumiq, click <b>Start</b>.", "<b>");
    EXPECT_EQ(runs("startLabel"), marked(text, 18.0));
    EXPECT_EQ(Fixture::text("startButton"), translation("Start"));
    const auto notice = markedTranslation(
        "By installing, you agree to the Ondrel Vexora <a>license agreement</a>.", "<a>");
    EXPECT_EQ(runs("licenseLabel"), marked(notice, 12.0, Vexora::OndrelFontBlueColor));
}

TEST_P(Screens, install) {
    enter(State::Install);
    const auto installing = markedTranslation("Installing <b>Ondrel Vexora Lumiq</b>...", "<b>");
    EXPECT_EQ(runs("installLabel"), marked(installing, 18.0));
    EXPECT_EQ(text("closeButton"), translation("Close"));
    endInstall(0);
    EXPECT_EQ(runs("installLabel"), Pieces{plain(translation("Installation completed!"), 18.0)});
    EXPECT_EQ(FrontEnd::filled(find("installProgress")), 1.0);
}

TEST_P(Screens, successMarksTheEndOfTheBar) {
    enter(State::Install);
    EXPECT_FALSE(picture("installProgress").find(Vexora::doneColor));
    endInstall(0);
    const Picture full = picture("installProgress");
    const auto mark = full.find(Vexora::doneColor);
    ASSERT_TRUE(mark);
    EXPECT_EQ(mark->x < full.width / 2.0, fromRight());
}

TEST_P(Screens, license) {
    enter(State::LicenseOnStart);
    Piece heading = semibold(translation("License Agreement"), 18.0);
    heading.alignment = leading();
    EXPECT_EQ(runs("licenseAgreementLabel"), Pieces{heading});
    EXPECT_EQ(text("backButton"), translation("Go back"));
}

TEST_P(Screens, failure) {
    enter(State::Failure);
    Piece title = semibold(translation("Installation failed"), 18.0);
    title.alignment =
        hasHabit(Habit::FailureHasItsIconOverTheTitle) ? Alignment::Centre : leading();
    EXPECT_EQ(runs("failLabel"), Pieces{title});
    EXPECT_EQ(runs("logLabel"), withLink(translation("Failed to extract Ondrel Vexora Lumiq.")));
    EXPECT_EQ(place("logLabel").height, 200.0);
}

TEST_P(Screens, notice) {
    enter(State::Notice);
    EXPECT_EQ(runs("logLabel"),
              withLink(translation("Ondrel Vexora Lumiq is already up to date.")));
}

TEST_P(Screens, everyListedStatus) {
    enter(State::Failure);
    for (const Vexora::FailureMessage& message : Vexora::failureMessages) {
        if (message.presentation == Vexora::Presentation::Failure) {
            content->failView()->updateFailViewStatus(message.status);
            FrontEnd::settle();
            EXPECT_EQ(runs("logLabel"), withLink(translation(message.identifier)));
            EXPECT_EQ(place("logLabel").height, 200.0) << message.status;
        }
    }
    content->failView()->updateFailViewStatus(3);
    EXPECT_EQ(runs("logLabel"), withLink(""));
}

/// What is hidden and what is transparent, as the toolkit has it.
class States : public Fixture {
protected:
    void expectShown(const Names& names, bool shown) const {
        for (const std::string& name : names) {
            EXPECT_EQ(opacity(name), shown ? 1.0 : 0.0) << name;
        }
    }
};

TEST_F(States, everyOutletHasAWidget) {
    openWindow();
    const auto& start = *content->startView();
    const auto& install = *content->installView();
    const auto& license = *content->licenseView();
    const auto& fail = *content->failView();
    content->installView()->view();
    content->licenseView()->view();
    content->failView()->view();
    const std::vector<std::shared_ptr<Vexora::View>> outlets{
        content->lumiqLogo(),
        content->licenseLabel(),
        content->containerView(),
        start.startLabel(),
        start.startButton(),
        install.installLabel(),
        install.installProgress(),
        install.closeButton(),
        license.licenseAgreementLabel(),
        license.licenseText(),
        license.backButton(),
        fail.closeIcon(),
        fail.failLabel(),
        fail.logLabel(),
        fail.outlet<Vexora::Button>("troubleshootButton")};
    for (const auto& outlet : outlets) {
        EXPECT_TRUE(std::dynamic_pointer_cast<Vexora::WidgetOwner>(outlet))
            << &outlet - outlets.data();
    }
}

TEST_F(States, everythingShowsAtTheStart) {
    openWindow();
    expectShown({"lumiqLogo", "licenseLabel", "startLabel", "startButton"}, true);
}

TEST_F(States, installationRaisesTheBar) {
    enter(State::Install);
    const auto bar = [this] { return FrontEnd::filled(find("installProgress")); };
    EXPECT_GE(bar(), 0.0);
    EXPECT_TRUE(FrontEnd::waitFor([&] { return bar() >= 0.03; }));
    EXPECT_NEAR(bar(), content->installView()->installProgress()->doubleValue() / 100.0, 0.01);
}

TEST_F(States, failureFadesLabelAndBarAndHidesTheNotice) {
    enter(State::Failure);
    expectShown({"installLabel", "installProgress", "licenseLabel"}, false);
    expectShown({"closeButton", "troubleshootButton", "failLabel", "closeIcon", "logLabel"}, true);
    EXPECT_EQ(place("logLabel").height, 200.0);
    content->failView()->updateFailViewStatus(40);
    FrontEnd::settle();
    EXPECT_EQ(place("logLabel").height, 200.0);
}

TEST_F(States, noticeHasNeitherTitleNorIconNorFixedHeight) {
    enter(State::Notice);
    expectShown({"failLabel", "closeIcon", "licenseLabel"}, false);
    expectShown({"logLabel"}, true);
    EXPECT_TRUE(content->failView()->logLabel()->heightConstraints().empty());
    content->failView()->logLabel()->addHeightConstraint(77.0);
    FrontEnd::settle();
    EXPECT_EQ(place("logLabel").height, 77.0);
}

TEST_F(States, alphaAndHiddenAreToldApart) {
    openWindow();
    const auto notice = content->licenseLabel();
    notice->setAlphaValue(0.5);
    EXPECT_EQ(opacity("licenseLabel"), 0.5);
    notice->setHidden(true);
    EXPECT_FALSE(shows("licenseLabel"));
    notice->setHidden(false);
    EXPECT_EQ(opacity("licenseLabel"), 0.5);
    notice->setAlphaValue(0.0);
    EXPECT_FALSE(shows("licenseLabel"));
    notice->setAlphaValue(1.0);
    EXPECT_EQ(opacity("licenseLabel"), 1.0);
}

TEST_F(States, theLicenseHidesWhatItCoversAndNothingElse) {
    enter(State::LicenseOnInstall);
    const Names under{"lumiqLogo", "licenseLabel", "installLabel", "installProgress",
                      "closeButton"};
    expectShown(under, false);
    expectShown({"licenseAgreementLabel", "licenseText", "backButton"}, true);
    content->licenseView()->backAction();
    expectShown(under, true);
}

TEST_F(States, aFailureShowsOverAnOpenLicense) {
    enter(State::LicenseOnFailure);
    expectShown({"licenseAgreementLabel", "licenseText", "backButton", "licenseLabel"}, false);
    expectShown(
        {"lumiqLogo", "failLabel", "closeIcon", "logLabel", "troubleshootButton", "closeButton"},
        true);
    EXPECT_EQ(focused(), "closeButton");
    press(Key::Escape);
    expectShown({"logLabel"}, true);
    click("logLabel");
    EXPECT_EQ(calls.count("selectFile " + logFile()), 1U);
    click("troubleshootButton");
    EXPECT_EQ(calls.count("openUrl " TROUBLESHOOTING_URL), 1U);
    click("closeButton");
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

/// The order in which the toolkit itself holds the widgets, from the lowest to the topmost.
class Stack : public Fixture {
protected:
    Names mainStack() const { return stackOf(widgetOf(*content)); }

    /// The names of what a widget holds; a screen has that of its controller.
    Names stackOf(const Widget* widget) const {
        Names names;
        for (const Widget* part : FrontEnd::children(widget)) {
            names.push_back(nameOfPart(part));
        }
        return names;
    }

private:
    std::string nameOfPart(const Widget* part) const {
        const std::vector<std::pair<Vexora::InterfaceController*, std::string>> screens{
            {content->startView().get(), "start"},
            {content->installView().get(), "install"},
            {content->licenseView().get(), "license"},
            {content->failView().get(), "fail"}};
        for (const auto& [screen, name] : screens) {
            if (screen->isViewLoaded() && widgetOf(*screen) == part) {
                return name;
            }
        }
        return part == find("containerView") ? "containerView" : nameOf(part);
    }
};

TEST_F(Stack, beginsWithTheStartScreenInTheContainer) {
    openWindow();
    EXPECT_EQ(mainStack(), (Names{"lumiqLogo", "containerView", "licenseLabel"}));
    EXPECT_EQ(stackOf(find("containerView")), Names{"start"});
    EXPECT_EQ(stackOf(widgetOf(*content->startView())), (Names{"startLabel", "startButton"}));
    EXPECT_TRUE(place("containerView").contains(place("startButton")));
}

TEST_F(Stack, hasTheInstallScreenBelowEverything) {
    enter(State::Install);
    EXPECT_EQ(mainStack(), (Names{"install", "lumiqLogo", "containerView", "licenseLabel"}));
    EXPECT_EQ(stackOf(find("containerView")), Names{});
    EXPECT_FALSE(frontEnd.holds(widgetOf(*content->startView())));
    EXPECT_EQ(stackOf(widgetOf(*content->installView())),
              (Names{"installLabel", "installProgress", "closeButton"}));
}

TEST_F(Stack, hasTheLicenseOnTopOnceAndGivesItBack) {
    enter(State::LicenseOnInstall);
    content->switchToLicenseView();
    EXPECT_EQ(mainStack(),
              (Names{"install", "lumiqLogo", "containerView", "licenseLabel", "license"}));
    EXPECT_EQ(stackOf(widgetOf(*content->licenseView())),
              (Names{"licenseAgreementLabel", "licenseText", "backButton"}));
    content->licenseView()->backAction();
    EXPECT_EQ(mainStack(), (Names{"install", "lumiqLogo", "containerView", "licenseLabel"}));
}

TEST_F(Stack, hasTheFailureScreenAboveAnOpenLicense) {
    enter(State::LicenseOnFailure);
    EXPECT_EQ(mainStack(),
              (Names{"install", "lumiqLogo", "containerView", "licenseLabel", "license", "fail"}));
    content->licenseView()->backAction();
    EXPECT_EQ(mainStack().back(), "fail");
}

TEST_F(Stack, hasTheFailureScreenOnTop) {
    enter(State::Failure);
    EXPECT_EQ(mainStack(),
              (Names{"install", "lumiqLogo", "containerView", "licenseLabel", "fail"}));
    Names fail = stackOf(widgetOf(*content->failView()));
    std::ranges::sort(fail);
    EXPECT_EQ(fail, (Names{"closeIcon", "failLabel", "logLabel", "troubleshootButton"}));
}

} // namespace BackendTest
