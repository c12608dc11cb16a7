// The application and its main window on the Qt desktop.
// Main thread only.
#pragma once

#include "Platform/Application.h"

#include <QObject>
#include <QWidget>

class QPushButton;

namespace Vexora {

class QtWindow : public QWidget, public Window {
    Q_OBJECT

public:
    /// Shows the root widget of the content as the whole of the window.
    void setContent(QWidget* content);

    void setTitle(const std::string& title) override;
    void center() override;

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// What Return presses: the button that has the focus, else the default one that can be seen.
    QPushButton* buttonForReturn() const;
};

class QtApplication : public QObject, public Application {
    Q_OBJECT

public:
    QtApplication();
    QtApplication(const QtApplication&) = delete;
    QtApplication& operator=(const QtApplication&) = delete;
    ~QtApplication() override;

    QtWindow& mainWindow() { return mainWindow_; }

    std::vector<Window*> windows() override { return {&mainWindow_}; }
    void activateIgnoringOtherApps() override;
    void onWindowWillClose(std::function<void()> handler) override;
    void setLanguage(const std::string& languageCode) override;
    void exit(int status) override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// What the desktop has its texts set in.
    QFont desktopFont_;
    QtWindow mainWindow_;
    std::function<void()> closeHandler_;
};

} // namespace Vexora
