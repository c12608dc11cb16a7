// What a process puts right first of all, whatever it was started by.
#pragma once

namespace Vexora {

/// Call it before any other thread and any toolkit starts.
///
/// Closed standard streams are filled with /dev/null: otherwise the next thing that is opened, such as
/// the connection to the desktop, stands in their place and receives what is printed. A reader that
/// went away and a limit of file sizes are errors of a write from then on, and no longer end the process.
void prepareProcess();

} // namespace Vexora
