#include "Platform/Qt/Workspace.h"

#include "Qt/Printing.h"
#include "Support/TemporaryFolder.h"

#include <QDBusConnection>
#include <QDesktopServices>
#include <QProcess>
#include <QTest>
#include <QUrl>

#include <gtest/gtest.h>

#include <filesystem>

namespace QtTest {

/// A file viewer that writes down what it is asked to show.
class FileViewer : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.FileManager1")

public:
    QList<QStringList> shown;
    QStringList startupIds;

public Q_SLOTS:
    void ShowItems(const QStringList& addresses, const QString& startupId) {
        shown.append(addresses);
        startupIds.append(startupId);
    }
};

/// Collects the addresses that would be opened by another program.
class OpenedAddresses : public QObject {
    Q_OBJECT

public:
    OpenedAddresses() {
        QDesktopServices::setUrlHandler("file", this, "open");
        QDesktopServices::setUrlHandler("https", this, "open");
    }
    OpenedAddresses(const OpenedAddresses&) = delete;
    OpenedAddresses& operator=(const OpenedAddresses&) = delete;
    ~OpenedAddresses() override {
        QDesktopServices::unsetUrlHandler("file");
        QDesktopServices::unsetUrlHandler("https");
    }

    QList<QUrl> urls;

public Q_SLOTS:
    void open(const QUrl& url) { urls.append(url); }
};

class Workspace : public testing::Test {
protected:
    /// Starts a session bus of our own, on which nothing can be activated. The connection to it
    /// lasts as long as the process.
    static void SetUpTestSuite() {
        static const TestSupport::TemporaryFolder folder;
        const auto configuration =
            folder.write("session.conf",
                         "<!DOCTYPE busconfig PUBLIC \"-//freedesktop//DTD D-Bus Bus "
                         "Configuration 1.0//EN\" \"http://www.freedesktop.org/standards/dbus/"
                         "1.0/busconfig.dtd\"><busconfig><type>session</type><listen>unix:dir=" +
                             folder.path().string() +
                             "</listen><policy context=\"default\"><allow send_destination=\"*\" "
                             "eavesdrop=\"true\"/><allow eavesdrop=\"true\"/><allow "
                             "own=\"*\"/></policy></busconfig>");
        bus_ = new QProcess;
        bus_->start(DBUS_DAEMON, {"--nofork", "--print-address", "--config-file",
                                  QString::fromStdString(configuration.string())});
        ASSERT_TRUE(bus_->waitForReadyRead(10000)) << bus_->readAllStandardError().toStdString();
        address_ = QString::fromUtf8(bus_->readLine()).trimmed();
        qputenv("DBUS_SESSION_BUS_ADDRESS", address_.toUtf8());
    }

    static void TearDownTestSuite() {
        QDBusConnection::disconnectFromBus("viewer");
        bus_->terminate();
        bus_->waitForFinished(10000);
        delete bus_;
        bus_ = nullptr;
    }

    void SetUp() override { ASSERT_TRUE(QDBusConnection::sessionBus().isConnected()); }

    void TearDown() override { QDBusConnection::disconnectFromBus("viewer"); }

    /// Puts the file viewer on the bus.
    void offerViewer() {
        QDBusConnection connection = QDBusConnection::connectToBus(address_, "viewer");
        ASSERT_TRUE(connection.registerObject("/org/freedesktop/FileManager1", &viewer,
                                              QDBusConnection::ExportAllSlots));
        ASSERT_TRUE(connection.registerService("org.freedesktop.FileManager1"));
    }

    QString pathOf(const std::filesystem::path& path) {
        return QString::fromStdString(path.string());
    }

    static QProcess* bus_;
    static QString address_;

    TestSupport::TemporaryFolder folder;
    FileViewer viewer;
    OpenedAddresses opened;
    Vexora::QtWorkspace workspace;
};

QProcess* Workspace::bus_ = nullptr;
QString Workspace::address_;

TEST_F(Workspace, asksTheFileViewerToShowTheFile) {
    offerViewer();
    const auto file = folder.write("plain.log", "x");
    workspace.selectFile(file.string());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !viewer.shown.isEmpty(); }, 10000));
    EXPECT_EQ(viewer.shown, QList<QStringList>{{"file://" + pathOf(file)}});
    EXPECT_EQ(viewer.startupIds, QStringList(QString()));
    EXPECT_TRUE(opened.urls.isEmpty());
}

TEST_F(Workspace, encodesTheFilesAddress) {
    offerViewer();
    const auto file = folder.write("Ann Größe/50% #1?.log", "x");
    workspace.selectFile(file.string());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !viewer.shown.isEmpty(); }, 10000));
    EXPECT_EQ(viewer.shown.front(), QStringList("file://" + pathOf(folder.path()) +
                                                "/Ann%20Gr%C3%B6%C3%9Fe/50%25%20%231%3F.log"));
}

TEST_F(Workspace, opensTheFolderWithoutAFileViewer) {
    const auto file = folder.write("Ann Größe/a.log", "x");
    workspace.selectFile(file.string());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !opened.urls.isEmpty(); }, 10000));
    EXPECT_EQ(opened.urls, QList{QUrl::fromLocalFile(pathOf(file.parent_path()))});
}

TEST_F(Workspace, opensTheNearestFolderOfAMissingFile) {
    offerViewer();
    workspace.selectFile((folder.path() / "Library/Logs/a.log").string());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !opened.urls.isEmpty(); }, 10000));
    EXPECT_EQ(opened.urls, QList{QUrl::fromLocalFile(pathOf(folder.path()))});
    EXPECT_TRUE(viewer.shown.isEmpty());
}

TEST_F(Workspace, opensAWebAddressAsItIs) {
    workspace.openUrl("https://help.example/lumiq?a=1&b=%20x#top");
    ASSERT_EQ(opened.urls.size(), 1);
    EXPECT_EQ(opened.urls.front().toEncoded(), "https://help.example/lumiq?a=1&b=%20x#top");
}

class NearestFolder : public testing::Test {
protected:
    std::string nearest(const std::filesystem::path& path) {
        return Vexora::nearestFolder(QString::fromStdString(path.string())).toStdString();
    }

    TestSupport::TemporaryFolder folder;
};

TEST_F(NearestFolder, ofAFileIsTheOneThatHoldsIt) {
    const auto file = folder.write("a b/ö.log", "x");
    EXPECT_EQ(nearest(file), (folder.path() / "a b").string());
}

TEST_F(NearestFolder, ofAMissingFileIsTheOneThatWouldHoldIt) {
    EXPECT_EQ(nearest(folder.path() / "missing.log"), folder.path().string());
}

TEST_F(NearestFolder, skipsMissingFolders) {
    EXPECT_EQ(nearest(folder.path() / "a/b/c/d.log"), folder.path().string());
}

TEST_F(NearestFolder, isNoFile) {
    const auto file = folder.write("file", "x");
    EXPECT_EQ(nearest(file / "below/a.log"), folder.path().string());
}

TEST_F(NearestFolder, isTheRootAtLast) {
    EXPECT_EQ(nearest("/a.log"), "/");
    EXPECT_EQ(nearest("/missing-folder/of/nobody/a.log"), "/");
}

} // namespace QtTest

#include "WorkspaceTest.moc"
