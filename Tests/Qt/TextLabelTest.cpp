#include "Platform/Qt/TextLabel.h"
#include "Platform/Qt/Palette.h"
#include "Qt/Printing.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>

namespace QtTest {

using Vexora::StyledText;

class TextLabel : public testing::Test {
protected:
    void show(const std::string& text) { label.setStyledText(StyledText(text)); }

    /// What the label paints on paper, at a scale.
    QImage painted(qreal scale = 1.0) {
        QImage image(label.size() * scale, QImage::Format_RGB32);
        image.setDevicePixelRatio(scale);
        image.fill(Vexora::Palette::paper);
        label.render(&image, {}, {}, QWidget::RenderFlags());
        return image;
    }

    /// The smallest rectangle that holds everything painted.
    static QRect inked(const QImage& image) {
        QRect inked;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (image.pixelColor(x, y) != Vexora::Palette::paper) {
                    inked |= QRect(x, y, 1, 1);
                }
            }
        }
        return inked;
    }

    /// The cursor where the pointer is at a place.
    Qt::CursorShape cursorAt(const QPoint& place) {
        QMouseEvent move(QEvent::MouseMove, place, place, Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QCoreApplication::sendEvent(&label, &move);
        return label.cursor().shape();
    }

    /// Whether a run is painted with a line under it.
    bool underlines(qsizetype run) {
        painted();
        return label.formats().at(run).format.fontUnderline();
    }

    void fitTo(int width) { label.resize(width, label.heightForWidth(width)); }

    Vexora::TextLabel label;
};

TEST_F(TextLabel, paintsAnAmpersandAsAnyOtherSign) {
    const QFontMetrics metrics(label.font());
    show("&");
    const int one = label.sizeHint().width();
    show("&&");
    EXPECT_EQ(label.sizeHint().width() - one, metrics.horizontalAdvance("&"));
}

TEST_F(TextLabel, anEmptyTextKeepsTheHeightOfALine) {
    show("");
    EXPECT_EQ(label.text(), "");
    EXPECT_GE(label.heightForWidth(100), label.fontMetrics().height());
    fitTo(100);
    EXPECT_TRUE(inked(painted()).isEmpty());
}

TEST_F(TextLabel, aLineEndBeginsANewLine) {
    show("one");
    const int one = label.sizeHint().height();
    const int width = label.sizeHint().width();
    show("one\none");
    EXPECT_GE(label.sizeHint().height(), one + label.fontMetrics().height());
    EXPECT_EQ(label.sizeHint().width(), width);
}

TEST_F(TextLabel, keepsTheDistanceOfItsLinesInSmallerFonts) {
    StyledText small;
    small.append({"one\ntwo", Vexora::Font{"QuillaSans", 4.0}, {}});
    label.setStyledText(small);
    EXPECT_GE(label.heightForWidth(200), 2 * label.fontMetrics().height());
}

TEST_F(TextLabel, cutsNoMarkOffThatHangsBelowItsTypeface) {
    label.setFont(QFont("DejaVu Sans", 18));
    show("جارٍ");
    fitTo(200);
    const QRect ink = inked(painted());
    EXPECT_GT(ink.top(), 0);
    EXPECT_LT(ink.bottom(), label.height() - 1);
}

TEST_F(TextLabel, wrapsAtWords) {
    show("several words that do not fit on one line of the label");
    const int line = label.heightForWidth(2000);
    EXPECT_GE(label.heightForWidth(150), line + 2 * label.fontMetrics().height());
    fitTo(150);
    EXPECT_TRUE(label.rect().contains(inked(painted())));
}

TEST_F(TextLabel, wrapsInsideAWordThatIsTooLong) {
    show(std::string(300, 'W'));
    EXPECT_GT(label.heightForWidth(100), 10 * label.fontMetrics().height());
    fitTo(100);
    const QRect place = inked(painted());
    EXPECT_GE(place.left(), 0);
    EXPECT_LE(place.right(), 100);
}

TEST_F(TextLabel, keepsTheProductsNameOnOneLine) {
    show("To install Ondrel Vexora Lumiq");
    const int first = label.fontMetrics().horizontalAdvance("To install Ondrel");
    fitTo(label.fontMetrics().horizontalAdvance("Ondrel Vexora Lumiq") + 20);
    ASSERT_GT(label.width(), first + 20);
    QImage image = painted();
    const QRect lines = inked(image);
    EXPECT_LT(inked(image.copy(0, 0, image.width(), lines.center().y() - 2)).width(), first - 10);
    EXPECT_EQ(label.text(), "To install Ondrel Vexora Lumiq");
}

