// The widget behind an image view: one picture of the resource directory, sharp at every scale.
// The definition's property `imageName` names it; a picture that is missing leaves the place empty.
#pragma once

#include <QPixmap>
#include <QWidget>

#include <string>

namespace Vexora {

/// Reads a PNG file; null when it is missing or broken.
QPixmap readPicture(const std::string& path);

class Picture : public QWidget {
    Q_OBJECT

public:
    explicit Picture(QWidget* parent = nullptr) : QWidget(parent) {}

    /// Shows the picture `<imageName>.png` of that folder, or `<imageName>@2x.png` while the
    /// window is on a dense screen.
    void loadFrom(const std::string& folder);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    /// Reads the picture as the screen shows it, unless that is there.
    void read();

    std::string path_;
    QPixmap pixmap_;
    bool dense_ = false;
};

} // namespace Vexora
