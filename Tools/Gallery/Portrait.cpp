#include "Portrait.h"

#include "ContrastCheck.h"
#include "GlyphCheck.h"
#include "InstallerWindow.h"
#include "LineChecks.h"
#include "PaintedText.h"
#include "PlaceChecks.h"
#include "TextChecks.h"
#include "Toolkit.h"

#include <algorithm>

namespace Gallery {
namespace {

Faults check(QWidget& window, const QList<PaintedText>& texts, const QImage& picture) {
    Faults faults = checkTitle(window);
    for (const PaintedText& text : texts) {
        const QString name = nameOf(*text.widget);
        faults += checkInside(text);
        faults += checkWhole(text);
        faults += checkBlank(text);
        faults += checkTags(name, readTextOf(text));
        faults += checkLetters(name, textHeldBy(*text.widget), window.layoutDirection());
        faults += checkWords(text);
        faults += checkLines(text);
        faults += checkTorn(text);
        faults += checkLineEnds(text);
        faults += checkParagraphs(text);
        faults += checkGlyphs(text);
        faults += checkContrast(text, picture);
    }
    return faults + checkApart(window, texts);
}

QImage pictureOf(QWidget& window) {
    return window.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// What a screen of 480 x 480 leaves within the frame of a window.
constexpr QSize smallWindow(472, 440);

/// The faults that a window has only where it is small.
Faults checkSmall(InstallerWindow& installer, const Faults& otherwise) {
    installer.resize(smallWindow);
    const QSize size = installer.window().size();
    Faults faults;
    if (size != smallWindow) {
        faults.append(
            {"window",
             QString("needs %1 x %2 of a small screen").arg(size.width()).arg(size.height())});
    }
    for (const Fault& fault : checkWindow(installer.window())) {
        const bool isKnown = std::ranges::any_of(otherwise, [&fault](const Fault& known) {
            return known.control == fault.control && known.text == fault.text;
        });
        if (!isKnown) {
            faults.append({fault.control, "on a small screen, " + fault.text});
        }
    }
    return faults;
}

Places mirrorOf(const Language& language, const Scene& scene) {
    InstallerWindow installer(language.leftToRight());
    installer.enter(scene);
    return placesIn(installer.window(), textsIn(installer.window()));
}

} // namespace

Portrait portray(const Language& language, const Scene& scene) {
    Portrait portrait;
    Places places;
    {
        // Only one window at a time: all of them follow the direction of the application.
        InstallerWindow installer(language);
        installer.enter(scene);
        const QList<PaintedText> texts = textsIn(installer.window());
        portrait.picture = pictureOf(installer.window());
        portrait.title = installer.window().windowTitle();
        portrait.faults = check(installer.window(), texts, portrait.picture);
        places = placesIn(installer.window(), texts);
        // Larger letters than the definitions reckon with take more room.
        if (fontScale() == 1.0) {
            portrait.faults += checkSize(installer.window().size(), installer.definedSize());
            portrait.faultsWhenSmall = checkSmall(installer, portrait.faults);
        }
    }
    if (language.isRightToLeft()) {
        portrait.faults += checkMirrored(places, mirrorOf(language, scene));
    }
    return portrait;
}

Faults checkWindow(QWidget& window) {
    return check(window, textsIn(window), pictureOf(window));
}

} // namespace Gallery
