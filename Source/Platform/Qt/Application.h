// The application and its main window on the Qt desktop.
// Main thread only.
#pragma once

#include "Platform/Application.h"

#include <QObject>
#include <QWidget>

class QPushButton;

namespace Vexora {

class Pane;

/// No larger than the screen lets it be, its frame counted; what does not fit scrolls.
class QtWindow : public QWidget, public Window {
    Q_OBJECT

public:
    /// Shows the content as the whole of the window, or in the middle of a large one.
    void setContent(QWidget* content);

    void setTitle(const std::string& title) override;
    void center() override;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// What Return presses: the button that has the focus, else the default one that can be seen.
    QPushButton* buttonForReturn() const;

    /// How large the screen lets the window be without its frame.
    QSize room() const;

    /// Lets the window become no smaller than its content and no larger than the screen.
    void makeRoom();

    /// What the desktop has around the window; nothing until it tells.
    QMargins frame() const;

    /// Moves the window, with its frame, as near to a place as the screen lets it.
    void moveTo(QRect place);

    Pane* content_ = nullptr;
    QWidget* area_ = nullptr;
    /// Whether the window goes to the middle once more, when its frame is known.
    bool centers_ = false;
};

class QtApplication : public QObject, public Application {
    Q_OBJECT

public:
    QtApplication();
    QtApplication(const QtApplication&) = delete;
    QtApplication& operator=(const QtApplication&) = delete;
    ~QtApplication() override;

    QtWindow& mainWindow() { return mainWindow_; }

    /// What a program that comes to the front by the last press of a key or a button tells the desktop.
    /// Empty where the desktop is not X11, for whose desktops the toolkit has nothing to tell.
    QString startupId() const;

    std::vector<Window*> windows() override { return {&mainWindow_}; }
    void activateIgnoringOtherApps() override;
    void onWindowWillClose(std::function<void()> handler) override;
    void setLanguage(const std::string& languageCode) override;
    void setCloseCommand(const std::string& /*name*/) override {}
    void exit(int status) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What the desktop has its texts set in.
    QFont desktopFont_;
    QtWindow mainWindow_;
    std::function<void()> closeHandler_;
    /// When the display saw the last press, in its own milliseconds.
    quint64 pressedAt_ = 0;
};

} // namespace Vexora
