#include "Core/FailureCatalogue.h"

namespace Vexora {

FailureMessage failureMessageForStatus(std::int32_t status) {
    for (const FailureMessage& row : failureMessages) {
        if (row.status == status) {
            return row;
        }
    }
    return {status, nullptr, Presentation::Failure};
}

StyledText composeFailureText(const std::string& message, const StyledText& link) {
    StyledText text(message);
    text.append({" ", {}, {}});
    text.append(link);
    text.setAlignment(TextAlignment::Center);
    return text;
}

} // namespace Vexora
