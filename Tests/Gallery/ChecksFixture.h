// A window of plain controls, for what the checks must find and what they must let pass.
#pragma once

#include "Portrait.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include <gtest/gtest.h>

namespace GalleryTest {

class ChecksFixture : public testing::Test {
protected:
    ChecksFixture() {
        window.resize(400, 300);
        window.setWindowTitle("A title");
        window.setAttribute(Qt::WA_DontShowOnScreen);
    }

    /// Puts a control into the window.
    template <class Kind>
    Kind& put(Kind* control, const QRect& place, const QString& name) {
        control->setParent(&window);
        control->setObjectName(name);
        control->setGeometry(place);
        return *control;
    }

    QLabel& putLabel(const QString& text, const QRect& place, const QString& name = "label") {
        auto* label = new QLabel(text);
        label->setTextFormat(Qt::PlainText);
        return put(label, place, name);
    }

    /// What the checks say about the window, "control: text" for each fault.
    QStringList faults() {
        window.show();
        QCoreApplication::sendPostedEvents();
        QStringList lines;
        for (const Gallery::Fault& fault : Gallery::checkWindow(window)) {
            lines.append(fault.control + ": " + fault.text);
        }
        return lines;
    }

    /// Expects exactly one fault, and in it these words.
    void expectOnly(const QString& words) {
        const QStringList lines = faults();
        EXPECT_EQ(lines.size(), 1) << lines.join('\n').toStdString();
        EXPECT_TRUE(lines.join('\n').contains(words)) << lines.join('\n').toStdString();
    }

    void expectNone() { EXPECT_EQ(faults().join('\n').toStdString(), ""); }

    QWidget window;
};

} // namespace GalleryTest
