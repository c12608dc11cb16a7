#include "PseudoText.h"

#include "Core/Markup.h"
#include "Format.h"

#include <QFont>
#include <QTextLayout>

namespace PseudoLocales {
namespace {

/// What stands for a to z, then for the capitals where the script has them.
constexpr QStringView accentedLetters = u"åƀçðéƒĝĥîĵķļṁñöþǫŕšţûṽŵẋýžÅƁÇÐÉƑĜĤÎĴĶĻṀÑÖÞǪŔŠŢÛṼŴẊÝŽ";
constexpr QStringView hebrewLetters = u"אבצדעפגהיזכלמנוףקרסתטןשחץם";

QString withoutTags(const QString& text) {
    return QString::fromStdString(Vexora::removeTags(text.toStdString()));
}

/// Whether the whole text is one tag or conversion, as the program reads them.
bool isTagOrConversion(const QString& text) {
    return text.startsWith('<') ? withoutTags(text).isEmpty()
                                : !CheckStrings::readFormat(text.toStdString()).hasSinglePercent;
}

/// How many characters stay as they are at the beginning of a text.
qsizetype keptLength(const QString& text) {
    for (const char* word : {"Ondrel", "Vexora", "Lumiq"}) {
        if (text.startsWith(QLatin1String(word))) {
            return static_cast<qsizetype>(qstrlen(word));
        }
    }
    if (text.startsWith('<') || text.startsWith('%')) {
        for (qsizetype length = 2; length <= text.size(); ++length) {
            if (isTagOrConversion(text.first(length))) {
                return length;
            }
        }
    }
    return 0;
}

QChar spelt(QChar letter, QStringView alphabet) {
    if (letter >= 'a' && letter <= 'z') {
        return alphabet.at(letter.unicode() - 'a');
    }
    if (letter >= 'A' && letter <= 'Z') {
        return alphabet.at((letter.unicode() - 'A' + 26) % alphabet.size());
    }
    return letter;
}

/// Words that fill so many characters; they neither end with a blank nor are they empty.
QString padding(qsizetype characters) {
    const QString words = " one two three four five six seven eight nine ten";
    QString all = words.repeated(characters / words.size() + 1).first(characters);
    if (all.endsWith(' ')) {
        all.back() = '~';
    }
    return all;
}

QString pseudo(const QString& text, QStringView alphabet) {
    const qsizetype length = withoutTags(text).size();
    const qsizetype wanted = (length * 14 + 9) / 10;
    const qsizetype brackets = 2;
    const QString source = text + padding(qMax<qsizetype>(0, wanted - length - brackets));
    QString result = "[";
    for (qsizetype at = 0; at < source.size();) {
        const qsizetype kept = keptLength(source.mid(at));
        result += kept > 0 ? source.mid(at, kept) : QString(spelt(source.at(at), alphabet));
        at += qMax<qsizetype>(1, kept);
    }
    return result + ']';
}

} // namespace

QString accented(const QString& text) {
    return pseudo(text, accentedLetters);
}

QString rightToLeft(const QString& text) {
    return pseudo(text, hebrewLetters);
}

TextWidth widthOf(const QString& text) {
    QTextLayout layout(withoutTags(text), QFont("Noto Sans", 12));
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    return {layout.minimumWidth(), line.isValid() ? line.naturalTextWidth() : 0.0};
}

} // namespace PseudoLocales
