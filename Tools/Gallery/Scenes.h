// The screens and states of the installer that the gallery shows, and what leads to each.
#pragma once

#include <string>
#include <vector>

namespace Gallery {

/// What a person, or the executable, does to get there from the start screen.
enum class Reached {
    AtOnce,   ///< nothing
    ByNotice, ///< the licence notice is clicked
    ByStart,  ///< Start is pressed, and the executable runs
    ByStatus  ///< Start is pressed, and the executable ends with a status
};

struct Scene {
    /// Names files: lower-case letters, digits and hyphens.
    std::string name;
    /// For people, in English.
    std::string title;
    Reached reached;
    /// The exit status, where one leads there.
    int status = 0;
};

/// All of them, in the order in which they are shown.
const std::vector<Scene>& scenes();

} // namespace Gallery
