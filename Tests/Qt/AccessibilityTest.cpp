#include "Qt/QtFixture.h"

#include "Platform/Qt/Picture.h"

#include <QAccessible>
#include <QAccessibleActionInterface>
#include <QAccessibleValueInterface>
#include <QTest>

namespace QtTest {

class Accessibility : public EveryLanguage {
protected:
    QAccessibleInterface& described(QObject* object) {
        auto* found = QAccessible::queryAccessibleInterface(object);
        if (found == nullptr) {
            throw std::out_of_range("not accessible");
        }
        return *found;
    }
    QAccessibleInterface& described(const QString& name) { return described(find(name)); }

    void expect(const QString& name, QAccessible::Role role, const QString& text) {
        EXPECT_EQ(described(name).role(), role) << name.toStdString();
        EXPECT_EQ(described(name).text(QAccessible::Name), text) << name.toStdString();
    }

    void activate(const QString& name) {
        auto* actions = described(name).actionInterface();
        ASSERT_NE(actions, nullptr);
        ASSERT_TRUE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
        actions->doAction(QAccessibleActionInterface::pressAction());
        settle();
    }
};

INSTANTIATE_TEST_SUITE_P(In, Accessibility, languages, languageName);

TEST_P(Accessibility, nameAndRoleOfTheStartScreen) {
    openWindow();
    expect("startLabel", QAccessible::StaticText,
           markedTranslation("To install Ondrel Vexora Lumiq, click <b>Start</b>.", "<b>").all());
    expect("startButton", QAccessible::Button, translation("Start"));
    expect("licenseLabel", QAccessible::Link,
           markedTranslation(
               "By installing, you agree to the Ondrel Vexora <a>license agreement</a>.", "<a>")
               .all());
}

TEST_P(Accessibility, pressActionOfTheNoticeOpensTheLicense) {
    openWindow();
    activate("licenseLabel");
    EXPECT_NE(find("backButton"), nullptr);
    activate("backButton");
    EXPECT_TRUE(waitForLicenseToGo());
}

TEST_P(Accessibility, plainTextHasNoPressAction) {
    openWindow();
    auto* actions = described("startLabel").actionInterface();
    if (actions != nullptr) {
        EXPECT_FALSE(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    }
}

TEST_P(Accessibility, progressBarTellsItsNameAndValue) {
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

TEST_P(Accessibility, licenseTextIsNamedByItsHeading) {
    enter(State::LicenseOnStart);
    auto* edit = find("licenseText")->findChild<QTextEdit*>();
    EXPECT_EQ(described(edit).text(QAccessible::Name), translation("License Agreement"));
    EXPECT_EQ(described(edit).role(), QAccessible::EditableText);
    EXPECT_TRUE(described(edit).state().readOnly);
    expect("backButton", QAccessible::Button, translation("Go back"));
}

TEST_P(Accessibility, failureScreenIsDescribed) {
    enter(State::Failure);
    expect("failLabel", QAccessible::StaticText, translation("Installation failed"));
    expect("logLabel", QAccessible::Link,
           translation("Failed to extract Ondrel Vexora Lumiq.") + ' ' + translation("Open logs"));
    expect("troubleshootButton", QAccessible::Button, translation("Installation failed"));
    activate("logLabel");
    EXPECT_EQ(calls.count("selectFile " + logFile()), 1U);
    activate("troubleshootButton");
    // The toolkit shows the button pressed for a moment.
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return calls.count("openUrl " TROUBLESHOOTING_URL) == 1U; }, 10000));
}

class AccessibleNames : public EveryState {};

INSTANTIATE_TEST_SUITE_P(In, AccessibleNames, statesAndLanguages, stateAndLanguageName);

TEST_P(AccessibleNames, areThereForEveryControl) {
    enter(state());
    const auto controls = visibleControls();
    for (QWidget* control : controls) {
        if (qobject_cast<Vexora::Picture*>(control) == nullptr) {
            const auto* described = QAccessible::queryAccessibleInterface(control);
            ASSERT_NE(described, nullptr);
            EXPECT_FALSE(described->text(QAccessible::Name).isEmpty())
                << nameOf(control).toStdString();
        }
    }
}

class ButtonTexts : public QtFixture {};

TEST_F(ButtonTexts, showAnAmpersandInsteadOfAShortcut) {
    openWindow();
    content->startView()->startButton()->setTitle("Fish & Chips");
    const auto* button = find<QPushButton>("startButton");
    EXPECT_TRUE(button->shortcut().isEmpty());
    EXPECT_EQ(button->text(), "Fish && Chips");
    const auto* described = QAccessible::queryAccessibleInterface(find("startButton"));
    EXPECT_EQ(described->text(QAccessible::Name), "Fish & Chips");
}

} // namespace QtTest
