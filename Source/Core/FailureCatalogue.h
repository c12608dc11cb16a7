// What the user reads when `install` ends with a status other than success.
// Pure logic: a status in, a message identifier and a way of presenting it out.
#pragma once

#include "Platform/StyledText.h"

#include <cstdint>
#include <string>

namespace Vexora {

/// Whether an outcome is shown as an error, with title and icon, or as a plain notice.
enum class Presentation { Failure, Notice };

/// A row of the catalogue.
struct FailureMessage {
    /// The English text that is the key of the translation; null when the status has no message.
    const char* identifier;
    Presentation presentation;
};

/// The row for an exit status, compared by its exact value; any status that is not listed gets the
/// same default.
FailureMessage failureMessageForStatus(std::int32_t status);

/// The message without attributes, one blank and the link, the whole of it centred.
/// \param message translated, may be empty.
StyledText composeFailureText(const std::string& message, const StyledText& link);

} // namespace Vexora
