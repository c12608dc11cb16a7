#include "Portrait.h"

#include "ContrastCheck.h"
#include "GlyphCheck.h"
#include "PaintedText.h"
#include "PlaceChecks.h"
#include "Stage.h"
#include "TextChecks.h"

namespace Gallery {
namespace {

Findings check(QWidget& window, const QList<PaintedText>& texts, const QImage& picture) {
    Findings findings = checkTitle(window);
    for (const PaintedText& text : texts) {
        const QString name = nameOf(*text.widget);
        findings += checkInside(text);
        findings += checkWhole(text);
        findings += checkBlank(text);
        findings += checkTags(name, readTextOf(text));
        findings += checkLetters(name, textHeldBy(*text.widget), window.layoutDirection());
        findings += checkWords(text);
        findings += checkLines(text);
        findings += checkParagraphs(text);
        findings += checkGlyphs(text);
        findings += checkContrast(text, picture);
    }
    return findings + checkApart(window, texts);
}

QImage pictureOf(QWidget& window) {
    return window.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

Places mirrorOf(const Language& language, const Scene& scene) {
    Stage stage(language.leftToRight());
    stage.enter(scene);
    return placesIn(stage.window(), textsIn(stage.window()));
}

} // namespace

Portrait portray(const Language& language, const Scene& scene) {
    Portrait portrait;
    Places places;
    {
        // Only one window at a time: all of them follow the direction of the application.
        Stage stage(language);
        stage.enter(scene);
        const QList<PaintedText> texts = textsIn(stage.window());
        portrait.picture = pictureOf(stage.window());
        portrait.title = stage.window().windowTitle();
        portrait.findings = check(stage.window(), texts, portrait.picture);
        portrait.findings += checkSize(stage.window().size(), stage.definedSize());
        places = placesIn(stage.window(), texts);
    }
    if (language.isRightToLeft()) {
        portrait.findings += checkMirrored(places, mirrorOf(language, scene));
    }
    return portrait;
}

Findings checkWindow(QWidget& window) {
    return check(window, textsIn(window), pictureOf(window));
}

} // namespace Gallery
