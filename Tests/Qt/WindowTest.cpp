#include "Backend/Fixture.h"
#include "Platform/Qt/Palette.h"
#include "Platform/Qt/PaperStyle.h"
#include "Platform/Qt/TextLabel.h"

#include <QDialog>
#include <QFont>
#include <QFontInfo>
#include <QGuiApplication>
#include <QPushButton>
#include <QScreen>
#include <QTest>

namespace QtTest {

using BackendTest::FrontEnd;
using BackendTest::Key;
using BackendTest::State;

class Window : public BackendTest::Fixture {
protected:
    QWidget& window() const { return frontEnd.window(); }
};

TEST_F(Window, leavesWithAnyOtherWindow) {
    openWindow();
    QDialog panel;
    panel.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&panel));
    EXPECT_TRUE(application.exits.empty());
    panel.close();
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Window, focusesTheScreenBelowTheLicenseWhereNothingHadTheFocus) {
    enter(State::Install);
    find("installProgress")->clearFocus();
    content->switchToLicenseView();
    content->licenseView()->backAction();
    EXPECT_TRUE(FrontEnd::waitFor([this] { return focused() == "installProgress"; }));
}

TEST_F(Window, comesInFrontOfTheOthers) {
    openWindow();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    application.activateIgnoringOtherApps();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window()));
}

TEST_F(Window, doesNotLeaveWithAWidgetInside) {
    openWindow();
    find("startButton")->close();
    EXPECT_TRUE(application.exits.empty());
}

TEST_F(Window, keepsItsTitleBarOnAScreenThatIsTooSmall) {
    openWindow();
    const QRect available = window().screen()->availableGeometry();
    frontEnd.resize(available.width(), available.height() + 200);
    application.windows().front()->center();
    FrontEnd::settle();
    EXPECT_GE(window().frameGeometry().top(), available.top());
}

TEST_F(Window, growsNoFurtherThanItsScreenAndScrollsThere) {
    openWindow();
    const QRect available = window().screen()->availableGeometry();
    frontEnd.shrink();
    window().move(available.bottomLeft() - QPoint(0, 100));
    find("startLabel")->setMinimumHeight(2 * available.height());
    FrontEnd::settle();
    EXPECT_TRUE(available.contains(window().frameGeometry()));
    EXPECT_GT(window().height(), available.height() / 2);
    EXPECT_TRUE(find("startButton")->visibleRegion().isEmpty());
    tabTo("licenseLabel");
    tabTo("startButton");
    EXPECT_EQ(find("startButton")->visibleRegion(), QRegion(find("startButton")->rect()));
}

TEST_F(Window, keepsItsSizeAndButtonsWhereTheNoticeGoes) {
    enter(State::Install);
    const QSize size = window().size();
    const BackendTest::Place close = place("closeButton");
    endInstall(30);
    EXPECT_FALSE(shows("licenseLabel"));
    EXPECT_EQ(window().size(), size);
    EXPECT_EQ(place("closeButton"), close);
}

TEST_F(Window, hasItsDefinitionsWithoutAResourceDirectory) {
    environment.resources = "/missing";
    useLanguage("ar");
    enter(State::Failure);
    EXPECT_EQ(text("logLabel"), "Failed to extract Ondrel Vexora Lumiq. Open logs");
    EXPECT_EQ(window().layoutDirection(), Qt::LeftToRight);
    EXPECT_TRUE(shows("closeButton"));
}

TEST_F(Window, hasTheTypefaceOfTheLanguage) {
    const QFont desktop = QApplication::font();
    application.setLanguage("th");
    EXPECT_EQ(QApplication::font().families().value(0), "Noto Sans Thai");
    EXPECT_EQ(window().font().families().value(0), "Noto Sans Thai");
    application.setLanguage("en");
    EXPECT_EQ(QApplication::font(), desktop);
}

TEST_F(Window, opensLinksByTheLeftButtonAlone) {
    openWindow();
    const QPoint middle = find("licenseLabel")->geometry().center();
    for (const Qt::MouseButton button : {Qt::RightButton, Qt::MiddleButton}) {
        QTest::mouseClick(window().windowHandle(), button, Qt::NoModifier, middle);
    }
    FrontEnd::settle();
    EXPECT_FALSE(shows("backButton"));
}

