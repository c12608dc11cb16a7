// Runs the sample payload's scripts in a scratch home, as a user whose rights are limited, also
// when the tests are root's. The folders named in payload.conf are replaced by scratch ones, so
// nothing outside the scratch folder is touched.
#pragma once

#include "Support/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

class PayloadFixture : public testing::Test {
protected:
    struct Result {
        int status = -1;    // the exit status, or 128 plus the signal's number
        std::string output; // standard output and standard error, in the order of writing
    };

    void SetUp() override;

    // Runs a staged script with the given arguments. The program folder `tools_`, when filled, is
    // searched first.
    Result runScript(const std::string& name, const std::vector<std::string>& arguments);
    // The normal run of `install`.
    Result install() { return runScript("install", {"&;", "wait $!"}); }
    // Runs a shell command in the scratch folder as the limited user; fails the test unless it
    // succeeds.
    void shell(const std::string& command);

    // Replaces the value of `key` in the staged payload.conf.
    void configure(const std::string& key, const std::string& value);
    // Puts a plug-in of the given version with a file `marker` into `folder`; no version means a
    // damaged plug-in.
    void plant(const std::filesystem::path& folder, const std::optional<std::string>& version);
    // Packs the plug-in in `folder` as the staged archive, with a fitting checksum.
    void pack(const std::filesystem::path& folder);
    // Puts a program of this name, a shell script with the given body, before the system's own.
    void fakeTool(const std::string& name, const std::string& body);

    // The first line of VERSION of the plug-in in `folder`, or "none".
    static std::string versionIn(const std::filesystem::path& folder);
    // Whether `folder` holds nothing but the plug-in, or is empty.
    static bool isTidy(const std::filesystem::path& folder);

    static std::string readFile(const std::filesystem::path& file);
    static void writeFile(const std::filesystem::path& file, const std::string& bytes);

    TestSupport::TemporaryFolder temporary_;
    std::filesystem::path root_, home_, resources_, systemFolder_, tools_;
    std::filesystem::path userFolder_;     // the plug-in folder below the home
    std::filesystem::path userReceipt_;    // the receipt below the home
    std::optional<std::string> homeValue_; // the variable HOME of a run; none leaves it out
    std::string path_ = "/usr/bin:/bin";   // the variable PATH of a run, behind `tools_`
    std::vector<std::string> prefix_;      // a command that gets a script's command line, or none

private:
    Result run(const std::vector<std::string>& command);
    void giveToUser();
};
