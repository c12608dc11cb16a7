#include "Backend/Fixture.h"

namespace AppKitTest {

using BackendTest::FrontEnd;
using BackendTest::Names;

class InterfaceLoader : public BackendTest::Fixture {
protected:
    InterfaceLoader() { environment.resources = resources.path().string(); }

    Vexora::Interface load(const std::string& definition) {
        resources.write("Interface/Screen.json", definition);
        return interfaces.load("Screen");
    }

    static NSView* widgetOf(const Vexora::View& view) {
        return dynamic_cast<const Vexora::WidgetOwner&>(view).widget();
    }

    static void expectEmpty(const Vexora::Interface& loaded) {
        ASSERT_TRUE(loaded.view);
        EXPECT_TRUE(loaded.outlets.empty());
        EXPECT_TRUE(loaded.actions.empty());
        EXPECT_TRUE(loaded.view->subviews().empty());
        EXPECT_EQ([[widgetOf(*loaded.view) subviews] count], 0U);
    }

    /// The definition of one picture of that name.
    static std::string picture(const std::string& imageName) {
        return R"({"frame": [0, 0, 100, 100], "opaque": true, "controls": [
                   {"name": "image", "class": "NSImageView", "frame": [10, 10, 32, 32],
                    "imageName": ")" +
               imageName + R"("}]})";
    }

    /// How many colours the window shows for a definition.
    std::size_t colorsOf(const std::string& definition) {
        const Vexora::Interface loaded = load(definition);
        application.mainWindow().setContent(widgetOf(*loaded.view));
        [frontEnd.window() orderFront:nil];
        FrontEnd::settle();
        return FrontEnd::picture([frontEnd.window() contentView]).colors();
    }

    TestSupport::TemporaryFolder resources;
};

TEST_F(InterfaceLoader, givesAnEmptyViewWithoutADefinition) {
    expectEmpty(interfaces.load("Missing"));
    expectEmpty(interfaces.load(""));
    environment.resources = "/missing/Größe";
    expectEmpty(interfaces.load("Screen"));
}

TEST_F(InterfaceLoader, givesAnEmptyViewForWhatIsNoDefinition) {
    for (const char* text : {"", "{", "[1, 2, 3]", "\"text\"", "{\"frame\": [0, 0", "null", "{}",
                             "\xff\xfe", "{\"controls\": []}"}) {
        SCOPED_TRACE(text);
        expectEmpty(load(text));
    }
}

TEST_F(InterfaceLoader, leavesOutControlsOfAClassThatItDoesNotKnow) {
    const Vexora::Interface loaded = load(
        R"({"frame": [0, 0, 200, 100], "contentArea": "dial", "initialFocus": "dial", "controls": [
            {"name": "dial", "class": "NSStepper", "frame": [0, 0, 10, 10], "action": "turn"},
            {"name": "text", "class": "NSTextField", "frame": [0, 20, 100, 20], "buddy": "dial"},
            {"name": "none", "frame": [0, 0, 10, 10], "buddy": "text"}]})");
    EXPECT_EQ(loaded.outlets.size(), 1U);
    EXPECT_EQ(loaded.outlets.count("text"), 1U);
    EXPECT_TRUE(loaded.actions.empty());
    EXPECT_EQ([[widgetOf(*loaded.view) subviews] count], 1U);
}

TEST_F(InterfaceLoader, makesEveryKindOfControlInOrder) {
    const Vexora::Interface loaded = load(
        R"({"frame": [0, 0, 300, 200], "controls": [
            {"name": "area", "class": "NSView", "frame": [1, 2, 30, 40]},
            {"name": "text", "class": "NSTextField", "frame": [2, 2, 30, 40], "fontSize": 13},
            {"name": "button", "class": "NSButton", "frame": [3, 2, 90, 30], "action": "press"},
            {"name": "image", "class": "NSImageView", "frame": [4, 2, 30, 40]},
            {"name": "bar", "class": "NSProgressIndicator", "frame": [5, 2, 30, 20]},
            {"name": "scroll", "class": "NSScrollView", "frame": [6, 2, 30, 40]}]})");
    const auto is = [&loaded]<class Kind>(const char* name, const Kind*) {
        return std::dynamic_pointer_cast<Kind>(loaded.outlets.at(name)) != nullptr;
    };
    EXPECT_TRUE(is("area", static_cast<Vexora::AppKitView*>(nullptr)));
    EXPECT_TRUE(is("text", static_cast<Vexora::AppKitTextField*>(nullptr)));
    EXPECT_TRUE(is("button", static_cast<Vexora::AppKitButton*>(nullptr)));
    EXPECT_TRUE(is("image", static_cast<Vexora::AppKitImageView*>(nullptr)));
    EXPECT_TRUE(is("bar", static_cast<Vexora::AppKitProgressIndicator*>(nullptr)));
    EXPECT_TRUE(is("scroll", static_cast<Vexora::AppKitScrollView*>(nullptr)));
    const Names names{"area", "text", "button", "image", "bar", "scroll"};
    NSArray* const widgets = [widgetOf(*loaded.view) subviews];
    ASSERT_EQ([widgets count], names.size());
    for (NSUInteger index = 0; index < names.size(); ++index) {
        EXPECT_EQ(NSMinX([[widgets objectAtIndex:index] frame]), double(index + 1));
        EXPECT_EQ(loaded.view->subviews()[index], loaded.outlets.at(names[index]));
    }
    ASSERT_EQ(loaded.actions.size(), 1U);
    EXPECT_EQ(loaded.actions.front().first, "press");
    EXPECT_EQ(loaded.actions.front().second, loaded.outlets.at("button"));
    EXPECT_EQ(
        std::dynamic_pointer_cast<Vexora::ProgressIndicator>(loaded.outlets.at("bar"))->maxValue(),
        100.0);
}

TEST_F(InterfaceLoader, showsTheStagedPictures) {
    for (const char* name : {"lumiqLogo", "closeIcon"}) {
        for (const char* scale : {"", "@2x"}) {
            const std::string file = std::string(name) + scale + ".png";
            std::filesystem::copy(std::filesystem::path(STAGED_RESOURCES) / file,
                                  resources.path() / file);
        }
        EXPECT_GT(colorsOf(picture(name)), 20U) << name;
    }
}

TEST_F(InterfaceLoader, leavesThePlaceOfAMissingPictureEmpty) {
    EXPECT_EQ(colorsOf(picture("missing")), 1U);
}

TEST_F(InterfaceLoader, leavesThePlaceOfABrokenPictureEmpty) {
    resources.write("broken.png", "\x89PNG\r\n\x1a\nno picture");
    EXPECT_EQ(colorsOf(picture("broken")), 1U);
}

TEST_F(InterfaceLoader, makesATextAreaOfTheSize) {
    const auto text = interfaces.makeTextView({321.0, 123.0});
    EXPECT_TRUE(NSEqualRects([widgetOf(*text) frame], NSMakeRect(0.0, 0.0, 321.0, 123.0)));
}

} // namespace AppKitTest
