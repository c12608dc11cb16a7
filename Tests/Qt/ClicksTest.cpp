#include "Qt/QtFixture.h"

#include "Platform/Qt/Palette.h"

#include <QTest>

namespace QtTest {
namespace {

/// A point of a picture that is painted in a colour, as near to it as smoothed edges come.
QPoint pointOfColor(const QImage& image, const QColor& color) {
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor found = image.pixelColor(x, y);
            if (qAbs(found.red() - color.red()) + qAbs(found.green() - color.green()) +
                    qAbs(found.blue() - color.blue()) <
                30) {
                return {x, y};
            }
        }
    }
    return {-1, -1};
}

} // namespace

class ClicksEverywhere : public EveryState {};

INSTANTIATE_TEST_SUITE_P(In, ClicksEverywhere, statesAndLanguages, stateAndLanguageName);

TEST_P(ClicksEverywhere, findEveryVisibleControlAndNoOther) {
    enter(state());
    QStringList names;
    const auto controls = usableControls();
    for (const QWidget* control : controls) {
        names.append(nameOf(control));
        const QRect place = placeOf(control).adjusted(6, 6, -6, -6);
        for (const QPoint point : {place.center(), place.topLeft(), place.topRight(),
                                   place.bottomLeft(), place.bottomRight()}) {
            const QWidget* hit = window().childAt(point);
            EXPECT_TRUE(hit == control || control->isAncestorOf(hit))
                << nameOf(control).toStdString() << " at " << point.x() << ", " << point.y()
                << " hits " << (hit == nullptr ? "nothing" : hit->objectName().toStdString());
        }
    }
    QStringList expected = usableIn(state());
    names.sort();
    expected.sort();
    EXPECT_EQ(names, expected);
}

class Clicks : public EveryLanguage {
protected:
    /// Clicks where the label shows that colour.
    void clickColor(const QString& name, const QColor& color) {
        QWidget& widget = label(name);
        const QPixmap picture = widget.grab();
        const QPoint found = pointOfColor(picture.toImage(), color);
        ASSERT_GE(found.x(), 0) << name.toStdString() << " shows no such colour";
        clickAt(widget.mapTo(&window(), found / picture.devicePixelRatio()));
    }
};

INSTANTIATE_TEST_SUITE_P(In, Clicks, languages, languageName);

TEST_P(Clicks, onStartBeginTheInstallation) {
    openWindow();
    click("startButton");
    EXPECT_EQ(backgroundQueue.pending(), 1U);
    EXPECT_EQ(find("startButton"), nullptr);
    EXPECT_TRUE(find("closeButton")->isVisible());
}

TEST_P(Clicks, twiceOnStartBeginOneInstallationAndDoNotClose) {
    openWindow();
    const QPoint place = placeOf(find("startButton")).center();
    QTest::mouseDClick(window().windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    settle();
    clickAt(place);
    EXPECT_EQ(backgroundQueue.pending(), 1U);
    EXPECT_TRUE(application.exits.empty());
}

TEST_P(Clicks, onMarkedAndPlainWordsOfTheNoticeOpenTheLicense) {
    openWindow();
    clickColor("licenseLabel", Vexora::Palette::blue);
    ASSERT_NE(find("backButton"), nullptr);
    click("backButton");
    EXPECT_EQ(find("backButton"), nullptr);
    clickColor("licenseLabel", Vexora::Palette::ink);
    EXPECT_NE(find("backButton"), nullptr);
}

TEST_P(Clicks, onTheNoticeOpenTheLicenseDuringTheInstallation) {
    enter(State::Install);
    click("licenseLabel");
    ASSERT_NE(find("backButton"), nullptr);
    click("backButton");
    EXPECT_TRUE(find("installProgress")->isVisible());
    EXPECT_EQ(backgroundQueue.pending(), 1U);
}

TEST_P(Clicks, onCloseLeaveDuringTheInstallation) {
    enter(State::Install);
    click("closeButton");
    EXPECT_EQ(application.exits, std::vector<int>{0});
    EXPECT_TRUE(calls.beginningWith("launch ").empty());
}

TEST_P(Clicks, onCloseUnmountAndLeaveAfterSuccess) {
    enter(State::Success);
    calls.clear();
    click("closeButton");
    EXPECT_EQ(application.exits, std::vector<int>{0});
    EXPECT_EQ(calls.beginningWith("launch "),
              Vexora::Recording::Lines{"launch /usr/bin/nohup [" + environment.resources +
                                       "/unmount] [&]"});
}

TEST_P(Clicks, onCloseLeaveUnderTheFailureScreen) {
    enter(State::Failure);
    calls.clear();
    click("closeButton");
    EXPECT_EQ(application.exits, std::vector<int>{0});
    EXPECT_TRUE(calls.beginningWith("launch ").empty());
}

TEST_P(Clicks, onCloseLeaveUnderTheNoticeOfTheFailureScreen) {
    enter(State::Notice);
    click("closeButton");
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_P(Clicks, onMessageAndLinkRevealTheLog) {
    enter(State::Failure);
    clickColor("logLabel", Vexora::Palette::ink);
    EXPECT_EQ(calls.count("selectFile " + logFile()), 1U);
    clickColor("logLabel", Vexora::Palette::blue);
    EXPECT_EQ(calls.count("selectFile " + logFile()), 2U);
}

TEST_P(Clicks, besideTheWordsOfTheMessageRevealTheLogToo) {
    enter(State::Failure);
    clickAt(placeOf(find("logLabel")).bottomLeft() + QPoint(5, -5));
    EXPECT_EQ(calls.count("selectFile " + logFile()), 1U);
}

TEST_P(Clicks, onHelpOpenTheTroubleshootingPage) {
    enter(State::Failure);
    click("troubleshootButton");
    EXPECT_EQ(calls.count("openUrl " TROUBLESHOOTING_URL), 1U);
}

TEST_P(Clicks, doNothingToWhatTheLicenseCovers) {
    enter(State::Install);
    const QPoint close = placeOf(find("closeButton")).center();
    click("licenseLabel");
    QTest::mouseMove(window().windowHandle(), close);
    EXPECT_NE(window().childAt(close), find("closeButton"));
    clickAt(close);
    EXPECT_TRUE(application.exits.empty());
}

class ClicksOnLinks : public QtFixture {};

TEST_F(ClicksOnLinks, needTheLeftButton) {
    openWindow();
    const QPoint place = placeOf(find("licenseLabel")).center();
    QTest::mouseClick(window().windowHandle(), Qt::RightButton, Qt::NoModifier, place);
    QTest::mouseClick(window().windowHandle(), Qt::MiddleButton, Qt::NoModifier, place);
    settle();
    EXPECT_EQ(find("backButton"), nullptr);
}

TEST_F(ClicksOnLinks, endInsideTheLink) {
    openWindow();
    const QPoint place = placeOf(find("licenseLabel")).center();
    QTest::mousePress(window().windowHandle(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseRelease(window().windowHandle(), Qt::LeftButton, Qt::NoModifier, QPoint(2, 2));
    settle();
    EXPECT_EQ(find("backButton"), nullptr);
}

TEST_F(ClicksOnLinks, showAPointingHandOverThem) {
    openWindow();
    EXPECT_EQ(label("licenseLabel").cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(label("startLabel").cursor().shape(), Qt::ArrowCursor);
}

} // namespace QtTest
