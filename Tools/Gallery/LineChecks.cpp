#include "LineChecks.h"

#include "Platform/Qt/TextLabel.h"

#include <QMap>
#include <QRegularExpression>
#include <QTextLayout>

#include <algorithm>

namespace Gallery {
namespace {

/// How far a place may be off, in pixels of the layout.
constexpr qreal tolerance = 1.0;

QString withoutBlanks(QString text) {
    return text.removeIf([](QChar character) { return character.isSpace(); });
}

/// A painted line without blanks, its pieces from left to right and the other way round. Each piece
/// has its characters as they are read.
struct Line {
    QString fromLeft;
    QString fromRight;

    qsizetype count(const QString& words) const {
        return std::max(fromLeft.count(words), fromRight.count(words));
    }
};

QList<Line> linesOf(const PaintedText& painted) {
    QList<PaintedPiece> pieces = painted.pieces;
    std::ranges::stable_sort(pieces, {},
                             [](const PaintedPiece& piece) { return piece.rect.left(); });
    QMap<int, Line> lines;
    for (const PaintedPiece& piece : pieces) {
        const QString text = withoutBlanks(piece.text);
        if (!text.isEmpty()) {
            Line& line = lines[qRound(piece.baseline)];
            line.fromLeft += text;
            line.fromRight.prepend(text);
        }
    }
    return lines.values();
}

/// How wide a part of a label is on a line of its own.
qreal widthOf(const Vexora::TextLabel& label, qsizetype start, qsizetype length) {
    QTextLayout layout(label.text(), label.font());
    layout.setFormats(label.formats());
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(1e6);
    layout.endLayout();
    return qAbs(line.cursorToX(static_cast<int>(start + length - 1), QTextLine::Trailing) -
                line.cursorToX(static_cast<int>(start)));
}

/// What must stay on one line, as places in the label's text.
QList<std::pair<qsizetype, qsizetype>> keptTogether(const Vexora::TextLabel& label) {
    QList<std::pair<qsizetype, qsizetype>> kept;
    for (const QTextLayout::FormatRange& range : label.formats()) {
        kept.append({range.start, range.length});
    }
    static const QRegularExpression name("Ondrel Vexora( Lumiq)?");
    for (auto names = name.globalMatch(label.text()); names.hasNext();) {
        const QRegularExpressionMatch match = names.next();
        kept.append({match.capturedStart(), match.capturedLength()});
    }
    return kept;
}

} // namespace

Faults checkTorn(const PaintedText& painted) {
    const auto* label = qobject_cast<const Vexora::TextLabel*>(painted.widget);
    if (label == nullptr) {
        return {};
    }
    Faults faults;
    const QList<Line> lines = linesOf(painted);
    const QString whole = withoutBlanks(label->text());
    const qreal room = label->contentsRect().width() - 2 * Vexora::TextLabel::padding;
    for (const auto& [start, length] : keptTogether(*label)) {
        const QString words = label->text().mid(start, length);
        const QString letters = withoutBlanks(words);
        qsizetype seen = 0;
        for (const Line& line : lines) {
            seen += line.count(letters);
        }
        if (seen < whole.count(letters) && widthOf(*label, start, length) <= room - tolerance) {
            faults.append({nameOf(*label), QString("tears \"%1\" over two lines").arg(words)});
        }
    }
    return faults;
}

Faults checkLineEnds(const PaintedText& painted) {
    static const QString small = "ぁぃぅぇぉっゃゅょゎァィゥェォッャュョヮヵヶー々";
    static const QString closing = ".,;:!?…。、，：；！？·・）」』】〉》،؛؟۔।%";
    static const QString opening = "（「『【〈《¿¡";
    const QList<Line> lines = linesOf(painted);
    if (qobject_cast<const Vexora::TextLabel*>(painted.widget) == nullptr || lines.size() < 2) {
        return {};
    }
    Faults faults;
    const bool fromRight = painted.widget->isRightToLeft();
    for (const Line& line : lines) {
        const QString& text = fromRight ? line.fromRight : line.fromLeft;
        const auto letters = std::ranges::count_if(
            text, [](QChar character) { return !character.isMark() && !character.isPunct(); });
        const QString name = nameOf(*painted.widget);
        if (letters < 2) {
            faults.append({name, QString("leaves \"%1\" alone on a line").arg(text)});
        }
        if (small.contains(text.front()) || closing.contains(text.front())) {
            faults.append(
                {name,
                 QString("begins the line \"%1\" with what belongs to the line before").arg(text)});
        }
        if (opening.contains(text.back())) {
            faults.append(
                {name, QString("ends the line \"%1\" with what belongs to the next").arg(text)});
        }
    }
    return faults;
}

} // namespace Gallery
