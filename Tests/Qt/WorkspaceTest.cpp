#include "Platform/Qt/Workspace.h"

#include "Platform/Qt/Application.h"
#include "Qt/Printing.h"
#include "Qt/PrivateBus.h"

#include <QDBusContext>
#include <QDBusObjectPath>
#include <QDBusUnixFileDescriptor>
#include <QDesktopServices>
#include <QFile>
#include <QTest>
#include <QUrl>

#include <sys/stat.h>

#include <filesystem>
#include <optional>

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

/// A desktop's portal that writes down which files it is asked to show, or refuses.
class OpenPortal : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.OpenURI")

public:
    QStringList shown;
    QVariantMap options;
    bool refuses = false;

public Q_SLOTS:
    QDBusObjectPath OpenDirectory(const QString& /*window*/, const QDBusUnixFileDescriptor& file,
                                  const QVariantMap& given) {
        shown.append(
            QFile::symLinkTarget("/proc/self/fd/" + QString::number(file.fileDescriptor())));
        options = given;
        if (refuses) {
            sendErrorReply(QDBusError::Failed);
        }
        return QDBusObjectPath("/request");
    }
};

class Workspace : public testing::Test {
protected:
    /// The connection to the session bus lasts as long as the process.
    static void SetUpTestSuite() {
        bus_ = new PrivateBus;
        qputenv("DBUS_SESSION_BUS_ADDRESS", bus_->address().toUtf8());
    }

    static void TearDownTestSuite() {
        delete bus_;
        bus_ = nullptr;
    }

    void SetUp() override { ASSERT_TRUE(QDBusConnection::sessionBus().isConnected()); }

    /// Puts the file viewer on the bus.
    void offerViewer() {
        viewing_.emplace(*bus_, "viewer");
        viewing_->offer("org.freedesktop.FileManager1", "/org/freedesktop/FileManager1", viewer);
    }

    void offerPortal() {
        portal_.emplace(*bus_, "portal");
        portal_->offer("org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop", portal);
    }

    QString pathOf(const std::filesystem::path& path) {
        return QString::fromStdString(path.string());
    }

    TestSupport::TemporaryFolder folder;
    FileViewer viewer;
    OpenPortal portal;
    OpenedAddresses opened;
    Vexora::QtApplication application;
    Vexora::QtWorkspace workspace{application};

private:
    static PrivateBus* bus_;
    std::optional<Connection> viewing_;
    std::optional<Connection> portal_;
};

PrivateBus* Workspace::bus_ = nullptr;

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

TEST_F(Workspace, asksThePortalWithoutAFileViewer) {
    offerPortal();
    const auto file = folder.write("Ann Größe/a.log", "x");
    workspace.selectFile(file.string());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !portal.shown.isEmpty(); }, 30000));
    EXPECT_EQ(portal.shown, QStringList(pathOf(file)));
    EXPECT_EQ(portal.options, (QVariantMap{{"activation_token", QString()}}));
    EXPECT_TRUE(opened.urls.isEmpty());
}

TEST_F(Workspace, opensTheFolderWhereThePortalDoesNot) {
    offerPortal();
    portal.refuses = true;
    const auto file = folder.write("a.log", "x");
    workspace.selectFile(file.string());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !opened.urls.isEmpty(); }, 30000));
    EXPECT_EQ(portal.shown, QStringList(pathOf(file)));
    EXPECT_EQ(opened.urls, QList{QUrl::fromLocalFile(pathOf(folder.path()))});
}

TEST_F(Workspace, opensTheFolderOfWhatCannotBeHandedToThePortal) {
    offerPortal();
    const auto file = folder.path() / "a.log";
    ASSERT_EQ(::mkfifo(file.c_str(), 0600), 0);
    workspace.selectFile(file.string());
    ASSERT_TRUE(QTest::qWaitFor([&] { return !opened.urls.isEmpty(); }, 30000));
    EXPECT_EQ(opened.urls, QList{QUrl::fromLocalFile(pathOf(folder.path()))});
    EXPECT_TRUE(portal.shown.isEmpty());
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

TEST_F(NearestFolder, isOpenedWithoutABus) {
    OpenedAddresses opened;
    const Vexora::QtApplication application;
    Vexora::QtWorkspace workspace(application);
    qputenv("DBUS_SESSION_BUS_ADDRESS", "none:");
    ASSERT_FALSE(QDBusConnection::sessionBus().isConnected());
    workspace.selectFile(folder.write("a.log", "x").string());
    EXPECT_EQ(opened.urls,
              QList{QUrl::fromLocalFile(QString::fromStdString(folder.path().string()))});
}

} // namespace QtTest

#include "WorkspaceTest.moc"
