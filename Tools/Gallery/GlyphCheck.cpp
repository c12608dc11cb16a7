#include "GlyphCheck.h"

#include "Platform/Qt/TextLabel.h"
#include "Words.h"

#include <QGlyphRun>
#include <QTextEdit>
#include <QTextLayout>

#include <algorithm>
#include <functional>

namespace Gallery {
namespace {

/// The glyph that every font shows for what it lacks.
constexpr quint32 missing = 0;

bool lacksGlyph(const QList<QGlyphRun>& runs) {
    return std::any_of(runs.begin(), runs.end(),
                       [](const QGlyphRun& run) { return run.glyphIndexes().contains(missing); });
}

/// The characters for which there is no glyph.
QStringList missingIn(const QTextLayout& layout) {
    QStringList names;
    if (!lacksGlyph(layout.glyphRuns())) {
        return names;
    }
    const QString text = layout.text();
    for (int at = 0; at < text.size();) {
        const bool pair = text.at(at).isHighSurrogate() && at + 1 < text.size();
        const int length = pair ? 2 : 1;
        if (lacksGlyph(layout.glyphRuns(at, length))) {
            names.append(characterName(pair ? QChar::surrogateToUcs4(text.at(at), text.at(at + 1))
                                            : text.at(at).unicode()));
        }
        at += length;
    }
    return names;
}

/// The words whose letters come from several fonts, and which.
QStringList mixedIn(const QTextLayout& layout) {
    QStringList names;
    const QString text = layout.text();
    for (int start = 0, end = 0; start < text.size(); start = end) {
        end = endOfWord(text, start);
        QStringList families;
        const auto runs = layout.glyphRuns(start, end - start);
        for (const QGlyphRun& run : runs) {
            families.append(run.rawFont().familyName());
        }
        families.removeDuplicates();
        if (families.size() > 1) {
            names.append(
                QString("\"%1\" (%2)").arg(text.mid(start, end - start), families.join(" and ")));
        }
    }
    return names;
}

/// Hands over every text of a widget, laid out.
void forEachLayout(const PaintedText& painted,
                   const std::function<void(const QTextLayout&)>& visit) {
    const QWidget& widget = *painted.widget;
    const auto visitText = [&](const QString& text,
                               const QList<QTextLayout::FormatRange>& formats) {
        QTextLayout layout(text, widget.font());
        layout.setFormats(formats);
        layout.beginLayout();
        layout.createLine();
        layout.endLayout();
        visit(layout);
    };
    if (const auto* label = qobject_cast<const Vexora::TextLabel*>(&widget)) {
        visitText(label->text(), label->formats());
    } else if (const auto* area = qobject_cast<const QTextEdit*>(widget.parentWidget())) {
        const QStringList paragraphs = area->toPlainText().split('\n');
        for (const QString& paragraph : paragraphs) {
            visitText(paragraph, {});
        }
    } else if (!textHeldBy(widget).isEmpty()) {
        visitText(textHeldBy(widget), {});
    } else {
        for (const PaintedPiece& piece : painted.pieces) {
            visitText(piece.text, {});
        }
    }
}

} // namespace

Findings checkGlyphs(const PaintedText& painted) {
    QStringList lacking;
    QStringList mixed;
    forEachLayout(painted, [&](const QTextLayout& layout) {
        lacking += missingIn(layout);
        mixed += mixedIn(layout);
    });
    lacking.removeDuplicates();
    mixed.removeDuplicates();
    Findings findings;
    if (!lacking.isEmpty()) {
        findings.append({nameOf(*painted.widget), "no installed font has " + lacking.join(", ")});
    }
    if (!mixed.isEmpty()) {
        findings.append({nameOf(*painted.widget),
                         "no installed font has the whole of a word: " + mixed.join(", ")});
    }
    return findings;
}

} // namespace Gallery
