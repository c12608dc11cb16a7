#include "ChecksFixture.h"

#include "PlaceChecks.h"
#include "Platform/Qt/Pane.h"
#include "Platform/Qt/TextLabel.h"

#include <QHBoxLayout>
#include <QProgressBar>

#include <functional>

namespace GalleryTest {

class PlaceChecks : public ChecksFixture {};

TEST_F(PlaceChecks, letNeighboursPass) {
    putLabel("One", {10, 10, 100, 30}, "one");
    putLabel("Two", {110, 10, 100, 30}, "two");
    expectNone();
}

TEST_F(PlaceChecks, findLabelsThatOverlapOnce) {
    putLabel("One", {10, 10, 100, 40}, "one");
    putLabel("Two", {90, 30, 100, 40}, "two");
    const QStringList lines = faults();
    ASSERT_EQ(lines.size(), 1) << lines.join('\n').toStdString();
    EXPECT_TRUE(lines.front().contains("shares 90, 30, 20 x 20 of the window with"));
}

TEST_F(PlaceChecks, findALabelUnderAButton) {
    putLabel("One", {10, 10, 100, 40}, "one");
    put(new QPushButton("Two"), {100, 10, 100, 40}, "two");
    expectOnly("shares 100, 10, 10 x 40 of the window with");
}

TEST_F(PlaceChecks, letHiddenControlsAndAreasPass) {
    putLabel("One", {10, 10, 100, 40}, "one");
    putLabel("Two", {10, 10, 100, 40}, "two").hide();
    put(new Vexora::Pane, {0, 0, 400, 300}, "pane");
    expectNone();
}

TEST(WindowSize, isThatOfTheDefinition) {
    EXPECT_TRUE(Gallery::checkSize({640, 580}, {640, 580}).isEmpty());
    const auto faults = Gallery::checkSize({640, 581}, {640, 580});
    ASSERT_EQ(faults.size(), 1);
    EXPECT_EQ(faults.front().text, "is 640 x 581, but its definition says 640 x 580");
}

/// The same window laid out in both directions.
class Mirror : public testing::Test {
protected:
    using Build = std::function<void(QWidget&)>;

    static Gallery::Places places(Qt::LayoutDirection direction, const Build& build) {
        QWidget window;
        window.setLayoutDirection(direction);
        window.setAttribute(Qt::WA_DontShowOnScreen);
        window.resize(400, 100);
        build(window);
        window.show();
        QCoreApplication::sendPostedEvents();
        return Gallery::placesIn(window, Gallery::textsIn(window));
    }

    static QStringList faults(const Build& build, const Build& leftToRight) {
        QStringList lines;
        const auto found = Gallery::checkMirrored(places(Qt::RightToLeft, build),
                                                  places(Qt::LeftToRight, leftToRight));
        for (const Gallery::Fault& fault : found) {
            lines.append(fault.control + ": " + fault.text);
        }
        return lines;
    }

    static QStringList faults(const Build& build) { return faults(build, build); }

    /// A row with a label at its start, a bar, and a button at its end.
    static void buildRow(QWidget& window) {
        auto* row = new QHBoxLayout(&window);
        auto* label = new Vexora::TextLabel;
        label->setStyledText(Vexora::StyledText("A label"));
        label->setObjectName("label");
        auto* bar = new QProgressBar;
        bar->setObjectName("bar");
        bar->setTextVisible(false);
        bar->setValue(30);
        auto* button = new QPushButton("A button");
        button->setObjectName("button");
        row->addWidget(label, 2);
        row->addWidget(bar, 2);
        row->addWidget(button, 1);
    }
};

TEST_F(Mirror, letsALayoutPass) {
    EXPECT_EQ(faults(buildRow).join('\n').toStdString(), "");
}

TEST_F(Mirror, findsAControlThatStays) {
    const QStringList lines = faults([](QWidget& window) {
        auto* button = new QPushButton("Close", &window);
        button->setObjectName("button");
        button->setGeometry(20, 20, 100, 40);
    });
    ASSERT_EQ(lines.size(), 2) << lines.join('\n').toStdString();
    EXPECT_EQ(lines.front(),
              "button: the control at 20, 20, 100 x 40 is no mirror image of 20, 20, "
              "100 x 40 in a window of width 400");
    EXPECT_TRUE(lines.back().startsWith("button: the text at "));
}

TEST_F(Mirror, findsATextThatStays) {
    const QStringList lines = faults([](QWidget& window) {
        buildRow(window);
        window.findChild<QLabel*>()->setAlignment(Qt::AlignLeft | Qt::AlignAbsolute);
    });
    ASSERT_EQ(lines.size(), 1) << lines.join('\n').toStdString();
    EXPECT_TRUE(lines.front().startsWith("label: the text at "));
}

TEST_F(Mirror, findsABarThatFillsFromTheSameSide) {
    const QStringList lines = faults([](QWidget& window) {
        buildRow(window);
        window.findChild<QProgressBar*>()->setLayoutDirection(Qt::LeftToRight);
    });
    ASSERT_EQ(lines.size(), 1) << lines.join('\n').toStdString();
    EXPECT_TRUE(lines.front().startsWith("bar: the bar fills from the wrong side: "));
}

TEST_F(Mirror, findsAControlThatIsNotThere) {
    const QStringList lines = faults(
        [](QWidget& window) {
            buildRow(window);
            delete window.findChild<QLabel*>();
        },
        buildRow);
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines.front().contains("2 controls in a width of 400 from right to left, but 3"));
}

} // namespace GalleryTest
