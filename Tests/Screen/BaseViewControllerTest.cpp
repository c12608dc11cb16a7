#include "BaseViewController.h"

#include "ScreenFixture.h"

using namespace ScreenTest;
using Vexora::Color;
using Vexora::Font;
using Vexora::TextRun;

namespace {

using Runs = std::vector<TextRun>;

class BaseViewController : public ScreenFixture {
protected:
    Vexora::BaseViewController controller{platform.seam};
};

TEST_F(BaseViewController, pathsAreSetWhenTheControllerIsCreated) {
    EXPECT_EQ(controller.logFolderPath(), "/Users/ann/Library/Logs/Vexora_Lumiq");
    EXPECT_EQ(controller.logFilePath(),
              "/Users/ann/Library/Logs/Vexora_Lumiq/vexora-one-click-installer.log");
    EXPECT_EQ(platform.calls.lines(), Lines{});
}

TEST_F(BaseViewController, loadingCreatesTheMissingFolderButNotTheFile) {
    controller.view();
    EXPECT_TRUE(platform.files.isFolder(logFolder));
    EXPECT_TRUE(controller.validateLogFolderPath());
    EXPECT_EQ(platform.files.content(logFile), std::nullopt);
    EXPECT_EQ(platform.calls.lines(),
              (Lines{"load BaseViewController", "createDirectory " + logFolder}));
}

TEST_F(BaseViewController, everyScreenRunsTheBaseBeforeAnythingOfItsOwn) {
    const std::vector<std::shared_ptr<Vexora::BaseViewController>> screens{
        std::make_shared<Vexora::StartViewController>(platform.seam),
        std::make_shared<Vexora::InstallViewController>(platform.seam),
        std::make_shared<Vexora::LicenseViewController>(platform.seam),
        std::make_shared<Vexora::FailViewController>(platform.seam)};
    for (const auto& screen : screens) {
        platform.environment.home += "/deeper";
        platform.calls.clear();
        screen->view();
        ASSERT_GT(platform.calls.lines().size(), 3U);
        // The definition and the action of its control come before.
        EXPECT_EQ(platform.calls.lines()[2],
                  "createDirectory " + platform.environment.home + "/Library/Logs/Vexora_Lumiq");
    }
}

TEST_F(BaseViewController, folderThatCannotBeCreatedDisturbsNobodyAtLoading) {
    platform.files.refusedFolders.insert(logFolder);
    controller.view();
    EXPECT_FALSE(controller.validateLogFolderPath());
    EXPECT_EQ(platform.calls.count("log: Failed to create logging directory: " + logFolder), 2U);
}

TEST_F(BaseViewController, initialisingSetsThePathsAnewFromTheCurrentHome) {
    platform.environment.home = "/home/Zoë Müller";
    controller.initLoggingPath();
    EXPECT_EQ(controller.logFolderPath(), "/home/Zoë Müller/Library/Logs/Vexora_Lumiq");
    EXPECT_EQ(controller.logFilePath(),
              "/home/Zoë Müller/Library/Logs/Vexora_Lumiq/vexora-one-click-installer.log");
    EXPECT_TRUE(platform.files.isFolder(controller.logFolderPath()));
}

TEST_F(BaseViewController, textsGoWhereTheSettersPointTo) {
    controller.setLogFolderPath("/elsewhere");
    controller.setLogFilePath("/elsewhere/file");
    controller.log("abc");
    EXPECT_EQ(platform.files.content("/elsewhere/file"), "abc");
    EXPECT_EQ(platform.files.content(logFile), std::nullopt);
}

TEST_F(BaseViewController, markupIsRenderedInTheSemiboldTypefaceAtTheGivenSize) {
    EXPECT_EQ(controller.applyMarkup("click <b>Start</b>.", "<b>", 18.0, false).runs(),
              (Runs{{"click ", {}, {}},
                    {"Start", Font{"QuillaSans-SemiBold", 18.0}, {}},
                    {".", {}, {}}}));
}

TEST_F(BaseViewController, colouredMarkupIsBlue) {
    EXPECT_EQ(controller.applyMarkup("<a>x</a>", "<a>", 12.5, true).runs(),
              (Runs{{"x", Font{"QuillaSans-SemiBold", 12.5}, Color{0.24, 0.44, 0.70, 1.0}}}));
}

TEST_F(BaseViewController, rendererNeedsNoLoadedView) {
    static_cast<void>(controller.applyMarkup("<b>x</b>", "<b>", 18.0, true));
    EXPECT_EQ(controller.removeMarkdown("<b>Start</b> now <x1>"), "Start now <x1>");
    EXPECT_FALSE(controller.isViewLoaded());
    EXPECT_EQ(platform.calls.lines(), Lines{});
}

} // namespace
