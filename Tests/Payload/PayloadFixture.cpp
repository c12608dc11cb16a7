#include "PayloadFixture.h"

#include <grp.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <iterator>

namespace fs = std::filesystem;

namespace {

constexpr uid_t limitedUser = 65534;

std::vector<char*> pointers(std::vector<std::string>& texts) {
    std::vector<char*> result;
    for (std::string& text : texts)
        result.push_back(text.data());
    result.push_back(nullptr);
    return result;
}

// Never returns; the status 255 stands for a failure before the program runs.
[[noreturn]] void becomeProgram(const fs::path& folder, int output, char* const* arguments,
                                char* const* environment) {
    const bool limited = geteuid() != 0 || (setgroups(0, nullptr) == 0 &&
                                            setgid(limitedUser) == 0 && setuid(limitedUser) == 0);
    if (limited && chdir(folder.c_str()) == 0 && dup2(output, STDOUT_FILENO) >= 0 &&
        dup2(output, STDERR_FILENO) >= 0)
        execve(arguments[0], arguments, environment);
    _exit(255);
}

std::string readAll(int descriptor) {
    std::string text;
    std::array<char, 4096> buffer{};
    for (ssize_t count = 0; (count = read(descriptor, buffer.data(), buffer.size())) > 0;)
        text.append(buffer.data(), static_cast<std::size_t>(count));
    return text;
}

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
    for (const fs::path& folder : {home_, resources_, systemFolder_, tools_})
        fs::create_directories(folder);
    for (const char* name :
         {"install", "unmount", "payload.conf", "lumiq-plugin.tar.gz", "lumiq-plugin.tar.gz.cksum"})
        fs::copy_file(fs::path(VEXORA_STAGED_RESOURCES) / name, resources_ / name);
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
    if (geteuid() != 0)
        return;
    ASSERT_EQ(lchown(root_.c_str(), limitedUser, limitedUser), 0);
    for (const auto& entry : fs::recursive_directory_iterator(root_))
        ASSERT_EQ(lchown(entry.path().c_str(), limitedUser, limitedUser), 0);
}

PayloadFixture::Result PayloadFixture::run(const std::vector<std::string>& command) {
    std::vector<std::string> arguments = command;
    std::vector<std::string> environment = {"PATH=" + tools_.string() + ":" + path_};
    if (homeValue_)
        environment.push_back("HOME=" + *homeValue_);
    std::vector<char*> argumentPointers = pointers(arguments);
    std::vector<char*> environmentPointers = pointers(environment);
    std::array<int, 2> ends{};
    if (pipe(ends.data()) != 0)
        return {};
    const pid_t child = fork();
    if (child == 0)
        becomeProgram(root_, ends[1], argumentPointers.data(), environmentPointers.data());
    close(ends[1]);
    Result result;
    result.output = readAll(ends[0]);
    close(ends[0]);
    int status = 0;
    if (waitpid(child, &status, 0) == child)
        result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 256 + WTERMSIG(status);
    return result;
}

PayloadFixture::Result PayloadFixture::runScript(const std::string& name,
                                                 const std::vector<std::string>& arguments) {
    giveToUser();
    std::vector<std::string> command = {(resources_ / name).string()};
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
    if (version)
        writeFile(folder / "Lumiq.plugin/VERSION", *version + "\n");
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
    if (!fs::exists(folder))
        return true;
    for (const auto& entry : fs::directory_iterator(folder))
        if (entry.path().filename() != "Lumiq.plugin")
            return false;
    return true;
}

std::string PayloadFixture::readFile(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void PayloadFixture::writeFile(const fs::path& file, const std::string& bytes) {
    std::ofstream(file, std::ios::binary) << bytes;
}
