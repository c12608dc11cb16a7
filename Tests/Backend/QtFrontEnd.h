// The adapter of the Qt front end: what the tests of every front end see of its window and do to it.
#pragma once

#include "Backend/Seen.h"
#include "Platform/Qt/Application.h"
#include "Platform/Qt/InterfaceLoader.h"
#include "Platform/Qt/MainQueue.h"
#include "Platform/Qt/Views.h"

#include <QGuiApplication>

#include <functional>
#include <string>
#include <vector>

namespace BackendTest {

class FrontEnd {
public:
    using Application = Vexora::QtApplication;
    using InterfaceLoader = Vexora::QtInterfaceLoader;
    using MainQueue = Vexora::QtMainQueue;
    using Widget = QWidget;
    struct Scope {};

    static constexpr bool isAppKit = false;

    explicit FrontEnd(Application& application);
    FrontEnd(const FrontEnd&) = delete;
    FrontEnd& operator=(const FrontEnd&) = delete;
    ~FrontEnd();

    QWidget& window() const { return application_.mainWindow(); }

    void show() { window().show(); }
    bool hasKeyboard() const { return window().isActiveWindow(); }
    static bool waitFor(const std::function<bool()>& predicate);
    static void settle();

    bool holds(const QWidget* widget) const { return isWithin(widget, &window()); }
    static bool isWithin(const QWidget* inner, const QWidget* outer) {
        return inner == outer || outer->isAncestorOf(inner);
    }
    static bool shows(const QWidget* widget) { return widget->isVisible(); }
    static double opacity(const QWidget* widget);
    static bool isUsable(const QWidget* widget);
    /// The widgets that a widget holds, from the lowest to the topmost.
    static std::vector<QWidget*> children(const QWidget* widget);

    std::string title() const { return window().windowTitle().toStdString(); }
    static std::string text(QWidget* widget);
    static Pieces runs(QWidget* label);
    /// The part of a bar that is filled; -1 for one without a range.
    static double filled(const QWidget* bar);
    /// The size of the text in an area, and of the part that can be seen.
    static Place lines(const QWidget* area);
    static Place visiblePart(const QWidget* area);
    /// Whether nothing of what a control shows is cut off.
    static bool isWhole(const QWidget* widget);
    /// How far the text in an area is scrolled down.
    static double scrolled(const QWidget* area);
    static Picture picture(QWidget* widget);
    Place place(const QWidget* widget) const;
    /// Where on the display the middle of the window is, and that of the room for windows.
    Point middle() const;
    Point middleOfDisplay() const;
    /// The window's content.
    Place area() const { return place(&window()); }
    void resize(double width, double height);
    /// Makes the window as small as it lets a person do.
    void shrink() { resize(window().minimumWidth(), window().minimumHeight()); }
    void moveToCorner() { window().move(0, 0); }
    bool fromRight() const { return window().layoutDirection() == Qt::RightToLeft; }

    QWidget* focus() const { return window().focusWidget(); }
    /// What a click at a point would reach.
    QWidget* at(Point point) const;
    void click(Point from, Point to);
    void click(Point point) { click(point, point); }
    /// \param held whether the key has been down for a while.
    void press(Key key, bool held);
    void close() { window().close(); }
    void pressCloseButton();
    /// Whether the application is in front of all others.
    static bool isActive() { return QGuiApplication::applicationState() == Qt::ApplicationActive; }

private:
    Application& application_;
};

} // namespace BackendTest
