// How the toolkit is set up for pictures: as on a desktop of the language that names its typeface,
// whatever the desktop here is. Main thread.
#pragma once

#include <string>

namespace Gallery {

/// Before the toolkit starts: lets the typefaces that stand in for others follow the language, as
/// they would follow the locale. Leaves out what the toolkit says about every typeface that it
/// tries, about windows that are never shown, and about having no desktop.
/// \param code two letters.
void prepareToolkit(const std::string& code);

/// Once the toolkit has started: the desktop's typeface.
void useTypefaceOfPictures();

/// How much larger the desktop wants letters than usual.
double fontScale();

} // namespace Gallery