TEST_F(Window, startsOnceByADoubleClick) {
    openWindow();
    const BackendTest::Point middle = place("startButton").middle();
    QTest::mouseDClick(window().windowHandle(), Qt::LeftButton, Qt::NoModifier,
                       QPointF(middle.x, middle.y).toPoint());
    FrontEnd::settle();
    EXPECT_EQ(backgroundQueue.pending(), 1U);
    EXPECT_TRUE(application.exits.empty());
}

TEST_F(Window, showsTheFocusRingForTheKeyboardAlone) {
    openWindow();
    const auto notice = [this] { return find("licenseLabel")->grab().toImage(); };
    find("licenseLabel")->setFocus(Qt::MouseFocusReason);
    FrontEnd::settle();
    const QImage plain = notice();
    press(Key::Tab);
    tabTo("licenseLabel");
    EXPECT_NE(notice(), plain);
}

TEST_F(Window, showsTheRingOfCloseAfterAKeyAlone) {
    openWindow();
    press(Key::Return);
    endInstall(30);
    ASSERT_EQ(focused(), "closeButton");
    const auto close = [this] { return find("closeButton")->grab().toImage(); };
    const QImage ringed = close();
    click("logLabel");
    EXPECT_EQ(focused(), "closeButton");
    const QImage plain = close();
    EXPECT_NE(plain, ringed);
    press(Key::Escape);
    EXPECT_EQ(close(), ringed);
}

TEST_F(Window, doesNotCloseByASpaceHeldSinceBeforeTheFailure) {
    enter(State::Install);
    tabTo("closeButton");
    QTest::keyPress(find("closeButton"), Qt::Key_Space);
    endInstall(30);
    ASSERT_EQ(focused(), "closeButton");
    QTest::keyRelease(find("closeButton"), Qt::Key_Space);
    EXPECT_TRUE(application.exits.empty());
    press(Key::Space);
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Window, hasNoShortcutForAnAmpersandInATitle) {
    openWindow();
    content->startView()->startButton()->setTitle("Fish & Chips");
    const auto* button = qobject_cast<QPushButton*>(find("startButton"));
    EXPECT_TRUE(button->shortcut().isEmpty());
    EXPECT_EQ(button->text(), "Fish && Chips");
}

class ReadingDirection : public BackendTest::EveryLanguage {};

INSTANTIATE_TEST_SUITE_P(In, ReadingDirection, testing::Values("en", "ar"),
                         BackendTest::languageName);

TEST_P(ReadingDirection, isThatOfTheBar) {
    enter(State::Install);
    content->installView()->setIncrement(0.0);
    FrontEnd::settle();
    auto* bar = qobject_cast<QProgressBar*>(find("installProgress"));
    bar->setValue(30);
    const QImage image = bar->grab().toImage();
    const int row = image.height() / 2;
    const QColor left = image.pixelColor(image.width() / 5, row);
    const QColor right = image.pixelColor(image.width() * 4 / 5, row);
    EXPECT_LT((fromRight() ? right : left).lightness(), (fromRight() ? left : right).lightness());
    bar->setValue(100);
    const QImage full = bar->grab().toImage();
    const int side = full.height();
    const QRect end(fromRight() ? 0 : full.width() - side, 0, side, side);
    for (int x = 0; x < full.width(); ++x) {
        if (!end.contains(x, 0)) {
            EXPECT_EQ(full.pixelColor(x, 1), Vexora::Palette::paper) << x;
        }
    }
    EXPECT_EQ(full.pixelColor(end.center().x(), 1), Vexora::Palette::done);
}

TEST_P(ReadingDirection, ofTheLicenseIsThatOfItsScrollBar) {
    enter(State::LicenseOnStart);
    auto* text = find("licenseText")->findChild<QTextEdit*>();
    content->licenseView()->licenseText()->documentView()->setString("An agreement in English.");
    EXPECT_EQ(text->layoutDirection(), Qt::LeftToRight);
}

