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
                   "{{SUMMARY}}|{{LANGUAGES}}|{{SCENES}}|{{FINDINGS}}|{{HEAD}}|{{ROWS}}", folder)
            .html;
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
    const QStringList faults = Gallery::saveAlbum(root(), faulty);
    ASSERT_FALSE(faults.isEmpty());
    EXPECT_EQ(faults.front(), "de, start, startButton: shows the tag <i>");
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
    EXPECT_FALSE(page.contains("every check holds"));
    EXPECT_TRUE(page.contains("data-language=\"ar\" data-direction=\"rtl\""));
    EXPECT_TRUE(page.contains("<span class=\"badge\">right to left</span>"));
}

TEST_F(AlbumTest, isNamedOnThePageWhereItLacksAPicture) {
    const auto all =
        static_cast<qsizetype>(2 * Gallery::languages().size() * Gallery::scenes().size());
    EXPECT_EQ(Gallery::pageOf("", root()).missing, all);
    Gallery::saveAlbum(root(), faulty);
    const auto rendered = static_cast<qsizetype>(Gallery::scenes().size());
    EXPECT_EQ(Gallery::pageOf("", root()).missing, all - rendered);
    EXPECT_TRUE(QFile::remove(root() + "/1x/de/licence.png"));
    const Gallery::Page page = Gallery::pageOf("{{FINDINGS}}", root());
    EXPECT_EQ(page.missing, all - rendered + 1);
    EXPECT_TRUE(page.html.contains("<td>German</td><td><a href=\"#de-licence\">Licence</a></td>"
                                   "<td>1x</td><td>window</td><td>was not rendered</td>"));
    EXPECT_FALSE(page.html.contains("<a href=\"#de-start\">Start</a></td><td>1x</td>"
                                    "<td>window</td>"));
}

} // namespace GalleryTest
