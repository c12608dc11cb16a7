#include "ChecksFixture.h"

#include "Platform/Qt/TextLabel.h"
#include "Words.h"

#include <QTextEdit>

namespace GalleryTest {

class GlyphCheck : public ChecksFixture {};

TEST_F(GlyphCheck, letsEveryScriptOfTheLanguagesPass) {
    putLabel("Aä Αά АӘ אב ابتہ अआ কখ தமிழ் తెలుగు ไทย ქართული 汉字 かな カナ 한글", {0, 0, 400, 300});
    static_cast<QLabel*>(window.children().front())->setWordWrap(true);
    const QString lines = faults().join('\n');
    EXPECT_FALSE(lines.contains("no installed font has U+")) << lines.toStdString();
}

TEST_F(GlyphCheck, findsACharacterThatNoFontHas) {
    const char32_t privateUse = 0x10FFFD;
    putLabel("Text " + QString::fromUcs4(&privateUse, 1), {10, 10, 200, 40});
    expectOnly("label: no installed font has U+10FFFD");
}

TEST_F(GlyphCheck, findsItBelowTheVisiblePartOfATextArea) {
    const char32_t privateUse = 0x10FFFD;
    auto* area = new QTextEdit;
    area->setPlainText(QString("Text\n").repeated(100) + QString::fromUcs4(&privateUse, 1));
    put(area, {10, 10, 200, 100}, "area");
    expectOnly("area: no installed font has U+10FFFD");
}

TEST_F(GlyphCheck, findsItInAStyledLabel) {
    auto* label = new Vexora::TextLabel;
    const char32_t privateUse = 0x10FFFD;
    label->setStyledText(
        Vexora::StyledText("Text " + QString::fromUcs4(&privateUse, 1).toStdString()));
    put(label, {10, 10, 200, 60}, "styled");
    expectOnly("styled: no installed font has U+10FFFD");
}

TEST_F(GlyphCheck, findsItOnAButton) {
    const char32_t privateUse = 0x10FFFD;
    put(new QPushButton("Text " + QString::fromUcs4(&privateUse, 1)), {10, 10, 200, 40}, "button");
    expectOnly("button: no installed font has U+10FFFD");
}

TEST_F(GlyphCheck, findsItInTheTitle) {
    const char32_t privateUse = 0x10FFFD;
    window.setWindowTitle("Text " + QString::fromUcs4(&privateUse, 1));
    expectOnly("window: no installed font has U+10FFFD");
}

TEST_F(GlyphCheck, findsAWordOfTwoFonts) {
    QLabel& label = putLabel("a\u0253a", {10, 10, 200, 60});
    label.setFont(QFont("Noto Sans CJK JP", 12));
    expectOnly(
        "no installed font has the whole of a word: \"a\u0253a\" (Noto Sans and Noto Sans CJK JP)");
}

TEST(Words, endWhereTheScriptDoes) {
    EXPECT_EQ(Gallery::endOfWord("one two", 0), 3);
    EXPECT_EQ(Gallery::endOfWord("one two", 3), 4);
    EXPECT_EQ(Gallery::endOfWord("e\u0301te\u0301", 0), 5);
    EXPECT_EQ(Gallery::endOfWord("می\u200cخواهم", 0), 8);
    EXPECT_EQ(Gallery::endOfWord("Lumiqを", 0), 5);
    EXPECT_EQ(Gallery::endOfWord("a1", 0), 1);
}

TEST(Words, nameACharacter) {
    EXPECT_EQ(Gallery::characterName(0x0E40).toStdString(), "U+0E40");
    EXPECT_EQ(Gallery::characterName(0x1F600).toStdString(), "U+1F600");
}

} // namespace GalleryTest
