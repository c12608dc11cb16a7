#include "ChecksFixture.h"

#include "PaintedText.h"
#include "Platform/Qt/TextLabel.h"

#include <QPainter>
#include <QTextBlock>
#include <QTextEdit>

namespace GalleryTest {
namespace {

/// Paints its text in two lines, with a distance between their baselines.
class TwoLines : public QWidget {
public:
    explicit TwoLines(int distance) : distance_(distance) {}

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.drawText(10, 30, "first");
        painter.drawText(10, 30 + distance_, "second");
    }

private:
    int distance_;
};

/// A label that puts an ellipsis where its text does not fit.
class ElidingLabel : public QLabel {
public:
    using QLabel::QLabel;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.drawText(rect(), fontMetrics().elidedText(text(), Qt::ElideRight, width()));
    }
};

} // namespace

class TextChecks : public ChecksFixture {
protected:
    QTextEdit& putTextArea(const QString& text) {
        auto* area = new QTextEdit;
        area->setPlainText(text);
        return put(area, {10, 10, 300, 200}, "area");
    }
};

TEST_F(TextChecks, letWholeTextsPass) {
    putLabel("A text with room around it", {10, 10, 300, 30});
    put(new QPushButton("Fish && Chips"), {10, 50, 200, 40}, "button");
    putTextArea("A paragraph that is long enough to be wrapped in the middle.\n\nAnother one.")
        .move(10, 95);
    expectNone();
}

TEST_F(TextChecks, findALabelThatIsTooNarrow) {
    putLabel("A text that does not fit", {10, 10, 60, 30});
    const QStringList lines = faults();
    ASSERT_EQ(lines.size(), 2) << lines.join('\n').toStdString();
    EXPECT_TRUE(lines.at(0).startsWith("label: \"A text that does not fit\" at "));
    EXPECT_TRUE(lines.at(0).contains("leaves the room at 0, 0, 60 x 30"));
    EXPECT_TRUE(lines.at(1).contains("is cut off at 0, 0, 60 x 30"));
}

TEST_F(TextChecks, findALabelThatIsTooLow) {
    putLabel("One\nTwo\nThree", {10, 10, 100, 30});
    EXPECT_TRUE(faults().join('\n').contains("leaves the room at 0, 0, 100 x 30"));
}

TEST_F(TextChecks, findAButtonThatIsTooNarrow) {
    const QPushButton measure("Continue");
    const int width = measure.fontMetrics().horizontalAdvance(measure.text());
    put(new QPushButton("Continue"), {10, 10, width + 10, 40}, "button");
    expectOnly("button: \"Continue\" at");
}

TEST_F(TextChecks, findInkThatAMaskCutsOff) {
    putLabel("A text", {10, 10, 100, 30}).setMask(QRegion(0, 0, 20, 30));
    const QStringList lines = faults();
    EXPECT_TRUE(lines.join('\n').contains("is cut off at 0, 0, 20 x 30"))
        << lines.join('\n').toStdString();
}

TEST_F(TextChecks, findAnEllipsis) {
    put(new ElidingLabel("A text that does not fit"), {10, 10, 60, 30}, "label");
    expectOnly("label: holds \"A text that does not fit\", but paints \"A");
}

TEST_F(TextChecks, findATag) {
    putLabel("Click <b>Start</b>", {10, 10, 200, 30});
    expectOnly("label: shows the tag <b>");
}

TEST_F(TextChecks, findEveryTagAndNamedCharacter) {
    putLabel("Click <b class=\"x\">Start</b> &amp; <a", {10, 10, 300, 30});
    expectOnly("label: shows the tag <b class=\"x\">, </b>, &amp;, <a");
}

TEST_F(TextChecks, letLessThanAndAmpersandPass) {
    putLabel("1 < 2 <3 & more;", {10, 10, 300, 30});
    expectNone();
}

TEST_F(TextChecks, findATagFromRightToLeft) {
    window.setLayoutDirection(Qt::RightToLeft);
    window.setWindowTitle("כותרת");
    putLabel("לחץ על <b>התחל</b>", {10, 10, 300, 30});
    expectOnly("label: shows the tag <b>, </b>");
}

