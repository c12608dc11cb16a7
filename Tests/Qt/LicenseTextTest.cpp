#include "Backend/Fixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <QWheelEvent>

namespace QtTest {

using BackendTest::FrontEnd;
using BackendTest::Key;
using BackendTest::State;

class LicenseText : public BackendTest::Fixture {
protected:
    QTextEdit& edit() const { return *find("licenseText")->findChild<QTextEdit*>(); }

    /// Lets the licence have that text.
    void supply(const std::u16string& agreement, const std::string& language) {
        resources.write("LA_" + language, {reinterpret_cast<const char*>(agreement.data()),
                                           agreement.size() * sizeof(char16_t)});
        environment.resources = resources.path().string();
        useLanguage(language);
    }

    /// Opens the licence on a file with that text.
    void open(const std::u16string& agreement, const std::string& language) {
        supply(agreement, language);
        enter(State::LicenseOnStart);
    }

    /// Opens the licence on ten thousand lines, without letting pending work be done.
    void openLong() {
        std::u16string agreement = u"\ufeffFirst line";
        for (int line = 0; line < 10000; ++line) {
            agreement += u"\nOne of very many lines";
        }
        supply(agreement, "en");
        openWindow();
        content->switchToLicenseView();
    }

    TestSupport::TemporaryFolder resources;
};

TEST(TextArea, takesRichTextOnlyWhenToldSo) {
    Vexora::QtTextView area({300.0, 100.0});
    for (const bool rich : {false, true}) {
        area.setRichText(rich);
        EXPECT_EQ(area.edit()->acceptRichText(), rich);
    }
}

TEST(PrevailingDirection, isThatOfMostLetters) {
    EXPECT_EQ(Vexora::prevailingDirection("Ondrel Vexora ترخيص"), Qt::LeftToRight);
    EXPECT_EQ(Vexora::prevailingDirection("Ondrel تثبيت البرنامج"), Qt::RightToLeft);
    EXPECT_EQ(Vexora::prevailingDirection("1. (2)"), Qt::LeftToRight);
}

TEST_F(LicenseText, cannotBeCutOrReplaced) {
    enter(State::LicenseOnStart);
    const std::string before = text("licenseText");
    EXPECT_TRUE(edit().isReadOnly());
    QGuiApplication::clipboard()->setText("pasted");
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_X, Qt::Key_V}) {
        QTest::keyClick(frontEnd.window().windowHandle(), key, Qt::ControlModifier);
    }
    press(Key::Backspace);
    EXPECT_EQ(text("licenseText"), before);
}

TEST_F(LicenseText, keepsTheDistanceOfTheAreasOwnFontBetweenItsLines) {
    enter(State::LicenseOnStart);
    const qreal needed = QFontMetricsF(edit().font()).height();
    for (QTextBlock block = edit().document()->begin(); block.isValid(); block = block.next()) {
        const QTextBlockFormat format = block.blockFormat();
        EXPECT_EQ(format.lineHeightType(), QTextBlockFormat::MinimumHeight);
        EXPECT_EQ(format.lineHeight(), needed);
    }
}

TEST_F(LicenseText, scrollsByKeysAndWheel) {
    enter(State::LicenseOnStart);
    // The lines below the visible ones are set when there is time; asking for the size sets them now.
    EXPECT_GT(edit().document()->size().height(), edit().height());
    const QScrollBar& bar = *edit().verticalScrollBar();
    const QPointF middle = edit().viewport()->rect().center();
    QWheelEvent wheel(middle, edit().viewport()->mapToGlobal(middle), {}, QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(edit().viewport(), &wheel);
    const int afterWheel = bar.value();
    EXPECT_GT(afterWheel, 0);
    press(Key::Down);
    EXPECT_GT(bar.value(), afterWheel);
    press(Key::End);
    EXPECT_EQ(bar.value(), bar.maximum());
    press(Key::Up);
    EXPECT_LT(bar.value(), bar.maximum());
    press(Key::Home);
    EXPECT_EQ(bar.value(), 0);
    EXPECT_EQ(edit().horizontalScrollBar()->maximum(), 0);
}

TEST_F(LicenseText, setsNoLinesFarBelowTheVisibleOnesWhenItOpens) {
    openLong();
    const auto lines = [this](const QTextBlock& block) { return block.layout()->lineCount(); };
    EXPECT_EQ(edit().document()->blockCount(), 10001);
    EXPECT_EQ(lines(edit().document()->lastBlock()), 0);
    edit().grab();
    EXPECT_EQ(lines(edit().document()->firstBlock()), 1);
    EXPECT_EQ(lines(edit().document()->findBlockByNumber(1000)), 0);
}

TEST_F(LicenseText, scrollsToItsEndBeforeAllLinesAreSet) {
    openLong();
    press(Key::End);
    const QScrollBar& bar = *edit().verticalScrollBar();
    EXPECT_EQ(bar.value(), bar.maximum());
    const QPoint bottom = edit().viewport()->rect().bottomLeft() - QPoint(0, 20);
    EXPECT_EQ(edit().cursorForPosition(bottom).blockNumber(), 10000);
}

TEST_F(LicenseText, leavesNothingToSeeInAFailure) {
    enter(State::LicenseOnInstall);
    find("licenseText")->setMinimumHeight(700);
    FrontEnd::settle();
    EXPECT_GT(frontEnd.window().minimumHeight(), 700);
    endInstall(30);
    EXPECT_LT(frontEnd.window().minimumHeight(), 700);
    const QImage shown = frontEnd.window().grab().toImage();
    content->licenseView()->view()->removeFromSuperview();
    FrontEnd::settle();
    EXPECT_EQ(frontEnd.window().grab().toImage(), shown);
}

TEST_F(LicenseText, keepsItsDirectionInAParagraphThatBeginsWithAForeignName) {
    open(u"\ufeffالترخيص والشروط\nOndrel تثبيت البرنامج", "ar");
    EXPECT_EQ(edit().document()->blockCount(), 2);
    EXPECT_EQ(edit().document()->firstBlock().textDirection(), Qt::RightToLeft);
    EXPECT_EQ(edit().document()->lastBlock().textDirection(), Qt::RightToLeft);
}

TEST_F(LicenseText, ofAnotherDirectionThanTheLayoutKeepsItsOwn) {
    open(u"\ufeffLicence", "ar");
    EXPECT_EQ(edit().document()->firstBlock().textDirection(), Qt::LeftToRight);
}

} // namespace QtTest
