#include "Platform/AppKit/AdministratorScript.h"

#include "Platform/AppKit/Conversions.h"

namespace Vexora {

bool AppKitAdministratorScript::execute(const std::string& source) {
    const AutoreleaseScope scope;
    if (![NSAppleScript instancesRespondToSelector:@selector(executeAndReturnError:)]) {
        return false;
    }
    const Strong<NSAppleScript> script =
        adopt<NSAppleScript>([[NSAppleScript alloc] initWithSource:toNSString(source)]);
    NSDictionary* error = [NSDictionary dictionary];
    return [script.get() executeAndReturnError:&error] != nil;
}

} // namespace Vexora
