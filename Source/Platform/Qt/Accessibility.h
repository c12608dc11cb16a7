// What assistive tools are told about widgets that the toolkit would take for others. Main thread only.
#pragma once

namespace Vexora {

/// Makes the window known as a dialog, whose loose texts are read when it opens, labels as texts or
/// links, and the help button as a link; once per process.
void installAccessibility();

} // namespace Vexora
