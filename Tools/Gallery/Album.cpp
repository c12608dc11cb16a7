#include "Album.h"

#include "Portrait.h"
#include "Toolkit.h"

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

void saveIndex(const QJsonObject& index, const QString& path) {
    QFile file(path);
    const QByteArray bytes =
        "album(" + QJsonDocument(index).toJson(QJsonDocument::Compact) + ");\n";
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush()) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}

} // namespace

QStringList saveAlbum(const QString& folder, const Language& language) {
    const QString code = QString::fromStdString(language.code);
    QString scale = QString("%1x").arg(qRound(qGuiApp->devicePixelRatio()));
    scale += fontScale() == 1.0 ? "" : "-large-text";
    const QDir album(folder + '/' + scale);
    album.mkpath(code);
    QStringList all;
    QJsonObject index{{"code", code}, {"scale", scale}, {"rightToLeft", language.isRightToLeft()}};
    QJsonArray described;
    for (const Scene& scene : scenes()) {
        const Portrait portrait = portray(language, scene);
        const QString name = QString::fromStdString(scene.name);
        savePicture(portrait.picture, album.filePath(code + '/' + name + ".png"));
        QJsonArray faults;
        for (const Fault& fault : portrait.faults + portrait.faultsWhenSmall) {
            const QString line = fault.control + ": " + fault.text;
            faults.append(line);
            all.append(code + ", " + name + ", " + line);
        }
        described.append(QJsonObject{
            {"name", name}, {"title", QString::fromStdString(scene.title)}, {"faults", faults}});
        index["title"] = portrait.title;
    }
    index["scenes"] = described;
    saveIndex(index, album.filePath(code + ".js"));
    return all;
}

} // namespace Gallery
