#include "PreviewWindow.h"

#include "Scenes.h"
#include "Support/TemporaryFolder.h"

#include <QTest>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>

namespace PreviewStringsTest {

using PreviewStrings::PreviewWindow;

class Preview : public testing::Test {
protected:
    static std::string strings(const std::string& start) {
        return "\"Start\" = \"" + start + "\"\n";
    }

    void save(const std::string& bytes) { folder.write("de.lproj/Localizable.strings", bytes); }

    /// Saves as editors do that never leave half a file behind.
    void replace(const std::string& bytes) {
        const auto written = folder.write("de.lproj/Localizable.strings~", bytes);
        std::filesystem::rename(written, path());
    }

    std::filesystem::path path() const { return folder.path() / "de.lproj/Localizable.strings"; }

    void open() {
        window = std::make_unique<PreviewWindow>(QString::fromStdString(path().string()), "de");
        window->setAttribute(Qt::WA_DontShowOnScreen);
        window->show();
    }

    QString textOf(const QString& name) const { return window->findChild<QLabel*>(name)->text(); }
    QString message() const {
        const auto* label = window->findChild<QLabel*>("message");
        return label->isVisible() ? label->text() : QString();
    }
    QImage picture(const QString& name) const {
        return window->findChild<QLabel*>(name)->pixmap().toImage();
    }

    /// Waits until the screens have been drawn so often.
    bool waitForDrawing(int count) const {
        return QTest::qWaitFor([&] { return window->drawings() == count; }, 10000);
    }
    bool waitForMessage(const QString& part) const {
        return QTest::qWaitFor([&] { return message().contains(part); }, 10000);
    }

    TestSupport::TemporaryFolder folder;
    std::unique_ptr<PreviewWindow> window;
};

TEST_F(Preview, showsEverySceneWithItsFaults) {
    save(strings("Starten"));
    open();
    EXPECT_EQ(window->drawings(), 1);
    for (const Gallery::Scene& scene : Gallery::scenes()) {
        const QString name = QString::fromStdString(scene.name);
        EXPECT_FALSE(picture(name).isNull()) << scene.name;
        EXPECT_EQ(textOf(name + "-faults"), "No faults") << scene.name;
        EXPECT_EQ(window->findChild<QLabel*>(name)->accessibleName().toStdString(), scene.title);
    }
}

TEST_F(Preview, redrawsWhenTheFileIsSaved) {
    save(strings("Starten"));
    open();
    const QImage before = picture("start");
    save(strings("Los"));
    ASSERT_TRUE(waitForDrawing(2));
    EXPECT_NE(picture("start"), before);
    save(strings("Starten"));
    ASSERT_TRUE(waitForDrawing(3));
    EXPECT_EQ(picture("start"), before);
}

TEST_F(Preview, redrawsWhenTheFileIsReplacedAgainAndAgain) {
    save(strings("Starten"));
    open();
    QImage before = picture("start");
    int count = 1;
    for (const char* text : {"Los", "Weiter", "Beginnen"}) {
        replace(strings(text));
        ASSERT_TRUE(waitForDrawing(++count)) << text;
        EXPECT_NE(picture("start"), before) << text;
        before = picture("start");
    }
}

TEST_F(Preview, showsWhatTheChecksFind) {
    save(strings("Sta<i>rt"));
    open();
    EXPECT_TRUE(textOf("start-faults").contains("startButton: shows the tag <i>"))
        << textOf("start-faults").toStdString();
    EXPECT_EQ(textOf("completed-faults"), "No faults");
}

TEST_F(Preview, waitsForAFileThatIsMissing) {
    std::filesystem::create_directories(path().parent_path());
    open();
    EXPECT_TRUE(message().contains("cannot be read")) << message().toStdString();
    EXPECT_EQ(window->drawings(), 0);
    save(strings("Starten"));
    ASSERT_TRUE(waitForDrawing(1));
    EXPECT_FALSE(message().contains("cannot be read"));
}

TEST_F(Preview, waitsForAFolderThatIsMissing) {
    open();
    EXPECT_EQ(window->drawings(), 0);
    save(strings("Starten"));
    EXPECT_TRUE(waitForDrawing(1));
}

TEST_F(Preview, keepsThePicturesWhileTheFileIsAway) {
    save(strings("Starten"));
    open();
    const QImage before = picture("start");
    std::filesystem::remove(path());
    ASSERT_TRUE(waitForMessage("cannot be read"));
    EXPECT_EQ(picture("start"), before);
    save(strings("Los"));
    ASSERT_TRUE(waitForDrawing(2));
    EXPECT_NE(picture("start"), before);
}

TEST_F(Preview, tellsOfAFileWithoutTexts) {
    save("Start=Starten\n");
    open();
    EXPECT_TRUE(message().contains("Line 1: not-an-entry: ")) << message().toStdString();
    EXPECT_TRUE(message().contains("“Start”"));
    save("\"Start\" = \"St\xFFrten\"\n");
    EXPECT_TRUE(waitForMessage("Line 1: invalid-utf-8: ")) << message().toStdString();
}

TEST_F(Preview, doesNotFormatWhatHasNoArguments) {
    save(strings("100 %s%n") + "\"Close\" = \"100 %%\"\n\"Go back\" = \"100%\"\n");
    open();
    EXPECT_EQ(window->drawings(), 1);
    EXPECT_TRUE(message().contains("“Start” stays English")) << message().toStdString();
    EXPECT_TRUE(message().contains("“Go back” stays English")) << message().toStdString();
    EXPECT_FALSE(message().contains("“Close”"));
}

TEST_F(Preview, namesTheLinesThatBreakARule) {
    save(strings("Starten") + "\"Close\" = \"Schliessen\";\n\"Stop\" = \"Halt\"\n");
    open();
    EXPECT_EQ(window->drawings(), 1);
    EXPECT_TRUE(message().contains("Line 2: trailing-text: ")) << message().toStdString();
    EXPECT_TRUE(message().contains("Line 3: unknown-key: ")) << message().toStdString();
    EXPECT_FALSE(message().contains("Line 1: "));
}

TEST_F(Preview, namesTheTextsWithoutALine) {
    save(strings("Starten"));
    open();
    EXPECT_TRUE(message().contains("Texts without a line stay English: "))
        << message().toStdString();
    EXPECT_TRUE(message().contains("“Open logs”"));
    EXPECT_FALSE(message().contains("“Start”"));
}

TEST_F(Preview, staysFromLeftToRightWhateverItShows) {
    save(strings("Starten"));
    window = std::make_unique<PreviewWindow>(QString::fromStdString(path().string()), "ar");
    EXPECT_EQ(window->drawings(), 1);
    EXPECT_EQ(window->layoutDirection(), Qt::LeftToRight);
}

TEST(LanguageOfFile, isThatOfItsFolder) {
    EXPECT_EQ(PreviewStrings::languageOfFile("/texts/de.lproj/Localizable.strings"), "de");
    EXPECT_EQ(PreviewStrings::languageOfFile("/texts/PT.lproj/draft"), "pt");
    EXPECT_EQ(PreviewStrings::languageOfFile("/texts/Localizable.strings"), "");
    EXPECT_EQ(PreviewStrings::languageOfFile("/texts/deu.lproj/Localizable.strings"), "");
}

} // namespace PreviewStringsTest
