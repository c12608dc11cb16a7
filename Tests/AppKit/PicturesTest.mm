#include "AppKit/AppKitFixture.h"
#include "AppKit/Pieces.h"
#include "AppKit/Snapshot.h"
#include "Color.h"
#include "Platform/Palette.h"

namespace AppKitTest {

/// What the window looks like, kept as pictures beside the build.
class Pictures : public AppKitFixture, public testing::WithParamInterface<StateAndLanguage> {
protected:
    Pictures() { useLanguage(std::get<1>(GetParam())); }

    static State state() { return std::get<0>(GetParam()); }

    /// Where a picture of the window's content shows a control.
    NSRect areaOf(const std::string& name) const {
        NSView* const view = get(name);
        return [view convertRect:[view bounds] toView:[[view window] contentView]];
    }
};

INSTANTIATE_TEST_SUITE_P(In, Pictures, testing::Combine(testing::ValuesIn(everyState), languages),
                         stateAndLanguageName);

TEST_P(Pictures, showEveryControl) {
    enter(state());
    const Snapshot picture([window() contentView]);
    const std::filesystem::path folder = std::filesystem::path(PICTURES) / std::get<1>(GetParam());
    std::filesystem::create_directories(folder);
    const std::filesystem::path file = folder / (stateName(state()) + ".png");
    EXPECT_TRUE(picture.write(file.string()));
    EXPECT_GT(std::filesystem::file_size(file), 1000U);
    EXPECT_EQ(picture.width(), 560);
    EXPECT_EQ(picture.height(), 500);
    EXPECT_TRUE(areAlike(picture.at(1, 1), Vexora::paperColor));
    for (const char* name :
         {"lumiqLogo", "licenseLabel", "startLabel", "startButton", "installLabel",
          "installProgress", "closeButton", "closeIcon", "failLabel", "logLabel",
          "troubleshootButton", "licenseAgreementLabel", "licenseText", "backButton"}) {
        if (isVisible(name)) {
            EXPECT_GT(picture.colorsIn(areaOf(name)), 3U) << name;
        }
    }
}

TEST_P(Pictures, showLinksInBlue) {
    enter(state());
    for (const char* name : {"licenseLabel", "logLabel"}) {
        if (isVisible(name)) {
            EXPECT_TRUE(Snapshot(get(name)).find(Vexora::OndrelFontBlueColor)) << name;
            EXPECT_TRUE(Snapshot(get(name)).find(Vexora::inkColor)) << name;
        }
    }
}

} // namespace AppKitTest
