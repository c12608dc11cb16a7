// All screens in the texts of one strings file, drawn again whenever the file changes, each with
// what the checks find in it. Main thread only.
#pragma once

#include "Draft.h"

#include <QFileSystemWatcher>
#include <QLabel>
#include <QList>
#include <QTimer>
#include <QWidget>

namespace Gallery {

class PreviewWindow : public QWidget {
    Q_OBJECT

public:
    /// \param file the strings file, which may not be there yet.
    /// \param code the two letters of its language.
    PreviewWindow(const QString& file, const std::string& code);

    /// How often the screens were drawn.
    int drawings() const { return drawings_; }

private:
    /// A scene on the window; the object names are the scene's name, and that with "-faults".
    struct Place {
        QLabel* picture;
        QLabel* faults;
    };

    void build();
    void watch();
    void reload();
    void draw();

    QString file_;
    Draft draft_;
    QByteArray drawn_;
    int drawings_ = 0;
    QLabel* message_ = nullptr;
    QList<Place> places_;
    QFileSystemWatcher watcher_;
    /// Lets an editor finish what it does in several steps.
    QTimer delay_;
};

} // namespace Gallery
