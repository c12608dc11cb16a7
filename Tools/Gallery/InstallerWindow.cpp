#include "InstallerWindow.h"

#include "Platform/Qt/TextLabel.h"
#include "Platform/Qt/Views.h"

#include <QApplication>
#include <QPushButton>

#include <stdexcept>

namespace Gallery {
namespace {

/// Lets layouts settle: they do so in posted events, which may post further ones.
void settle() {
    for (int pass = 0; pass < 10; ++pass) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

template <class Kind>
Kind& find(const QWidget& window, const char* name) {
    auto* found = window.findChild<Kind*>(QString::fromLatin1(name));
    if (found == nullptr) {
        throw std::out_of_range(std::string("no control ") + name);
    }
    return *found;
}

} // namespace

InstallerWindow::InstallerWindow(const Language& language) : application_(language.layoutCode) {
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    environment_.home = home_.path().string();
    environment_.resources = language.resources;
    environment_.locale = language.code;
    pictures_.resources = STAGED_RESOURCES;
    administratorScript_.succeeds = false;
    content_ = std::make_shared<Vexora::ViewController>(platform_);
    QWidget* root = dynamic_cast<Vexora::WidgetOwner&>(*content_->view()).widget();
    // The window as the definition wants it, however small the display is.
    definedSize_ = root->size();
    application_.mainWindow().setContent(root);
    window().resize(definedSize_);
    window().setAttribute(Qt::WA_DontShowOnScreen);
    window().show();
    settle();
}

InstallerWindow::~InstallerWindow() {
    window().hide();
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

void InstallerWindow::enter(const Scene& scene) {
    switch (scene.reached) {
    case Reached::AtOnce:
        break;
    case Reached::ByNotice:
        find<Vexora::TextLabel>(window(), "licenseLabel").click();
        break;
    case Reached::ByStart:
        install();
        // Long enough for the bar to stand between its ends.
        time_.advance(1.0);
        break;
    case Reached::ByStatus:
        install();
        endInstall(scene.status);
        break;
    }
    settle();
}

void InstallerWindow::install() {
    find<QPushButton>(window(), "startButton").click();
}

void InstallerWindow::endInstall(int status) {
    processes_.scripts = {{.polls = 0, .status = status}};
    backgroundQueue_.runNext();
    // More than the ticks need to carry the bar to its end.
    time_.advance(60.0);
}

} // namespace Gallery
