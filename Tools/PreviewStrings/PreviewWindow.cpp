#include "PreviewWindow.h"

#include "Platform/Qt/Palette.h"
#include "Platform/Qt/Workspace.h"
#include "Portrait.h"

#include <QFile>
#include <QGridLayout>
#include <QPainter>
#include <QPalette>
#include <QScrollArea>
#include <QVBoxLayout>

namespace Gallery {
namespace {

constexpr int columns = 3;
constexpr int pictureWidth = 440;

QLabel* makeLabel(const QString& name) {
    auto* label = new QLabel;
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setWordWrap(true);
    label->setFixedWidth(pictureWidth);
    return label;
}

/// The picture at the width that it is shown in, as dense as before, with an edge round it.
QPixmap fitted(const QImage& picture) {
    const qreal ratio = picture.devicePixelRatio();
    QPixmap pixmap = QPixmap::fromImage(
        picture.scaledToWidth(qRound(pictureWidth * ratio), Qt::SmoothTransformation));
    pixmap.setDevicePixelRatio(ratio);
    QPainter painter(&pixmap);
    painter.setPen(Vexora::Palette::outline);
    painter.drawRect(QRectF(QPointF(), pixmap.deviceIndependentSize()).adjusted(0.5, 0.5, -1, -1));
    return pixmap;
}

/// Red enough to be seen, dark enough to be read.
const QColor warning(0xa3, 0x26, 0x1f);

void warn(QLabel& label, bool warns) {
    QPalette palette;
    if (warns) {
        palette.setColor(QPalette::WindowText, warning);
    }
    label.setPalette(palette);
}

QString linesOf(const Faults& faults) {
    QStringList lines;
    for (const Fault& fault : faults) {
        lines.append(QString("• %1: %2").arg(fault.control, fault.text));
    }
    return lines.isEmpty() ? "No faults" : lines.join('\n');
}

} // namespace

PreviewWindow::PreviewWindow(const QString& file, const std::string& code)
    : file_(file), draft_(code) {
    // The pictures turn the application's direction round and back.
    setLayoutDirection(Qt::LeftToRight);
    setWindowTitle(QString("%1 – %2").arg(draft_.language().englishName(), file));
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
    message_ = makeLabel("message");
    message_->setMinimumWidth(0);
    warn(*message_, true);
    message_->setMaximumWidth(QWIDGETSIZE_MAX);
    column->addWidget(message_);
    auto* area = new QScrollArea;
    auto* sheet = new QWidget;
    auto* grid = new QGridLayout(sheet);
    grid->setSpacing(20);
    for (const Scene& scene : scenes()) {
        const QString name = QString::fromStdString(scene.name);
        const QString title = QString::fromStdString(scene.title);
        auto* cell = new QVBoxLayout;
        auto* caption = makeLabel(name + "-caption");
        QFont font = caption->font();
        font.setBold(true);
        caption->setFont(font);
        caption->setText(title);
        const Place place{makeLabel(name), makeLabel(name + "-faults")};
        place.picture->setAccessibleName(title);
        cell->addWidget(caption);
        cell->addWidget(place.picture);
        cell->addWidget(place.faults);
        cell->addStretch();
        const int index = static_cast<int>(places_.size());
        grid->addLayout(cell, index / columns, index % columns);
        places_.append(place);
    }
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
    const bool shown = draft_.take(file_);
    message_->setText(draft_.remarks().join('\n'));
    message_->setVisible(!draft_.remarks().isEmpty());
    if (shown && (drawings_ == 0 || draft_.bytes() != drawn_)) {
        draw();
    }
}

void PreviewWindow::draw() {
    drawn_ = draft_.bytes();
    for (qsizetype index = 0; index < places_.size(); ++index) {
        const Scene& scene = scenes().at(static_cast<std::size_t>(index));
        const Portrait portrait = portray(draft_.language(), scene);
        places_[index].picture->setPixmap(fitted(portrait.picture));
        places_[index].faults->setText(linesOf(portrait.faults));
        warn(*places_[index].faults, !portrait.faults.isEmpty());
    }
    ++drawings_;
}

} // namespace Gallery
