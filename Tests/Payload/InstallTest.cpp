#include "PayloadFixture.h"

#include <signal.h>

namespace fs = std::filesystem;

class Install : public PayloadFixture {
protected:
    // Asserts that a run ended with `status` and that the user's plug-in is the old one, complete,
    // with nothing beside.
    void expectOldVersionAfter(const Result& result, int status) {
        EXPECT_EQ(result.status, status) << result.output;
        EXPECT_EQ(versionIn(userFolder_), "2.3.0");
        EXPECT_EQ(readFile(userFolder_ / "Lumiq.plugin/marker"), "old");
        EXPECT_TRUE(isTidy(userFolder_));
        EXPECT_FALSE(fs::exists(userReceipt_));
    }
};

TEST_F(Install, installsTheShippedArchiveIntoTheUsersFolder) {
    for (const char* name : {"lumiq-plugin.tar.gz", "lumiq-plugin.tar.gz.cksum", "payload.conf"}) {
        fs::copy_file(fs::path(VEXORA_STAGED_RESOURCES) / name, resources_ / name,
                      fs::copy_options::overwrite_existing);
    }
    configure("LINUX_SYSTEM_FOLDER", systemFolder_.string());
    configure("DARWIN_SYSTEM_FOLDER", systemFolder_.string());
    configure("LINUX_USER_FOLDER", ".mozilla/plugins");
    configure("DARWIN_USER_FOLDER", ".mozilla/plugins");
    const Result result = install();
    EXPECT_EQ(result.status, 0) << result.output;
    for (const char* name : {"README.txt", "lumiq.module"}) {
        EXPECT_EQ(readFile(userFolder_ / "Lumiq.plugin" / name),
                  readFile(fs::path(VEXORA_PLUGIN_SOURCE) / name));
    }
    EXPECT_NE(versionIn(userFolder_), "none");
    EXPECT_TRUE(isTidy(userFolder_));
}

TEST_F(Install, writesAReceiptWithVersionAndLocation) {
    ASSERT_EQ(install().status, 0);
    const std::string receipt = readFile(userReceipt_);
    EXPECT_NE(receipt.find("version=2.4.0\n"), std::string::npos) << receipt;
    EXPECT_NE(receipt.find("location=" + (userFolder_ / "Lumiq.plugin").string() + "\n"),
              std::string::npos)
        << receipt;
    EXPECT_NE(receipt.find(" ./marker\n"), std::string::npos) << receipt;
}

TEST_F(Install, toleratesNoArgumentsAndUnknownOnes) {
    EXPECT_EQ(runScript("install", {}).status, 0);
    EXPECT_EQ(runScript("install", {"true", "more"}).status, 5);
    EXPECT_FALSE(fs::exists(systemFolder_ / "Lumiq.plugin"));
}

TEST_F(Install, tellsEachStageInTheLog) {
    const std::string log = install().output;
    std::size_t position = 0;
    for (const char* line : {"Installing ", "Destination: ", "Extracting ", "Copying ",
                             "Registering ", "Installed "}) {
        position = log.find(line, position);
        EXPECT_NE(position, std::string::npos) << line << log;
    }
}

TEST_F(Install, replacesAnOlderVersionAsAWhole) {
    plant(userFolder_, "2.3.0");
    writeFile(userFolder_ / "Lumiq.plugin/gone in the new version", "");
    EXPECT_EQ(install().status, 0);
    EXPECT_EQ(versionIn(userFolder_), "2.4.0");
    EXPECT_EQ(readFile(userFolder_ / "Lumiq.plugin/marker"), "new");
    EXPECT_FALSE(fs::exists(userFolder_ / "Lumiq.plugin/gone in the new version"));
    EXPECT_TRUE(isTidy(userFolder_));
}

TEST_F(Install, comparesVersionsByNumberAndTreatsDamagedOnesAsOlder) {
    const std::vector<std::pair<std::optional<std::string>, int>> cases = {
        {"2.4.0", 5},   {"2.4", 5},      {"02.04.0.0", 5}, {"2.3.99", 0},     {"2", 0},
        {"1.99.99", 0}, {"2.4.0.1", 10}, {"2.10", 10},     {"10.0", 10},      {"2.4.1", 10},
        {"", 0},        {"2..4", 0},     {"2.5-beta", 0},  {"9999999999", 0}, {std::nullopt, 0}};
    for (const auto& [version, status] : cases) {
        fs::remove_all(userFolder_);
        plant(userFolder_, version);
        const Result result = install();
        EXPECT_EQ(result.status, status) << version.value_or("no version") << "\n" << result.output;
        EXPECT_EQ(versionIn(userFolder_), status == 0 ? "2.4.0" : *version);
        EXPECT_TRUE(isTidy(userFolder_));
    }
}

