#include "Album.h"
#include "Scenes.h"
#include "Support/TemporaryFolder.h"

#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <gtest/gtest.h>

namespace GalleryTest {

class Album : public testing::Test {
protected:
    Album() {
        resources.write("de.lproj/Localizable.strings", "\"Start\" = \"<i>Start & \\\"go\\\"\"\n");
    }

    QString root() const { return QString::fromStdString(folder.path().string()); }

    TestSupport::TemporaryFolder folder;
    TestSupport::TemporaryFolder resources;
    Gallery::Language faulty = Gallery::languageIn(resources.path().string(), "de");
};

TEST_F(Album, holdsAPictureOfEveryScene) {
    Gallery::saveAlbum(root(), faulty);
    for (const Gallery::Scene& scene : Gallery::scenes()) {
        const QString file = root() + "/1x/de/" + QString::fromStdString(scene.name) + ".png";
        EXPECT_EQ(QImage(file).size(), QSize(640, 580)) << file.toStdString();
    }
}

TEST_F(Album, tellsLanguageSceneControlAndFault) {
    const QStringList faults = Gallery::saveAlbum(root(), faulty);
    ASSERT_FALSE(faults.isEmpty());
    EXPECT_EQ(faults.front(), "de, start, startButton: shows the tag <i>");
}

TEST_F(Album, isDescribedForThePage) {
    Gallery::saveAlbum(root(), faulty);
    QFile file(root() + "/1x/de.js");
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QByteArray call = file.readAll();
    ASSERT_TRUE(call.startsWith("album(") && call.endsWith(");\n")) << call.toStdString();
    const QJsonObject album = QJsonDocument::fromJson(call.mid(6).chopped(3)).object();
    EXPECT_EQ(album["code"], "de");
    EXPECT_EQ(album["scale"], "1x");
    EXPECT_EQ(album["rightToLeft"], false);
    EXPECT_EQ(album["title"], "Ondrel Vexora Lumiq Setup");
    const QJsonArray scenes = album["scenes"].toArray();
    EXPECT_EQ(scenes.size(), static_cast<qsizetype>(Gallery::scenes().size()));
    EXPECT_EQ(scenes[0]["name"], "start");
    EXPECT_EQ(scenes[0]["title"], "Start");
    EXPECT_EQ(scenes[0]["faults"], QJsonArray{"startButton: shows the tag <i>"});
    EXPECT_EQ(scenes[1]["faults"], QJsonArray{});
}

TEST_F(Album, failsWhereNothingCanBeWritten) {
    const QString file = QString::fromStdString(folder.write("file", "").string());
    EXPECT_THROW(Gallery::saveAlbum(file, faulty), std::runtime_error);
}

} // namespace GalleryTest
