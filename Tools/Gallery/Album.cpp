#include "Album.h"

#include "Portrait.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QImageWriter>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <stdexcept>

namespace Gallery {
namespace {

void savePicture(const QImage& picture, const QString& path) {
    QImageWriter writer(path, "png");
    // Time matters more than size: there are some fifteen hundred of them.
    writer.setCompression(20);
    if (!writer.write(picture)) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}

QJsonObject toJson(const Scene& scene, const Portrait& portrait) {
    QJsonArray faults;
    for (const Fault& fault : portrait.faults) {
        faults.append(QJsonObject{{"control", fault.control}, {"text", fault.text}});
    }
    const QSizeF size = portrait.picture.deviceIndependentSize();
    return {{"name", QString::fromStdString(scene.name)},
            {"width", size.width()},
            {"height", size.height()},
            {"faults", faults}};
}

} // namespace

QStringList saveAlbum(const QString& folder, const Language& language) {
    const QString code = QString::fromStdString(language.code);
    const QDir album(QString("%1/%2x").arg(folder).arg(qRound(qGuiApp->devicePixelRatio())));
    album.mkpath(code);
    QStringList lines;
    QJsonArray all;
    QString title;
    for (const Scene& scene : scenes()) {
        const Portrait portrait = portray(language, scene);
        const QString name = QString::fromStdString(scene.name);
        savePicture(portrait.picture, album.filePath(code + '/' + name + ".png"));
        all.append(toJson(scene, portrait));
        title = portrait.title;
        for (const Fault& fault : portrait.faults) {
            lines.append(QString("%1, %2, %3: %4").arg(code, name, fault.control, fault.text));
        }
    }
    const QJsonObject description{{"code", code},
                                  {"englishName", language.englishName()},
                                  {"ownName", language.ownName()},
                                  {"rightToLeft", language.isRightToLeft()},
                                  {"pseudo", language.isPseudo()},
                                  {"title", title},
                                  {"scenes", all}};
    QFile file(album.filePath(code + ".json"));
    if (!file.open(QIODevice::WriteOnly) || file.write(QJsonDocument(description).toJson()) < 0) {
        throw std::runtime_error("cannot write " + file.fileName().toStdString());
    }
    return lines;
}

} // namespace Gallery
