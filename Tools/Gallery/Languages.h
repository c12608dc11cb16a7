// The languages and pseudo-locales that the gallery shows. Any thread.
#pragma once

#include <string>

namespace Gallery {

struct Language {
    /// Two letters; those of a pseudo-locale are no language's.
    std::string code;
    /// The folder that holds its strings file and its licence.
    std::string resources;
    /// The language whose writing direction the layout takes; a pseudo-locale borrows it.
    std::string layoutCode;

    bool isRightToLeft() const;

    /// The same texts, laid out from left to right.
    Language leftToRight() const { return {code, resources, "en"}; }
};

/// A language as it is shipped, or a pseudo-locale as the build has made it.
/// \throws std::runtime_error when there is none with that code.
Language languageOf(const std::string& code);

/// A language of another resource folder.
Language languageIn(const std::string& folder, const std::string& code);

} // namespace Gallery
