#include "Draft.h"

#include "Characters.h"
#include "Core/LocaleSelection.h"
#include "FileRules.h"
#include "PseudoText.h"

#include <kvparser.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringDecoder>

#include <algorithm>

namespace Gallery {
namespace {

/// The keys of all texts that the program shows.
const CheckStrings::Keys& programKeys() {
    static const CheckStrings::Keys keys =
        CheckStrings::readKeys(STAGED_RESOURCES "/en.lproj/Localizable.strings");
    return keys;
}

/// How the line of a text begins.
QByteArray lineStart(const std::string& key) {
    return '"' + QByteArray::fromStdString(key) + "\" = \"";
}

QString quoted(const std::string& text) {
    return QString("“%1”").arg(QString::fromStdString(text));
}

} // namespace

Draft::Draft(const std::string& code) : code_(code) {
    QString licence = QString(STAGED_RESOURCES "/LA_%1").arg(QString::fromStdString(code));
    if (!QFile::exists(licence)) {
        licence = STAGED_RESOURCES "/LA_en";
    }
    QFile::copy(licence, QString::fromStdString(folder_.path() / ("LA_" + code)));
}

bool Draft::take(const QString& file) {
    QFile source(file);
    remarks_.clear();
    if (!source.open(QIODevice::ReadOnly)) {
        remarks_.append(QString("%1 cannot be read: %2.").arg(file, source.errorString()));
        return false;
    }
    const QByteArray bytes = source.readAll();
    const QString reason = obstacle(bytes);
    if (!reason.isEmpty()) {
        remarks_.append(file + ' ' + reason);
        return false;
    }
    bytes_ = bytes;
    const std::string name = code_ + ".lproj/" + Vexora::stringsFileName;
    // The corrections follow from what the catalogue reads in the file as it is.
    checkRules(folder_.write(name, bytes.toStdString()));
    folder_.write(name, (bytes + '\n' + corrections()).toStdString());
    return true;
}

QString Draft::obstacle(const QByteArray& bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    if (decoder.hasError()) {
        return "is not valid UTF-8.";
    }
    const bool holdsAny = std::ranges::any_of(
        programKeys(), [&](const std::string& key) { return bytes.contains(lineStart(key)); });
    return holdsAny ? QString()
                    : "holds none of the program's texts. A line reads \"English text\" = "
                      "\"Translation\".";
}

QByteArray Draft::corrections() {
    VXLOCAL::KVParser catalogue(Vexora::stringsFileName);
    catalogue.setLocaleDir((folder_.path() / (code_ + ".lproj")).string());
    catalogue.parse();
    QByteArray lines;
    for (const std::string& key : programKeys()) {
        const std::string text = catalogue.getMessage(key);
        if (conversions(text) != conversions(key)) {
            // Formatting would look for arguments that are not there. Of several lines the last
            // counts.
            lines += lineStart(key) + QByteArray::fromStdString(key) + "\"\n";
            remarks_.append(
                QString("%1 stays English: a percent sign is written doubled, but not in %2.")
                    .arg(quoted(key), quoted(text)));
        }
    }
    return lines;
}

void Draft::checkRules(const std::filesystem::path& file) {
    CheckStrings::Findings findings;
    CheckStrings::checkStringsFile(file, programKeys(), findings);
    std::sort(findings.begin(), findings.end());
    QStringList missing;
    for (const CheckStrings::Finding& finding : findings) {
        if (finding.rule == CheckStrings::Rule::MissingKey) {
            missing.append(quoted(finding.text));
        } else {
            const std::string rule(CheckStrings::nameOf(finding.rule));
            remarks_.append(
                QString("Line %1: %2: %3")
                    .arg(finding.line)
                    .arg(QString::fromStdString(rule),
                         QString::fromStdString(CheckStrings::printable(finding.text))));
        }
    }
    if (!missing.isEmpty()) {
        remarks_.append("Texts without a line stay English: " + missing.join(", ") + '.');
    }
}

std::string languageOfFile(const QString& file) {
    static const QRegularExpression folder("^([A-Za-z]{2})\\.lproj$");
    const QString name = QFileInfo(QFileInfo(file).absolutePath()).fileName();
    return folder.match(name).captured(1).toLower().toStdString();
}

} // namespace Gallery
