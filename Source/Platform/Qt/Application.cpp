#include "Platform/Qt/Application.h"

#include "Platform/Qt/Conversions.h"
#include "Platform/Qt/Pane.h"
#include "Platform/Qt/TextLabel.h"
#include "Platform/Qt/Typeface.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QWindow>

#include <algorithm>
#include <cstdlib>

namespace Vexora {
namespace {

/// What the window's parts measure at least and at most, in pixels; its frame is guessed until the
/// desktop tells.
constexpr int narrowestWindow = 440;
constexpr int widestContent = 720;
constexpr QSize usualFrame(8, 40);

} // namespace

void QtWindow::setContent(QWidget* content) {
    content_ = qobject_cast<Pane*>(content);
    resize(content->size().boundedTo(room()));
    auto* area = new QScrollArea(this);
    area->resize(size());
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setAlignment(Qt::AlignCenter);
    area->setWidgetResizable(true);
    area->setWidget(content);
    content->installEventFilter(this);
    area_ = area;
    // Before the desktop sees the window: where it is to move while its frame is put around it,
    // either move may come last.
    makeRoom();
    center();
    const auto widgets = content->findChildren<QWidget*>();
    for (QWidget* widget : widgets) {
        if (widget->property("initialFocus").toBool() && widget->isVisibleTo(content)) {
            widget->setFocus();
        }
    }
}

void QtWindow::setTitle(const std::string& title) {
    setWindowTitle(toQString(title));
}

void QtWindow::center() {
    centers_ = frame().isNull();
    QRect place = geometry().marginsAdded(frame());
    place.moveCenter(screen()->availableGeometry().center());
    moveTo(place);
}

QMargins QtWindow::frame() const {
    // The toolkit's own record of it is not renewed.
    return windowHandle() == nullptr ? QMargins() : windowHandle()->frameMargins();
}

void QtWindow::moveTo(QRect place) {
    const QRect available = screen()->availableGeometry();
    place.moveBottom(qMin(place.bottom(), available.bottom()));
    // The title bar stays in reach even when the screen is too small for the window.
    place.moveTop(qMax(place.top(), available.top()));
    move(place.topLeft());
}

QSize QtWindow::room() const {
    const QSize around = size().grownBy(frame()) - size();
    return screen()->availableGeometry().size() - around.expandedTo(usualFrame);
}

void QtWindow::makeRoom() {
    // Larger letters take more room.
    const int narrowest = qMin(narrowestWindow * logicalDpiX() / 96, widestContent);
    const QSize needed = content_->needed().expandedTo(QSize(narrowest, 0));
    const bool grows = needed.height() > height();
    content_->setMaximumSize(QSize(widestContent, widestContent).expandedTo(needed));
    setMinimumSize(needed.boundedTo(room()));
    if (grows && isVisible()) {
        moveTo(geometry().marginsAdded(frame()));
    }
}

bool QtWindow::event(QEvent* event) {
    const bool handled = QWidget::event(event);
    if (event->type() == QEvent::Resize && area_ != nullptr) {
        // A layout would ask how large the area wants to be, and that for a typeface nobody sees.
        area_->resize(size());
    }
    const bool reshaped = event->type() == QEvent::Resize || event->type() == QEvent::Show;
    // A hidden window that grows while it is told of its size is not told again.
    if (reshaped && isVisible() && content_ != nullptr) {
        makeRoom();
    }
    // The desktop tells the frame only after the window is shown.
    if (centers_ && !frame().isNull()) {
        center();
    }
    return handled;
}

bool QtWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::LayoutRequest && watched == content_) {
        makeRoom();
    }
    return QWidget::eventFilter(watched, event);
}

void QtWindow::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    QPushButton* button = isReturn && !event->isAutoRepeat() ? buttonForReturn() : nullptr;
    if (button != nullptr) {
        button->click();
    } else {
        QWidget::keyPressEvent(event);
    }
}

QPushButton* QtWindow::buttonForReturn() const {
    if (auto* focused = qobject_cast<QPushButton*>(focusWidget())) {
        return focused;
    }
    const auto buttons = findChildren<QPushButton*>();
    const auto found = std::ranges::find_if(buttons, [](const QPushButton* button) {
        return button->isDefault() && button->isVisible();
    });
    return found == buttons.end() ? nullptr : *found;
}

QtApplication::QtApplication() : desktopFont_(QApplication::font()) {
    qApp->installEventFilter(this);
}

QtApplication::~QtApplication() {
    QApplication::setFont(desktopFont_);
}

QString QtApplication::startupId() const {
    return QGuiApplication::platformName() == "xcb" ? QStringLiteral("%1-%2_TIME%3")
                                                          .arg(QCoreApplication::applicationName())
                                                          .arg(QCoreApplication::applicationPid())
                                                          .arg(pressedAt_)
                                                    : QString();
}

void QtApplication::activateIgnoringOtherApps() {
    mainWindow_.raise();
    mainWindow_.activateWindow();
}

void QtApplication::onWindowWillClose(std::function<void()> handler) {
    closeHandler_ = std::move(handler);
}

void QtApplication::setLanguage(const std::string& languageCode) {
    const QLocale locale(toQString(languageCode));
    QGuiApplication::setLayoutDirection(locale.textDirection());
    const QFont font = fontForLanguage(desktopFont_, toQString(languageCode));
    if (font != QApplication::font()) {
        QApplication::setFont(font);
        // Before the event loop runs, no widget hears of it.
        QEvent changed(QEvent::ApplicationFontChange);
        const auto widgets = QApplication::allWidgets();
        for (QWidget* widget : widgets) {
            QCoreApplication::sendEvent(widget, &changed);
        }
    }
}

void QtApplication::exit(int status) {
    std::exit(status);
}

bool QtApplication::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress) {
        pressedAt_ = static_cast<QInputEvent*>(event)->timestamp();
        // Whatever has the focus shows it to those who use the keyboard.
        mainWindow_.setAttribute(Qt::WA_KeyboardFocusChange, event->type() == QEvent::KeyPress);
        if (QWidget* focus = mainWindow_.focusWidget()) {
            focus->update();
        }
    }
    if (event->type() == QEvent::KeyPress && qobject_cast<QPushButton*>(watched) != nullptr) {
        // A key that is held down presses a button once.
        const auto& key = *static_cast<QKeyEvent*>(event);
        if (key.isAutoRepeat() && isPressing(key)) {
            return true;
        }
    }
    if (event->type() == QEvent::Close && closeHandler_) {
        const auto* widget = qobject_cast<QWidget*>(watched);
        if (widget != nullptr && widget->isWindow()) {
            closeHandler_();
        }
    }
    return QObject::eventFilter(watched, event);
}

} // namespace Vexora
