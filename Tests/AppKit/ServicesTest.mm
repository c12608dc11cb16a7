#include "Core/InstallRun.h"
#include "Platform/AppKit/AdministratorScript.h"
#include "Platform/AppKit/Conversions.h"
#include "Platform/AppKit/Environment.h"
#include "Platform/AppKit/Handler.h"
#include "Platform/AppKit/SystemLog.h"
#include "Platform/AppKit/Workspace.h"

#include <gtest/gtest.h>
#include <objc/runtime.h>

#include <cstdlib>
#include <thread>
#include <vector>

namespace {

/// What the workspace was asked for.
std::vector<std::string> requests;

} // namespace

/// Has the methods of a workspace that only records.
@interface RecordingWorkspace : NSObject
- (BOOL)selectFile:(NSString*)path inFileViewerRootedAtPath:(NSString*)root;
- (BOOL)openURL:(NSURL*)address;
@end

@implementation RecordingWorkspace

- (BOOL)selectFile:(NSString*)path inFileViewerRootedAtPath:(NSString*)root {
    const std::string place = root == nil ? "nothing" : "[" + Vexora::toUtf8(root) + "]";
    requests.push_back("select " + Vexora::toUtf8(path) + " under " + place);
    return NO;
}

- (BOOL)openURL:(NSURL*)address {
    requests.push_back("open " + Vexora::toUtf8([address absoluteString]));
    return NO;
}

@end

namespace AppKitTest {

/// The real service on a workspace that only records.
class Workspace : public testing::Test {
protected:
    Workspace() {
        requests.clear();
        exchangeMethods();
    }
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    ~Workspace() override { exchangeMethods(); }

    Vexora::AutoreleaseScope scope;
    Vexora::AppKitWorkspace workspace;

private:
    static void exchangeMethods() {
        for (SEL selector :
             { @selector(selectFile:inFileViewerRootedAtPath:), @selector(openURL:) }) {
            method_exchangeImplementations(
                class_getInstanceMethod([NSWorkspace class], selector),
                class_getInstanceMethod([RecordingWorkspace class], selector));
        }
    }
};

TEST_F(Workspace, selectsTheFileWithAnEmptyRoot) {
    workspace.selectFile("/home/Größe ホーム/a log.txt");
    EXPECT_EQ(requests, std::vector<std::string>{"select /home/Größe ホーム/a log.txt under []"});
}

TEST_F(Workspace, opensTheAddress) {
    workspace.openUrl(TROUBLESHOOTING_URL);
    EXPECT_EQ(requests, std::vector<std::string>{"open " TROUBLESHOOTING_URL});
}

class Environment : public testing::Test {
protected:
    Vexora::AutoreleaseScope scope;
    Vexora::AppKitEnvironment environment;
};

TEST_F(Environment, resourcesLieInTheBundle) {
    EXPECT_EQ(environment.resourcePath(), TEST_BUNDLE "/Contents/Resources");
}

TEST_F(Environment, homeIsThePersons) {
    EXPECT_EQ(environment.homeDirectory(), std::getenv("HOME"));
}

TEST_F(Environment, localeIsTheDesktops) {
    ASSERT_STREQ(std::getenv("LANG"), "pt_BR.UTF-8");
    EXPECT_EQ(environment.localeIdentifier(), "pt_BR");
}

TEST_F(Environment, answersOnOtherThreads) {
    std::string resources;
    std::string locale;
    std::thread([&] {
        resources = environment.resourcePath();
        locale = environment.localeIdentifier();
    }).join();
    EXPECT_EQ(resources, environment.resourcePath());
    EXPECT_EQ(locale, environment.localeIdentifier());
}

class SystemLog : public testing::Test {
protected:
    /// What the system's log takes in for a line.
    static std::string logged(const std::string& line) {
        testing::internal::CaptureStderr();
        Vexora::AppKitSystemLog().log(line);
        return testing::internal::GetCapturedStderr();
    }

    Vexora::AutoreleaseScope scope;
};

TEST_F(SystemLog, writesOneLine) {
    const std::string text = logged("Failed to open install log: /Größe/ホーム.log");
    EXPECT_TRUE(text.ends_with("Failed to open install log: /Größe/ホーム.log\n")) << text;
    EXPECT_EQ(text.find('\n'), text.size() - 1);
}

TEST_F(SystemLog, takesALineAsItIs) {
    EXPECT_TRUE(logged("100 %@ %s %d").ends_with("100 %@ %s %d\n"));
}

TEST_F(SystemLog, takesLinesFromOtherThreads) {
    testing::internal::CaptureStderr();
    std::thread([] { Vexora::AppKitSystemLog().log("from a thread"); }).join();
    EXPECT_TRUE(testing::internal::GetCapturedStderr().ends_with("from a thread\n"));
}

TEST(Handler, callsItsFunctionEachTime) {
    const Vexora::AutoreleaseScope scope;
    int calls = 0;
    const auto handler = Vexora::makeHandler([&calls] { ++calls; });
    [handler.get() handle:nil];
    [handler.get() performSelector:@selector(handle:) withObject:handler.get()];
    EXPECT_EQ(calls, 2);
}

TEST(Handler, letsGoOfItsFunctionWithItself) {
    const Vexora::AutoreleaseScope scope;
    const auto held = std::make_shared<int>(1);
    {
        const auto handler = Vexora::makeHandler([held] {});
        EXPECT_EQ(held.use_count(), 2);
    }
    EXPECT_EQ(held.use_count(), 1);
}

TEST(AdministratorScript, runsNothingWhereTheSystemHasNoScripts) {
    Vexora::AppKitAdministratorScript script;
    EXPECT_FALSE(script.execute(Vexora::administratorScriptSource("/opt/setup")));
    EXPECT_FALSE(script.execute(""));
}

} // namespace AppKitTest
