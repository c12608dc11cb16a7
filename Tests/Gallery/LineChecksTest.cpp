#include "ChecksFixture.h"

#include "Platform/Qt/TextLabel.h"

#include <QPainter>

namespace GalleryTest {
namespace {

/// A label that paints its text in lines of somebody else's choice.
class OtherLines : public Vexora::TextLabel {
public:
    explicit OtherLines(QStringList lines) : lines_(std::move(lines)) {}

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setPen(Qt::black);
        const int height = fontMetrics().height() + 2;
        for (int line = 0; line < lines_.size(); ++line) {
            const QRect place(padding, line * height, width() - 2 * padding, height);
            painter.drawText(place, 0, lines_.at(line));
        }
    }

private:
    QStringList lines_;
};

} // namespace

class LineChecks : public ChecksFixture {
protected:
    Vexora::TextLabel& putLines(const std::string& text, const QStringList& lines,
                                int width = 300) {
        return putLines(Vexora::StyledText(text), lines, width);
    }

    Vexora::TextLabel& putLines(const Vexora::StyledText& text, const QStringList& lines,
                                int width = 300) {
        auto* label = new OtherLines(lines);
        label->setStyledText(text);
        return put(label, {10, 10, width, 120}, "label");
    }

    static Vexora::StyledText marked(const std::string& before, const std::string& words) {
        Vexora::StyledText text(before);
        text.append({words, {}, Vexora::Color{0.0, 0.0, 0.5, 1.0}});
        return text;
    }
};

TEST_F(LineChecks, letTheLinesOfALabelPass) {
    auto* label = new Vexora::TextLabel;
    label->setStyledText(marked("Ondrel Vexora Lumiq is installed on your system. ", "Open logs"));
    put(label, {10, 10, 200, 200}, "label");
    expectNone();
}

TEST_F(LineChecks, findATornName) {
    putLines("Get Ondrel Vexora Lumiq", {"Get Ondrel", "Vexora Lumiq"});
    expectOnly("label: tears \"Ondrel Vexora Lumiq\" over two lines");
}

TEST_F(LineChecks, findATornNameOfTheMaker) {
    putLines("From Ondrel Vexora", {"From Ondrel", "Vexora"});
    expectOnly("label: tears \"Ondrel Vexora\" over two lines");
}

TEST_F(LineChecks, findTheSecondOfTwoNamesTorn) {
    putLines("Ondrel Vexora and Ondrel Vexora", {"Ondrel Vexora and Ondrel", "Vexora"});
    EXPECT_TRUE(faults().join('\n').contains("label: tears \"Ondrel Vexora\" over two lines"));
}

TEST_F(LineChecks, findTornMarkedWords) {
    putLines(marked("Failed. ", "Open logs"), {"Failed. Open", "logs"});
    expectOnly("label: tears \"Open logs\" over two lines");
}

TEST_F(LineChecks, findTornMarkedWordsFromRightToLeft) {
    window.setLayoutDirection(Qt::RightToLeft);
    window.setWindowTitle("כותרת");
    putLines(marked("נכשל ", "פתיחת יומני"), {"נכשל פתיחת", "יומני"});
    expectOnly("label: tears \"פתיחת יומני\" over two lines");
}

TEST_F(LineChecks, letANamePassThatNoLineHolds) {
    putLines("Ondrel Vexora Lumiq", {"Ondrel", "Vexora", "Lumiq"}, 80);
    expectNone();
}

TEST_F(LineChecks, findALoneCharacter) {
    putLines("安装失败了。", {"安装失败", "了。"});
    expectOnly("label: leaves \"了。\" alone on a line");
}

TEST_F(LineChecks, findAMarkThatIsLeftBehind) {
    putLines("安装。失败", {"安装", "。失败"});
    expectOnly("label: begins the line \"。失败\"");
}

TEST_F(LineChecks, findASmallKanaThatIsLeftBehind) {
    putLines("メッセージ", {"メ", "ッセージ"});
    EXPECT_TRUE(faults().join('\n').contains("label: begins the line \"ッセージ\""));
}

TEST_F(LineChecks, findAnOpeningMarkThatIsLeftBehind) {
    putLines("安装「失败」", {"安装「", "失败」"});
    expectOnly("label: ends the line \"安装「\"");
}

} // namespace GalleryTest
