// The languages and pseudo-locales that the gallery shows. Any thread.
#pragma once

#include <QString>

#include <string>
#include <vector>

namespace Gallery {

struct Language {
    /// Two letters; those of a pseudo-locale are no language's.
    std::string code;
    /// The folder that holds its strings file and its licence.
    std::string resources;
    /// The language whose writing direction the layout takes; a pseudo-locale borrows it.
    std::string layoutCode;

    bool isRightToLeft() const;
    bool isPseudo() const;

    /// The same texts, laid out from left to right.
    Language leftToRight() const;

    QString englishName() const;
    QString ownName() const;
};

/// Everything that is shipped, in the order of the codes, then the pseudo-locales.
const std::vector<Language>& languages();

/// A language of another resource folder; of a code that languages() holds as well as of any other.
Language languageIn(const std::string& folder, const std::string& code);

} // namespace Gallery
