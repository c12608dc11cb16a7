#include "ScreenFixture.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>

using namespace ScreenTest;

namespace {

using Names = std::set<std::string>;

/// The actions that a definition names, whichever toolkit it is for.
Names actionsIn(const std::filesystem::path& definition) {
    static const std::regex pattern(R"re("action"(?: stdset="0"><string notr="true">|: ")(\w+))re");
    std::ifstream stream(definition);
    const std::string text(std::istreambuf_iterator<char>(stream), {});
    Names names;
    for (std::sregex_iterator found(text.begin(), text.end(), pattern), end; found != end;
         ++found) {
        names.insert(found->str(1));
    }
    return names;
}

class Definitions : public ScreenFixture {
protected:
    /// The actions of the controller that has a definition of that name.
    Names actionsOf(const std::string& definition) {
        const std::map<std::string, std::shared_ptr<Vexora::InterfaceController>> controllers{
            {"ViewController", window},
            {"StartViewController", window->startView()},
            {"InstallViewController", window->installView()},
            {"LicenseViewController", window->licenseView()},
            {"FailViewController", window->failView()}};
        Names names;
        for (const auto& [name, action] : controllers.at(definition)->actions()) {
            names.insert(name);
        }
        return names;
    }
};

TEST_F(Definitions, nameTheActionsOfTheirControllersAndNoOthers) {
    openWindow();
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(INTERFACE_DEFINITIONS)) {
        EXPECT_EQ(actionsIn(entry.path()), actionsOf(entry.path().stem())) << entry.path();
        ++count;
    }
    EXPECT_EQ(count, 10U);
}

} // namespace
