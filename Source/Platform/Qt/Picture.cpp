#include "Platform/Qt/Picture.h"

#include <QPainter>

namespace Vexora {

void Picture::loadFrom(const QString& folder) {
    icon_ = QIcon(folder + '/' + property("imageName").toString() + QStringLiteral(".png"));
    update();
}

void Picture::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    icon_.paint(&painter, rect());
}

} // namespace Vexora
