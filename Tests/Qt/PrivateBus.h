// A bus of a test's own, on which nothing can be activated, for as long as this lives.
#pragma once

#include "Support/TemporaryFolder.h"

#include <QDBusConnection>
#include <QProcess>

#include <gtest/gtest.h>

namespace QtTest {

class PrivateBus {
public:
    PrivateBus() {
        const auto configuration =
            folder_.write("session.conf",
                          "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus "
                          "Configuration 1.0//EN\" \"http://www.freedesktop.org/standards/dbus/"
                          "1.0/busconfig.dtd\"><busconfig><type>session</type><listen>unix:dir=" +
                              folder_.path().string() +
                              "</listen><policy context=\"default\"><allow send_destination=\"*\" "
                              "eavesdrop=\"true\"/><allow eavesdrop=\"true\"/><allow "
                              "own=\"*\"/></policy></busconfig>");
        process_.start(DBUS_DAEMON, {"--nofork", "--print-address", "--config-file",
                                     QString::fromStdString(configuration.string())});
        EXPECT_TRUE(process_.waitForReadyRead(30000));
        address_ = QString::fromUtf8(process_.readLine()).trimmed();
    }
    PrivateBus(const PrivateBus&) = delete;
    PrivateBus& operator=(const PrivateBus&) = delete;
    ~PrivateBus() {
        process_.terminate();
        process_.waitForFinished(30000);
    }

    const QString& address() const { return address_; }

private:
    TestSupport::TemporaryFolder folder_;
    QProcess process_;
    QString address_;
};

/// A connection to a bus that ends with this; its name is for this process alone.
class Connection : public QDBusConnection {
public:
    Connection(const PrivateBus& bus, const QString& name)
        : QDBusConnection(connectToBus(bus.address(), name)) {
        EXPECT_TRUE(isConnected());
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() { disconnectFromBus(name()); }

    /// Offers the slots of an object under a name of the bus.
    void offer(const QString& service, const QString& path, QObject& object) {
        EXPECT_TRUE(registerObject(path, &object, ExportAllSlots));
        EXPECT_TRUE(registerService(service));
    }
};

} // namespace QtTest
