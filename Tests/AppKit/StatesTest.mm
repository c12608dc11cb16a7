#include "AppKit/AppKitFixture.h"

namespace AppKitTest {

/// What is hidden and what is transparent, as the toolkit has it.
class States : public EveryLanguage {
protected:
    double heightOf(const std::string& name) const { return NSHeight([get(name) frame]); }
};

INSTANTIATE_TEST_SUITE_P(In, States, languages, languageName);

TEST_P(States, everythingShowsAtTheStart) {
    openWindow();
    for (const char* name : {"lumiqLogo", "licenseLabel", "startLabel", "startButton"}) {
        EXPECT_TRUE(isVisible(name)) << name;
        EXPECT_EQ([get(name) alphaValue], 1.0) << name;
    }
}

TEST_P(States, failureFadesLabelAndBarAndHidesTheNotice) {
    enter(State::Failure);
    EXPECT_EQ([get("installLabel") alphaValue], 0.0);
    EXPECT_EQ([get("installProgress") alphaValue], 0.0);
    EXPECT_TRUE([get("installProgress") isHidden]);
    EXPECT_FALSE(isVisible("installLabel"));
    EXPECT_TRUE([get("licenseLabel") isHidden]);
    EXPECT_TRUE(isVisible("closeButton"));
    EXPECT_TRUE(isVisible("troubleshootButton"));
}

TEST_P(States, failureShowsTitleAndIconOverAMessageOfFixedHeight) {
    enter(State::Failure);
    EXPECT_TRUE(isVisible("failLabel"));
    EXPECT_TRUE(isVisible("closeIcon"));
    EXPECT_TRUE(isVisible("logLabel"));
    EXPECT_EQ(heightOf("logLabel"), 200.0);
    EXPECT_EQ(content->failView()->logLabel()->heightConstraints(), std::vector<double>{200.0});
}

TEST_P(States, failureToldTwiceKeepsTheHeight) {
    enter(State::Failure);
    content->failView()->updateFailViewStatus(40);
    EXPECT_EQ(heightOf("logLabel"), 200.0);
    EXPECT_EQ(content->failView()->logLabel()->heightConstraints().size(), 2U);
}

TEST_P(States, noticeHasNeitherTitleNorIconNorFixedHeight) {
    enter(State::Notice);
    EXPECT_TRUE([get("failLabel") isHidden]);
    EXPECT_TRUE([get("closeIcon") isHidden]);
    EXPECT_TRUE(isVisible("logLabel"));
    EXPECT_TRUE([get("licenseLabel") isHidden]);
    EXPECT_TRUE(content->failView()->logLabel()->heightConstraints().empty());
}

TEST_P(States, aHeightConstraintSetsTheHeight) {
    enter(State::Notice);
    content->failView()->logLabel()->addHeightConstraint(77.0);
    EXPECT_EQ(heightOf("logLabel"), 77.0);
}

TEST_P(States, alphaAndHiddenAreToldApart) {
    openWindow();
    const auto notice = content->licenseLabel();
    notice->setAlphaValue(0.5);
    EXPECT_EQ([get("licenseLabel") alphaValue], 0.5);
    EXPECT_TRUE(isVisible("licenseLabel"));
    notice->setHidden(true);
    EXPECT_FALSE(isVisible("licenseLabel"));
    notice->setHidden(false);
    EXPECT_TRUE(isVisible("licenseLabel"));
    EXPECT_EQ([get("licenseLabel") alphaValue], 0.5);
}

TEST_P(States, theLicenseHidesWhatItCoversAndNothingElse) {
    enter(State::LicenseOnInstall);
    for (const char* name :
         {"lumiqLogo", "licenseLabel", "installLabel", "installProgress", "closeButton"}) {
        EXPECT_FALSE(isVisible(name)) << name;
    }
    for (const char* name : {"licenseAgreementLabel", "licenseText", "backButton"}) {
        EXPECT_TRUE(isVisible(name)) << name;
    }
    content->licenseView()->backAction();
    for (const char* name :
         {"lumiqLogo", "licenseLabel", "installLabel", "installProgress", "closeButton"}) {
        EXPECT_TRUE(isVisible(name)) << name;
    }
}

TEST_P(States, aFailureShowsOverTheOpenLicenseAtOnce) {
    enter(State::LicenseOnFailure);
    for (const char* name :
         {"lumiqLogo", "closeIcon", "failLabel", "logLabel", "troubleshootButton", "closeButton"}) {
        EXPECT_TRUE(isVisible(name)) << name;
    }
    for (const char* name : {"licenseAgreementLabel", "licenseText", "backButton", "licenseLabel",
                             "installProgress"}) {
        EXPECT_FALSE(isVisible(name)) << name;
    }
}

} // namespace AppKitTest
