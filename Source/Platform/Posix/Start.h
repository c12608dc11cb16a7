// What a process puts right first of all, whatever it was started by.
#pragma once

#include <functional>
#include <string>

namespace Vexora {

/// Call it before any other thread and any toolkit starts.
///
/// Closed standard streams are filled with /dev/null: otherwise the next thing that is opened, such as
/// the connection to the desktop, stands in their place and receives what is printed. A reader that
/// went away and a limit of file sizes are errors of a write from then on, and no longer end the process.
void prepareProcess();

/// Finds what the program cannot start without. An error that leaves `find` ends the process with
/// its text on standard error, and with status 0 as every end does.
std::string neededForStart(const std::function<std::string()>& find);

} // namespace Vexora
