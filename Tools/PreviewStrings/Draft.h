// A strings file that somebody is working on, taken into a resource folder of its own so that the
// screens can show it whatever its state. Main thread only.
#pragma once

#include "Languages.h"
#include "Support/TemporaryFolder.h"

#include <QString>
#include <QStringList>

#include <filesystem>
#include <string>

namespace Gallery {

class Draft {
public:
    /// \param code the two letters of the language that the file is in.
    explicit Draft(const std::string& code);

    /// Takes the file as it is now. One that cannot be shown leaves what was taken before.
    /// \return whether it can be shown.
    bool take(const QString& file);

    /// What the translator should know about the file, one sentence each.
    const QStringList& remarks() const { return remarks_; }

    /// Changes when the texts do.
    const QByteArray& bytes() const { return bytes_; }

    Language language() const { return languageIn(folder_.path().string(), code_); }

private:
    /// Why the bytes cannot be shown; empty when they can.
    static QString obstacle(const QByteArray& bytes);

    /// The lines that replace texts which formatting would make nonsense of.
    QByteArray corrections();

    /// Remarks on what check-strings finds in the file.
    void checkRules(const std::filesystem::path& file);

    std::string code_;
    TestSupport::TemporaryFolder folder_;
    QByteArray bytes_;
    QStringList remarks_;
};

/// The language that the folder of a strings file names: "de" for a folder de.lproj, else empty.
std::string languageOfFile(const QString& file);

} // namespace Gallery
