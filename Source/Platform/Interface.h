// What an interface definition holds once it is loaded, and who loads it.
// A definition is named after the controller it belongs to and carries no user-visible text.
#pragma once

#include "Platform/Controls.h"

#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace Vexora {

/// A loaded interface definition.
struct Interface {
    /// The root view; never null.
    std::shared_ptr<View> view;
    /// The views that the definition names.
    std::map<std::string, std::shared_ptr<View>> outlets;
    /// The controls that do something, each with the name of the controller's action.
    std::vector<std::pair<std::string, std::shared_ptr<View>>> actions;
};

/// Makes views. Main thread only.
class InterfaceLoader {
public:
    virtual ~InterfaceLoader() = default;

    /// Loads the definition of that name. A name without a definition yields an empty view without
    /// outlets.
    virtual Interface load(const std::string& name) = 0;

    /// Makes a text area with the origin (0, 0) and the given size.
    virtual std::shared_ptr<TextView> makeTextView(Size size) = 0;
};

} // namespace Vexora
