#include "Qt/QtFixture.h"

namespace QtTest {

class TabOrder : public EveryState {
protected:
    /// The controls that the key reaches one after the other, until it comes round.
    QStringList reachedBy(int key, Qt::KeyboardModifiers modifiers) {
        QStringList names;
        press(key, modifiers);
        while (!names.contains(focus()) && names.size() < 20) {
            names.append(focus());
            press(key, modifiers);
        }
        return names;
    }

    /// The same names, beginning with the one that comes first in reading.
    static QStringList fromFirst(QStringList names, const QString& first) {
        while (names.contains(first) && names.front() != first) {
            names.append(names.takeFirst());
        }
        return names;
    }
};

INSTANTIATE_TEST_SUITE_P(In, TabOrder, statesAndLanguages, stateAndLanguageName);

TEST_P(TabOrder, followsReading) {
    enter(state());
    const QStringList expected = usableIn(state());
    EXPECT_EQ(fromFirst(reachedBy(Qt::Key_Tab, Qt::NoModifier), expected.front()), expected);
}

TEST_P(TabOrder, goesBackwardsToo) {
    enter(state());
    QStringList expected = usableIn(state());
    std::reverse(expected.begin(), expected.end());
    EXPECT_EQ(fromFirst(reachedBy(Qt::Key_Backtab, Qt::ShiftModifier), expected.front()), expected);
}

} // namespace QtTest
