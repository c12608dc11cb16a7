#include "Platform/Posix/Environment.h"

#include "Platform/Posix/FileSystem.h"
#include "Platform/Posix/ProcessLauncher.h"
#include "Support/TemporaryFolder.h"

#include <pwd.h>
#include <stdlib.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <optional>
#include <system_error>

namespace fs = std::filesystem;
using TestSupport::TemporaryFolder;

namespace {

/// Sets environment variables, or removes them, and puts the former values back.
class ScopedEnvironment {
public:
    explicit ScopedEnvironment(const std::map<std::string, std::optional<std::string>>& values) {
        for (const auto& [name, value] : values) {
            const char* former = ::getenv(name.c_str());
            former_[name] = former ? std::optional<std::string>(former) : std::nullopt;
            set(name, value);
        }
    }
    ScopedEnvironment(const ScopedEnvironment&) = delete;
    ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;
    ~ScopedEnvironment() {
        for (const auto& [name, value] : former_) {
            set(name, value);
        }
    }

private:
    static void set(const std::string& name, const std::optional<std::string>& value) {
        value ? ::setenv(name.c_str(), value->c_str(), 1) : ::unsetenv(name.c_str());
    }

    std::map<std::string, std::optional<std::string>> former_;
};

std::string homeFor(const std::optional<std::string>& value) {
    const ScopedEnvironment environment({{"HOME", value}});
    return Vexora::PosixEnvironment().homeDirectory();
}

std::string localeFor(const std::optional<std::string>& all,
                      const std::optional<std::string>& messages,
                      const std::optional<std::string>& language) {
    const ScopedEnvironment environment(
        {{"LC_ALL", all}, {"LC_MESSAGES", messages}, {"LANG", language}});
    return Vexora::PosixEnvironment().localeIdentifier();
}

/// What the helper program at that path finds as its resource directory.
std::string resourcePathOf(const fs::path& program, const TemporaryFolder& folder) {
    Vexora::PosixFileSystem files;
    const std::string output = folder.write("output", "");
    EXPECT_EQ(Vexora::PosixProcessLauncher()
                  .launchProcess(program, {"resource-path"},
                                 files.fileHandleForWritingAtPath(output).get())
                  ->waitUntilExit(),
              0);
    return folder.read("output");
}

const fs::path helper = PROCESS_HELPER;

} // namespace

TEST(PosixEnvironment, homeIsTheVariable) {
    EXPECT_EQ(homeFor("/home/ann"), "/home/ann");
    EXPECT_EQ(homeFor("/home/J\u00f8rn M\u00fcller"), "/home/J\u00f8rn M\u00fcller");
}

TEST(PosixEnvironment, homeHasNoTrailingSlash) {
    EXPECT_EQ(homeFor("/home/ann/"), "/home/ann");
    EXPECT_EQ(homeFor("/home/ann//"), "/home/ann");
    EXPECT_EQ(homeFor("/"), "");
}

TEST(PosixEnvironment, withoutAUsableVariableHomeIsThatOfTheUserDatabase) {
    const struct passwd* entry = ::getpwuid(::getuid());
    ASSERT_NE(entry, nullptr);
    const std::string registered = entry->pw_dir;
    EXPECT_EQ(homeFor(std::nullopt), registered);
    EXPECT_EQ(homeFor(""), registered);
    EXPECT_EQ(homeFor("relative/folder"), registered);
}

TEST(PosixEnvironment, theFirstVariableThatIsNotEmptyGivesTheLocale) {
    EXPECT_EQ(localeFor("de_DE", "ar_EG", "ja_JP"), "de_DE");
    EXPECT_EQ(localeFor(std::nullopt, "ar_EG", "ja_JP"), "ar_EG");
    EXPECT_EQ(localeFor("", "ar_EG", "ja_JP"), "ar_EG");
    EXPECT_EQ(localeFor(std::nullopt, std::nullopt, "ja_JP"), "ja_JP");
    EXPECT_EQ(localeFor("", "", "ja_JP"), "ja_JP");
}

TEST(PosixEnvironment, theListOfPreferredLanguagesHasNoInfluenceOnTheLocale) {
    const std::map<std::string, std::optional<std::string>> preferred{{"LANGUAGE", "fr:de"}};
    const ScopedEnvironment environment(preferred);
    EXPECT_EQ(localeFor({}, {}, "ja_JP"), "ja_JP");
    EXPECT_EQ(localeFor("de_CH", {}, {}), "de_CH");
    const std::string unset = localeFor({}, {}, {});
    EXPECT_NE(unset.substr(0, 2), "fr");
}

