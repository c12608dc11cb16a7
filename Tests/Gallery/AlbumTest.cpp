#include "Album.h"
#include "Page.h"
#include "Scenes.h"
#include "Support/TemporaryFolder.h"

#include <QDir>
#include <QFile>
#include <QImage>

#include <gtest/gtest.h>

namespace GalleryTest {

class AlbumTest : public testing::Test {
protected:
    AlbumTest() {
        resources.write("de.lproj/Localizable.strings", "\"Start\" = \"<i>Start & \\\"go\\\"\"\n");
    }

    QString root() const { return QString::fromStdString(folder.path().string()); }

    static QString pageOf(const QString& folder) {
        return Gallery::pageOf(
            "{{SUMMARY}}|{{LANGUAGES}}|{{SCENES}}|{{FINDINGS}}|{{HEAD}}|{{ROWS}}", folder);
    }

    TestSupport::TemporaryFolder folder;
    TestSupport::TemporaryFolder resources;
    Gallery::Language faulty = Gallery::languageIn(resources.path().string(), "de");
};

TEST_F(AlbumTest, holdsAPictureOfEveryScene) {
    Gallery::saveAlbum(root(), faulty);
    for (const Gallery::Scene& scene : Gallery::scenes()) {
        const QString file = root() + "/1x/de/" + QString::fromStdString(scene.name) + ".png";
        EXPECT_EQ(QImage(file).size(), QSize(640, 580)) << file.toStdString();
    }
    EXPECT_TRUE(QFile::exists(root() + "/1x/de.json"));
}

TEST_F(AlbumTest, tellsLanguageSceneControlAndFault) {
    const QStringList findings = Gallery::saveAlbum(root(), faulty);
    ASSERT_FALSE(findings.isEmpty());
    EXPECT_EQ(findings.front(), "de, start, startButton: shows the tag <i>");
}

TEST_F(AlbumTest, failsWhereNothingCanBeWritten) {
    const QString file = QString::fromStdString(folder.write("file", "").string());
    EXPECT_THROW(Gallery::saveAlbum(file, faulty), std::runtime_error);
}

TEST_F(AlbumTest, isShownOnThePageWithItsFindings) {
    Gallery::saveAlbum(root(), faulty);
    const QString page = pageOf(root());
    EXPECT_TRUE(page.contains("<td id=\"de-start\" data-scene=\"start\" class=\"faulty\">"));
    EXPECT_TRUE(page.contains("src=\"1x/de/start.png\" width=\"640\" height=\"580\" "
                              "alt=\"German – Start\""));
    EXPECT_TRUE(page.contains("<td>startButton</td><td>shows the tag &lt;i&gt;</td>"));
    EXPECT_TRUE(page.contains("<span lang=\"de\" dir=\"auto\">Deutsch</span>"));
    EXPECT_FALSE(page.contains("{{"));
}

TEST_F(AlbumTest, leavesAGapOnThePageWhereItIsMissing) {
    const QString page = pageOf(root());
    EXPECT_TRUE(page.contains("<p class=\"none\">not rendered</p>"));
    EXPECT_TRUE(page.contains("<p>None: every check holds in every picture.</p>"));
    EXPECT_TRUE(page.contains("data-language=\"ar\" data-direction=\"rtl\""));
    EXPECT_TRUE(page.contains("<span class=\"badge\">right to left</span>"));
}

} // namespace GalleryTest
