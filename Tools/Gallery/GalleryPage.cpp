// GalleryPage TEMPLATE FOLDER writes FOLDER/index.html, the page that shows all pictures and
// findings in the folder. Fails when a picture is missing.
#include "Page.h"

#include <QFile>

#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("Usage: GalleryPage TEMPLATE FOLDER\n", stderr);
        return 2;
    }
    const QString folder = QString::fromLocal8Bit(argv[2]);
    QFile source(QString::fromLocal8Bit(argv[1]));
    QFile page(folder + "/index.html");
    if (!source.open(QIODevice::ReadOnly) || !page.open(QIODevice::WriteOnly)) {
        std::fputs("GalleryPage: the template cannot be read, or the page cannot be written\n",
                   stderr);
        return 1;
    }
    const Gallery::Page made = Gallery::pageOf(QString::fromUtf8(source.readAll()), folder);
    const QByteArray bytes = made.html.toUtf8();
    if (page.write(bytes) != bytes.size() || !page.flush()) {
        std::fputs("GalleryPage: the page cannot be written\n", stderr);
        return 1;
    }
    if (made.missing > 0) {
        std::fprintf(stderr, "GalleryPage: %lld pictures were not rendered\n",
                     static_cast<long long>(made.missing));
        return 1;
    }
    return 0;
}
