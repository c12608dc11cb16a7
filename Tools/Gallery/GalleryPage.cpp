// GalleryPage TEMPLATE FOLDER writes FOLDER/index.html, the page that shows all pictures and
// findings in the folder.
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
    const QByteArray bytes = Gallery::pageOf(QString::fromUtf8(source.readAll()), folder).toUtf8();
    return page.write(bytes) == bytes.size() ? 0 : 1;
}
