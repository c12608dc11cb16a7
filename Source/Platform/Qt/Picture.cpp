#include "Platform/Qt/Picture.h"

#include "Platform/Posix/FileSystem.h"

#include <QBuffer>
#include <QImageReader>
#include <QPainter>

namespace Vexora {

QPixmap readPicture(const std::string& path) {
    // The toolkit opens no path that is no UTF-8.
    const std::optional<std::string> content = contentOfFile(path);
    if (!content) {
        return {};
    }
    QByteArray bytes = QByteArray::fromStdString(*content);
    QBuffer device(&bytes);
    // Naming the format keeps the toolkit from trying every plugin it finds.
    QImageReader reader(&device, "png");
    reader.setAutoDetectImageFormat(false);
    return QPixmap::fromImageReader(&reader);
}

void Picture::loadFrom(const std::string& folder) {
    path_ = folder + '/' + property("imageName").toString().toStdString();
    pixmap_ = {};
    update();
    // There is time for it while the window is put on the screen.
    QMetaObject::invokeMethod(this, &Picture::read, Qt::QueuedConnection);
}

void Picture::read() {
    const bool dense = devicePixelRatioF() > 1.0;
    if (pixmap_.isNull() || dense != dense_) {
        dense_ = dense;
        pixmap_ = readPicture(path_ + (dense ? "@2x.png" : ".png"));
    }
}

void Picture::paintEvent(QPaintEvent*) {
    read();
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), pixmap_);
}

} // namespace Vexora
