#include "Platform/Qt/MainQueue.h"

#include <QCoreApplication>
#include <QTimer>

#include <chrono>
#include <cmath>

namespace Vexora {

void QtMainQueue::async(std::function<void()> block) {
    QMetaObject::invokeMethod(qApp, std::move(block), Qt::QueuedConnection);
}

void QtMainQueue::after(double seconds, std::function<void()> block) {
    const std::chrono::milliseconds delay(std::llround(std::ceil(seconds * 1000.0)));
    QTimer::singleShot(delay, Qt::PreciseTimer, qApp, std::move(block));
}

} // namespace Vexora
