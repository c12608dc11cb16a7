// render_gallery FOLDER CODE [RESOURCES] renders every scene of a language or pseudo-locale into the
// folder, at the scale of the display, and measures what the pictures show; its texts come from
// another resource folder where one is named. Prints what is wrong, one line each, and fails when
// there is anything.
#include "Album.h"
#include "Platform/Backend.h"
#include "Toolkit.h"

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
        Gallery::useTypefaceOfPictures();
        const QStringList faults = Gallery::saveAlbum(QString::fromLocal8Bit(argv[1]), language);
        for (const QString& fault : faults) {
            std::puts(qPrintable(fault));
        }
        return faults.isEmpty() ? 0 : 1;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "render_gallery: %s\n", error.what());
        return 2;
    }
}
