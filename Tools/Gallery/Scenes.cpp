#include "Scenes.h"

#include "Core/FailureCatalogue.h"

namespace Gallery {
namespace {

Scene sceneOf(const Vexora::FailureMessage& row) {
    const bool fails = row.presentation == Vexora::Presentation::Failure;
    const std::string status = std::to_string(row.status);
    const std::string message = row.identifier == nullptr ? "unlisted" : row.identifier;
    return {(fails ? "failure-" : "notice-") + status,
            (fails ? "Failure " : "Notice ") + status + ": " + message.substr(0, message.find('.')),
            Reached::ByStatus, row.status};
}

std::vector<Scene> allScenes() {
    std::vector<Scene> all{{"start", "Start", Reached::AtOnce},
                           {"installing", "Installing", Reached::ByStart},
                           {"completed", "Completed", Reached::ByStatus, 0}};
    for (const Vexora::FailureMessage& row : Vexora::failureMessages) {
        all.push_back(sceneOf(row));
    }
    all.push_back(sceneOf(Vexora::failureMessageForStatus(3)));
    all.push_back({"licence", "Licence", Reached::ByNotice});
    return all;
}

} // namespace

const std::vector<Scene>& scenes() {
    static const std::vector<Scene> all = allScenes();
    return all;
}

} // namespace Gallery
