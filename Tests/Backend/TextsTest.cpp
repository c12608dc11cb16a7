#include "Backend/Fixture.h"
#include "Platform/Palette.h"

namespace BackendTest {

using Vexora::Font;
using Vexora::StyledText;

/// How the texts of the seam come out as those of the toolkit.
class Texts : public Fixture {
protected:
    Texts() { openWindow(); }

    std::string shown(const std::string& given) {
        content->startView()->startLabel()->setStringValue(given);
        return text("startLabel");
    }

    Pieces shown(const StyledText& given) {
        content->startView()->startLabel()->setAttributedStringValue(given);
        return runs("startLabel");
    }

    static constexpr Vexora::Color red{1.0, 0.0, 0.0, 1.0};
    static constexpr Vexora::Color blue{0.24, 0.44, 0.70, 1.0};
};

TEST_F(Texts, keepEveryCharacter) {
    for (const std::string& given :
         {std::string(), std::string("Größe ホーム بدء"), std::string("😀 𝄞"),
          std::string("Fish & <b>Chips</b> &amp; 100%"), std::string("\xEF\xBF\xBD"),
          std::string(10000, 'x')}) {
        EXPECT_EQ(shown(given), given);
    }
}

TEST_F(Texts, replaceWhatIsNoUtf8) {
    EXPECT_EQ(shown("a\xff\xc3(b"), "a\uFFFD\uFFFD(b");
    EXPECT_EQ(shown("cut \xe3\x83").substr(0, 7), "cut \uFFFD");
    EXPECT_EQ(shown("\x80Größe😀\xfe"), "\uFFFDGröße😀\uFFFD");
}

TEST_F(Texts, withoutAttributesTakeThoseOfTheirControl) {
    EXPECT_EQ(shown(StyledText("plain")), (Pieces{{"plain", 18.0, false, Vexora::inkColor}}));
    EXPECT_EQ(shown(StyledText()), Pieces{});
}

TEST_F(Texts, keepTheirRunsApart) {
    StyledText text("Größe 😀 ");
    text.append({"ホーム", Font{"QuillaSans-SemiBold", 12.0}, {}});
    text.append({" 𝄞 ", {}, {}});
    text.append({"بدء", {}, red});
    text.append({"!", Font{"QuillaSans-SemiBold", 13.0}, blue});
    text.append({"?", Font{"QuillaSans", 13.0}, blue});
    EXPECT_EQ(shown(text), (Pieces{{"Größe 😀 ", 18.0, false, Vexora::inkColor},
                                   {"ホーム", 12.0, true, Vexora::inkColor},
                                   {" 𝄞 ", 18.0, false, Vexora::inkColor},
                                   {"بدء", 18.0, false, red},
                                   {"!", 13.0, true, blue},
                                   {"?", 13.0, false, blue}}));
}

TEST_F(Texts, areCentredByThemselvesWhateverTheirControlSays) {
    content->switchToLicenseView();
    const auto heading = content->licenseView()->licenseAgreementLabel();
    StyledText text("one ");
    text.append({"two", Font{"QuillaSans", 12.0}, {}});
    heading->setAttributedStringValue(text);
    for (const Piece& run : runs("licenseAgreementLabel")) {
        EXPECT_EQ(run.alignment, Alignment::Left);
    }
    text.setAlignment(Vexora::TextAlignment::Center);
    heading->setAttributedStringValue(text);
    EXPECT_EQ(runs("licenseAgreementLabel").size(), 2U);
    for (const Piece& run : runs("licenseAgreementLabel")) {
        EXPECT_EQ(run.alignment, Alignment::Centre);
    }
}

} // namespace BackendTest
