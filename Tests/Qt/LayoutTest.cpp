#include "Qt/QtFixture.h"

namespace QtTest {
/// What must hold whatever the window shows.
class LayoutFixture : public QtFixture {
protected:
    void expectNothingClips() {
        const auto controls = visibleControls();
        for (QWidget* control : controls) {
            const std::string name = nameOf(control).toStdString();
            const QRect place = placeOf(control);
            EXPECT_TRUE(window().rect().contains(place))
                << name << " at " << testing::PrintToString(place);
            EXPECT_EQ(control->visibleRegion().boundingRect(), control->rect()) << name;
            if (const auto* text = qobject_cast<const Vexora::TextLabel*>(control)) {
                EXPECT_GE(text->width(), text->minimumSizeHint().width()) << name;
                EXPECT_GE(text->height(), text->heightForWidth(text->width())) << name;
            }
            if (const auto* button = qobject_cast<const QPushButton*>(control)) {
                const QFontMetrics metrics = button->fontMetrics();
                EXPECT_GE(button->width(), metrics.horizontalAdvance(button->text()) + 16) << name;
                EXPECT_GE(button->height(), metrics.height() + 8) << name;
            }
        }
    }

    void expectNothingOverlaps() {
        const auto controls = visibleControls();
        for (qsizetype first = 0; first < controls.size(); ++first) {
            for (qsizetype second = first + 1; second < controls.size(); ++second) {
                const QRect common = placeOf(controls[first]) & placeOf(controls[second]);
                EXPECT_TRUE(common.isEmpty()) << nameOf(controls[first]).toStdString() << " and "
                                              << nameOf(controls[second]).toStdString() << " share "
                                              << testing::PrintToString(common);
            }
        }
    }
};

class Layout : public LayoutFixture,
               public testing::WithParamInterface<std::tuple<State, std::string>> {
protected:
    Layout() { useLanguage(std::get<1>(GetParam())); }
};

INSTANTIATE_TEST_SUITE_P(In, Layout, statesAndLanguages, stateAndLanguageName);

TEST_P(Layout, showsEverythingWholeAndApart) {
    enter(std::get<0>(GetParam()));
    EXPECT_FALSE(visibleControls().isEmpty());
    expectNothingClips();
    expectNothingOverlaps();
}

TEST_P(Layout, keepsEverythingWholeInTheSmallestWindow) {
    enter(std::get<0>(GetParam()));
    window().resize(window().minimumSize());
    settle();
    expectNothingClips();
    expectNothingOverlaps();
}

class LayoutDirection : public EveryLanguage {};

INSTANTIATE_TEST_SUITE_P(In, LayoutDirection, languages, languageName);

TEST_P(LayoutDirection, followsTheLanguage) {
    openWindow();
    const auto direction = GetParam() == "ar" ? Qt::RightToLeft : Qt::LeftToRight;
    EXPECT_EQ(window().layoutDirection(), direction);
    EXPECT_EQ(label("startLabel").layoutDirection(), direction);
}

TEST_P(LayoutDirection, mirrorsTheButtons) {
    enter(State::Failure);
    const QRect close = placeOf(find("closeButton"));
    const QRect help = placeOf(find("troubleshootButton"));
    const int middle = window().rect().center().x();
    EXPECT_EQ(close.center().y(), help.center().y());
    if (GetParam() == "ar") {
        EXPECT_LT(close.right(), middle);
        EXPECT_GT(help.left(), middle);
    } else {
        EXPECT_GT(close.left(), middle);
        EXPECT_LT(help.right(), middle);
    }
}

TEST_P(LayoutDirection, mirrorsTheLicense) {
    enter(State::LicenseOnStart);
    const int middle = window().rect().center().x();
    const bool mirrored = GetParam() == "ar";
    EXPECT_EQ(placeOf(find("backButton")).center().x() < middle, mirrored);
    const Qt::Alignment alignment = label("licenseAgreementLabel").lineAlignment();
    EXPECT_EQ(alignment.testFlag(Qt::AlignRight), mirrored);
    EXPECT_EQ(alignment.testFlag(Qt::AlignLeft), !mirrored);
    const auto* text = find("licenseText")->findChild<QTextEdit*>();
    EXPECT_EQ(text->layoutDirection(), mirrored ? Qt::RightToLeft : Qt::LeftToRight);
}

TEST_P(LayoutDirection, fillsTheBarFromWhereReadingBegins) {
    enter(State::Install);
    auto* bar = find<QProgressBar>("installProgress");
    content->installView()->setIncrement(0.0);
    settle();
    bar->setValue(30);
    const QImage image = bar->grab().toImage();
    const int row = image.height() / 2;
    const QColor left = image.pixelColor(image.width() / 5, row);
    const QColor right = image.pixelColor(image.width() * 4 / 5, row);
    const bool mirrored = GetParam() == "ar";
    EXPECT_LT((mirrored ? right : left).lightness(), (mirrored ? left : right).lightness());
}

/// A language whose texts are three times as long as the English ones.
class LongTexts : public LayoutFixture, public testing::WithParamInterface<State> {
protected:
    LongTexts() {
        for (const char* text :
             {"Open logs", "Ondrel Vexora Lumiq Setup", "Start", "License Agreement", "Go back",
              "Installation completed!", "Close", "Installation failed",
              "Ondrel Vexora Lumiq is already up to date.",
              "Failed to extract Ondrel Vexora Lumiq."}) {
            strings_ += entry(text, tripled(text));
        }
        for (const char* text :
             {"By installing, you agree to the Ondrel Vexora <a>license agreement</a>.",
              "To install Ondrel Vexora Lumiq, click <b>Start</b>.",
              "Installing <b>Ondrel Vexora Lumiq</b>..."}) {
            strings_ += entry(text, std::string(text) + " " + text + " " + text);
        }
        resources_.write("xx.lproj/Localizable.strings", strings_);
        environment.resources = resources_.path().string();
        useLanguage("xx");
    }

    static std::string tripled(const std::string& text) { return text + " " + text + " " + text; }

private:
    static std::string entry(const std::string& key, const std::string& value) {
        return '"' + key + "\" = \"" + value + "\"\n";
    }

    TestSupport::TemporaryFolder resources_;
    std::string strings_;
};

INSTANTIATE_TEST_SUITE_P(In, LongTexts, testing::ValuesIn(everyState),
                         [](const auto& chosen) { return stateName(chosen.param); });

TEST_P(LongTexts, growTheWindowInsteadOfClipping) {
    enter(GetParam());
    expectNothingClips();
    expectNothingOverlaps();
}

} // namespace QtTest
