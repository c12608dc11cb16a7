#include "Backend/Fixture.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QAccessibleValueInterface>
#include <QApplication>
#include <QTextEdit>

namespace QtTest {

using BackendTest::FrontEnd;
using BackendTest::State;

class Accessibility : public BackendTest::Fixture {
protected:
    QAccessibleInterface& described(QObject* object) {
        auto* found = QAccessible::queryAccessibleInterface(object);
        if (found == nullptr) {
            throw std::out_of_range("not accessible");
        }
        return *found;
    }
    QAccessibleInterface& described(const std::string& name) { return described(find(name)); }

    void expect(const std::string& name, QAccessible::Role role, const std::string& text) {
        EXPECT_EQ(described(name).role(), role) << name;
        EXPECT_EQ(described(name).text(QAccessible::Name).toStdString(), text) << name;
    }

    void activate(const std::string& name) {
        auto* actions = described(name).actionInterface();
        ASSERT_NE(actions, nullptr);
        ASSERT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
        actions->doAction(QAccessibleActionInterface::pressAction());
        FrontEnd::settle();
    }
};

TEST_F(Accessibility, nameAndRoleOfTheStartScreen) {
    openWindow();
    expect("startLabel", QAccessible::StaticText,
           markedTranslation("To install Ondrel Vexora Lumiq, click <b>Start</b>.", "<b>").all());
    expect("startButton", QAccessible::Button, translation("Start"));
    expect("licenseLabel", QAccessible::Link,
           markedTranslation(
               "By installing, you agree to the Ondrel Vexora <a>license agreement</a>.", "<a>")
               .all());
}

TEST_F(Accessibility, pressActionOfTheNoticeOpensTheLicense) {
    openWindow();
    activate("licenseLabel");
    EXPECT_TRUE(shows("backButton"));
    activate("backButton");
    EXPECT_TRUE(FrontEnd::waitFor([this] { return !shows("backButton"); }));
}

TEST_F(Accessibility, focusActionOfTheNoticeFocusesIt) {
    openWindow();
    described("licenseLabel")
        .actionInterface()
        ->doAction(QAccessibleActionInterface::setFocusAction());
    FrontEnd::settle();
    EXPECT_EQ(focused(), "licenseLabel");
}

TEST_F(Accessibility, windowIsADialog) {
    openWindow();
    EXPECT_EQ(described(&frontEnd.window()).role(), QAccessible::Dialog);
}

TEST_F(Accessibility, closeIsDescribedByTitleAndMessage) {
    const auto description = [this] {
        return described("closeButton").text(QAccessible::Description).toStdString();
    };
    enter(State::Failure);
    const std::string title = translation("Installation failed");
    EXPECT_EQ(description(), title + ": " + translation("Failed to extract Ondrel Vexora Lumiq."));
    content->failView()->updateFailViewStatus(3);
    EXPECT_EQ(description(), title);
}

TEST_F(Accessibility, closeIsDescribedByTheNoticeAlone) {
    enter(State::Notice);
    EXPECT_EQ(described("closeButton").text(QAccessible::Description).toStdString(),
              translation("Ondrel Vexora Lumiq is already up to date."));
}

TEST_F(Accessibility, closeIsDescribedBeforeItTakesTheFocusOnce) {
    enter(State::Install);
    QStringList told;
    const auto watching =
        QObject::connect(qApp, &QApplication::focusChanged, [&](QWidget*, QWidget* focus) {
            if (nameOf(focus) == "closeButton") {
                told.append(focus->accessibleDescription());
            }
        });
    endInstall(3);
    QObject::disconnect(watching);
    EXPECT_EQ(told.join('|').toStdString(), translation("Installation failed"));
}

TEST_F(Accessibility, plainTextHasNoPressAction) {
    openWindow();
    auto* actions = described("startLabel").actionInterface();
    if (actions != nullptr) {
        EXPECT_FALSE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    }
}

TEST_F(Accessibility, progressBarTellsItsNameAndValue) {
    enter(State::Install);
    expect("installProgress", QAccessible::ProgressBar,
           markedTranslation("Installing <b>Ondrel Vexora Lumiq</b>...", "<b>").all());
    endInstall(0);
    expect("installProgress", QAccessible::ProgressBar, translation("Installation completed!"));
    auto* value = described("installProgress").valueInterface();
    ASSERT_NE(value, nullptr);
    EXPECT_EQ(value->minimumValue().toInt(), 0);
    EXPECT_EQ(value->maximumValue().toInt(), 100);
    EXPECT_EQ(value->currentValue().toInt(), 100);
}

TEST_F(Accessibility, textThatNamesAControlIsRelatedToIt) {
    enter(State::LicenseOnInstall);
    const std::pair<const char*, QObject*> named[] = {
        {"installLabel", find("installProgress")},
        {"licenseAgreementLabel", find("licenseText")->findChild<QTextEdit*>()}};
    for (const auto& [label, control] : named) {
        const auto relations = described(label).relations(QAccessible::Labelled);
        ASSERT_EQ(relations.size(), 1) << label;
        EXPECT_EQ(relations.first().first->object(), control) << label;
        EXPECT_TRUE(described(label).relations(QAccessible::Controlled).isEmpty()) << label;
    }
    EXPECT_TRUE(described("licenseLabel").relations(QAccessible::Labelled).isEmpty());
}

TEST_F(Accessibility, licenseTextIsNamedByItsHeading) {
    enter(State::LicenseOnStart);
    auto* edit = find("licenseText")->findChild<QTextEdit*>();
    EXPECT_EQ(described(edit).text(QAccessible::Name).toStdString(),
              translation("License Agreement"));
    EXPECT_EQ(described("licenseText").text(QAccessible::Name), "");
    EXPECT_EQ(described(edit).role(), QAccessible::EditableText);
    EXPECT_TRUE(described(edit).state().readOnly);
    expect("backButton", QAccessible::Button, translation("Go back"));
}

TEST_F(Accessibility, failureScreenIsDescribed) {
    enter(State::Failure);
    expect("failLabel", QAccessible::StaticText, translation("Installation failed"));
    expect("logLabel", QAccessible::Link,
           translation("Failed to extract Ondrel Vexora Lumiq.") + ' ' + translation("Open logs"));
    expect("troubleshootButton", QAccessible::Link, TROUBLESHOOTING_URL);
    EXPECT_EQ(find("troubleshootButton")->toolTip(), TROUBLESHOOTING_URL);
    activate("logLabel");
    EXPECT_EQ(calls.count("selectFile " + logFile()), 1U);
    activate("troubleshootButton");
    // The toolkit shows the button pressed for a moment.
    EXPECT_TRUE(
        FrontEnd::waitFor([this] { return calls.count("openUrl " TROUBLESHOOTING_URL) == 1U; }));
}

class AccessibleNames : public BackendTest::EveryState {};

INSTANTIATE_TEST_SUITE_P(In, AccessibleNames, BackendTest::everyState, BackendTest::nameOfState);

TEST_P(AccessibleNames, areThereForEveryControl) {
    enter(GetParam());
    for (const std::string& name : visible()) {
        if (name != "lumiqLogo" && name != "closeIcon") {
            auto* edit = find(name)->findChild<QTextEdit*>();
            const auto* described =
                QAccessible::queryAccessibleInterface(edit == nullptr ? find(name) : edit);
            ASSERT_NE(described, nullptr);
            EXPECT_FALSE(described->text(QAccessible::Name).isEmpty()) << name;
        }
    }
}

class ButtonTexts : public BackendTest::Fixture {};

TEST_F(ButtonTexts, areReadOutWithTheirAmpersand) {
    openWindow();
    content->startView()->startButton()->setTitle("Fish & Chips");
    const auto* described = QAccessible::queryAccessibleInterface(find("startButton"));
    EXPECT_EQ(described->text(QAccessible::Name), "Fish & Chips");
}

} // namespace QtTest
