// The pictures of a language on disk, and beside them what the checks found, for the page that
// shows both. Main thread only.
//
// FOLDER/SCALEx/CODE/SCENE.png    a picture
// FOLDER/SCALEx/CODE.js           a call of album() with an object that has code, scale,
//                                 rightToLeft and title, and an array `scenes` of objects with
//                                 name, title and an array `faults` of lines
#pragma once

#include "Languages.h"

#include <QString>
#include <QStringList>

namespace Gallery {

/// Renders and measures every scene of a language at the scale of the display.
/// \return the faults, one line each.
/// \throws std::runtime_error when a file cannot be written.
QStringList saveAlbum(const QString& folder, const Language& language);

} // namespace Gallery