TEST(PosixEnvironment, theLocaleHasNoEncodingAndNoModifier) {
    EXPECT_EQ(localeFor("de_DE.UTF-8", {}, {}), "de_DE");
    EXPECT_EQ(localeFor("de_DE@euro", {}, {}), "de_DE");
    EXPECT_EQ(localeFor("de_DE.ISO-8859-15@euro", {}, {}), "de_DE");
    EXPECT_EQ(localeFor("sr_RS@latin.UTF-8", {}, {}), "sr_RS");
    EXPECT_EQ(localeFor("zh-Hans_CN", {}, {}), "zh-Hans_CN");
}

TEST(PosixEnvironment, theLocaleOfTheSystemItselfIsAmericanEnglish) {
    EXPECT_EQ(localeFor({}, {}, {}), "en_US");
    EXPECT_EQ(localeFor("", "", ""), "en_US");
    EXPECT_EQ(localeFor("C", {}, {}), "en_US");
    EXPECT_EQ(localeFor("POSIX", {}, {}), "en_US");
    EXPECT_EQ(localeFor("C.UTF-8", {}, {}), "en_US");
    EXPECT_EQ(localeFor("C", "de_DE", "ja_JP"), "en_US");
}

TEST(PosixEnvironment, shortAndStrangeLocalesAreKept) {
    EXPECT_EQ(localeFor("x", {}, {}), "x");
    EXPECT_EQ(localeFor(".UTF-8", {}, {}), "");
    EXPECT_EQ(localeFor("EN_gb", {}, {}), "EN_gb");
    EXPECT_EQ(localeFor("c", {}, {}), "c");
}

TEST(PosixEnvironment, resourcesLieBesideTheExecutable) {
    EXPECT_EQ(Vexora::PosixEnvironment().resourcePath(),
              fs::canonical("/proc/self/exe").parent_path() / "Resources");
    EXPECT_EQ(Vexora::resourcePathBeside("/opt/Vexora Lumiq/setup"), "/opt/Vexora Lumiq/Resources");
}

TEST(PosixEnvironment, resourcesOfAnExecutableInTheRootFolder) {
    EXPECT_EQ(Vexora::resourcePathBeside("/setup"), "/Resources");
}

TEST(PosixEnvironment, tellsWhyThereIsNoExecutable) {
    const TemporaryFolder folder;
    const std::pair<std::string, std::string> reasons[] = {
        {folder.path() / "missing", "No such file or directory"},
        {folder.path() / std::string(300, 'x'), "File name too long"},
        {folder.write("file", ""), "Invalid argument"}};
    for (const auto& [link, reason] : reasons) {
        try {
            const std::string found = Vexora::executableBehind(link);
            ADD_FAILURE() << found;
        } catch (const std::system_error& error) {
            EXPECT_EQ(error.what(), "Cannot find the executable: " + reason);
        }
    }
    fs::create_symlink("/opt/" + std::string(4000, 'x'), folder.path() / "long");
    EXPECT_EQ(Vexora::executableBehind(folder.path() / "long").size(), 4005U);
}

TEST(PosixEnvironment, resourcesAreFoundThroughTheRealPath) {
    const TemporaryFolder folder;
    fs::create_symlink(helper, folder.path() / "link");
    EXPECT_EQ(resourcePathOf(folder.path() / "link", folder),
              fs::canonical(helper).parent_path() / "Resources");
}

TEST(PosixEnvironment, resourcesMoveWithTheExecutable) {
    const TemporaryFolder folder;
    const fs::path first = folder.path() / "first";
    fs::create_directory(first);
    fs::copy_file(helper, first / "program");
    const fs::path real = fs::canonical(folder.path());
    EXPECT_EQ(resourcePathOf(first / "program", folder), real / "first/Resources");
    const fs::path second = folder.path() / "J\u00f8rns \"zweiter\" Ordner";
    fs::rename(first, second);
    EXPECT_EQ(resourcePathOf(second / "program", folder),
              real / "J\u00f8rns \"zweiter\" Ordner/Resources");
}
