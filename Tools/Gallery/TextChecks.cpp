#include "TextChecks.h"

#include "GlyphCheck.h"
#include "Platform/Qt/TextLabel.h"
#include "Platform/Qt/Views.h"
#include "Words.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <QPushButton>
#include <QRegularExpression>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionButton>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextEdit>
#include <QTextLayout>

#include <algorithm>

namespace Gallery {
namespace {

/// How far a place may be off, in pixels of the layout: what rounding to whole ones takes.
constexpr qreal tolerance = 1.0;

/// The room for text inside a control.
QRectF roomIn(const QWidget& widget) {
    if (qobject_cast<const QPushButton*>(&widget) != nullptr) {
        QStyleOptionButton option;
        option.initFrom(&widget);
        return widget.style()->subElementRect(QStyle::SE_PushButtonContents, &option, &widget);
    }
    return widget.contentsRect();
}

/// The text area whose visible part the widget is.
QTextEdit* textAreaOf(const QWidget& widget) {
    auto* edit = qobject_cast<QTextEdit*>(widget.parentWidget());
    return edit != nullptr && edit->viewport() == &widget ? edit : nullptr;
}

bool contains(QRectF outer, QRectF inner, bool scrolls) {
    outer.adjust(-tolerance, -tolerance, tolerance, tolerance);
    if (scrolls) {
        inner.setTop(outer.top());
        inner.setBottom(outer.bottom());
    }
    return outer.contains(inner);
}

/// The characters in an order of their own, for pieces are painted in that of the eye.
QString sorted(QString text) {
    text.removeIf([](QChar character) {
        return character.isSpace() || character.category() == QChar::Other_Format;
    });
    std::ranges::sort(text);
    return text;
}

/// How far a line of a mixed text may begin from its side: shaping rounds every piece of it.
constexpr qreal sideTolerance = 3.0;

bool startsOnItsSide(const QTextBlock& block, const QTextLine& line) {
    const QRectF room = line.rect();
    const qreal left = line.naturalTextRect().left();
    // The width of that rectangle allows for what the last letter has beyond its place.
    const qreal right = left + line.horizontalAdvance();
    return block.textDirection() == Qt::RightToLeft ? qAbs(right - room.right()) <= sideTolerance
                                                    : qAbs(left - room.left()) <= sideTolerance;
}

} // namespace

Faults checkInside(const PaintedText& painted) {
    Faults faults;
    const QWidget& widget = *painted.widget;
    const bool scrolls = textAreaOf(widget) != nullptr;
    for (const PaintedPiece& piece : painted.pieces) {
        const bool blank = piece.text.trimmed().isEmpty();
        if (!blank && !contains(roomIn(widget), piece.rect, scrolls)) {
            faults.append(
                {nameOf(widget), QString("\"%1\" at %2 leaves the room at %3")
                                     .arg(piece.text, words(piece.rect), words(roomIn(widget)))});
        }
    }
    const QRectF shown = shownRegionOf(widget).boundingRect();
    const QRectF ink = painted.inkRect();
    if (!ink.isEmpty() && !contains(shown, ink, scrolls)) {
        faults.append(
            {nameOf(widget), QString("ink at %1 is cut off at %2").arg(words(ink), words(shown))});
    }
    return faults;
}

Faults checkWhole(const PaintedText& painted) {
    const QString held = textHeldBy(*painted.widget);
    if (held.isEmpty() || sorted(held) == sorted(painted.characters())) {
        return {};
    }
    return {{nameOf(*painted.widget),
             QString("holds \"%1\", but paints \"%2\"").arg(held, painted.characters())}};
}

Faults checkTags(const QString& control, const QString& text) {
    static const QRegularExpression tag("</?[A-Za-z][^<>]*>?|&[a-z]+;");
    QStringList found;
    for (auto matches = tag.globalMatch(text); matches.hasNext();) {
        found.append(matches.next().captured());
    }
    if (found.isEmpty()) {
        return {};
    }
    return {{control, QString("shows the tag %1").arg(found.join(", "))}};
}

Faults checkWords(const PaintedText& painted) {
    const auto* label = qobject_cast<const Vexora::TextLabel*>(painted.widget);
    if (label == nullptr) {
        return {};
    }
    QTextLayout layout(label->text(), label->font());
    layout.setFormats(label->formats());
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    const qreal room = label->contentsRect().width() - 2 * Vexora::TextLabel::padding;
    if (layout.minimumWidth() <= room + tolerance) {
        return {};
    }
    return {{nameOf(*label), QString("has a word %1 wide in lines of %2: \"%3\"")
                                 .arg(layout.minimumWidth())
                                 .arg(room)
                                 .arg(label->text())}};
}

Faults checkBlank(const PaintedText& painted) {
    if (textHeldBy(*painted.widget).isEmpty() || !painted.inkRect().isEmpty()) {
        return {};
    }
    return {{nameOf(*painted.widget), "shows nothing of its text"}};
}

Faults checkLetters(const QString& control, const QString& text, Qt::LayoutDirection direction) {
    const auto isRightToLeft = [](QChar character) {
        return character.direction() == QChar::DirR || character.direction() == QChar::DirAL;
    };
    const auto found = std::ranges::find_if(text, isRightToLeft);
    if (direction == Qt::LeftToRight && found != text.end()) {
        return {
            {control, "holds, in a layout from left to right, " + characterName(found->unicode())}};
    }
    const bool hasLetters =
        std::ranges::any_of(text, [](QChar character) { return character.isLetter(); });
    if (direction == Qt::RightToLeft && found == text.end() && hasLetters) {
        return {{control,
                 QString("has no letter from right to left in such a layout: \"%1\"").arg(text)}};
    }
    return {};
}

Faults checkTitle(const QWidget& window) {
    const QString title = window.windowTitle();
    const QString name = "window";
    QPainterPath ink;
    ink.addText(0.0, 0.0, window.font(), title);
    Faults faults;
    if (ink.boundingRect().isEmpty()) {
        faults.append({name, "has a title of which nothing can be seen"});
    }
    return faults + checkTags(name, title) + checkGlyphs(name, title, window.font()) +
           checkLetters(name, title, window.layoutDirection());
}

Faults checkLines(const PaintedText& painted) {
    QList<qreal> baselines;
    for (const PaintedPiece& piece : painted.pieces) {
        baselines.append(piece.baseline);
    }
    std::ranges::sort(baselines);
    const qreal needed = QFontMetricsF(painted.widget->font()).height();
    for (qsizetype index = 1; index < baselines.size(); ++index) {
        const qreal distance = baselines.at(index) - baselines.at(index - 1);
        if (distance > tolerance && distance < needed - tolerance) {
            return {
                {nameOf(*painted.widget), QString("sets its lines %1 apart, but the font takes %2")
                                              .arg(distance)
                                              .arg(needed)}};
        }
    }
    return {};
}

Faults checkParagraphs(const PaintedText& painted) {
    const QTextEdit* area = textAreaOf(*painted.widget);
    if (area == nullptr) {
        return {};
    }
    Faults faults;
    const QString name = nameOf(*area);
    const qreal width = area->document()->size().width();
    if (area->horizontalScrollBar()->maximum() > 0 || width > area->viewport()->width()) {
        faults.append({name, QString("scrolls sideways: %1 wide, but there is room for %2")
                                 .arg(width)
                                 .arg(area->viewport()->width())});
    }
    const auto direction = Vexora::prevailingDirection(area->toPlainText());
    for (QTextBlock block = area->document()->begin(); block.isValid(); block = block.next()) {
        // What is in another language than the whole may follow either.
        if (Vexora::prevailingDirection(block.text()) == direction &&
            block.textDirection() != direction) {
            faults.append({name, QString("sets a paragraph in the wrong direction: \"%1\"")
                                     .arg(block.text().left(40))});
        }
        for (int line = 0; line < block.layout()->lineCount(); ++line) {
            if (!startsOnItsSide(block, block.layout()->lineAt(line))) {
                faults.append({name, QString("begins line %1 of a paragraph on the wrong side: "
                                             "\"%2\"")
                                         .arg(line + 1)
                                         .arg(block.text().left(40))});
            }
        }
    }
    return faults;
}

} // namespace Gallery
