// The abstract base of message catalogues: where a catalogue lives, and what every one of them can
// do. Users of the library meet it through kvparser.h and tr.h.
#pragma once

#include <cstdint>
#include <string>

namespace VXLOCAL {

/// A message catalogue: holds the locale, the folder and the file name of its file, and leaves
/// reading and look-up to the class derived from it.
///
/// An object is configured, parsed and read by one thread at a time; it takes no locks. No
/// operation of this class reports errors of its own; those that return or store strings may throw
/// std::bad_alloc.
class Parser {
public:
    /// Makes a catalogue with an empty locale and an empty folder.
    /// \param name the catalogue's file name inside its folder, zero-terminated and not null.
    explicit Parser(const char* name);

    Parser(const Parser&) = delete;
    Parser& operator=(const Parser&) = delete;

    virtual ~Parser();

    /// Reads the file that localeFile() names into the table, on top of what the table already
    /// holds.
    /// \throws std::runtime_error when the file cannot be read; its text ends in a line feed.
    virtual void parse() = 0;

    /// Looks a message up.
    /// \param key the message identifier as the program writes it, any bytes.
    /// \return the translation, or the key itself when the table has none.
    virtual std::string getMessage(const std::string& key) const = 0;

    /// Replaces the name of the locale that the catalogue stands for. The file's path does not
    /// depend on it, and nothing is read.
    /// \param name such as "de" or "pt_BR".
    void setLocale(const std::string& name);

    /// \return the name of the locale, empty until one was set.
    std::string getLocale() const;

    /// Replaces the folder that holds the catalogue's file; nothing is read.
    /// \param folder a path without a trailing slash, since one is always put behind it.
    void setLocaleDir(const std::string& folder);

    /// \return the folder, empty until one was set.
    std::string getLocaleDir() const;

    /// Replaces the catalogue's file name; nothing is read.
    /// \param name the file's name inside its folder.
    void setFilename(std::string name);

    /// \return the file name.
    std::string getFilename() const;

    /// Joins the path of the catalogue's file; nothing is normalised or looked for.
    /// \param name a locale name, which has no influence on the result: to read another language's
    ///     file, set that language's folder.
    /// \return the folder, a slash and the file name, so never empty.
    std::string localeFile(const std::string& name) const;

private:
    std::string locale;
    std::string localeDir;
    std::string filename;
    /// Part of the object's layout; no operation reads or changes it.
    [[maybe_unused]] std::int32_t reserved_ = 1000;
};

} // namespace VXLOCAL