TEST_F(Install, reports1WhenTheSystemWideCopyCannotBeReplaced) {
    plant(systemFolder_, "2.3.0");
    fs::permissions(systemFolder_, fs::perms(0555));
    EXPECT_EQ(install().status, 1);
    EXPECT_EQ(runScript("install", {"true"}).status, 1);
    EXPECT_EQ(versionIn(systemFolder_), "2.3.0");
    EXPECT_FALSE(fs::exists(userFolder_));
}

TEST_F(Install, needsNoRightsToReportTheSameOrANewerSystemWideCopy) {
    plant(systemFolder_, "2.4.0");
    fs::permissions(systemFolder_, fs::perms(0555));
    EXPECT_EQ(install().status, 5);
    writeFile(systemFolder_ / "Lumiq.plugin/VERSION", "2.5.0\n");
    EXPECT_EQ(install().status, 10);
}

TEST_F(Install, replacesTheSystemWideCopyInPlaceWhereRightsSuffice) {
    plant(systemFolder_, "2.3.0");
    EXPECT_EQ(install().status, 0);
    EXPECT_EQ(versionIn(systemFolder_), "2.4.0");
    EXPECT_TRUE(isTidy(systemFolder_));
    EXPECT_TRUE(fs::exists(root_ / "system receipts/receipt"));
    EXPECT_FALSE(fs::exists(userFolder_));
}

TEST_F(Install, elevatedReplacesTheSystemWideCopyAndNeedsNoHome) {
    for (const auto& home : {homeValue_, std::optional<std::string>()}) {
        homeValue_ = home;
        plant(systemFolder_, "2.3.0");
        const Result result = runScript("install", {"true"});
        EXPECT_EQ(result.status, 0) << result.output;
        EXPECT_EQ(versionIn(systemFolder_), "2.4.0");
        EXPECT_TRUE(isTidy(systemFolder_));
        EXPECT_TRUE(fs::is_empty(home_));
    }
}

TEST_F(Install, elevatedRunsOnlyTheSystemsOwnPrograms) {
    // The system-wide copy may have vanished meanwhile, too.
    fakeTool("tar", "exit 1");
    EXPECT_EQ(runScript("install", {"true"}).status, 0);
    EXPECT_EQ(versionIn(systemFolder_), "2.4.0");
    EXPECT_TRUE(fs::is_empty(home_));
    EXPECT_EQ(install().status, 5);
    fs::remove_all(systemFolder_ / "Lumiq.plugin");
    EXPECT_EQ(install().status, 30);
}

TEST_F(Install, reports20WhenThePlugInFolderCannotBeCreated) {
    writeFile(home_ / ".mozilla", "a file in the way");
    EXPECT_EQ(install().status, 20);
}

TEST_F(Install, reports20WhenThePlugInFolderIsNotWritable) {
    plant(userFolder_, "2.3.0");
    fs::permissions(userFolder_, fs::perms(0555));
    expectOldVersionAfter(install(), 20);
}

TEST_F(Install, reports20WhenSpaceIsShort) {
    configure("REQUIRED_KIB", "1000000000000000");
    const Result result = install();
    EXPECT_EQ(result.status, 20);
    EXPECT_NE(result.output.find("KiB are free"), std::string::npos) << result.output;
    EXPECT_TRUE(isTidy(userFolder_));
}

TEST_F(Install, reports20WhenAToolIsMissing) {
    path_.clear();
    for (const char* tool :
         {"cat", "dirname", "chmod", "cksum", "df", "find", "mkdir", "mv", "rm", "sed", "uname"}) {
        fakeTool(tool, std::string("PATH=/usr/bin:/bin; exec ") + tool + " \"$@\"");
    }
    const Result result = install();
    EXPECT_EQ(result.status, 20);
    EXPECT_NE(result.output.find("tar is missing"), std::string::npos) << result.output;
}

TEST_F(Install, reports20WhenTheSettingsAreMissingIncompleteOrWrong) {
    configure("VERSION", "two");
    EXPECT_EQ(install().status, 20);
    configure("VERSION", "");
    EXPECT_EQ(install().status, 20);
    fs::remove(resources_ / "payload.conf");
    EXPECT_EQ(install().status, 20);
}

TEST_F(Install, reports20WithoutAHome) {
    homeValue_.reset();
    EXPECT_EQ(install().status, 20);
    homeValue_ = "relative";
    EXPECT_EQ(install().status, 20);
}

TEST_F(Install, keepsTheOldVersionForTheNextRunWhenItCannotBeBroughtBack) {
    plant(userFolder_, "2.3.0");
    fakeTool("mv", "case $* in *old/Lumiq.plugin) ;; *) exit 1 ;; esac\n"
                   "PATH=/usr/bin:/bin; exec mv \"$@\"");
    EXPECT_EQ(install().status, 40);
    EXPECT_EQ(versionIn(userFolder_), "none");
    fs::remove(tools_ / "mv");
    configure("VERSION", "2.3.0");
    EXPECT_EQ(install().status, 5);
    EXPECT_EQ(readFile(userFolder_ / "Lumiq.plugin/marker"), "old");
    EXPECT_TRUE(isTidy(userFolder_));
}

