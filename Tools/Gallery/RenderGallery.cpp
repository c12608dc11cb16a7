// render_gallery FOLDER CODE [RESOURCES] renders every scene of a language or pseudo-locale into the
// folder, at the scale of the display, and measures what the pictures show; its texts come from
// another resource folder where one is named. Prints what is wrong, one line each, and fails when
// there is anything. Where GALLERY_TYPEFACE is "own", the program chooses its typeface as it does
// among whatever the system has; where it is "none", letters may show as boxes besides.
#include "Album.h"
#include "Platform/Backend.h"
#include "Toolkit.h"

#include <QRegularExpression>

#include <cstdio>
#include <exception>
#include <string>

int main(int argc, char** argv) {
    if (argc < 3 || argc > 4) {
        std::fputs("Usage: render_gallery FOLDER CODE [RESOURCES]\n", stderr);
        return 2;
    }
    try {
        const std::string code = argv[2];
        const Gallery::Language language =
            argc == 4 ? Gallery::languageIn(argv[3], code) : Gallery::languageOf(code);
        Gallery::prepareToolkit(language.layoutCode);
        const Vexora::Backend backend(argc, argv);
        const QByteArray typeface = qgetenv("GALLERY_TYPEFACE");
        if (typeface.isEmpty()) {
            Gallery::useTypefaceOfPictures();
        }
        QStringList faults = Gallery::saveAlbum(QString::fromLocal8Bit(argv[1]), language);
        if (typeface == "none") {
            // Boxes are wider than most letters, so that the window may have to be larger.
            const QRegularExpression boxes(
                ": no installed font has |, window: is .* its definition| small screen");
            faults.removeIf([&](const QString& fault) { return fault.contains(boxes); });
        }
        for (const QString& fault : faults) {
            std::puts(qPrintable(fault));
        }
        return faults.isEmpty() ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "render_gallery: %s\n", error.what());
        return 2;
    }
}
