#include "Qt/QtFixture.h"

#include <QDialog>
#include <QFont>
#include <QFontInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QTest>

namespace QtTest {

class Application : public QtFixture {};

TEST_F(Application, closingTheMainWindowLeaves) {
    openWindow();
    window().close();
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Application, closingTheMainWindowLeavesDuringTheInstallation) {
    enter(State::Install);
    window().close();
    EXPECT_EQ(application.exits, std::vector<int>{0});
    EXPECT_TRUE(calls.beginningWith("launch ").empty());
}

TEST_F(Application, closingAnyOtherWindowLeavesToo) {
    openWindow();
    QDialog panel;
    panel.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel));
    EXPECT_TRUE(application.exits.empty());
    panel.close();
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Application, closingByTheWindowSystemLeaves) {
    openWindow();
    window().windowHandle()->close();
    settle();
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Application, closingAWidgetInsideTheWindowDoesNotLeave) {
    openWindow();
    find("startButton")->close();
    EXPECT_TRUE(application.exits.empty());
}

TEST_F(Application, handsOutTheMainWindowFirst) {
    ASSERT_FALSE(application.windows().empty());
    EXPECT_EQ(application.windows().front(), &window());
}

TEST_F(Application, centresTheWindow) {
    openWindow();
    window().move(0, 0);
    settle();
    application.windows().front()->center();
    settle();
    const QPoint middle = window().screen()->availableGeometry().center();
    EXPECT_NEAR(window().frameGeometry().center().x(), middle.x(), 1);
    EXPECT_NEAR(window().frameGeometry().center().y(), middle.y(), 1);
}

TEST_F(Application, isCentredAndInFrontAfterLaunching) {
    openWindow();
    const QPoint middle = window().screen()->availableGeometry().center();
    EXPECT_NEAR(window().frameGeometry().center().x(), middle.x(), 1);
    EXPECT_NEAR(window().frameGeometry().center().y(), middle.y(), 1);
    EXPECT_TRUE(window().isActiveWindow());
}

TEST_F(Application, titleBarStaysOnAScreenThatIsTooSmall) {
    openWindow();
    const QRect available = window().screen()->availableGeometry();
    window().resize(available.width(), available.height() + 200);
    settle();
    application.windows().front()->center();
    settle();
    EXPECT_GE(window().frameGeometry().top(), available.top());
}

TEST_F(Application, setsTheTitleAsItIs) {
    application.windows().front()->setTitle("Größe & <b>ホーム</b>");
    EXPECT_EQ(window().windowTitle(), "Größe & <b>ホーム</b>");
}

TEST_F(Application, layoutFollowsTheLanguage) {
    for (const char* language : {"ar", "he", "fa", "ur"}) {
        application.setLanguage(language);
        EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::RightToLeft) << language;
        application.setLanguage("en");
        EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight);
    }
    for (const char* language : {"de", "ja", "e", "", "??", "zz"}) {
        application.setLanguage("ar");
        application.setLanguage(language);
        EXPECT_EQ(QGuiApplication::layoutDirection(), Qt::LeftToRight) << language;
    }
}

TEST_F(Application, writesAForeignScriptInOneTypeface) {
    const std::pair<const char*, const char*> typefaces[] = {
        {"ur", "Noto Sans Arabic"}, {"hi", "Noto Sans Devanagari"}, {"bn", "Noto Sans Bengali"}};
    for (const auto& [language, typeface] : typefaces) {
        application.setLanguage(language);
        const QFont desktop = QGuiApplication::font();
        const QStringList standIns = QFont::substitutes(desktop.family());
        ASSERT_FALSE(standIns.isEmpty()) << typeface;
        EXPECT_TRUE(standIns.contains(typeface, Qt::CaseInsensitive)) << typeface;
        EXPECT_EQ(standIns.first(), QFontInfo(desktop).family().toLower());
    }
    application.setLanguage("en");
}

TEST_F(Application, staysLeftToRightWithoutTheLanguagesTexts) {
    const TestSupport::TemporaryFolder nothing;
    environment.resources = nothing.path().string();
    useLanguage("ar");
    openWindow();
    EXPECT_EQ(window().layoutDirection(), Qt::LeftToRight);
    EXPECT_EQ(window().windowTitle(), "Ondrel Vexora Lumiq Setup");
    EXPECT_EQ(label("startLabel").text(), "To install Ondrel Vexora Lumiq, click Start.");
}

TEST_F(Application, opensWithoutAResourceDirectory) {
    environment.resources = "/missing";
    enter(State::Failure);
    EXPECT_EQ(label("logLabel").text(), "Failed to extract Ondrel Vexora Lumiq. Open logs");
    EXPECT_TRUE(find("closeButton")->isVisible());
}

} // namespace QtTest
