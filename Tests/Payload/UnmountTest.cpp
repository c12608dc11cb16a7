#include "PayloadFixture.h"

namespace fs = std::filesystem;

class Unmount : public PayloadFixture {
protected:
    void SetUp() override {
        PayloadFixture::SetUp();
        volume_ = root_ / "media/someone/Lumiq Setup";
        fs::create_directories(volume_);
        fs::rename(resources_, volume_ / "Resources");
        resources_ = volume_ / "Resources";
        configure("MEDIA_FOLDER", (root_ / "media").string());
        reportVolume(volume_);
        fakeTool("uname", "echo Linux");
        fakeTool("sleep", "");
        fakeTool("gio", "echo \"$@\" >>'" + (root_ / "calls").string() + "'");
    }

    // Makes `df` name `volume` as the mount point of every path.
    void reportVolume(const fs::path& volume) {
        fakeTool("df", "echo 'Filesystem 1024-blocks Used Available Capacity Mounted on'\n"
                       "echo '/dev/sdb1 1000 400 600 40% " +
                           volume.string() + "'");
    }

    std::string log() { return readFile(home_ / "Library/Logs/Vexora_Lumiq/unmount.log"); }
    std::string calls() { return readFile(root_ / "calls"); }

    fs::path volume_;
};

TEST_F(Unmount, detachesTheMediumItWasStartedFrom) {
    EXPECT_EQ(runScript("unmount", {"&"}).status, 0);
    EXPECT_EQ(calls(), "mount -u " + volume_.string() + "\n");
    EXPECT_NE(log().find("Detached " + volume_.string()), std::string::npos) << log();
}

TEST_F(Unmount, leavesOtherVolumesAlone) {
    reportVolume(root_);
    EXPECT_EQ(runScript("unmount", {"&"}).status, 0);
    reportVolume("/");
    EXPECT_EQ(runScript("unmount", {"&"}).status, 0);
    reportVolume(root_ / "media/someone/Other");
    EXPECT_EQ(runScript("unmount", {"&"}).status, 0);
    EXPECT_EQ(calls(), "");
    EXPECT_NE(log().find("Nothing to detach"), std::string::npos) << log();
}

TEST_F(Unmount, givesUpOnAMediumInUse) {
    fakeTool("gio", "echo \"$@\" >>'" + (root_ / "calls").string() + "'; exit 2");
    fakeTool("umount", "exit 1");
    EXPECT_EQ(runScript("unmount", {"&"}).status, 0);
    EXPECT_NE(log().find("stays attached"), std::string::npos) << log();
}

TEST_F(Unmount, triesAgainUntilTheMediumIsFree) {
    const std::string calls = "'" + (root_ / "calls").string() + "'";
    fakeTool("gio", "echo >>" + calls + "; [ \"$(wc -l <" + calls + ")\" -ge 3 ]");
    fakeTool("umount", "exit 1");
    EXPECT_EQ(runScript("unmount", {"&"}).status, 0);
    EXPECT_NE(log().find("Detached "), std::string::npos) << log();
}

TEST_F(Unmount, endsWithStatus0WithoutAHome) {
    homeValue_.reset();
    reportVolume("/");
    EXPECT_EQ(runScript("unmount", {"&"}).status, 0);
    EXPECT_EQ(calls(), "");
}

TEST_F(Unmount, detachesAndEndsWithStatus0WhereNothingCanBeWrittenToTheLog) {
    const fs::path logs = home_ / "Library/Logs/Vexora_Lumiq";
    fs::create_directories(logs);
    fs::create_symlink("/dev/full", logs / "unmount.log");
    EXPECT_EQ(runScript("unmount", {"&"}).status, 0);
    fs::remove(logs / "unmount.log");
    fs::create_directory(logs / "unmount.log");
    EXPECT_EQ(runScript("unmount", {"&"}).status, 0);
    // Who waits for a reader would do so for ever.
    fs::remove(logs / "unmount.log");
    ASSERT_EQ(::mkfifo((logs / "unmount.log").c_str(), 0600), 0);
    ::alarm(600);
    EXPECT_EQ(runScript("unmount", {"&"}).status, 0);
    ::alarm(0);
    const std::string call = "mount -u " + volume_.string() + "\n";
    EXPECT_EQ(calls(), call + call + call);
}
