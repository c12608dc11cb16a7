#include "Backend/Fixture.h"

#include "Support/Translations.h"

#include <kvparser.h>

#include <algorithm>
#include <stdexcept>

namespace BackendTest {
namespace {

/// Every control that a definition names.
const Names controls{
    "lumiqLogo",    "licenseLabel",      "startLabel",      "startButton",
    "installLabel", "closeButton",       "installProgress", "licenseAgreementLabel",
    "backButton",   "licenseText",       "closeIcon",       "failLabel",
    "logLabel",     "troubleshootButton"};

FrontEnd::Widget* widgetOf(const Vexora::View& view) {
    const auto* owner = dynamic_cast<const Vexora::WidgetOwner*>(&view);
    return owner == nullptr ? nullptr : owner->widget();
}

} // namespace

std::function<void()> HeldMainQueue::held(std::function<void()> block) {
    const auto kept = std::make_shared<std::function<void()>>(std::move(block));
    blocks_.push_back(kept);
    const std::weak_ptr<std::function<void()>> reference = kept;
    return [reference] {
        if (const auto alive = reference.lock()) {
            (*alive)();
        }
    };
}

Fixture::Fixture() {
    TestSupport::forgetTranslations();
    environment.home = home.path().string();
    environment.resources = STAGED_RESOURCES;
    substitutes.administratorScript.succeeds = false;
}

Fixture::~Fixture() {
    TestSupport::forgetTranslations();
}

void Fixture::openWindow(Vexora::Platform& parts) {
    content = std::make_shared<Vexora::ViewController>(parts);
    content->view();
    application.mainWindow().setContent(widgetOf(*content));
    frontEnd.show();
    delegate.applicationDidFinishLaunching();
    ASSERT_TRUE(FrontEnd::waitFor([this] { return frontEnd.hasKeyboard(); }));
    FrontEnd::settle();
}

void Fixture::enter(State state) {
    openWindow();
    if (state == State::LicenseOnStart) {
        content->switchToLicenseView();
    }
    if (state != State::Start && state != State::LicenseOnStart) {
        click("startButton");
    }
    if (state == State::LicenseOnInstall || state == State::LicenseOnFailure) {
        content->switchToLicenseView();
    }
    if (state == State::Success) {
        endInstall(0);
    } else if (state == State::Failure || state == State::LicenseOnFailure) {
        endInstall(30);
    } else if (state == State::Notice) {
        endInstall(5);
    }
    FrontEnd::settle();
}

void Fixture::endInstall(int status) {
    substitutes.endInstall(status);
    if (status == 0) {
        const std::string done = translation("Installation completed!");
        ASSERT_TRUE(FrontEnd::waitFor([&] { return text("installLabel") == done; }));
    }
    FrontEnd::settle();
}

std::string Fixture::translation(const std::string& identifier) const {
    VXLOCAL::KVParser catalogue("Localizable.strings");
    catalogue.setLocaleDir(environment.resources + "/" + environment.locale.substr(0, 2) +
                           ".lproj");
    catalogue.parse();
    return catalogue.getMessage(identifier);
}

MarkedText Fixture::markedTranslation(const std::string& identifier, const std::string& tag) const {
    const std::string text = translation(identifier);
    const std::string closing = std::string(tag).insert(1, "/");
    const std::size_t start = text.find(tag);
    const std::size_t end = text.find(closing);
    if (start >= end || end == std::string::npos) {
        throw std::invalid_argument(text);
    }
    const std::size_t marked = start + tag.size();
    return {text.substr(0, start), text.substr(marked, end - marked),
            text.substr(end + closing.size())};
}

Fixture::Widget* Fixture::widgetOf(Vexora::InterfaceController& controller) {
    return BackendTest::widgetOf(*controller.view());
}

Fixture::Widget* Fixture::find(const std::string& name) const {
    if (!content) {
        return nullptr;
    }
    Widget* found = BackendTest::widgetOf(*content->outlet<Vexora::View>(name));
    for (const auto& screen : content->childViewControllers()) {
        if (found == nullptr) {
            found = BackendTest::widgetOf(*screen->outlet<Vexora::View>(name));
        }
    }
    return found != nullptr && frontEnd.holds(found) ? found : nullptr;
}

Fixture::Widget* Fixture::get(const std::string& name) const {
    Widget* const found = find(name);
    if (found == nullptr) {
        throw std::out_of_range("the window holds no " + name);
    }
    return found;
}

std::string Fixture::nameOf(const Widget* widget) const {
    for (const std::string& name : controls) {
        const Widget* const named = find(name);
        if (widget != nullptr && named != nullptr && FrontEnd::isWithin(widget, named)) {
            return name;
        }
    }
    return {};
}

bool Fixture::shows(const std::string& name) const {
    const Widget* const widget = find(name);
    return widget != nullptr && FrontEnd::shows(widget);
}

double Fixture::opacity(const std::string& name) const {
    return shows(name) ? FrontEnd::opacity(get(name)) : 0.0;
}

Names Fixture::visible() const {
    Names names;
    std::copy_if(controls.begin(), controls.end(), std::back_inserter(names),
                 [this](const std::string& name) { return shows(name); });
    return names;
}

Names Fixture::usable() const {
    Names names = visible();
    std::erase_if(names,
                  [this](const std::string& name) { return !FrontEnd::isUsable(get(name)); });
    return names;
}

void Fixture::hold(Key key) {
    for (int times = 0; times < 3; ++times) {
        frontEnd.press(key, true);
    }
}

void Fixture::tabTo(const std::string& name) {
    for (int steps = 0; focused() != name && steps < 10; ++steps) {
        press(Key::Tab);
    }
    ASSERT_EQ(focused(), name);
}

void Fixture::leaveLicense(Key key) {
    press(key);
    EXPECT_TRUE(FrontEnd::waitFor([this] { return find("backButton") == nullptr; }));
    FrontEnd::settle();
}

void Fixture::expectWholeAndApart() const {
    const Names names = visible();
    EXPECT_FALSE(names.empty());
    for (auto name = names.begin(); name != names.end(); ++name) {
        EXPECT_TRUE(frontEnd.area().contains(place(*name)))
            << *name << " at " << testing::PrintToString(place(*name));
        EXPECT_TRUE(FrontEnd::isWhole(find(*name))) << *name;
        for (auto other = std::next(name); other != names.end(); ++other) {
            EXPECT_FALSE(place(*name).meets(place(*other))) << *name << " and " << *other;
        }
    }
}

std::string stateName(State state) {
    switch (state) {
    case State::Start:
        return "start";
    case State::Install:
        return "install";
    case State::Success:
        return "success";
    case State::Failure:
        return "failure";
    case State::Notice:
        return "notice";
    case State::LicenseOnStart:
        return "licenseOnStart";
    case State::LicenseOnInstall:
        return "licenseOnInstall";
    case State::LicenseOnFailure:
        return "licenseOnFailure";
    }
    return {};
}

void PrintTo(State state, std::ostream* stream) {
    *stream << stateName(state);
}

std::string languageName(const testing::TestParamInfo<std::string>& info) {
    return info.param;
}

std::string nameOfState(const testing::TestParamInfo<State>& info) {
    return stateName(info.param);
}

std::string stateAndLanguageName(const testing::TestParamInfo<StateAndLanguage>& info) {
    return stateName(std::get<0>(info.param)) + "_" + std::get<1>(info.param);
}

Names usableIn(State state) {
    switch (state) {
    case State::Start:
        return {"startButton", "licenseLabel"};
    case State::Install:
    case State::Success:
        return {"closeButton", "licenseLabel"};
    case State::Failure:
    case State::Notice:
    case State::LicenseOnFailure:
        return {"logLabel", "troubleshootButton", "closeButton"};
    case State::LicenseOnStart:
    case State::LicenseOnInstall:
        return {"licenseText", "backButton"};
    }
    return {};
}

} // namespace BackendTest
