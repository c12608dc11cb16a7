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
    const QString scale = devicePixelRatioF() > 1.0 ? QStringLiteral("@2x") : QString();
    pixmap_ = readPicture(folder + '/' + property("imageName").toString() + scale +
                          QStringLiteral(".png"));
    update();
}

void Picture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(rect(), pixmap_);
}

} // namespace Vexora
