// Runs scripts by the system's own AppleScript, which asks for the administrator's password.
// Any thread.
#pragma once

#include "Platform/Services.h"

namespace Vexora {

class AppKitAdministratorScript : public AdministratorScript {
public:
    /// Waits for the script, the password prompt included. Where the system has no AppleScript,
    /// nothing runs and the result is false.
    bool execute(const std::string& source) override;
};

} // namespace Vexora
