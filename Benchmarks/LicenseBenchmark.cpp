// license_benchmark VIEW LINE_LENGTH prints the milliseconds from a click on the licence notice until
// the licence, of 10 MB, is painted first. The view is "installer" or one of the toolkit's own,
// QPlainTextEdit or QTextEdit; a length of 0 stands for the paragraphs of the English agreement.
//
// Paints without a display, whatever the environment says.
#include "Platform/Backend.h"
#include "Platform/Posix/FileSystem.h"
#include "Platform/Qt/Application.h"
#include "Platform/Qt/InterfaceLoader.h"
#include "Platform/Qt/Views.h"
#include "Platform/Recording/Platform.h"
#include "ViewController.h"

#include <QApplication>
#include <QFile>
#include <QLoggingCategory>
#include <QPlainTextEdit>
#include <QStringDecoder>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QVBoxLayout>

#include <chrono>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

namespace {

constexpr qsizetype fileSize = 10'000'000;

void require(bool opened, const char* file) {
    if (!opened) {
        throw std::runtime_error("cannot read or write " + std::string(file));
    }
}

/// A licence of 10 MB in the place where the program looks for it; removed at the end.
class LicenseFile {
public:
    explicit LicenseFile(qsizetype lineLength) {
        QFile source(LICENSE_TEXT);
        require(source.open(QIODevice::ReadOnly), LICENSE_TEXT);
        QString agreement = QString::fromUtf8(source.readAll());
        if (lineLength > 0) {
            agreement.replace('\n', ' ');
        }
        constexpr qsizetype length = fileSize / qsizetype{sizeof(char16_t)} - 1;
        QString text = agreement.repeated(length / agreement.size() + 1).left(length);
        for (qsizetype end = lineLength; end > 0 && end < length; end += lineLength) {
            text[end] = '\n';
        }
        text.prepend(QChar::ByteOrderMark);
        QFile file(path());
        require(file.open(QIODevice::WriteOnly) &&
                    file.write(reinterpret_cast<const char*>(text.utf16()), fileSize) == fileSize,
                "the licence");
    }

    std::string folder() const { return folder_.path().toStdString(); }
    QString path() const { return folder_.filePath("LA_en"); }

private:
    QTemporaryDir folder_;
};

/// Sees a text being painted.
class PaintWatch : public QObject {
public:
    PaintWatch() { qApp->installEventFilter(this); }

    /// Lets the toolkit work until a text view has been painted, and the window with it.
    void wait() {
        while (!painted_) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        painted_ |= event->type() == QEvent::Paint &&
                    qobject_cast<QAbstractScrollArea*>(watched->parent()) != nullptr;
        return false;
    }

private:
    bool painted_ = false;
};

/// The installer on its start screen.
class Installer {
public:
    explicit Installer(const LicenseFile& license) {
        substitutes_.environment.home = license.folder();
        substitutes_.environment.resources = license.folder();
        content_ = std::make_shared<Vexora::ViewController>(platform_);
        application_.mainWindow().setContent(
            dynamic_cast<Vexora::WidgetOwner&>(*content_->view()).widget());
        application_.mainWindow().show();
        QCoreApplication::processEvents();
    }

    void openLicense() { content_->switchToLicenseView(); }

private:
    Vexora::Recording::Substitutes substitutes_;
    Vexora::QtApplication application_;
    Vexora::Recording::ManualMainQueue mainQueue_{substitutes_.calls, substitutes_.time};
    Vexora::QtInterfaceLoader interfaces_{substitutes_.environment};
    Vexora::PosixFileSystem files_;
    Vexora::Platform platform_ = substitutes_.around(application_, interfaces_, mainQueue_, files_);
    std::shared_ptr<Vexora::ViewController> content_;
};

/// A bare window that gets a text view of the toolkit with the licence in it.
template <typename TextView>
class Peer {
public:
    explicit Peer(const LicenseFile& license) : path_(license.path()) {
        new QVBoxLayout(&window_);
        window_.resize(640, 580);
        window_.show();
        QCoreApplication::processEvents();
    }

    void openLicense() {
        QFile file(path_);
        require(file.open(QIODevice::ReadOnly), "the licence");
        auto* view = new TextView;
        view->setReadOnly(true);
        view->setPlainText(QStringDecoder(QStringDecoder::Utf16)(file.readAll()));
        window_.layout()->addWidget(view);
    }

private:
    QString path_;
    QWidget window_;
};

template <typename Window>
void open(qsizetype lineLength) {
    const LicenseFile license(lineLength);
    Window window(license);
    PaintWatch watch;
    const auto begin = std::chrono::steady_clock::now();
    window.openLicense();
    watch.wait();
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - begin;
    std::cout << taken.count() << '\n';
}

} // namespace

int main(int argc, char** argv) {
    const std::map<std::string, void (*)(qsizetype)> views{
        {"installer", open<Installer>},
        {"QPlainTextEdit", open<Peer<QPlainTextEdit>>},
        {"QTextEdit", open<Peer<QTextEdit>>},
    };
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Every window would be told to have no display.
    QLoggingCategory::setFilterRules("default.warning=false");
    try {
        if (argc != 3) {
            throw std::runtime_error("Usage: license_benchmark VIEW LINE_LENGTH");
        }
        const Vexora::Backend backend(argc, argv);
        views.at(argv[1])(std::stoll(argv[2]));
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
