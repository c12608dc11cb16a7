// What a killed `install` leaves never keeps a later one from its work; one that runs does.
#include "PayloadFixture.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <sstream>

namespace fs = std::filesystem;

namespace {

// The field 22 of /proc/PROCESS/stat, counted from behind the name.
std::string startOf(pid_t process) {
    std::ifstream stream("/proc/" + std::to_string(process) + "/stat");
    std::string line;
    std::getline(stream, line);
    std::istringstream fields(line.substr(line.rfind(')') + 1));
    std::string field;
    for (int number = 3; number <= 22; ++number) {
        fields >> field;
    }
    return field;
}

// A process that has ended, but is only collected with this object.
class EndedProcess {
public:
    EndedProcess() : id_(fork()) {
        if (id_ == 0) {
            _exit(0);
        }
        siginfo_t information;
        waitid(P_PID, static_cast<id_t>(id_), &information, WEXITED | WNOWAIT);
    }
    ~EndedProcess() { waitpid(id_, nullptr, 0); }
    EndedProcess(const EndedProcess&) = delete;
    EndedProcess& operator=(const EndedProcess&) = delete;

    pid_t id() const { return id_; }

private:
    pid_t id_;
};

} // namespace

class InstallLeftovers : public PayloadFixture {
protected:
    // Has an `install` killed that has moved the old version aside, which then passes for the one
    // to be installed. Returns what the private folder is named after.
    std::string killedInstall() {
        plant(userFolder_, "2.3.0");
        fakeTool("mv", "PATH=/usr/bin:/bin; mv \"$@\"\n"
                       "case $* in *old/Lumiq.plugin) kill -KILL $PPID ;; esac");
        EXPECT_EQ(install().status, 128 + SIGKILL);
        fs::remove(tools_ / "mv");
        EXPECT_EQ(versionIn(userFolder_), "none");
        const fs::path folder = fs::directory_iterator(userFolder_)->path();
        writeFile(folder / "old/Lumiq.plugin/VERSION", "2.4.0\n");
        const std::string name = folder.filename();
        return name.substr(name.rfind('.') + 1);
    }

    fs::path privateFolder(const std::string& identity) {
        return userFolder_ / (".Lumiq.plugin.staging." + identity);
    }

    // Takes /proc and, unless it is to print `start`, ps from the script.
    void hideStarts(const std::string& start) {
        fakeTool("sed", "case $* in */proc/*) exit 1 ;; esac\nPATH=/usr/bin:/bin; exec sed \"$@\"");
        writeFile(root_ / "start", start);
        fakeTool("ps", "cat '" + (root_ / "start").string() + "'");
    }

    // Runs an `install` while another one extracts its archive, and returns its status. The shell
    // command `before` runs first, under the same process number, and finds the other one's private
    // folder in $other.
    std::string statusOfSecondInstall(const std::string& before) {
        fs::remove_all(userFolder_);
        fakeTool("second", "other=$(echo .mozilla/plugins/.*.staging.*)\n" + before + "\nexec '" +
                               (resources_ / "install").string() + "'");
        fakeTool("tar", "if mkdir '" + (root_ / "once").string() +
                            "'; then (cd \"$HOME\" && second); echo $? >'" +
                            (root_ / "status").string() +
                            "'; fi\nPATH=/usr/bin:/bin; exec tar \"$@\"");
        install();
        fs::remove(root_ / "once");
        fs::remove(tools_ / "tar");
        return readFile(root_ / "status");
    }
};

TEST_F(InstallLeftovers, areClearedUpWhoeverHasTheProcessNumberNow) {
    const EndedProcess ended;
    const std::string self = std::to_string(getpid());
    for (int row = 0; row < 4; ++row) {
        const std::string killed = killedInstall();
        const std::size_t start = killed.find('-');
        const std::size_t boot = killed.find('-', start + 1);
        const std::string names[] = {
            killed,
            self + killed.substr(start),
            std::to_string(ended.id()) + "-" + startOf(ended.id()) + killed.substr(boot),
            self,
        };
        fs::rename(privateFolder(killed), privateFolder(names[row]));
        const Result result = install();
        EXPECT_EQ(result.status, 5) << names[row] << "\n" << result.output;
        EXPECT_EQ(versionIn(userFolder_), "2.4.0");
        EXPECT_EQ(readFile(userFolder_ / "Lumiq.plugin/marker"), "old");
        EXPECT_TRUE(isTidy(userFolder_));
    }
}

TEST_F(InstallLeftovers, thatCannotBeRemovedStayAndKeepNobodyFromInstalling) {
    for (const char* tool : {"chmod", "rm", "mv"}) {
        const std::string killed = killedInstall();
        fakeTool(tool, "case $* in *" + killed +
                           "*) exit 1 ;; esac\n"
                           "PATH=/usr/bin:/bin; exec " +
                           tool + " \"$@\"");
        const Result result = install();
        EXPECT_EQ(result.status, tool == std::string("mv") ? 0 : 5) << tool << result.output;
        EXPECT_EQ(versionIn(userFolder_), "2.4.0");
        EXPECT_TRUE(fs::exists(privateFolder(killed)));
        fs::remove(tools_ / tool);
        fs::remove_all(userFolder_);
    }
}

TEST_F(InstallLeftovers, areNotWhatARunningInstallationUses) {
    EXPECT_EQ(statusOfSecondInstall(""), "20\n");
    EXPECT_EQ(statusOfSecondInstall("touch -t 202001010000 \"$other\""), "20\n");
}

TEST_F(InstallLeftovers, areAllThatAnotherBootLeft) {
    const std::string boot = "'" + (root_ / "boot").string() + "'";
    writeFile(root_ / "boot", "first\n");
    fakeTool("cat", "PATH=/usr/bin:/bin\ncase $* in */boot_id) exec cat " + boot +
                        " ;; esac\nexec cat \"$@\"");
    EXPECT_EQ(statusOfSecondInstall(""), "20\n");
    EXPECT_EQ(statusOfSecondInstall("echo second >" + boot), "0\n");
}

TEST_F(InstallLeftovers, areToldFromARunningInstallationByPsWhereThereIsNoProc) {
    const std::string later = "echo 'Mon Jan  5 10:00:02 2026' >'" + (root_ / "start").string();
    hideStarts("Mon Jan  5 10:00:01 2026\n");
    EXPECT_EQ(statusOfSecondInstall("touch -t 202001010000 \"$other\""), "20\n");
    EXPECT_EQ(statusOfSecondInstall(later + "'"), "0\n");
}

TEST_F(InstallLeftovers, areToldFromARunningInstallationByADayWhereNoStartIsKnown) {
    hideStarts("");
    EXPECT_EQ(statusOfSecondInstall(""), "20\n");
    EXPECT_EQ(statusOfSecondInstall("touch -t 202001010000 \"$other\""), "0\n");
    EXPECT_EQ(statusOfSecondInstall("mv \"$other\" \"${other%.*}.$$-${other#*-}\""), "0\n");
    killedInstall();
    EXPECT_EQ(install().status, 5);
    EXPECT_TRUE(isTidy(userFolder_));
}
