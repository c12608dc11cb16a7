// A strings file that somebody is working on, taken into a resource folder of its own so that the
// screens can show it whatever its state. Main thread only.
#pragma once

#include "FileRules.h"
#include "Languages.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <optional>
#include <string>

namespace PreviewStrings {

class Draft {
public:
    /// \param code the two letters of the language that the file is in.
    explicit Draft(const std::string& code);

    /// Takes the file as it is now. One that cannot be read leaves what was taken before.
    /// \return whether there is something new to show.
    bool take(const QString& file);

    /// What the translator should know about the file, one sentence each.
    const QStringList& remarks() const { return remarks_; }

    Gallery::Language language() const {
        return Gallery::languageIn(folder_.path().toStdString(), code_);
    }

private:
    /// Remarks on what check-strings finds in the copy.
    void checkRules();

    /// Replaces texts in the copy which formatting would make nonsense of.
    void correct();

    std::string code_;
    QTemporaryDir folder_;
    /// The copy of the strings file.
    QString copy_;
    CheckStrings::Keys keys_;
    std::optional<QByteArray> bytes_;
    QStringList remarks_;
};

/// The language that the folder of a strings file names: "de" for a folder de.lproj, else empty.
std::string languageOfFile(const QString& file);

} // namespace PreviewStrings
