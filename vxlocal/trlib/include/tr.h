// The process-wide translator: turns the program's own English texts into the current language.
// Every text that a user sees passes through Translator::getInstance()->tr(...).
#pragma once

#include <memory>
#include <string>

namespace VXLOCAL {

class Parser;

/// Owns the current catalogue and formats its messages as printf does.
///
/// There is one object, made on the first call of getInstance(). That construction is the only
/// thing guarded: all operations must be called from one thread. Without a catalogue every text
/// stands for itself.
class Translator {
public:
    /// \return the one translator, the same address on every call; it is destroyed at program exit,
    ///     together with its catalogue. May be called from any thread.
    static Translator* getInstance() {
        static Translator instance;
        return &instance;
    }

    Translator(const Translator&) = delete;
    Translator& operator=(const Translator&) = delete;

    /// Takes a catalogue, destroys the one held before, and has the new one read its file.
    /// \param parser a catalogue made with `new`, whose ownership passes to the translator, also
    ///     when reading fails. It must not be the one already held: that one is destroyed first.
    /// \param locale the catalogue's locale name.
    /// \param folder the folder that holds the catalogue's file.
    /// \param filename the catalogue's file name.
    /// \throws const char* "Parser is NULL\n", with static storage, when the catalogue is null; the
    ///     one held before stays in use.
    /// \throws std::runtime_error from Parser::parse(); the new catalogue stays in use with what it
    ///     holds.
    void init(Parser* parser, const std::string& locale, const std::string& folder,
              const std::string& filename);

    /// Names another locale and has the catalogue read its file again; without a catalogue does
    /// nothing. The file's path follows from the folder, so setLocaleDir() comes first when the
    /// language changes. Keys that the new file lacks keep their earlier translations.
    /// \param locale the catalogue's new locale name, which it keeps also when reading fails.
    /// \throws std::runtime_error from Parser::parse().
    void setLocale(const std::string& locale);

    /// Sets the catalogue's folder and reads nothing; without a catalogue does nothing.
    /// \param folder a path without a trailing slash, since one is always put behind it.
    void setLocaleDir(const std::string& folder);

    /// \return the catalogue's folder, empty without a catalogue.
    std::string localeDir() const;

    /// \param locale any text; the path does not depend on it.
    /// \return the path of the catalogue's file, empty without a catalogue.
    std::string localeFile(const std::string& locale) const;

    /// Translates a text without formatting it.
    /// \param key the message identifier, any bytes.
    /// \return the catalogue's message for the key, or the key itself when there is none.
    std::string getMessage(const std::string& key) const;

    /// Translates a text and formats it with the arguments behind it.
    /// \param text the message identifier and at the same time a printf format, zero-terminated and
    ///     not null. A percent sign is written doubled, also when there are no arguments. The
    ///     translation must have the same conversions in the same order.
    /// \return the bytes of the formatted translation up to its first zero byte, at most 998 of
    ///     them; what is longer is cut without notice, possibly inside a character.
    [[gnu::format(printf, 2, 3)]] std::string tr(const char* text, ...) const;

private:
    Translator();
    ~Translator();

    std::unique_ptr<Parser> currentParser;
    /// Memory for the key of the next tr(), which is therefore for one thread.
    mutable std::string key_;
};

} // namespace VXLOCAL
