#include "Scenes.h"

namespace Gallery {

const std::vector<Scene>& scenes() {
    static const std::vector<Scene> all{
        {"start", "Start", Reached::AtOnce},
        {"installing", "Installing", Reached::ByStart},
        {"completed", "Completed", Reached::ByStatus, 0},
        {"failure-1", "Failure 1: no administrator rights", Reached::ByStatus, 1},
        {"failure-10", "Failure 10: newer version", Reached::ByStatus, 10},
        {"failure-20", "Failure 20: before installation", Reached::ByStatus, 20},
        {"failure-30", "Failure 30: extraction", Reached::ByStatus, 30},
        {"failure-40", "Failure 40: copying", Reached::ByStatus, 40},
        {"failure-50", "Failure 50: after installation", Reached::ByStatus, 50},
        {"failure-3", "Failure 3: unlisted status", Reached::ByStatus, 3},
        {"notice", "Notice 5: up to date", Reached::ByStatus, 5},
        {"licence", "Licence", Reached::ByNotice}};
    return all;
}

} // namespace Gallery
