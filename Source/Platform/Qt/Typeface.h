// The typeface that the interface of a language is set in. Main thread only.
#pragma once

#include <QFont>
#include <QString>

namespace Vexora {

/// The desktop's typeface, unless it has not every letter of a language or the desktop names none
/// and would get one with serifs or of fixed pitch: then one without, which has them all. Left
/// alone, the toolkit takes for each letter the first typeface that has it, also in the middle of a
/// word, where letters of two do not join.
/// \param desktop what the desktop wants, size and all.
/// \param language a two-letter code; nothing is known of others.
/// \return that font, with the families that stand in for it. The desktop's own where the system
///     has nothing better.
QFont fontForLanguage(const QFont& desktop, const QString& language);

} // namespace Vexora
