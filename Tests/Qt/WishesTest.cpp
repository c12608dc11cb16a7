#include "Platform/Qt/Wishes.h"

#include <QDBusServer>
#include <QTest>

#include <gtest/gtest.h>

#include <optional>
#include <tuple>

namespace QtTest {

using Settings = QMap<QString, QVariantMap>;

/// A desktop's portal with the settings of the test's choice.
class Portal : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    Settings settings;

public Q_SLOTS:
    QMap<QString, QVariantMap> ReadAll(const QStringList& groups) const {
        Settings wanted;
        for (const QString& group : groups) {
            wanted[group] = settings.value(group);
        }
        return wanted;
    }
};

class Wishes : public testing::Test {
protected:
    Wishes() {
        QObject::connect(&server_, &QDBusServer::newConnection, [this](QDBusConnection connection) {
            connection.registerObject("/org/freedesktop/portal/desktop", &portal_,
                                      QDBusConnection::ExportAllSlots);
            serving_.push_back(connection);
        });
        client_ = QDBusConnection::connectToPeer(server_.address(), "wishes");
    }
    Wishes(const Wishes&) = delete;
    Wishes& operator=(const Wishes&) = delete;
    ~Wishes() override { QDBusConnection::disconnectFromPeer("wishes"); }

    /// What a desktop with these settings asks for.
    Vexora::Wishes wishesOf(const Settings& settings) {
        portal_.settings = settings;
        EXPECT_TRUE(QTest::qWaitFor([this] { return !serving_.empty(); }, 30000));
        std::optional<Vexora::Wishes> wishes;
        Vexora::askForWishes(client_, known,
                             [&](const Vexora::Wishes& answer) { wishes = answer; });
        EXPECT_TRUE(QTest::qWaitFor([&] { return wishes.has_value(); }, 30000));
        return wishes.value_or(Vexora::Wishes());
    }

    Vexora::Wishes known;

private:
    Portal portal_;
    QDBusServer server_;
    std::vector<QDBusConnection> serving_;
    QDBusConnection client_{"none"};
};

TEST_F(Wishes, areAgainstMotionWhereTheDesktopSaysSo) {
    EXPECT_TRUE(wishesOf({}).motion);
    EXPECT_TRUE(wishesOf({{"org.gnome.desktop.interface", {{"enable-animations", true}}}}).motion);
    const Settings against[] = {
        {{"org.freedesktop.appearance", {{"reduced-motion", 1U}}}},
        {{"org.gnome.desktop.interface", {{"enable-animations", false}}}},
        {{"org.kde.kdeglobals.KDE", {{"AnimationDurationFactor", "0"}}}},
    };
    for (const Settings& settings : against) {
        EXPECT_FALSE(wishesOf(settings).motion) << settings.firstKey().toStdString();
    }
}

TEST_F(Wishes, areForContrastWhereTheDesktopSaysSo) {
    EXPECT_FALSE(wishesOf({}).contrast);
    EXPECT_FALSE(wishesOf({{"org.gnome.desktop.interface", {{"gtk-theme", "Adwaita"}}}}).contrast);
    const Settings asking[] = {
        {{"org.freedesktop.appearance", {{"contrast", 1U}}}},
        {{"org.gnome.desktop.a11y.interface", {{"high-contrast", true}}}},
        {{"org.gnome.desktop.interface", {{"gtk-theme", "HighContrastInverse"}}}},
    };
    for (const Settings& settings : asking) {
        EXPECT_TRUE(wishesOf(settings).contrast) << settings.firstKey().toStdString();
    }
    known = {.motion = false, .contrast = true};
    EXPECT_TRUE(wishesOf({}).contrast);
    EXPECT_FALSE(wishesOf({}).motion);
}

TEST(WishesInColors, areForContrastInBlackAndWhite) {
    for (const auto& [ink, paper, asks] :
         {std::tuple(Qt::black, Qt::white, true), std::tuple(Qt::white, Qt::black, true),
          std::tuple(Qt::black, Qt::lightGray, false)}) {
        QPalette colors(Qt::gray);
        colors.setColor(QPalette::WindowText, ink);
        colors.setColor(QPalette::Window, paper);
        EXPECT_EQ(Vexora::wishesIn(colors).contrast, asks);
    }
}

} // namespace QtTest

#include "WishesTest.moc"
