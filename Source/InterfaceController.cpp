#include "InterfaceController.h"

namespace Vexora {

InterfaceController::InterfaceController(Platform& platform, std::string interfaceName)
    : platform_(platform), interfaceName_(std::move(interfaceName)) {}

InterfaceController::~InterfaceController() {
    for (const auto& child : children_) {
        child->parent_ = nullptr;
    }
}

const std::shared_ptr<View>& InterfaceController::view() {
    if (!isViewLoaded()) {
        Interface loaded = platform_.interfaces.load(interfaceName_);
        loaded.outlets.merge(interface_.outlets);
        interface_ = std::move(loaded);
        const Actions known = actions();
        for (const auto& [action, control] : interface_.actions) {
            if (const auto found = known.find(action); found != known.end()) {
                control->onClick(found->second);
            }
        }
        viewDidLoad();
    }
    return interface_.view;
}

void InterfaceController::addChildViewController(std::shared_ptr<InterfaceController> child) {
    child->parent_ = this;
    children_.push_back(std::move(child));
}

std::shared_ptr<View> InterfaceController::namedView(const std::string& name) const {
    const auto found = interface_.outlets.find(name);
    return found == interface_.outlets.end() ? nullptr : found->second;
}

} // namespace Vexora
