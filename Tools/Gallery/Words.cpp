#include "Words.h"

#include <QChar>
#include <QHash>

namespace Gallery {
namespace {

QString number(qreal value) {
    return QString::number(qRound(value * 10.0) / 10.0);
}

QString scriptName(char32_t character) {
    static const QHash<int, QString> names{{QChar::Script_Latin, "Latin"},
                                           {QChar::Script_Greek, "Greek"},
                                           {QChar::Script_Cyrillic, "Cyrillic"},
                                           {QChar::Script_Hebrew, "Hebrew"},
                                           {QChar::Script_Arabic, "Arabic"},
                                           {QChar::Script_Devanagari, "Devanagari"},
                                           {QChar::Script_Tamil, "Tamil"},
                                           {QChar::Script_Telugu, "Telugu"},
                                           {QChar::Script_Kannada, "Kannada"},
                                           {QChar::Script_Thai, "Thai"},
                                           {QChar::Script_Georgian, "Georgian"},
                                           {QChar::Script_Hangul, "Hangul"},
                                           {QChar::Script_Hiragana, "Hiragana"},
                                           {QChar::Script_Katakana, "Katakana"},
                                           {QChar::Script_Han, "Han"},
                                           {QChar::Script_Common, "common to all scripts"},
                                           {QChar::Script_Inherited, "common to all scripts"},
                                           {QChar::Script_Unknown, "no script"}};
    const int script = QChar::script(character);
    return names.value(script, QString("script number %1").arg(script));
}

} // namespace

QString words(const QRectF& rect) {
    return QString("%1, %2, %3 x %4")
        .arg(number(rect.x()), number(rect.y()), number(rect.width()), number(rect.height()));
}

std::optional<Qt::LayoutDirection> prevailingDirection(const QString& text) {
    int balance = 0;
    for (const QChar character : text) {
        const QChar::Direction direction = character.direction();
        balance += direction == QChar::DirL ? 1 : 0;
        balance -= direction == QChar::DirR || direction == QChar::DirAL ? 1 : 0;
    }
    if (balance == 0) {
        return std::nullopt;
    }
    return balance > 0 ? Qt::LeftToRight : Qt::RightToLeft;
}

int endOfWord(const QString& text, int start) {
    const QChar first = text.at(start);
    int end = start + 1;
    if (!first.isLetter()) {
        return end;
    }
    while (end < text.size()) {
        const QChar next = text.at(end);
        const bool sameScript = next.isLetter() && next.script() == first.script();
        const bool attached = next.isMark() || next.category() == QChar::Other_Format;
        if (!sameScript && !attached) {
            break;
        }
        ++end;
    }
    return end;
}

QString characterName(char32_t character) {
    const QString digits = QString::number(static_cast<uint>(character), 16).toUpper();
    return QString("U+%1 (%2)").arg(digits.rightJustified(4, '0'), scriptName(character));
}

} // namespace Gallery