TEST_P(ReadingDirection, setsTheLicensesHeadingAndTextOnOneEdge) {
    enter(State::LicenseOnStart);
    auto* text = find("licenseText")->findChild<QTextEdit*>();
    const QRect line = text->cursorRect();
    const int edge = text->viewport()->mapTo(&frontEnd.window(), line.center()).x();
    const BackendTest::Place heading = place("licenseAgreementLabel");
    const double start = fromRight() ? heading.right() - Vexora::TextLabel::padding
                                     : heading.left + Vexora::TextLabel::padding;
    EXPECT_NEAR(edge, start, 2.0);
}

TEST_F(Window, showsThatWorkGoesOnWhileTheBarRests) {
    enter(State::Install);
    auto* bar = qobject_cast<QProgressBar*>(find("installProgress"));
    const auto sheen = [bar] { return bar->property("sheen"); };
    content->installView()->setIncrement(0.0);
    const auto shinesNext = [&] {
        bar->setProperty("sheen", 2.0);
        EXPECT_TRUE(FrontEnd::waitFor([&] { return sheen() != 2.0; }));
        return sheen().isValid();
    };
    ASSERT_TRUE(FrontEnd::waitFor([&] { return sheen().isValid(); }));
    EXPECT_TRUE(shinesNext());
    auto* style = qobject_cast<Vexora::PaperStyle*>(QApplication::style());
    style->heed({.motion = false});
    EXPECT_FALSE(shinesNext());
    style->heed({});
    EXPECT_TRUE(shinesNext());
    bar->window()->hide();
    EXPECT_FALSE(shinesNext());
}

TEST_F(Window, restsBetweenTwoSheens) {
    enter(State::Install);
    const auto* bar = find("installProgress");
    content->installView()->setIncrement(0.0);
    for (const bool shines : {true, false}) {
        EXPECT_TRUE(FrontEnd::waitFor([&] { return bar->property("sheen").isValid() == shines; }));
    }
}

TEST_F(Window, hasNoSheenWhereNothingIsAnimated) {
    enter(State::Install);
    auto* bar = qobject_cast<QProgressBar*>(find("installProgress"));
    bar->setProperty("sheen", 0.5);
    content->installView()->installProgress()->setUsesThreadedAnimation(false);
    EXPECT_FALSE(bar->property("sheen").isValid());
}

TEST_F(Window, hasNoSheenOnAFullBar) {
    enter(State::Install);
    auto* bar = qobject_cast<QProgressBar*>(find("installProgress"));
    bar->setProperty("sheen", 0.5);
    endInstall(0);
    EXPECT_FALSE(bar->property("sheen").isValid());
    const QImage full = bar->grab().toImage();
    bar->setProperty("sheen", 0.5);
    EXPECT_NE(bar->grab().toImage(), full);
}

TEST_F(Window, showsTheOutcomeWhereTheInstallationStood) {
    enter(State::Install);
    const auto heightOf = [this](const std::string& name) { return place(name).middle().y; };
    const double line = heightOf("installLabel");
    endInstall(30);
    EXPECT_NEAR(heightOf("failLabel"), line, 12.0);
    EXPECT_NEAR(heightOf("closeIcon"), heightOf("failLabel"), 1.0);
    EXPECT_LE(place("logLabel").top - place("failLabel").bottom(), 8.0);
}

TEST_F(Window, showsTheNoticeWhereTheInstallationStood) {
    enter(State::Install);
    const double line = place("installLabel").middle().y;
    endInstall(5);
    EXPECT_TRUE(find("failLabel")->isHidden());
    EXPECT_NEAR(place("logLabel").middle().y, line, 8.0);
}

TEST_P(ReadingDirection, isThatOfTheLicensesText) {
    enter(State::LicenseOnStart);
    EXPECT_EQ(find("licenseText")->findChild<QTextEdit*>()->layoutDirection(),
              fromRight() ? Qt::RightToLeft : Qt::LeftToRight);
}

} // namespace QtTest
