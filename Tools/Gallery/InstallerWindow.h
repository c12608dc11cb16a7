// One window of the installer, brought into a state by the screens' own code: the backend's window,
// loader and widgets, with substitutes for processes, queues and time. It is never put on the
// display. Main thread only.
#pragma once

#include "Languages.h"
#include "Platform/Posix/FileSystem.h"
#include "Platform/Qt/Application.h"
#include "Platform/Qt/InterfaceLoader.h"
#include "Platform/Recording/Platform.h"
#include "Scenes.h"
#include "ViewController.h"

#include <QGuiApplication>
#include <QLocale>
#include <QTemporaryDir>

#include <memory>

namespace Gallery {

/// The backend's application, told which language's direction the window takes.
class GalleryApplication : public Vexora::QtApplication {
public:
    explicit GalleryApplication(std::string layoutLanguage)
        : layoutLanguage_(std::move(layoutLanguage)) {}

    void setLanguage(const std::string& code) override {
        QtApplication::setLanguage(code);
        const QLocale layout(QString::fromStdString(layoutLanguage_));
        QGuiApplication::setLayoutDirection(layout.textDirection());
    }
    void exit(int) override {}

private:
    std::string layoutLanguage_;
};

class InstallerWindow {
public:
    /// Opens the window on its start screen.
    explicit InstallerWindow(const Language& language);
    InstallerWindow(const InstallerWindow&) = delete;
    InstallerWindow& operator=(const InstallerWindow&) = delete;
    ~InstallerWindow();

    /// Brings the window from its start screen into the state that the scene shows. Once.
    void enter(const Scene& scene);

    /// Makes the window as large as that, or as small as it lets a person do.
    void resize(const QSize& size);

    QWidget& window() { return application_.mainWindow(); }
    /// The window's size according to its definition.
    QSize definedSize() const { return definedSize_; }

private:
    void pressStart();

    QTemporaryDir home_;
    GalleryApplication application_;
    Vexora::Recording::Substitutes substitutes_;
    Vexora::Recording::ManualMainQueue mainQueue_{substitutes_.calls, substitutes_.time};
    /// Tells the loader where the pictures are, whoever supplies the texts.
    Vexora::Recording::RecordingEnvironment pictures_;
    Vexora::QtInterfaceLoader interfaces_{pictures_};
    Vexora::PosixFileSystem files_;
    Vexora::Platform platform_ = substitutes_.around(application_, interfaces_, mainQueue_, files_);
    std::shared_ptr<Vexora::ViewController> content_;
    QSize definedSize_;
};

} // namespace Gallery