TEST_F(Install, reports30WhenTheArchiveIsMissing) {
    plant(userFolder_, "2.3.0");
    fs::remove(resources_ / "lumiq-plugin.tar.gz");
    expectOldVersionAfter(install(), 30);
}

TEST_F(Install, reports30WhenTheArchiveIsDamaged) {
    plant(userFolder_, "2.3.0");
    std::string bytes = readFile(resources_ / "lumiq-plugin.tar.gz");
    bytes[bytes.size() / 2] = static_cast<char>(bytes[bytes.size() / 2] ^ 1);
    writeFile(resources_ / "lumiq-plugin.tar.gz", bytes);
    const Result result = install();
    expectOldVersionAfter(result, 30);
    EXPECT_NE(result.output.find("checksum"), std::string::npos) << result.output;
}

TEST_F(Install, reports30WhenTheArchiveCannotBeUnpacked) {
    plant(userFolder_, "2.3.0");
    writeFile(resources_ / "lumiq-plugin.tar.gz", "no archive");
    shell("cd '" + resources_.string() +
          "' && cksum <lumiq-plugin.tar.gz >lumiq-plugin.tar.gz.cksum");
    expectOldVersionAfter(install(), 30);
}

TEST_F(Install, reports30WhenTheArchiveHoldsAnotherVersion) {
    plant(root_ / "other", "2.6.0");
    pack(root_ / "other");
    plant(userFolder_, "2.3.0");
    expectOldVersionAfter(install(), 30);
}

// A folder that its owner may not write to cannot be moved into another one.
TEST_F(Install, reports40WhenTheOldVersionCannotBeMovedAside) {
    plant(userFolder_, "2.3.0");
    fs::permissions(userFolder_ / "Lumiq.plugin", fs::perms(0555));
    expectOldVersionAfter(install(), 40);
}

TEST_F(Install, reports40AndRestoresTheOldVersionWhenTheNewOneCannotBePlaced) {
    plant(userFolder_, "2.3.0");
    shell("chmod 555 source/Lumiq.plugin");
    pack(root_ / "source");
    const Result result = install();
    expectOldVersionAfter(result, 40);
    EXPECT_NE(result.output.find("Restoring"), std::string::npos) << result.output;
}

TEST_F(Install, reports50AndRestoresTheOldVersionWhenTheReceiptCannotBeWritten) {
    plant(userFolder_, "2.3.0");
    writeFile(home_ / ".local", "a file in the way");
    expectOldVersionAfter(install(), 50);
}

TEST_F(Install, aFirstInstallationThatFailsLateLeavesNoPlugIn) {
    writeFile(home_ / ".local", "a file in the way");
    EXPECT_EQ(install().status, 50);
    EXPECT_TRUE(fs::is_empty(userFolder_));
}

TEST_F(Install, interruptedWhileExtractingKeepsTheOldVersion) {
    plant(userFolder_, "2.3.0");
    fakeTool("tar", "kill -TERM $PPID; PATH=/usr/bin:/bin; exec tar \"$@\"");
    expectOldVersionAfter(install(), 30);
}

TEST_F(Install, interruptedBetweenMovingAsideAndPlacingRestoresTheOldVersion) {
    plant(userFolder_, "2.3.0");
    fakeTool(
        "mv",
        "PATH=/usr/bin:/bin; mv \"$@\"; case $* in *old/Lumiq.plugin) kill -INT $PPID ;; esac");
    expectOldVersionAfter(install(), 40);
}

TEST_F(Install, interruptedWhileRegisteringRestoresTheOldVersion) {
    plant(userFolder_, "2.3.0");
    fakeTool("mkdir",
             "case $* in *local*) kill -TERM $PPID ;; esac; PATH=/usr/bin:/bin; exec mkdir \"$@\"");
    expectOldVersionAfter(install(), 50);
}

TEST_F(Install, deathByASignalIsNotTakenForAStatus) {
    fakeTool("tar", "kill -USR1 $PPID");
    EXPECT_EQ(install().status, 128 + SIGUSR1);
}

TEST_F(Install, removesAnOldVersionWhoseFoldersAreReadOnly) {
    plant(userFolder_, "2.3.0");
    const fs::path inner = userFolder_ / "Lumiq.plugin/inner";
    fs::create_directories(inner);
    writeFile(inner / "file", "");
    fs::permissions(inner, fs::perms(0555));
    EXPECT_EQ(install().status, 0);
    EXPECT_TRUE(isTidy(userFolder_));
}
