#include "Platform/Qt/Awake.h"

#include "Qt/PrivateBus.h"

#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QTest>

#include <poll.h>
#include <unistd.h>

#include <array>
#include <memory>
#include <optional>
#include <thread>

namespace QtTest {

/// What writes down what it is asked to hold off, and when it may let go.
class InhibitPortal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Inhibit")

public:
    QList<uint> held;
    QString reason;

public Q_SLOTS:
    QDBusObjectPath Inhibit(const QString& /*window*/, uint what, const QVariantMap& options) {
        held.append(what);
        reason = options["reason"].toString();
        return QDBusObjectPath("/request/1");
    }
};

class Request : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Request")

public:
    int closed = 0;

public Q_SLOTS:
    void Close() { ++closed; }
};

class LoginManager : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")

public:
    LoginManager() { EXPECT_EQ(::pipe(ends_.data()), 0); }
    LoginManager(const LoginManager&) = delete;
    LoginManager& operator=(const LoginManager&) = delete;
    ~LoginManager() override {
        ::close(ends_[0]);
        closeOwnEnd();
    }

    QList<QStringList> asked;

    /// Whether nobody holds what was handed out.
    bool isFree() {
        closeOwnEnd();
        pollfd end{ends_[0], 0, 0};
        return ::poll(&end, 1, 0) == 1 && (end.revents & POLLHUP) != 0;
    }

public Q_SLOTS:
    QDBusUnixFileDescriptor Inhibit(const QString& what, const QString& who, const QString& why,
                                    const QString& mode) {
        asked.append({what, who, why, mode});
        return QDBusUnixFileDescriptor(ends_[1]);
    }

private:
    void closeOwnEnd() {
        if (ends_[1] >= 0) {
            ::close(ends_[1]);
            ends_[1] = -1;
        }
    }

    std::array<int, 2> ends_{-1, -1};
};

class Awake : public testing::Test {
protected:
    static bool waitFor(const std::function<bool()>& predicate) {
        return QTest::qWaitFor(predicate, 30000);
    }

    /// The connection to the system's bus lasts as long as the process.
    static void SetUpTestSuite() {
        bus_ = new PrivateBus;
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", bus_->address().toUtf8());
    }

    static void TearDownTestSuite() {
        delete bus_;
        bus_ = nullptr;
    }

    void offerPortal() {
        EXPECT_TRUE(
            serving.registerObject("/request/1", &request, QDBusConnection::ExportAllSlots));
        serving.offer("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", portal);
    }

    void offerLoginManager() {
        serving.offer("org.freedesktop.login1", "/org/freedesktop/login1", manager);
    }

private:
    static PrivateBus* bus_;

protected:
    Connection serving{*bus_, "serving"};
    Connection client{*bus_, "client"};
    InhibitPortal portal;
    Request request;
    LoginManager manager;
};

PrivateBus* Awake::bus_ = nullptr;

TEST_F(Awake, holdsOffSleepAndLogOutByThePortalUntilTheLastLetsGo) {
    offerPortal();
    offerLoginManager();
    auto awake = Vexora::keepAwake(client, "Vexora Setup");
    ASSERT_TRUE(waitFor([this] { return !portal.held.isEmpty(); }));
    EXPECT_EQ(portal.held, QList<uint>{1U | 4U});
    EXPECT_EQ(portal.reason, "Vexora Setup");
    EXPECT_TRUE(manager.asked.isEmpty());
    std::thread([awake = std::move(awake)] {}).join();
    EXPECT_TRUE(waitFor([this] { return request.closed == 1; }));
}

TEST_F(Awake, letsGoOfWhatIsGrantedOnlyAfterwards) {
    offerPortal();
    Vexora::keepAwake(client, "x").reset();
    EXPECT_TRUE(waitFor([this] { return request.closed == 1; }));
}

TEST_F(Awake, asksTheLoginManagerWithoutAPortal) {
    offerLoginManager();
    auto awake = Vexora::keepAwake(client, "Vexora Setup");
    ASSERT_TRUE(waitFor([this] { return !manager.asked.isEmpty(); }));
    EXPECT_EQ(manager.asked.front(),
              (QStringList{"sleep:shutdown", "Vexora Setup", "Vexora Setup", "block"}));
    EXPECT_FALSE(QTest::qWaitFor([this] { return manager.isFree(); }, 300));
    awake.reset();
    EXPECT_TRUE(waitFor([this] { return manager.isFree(); }));
}

TEST_F(Awake, asksTheLoginManagerWithoutASessionBus) {
    offerLoginManager();
    const auto awake = Vexora::keepAwake(QDBusConnection("none"), "x");
    EXPECT_TRUE(waitFor([this] { return !manager.asked.isEmpty(); }));
}

TEST_F(Awake, asksNobodyElseOnceNothingIsToBeHeldOff) {
    offerLoginManager();
    Vexora::keepAwake(client, "over").reset();
    // Its answer comes after the one above.
    const auto later = Vexora::keepAwake(client, "later");
    ASSERT_TRUE(waitFor([this] { return !manager.asked.isEmpty(); }));
    EXPECT_EQ(manager.asked.front().at(1), "later");
}

} // namespace QtTest

#include "AwakeTest.moc"
