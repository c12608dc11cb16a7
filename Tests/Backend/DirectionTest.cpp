#include "Backend/Fixture.h"

namespace BackendTest {

class LayoutDirection : public EveryLanguage {
protected:
    /// Where a control begins and ends on the way that reading takes through the window.
    double begin(const std::string& name) const {
        return fromRight() ? frontEnd.area().width - place(name).right() : place(name).left;
    }
    double end(const std::string& name) const { return begin(name) + place(name).width; }
    double middle() const { return frontEnd.area().width / 2; }
};

INSTANTIATE_TEST_SUITE_P(In, LayoutDirection, languages, languageName);

TEST_P(LayoutDirection, ofTheFailureScreenIsThatOfTheLanguage) {
    enter(State::Failure);
    EXPECT_EQ(frontEnd.fromRight(), fromRight());
    EXPECT_EQ(begin("troubleshootButton"), begin("logLabel"));
    EXPECT_EQ(end("closeButton"), end("logLabel"));
    EXPECT_LT(end("troubleshootButton"), middle());
    EXPECT_GT(begin("closeButton"), middle());
    EXPECT_NEAR(place("closeButton").middle().y, place("troubleshootButton").middle().y, 1.0);
}

TEST_P(LayoutDirection, ofTheLicenseIsThatOfTheLanguage) {
    enter(State::LicenseOnStart);
    EXPECT_GT(begin("backButton"), middle());
    // As far as the text is from its frame.
    EXPECT_EQ(begin("licenseAgreementLabel"), begin("licenseText") + 12.0);
    EXPECT_EQ(runs("licenseAgreementLabel").front().alignment,
              fromRight() ? Alignment::Right : Alignment::Left);
}

TEST_P(LayoutDirection, keepsTheSidesWhenTheWindowGrows) {
    enter(State::Failure);
    const double help = begin("troubleshootButton");
    const double close = begin("closeButton");
    const double message = place("logLabel").width;
    frontEnd.resize(frontEnd.area().width + 60.0, frontEnd.area().height);
    EXPECT_EQ(begin("troubleshootButton"), help);
    EXPECT_EQ(begin("closeButton"), close + 60.0);
    EXPECT_EQ(place("logLabel").width, message + 60.0);
}

class ButtonWidth : public Fixture {
protected:
    /// Where a button is once its title has become long.
    Place grown(const std::string& name, Vexora::Button& button) {
        const Place before = place(name);
        button.setTitle("A title that takes much more room than any button has");
        FrontEnd::settle();
        EXPECT_GT(place(name).width, before.width + 50.0);
        EXPECT_TRUE(FrontEnd::isWhole(find(name)));
        return place(name);
    }
};

TEST_F(ButtonWidth, growsToBothSidesInTheMiddleAndBack) {
    openWindow();
    const Place before = place("startButton");
    Vexora::Button& button = *content->startView()->startButton();
    EXPECT_NEAR(grown("startButton", button).middle().x, before.middle().x, 1.0);
    button.setTitle("Go");
    FrontEnd::settle();
    EXPECT_EQ(place("startButton"), before);
}

TEST_F(ButtonWidth, growsToTheLeftFromTheRightSide) {
    enter(State::Install);
    const Place before = place("closeButton");
    const Place after = grown("closeButton", *content->installView()->closeButton());
    EXPECT_EQ(after.right(), before.right());
}

TEST_F(ButtonWidth, growsToTheRightInALanguageFromTheRight) {
    useLanguage("ar");
    enter(State::LicenseOnStart);
    const Place before = place("backButton");
    const Place after = grown("backButton", *content->licenseView()->backButton());
    EXPECT_EQ(after.left, before.left);
}

} // namespace BackendTest
