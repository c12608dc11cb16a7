#include "GlyphCheck.h"

#include "Platform/Qt/TextLabel.h"
#include "Words.h"

#include <QGlyphRun>
#include <QRawFont>
#include <QTextEdit>
#include <QTextLayout>

#include <algorithm>
#include <functional>

namespace Gallery {
namespace {

/// The glyph that every font shows for what it lacks.
constexpr quint32 missing = 0;

bool lacksGlyph(const QList<QGlyphRun>& runs) {
    return std::ranges::any_of(
        runs, [](const QGlyphRun& run) { return run.glyphIndexes().contains(missing); });
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
            const QRawFont font = run.rawFont();
            // What draws boxes has no tables, and asking for its name crashes.
            families.append(font.fontTable("head").isEmpty() ? QString() : font.familyName());
        }
        // Runs come in an order of their own.
        families.sort();
        families.removeDuplicates();
        if (families.size() > 1) {
            names.append(
                QString("\"%1\" (%2)").arg(text.mid(start, end - start), families.join(" and ")));
        }
    }
    return names;
}

using Formats = QList<QTextLayout::FormatRange>;
using Visitor = std::function<void(const QTextLayout&)>;

void layOut(const QString& text, const QFont& font, const Formats& formats, const Visitor& visit) {
    QTextLayout layout(text, font);
    layout.setFormats(formats);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    visit(layout);
}

/// Hands over every text of a widget, laid out.
void forEachLayout(const PaintedText& painted, const Visitor& visit) {
    const QWidget& widget = *painted.widget;
    const auto visitText = [&](const QString& text, const Formats& formats) {
        layOut(text, widget.font(), formats, visit);
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

/// What several texts of one control lack.
struct Lacks {
    QStringList glyphs;
    QStringList words;

    void add(const QTextLayout& layout) {
        glyphs += missingIn(layout);
        words += mixedIn(layout);
    }

    Faults faults(const QString& name) {
        glyphs.removeDuplicates();
        words.removeDuplicates();
        Faults all;
        if (!glyphs.isEmpty()) {
            all.append({name, "no installed font has " + glyphs.join(", ")});
        }
        if (!words.isEmpty()) {
            all.append({name, "no installed font has the whole of a word: " + words.join(", ")});
        }
        return all;
    }
};

} // namespace

Faults checkGlyphs(const PaintedText& painted) {
    Lacks lacks;
    forEachLayout(painted, [&lacks](const QTextLayout& layout) { lacks.add(layout); });
    return lacks.faults(nameOf(*painted.widget));
}

Faults checkGlyphs(const QString& name, const QString& text, const QFont& font) {
    Lacks lacks;
    layOut(text, font, {}, [&lacks](const QTextLayout& layout) { lacks.add(layout); });
    return lacks.faults(name);
}

} // namespace Gallery
