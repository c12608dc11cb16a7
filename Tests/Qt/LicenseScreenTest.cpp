#include "Qt/QtFixture.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QScrollBar>
#include <QStringDecoder>
#include <QTest>
#include <QTextBlock>
#include <QTextDocument>
#include <QWheelEvent>

namespace QtTest {

class LicenseScreen : public EveryLanguage {
protected:
    QTextEdit& text() {
        auto* frame = find("licenseText");
        auto* edit = frame == nullptr ? nullptr : frame->findChild<QTextEdit*>();
        if (edit == nullptr) {
            throw std::out_of_range("no licence text");
        }
        return *edit;
    }

    QStringList visibleNames() {
        QStringList names;
        const auto controls = visibleControls();
        for (const QWidget* control : controls) {
            names.append(nameOf(control));
        }
        names.sort();
        return names;
    }

    /// The agreement as the staged file holds it.
    QString agreement() const {
        QFile file(QString::fromStdString(environment.resources + "/LA_" + GetParam()));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        QStringDecoder decoder(QStringDecoder::Utf16);
        return decoder(file.readAll());
    }
};

INSTANTIATE_TEST_SUITE_P(In, LicenseScreen, languages, languageName);

TEST_P(LicenseScreen, coversEverything) {
    enter(State::LicenseOnInstall);
    const QWidget* screen = find("backButton")->parentWidget();
    EXPECT_TRUE(screen->autoFillBackground());
    EXPECT_EQ(placeOf(screen), window().rect());
    EXPECT_EQ(visibleNames(), (QStringList{"backButton", "licenseAgreementLabel", "licenseText"}));
    window().resize(window().width() + 90, window().height() + 70);
    settle();
    EXPECT_EQ(placeOf(screen), window().rect());
}

TEST_P(LicenseScreen, uncoversTheStartScreenUnchanged) {
    openWindow();
    const QStringList before = visibleNames();
    click("licenseLabel");
    EXPECT_NE(visibleNames(), before);
    click("backButton");
    EXPECT_EQ(visibleNames(), before);
}

TEST_P(LicenseScreen, uncoversTheInstallScreenWithItsProgress) {
    enter(State::Install);
    const QStringList before = visibleNames();
    click("licenseLabel");
    const double covered = content->installView()->installProgress()->doubleValue();
    click("backButton");
    EXPECT_EQ(visibleNames(), before);
    EXPECT_GE(find<QProgressBar>("installProgress")->value(), static_cast<int>(covered));
    EXPECT_EQ(backgroundQueue.pending(), 1U);
}

TEST_P(LicenseScreen, escapeAndReturnGoBackToWhatHadTheFocus) {
    openWindow();
    for (const Qt::Key key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_Enter}) {
        click("licenseLabel");
        ASSERT_NE(find("backButton"), nullptr);
        press(key);
        EXPECT_TRUE(waitForLicenseToGo()) << key;
        EXPECT_EQ(focus(), "startButton") << key;
        EXPECT_EQ(backgroundQueue.pending(), 0U) << key;
    }
}

TEST_P(LicenseScreen, goBackReturnsTheFocusToTheNotice) {
    openWindow();
    while (focus() != "licenseLabel") {
        press(Qt::Key_Tab);
    }
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), "licenseText");
    click("backButton");
    EXPECT_EQ(focus(), "licenseLabel");
}

TEST_P(LicenseScreen, showsTheAgreementOfItsLanguage) {
    enter(State::LicenseOnStart);
    const QString expected = agreement();
    EXPECT_GT(expected.size(), 500);
    EXPECT_EQ(text().toPlainText(), expected);
}

TEST_P(LicenseScreen, textCannotBeChanged) {
    enter(State::LicenseOnStart);
    const QString before = text().toPlainText();
    EXPECT_TRUE(text().isReadOnly());
    QGuiApplication::clipboard()->setText("pasted");
    press(Qt::Key_X);
    press(Qt::Key_Backspace);
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    press(Qt::Key_Delete);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(text().toPlainText(), before);
    ASSERT_NE(find("backButton"), nullptr);
}

