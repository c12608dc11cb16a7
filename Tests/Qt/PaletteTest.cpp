#include "Platform/Qt/Palette.h"

#include "Color.h"
#include "Platform/Qt/Conversions.h"
#include "Platform/Qt/PaperStyle.h"
#include "Qt/QtFixture.h"

#include <QApplication>

#include <cmath>

namespace QtTest {
namespace {

namespace Palette = Vexora::Palette;

double linear(double component) {
    return component <= 0.04045 ? component / 12.92 : std::pow((component + 0.055) / 1.055, 2.4);
}

/// Relative luminance and contrast ratio as the Web Content Accessibility Guidelines 2.2 define
/// them, https://www.w3.org/TR/WCAG22/#dfn-relative-luminance and #dfn-contrast-ratio.
double luminance(const QColor& color) {
    return 0.2126 * linear(static_cast<double>(color.redF())) +
           0.7152 * linear(static_cast<double>(color.greenF())) +
           0.0722 * linear(static_cast<double>(color.blueF()));
}

double contrast(const QColor& one, const QColor& other) {
    const double first = luminance(one);
    const double second = luminance(other);
    return (qMax(first, second) + 0.05) / (qMin(first, second) + 0.05);
}

} // namespace

TEST(Contrast, isComputedAsDefined) {
    EXPECT_NEAR(contrast(Qt::black, Qt::white), 21.0, 1e-6);
    EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.005);
    EXPECT_NEAR(contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.005);
}

TEST(Contrast, ofEveryTextIsAtLeastFourAndAHalf) {
    const QColor fontBlue = Vexora::toQColor(Vexora::OndrelFontBlueColor);
    const std::vector<std::pair<QColor, QColor>> texts{{Palette::ink, Palette::paper},
                                                       {Palette::ink, Palette::sheet},
                                                       {fontBlue, Palette::paper},
                                                       {Palette::blue, Palette::paper},
                                                       {Palette::blue, Palette::sheet},
                                                       {Palette::blue, Palette::sheetHover},
                                                       {Palette::ink, Palette::sheetHover},
                                                       {Palette::ink, Palette::sheetPressed},
                                                       {Palette::inkOnBlue, Palette::blue},
                                                       {Palette::inkOnBlue, Palette::blueHover},
                                                       {Palette::inkOnBlue, Palette::bluePressed}};
    for (const auto& [text, under] : texts) {
        EXPECT_GE(contrast(text, under), 4.5)
            << text.name().toStdString() << " on " << under.name().toStdString();
    }
}

TEST(Contrast, ofWhatMarksAControlIsAtLeastThree) {
    for (const QColor& under : {Palette::paper, Palette::sheet}) {
        EXPECT_GE(contrast(Palette::blue, under), 3.0);
        EXPECT_GE(contrast(Palette::outline, under), 3.0);
    }
    EXPECT_GE(contrast(Palette::blue, Palette::track), 3.0);
}

TEST(PaperPalette, staysLightUnderADarkTheme) {
    QPalette dark(QColor(0x20, 0x20, 0x20));
    for (int role = 0; role < QPalette::NColorRoles; ++role) {
        dark.setColor(static_cast<QPalette::ColorRole>(role), Qt::magenta);
    }
    const QPalette paper = Vexora::PaperStyle::paperPalette();
    // What the toolkit does with the desktop's palette.
    const QPalette shown = paper.resolve(dark);
    for (const auto group : {QPalette::Active, QPalette::Inactive}) {
        EXPECT_EQ(shown.color(group, QPalette::Window), Palette::paper);
        EXPECT_EQ(shown.color(group, QPalette::Base), Palette::sheet);
        EXPECT_EQ(shown.color(group, QPalette::Button), Palette::sheet);
        EXPECT_EQ(shown.color(group, QPalette::WindowText), Palette::ink);
        EXPECT_EQ(shown.color(group, QPalette::Text), Palette::ink);
        EXPECT_EQ(shown.color(group, QPalette::ButtonText), Palette::ink);
        EXPECT_EQ(shown.color(group, QPalette::Highlight), Palette::blue);
        EXPECT_EQ(shown.color(group, QPalette::HighlightedText), Palette::inkOnBlue);
        EXPECT_EQ(shown.color(group, QPalette::Link), Palette::blue);
        for (const auto role : {QPalette::Light, QPalette::Midlight, QPalette::AlternateBase,
                                QPalette::ToolTipBase, QPalette::ToolTipText}) {
            EXPECT_NE(shown.color(group, role), QColor(Qt::magenta)) << role;
        }
    }
}

class PaperWindow : public QtFixture {};

TEST_F(PaperWindow, isPaintedOnPaper) {
    openWindow();
    const QImage image = window().grab().toImage();
    EXPECT_EQ(image.pixelColor(3, 3), Palette::paper);
    EXPECT_EQ(image.pixelColor(image.width() - 4, image.height() - 4), Palette::paper);
}

TEST_F(PaperWindow, isUsedByTheWholeApplication) {
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), Palette::paper);
    EXPECT_EQ(QApplication::palette("QTextEdit").color(QPalette::Base), Palette::sheet);
    EXPECT_NE(qobject_cast<Vexora::PaperStyle*>(QApplication::style()), nullptr);
}

TEST_F(PaperWindow, keepsTheHelpMarkReadableWhilePressed) {
    enter(State::Failure);
    auto* button = find<QPushButton>("troubleshootButton");
    for (const bool pressed : {false, true}) {
        button->setDown(pressed);
        // Large enough for the mark to have pixels that nothing smooths.
        QImage image(button->size() * 4, QImage::Format_RGB32);
        image.setDevicePixelRatio(4.0);
        button->render(&image);
        const QColor fill = image.pixelColor(image.width() / 5, image.height() / 2);
        double best = 1.0;
        for (int y = image.height() / 4; y < image.height() * 3 / 4; ++y) {
            for (int x = image.width() / 3; x < image.width() * 2 / 3; ++x) {
                best = qMax(best, contrast(image.pixelColor(x, y), fill));
            }
        }
        EXPECT_GE(best, 4.5) << pressed;
        EXPECT_EQ(fill, pressed ? Palette::sheetPressed : Palette::sheet);
    }
}

TEST_F(PaperWindow, setsTheLicenseOnALightSheet) {
    enter(State::LicenseOnStart);
    const QImage image = window().grab().toImage();
    const QPoint inside = placeOf(find("licenseText")).topLeft() + QPoint(6, 6);
    EXPECT_EQ(image.pixelColor(inside * image.devicePixelRatio()), Palette::sheet);
}

} // namespace QtTest
