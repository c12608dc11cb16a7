#include "Platform/Qt/SingleInstance.h"

#include "Qt/PrivateBus.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QSemaphore>
#include <QTest>
#include <QThread>

#include <optional>

namespace QtTest {

constexpr auto objectPath = "/com/ondrel/vexora/lumiq/setup";

/// The program that was started first, on a thread of its own.
class First : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    First() {
        moveToThread(&thread_);
        thread_.start();
    }
    First(const First&) = delete;
    First& operator=(const First&) = delete;
    ~First() override {
        answer.release();
        thread_.quit();
        thread_.wait();
    }

    /// Before it is asked for the first time, it has to be released to answer.
    QSemaphore answer;
    QVariantMap start;

public Q_SLOTS:
    void Activate(const QVariantMap& given) {
        start = given;
        answer.acquire();
    }

private:
    QThread thread_;
};

class SingleInstance : public testing::Test {
protected:
    /// Whether a program that is started now is left to one that is there.
    bool isLeft(int patience = 30000) {
        second.emplace(connection, window, patience);
        return second->isLeftToAnother({{"activation-token", "x"}});
    }

    bool hasName() {
        const QDBusReply<QString> owner = client.interface()->serviceOwner(VEXORA_IDENTIFIER);
        return owner.value() == connection.baseService();
    }

    PrivateBus bus;
    Connection client{bus, "client"};
    std::optional<Connection> other{std::in_place, bus, "other"};
    Connection connection{bus, "second"};
    QWidget window;
    First first;
    std::optional<Vexora::SingleInstance> second;
};

TEST_F(SingleInstance, takesTheNameWhereItIsTheFirst) {
    EXPECT_FALSE(isLeft());
    EXPECT_TRUE(hasName());
}

TEST_F(SingleInstance, isLeftToTheFirstWithWhatStartedIt) {
    other->offer(VEXORA_IDENTIFIER, objectPath, first);
    first.answer.release();
    EXPECT_TRUE(isLeft());
    EXPECT_EQ(first.start, (QVariantMap{{"activation-token", "x"}}));
}

TEST_F(SingleInstance, isOnItsOwnWhereTheFirstDoesNotAnswerAndTakesItsPlaceLater) {
    other->offer(VEXORA_IDENTIFIER, objectPath, first);
    EXPECT_FALSE(isLeft(100));
    EXPECT_FALSE(hasName());
    // The connection ends with the call.
    first.answer.release();
    other.reset();
    EXPECT_TRUE(QTest::qWaitFor([this] { return hasName(); }, 30000));
}

TEST_F(SingleInstance, isOnItsOwnWhereTheFirstHasEndedMeanwhile) {
    other->offer(VEXORA_IDENTIFIER, objectPath, first);
    second.emplace(connection, window, 30000);
    // What comes after on the same connection tells that the bus has answered.
    EXPECT_FALSE(connection.interface()->isServiceRegistered("x.y"));
    other.reset();
    EXPECT_FALSE(second->isLeftToAnother({}));
    EXPECT_TRUE(QTest::qWaitFor([this] { return hasName(); }, 30000));
}

TEST_F(SingleInstance, isOnItsOwnWithoutABus) {
    Vexora::SingleInstance alone(QDBusConnection("none"), window);
    EXPECT_FALSE(alone.isLeftToAnother({}));
}

TEST_F(SingleInstance, bringsItsWindowToTheFrontForAnother) {
    EXPECT_FALSE(isLeft());
    window.showMinimized();
    QWidget above;
    above.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&above));
    QDBusMessage call = QDBusMessage::createMethodCall(VEXORA_IDENTIFIER, objectPath,
                                                       "org.freedesktop.Application", "Activate");
    client.asyncCall(call << QVariantMap());
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window, 30000));
    EXPECT_FALSE(window.isMinimized());
}

TEST(StartOfProgram, isWhatTheDesktopPutIntoTheEnvironment) {
    qputenv("DESKTOP_STARTUP_ID", "one");
    qputenv("XDG_ACTIVATION_TOKEN", "two");
    EXPECT_EQ(Vexora::startOfProgram(),
              (QVariantMap{{"desktop-startup-id", "one"}, {"activation-token", "two"}}));
}

} // namespace QtTest

#include "SingleInstanceTest.moc"
