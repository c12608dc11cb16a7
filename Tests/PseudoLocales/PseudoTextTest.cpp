#include "PseudoText.h"

#include <QFontMetricsF>

#include <gtest/gtest.h>

namespace PseudoLocalesTest {

using PseudoLocales::accented;
using PseudoLocales::rightToLeft;
using PseudoLocales::widthOf;

TEST(PseudoText, accentsEveryLetterBetweenBrackets) {
    EXPECT_EQ(accented("Close"), "[Çļöšé]");
    EXPECT_EQ(accented("Open logs"), "[Öþéñ ļöĝš ö]");
}

TEST(PseudoText, isAtLeastTwoFifthsLonger) {
    for (const QString text : {"Start", "Open logs", "Installation failed",
                               "Ondrel Vexora Lumiq is already up to date."}) {
        const qsizetype wanted = (14 * text.size() + 9) / 10;
        EXPECT_EQ(accented(text).size(), wanted) << text.toStdString();
        EXPECT_EQ(rightToLeft(text).size(), wanted) << text.toStdString();
    }
    EXPECT_EQ(accented("click <b>Start</b>.").remove("<b>").remove("</b>").size(), 17);
}

TEST(PseudoText, padsWithWordsThatCanBeWrapped) {
    EXPECT_EQ(accented("Pre-installation steps failed."),
              "[Þŕé-îñšţåļļåţîöñ šţéþš ƒåîļéð. öñé ţŵö ţ]");
}

TEST(PseudoText, keepsTags) {
    EXPECT_EQ(accented("the <a>license agreement</a>."), "[ţĥé <a>ļîçéñšé åĝŕééṁéñţ</a>. öñé ţŵ]");
    EXPECT_EQ(rightToLeft("<b>b</b>"), "[<b>ב</b>]");
    EXPECT_EQ(accented("1 < 2"), "[1 < 2]");
}

TEST(PseudoText, keepsTheProductsName) {
    EXPECT_EQ(accented("Ondrel Vexora Lumiq"), "[Ondrel Vexora Lumiq öñé ţ]");
    EXPECT_EQ(rightToLeft("to Ondrel Vexora"), "[תו Ondrel Vexora ונע~]");
}

TEST(PseudoText, keepsConversions) {
    EXPECT_EQ(accented("%d"), "[%d]");
    EXPECT_EQ(accented("%-5.2lf of %s: 100 %%"), "[%-5.2lf öƒ %s: 100 %% öñé ţŵ]");
}

TEST(PseudoText, writesFromRightToLeft) {
    EXPECT_EQ(rightToLeft("Close"), "[צלוסע]");
}

TEST(TextWidth, isThatOfTheWidestWordAndOfTheWhole) {
    const QFontMetricsF metrics{QFont("Noto Sans", 12)};
    EXPECT_NEAR(widthOf("a longest word").word, metrics.horizontalAdvance("longest"), 1.0);
    EXPECT_NEAR(widthOf("a longest word").whole, metrics.horizontalAdvance("a longest word"), 1.0);
    EXPECT_EQ(widthOf("to <a>a</a> <b>longest</b>"), widthOf("to a longest"));
    EXPECT_LT(widthOf("many short ones"), widthOf("longest"));
    EXPECT_LT(widthOf("longest"), widthOf("a longest"));
}

} // namespace PseudoLocalesTest
