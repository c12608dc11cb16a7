#include "AppKit/AppKitFixture.h"

#include "Support/Translations.h"

#include <kvparser.h>

#include <stdexcept>

namespace AppKitTest {
namespace {

const Names outletNames{"lumiqLogo",   "containerView",      "licenseLabel",
                        "startLabel",  "startButton",        "installLabel",
                        "closeButton", "installProgress",    "licenseAgreementLabel",
                        "backButton",  "licenseText",        "closeIcon",
                        "failLabel",   "troubleshootButton", "logLabel"};

/// The widget behind an outlet; null while the controller has none of that name.
NSView* widgetOf(const Vexora::InterfaceController& controller, const std::string& name) {
    const auto view = controller.outlet<Vexora::View>(name);
    const auto* owner = dynamic_cast<const Vexora::WidgetOwner*>(view.get());
    return owner == nullptr ? nil : owner->widget();
}

bool doesSomething(NSView* view) {
    VexoraTextLabel* const label = Vexora::as<VexoraTextLabel>(view);
    return label != nil
               ? [label isClickable]
               : Vexora::as<NSButton>(view) != nil || Vexora::as<NSScrollView>(view) != nil;
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

AppKitFixture::AppKitFixture() {
    TestSupport::forgetTranslations();
    environment.home = home.path().string();
    environment.resources = STAGED_RESOURCES;
    administratorScript.succeeds = false;
}

AppKitFixture::~AppKitFixture() {
    TestSupport::forgetTranslations();
}

void AppKitFixture::useLanguage(const std::string& code) {
    environment.locale = code + "_XX";
}

void AppKitFixture::openWindow() {
    content = std::make_shared<Vexora::ViewController>(platform);
    content->view();
    application.mainWindow().setContent(paneOf(*content));
    [window() makeKeyAndOrderFront:nil];
    delegate.applicationDidFinishLaunching();
    ASSERT_TRUE(waitFor([this] { return [window() isKeyWindow]; }));
    settle();
}

void AppKitFixture::enter(State state) {
    openWindow();
    if (state == State::LicenseOnStart) {
        content->switchToLicenseView();
    }
    if (state == State::Start || state == State::LicenseOnStart) {
        settle();
        return;
    }
    click("startButton");
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
    settle();
}

void AppKitFixture::endInstall(int status) {
    processes.scripts = {{.polls = 0, .status = status}};
    backgroundQueue.runNext();
    if (status == 0) {
        const std::string done = translation("Installation completed!");
        ASSERT_TRUE(waitFor([&] { return textOf("installLabel") == done; }));
    }
    settle();
}

std::string AppKitFixture::translation(const std::string& identifier) const {
    VXLOCAL::KVParser catalogue("Localizable.strings");
    catalogue.setLocaleDir(environment.resources + "/" + environment.locale.substr(0, 2) +
                           ".lproj");
    catalogue.parse();
    return catalogue.getMessage(identifier);
}

MarkedText AppKitFixture::markedTranslation(const std::string& identifier,
                                            const std::string& tag) const {
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

VexoraPane* AppKitFixture::paneOf(Vexora::InterfaceController& controller) {
    const auto* owner = dynamic_cast<const Vexora::WidgetOwner*>(controller.view().get());
    return owner == nullptr ? nil : Vexora::as<VexoraPane>(owner->widget());
}

NSView* AppKitFixture::find(const std::string& name) const {
    if (!content) {
        return nil;
    }
    NSView* found = widgetOf(*content, name);
    for (const auto& screen : content->childViewControllers()) {
        found = found == nil ? widgetOf(*screen, name) : found;
    }
    return [found window] == nil ? nil : found;
}

bool AppKitFixture::isVisible(const std::string& name) const {
    NSView* const view = find(name);
    return view != nil && ![view isHiddenOrHasHiddenAncestor];
}

Names AppKitFixture::usableControls() const {
    Names usable;
    for (const std::string& name : outletNames) {
        if (isVisible(name) && doesSomething(find(name))) {
            usable.push_back(name);
        }
    }
    return usable;
}

std::string AppKitFixture::nameOf(NSResponder* responder) const {
    NSView* const view = Vexora::as<NSView>(responder);
    for (const std::string& name : outletNames) {
        NSView* const named = find(name);
        if (view != nil && named != nil && name != "containerView" && [view isDescendantOf:named]) {
            return name;
        }
    }
    return {};
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

} // namespace AppKitTest
