#include "Core/InstallLog.h"

#include "Platform/Recording/Platform.h"

#include <gtest/gtest.h>

#include <string>

using Vexora::logFileInFolder;
using Vexora::logFolderForHome;
using Vexora::Recording::Lines;
using Vexora::Recording::RecordingPlatform;

namespace {

class InstallLog : public testing::Test {
protected:
    bool validate() {
        return Vexora::validateLogFolder(platform.files, platform.systemLog, paths.folder);
    }

    void log(const std::string& text) {
        Vexora::appendToLog(platform.files, platform.systemLog, paths, text);
    }

    RecordingPlatform platform;
    const std::string folder = logFolderForHome("/Users/ann");
    const Vexora::LogPaths paths{folder, logFileInFolder(folder)};
};

TEST_F(InstallLog, pathsAreBuiltFromTheHomeDirectory) {
    EXPECT_EQ(paths.folder, "/Users/ann/Library/Logs/Vexora_Lumiq");
    EXPECT_EQ(paths.file, "/Users/ann/Library/Logs/Vexora_Lumiq/vexora-one-click-installer.log");
}

TEST_F(InstallLog, pathsAreConcatenatedWithoutAnyJoining) {
    EXPECT_EQ(logFolderForHome(""), "/Library/Logs/Vexora_Lumiq");
    EXPECT_EQ(logFolderForHome("/a/"), "/a//Library/Logs/Vexora_Lumiq");
    EXPECT_EQ(logFolderForHome("/home/Jörg Groß"), "/home/Jörg Groß/Library/Logs/Vexora_Lumiq");
    EXPECT_EQ(logFileInFolder("/a//"), "/a///vexora-one-click-installer.log");
}

TEST_F(InstallLog, missingFoldersAreCreatedByTheFirstValidation) {
    platform.files.addFolder("/Users/ann");

    EXPECT_TRUE(validate());

    EXPECT_TRUE(platform.files.isFolder("/Users/ann/Library"));
    EXPECT_TRUE(platform.files.isFolder("/Users/ann/Library/Logs"));
    EXPECT_TRUE(platform.files.isFolder(paths.folder));
    EXPECT_EQ(platform.calls.lines(), Lines{"createDirectory " + paths.folder});
}

TEST_F(InstallLog, existingFolderIsLeftAlone) {
    platform.files.addFolder(paths.folder);
    EXPECT_TRUE(validate());
    EXPECT_EQ(platform.calls.lines(), Lines{});
}

TEST_F(InstallLog, twoTextsFollowEachOtherWithNothingBetween) {
    log("abc");
    log("def");
    EXPECT_EQ(platform.files.content(paths.file), "abcdef");
}

TEST_F(InstallLog, emptyTextCreatesTheFileAndAppendsNothing) {
    log("");
    EXPECT_EQ(platform.files.content(paths.file), "");
    platform.files.addFile(paths.file, "before");
    log("");
    EXPECT_EQ(platform.files.content(paths.file), "before");
}

TEST_F(InstallLog, textOutsideAsciiIsAppendedAsItsUtf8Bytes) {
    log("Größe 漢字");
    EXPECT_EQ(platform.files.content(paths.file), "Gr\xC3\xB6\xC3\x9F"
                                                  "e \xE6\xBC\xA2\xE5\xAD\x97");
}

TEST_F(InstallLog, earlierContentStaysInFrontOfTheNewText) {
    platform.files.addFile(paths.file, "earlier run\n");
    log("new");
    EXPECT_EQ(platform.files.content(paths.file), "earlier run\nnew");
    EXPECT_EQ(platform.calls.count("createFile " + paths.file), 0U);
}

TEST_F(InstallLog, plainFileAtTheFolderPathCountsAsFolderAndNothingIsWritten) {
    platform.files.addFile(paths.folder, "not a folder");

    EXPECT_TRUE(validate());
    log("lost");

    EXPECT_EQ(platform.files.content(paths.folder), "not a folder");
    EXPECT_EQ(platform.files.content(paths.file), std::nullopt);
    EXPECT_EQ(platform.calls.beginningWith("writeData"), Lines{});
    EXPECT_EQ(platform.calls.beginningWith("log: "), Lines{});
}

TEST_F(InstallLog, appendingValidatesCreatesOpensSeeksWritesAndClosesInThisOrder) {
    log("abc");
    EXPECT_EQ(platform.calls.lines(),
              (Lines{"createDirectory " + paths.folder, "createFile " + paths.file,
                     "openForWriting " + paths.file, "seekToEndOfFile " + paths.file,
                     "writeData " + paths.file + " at 0: abc", "close " + paths.file}));
}

TEST_F(InstallLog, noHandleIsKeptBetweenTwoTexts) {
    log("abc");
    platform.calls.clear();
    log("def");
    EXPECT_EQ(platform.calls.lines(),
              (Lines{"openForWriting " + paths.file, "seekToEndOfFile " + paths.file,
                     "writeData " + paths.file + " at 3: def", "close " + paths.file}));
}

TEST_F(InstallLog, everyTextForAnUnusableFolderIsDroppedWithTheSameSystemLogLine) {
    platform.files.refusedFolders.insert(paths.folder);
    EXPECT_FALSE(validate());
    platform.calls.clear();
    log("abc");
    log("def");
    const std::string line = "log: Failed to create logging directory: " + paths.folder;
    EXPECT_EQ(platform.calls.lines(), (Lines{"createDirectory " + paths.folder, line,
                                             "createDirectory " + paths.folder, line}));
}

TEST_F(InstallLog, textForAFileThatCannotBeOpenedIsDroppedWithoutAReport) {
    platform.files.addFile(paths.file, "kept");
    platform.files.lockedFiles.insert(paths.file);
    log("lost");
    EXPECT_EQ(platform.files.content(paths.file), "kept");
    EXPECT_EQ(platform.calls.lines(), Lines{"openForWriting " + paths.file});
}

TEST_F(InstallLog, textForAFileThatCannotBeCreatedIsDroppedWithoutAReport) {
    platform.files.addFolder(paths.folder);
    platform.files.refusedFiles.insert(paths.file);
    log("lost");
    EXPECT_EQ(platform.calls.lines(),
              (Lines{"createFile " + paths.file, "openForWriting " + paths.file}));
}

} // namespace
