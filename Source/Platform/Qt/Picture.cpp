#include "Platform/Qt/Picture.h"

#include <QFile>
#include <QImageReader>
#include <QPainter>

namespace Vexora {

QPixmap readPicture(const QString& path) {
    if (!QFile::exists(path)) {
        return {};
    }
    // Naming the format keeps the toolkit from trying every plugin it finds.
    QImageReader reader(path, "png");
    reader.setAutoDetectImageFormat(false);
    return QPixmap::fromImageReader(&reader);
}

void Picture::loadFrom(const QString& folder) {
    path_ = folder + '/' + property("imageName").toString();
    pixmap_ = {};
    update();
}

void Picture::paintEvent(QPaintEvent*) {
    const bool dense = devicePixelRatioF() > 1.0;
    if (pixmap_.isNull() || dense != dense_) {
        dense_ = dense;
        pixmap_ = readPicture(path_ + (dense ? "@2x.png" : ".png"));
    }
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), pixmap_);
}

} // namespace Vexora