TEST_F(TextLabel, laysOutTenThousandCharacters) {
    std::string text;
    while (text.size() < 10000) {
        text += "many words ";
    }
    text.resize(10000);
    show(text);
    EXPECT_EQ(label.text().size(), 10000);
    const int height = label.heightForWidth(400);
    EXPECT_GT(height, 50 * label.fontMetrics().height());
    fitTo(400);
    const QRect place = inked(painted());
    EXPECT_GT(place.height(), height * 9 / 10);
    EXPECT_TRUE(label.rect().contains(place));
}

TEST_F(TextLabel, isHighEnoughForItsTallestRun) {
    StyledText text("small ");
    text.append({"large", Vexora::Font{"QuillaSans-SemiBold", 40.0}, {}});
    label.setStyledText(text);
    EXPECT_GT(label.heightForWidth(1000), label.fontMetrics().height() * 2);
}

TEST_F(TextLabel, paintsRunsInTheirColours) {
    StyledText text("plain ");
    text.append({"red", {}, Vexora::Color{1.0, 0.0, 0.0, 1.0}});
    label.setStyledText(text);
    fitTo(300);
    const QImage image = painted();
    bool red = false;
    bool ink = false;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            red = red || (color.red() > 200 && color.green() < 120);
            ink = ink || (color.red() < 80 && color.green() < 80);
        }
    }
    EXPECT_TRUE(red);
    EXPECT_TRUE(ink);
}

TEST_F(TextLabel, paintsARunInItsColourBehindLinesThatEndInAWord) {
    StyledText text("失败失败");
    text.append({"失败", {}, Vexora::Color{1.0, 0.0, 0.0, 1.0}});
    label.setStyledText(text);
    const int word = label.sizeHint().width() / 3;
    fitTo(word + 10);
    ASSERT_GT(label.height(), 3 * label.fontMetrics().height());
    const QImage image = painted();
    QRect red;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            red |= color.red() > 200 && color.green() < 120 ? QRect(x, y, 1, 1) : QRect();
        }
    }
    EXPECT_GT(red.width(), word / 2);
    EXPECT_GT(red.top(), inked(image).height() / 2);
}

TEST_F(TextLabel, paintsARunInItsColourThroughLinesThatEndInAWord) {
    StyledText text;
    text.append({"失败失败失败", {}, Vexora::Color{1.0, 0.0, 0.0, 1.0}});
    label.setStyledText(text);
    fitTo(label.sizeHint().width() / 3 + 10);
    ASSERT_GT(label.height(), 3 * label.fontMetrics().height());
    const QImage image = painted();
    int least = 255;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            least = std::min(least, image.pixelColor(x, y).red());
        }
    }
    EXPECT_GT(least, 200);
}

TEST_F(TextLabel, isAsLargeAsItsLatestTextAndFont) {
    show("word");
    fitTo(400);
    QFont font = label.font();
    font.setPointSize(3 * font.pointSize());
    label.setFont(font);
    EXPECT_GT(label.heightForWidth(400), label.fontMetrics().height());
    EXPECT_GT(label.sizeHint().height(), label.fontMetrics().height());
    show("");
    EXPECT_LT(label.sizeHint().width(), label.fontMetrics().horizontalAdvance("word"));
}

TEST_F(TextLabel, centresWhenTheTextSaysSo) {
    label.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    StyledText text("word");
    text.setAlignment(Vexora::TextAlignment::Center);
    label.setStyledText(text);
    fitTo(400);
    EXPECT_NEAR(inked(painted()).center().x(), 200, 4);
    EXPECT_EQ(label.lineAlignment(), Qt::AlignHCenter);
}

TEST_F(TextLabel, standsAtTheHeightThatItsAlignmentSays) {
    show("word");
    label.resize(100, 400);
    const std::pair<Qt::Alignment, int> middles[] = {
        {Qt::AlignTop, 0}, {Qt::AlignVCenter, 200}, {Qt::AlignBottom, 400}};
    for (const auto& [alignment, middle] : middles) {
        label.setAlignment(Qt::AlignLeft | alignment);
        EXPECT_NEAR(inked(painted()).center().y(), middle, 2 * label.fontMetrics().height())
            << middle;
    }
}

TEST_F(TextLabel, beginsAtTheLeadingEdgeOtherwise) {
    show("word");
    fitTo(400);
    EXPECT_LT(inked(painted()).right(), 200);
    label.setLayoutDirection(Qt::RightToLeft);
    EXPECT_GT(inked(painted()).left(), 200);
}

