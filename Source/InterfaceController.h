// The base of everything that controls a view: it loads its interface definition the first time the
// view is asked for, finds outlets by name, and keeps its children in order. Main thread only.
#pragma once

#include "Platform/Platform.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Vexora {

/// What the controls of a controller do, by the names that definitions use.
using Actions = std::map<std::string, std::function<void()>>;

class InterfaceController : public std::enable_shared_from_this<InterfaceController> {
public:
    /// \param platform outlives the controller.
    /// \param interfaceName names the interface definition.
    InterfaceController(Platform& platform, std::string interfaceName);
    InterfaceController(const InterfaceController&) = delete;
    InterfaceController& operator=(const InterfaceController&) = delete;
    virtual ~InterfaceController();

    /// The controller's view. The first call loads it and runs viewDidLoad.
    const std::shared_ptr<View>& view();

    bool isViewLoaded() const { return interface_.view != nullptr; }

    /// Adds a child behind those already there.
    void addChildViewController(std::shared_ptr<InterfaceController> child);
    const std::vector<std::shared_ptr<InterfaceController>>& childViewControllers() const {
        return children_;
    }

    /// The controller that holds this one as a child, or null.
    InterfaceController* parentViewController() const { return parent_; }

    /// The outlet of that name. When the definition lacks it, or has another kind of view there, a
    /// stand-in that takes every call and shows nothing. Before the view is loaded every outlet is
    /// such a stand-in.
    template <class Kind>
    std::shared_ptr<Kind> outlet(const std::string& name) const {
        auto found = std::dynamic_pointer_cast<Kind>(namedView(name));
        return found ? found : std::make_shared<Kind>();
    }

    /// What the controller's definition may have its controls do. A name that is not among them does
    /// nothing.
    virtual Actions actions() { return {}; }

protected:
    /// Puts a view in the place of an outlet; null leaves the stand-in there. Loading the view fills
    /// the outlets that the definition names, also those set before, and leaves the others alone.
    void setOutlet(const std::string& name, std::shared_ptr<View> view) {
        interface_.outlets[name] = std::move(view);
    }

    /// Runs once, right after the view has been loaded.
    virtual void viewDidLoad() {}

    Platform& platform() const { return platform_; }

private:
    std::shared_ptr<View> namedView(const std::string& name) const;

    Platform& platform_;
    std::string interfaceName_;
    /// Without a view until it is loaded.
    Interface interface_;
    std::vector<std::shared_ptr<InterfaceController>> children_;
    InterfaceController* parent_ = nullptr;
};

} // namespace Vexora
