#include "PayloadFixture.h"

#include "Platform/Posix/FileSystem.h"
#include "Platform/Posix/ProcessLauncher.h"

#include <unistd.h>

#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace {

constexpr uid_t limitedUser = 65534;

} // namespace

void PayloadFixture::SetUp() {
    root_ = temporary_.path();
    home_ = root_ / "home of Jürgen 日本";
    resources_ = root_ / "the Resources";
    systemFolder_ = root_ / "system plug-ins";
    tools_ = root_ / "tools";
    userFolder_ = home_ / ".mozilla/plugins";
    userReceipt_ = home_ / ".local/share/lumiq/receipt";
    homeValue_ = home_.string();
    for (const fs::path& folder : {home_, resources_, systemFolder_, tools_}) {
        fs::create_directories(folder);
    }
    for (const char* name : {"install", "unmount", "payload.conf", "lumiq-plugin.tar.gz",
                             "lumiq-plugin.tar.gz.cksum"}) {
        fs::copy_file(fs::path(VEXORA_STAGED_RESOURCES) / name, resources_ / name);
    }
    configure("VERSION", "2.4.0");
    for (const std::string system : {"LINUX", "DARWIN"}) {
        configure(system + "_USER_FOLDER", ".mozilla/plugins");
        configure(system + "_USER_RECEIPTS", ".local/share/lumiq");
        configure(system + "_SYSTEM_FOLDER", systemFolder_.string());
        configure(system + "_SYSTEM_RECEIPTS", (root_ / "system receipts").string());
    }
    const fs::path source = root_ / "source";
    plant(source, "2.4.0");
    writeFile(source / "Lumiq.plugin/marker", "new");
    giveToUser();
    pack(source);
}

void PayloadFixture::giveToUser() {
    if (geteuid() != 0) {
        return;
    }
    ASSERT_EQ(lchown(root_.c_str(), limitedUser, limitedUser), 0);
    for (const auto& entry : fs::recursive_directory_iterator(root_)) {
        ASSERT_EQ(lchown(entry.path().c_str(), limitedUser, limitedUser), 0);
    }
}

PayloadFixture::Result PayloadFixture::run(const std::vector<std::string>& command) {
    std::vector<std::string> arguments{"-i", "-C", root_, "PATH=" + tools_.string() + ":" + path_};
    if (homeValue_) {
        arguments.push_back("HOME=" + *homeValue_);
    }
    if (geteuid() == 0) {
        const std::string user = std::to_string(limitedUser);
        arguments.insert(arguments.end(), {"/usr/bin/setpriv", "--reuid=" + user, "--regid=" + user,
                                           "--clear-groups"});
    }
    // The shell ends with 128 plus the signal's number, the launcher would tell the bare number.
    arguments.insert(arguments.end(), {"/bin/sh", "-c", "\"$@\"; exit $?", "sh"});
    arguments.insert(arguments.end(), command.begin(), command.end());
    const std::string output = temporary_.write("output", "");
    const auto handle = Vexora::PosixFileSystem().fileHandleForWritingAtPath(output);
    const int status = Vexora::PosixProcessLauncher()
                           .launchProcess("/usr/bin/env", arguments, handle.get())
                           ->waitUntilExit();
    return {status, readFile(output)};
}

PayloadFixture::Result PayloadFixture::runScript(const std::string& name,
                                                 const std::vector<std::string>& arguments) {
    giveToUser();
    std::vector<std::string> command = prefix_;
    command.push_back((resources_ / name).string());
    command.insert(command.end(), arguments.begin(), arguments.end());
    return run(command);
}

void PayloadFixture::shell(const std::string& command) {
    giveToUser();
    const Result result = run({"/bin/sh", "-c", command});
    ASSERT_EQ(result.status, 0) << command << "\n" << result.output;
}

void PayloadFixture::configure(const std::string& key, const std::string& value) {
    const fs::path file = resources_ / "payload.conf";
    std::string text = "\n" + readFile(file);
    const std::size_t start = text.find("\n" + key + "=");
    ASSERT_NE(start, std::string::npos) << key;
    const std::size_t from = start + key.size() + 2;
    text.replace(from, text.find('\n', from) - from, value);
    writeFile(file, text.substr(1));
}

void PayloadFixture::plant(const fs::path& folder, const std::optional<std::string>& version) {
    fs::create_directories(folder / "Lumiq.plugin");
    if (version) {
        writeFile(folder / "Lumiq.plugin/VERSION", *version + "\n");
    }
    writeFile(folder / "Lumiq.plugin/marker", "old");
}

void PayloadFixture::pack(const fs::path& folder) {
    shell("tar -c -z -C '" + folder.string() + "' -f '" + resources_.string() +
          "/lumiq-plugin.tar.gz' Lumiq.plugin && cd '" + resources_.string() +
          "' && cksum <lumiq-plugin.tar.gz >lumiq-plugin.tar.gz.cksum");
}

void PayloadFixture::fakeTool(const std::string& name, const std::string& body) {
    writeFile(tools_ / name, "#!/bin/sh\n" + body + "\n");
    fs::permissions(tools_ / name, fs::perms(0755));
}

std::string PayloadFixture::versionIn(const fs::path& folder) {
    std::ifstream stream(folder / "Lumiq.plugin/VERSION");
    std::string version;
    return std::getline(stream, version) ? version : "none";
}

bool PayloadFixture::isTidy(const fs::path& folder) {
    if (!fs::exists(folder)) {
        return true;
    }
    for (const auto& entry : fs::directory_iterator(folder)) {
        if (entry.path().filename() != "Lumiq.plugin") {
            return false;
        }
    }
    return true;
}

std::string PayloadFixture::readFile(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void PayloadFixture::writeFile(const fs::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}
