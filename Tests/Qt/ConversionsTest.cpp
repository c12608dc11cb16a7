#include "Platform/Qt/Conversions.h"

#include "Qt/Printing.h"
#include "Support/TemporaryFolder.h"

#include <QApplication>
#include <QFontDatabase>

#include <gtest/gtest.h>

namespace QtTest {

using Vexora::Font;
using Vexora::StyledText;
using Vexora::toFormatRanges;
using Vexora::toQFont;

TEST(Text, keepsACharacterZero) {
    EXPECT_EQ(Vexora::toQString(std::string("a\0b", 3)), QString(QLatin1String("a\0b", 3)));
}

TEST(Colours, keepTheirComponents) {
    const QColor color = Vexora::toQColor({0.24, 0.44, 0.70, 0.5});
    EXPECT_EQ(color.red(), 61);
    EXPECT_EQ(color.green(), 112);
    EXPECT_EQ(color.blue(), 179);
    EXPECT_NEAR(color.alphaF(), 0.5, 0.001);
}

TEST(Typefaces, thatAreMissingBecomeTheInterfaceFontInSemibold) {
    ASSERT_FALSE(QFontDatabase::hasFamily("QuillaSans"));
    const QFont font = toQFont({"QuillaSans-SemiBold", 15.0});
    EXPECT_EQ(font.family(), QApplication::font().family());
    EXPECT_EQ(font.weight(), QFont::DemiBold);
    EXPECT_DOUBLE_EQ(font.pointSizeF(), 15.0);
}

TEST(Typefaces, thatAreMissingKeepTheUsualWeightWhenNoneIsAskedFor) {
    const QFont font = toQFont({"QuillaSans", 18.0});
    EXPECT_EQ(font.family(), QApplication::font().family());
    EXPECT_EQ(font.weight(), QApplication::font().weight());
    EXPECT_DOUBLE_EQ(font.pointSizeF(), 18.0);
}

TEST(Typefaces, thatTheSystemHasAreTaken) {
    const QStringList families = QFontDatabase::families();
    ASSERT_FALSE(families.isEmpty());
    QString other;
    for (const QString& family : families) {
        // A name with a foundry or a hyphen would not come back as it went in; an alias is no
        // typeface.
        if (QFontDatabase::hasFamily(family) && family != QApplication::font().family() &&
            !family.contains('[') && !family.contains('-')) {
            other = family;
        }
    }
    ASSERT_FALSE(other.isEmpty());
    EXPECT_EQ(toQFont({other.toStdString(), 12.0}).families(),
              QStringList(other) + QApplication::font().families());
    const QFont semibold = toQFont({other.toStdString() + "-SemiBold", 12.0});
    EXPECT_EQ(semibold.family(), other);
    EXPECT_EQ(semibold.weight(), QFont::DemiBold);
}

TEST(FontsFolder, thatIsMissingOrHoldsOtherFilesIsNoHarm) {
    const TestSupport::TemporaryFolder folder;
    folder.write("Broken.ttf", "no font");
    folder.write("README", "no font either");
    const QStringList before = QFontDatabase::families();
    Vexora::loadFonts(QString::fromStdString((folder.path() / "missing").string()));
    Vexora::loadFonts(QString::fromStdString(folder.path().string()));
    EXPECT_EQ(QFontDatabase::families(), before);
}

TEST(Formats, ofNeighbouringRunsStayApart) {
    StyledText text;
    text.append({"a", Font{"QuillaSans-SemiBold", 12.0}, {}});
    text.append({"b", Font{"QuillaSans-SemiBold", 12.0}, {}});
    const auto ranges = toFormatRanges(text);
    ASSERT_EQ(ranges.size(), 2);
    EXPECT_EQ(ranges[0].start, 0);
    EXPECT_EQ(ranges[1].start, 1);
}

} // namespace QtTest
