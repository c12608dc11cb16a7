// All screens in the texts of one strings file, drawn again whenever the file changes, each with
// what the checks find in it. Main thread only.
#pragma once

#include "Draft.h"

#include <QFileSystemWatcher>
#include <QLabel>
#include <QTimer>
#include <QWidget>

namespace PreviewStrings {

class PreviewWindow : public QWidget {
    Q_OBJECT

public:
    /// \param file the strings file, which may not be there yet.
    /// \param code the two letters of its language.
    PreviewWindow(const QString& file, const std::string& code);

    /// How often the screens were drawn.
    int drawings() const { return drawings_; }

private:
    void build();
    void watch();
    void reload();
    void draw();

    /// A label of that name in the window.
    QLabel& label(const QString& name) const { return *findChild<QLabel*>(name); }

    QString file_;
    Draft draft_;
    int drawings_ = 0;
    QFileSystemWatcher watcher_;
    /// Lets an editor finish what it does in several steps.
    QTimer delay_;
};

} // namespace PreviewStrings
