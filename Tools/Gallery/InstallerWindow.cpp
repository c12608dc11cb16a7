#include "InstallerWindow.h"

#include "Platform/Qt/TextLabel.h"
#include "Platform/Qt/Views.h"

#include <QApplication>
#include <QPushButton>

namespace Gallery {
namespace {

/// Lets layouts settle: they do so in posted events, which may post further ones.
void settle() {
    for (int pass = 0; pass < 10; ++pass) {
        QCoreApplication::sendPostedEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

} // namespace

InstallerWindow::InstallerWindow(const Language& language) : application_(language.layoutCode) {
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
    substitutes_.environment.home = home_.path().toStdString();
    substitutes_.environment.resources = language.resources;
    substitutes_.environment.locale = language.code;
    substitutes_.administratorScript.succeeds = false;
    pictures_.resources = STAGED_RESOURCES;
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
        window().findChild<Vexora::TextLabel*>("licenseLabel")->click();
        break;
    case Reached::ByStart:
        pressStart();
        // Long enough for the bar to stand between its ends.
        substitutes_.time.advance(1.0);
        break;
    case Reached::ByStatus:
        pressStart();
        substitutes_.endInstall(scene.status);
        // More than the ticks need to carry the bar to its end.
        substitutes_.time.advance(60.0);
        break;
    }
    settle();
}

void InstallerWindow::resize(const QSize& size) {
    window().resize(size);
    settle();
}

void InstallerWindow::pressStart() {
    window().findChild<QPushButton*>("startButton")->click();
}

} // namespace Gallery
