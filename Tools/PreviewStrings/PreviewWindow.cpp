#include "PreviewWindow.h"

#include "Platform/Qt/Workspace.h"
#include "Portrait.h"

#include <QFile>
#include <QGridLayout>
#include <QPalette>
#include <QScrollArea>
#include <QVBoxLayout>

namespace PreviewStrings {
namespace {

constexpr int columns = 3;
constexpr int pictureWidth = 440;

QLabel* makeLabel(const QString& name) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setWordWrap(true);
    return label;
}

/// The picture at the width that it is shown in, as dense as before.
QPixmap fitted(const QImage& picture) {
    const qreal ratio = picture.devicePixelRatio();
    QPixmap pixmap = QPixmap::fromImage(
        picture.scaledToWidth(qRound(pictureWidth * ratio), Qt::SmoothTransformation));
    pixmap.setDevicePixelRatio(ratio);
    return pixmap;
}

void warn(QLabel& label, bool warns) {
    QPalette palette;
    if (warns) {
        // Red enough to be seen, dark enough to be read.
        palette.setColor(QPalette::WindowText, QColor(0xa3, 0x26, 0x1f));
    }
    label.setPalette(palette);
}

QString linesOf(const Gallery::Faults& faults) {
    QStringList lines;
    for (const Gallery::Fault& fault : faults) {
        lines.append(QString("• %1: %2").arg(fault.control, fault.text));
    }
    return lines.isEmpty() ? "No faults" : lines.join('\n');
}

/// A scene's title, and labels by the name of the scene for its picture, and with "-faults".
QLayout* makeCell(const Gallery::Scene& scene) {
    const QString name = QString::fromStdString(scene.name);
    auto* cell = new QVBoxLayout;
    auto* title = new QLabel(QString::fromStdString(scene.title));
    QFont font = title->font();
    font.setBold(true);
    title->setFont(font);
    auto* picture = makeLabel(name);
    picture->setFrameShape(QFrame::Box);
    picture->setAccessibleName(title->text());
    auto* faults = makeLabel(name + "-faults");
    faults->setFixedWidth(pictureWidth);
    cell->addWidget(title);
    cell->addWidget(picture);
    cell->addWidget(faults);
    cell->addStretch();
    return cell;
}

} // namespace

PreviewWindow::PreviewWindow(const QString& file, const std::string& code)
    : file_(file), draft_(code) {
    // The pictures turn the application's direction round and back.
    setLayoutDirection(Qt::LeftToRight);
    setWindowTitle(file);
    build();
    delay_.setSingleShot(true);
    delay_.setInterval(100);
    connect(&delay_, &QTimer::timeout, this, &PreviewWindow::reload);
    connect(&watcher_, &QFileSystemWatcher::fileChanged, &delay_, qOverload<>(&QTimer::start));
    connect(&watcher_, &QFileSystemWatcher::directoryChanged, &delay_, qOverload<>(&QTimer::start));
    reload();
}

void PreviewWindow::build() {
    auto* column = new QVBoxLayout(this);
    auto* message = makeLabel("message");
    warn(*message, true);
    column->addWidget(message);
    auto* sheet = new QWidget;
    auto* grid = new QGridLayout(sheet);
    grid->setSpacing(20);
    int index = 0;
    for (const Gallery::Scene& scene : Gallery::scenes()) {
        grid->addLayout(makeCell(scene), index / columns, index % columns);
        ++index;
    }
    auto* area = new QScrollArea;
    area->setWidget(sheet);
    area->setWidgetResizable(true);
    column->addWidget(area);
    resize(columns * (pictureWidth + 30) + 20, 900);
}

void PreviewWindow::watch() {
    // An editor may put another file in the place of this one, which ends the watch over the first.
    if (QFile::exists(file_)) {
        watcher_.addPath(file_);
    }
    const QString folder = Vexora::nearestFolder(file_);
    if (!watcher_.directories().contains(folder)) {
        watcher_.addPath(folder);
    }
}

void PreviewWindow::reload() {
    watch();
    if (draft_.take(file_)) {
        draw();
    }
    QLabel& message = label("message");
    message.setText(draft_.remarks().join('\n'));
    message.setVisible(!draft_.remarks().isEmpty());
}

void PreviewWindow::draw() {
    for (const Gallery::Scene& scene : Gallery::scenes()) {
        const QString name = QString::fromStdString(scene.name);
        const Gallery::Portrait portrait = Gallery::portray(draft_.language(), scene);
        label(name).setPixmap(fitted(portrait.picture));
        QLabel& faults = label(name + "-faults");
        faults.setText(linesOf(portrait.faults));
        warn(faults, !portrait.faults.isEmpty());
    }
    ++drawings_;
}

} // namespace PreviewStrings
