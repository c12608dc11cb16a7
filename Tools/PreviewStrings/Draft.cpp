#include "Draft.h"

#include "Characters.h"
#include "Core/LocaleSelection.h"
#include "Format.h"

#include <kvparser.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>
#include <stdexcept>

namespace PreviewStrings {
namespace {

const QString staged = STAGED_RESOURCES "/";

QString quoted(const std::string& text) {
    return QString("“%1”").arg(QString::fromStdString(text));
}

void write(const QString& path, QIODevice::OpenMode mode, const QByteArray& bytes) {
    QFile file(path);
    if (!file.open(mode) || file.write(bytes) != bytes.size()) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}

} // namespace

Draft::Draft(const std::string& code)
    : code_(code),
      copy_(folder_.filePath(QString::fromStdString(code + ".lproj/" + Vexora::stringsFileName))),
      keys_(CheckStrings::readKeys(staged.toStdString() + "en.lproj/" + Vexora::stringsFileName)) {
    const QString licence = "LA_" + QString::fromStdString(code);
    QFileInfo(copy_).dir().mkpath(".");
    QFile::copy(staged + (QFile::exists(staged + licence) ? licence : "LA_en"),
                folder_.filePath(licence));
}

bool Draft::take(const QString& file) {
    QFile source(file);
    remarks_.clear();
    if (!source.open(QIODevice::ReadOnly)) {
        remarks_.append(QString("%1 cannot be read: %2.").arg(file, source.errorString()));
        return false;
    }
    const QByteArray bytes = source.readAll();
    const bool isNew = bytes != bytes_;
    bytes_ = bytes;
    write(copy_, QIODevice::WriteOnly, bytes);
    checkRules();
    correct();
    return isNew;
}

void Draft::checkRules() {
    CheckStrings::Findings findings;
    CheckStrings::checkStringsFile(copy_.toStdString(), keys_, findings);
    std::ranges::sort(findings);
    QStringList missing;
    for (const CheckStrings::Finding& finding : findings) {
        if (finding.rule == CheckStrings::Rule::MissingKey) {
            missing.append(quoted(finding.text));
        } else {
            const std::string words = std::string(CheckStrings::nameOf(finding.rule)) + ": " +
                                      CheckStrings::printable(finding.text);
            remarks_.append(
                QString("Line %1: %2").arg(finding.line).arg(QString::fromStdString(words)));
        }
    }
    if (!missing.isEmpty()) {
        remarks_.append("Texts without a line stay English: " + missing.join(", ") + '.');
    }
}

void Draft::correct() {
    VXLOCAL::KVParser translations(Vexora::stringsFileName);
    translations.setLocaleDir(QFileInfo(copy_).path().toStdString());
    translations.parse();
    QByteArray corrections;
    for (const std::string& key : keys_) {
        const std::string text = translations.getMessage(key);
        const CheckStrings::Format format = CheckStrings::readFormat(text);
        if (format.hasSinglePercent ||
            format.conversions != CheckStrings::readFormat(key).conversions) {
            // Formatting would look for arguments that are not there.
            corrections += QByteArray::fromStdString("\n\"" + key + "\" = \"" + key + "\"");
            remarks_.append(
                QString("%1 stays English: a percent sign is written doubled, but not in %2.")
                    .arg(quoted(key), quoted(text)));
        }
    }
    // Of several lines with one key the last counts.
    write(copy_, QIODevice::Append, corrections + '\n');
}

std::string languageOfFile(const QString& file) {
    static const QRegularExpression folder("^([A-Za-z]{2})\\.lproj$");
    const QString name = QFileInfo(QFileInfo(file).absolutePath()).fileName();
    return folder.match(name).captured(1).toLower().toStdString();
}

} // namespace PreviewStrings
