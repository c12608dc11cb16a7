#include "Words.h"

#include <QChar>

namespace Gallery {
namespace {

QString number(qreal value) {
    return QString::number(qRound(value * 10.0) / 10.0);
}

} // namespace

QString words(const QRectF& rect) {
    return QString("%1, %2, %3 x %4")
        .arg(number(rect.x()), number(rect.y()), number(rect.width()), number(rect.height()));
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
    return "U+" + digits.rightJustified(4, '0');
}

} // namespace Gallery
