// Runs scripts by the system's own AppleScript, which asks for the administrator's password. Called
// on the background thread, so that the window goes on while the prompt waits, although Apple
// promises AppleScript for the main thread alone.
#pragma once

#include "Platform/AppKit/Conversions.h"
#include "Platform/Services.h"

namespace Vexora {

class AppKitAdministratorScript : public AdministratorScript {
public:
    /// Waits for the script, the password prompt included. Where the system has no AppleScript,
    /// nothing runs and the result is false.
    bool execute(const std::string& source) override {
        const AutoreleaseScope scope;
        if (![NSAppleScript instancesRespondToSelector:@selector(executeAndReturnError:)]) {
            return false;
        }
        const Strong<NSAppleScript> script =
            adopt<NSAppleScript>([[NSAppleScript alloc] initWithSource:toNSString(source)]);
        NSDictionary* error = [NSDictionary dictionary];
        return [script.get() executeAndReturnError:&error] != nil;
    }
};

} // namespace Vexora