TEST_F(TextChecks, measureAButtonFromRightToLeftInItsOrder) {
    window.setLayoutDirection(Qt::RightToLeft);
    auto& button = put(new QPushButton("אבג Lumiq"), {10, 10, 200, 40}, "button");
    faults();
    qreal latin = 0.0;
    qreal hebrew = 0.0;
    for (const Gallery::PaintedPiece& piece : Gallery::textPaintedBy(button).pieces) {
        (piece.text.contains("Lumiq") ? latin : hebrew) = piece.rect.center().x();
    }
    EXPECT_GT(latin, 0.0);
    EXPECT_LT(latin, hebrew);
}

TEST_F(TextChecks, findAWordThatIsWiderThanItsLine) {
    auto* label = new Vexora::TextLabel;
    label->setStyledText(Vexora::StyledText("An " + std::string(80, 'n')));
    put(label, {10, 10, 300, 120}, "label");
    expectOnly("label: has a word ");
}

TEST_F(TextChecks, letAWordPassThatJustFits) {
    const std::string word(20, 'n');
    auto* label = new Vexora::TextLabel;
    label->setStyledText(Vexora::StyledText("An " + word));
    const int width = label->fontMetrics().horizontalAdvance(QString::fromStdString(word));
    put(label, {10, 10, width + 10, 120}, "label");
    expectNone();
    label->resize(width + 3, 120);
    EXPECT_TRUE(faults().join('\n').contains("label: has a word "));
}

TEST_F(TextChecks, findABlankLabel) {
    putLabel("\u00A0\u200B", {10, 10, 300, 30});
    expectOnly("label: shows nothing of its text");
}

TEST_F(TextChecks, findABlankButton) {
    put(new QPushButton(" "), {10, 10, 200, 40}, "button");
    expectOnly("button: shows nothing of its text");
}

TEST_F(TextChecks, findABlankTitle) {
    window.setWindowTitle("\u00A0");
    expectOnly("window: has a title of which nothing can be seen");
}

TEST_F(TextChecks, findALetterFromRightToLeftAmongOthers) {
    putLabel("Start א", {10, 10, 300, 30});
    expectOnly("label: holds, in a layout from left to right, U+05D0");
}

TEST_F(TextChecks, findATextWithoutLettersFromRightToLeft) {
    window.setLayoutDirection(Qt::RightToLeft);
    window.setWindowTitle("כותרת");
    putLabel("Start", {10, 10, 300, 30});
    putLabel("1.", {10, 50, 300, 30});
    expectOnly("label: has no letter from right to left in such a layout: \"Start\"");
}

TEST_F(TextChecks, findATagInTheTitle) {
    window.setWindowTitle("<a>Setup</a>");
    expectOnly("window: shows the tag <a>");
}

TEST_F(TextChecks, findLinesThatAreTooClose) {
    const int height = QFontMetrics(window.font()).height();
    TwoLines& lines = put(new TwoLines(height), {10, 10, 100, 80}, "lines");
    expectNone();
    delete &lines;
    put(new TwoLines(height / 2), {10, 10, 100, 80}, "lines").show();
    EXPECT_TRUE(faults().join('\n').contains("lines: sets its lines"));
}

TEST_F(TextChecks, findATextAreaThatScrollsSideways) {
    putTextArea(QString(200, 'W')).setLineWrapMode(QTextEdit::NoWrap);
    EXPECT_TRUE(faults().join('\n').contains("area: scrolls sideways"));
}

TEST_F(TextChecks, findAParagraphInTheWrongDirection) {
    putTextArea("ترخيص لاستخدام البرنامج\nOndrel ترخيص لاستخدام البرنامج");
    expectOnly("area: sets a paragraph in the wrong direction: \"Ondrel");
}

TEST_F(TextChecks, findAParagraphOnTheWrongSide) {
    putTextArea("A paragraph").setAlignment(Qt::AlignRight);
    expectOnly("area: begins line 1 of a paragraph on the wrong side");
}

TEST_F(TextChecks, leaveQuotationsInAnotherDirectionAlone) {
    putTextArea("A paragraph\nترخيص\nAnother paragraph");
    const QString lines = faults().join('\n');
    EXPECT_FALSE(lines.contains("paragraph")) << lines.toStdString();
}

} // namespace GalleryTest
