#include "ChecksFixture.h"

#include "ContrastCheck.h"
#include "Platform/Qt/Palette.h"

#include <QPainter>

namespace GalleryTest {

class ContrastCheck : public ChecksFixture {
protected:
    void putColored(const QColor& text, const QColor& behind) {
        QLabel& label = putLabel("Installation", {10, 10, 300, 60});
        QPalette palette;
        palette.setColor(QPalette::WindowText, text);
        palette.setColor(QPalette::Window, behind);
        label.setPalette(palette);
        label.setAutoFillBackground(true);
        QFont font = label.font();
        font.setPointSize(24);
        label.setFont(font);
    }
};

TEST(Contrast, isComputedAsDefined) {
    EXPECT_NEAR(Gallery::contrast(Qt::black, Qt::white), 21.0, 1e-6);
    EXPECT_NEAR(Gallery::contrast(Qt::white, QColor(0x77, 0x77, 0x77)), 4.48, 0.005);
    EXPECT_NEAR(Gallery::contrast(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.005);
}

TEST(Contrast, ofWhatMarksAControlIsAtLeastThree) {
    namespace Palette = Vexora::Palette;
    for (const QColor& under : {Palette::paper, Palette::sheet}) {
        EXPECT_GE(Gallery::contrast(Palette::blue, under), 3.0);
        EXPECT_GE(Gallery::contrast(Palette::outline, under), 3.0);
    }
    EXPECT_GE(Gallery::contrast(Palette::blue, Palette::track), 3.0);
}

TEST_F(ContrastCheck, letsTheFaintestGreyOnWhitePass) {
    putColored(QColor(0x76, 0x76, 0x76), Qt::white);
    expectNone();
}

TEST_F(ContrastCheck, findsAFainterOne) {
    putColored(QColor(0x77, 0x77, 0x77), Qt::white);
    expectOnly("label: \"Installation\" is drawn in #777777 on #ffffff, a contrast of 4.48:1");
}

TEST_F(ContrastCheck, findsLightTextOnLightGround) {
    putColored(Qt::white, QColor(0xdd, 0xdd, 0xdd));
    expectOnly("a contrast of 1.36:1");
}

TEST_F(ContrastCheck, looksAtWhatIsReallyBehind) {
    putColored(Qt::black, Qt::white);
    // The label's palette knows nothing of what its parent paints.
    auto& label = static_cast<QLabel&>(*window.children().front());
    label.setAutoFillBackground(false);
    window.setPalette(QColor(0x30, 0x30, 0x30));
    QPalette ink = label.palette();
    ink.setColor(QPalette::WindowText, Qt::black);
    label.setPalette(ink);
    expectOnly("is drawn in #000000 on #303030");
}

TEST_F(ContrastCheck, looksAtWhatIsReallyInFront) {
    putColored(Qt::black, Qt::white);
    auto& cover = put(new QWidget, {10, 10, 300, 60}, "cover");
    cover.setAutoFillBackground(true);
    cover.setPalette(QColor(255, 255, 255, 200));
    const QString lines = faults().join('\n');
    EXPECT_TRUE(lines.contains("a contrast of 1.")) << lines.toStdString();
}

} // namespace GalleryTest
