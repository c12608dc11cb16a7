#include "Platform/Qt/Application.h"

#include "Platform/Qt/Conversions.h"
#include "Platform/Qt/Typeface.h"

#include <QAccessibleWidget>
#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>
#include <cstdlib>

namespace Vexora {
namespace {

/// To assistive tools a plain widget is no window.
QAccessibleInterface* makeWindowAccessible(const QString&, QObject* object) {
    auto* window = qobject_cast<QtWindow*>(object);
    return window == nullptr ? nullptr : new QAccessibleWidget(window, QAccessible::Window);
}

} // namespace

void QtWindow::setContent(QWidget* content) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    const QSize size = content->size();
    layout->addWidget(content);
    setMinimumWidth(size.width());
    // A screen may be too small for the whole of it, and the frame takes some room of its own.
    resize(size.boundedTo(screen()->availableGeometry().size() - QSize(0, 40)));
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
    if (const QScreen* screen = this->screen()) {
        const QRect available = screen->availableGeometry();
        QRect frame = frameGeometry();
        frame.moveCenter(available.center());
        // The title bar stays in reach even when the screen is too small for the window.
        frame.moveTop(qMax(frame.top(), available.top()));
        move(frame.topLeft());
    }
}

bool QtWindow::event(QEvent* event) {
    const bool handled = QWidget::event(event);
    const bool reshaped = event->type() == QEvent::LayoutRequest || event->type() == QEvent::Resize;
    if (reshaped && layout() != nullptr) {
        setMinimumHeight(qMax(layout()->totalMinimumSize().height(),
                              layout()->totalMinimumHeightForWidth(width())));
    }
    return handled;
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
    QAccessible::installFactory(makeWindowAccessible);
}

QtApplication::~QtApplication() {
    QApplication::setFont(desktopFont_);
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
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->isAutoRepeat() &&
        qobject_cast<QPushButton*>(watched) != nullptr) {
        // A key that is held down presses a button once.
        return true;
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
