// No status of `install` depends on whether its words find a place.
#include "PayloadFixture.h"

namespace fs = std::filesystem;

namespace {

// Shell commands that run their arguments with an output that takes nothing.
constexpr const char* deafOutputs[] = {
    R"("$@" >/dev/full 2>&1)",
    R"("$@" >&-)",
    R"("$@" 2>&-)",
    R"("$@" >&- 2>&-)",
    R"("$@" <&- >&- 2>&-)",
    R"(mkfifo pipe; exec 3<>pipe 4>pipe 3<&-; rm pipe; "$@" >&4 2>&4)",
    R"(head -c 2000000 /dev/zero >log; ulimit -f 1000; "$@" >>log 2>&1)",
};

} // namespace

class InstallStatus : public PayloadFixture, public testing::WithParamInterface<int> {
protected:
    // Brings the scratch folders into the state in which a run ends with the status tested.
    void prepare() {
        switch (GetParam()) {
        case 1:
            plant(systemFolder_, "2.3.0");
            fs::permissions(systemFolder_, fs::perms(0555));
            break;
        case 5:
            plant(folder_, "2.4.0");
            break;
        case 10:
            plant(folder_, "2.5.0");
            break;
        case 20:
            configure("REQUIRED_KIB", "1000000000000000");
            break;
        case 30:
            fs::remove(resources_ / "lumiq-plugin.tar.gz");
            break;
        case 40:
            plant(folder_, "2.3.0");
            fs::permissions(folder_ / "Lumiq.plugin", fs::perms(0555));
            break;
        case 50:
            writeFile(home_ / ".local", "a file in the way");
            writeFile(root_ / "system receipts", "a file in the way");
            break;
        default:
            plant(folder_, "2.3.0");
        }
    }

    // Runs `install` in every shell and with every output that takes nothing.
    void expectStatus(const std::vector<std::string>& arguments) {
        for (const std::string shell : {"dash", "bash"}) {
            for (const std::string output : deafOutputs) {
                prepare();
                prefix_ = {"/bin/sh", "-c", output, "sh", shell};
                EXPECT_EQ(runScript("install", arguments).status, GetParam())
                    << shell << ": " << output;
                EXPECT_EQ(versionIn(folder_) == "2.4.0", GetParam() == 0 || GetParam() == 5);
                EXPECT_TRUE(isTidy(folder_));
            }
        }
    }

    fs::path folder_; // where the run tested puts the plug-in
};

TEST_P(InstallStatus, holdsWhereNothingCanBeWrittenToTheLog) {
    folder_ = userFolder_;
    expectStatus({"&;", "wait $!"});
}

TEST_P(InstallStatus, holdsWhereNothingCanBeWrittenToTheLogOfTheRerun) {
    folder_ = systemFolder_;
    expectStatus({"true"});
}

INSTANTIATE_TEST_SUITE_P(Every, InstallStatus, testing::Values(0, 1, 5, 10, 20, 30, 40, 50),
                         testing::PrintToStringParamName());