TEST_F(TextLabel, ordersMixedTextByTheLayoutDirection) {
    StyledText text("بدء ");
    text.append({"Start", {}, Vexora::Color{1.0, 0.0, 0.0, 1.0}});
    label.setStyledText(text);
    label.setLayoutDirection(Qt::RightToLeft);
    fitTo(300);
    const QImage image = painted();
    int reddest = -1;
    for (int x = 0; x < image.width() && reddest < 0; ++x) {
        for (int y = 0; y < image.height(); ++y) {
            const QColor color = image.pixelColor(x, y);
            if (color.red() > 200 && color.green() < 120) {
                reddest = x;
            }
        }
    }
    EXPECT_NEAR(reddest, inked(image).left(), 3);
}

TEST_F(TextLabel, isSharpAtTwiceTheScale) {
    show("Sharp text");
    fitTo(200);
    const QImage once = painted(1.0);
    const QImage twice = painted(2.0);
    EXPECT_FALSE(inked(once).isEmpty());
    EXPECT_FALSE(inked(twice).isEmpty());
    EXPECT_NEAR(inked(twice).width(), inked(once).width() * 2, 6);
    const QImage enlarged =
        once.scaled(twice.size(), Qt::IgnoreAspectRatio, Qt::FastTransformation);
    EXPECT_NE(twice.convertToFormat(QImage::Format_RGB32),
              enlarged.convertToFormat(QImage::Format_RGB32));
}

TEST_F(TextLabel, namesItsBuddy) {
    QWidget field;
    label.setBuddy(&field);
    show("Name & more");
    EXPECT_EQ(field.accessibleName(), "Name & more");
    show("Other");
    EXPECT_EQ(field.accessibleName(), "Other");
}

TEST_F(TextLabel, aHandlerThatReplacesTheTextIsCalledOnce) {
    int clicks = 0;
    label.setClickHandler([&] {
        ++clicks;
        show("after");
    });
    label.click();
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(label.text(), "after");
}

TEST_F(TextLabel, takesTheFocusOnlyWithAHandlerAndNeverByTheMouse) {
    EXPECT_EQ(label.focusPolicy(), Qt::NoFocus);
    label.click();
    label.setClickHandler([] {});
    EXPECT_EQ(label.focusPolicy(), Qt::TabFocus);
}

class Link : public TextLabel {
protected:
    Link() {
        StyledText text("before ");
        text.append({"a link", {}, Vexora::Color{0.0, 0.0, 1.0, 1.0}});
        text.append({" after", Vexora::Font{"QuillaSans", 12.0}, {}});
        text.setAlignment(Vexora::TextAlignment::Center);
        label.setStyledText(text);
        label.resize(400, label.heightForWidth(400) + 40);
        words = inked(painted());
    }

    QRect words;
};

TEST_F(Link, showsOverItsWordsAlone) {
    EXPECT_EQ(cursorAt(words.center()), Qt::ArrowCursor);
    label.setClickHandler([] {});
    EXPECT_EQ(cursorAt(words.center()), Qt::PointingHandCursor);
    EXPECT_EQ(cursorAt({2, words.center().y()}), Qt::ArrowCursor);
    EXPECT_EQ(cursorAt({words.left() + 2, words.center().y()}), Qt::PointingHandCursor);
    EXPECT_EQ(cursorAt({words.center().x(), label.height() - 2}), Qt::ArrowCursor);
}

TEST_F(Link, isUnderlinedUnderThePointer) {
    label.setClickHandler([] {});
    EXPECT_FALSE(underlines(0));
    const QImage plain = painted();
    cursorAt(words.center());
    EXPECT_TRUE(underlines(0));
    EXPECT_FALSE(underlines(1));
    EXPECT_NE(painted(), plain);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&label, &leave);
    EXPECT_EQ(painted(), plain);
    EXPECT_EQ(label.cursor().shape(), Qt::ArrowCursor);
}

TEST_F(Link, isUnderlinedWhileItHasTheKeyboard) {
    label.setClickHandler([] {});
    label.show();
    label.activateWindow();
    label.setFocus();
    ASSERT_TRUE(QTest::qWaitFor([this] { return label.hasFocus(); }, 30000));
    EXPECT_FALSE(underlines(0));
    label.setAttribute(Qt::WA_KeyboardFocusChange);
    EXPECT_TRUE(underlines(0));
}

} // namespace QtTest
