#include "Backend/Fixture.h"
#include "Platform/AppKit/Conversions.h"
#include "Platform/AppKit/Pane.h"

#include <map>

namespace AppKitTest {

using BackendTest::FrontEnd;
using BackendTest::HeldMainQueue;
using BackendTest::Key;
using BackendTest::State;

/// Counts the objects that are there, by their classes.
class Memory : public BackendTest::Fixture {
protected:
    using Counts = std::map<std::string, int>;

    Memory() { countedBefore_ = GSDebugAllocationActive(YES); }
    Memory(const Memory&) = delete;
    Memory& operator=(const Memory&) = delete;
    ~Memory() override { GSDebugAllocationActive(countedBefore_); }

    static Counts counts() {
        Counts found;
        for (const char* name :
             {"VexoraPane", "VexoraTextLabel", "VexoraButton", "VexoraPicture", "VexoraHandler",
              "VexoraTextView", "NSScrollView", "VexoraBar", "VexoraCheckMark", "NSImage",
              "GSTextStorage", "NSLayoutManager", "NSTextContainer", "NSBitmapImageRep"}) {
            found[name] = GSDebugAllocationCount(NSClassFromString(Vexora::toNSString(name)));
        }
        return found;
    }

    /// Lets everything go that waits for the event loop to do so.
    static void settleAll() {
        for (int times = 0; times < 3; ++times) {
            FrontEnd::settle();
        }
    }

    /// Goes through every screen and lets go of all of them.
    void visitEveryScreen() {
        const Vexora::AutoreleaseScope inner;
        enter(State::Success);
        const int marks = counts().at("VexoraCheckMark");
        content.reset();
        mainQueue = HeldMainQueue();
        enter(State::LicenseOnFailure);
        for (const auto& [name, count] : counts()) {
            EXPECT_GT(name == "VexoraCheckMark" ? marks : count, 0) << name;
        }
        content->licenseView()->backAction();
        settleAll();
        controllers = {content, content->startView(), content->installView(),
                       content->licenseView(), content->failView()};
        content.reset();
        mainQueue = HeldMainQueue();
    }

    std::vector<std::weak_ptr<Vexora::InterfaceController>> controllers;

private:
    BOOL countedBefore_ = NO;
};

TEST_F(Memory, countsWhatIsThere) {
    const Counts before = counts();
    const auto pane = Vexora::adopt<VexoraPane>([[VexoraPane alloc] init]);
    EXPECT_EQ(counts().at("VexoraPane"), before.at("VexoraPane") + 1);
}

TEST_F(Memory, ofEveryScreenIsGivenBackWithTheContent) {
    visitEveryScreen();
    settleAll();
    const Counts before = counts();
    visitEveryScreen();
    settleAll();
    EXPECT_EQ(controllers.size(), 5U);
    for (const auto& controller : controllers) {
        EXPECT_TRUE(controller.expired());
    }
    EXPECT_EQ(counts(), before);
    // The window keeps its own pane.
    EXPECT_EQ(counts().at("VexoraPane"), 0);
    EXPECT_EQ([[[frontEnd.window() contentView] subviews] count], 0U);
}

TEST_F(Memory, isNotTakenByOpeningTheLicenseAgain) {
    enter(State::Success);
    const auto visitLicense = [this] {
        const Vexora::AutoreleaseScope inner;
        content->switchToLicenseView();
        FrontEnd::settle();
        press(Key::Escape);
    };
    visitLicense();
    const Counts before = counts();
    for (int times = 0; times < 50; ++times) {
        visitLicense();
    }
    EXPECT_EQ(find("backButton"), nullptr);
    EXPECT_EQ(counts(), before);
}

TEST_F(Memory, isNotTakenByBlocksThatHaveRun) {
    Vexora::AppKitMainQueue queue;
    const auto held = std::make_shared<int>(0);
    settleAll();
    const Counts before = counts();
    {
        const Vexora::AutoreleaseScope inner;
        for (int times = 0; times < 1000; ++times) {
            queue.async([&, held] { ++*held; });
            queue.after(0.0001, [&, held] { ++*held; });
        }
        EXPECT_GE(counts().at("VexoraHandler"), before.at("VexoraHandler") + 2000);
        ASSERT_TRUE(FrontEnd::waitFor([&] { return *held == 2000; }));
        settleAll();
    }
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_EQ(counts(), before);
}

TEST_F(Memory, isNotTakenByTextsSetAgain) {
    openWindow();
    const auto setTexts = [this] {
        const Vexora::AutoreleaseScope inner;
        content->retranslate();
        content->startView()->retranslate();
        settleAll();
    };
    setTexts();
    const Counts before = counts();
    for (int times = 0; times < 20; ++times) {
        setTexts();
    }
    EXPECT_EQ(counts(), before);
}

} // namespace AppKitTest
