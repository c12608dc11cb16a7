#include "Backend/Fixture.h"

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace BackendTest {

class Application : public Fixture {
protected:
    void expectCentred() const {
        EXPECT_NEAR(frontEnd.middle().x, frontEnd.middleOfDisplay().x, 1.0);
        EXPECT_NEAR(frontEnd.middle().y, frontEnd.middleOfDisplay().y, 1.0);
    }
};

TEST_F(Application, isCentredAndInFrontAfterLaunching) {
    openWindow();
    expectCentred();
    EXPECT_TRUE(frontEnd.hasKeyboard());
    EXPECT_TRUE(FrontEnd::isActive());
    frontEnd.moveToCorner();
    application.windows().front()->center();
    FrontEnd::settle();
    expectCentred();
}

TEST_F(Application, closingTheMainWindowLeaves) {
    openWindow();
    EXPECT_TRUE(application.exits.empty());
    frontEnd.close();
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Application, closingTheMainWindowByItsButtonLeavesDuringTheInstallation) {
    enter(State::Install);
    frontEnd.pressCloseButton();
    EXPECT_EQ(application.exits, std::vector<int>{0});
    EXPECT_TRUE(calls.beginningWith("launch ").empty());
}

TEST_F(Application, anotherHandlerReplacesTheOneBefore) {
    int closings = 0;
    openWindow();
    application.onWindowWillClose([&closings] { ++closings; });
    frontEnd.close();
    EXPECT_EQ(closings, 1);
    EXPECT_TRUE(application.exits.empty());
}

TEST_F(Application, handsOutTheMainWindowFirst) {
    ASSERT_FALSE(application.windows().empty());
    EXPECT_EQ(application.windows().front(), &application.mainWindow());
}

TEST_F(Application, setsTheTitleAsItIs) {
    application.windows().front()->setTitle("Größe & <b>ホーム</b>");
    EXPECT_EQ(frontEnd.title(), "Größe & <b>ホーム</b>");
}

TEST_F(Application, layoutFollowsTheLanguage) {
    for (const char* language : {"ar", "he", "fa", "ur"}) {
        application.setLanguage(language);
        EXPECT_TRUE(frontEnd.fromRight()) << language;
        application.setLanguage("en");
        EXPECT_FALSE(frontEnd.fromRight());
    }
    for (const char* language : {"de", "ja", "e", "", "??", "zz"}) {
        application.setLanguage("ar");
        application.setLanguage(language);
        EXPECT_FALSE(frontEnd.fromRight()) << language;
    }
}

TEST_F(Application, staysLeftToRightWithoutTheLanguagesTexts) {
    environment.resources = "/missing";
    useLanguage("ar");
    openWindow();
    EXPECT_FALSE(frontEnd.fromRight());
}

TEST_F(Application, staysLeftToRightWithAStringsFileThatYieldsNoEntry) {
    home.write("ar.lproj/Localizable.strings", "\"Start\" : \"x\"\n");
    environment.resources = home.path();
    useLanguage("ar");
    openWindow();
    EXPECT_FALSE(frontEnd.fromRight());
}

TEST_F(Application, showsItsPicturesFromAFolderWhoseNameIsNoUtf8) {
    environment.resources = home.path() / "\xff";
    std::filesystem::copy(STAGED_RESOURCES, environment.resources,
                          std::filesystem::copy_options::recursive);
    enter(State::Failure);
    for (const char* name : {"lumiqLogo", "closeIcon"}) {
        EXPECT_GT(picture(name).colors(), 20U) << name;
    }
}

TEST_F(Application, opensWithoutAResourceDirectory) {
    environment.resources = "/missing";
    openWindow();
    EXPECT_EQ(frontEnd.title(), "Ondrel Vexora Lumiq Setup");
    content->startView()->startAction();
    content->switchToLicenseView();
    content->licenseView()->backAction();
    endInstall(30);
    EXPECT_TRUE(application.exits.empty());
    frontEnd.close();
    EXPECT_EQ(application.exits, std::vector<int>{0});
}

TEST_F(Application, waitsForNobodyToWriteAPicture) {
    const TestSupport::TemporaryFolder resources;
    fs::copy(environment.resources, resources.path(), fs::copy_options::recursive);
    int pictures = 0;
    for (const auto& entry : fs::directory_iterator(resources.path())) {
        if (entry.path().extension() == ".png") {
            fs::remove(entry.path());
            ASSERT_EQ(::mkfifo(entry.path().c_str(), 0600), 0);
            ++pictures;
        }
    }
    ASSERT_GT(pictures, 0);
    environment.resources = resources.path();
    ::alarm(600);
    enter(State::Failure);
    ::alarm(0);
}

} // namespace BackendTest
