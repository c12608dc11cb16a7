// Shows how long a click on the licence notice takes until the licence is painted, for a licence of
// 10 MB, beside the toolkit's own text views with the same file. Ends with the ratios; below 1 the
// licence screen is faster. Each row also names the memory that the open text holds.
//
// Paints without a display, whatever the environment says.
#include "MedianReporter.h"
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

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>

#include <malloc.h>

namespace {

constexpr qsizetype fileSize = 10'000'000;

void require(bool opened, const char* file) {
    if (!opened) {
        throw std::runtime_error("cannot read or write " + std::string(file));
    }
}

/// How the text is set.
struct Shape {
    const char* name;
    /// How many characters there are in a line; 0 for the paragraphs of the English agreement.
    qsizetype lineLength;
};

constexpr std::array shapes{Shape{"paragraphs", 0}, Shape{"lines", 70}, Shape{"oneLine", fileSize}};

/// A licence of 10 MB in the place where the program looks for it; removed at the end.
class LicenseFile {
public:
    explicit LicenseFile(const Shape& shape) {
        QFile source(LICENSE_TEXT);
        require(source.open(QIODevice::ReadOnly), LICENSE_TEXT);
        QString agreement = QString::fromUtf8(source.readAll());
        if (shape.lineLength > 0) {
            agreement.replace('\n', ' ');
        }
        constexpr qsizetype length = fileSize / qsizetype{sizeof(char16_t)} - 1;
        QString text = agreement.repeated(length / agreement.size() + 1).left(length);
        for (qsizetype end = shape.lineLength; end > 0 && end < length; end += shape.lineLength) {
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

double allocated() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / (1024.0 * 1024.0);
}

template <typename Window>
void open(benchmark::State& state, const Shape& shape) {
    const LicenseFile license(shape);
    for (auto _ : state) {
        state.PauseTiming();
        {
            Window window(license);
            PaintWatch watch;
            const double before = allocated();
            state.ResumeTiming();
            window.openLicense();
            watch.wait();
            state.PauseTiming();
            state.counters["MiB"] = allocated() - before;
        }
        state.ResumeTiming();
    }
}

void addBenchmark(const std::string& name, void (*open)(benchmark::State&, const Shape&),
                  const Shape& shape) {
    benchmark::RegisterBenchmark(name.c_str(), open, shape)
        ->Iterations(1)
        ->Repetitions(3)
        ->ReportAggregatesOnly()
        ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return EXIT_FAILURE;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Every window would be told to have no display.
    QLoggingCategory::setFilterRules("default.warning=false");
    try {
        const Vexora::Backend backend(argc, argv);
        for (const Shape& shape : shapes) {
            const std::string name = shape.name;
            addBenchmark(name + "Ours", open<Installer>, shape);
            addBenchmark(name + "PlainTextEdit", open<Peer<QPlainTextEdit>>, shape);
            addBenchmark(name + "TextEdit", open<Peer<QTextEdit>>, shape);
        }
        MedianReporter reporter;
        benchmark::RunSpecifiedBenchmarks(&reporter);
        std::printf("\nMedians of processor time, below 1 the licence screen is faster:\n");
        for (const Shape& shape : shapes) {
            const std::string name = shape.name;
            for (const std::string peer : {"PlainTextEdit", "TextEdit"}) {
                reporter.printRatio(name + ": ours/Q" + peer, name + "Ours", name + peer);
            }
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}
