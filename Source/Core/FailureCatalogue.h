// What the user reads when `install` ends with a status other than success.
// Pure logic: a status in, a message identifier and a way of presenting it out.
#pragma once

#include "Platform/StyledText.h"

#include <array>
#include <cstdint>
#include <string>

namespace Vexora {

/// Whether an outcome is shown as an error, with title and icon, or as a plain notice.
enum class Presentation { Failure, Notice };

/// A row of the catalogue.
struct FailureMessage {
    std::int32_t status;
    /// The English text that is the key of the translation; null when the status has no message.
    const char* identifier;
    Presentation presentation;
};

/// The statuses that have a message, in rising order. A further one needs a row here and its
/// message in the strings files.
inline constexpr auto failureMessages = std::to_array<FailureMessage>({
    {1,
     "A system-wide installation already exists. Removing or upgrading requires "
     "administrator-level access.",
     Presentation::Failure},
    {5, "Ondrel Vexora Lumiq is already up to date.", Presentation::Notice},
    {10,
     "A newer version of Ondrel Vexora Lumiq is installed on your system. "
     "Installation terminated.",
     Presentation::Failure},
    {20, "Pre-installation steps failed.", Presentation::Failure},
    {30, "Failed to extract Ondrel Vexora Lumiq.", Presentation::Failure},
    {40, "Failed to copy Ondrel Vexora Lumiq Web plugin.", Presentation::Failure},
    {50, "Post-installation steps failed.", Presentation::Failure},
});

/// The row for an exit status, compared by its exact value. One that is not listed is a failure
/// without a message.
FailureMessage failureMessageForStatus(std::int32_t status);

/// The message without attributes, one blank and the link, the whole of it centred.
/// \param message translated, may be empty.
StyledText composeFailureText(const std::string& message, const StyledText& link);

} // namespace Vexora
