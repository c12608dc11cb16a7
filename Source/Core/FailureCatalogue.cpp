#include "Core/FailureCatalogue.h"

namespace Vexora {

FailureMessage failureMessageForStatus(std::int32_t status) {
    switch (status) {
    case 1:
        return {"A system-wide installation already exists. Removing or upgrading requires "
                "administrator-level access.",
                Presentation::Failure};
    case 5:
        return {"Ondrel Vexora Lumiq is already up to date.", Presentation::Notice};
    case 10:
        return {"A newer version of Ondrel Vexora Lumiq is installed on your system. "
                "Installation terminated.",
                Presentation::Failure};
    case 20:
        return {"Pre-installation steps failed.", Presentation::Failure};
    case 30:
        return {"Failed to extract Ondrel Vexora Lumiq.", Presentation::Failure};
    case 40:
        return {"Failed to copy Ondrel Vexora Lumiq Web plugin.", Presentation::Failure};
    case 50:
        return {"Post-installation steps failed.", Presentation::Failure};
    default:
        return {nullptr, Presentation::Failure};
    }
}

StyledText composeFailureText(const std::string& message, const StyledText& link) {
    StyledText text(message);
    text.append({" ", {}, {}});
    text.append(link);
    text.setAlignment(TextAlignment::Center);
    return text;
}

} // namespace Vexora