TEST_P(LicenseScreen, textWrapsAndScrollsVerticallyOnly) {
    enter(State::LicenseOnStart);
    for (const int wider : {0, 200, -200}) {
        window().resize(window().width() + wider, window().height());
        settle();
        EXPECT_EQ(text().horizontalScrollBar()->maximum(), 0) << wider;
        EXPECT_LE(text().document()->size().width(), text().viewport()->width()) << wider;
        EXPECT_GT(text().verticalScrollBar()->maximum(), 0) << wider;
    }
}

TEST_P(LicenseScreen, linesKeepTheDistanceOfTheAreasOwnFont) {
    enter(State::LicenseOnStart);
    const qreal needed = QFontMetricsF(text().font()).height();
    for (QTextBlock block = text().document()->begin(); block.isValid(); block = block.next()) {
        const QTextBlockFormat format = block.blockFormat();
        EXPECT_EQ(format.lineHeightType(), QTextBlockFormat::MinimumHeight);
        EXPECT_EQ(format.lineHeight(), needed);
    }
}

TEST_P(LicenseScreen, keysAndWheelScroll) {
    enter(State::LicenseOnStart);
    EXPECT_EQ(text().verticalScrollBar()->value(), 0);
    press(Qt::Key_PageDown);
    const int afterKey = text().verticalScrollBar()->value();
    EXPECT_GT(afterKey, 0);
    const QPointF middle = text().viewport()->rect().center();
    QWheelEvent wheel(middle, text().viewport()->mapToGlobal(middle), {}, QPoint(0, -120),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(text().viewport(), &wheel);
    EXPECT_GT(text().verticalScrollBar()->value(), afterKey);
}

TEST_P(LicenseScreen, arrowsAndEndKeysScroll) {
    enter(State::LicenseOnStart);
    // The lines below the visible ones are set when there is time; asking for the size sets them now.
    EXPECT_GT(text().document()->size().height(), text().height());
    const QScrollBar& bar = *text().verticalScrollBar();
    press(Qt::Key_Down);
    EXPECT_GT(bar.value(), 0);
    press(Qt::Key_End);
    EXPECT_EQ(bar.value(), bar.maximum());
    press(Qt::Key_Up);
    EXPECT_LT(bar.value(), bar.maximum());
    press(Qt::Key_Home);
    EXPECT_EQ(bar.value(), 0);
}

TEST_P(LicenseScreen, keepsItsPlaceWhenOpenedAgain) {
    enter(State::LicenseOnStart);
    press(Qt::Key_PageDown);
    const int place = text().verticalScrollBar()->value();
    ASSERT_GT(place, 0);
    leaveLicense();
    click("licenseLabel");
    EXPECT_EQ(text().verticalScrollBar()->value(), place);
    EXPECT_EQ(focus(), "licenseText");
}

TEST_P(LicenseScreen, givesWayToAFailure) {
    enter(State::LicenseOnFailure);
    EXPECT_EQ(visibleNames(), (QStringList{"closeButton", "closeIcon", "failLabel", "logLabel",
                                           "lumiqLogo", "troubleshootButton"}));
    EXPECT_EQ(focus(), "logLabel");
    click("logLabel");
    EXPECT_EQ(calls.count("selectFile " + logFile()), 1U);
    click("troubleshootButton");
    EXPECT_EQ(calls.count("openUrl " TROUBLESHOOTING_URL), 1U);
    click("closeButton");
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_P(LicenseScreen, leavesNothingToSeeInAFailure) {
    enter(State::LicenseOnInstall);
    find("licenseText")->setMinimumHeight(700);
    settle();
    EXPECT_GT(window().minimumHeight(), 700);
    endInstall(30);
    EXPECT_LT(window().minimumHeight(), 700);
    const QImage shown = window().grab().toImage();
    content->licenseView()->view()->removeFromSuperview();
    settle();
    EXPECT_EQ(window().grab().toImage(), shown);
}

TEST_P(LicenseScreen, staysOverTheSuccessUntilItIsLeft) {
    enter(State::LicenseOnInstall);
    endInstall(0);
    EXPECT_EQ(visibleNames(), (QStringList{"backButton", "licenseAgreementLabel", "licenseText"}));
    leaveLicense();
    EXPECT_EQ(label("installLabel").text(), translation("Installation completed!"));
    EXPECT_TRUE(find("installProgress")->isVisible());
}

class LicenseFile : public QtFixture {
protected:
    LicenseFile() { environment.resources = resources.path().string(); }

    QString shownText() {
        click("licenseLabel");
        const auto* frame = find("licenseText");
        const auto* edit = frame == nullptr ? nullptr : frame->findChild<QTextEdit*>();
        return edit == nullptr ? "no licence screen" : edit->toPlainText();
    }

    TestSupport::TemporaryFolder resources;
};

TEST_F(LicenseFile, thatIsMissingShowsEmpty) {
    resources.write("de.lproj/Localizable.strings", "\"Go back\" = \"Zurück\"\n");
    useLanguage("de");
    openWindow();
    EXPECT_EQ(shownText(), "");
    EXPECT_EQ(find<QPushButton>("backButton")->text(), "Zurück");
    EXPECT_TRUE(find("licenseText")->isVisible());
    leaveLicense();
}

TEST_F(LicenseFile, thatIsNotUtf16ShowsEmpty) {
    resources.write("LA_de", "Nur gewöhnlicher Text");
    useLanguage("de");
    openWindow();
    EXPECT_EQ(shownText(), "");
}

TEST_F(LicenseFile, isShownWithoutInterpretingMarkup) {
    const std::u16string agreement = u"\ufeff<b>Text</b> & <i>more</i>";
    resources.write("LA_de", {reinterpret_cast<const char*>(agreement.data()),
                              agreement.size() * sizeof(char16_t)});
    useLanguage("de");
    openWindow();
    EXPECT_EQ(shownText(), "<b>Text</b> & <i>more</i>");
}

TEST_F(LicenseFile, keepsItsDirectionInAParagraphThatBeginsWithAForeignName) {
    const std::u16string agreement = u"\ufeffالترخيص والشروط\nOndrel تثبيت البرنامج";
    resources.write("LA_ar", {reinterpret_cast<const char*>(agreement.data()),
                              agreement.size() * sizeof(char16_t)});
    useLanguage("ar");
    openWindow();
    EXPECT_EQ(shownText().count('\n'), 1);
    const auto* document = find("licenseText")->findChild<QTextEdit*>()->document();
    EXPECT_EQ(document->firstBlock().textDirection(), Qt::RightToLeft);
    EXPECT_EQ(document->lastBlock().textDirection(), Qt::RightToLeft);
}

TEST_F(LicenseFile, ofAnotherDirectionThanTheLayoutKeepsItsOwn) {
    const std::u16string agreement = u"\ufeffLicence";
    resources.write("LA_ar", {reinterpret_cast<const char*>(agreement.data()),
                              agreement.size() * sizeof(char16_t)});
    useLanguage("ar");
    openWindow();
    EXPECT_EQ(shownText(), "Licence");
    const auto* document = find("licenseText")->findChild<QTextEdit*>()->document();
    EXPECT_EQ(document->firstBlock().textDirection(), Qt::LeftToRight);
}

TEST_F(LicenseFile, ofALocaleWithOneLetterIsLookedForWithoutHarm) {
    environment.locale = "C";
    openWindow();
    EXPECT_EQ(shownText(), "");
    leaveLicense();
    EXPECT_TRUE(find("startButton")->isVisible());
}

TEST_F(LicenseFile, ofALocaleWithoutANameIsLookedForWithoutHarm) {
    environment.locale = "";
    openWindow();
    EXPECT_EQ(shownText(), "");
}

TEST_F(LicenseFile, withLongWordsAndLinesStillWraps) {
    std::u16string agreement = u"\ufeff";
    agreement.append(5000, u'W');
    resources.write("LA_de", {reinterpret_cast<const char*>(agreement.data()),
                              agreement.size() * sizeof(char16_t)});
    useLanguage("de");
    openWindow();
    EXPECT_EQ(shownText().size(), 5000);
    const auto* edit = find("licenseText")->findChild<QTextEdit*>();
    EXPECT_EQ(edit->horizontalScrollBar()->maximum(), 0);
    EXPECT_LE(edit->document()->size().width(), edit->viewport()->width());
}

} // namespace QtTest
