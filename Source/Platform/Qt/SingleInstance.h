// One window of the program on a desktop: who starts another brings the first to the front. Main thread
// only.
#pragma once

#include <QDBusConnection>
#include <QDBusPendingCall>
#include <QVariantMap>
#include <QWidget>

namespace Vexora {

/// What the desktop told whoever started the program, which the window that comes to the front by it
/// tells the desktop. Before the toolkit, which takes it out of the environment.
QVariantMap startOfProgram();

class SingleInstance : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// Asks the bus for the program's name, and waits for nothing.
    /// \param window comes to the front when the program is started again; it outlives this.
    /// \param patience how many milliseconds the bus or another program may take to answer.
    SingleInstance(const QDBusConnection& bus, QWidget& window, int patience = 5000);

    /// Whether another program has the name, and has brought its window to the front. One that does not
    /// answer leaves this program on its own.
    bool isLeftToAnother(const QVariantMap& start);

public Q_SLOTS:
    /// Called by another program, over the bus. \param start of that program.
    void Activate(const QVariantMap& start);

private:
    QDBusConnection bus_;
    QWidget& window_;
    int patience_;
    QDBusPendingCall name_;
};

} // namespace Vexora
