#include "AppKit/AppKitFixture.h"

namespace AppKitTest {

/// The order in which the toolkit itself holds the views, from the lowest to the topmost.
class Stack : public EveryLanguage {
protected:
    /// The names of what a view holds; a screen has that of its pane.
    Names stackOf(NSView* view) const {
        Names names;
        for (NSUInteger index = 0; index < [[view subviews] count]; ++index) {
            names.push_back(nameOfPart([[view subviews] objectAtIndex:index]));
        }
        return names;
    }

    Names mainStack() const { return stackOf(paneOf(*content)); }

private:
    std::string nameOfPart(NSView* view) const {
        const std::vector<std::pair<Vexora::InterfaceController*, std::string>> screens{
            {content->startView().get(), "start"},
            {content->installView().get(), "install"},
            {content->licenseView().get(), "license"},
            {content->failView().get(), "fail"}};
        for (const auto& [screen, name] : screens) {
            if (screen->isViewLoaded() && paneOf(*screen) == view) {
                return name;
            }
        }
        return view == find("containerView") ? "containerView" : nameOf(view);
    }
};

INSTANTIATE_TEST_SUITE_P(In, Stack, languages, languageName);

TEST_P(Stack, beginsWithTheStartScreenInTheContainer) {
    openWindow();
    EXPECT_EQ(mainStack(), (Names{"lumiqLogo", "containerView", "licenseLabel"}));
    EXPECT_EQ(stackOf(find("containerView")), Names{"start"});
    EXPECT_EQ(stackOf(paneOf(*content->startView())), (Names{"startLabel", "startButton"}));
    EXPECT_EQ([paneOf(*content) superview], [window() contentView]);
}

TEST_P(Stack, hasTheInstallScreenBelowEverything) {
    enter(State::Install);
    EXPECT_EQ(mainStack(), (Names{"install", "lumiqLogo", "containerView", "licenseLabel"}));
    EXPECT_EQ(stackOf(find("containerView")), Names{});
    EXPECT_EQ([paneOf(*content->startView()) superview], nil);
    EXPECT_EQ(stackOf(paneOf(*content->installView())),
              (Names{"installLabel", "installProgress", "closeButton"}));
}

TEST_P(Stack, hasTheLicenseOnTopAndGivesItBack) {
    enter(State::LicenseOnInstall);
    EXPECT_EQ(mainStack(),
              (Names{"install", "lumiqLogo", "containerView", "licenseLabel", "license"}));
    EXPECT_EQ(stackOf(paneOf(*content->licenseView())),
              (Names{"licenseAgreementLabel", "licenseText", "backButton"}));
    content->licenseView()->backAction();
    EXPECT_EQ(mainStack(), (Names{"install", "lumiqLogo", "containerView", "licenseLabel"}));
}

TEST_P(Stack, hasTheFailureScreenOnTop) {
    enter(State::Failure);
    EXPECT_EQ(mainStack(),
              (Names{"install", "lumiqLogo", "containerView", "licenseLabel", "fail"}));
    EXPECT_EQ(stackOf(paneOf(*content->failView())),
              (Names{"closeIcon", "failLabel", "logLabel", "troubleshootButton"}));
}

TEST_P(Stack, hasTheFailureScreenAboveAnOpenLicense) {
    enter(State::LicenseOnFailure);
    EXPECT_EQ(mainStack(),
              (Names{"install", "lumiqLogo", "containerView", "licenseLabel", "license", "fail"}));
    EXPECT_TRUE([paneOf(*content->licenseView()) isHidden]);
    EXPECT_FALSE([paneOf(*content->failView()) isHidden]);
}

TEST_P(Stack, takesTheLicenseInOnceHoweverOftenItIsOpened) {
    openWindow();
    for (int times = 0; times < 3; ++times) {
        content->switchToLicenseView();
    }
    EXPECT_EQ(mainStack(), (Names{"lumiqLogo", "containerView", "licenseLabel", "license"}));
}

} // namespace AppKitTest
