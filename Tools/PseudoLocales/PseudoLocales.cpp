// make_pseudo_locales RESOURCES FOLDER CODE... makes three pseudo-locales out of the languages with
// these codes in the resources' sources, and writes the strings file and the licence of each below
// the folder: xa is accented English, xr the same from right to left, and xl takes each message from
// the language with the widest word in it, and of several such the one that is the widest as a
// whole. The licence of xl is the longest. Licences are written in UTF-8.
#include "FileRules.h"
#include "PseudoText.h"

#include <kvparser.h>

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QRegularExpression>

#include <cstdio>
#include <exception>
#include <functional>
#include <stdexcept>

namespace {

using Change = std::function<QString(const QString&)>;

struct Language {
    QDir resources;
    QString code;

    QString text(const std::string& key) const {
        VXLOCAL::KVParser parser("Localizable.strings");
        parser.setLocaleDir(resources.filePath(code + ".lproj").toStdString());
        parser.parse();
        return QString::fromStdString(parser.getMessage(key));
    }

    /// Empty for a language that is shipped with the English licence.
    QString licence() const {
        QFile file(resources.filePath("Licenses/LA_" + code + ".txt"));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }
};

/// Every paragraph by itself; the empty lines between them stay empty.
QString byParagraph(const QString& text, const Change& change) {
    QStringList lines = text.split('\n');
    for (QString& line : lines) {
        line = line.isEmpty() ? line : change(line);
    }
    return lines.join('\n');
}

void write(const QString& path, const QString& text) {
    QFile file(path);
    const QByteArray bytes = text.toUtf8();
    if (!QFileInfo(path).dir().mkpath(".") || !file.open(QIODevice::WriteOnly) ||
        file.write(bytes) != bytes.size() || !file.flush()) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}

/// \param textOf what the strings file says for a key.
void writeLocale(const QDir& folder, const QString& code, const CheckStrings::Keys& keys,
                 const std::function<QString(const std::string&)>& textOf, const QString& licence) {
    QString lines;
    for (const std::string& key : keys) {
        const QString text = textOf(key);
        if (text.contains(QRegularExpression("[\n\r\t\\\\]"))) {
            throw std::runtime_error("a text that would need escapes: " + text.toStdString());
        }
        lines += QString("\"%1\" = \"%2\"\n").arg(QString::fromStdString(key), text);
    }
    write(folder.filePath(code + ".lproj/Localizable.strings"), lines);
    write(folder.filePath("LA_" + code + ".txt"), licence);
}

void make(const QDir& resources, const QDir& folder, const QStringList& codes) {
    const Language english{resources, "en"};
    const auto keys =
        CheckStrings::readKeys(resources.filePath("en.lproj/Localizable.strings").toStdString());
    const auto writeChanged = [&](const QString& code, const Change& change) {
        writeLocale(
            folder, code, keys, [&](const std::string& key) { return change(english.text(key)); },
            byParagraph(english.licence(), change));
    };
    writeChanged(ACCENTED_TEXTS, PseudoLocales::accented);
    writeChanged(RIGHT_TO_LEFT_TEXTS, PseudoLocales::rightToLeft);

    QString longestLicence;
    for (const QString& code : codes) {
        const QString licence = Language{resources, code}.licence();
        longestLicence = licence.size() > longestLicence.size() ? licence : longestLicence;
    }
    const auto widest = [&](const std::string& key) {
        QString text;
        for (const QString& code : codes) {
            const QString other = Language{resources, code}.text(key);
            text = PseudoLocales::widthOf(text) < PseudoLocales::widthOf(other) ? other : text;
        }
        return text;
    };
    writeLocale(folder, LONGEST_TEXTS, keys, widest, longestLicence);
}

} // namespace

int main(int argc, char** argv) {
    // The build has no display, and its typefaces do not depend on who builds.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("FC_LANG", "en");
    const QGuiApplication toolkit(argc, argv);
    const QStringList arguments = QGuiApplication::arguments();
    if (arguments.size() < 4) {
        std::fputs("Usage: make_pseudo_locales RESOURCES FOLDER CODE...\n", stderr);
        return 2;
    }
    try {
        make(arguments.at(1), arguments.at(2), arguments.mid(3));
    } catch (const std::exception& error) {
        std::fprintf(stderr, "make_pseudo_locales: %s\n", error.what());
        return 1;
    }
    return 0;
}
