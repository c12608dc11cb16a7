#include "Toolkit.h"

#include <QApplication>
#include <QFont>
#include <QMessageLogger>
#include <QScreen>
#include <QString>

#include <cstdio>

namespace Gallery {
namespace {

void showMessage(QtMsgType, const QMessageLogContext&, const QString& message) {
    const bool expected = message.contains("does not support propagateSizeHints") ||
                          message.contains("XDG_RUNTIME_DIR not set");
    if (!expected) {
        std::fprintf(stderr, "%s\n", qPrintable(message));
    }
}

} // namespace

void prepareToolkit(const std::string& code) {
    qputenv("FC_LANG", QByteArray::fromStdString(code));
    qInstallMessageHandler(showMessage);
}

void useTypefaceOfPictures() {
    QFont font = QApplication::font();
    font.setFamily("Noto Sans");
    QApplication::setFont(font);
}

double fontScale() {
    return QGuiApplication::primaryScreen()->logicalDotsPerInch() / 96.0;
}

} // namespace Gallery
