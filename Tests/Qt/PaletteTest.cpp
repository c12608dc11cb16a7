#include "Platform/Qt/Palette.h"

#include "Backend/Fixture.h"
#include "Platform/Qt/PaperStyle.h"
#include "Platform/Qt/TextLabel.h"
#include "Qt/Printing.h"

#include <QApplication>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>
#include <QSet>
#include <QSlider>
#include <QStyleOption>

#include <initializer_list>

namespace QtTest {

using BackendTest::State;

namespace {

namespace Palette = Vexora::Palette;

} // namespace

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

TEST(PaperScrollBar, isAllKnobAndPagesWithoutArrows) {
    const Vexora::PaperStyle style;
    QScrollBar bar(Qt::Vertical);
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.rect = QRect(3, 5, 12, 200);
    option.orientation = Qt::Vertical;
    option.maximum = 300;
    option.pageStep = 100;
    option.sliderPosition = 150;
    const auto place = [&](QStyle::SubControl part) {
        return style.subControlRect(QStyle::CC_ScrollBar, &option, part, &bar);
    };
    EXPECT_EQ(place(QStyle::SC_ScrollBarGroove), option.rect);
    EXPECT_EQ(place(QStyle::SC_ScrollBarSubPage), QRect(3, 5, 12, 75));
    EXPECT_EQ(place(QStyle::SC_ScrollBarSlider), QRect(3, 80, 12, 50));
    EXPECT_EQ(place(QStyle::SC_ScrollBarAddPage), QRect(3, 130, 12, 75));
    EXPECT_TRUE(place(QStyle::SC_ScrollBarAddLine).isNull());
}

TEST(PaperControls, drawTheirOwnRingAndKeepTheirTextInsideIt) {
    const Vexora::PaperStyle style;
    QStyleOptionFocusRect option;
    option.rect = QRect(0, 0, 40, 20);
    QImage image(option.rect.size(), QImage::Format_RGB32);
    image.fill(Palette::paper);
    const QImage before = image;
    QPainter painter(&image);
    style.drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, nullptr);
    painter.end();
    EXPECT_EQ(image, before);
    const QRect text = style.subElementRect(QStyle::SE_PushButtonContents, &option, nullptr);
    EXPECT_EQ(text, QRect(8, 4, 24, 12));
}

TEST(PaperControls, thatTheWindowDoesNotHaveAreTheToolkitsOwn) {
    Vexora::PaperStyle style;
    QScrollBar lying(Qt::Horizontal);
    QSlider slider;
    QLineEdit line;
    for (QWidget* widget : std::initializer_list<QWidget*>{&lying, &slider, &line}) {
        widget->setStyle(&style);
        widget->resize(widget->sizeHint());
        const QImage image = widget->grab().toImage();
        QSet<QRgb> colors;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                colors.insert(image.pixel(x, y));
            }
        }
        EXPECT_GT(colors.size(), 1) << widget->metaObject()->className();
    }
}

TEST(PaperPalette, isBlackOnWhiteForContrast) {
    const QPalette paper = Vexora::PaperStyle::paperPalette(true);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        EXPECT_EQ(paper.color(role), Qt::black) << role;
    }
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::Button}) {
        EXPECT_EQ(paper.color(role), Qt::white) << role;
    }
    EXPECT_EQ(paper.color(QPalette::Link), Palette::blue);
}

class PaperWindow : public BackendTest::Fixture {
protected:
    QImage picture() const { return frontEnd.window().grab().toImage(); }
};

TEST_F(PaperWindow, isPaintedOnPaper) {
    openWindow();
    const QImage image = picture();
    EXPECT_EQ(image.pixelColor(3, 3), Palette::paper);
    EXPECT_EQ(image.pixelColor(image.width() - 4, image.height() - 4), Palette::paper);
}

TEST_F(PaperWindow, isUsedByTheWholeApplication) {
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), Palette::paper);
    EXPECT_EQ(QApplication::palette("QTextEdit").color(QPalette::Base), Palette::sheet);
    EXPECT_NE(qobject_cast<Vexora::PaperStyle*>(QApplication::style()), nullptr);
}

TEST_F(PaperWindow, showsTheHelpButtonPressed) {
    enter(State::Failure);
    auto* button = qobject_cast<QPushButton*>(find("troubleshootButton"));
    for (const bool pressed : {false, true}) {
        button->setDown(pressed);
        const QImage image = button->grab().toImage();
        const QColor fill = image.pixelColor(image.width() / 5, image.height() / 2);
        EXPECT_EQ(fill, pressed ? Palette::sheetPressed : Palette::sheet);
    }
}

TEST_F(PaperWindow, standsOutWhereTheDesktopAsksForContrast) {
    enter(State::Failure);
    auto* style = qobject_cast<Vexora::PaperStyle*>(QApplication::style());
    const auto has = [](QWidget* widget, const QColor& color) {
        const QImage image = widget->grab().toImage();
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) == color) {
                    return true;
                }
            }
        }
        return false;
    };
    const auto* link = qobject_cast<Vexora::TextLabel*>(find("logLabel"));
    for (const bool contrast : {true, false}) {
        style->heed({true, contrast});
        BackendTest::FrontEnd::settle();
        EXPECT_EQ(picture().pixelColor(3, 3), contrast ? Qt::white : Palette::paper);
        for (const char* name : {"failLabel", "closeButton", "troubleshootButton"}) {
            EXPECT_EQ(has(find(name), Qt::black), contrast) << name;
        }
        const QTextCharFormat words = link->formats().last().format;
        EXPECT_EQ(words.foreground().color(), Palette::blue);
        EXPECT_EQ(words.fontUnderline(), contrast);
    }
}

TEST_F(PaperWindow, setsTheLicenseOnALightSheet) {
    enter(State::LicenseOnStart);
    const QImage image = picture();
    const QPoint inside(qRound(place("licenseText").left) + 6,
                        qRound(place("licenseText").top) + 6);
    EXPECT_EQ(image.pixelColor(inside * image.devicePixelRatio()), Palette::sheet);
}

} // namespace QtTest
