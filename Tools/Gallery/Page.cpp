#include "Page.h"

#include "Languages.h"
#include "Scenes.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>
#include <map>

namespace Gallery {
namespace {

constexpr std::array scales = {"1x", "2x"};

/// The albums of a language by their scale.
using Albums = std::map<QString, QJsonObject>;

Albums albumsOf(const QString& folder, const Language& language) {
    Albums albums;
    for (const char* scale : scales) {
        const QString code = QString::fromStdString(language.code);
        QFile file(folder + '/' + scale + '/' + code + ".json");
        if (file.open(QIODevice::ReadOnly)) {
            albums.emplace(scale, QJsonDocument::fromJson(file.readAll()).object());
        }
    }
    return albums;
}

QString escaped(const QString& text) {
    return text.toHtmlEscaped();
}

QString option(const QString& value, const QString& text) {
    return QString("<option value=\"%1\">%2</option>").arg(escaped(value), escaped(text));
}

/// The description of a scene in an album; an empty one when the album lacks it.
QJsonObject sceneIn(const QJsonObject& album, const Scene& scene) {
    const auto described = album["scenes"].toArray();
    for (const QJsonValue one : described) {
        if (one["name"] == QString::fromStdString(scene.name)) {
            return one.toObject();
        }
    }
    return {};
}

/// Everything that the page says about one language.
struct Entry {
    Language language;
    Albums albums;

    QString code() const { return QString::fromStdString(language.code); }
    QString direction() const { return language.isRightToLeft() ? "rtl" : "ltr"; }
    /// What the attribute lang takes; pseudo-locales are in no language.
    QString tag() const { return language.isPseudo() ? "und" : code(); }
    QString anchor(const Scene& scene) const {
        return code() + '-' + QString::fromStdString(scene.name);
    }
};

/// What is wrong with a scene, as a line of the table of findings.
QString findingLine(const Entry& entry, const Scene& scene, const QString& scale,
                    const QString& control, const QString& text) {
    return QString("<tr data-language=\"%1\" data-scene=\"%2\" data-scale=\"%3\"><td>%4</td>"
                   "<td><a href=\"#%5\">%6</a></td><td>%3</td><td>%7</td><td>%8</td></tr>\n")
        .arg(entry.code(), QString::fromStdString(scene.name), scale,
             escaped(entry.language.englishName()), entry.anchor(scene),
             escaped(QString::fromStdString(scene.title)), escaped(control), escaped(text));
}

QString findingsOf(const Entry& entry) {
    QString lines;
    for (const auto& [scale, album] : entry.albums) {
        for (const Scene& scene : scenes()) {
            const auto findings = sceneIn(album, scene)["faults"].toArray();
            for (const QJsonValue finding : findings) {
                lines += findingLine(entry, scene, scale, finding["control"].toString(),
                                     finding["text"].toString());
            }
        }
    }
    return lines;
}

/// The scenes that were not rendered at a scale.
QStringList missingOf(const QString& folder, const Entry& entry) {
    QStringList lines;
    for (const char* scale : scales) {
        const auto album = entry.albums.find(scale);
        for (const Scene& scene : scenes()) {
            const QString picture =
                QString("%1/%2/%3/%4.png")
                    .arg(folder, scale, entry.code(), QString::fromStdString(scene.name));
            if (album == entry.albums.end() || sceneIn(album->second, scene).isEmpty() ||
                !QFile::exists(picture)) {
                lines.append(findingLine(entry, scene, scale, "window", "was not rendered"));
            }
        }
    }
    return lines;
}

QString cell(const Entry& entry, const Scene& scene) {
    const QString name = QString::fromStdString(scene.name);
    QString faults;
    for (const auto& [scale, album] : entry.albums) {
        const auto findings = sceneIn(album, scene)["faults"].toArray();
        for (const QJsonValue finding : findings) {
            faults += QString("<li>%1, %2: %3</li>")
                          .arg(scale, escaped(finding["control"].toString()),
                               escaped(finding["text"].toString()));
        }
    }
    const QString start =
        QString("<td id=\"%1\" data-scene=\"%2\"%3>")
            .arg(entry.anchor(scene), name, faults.isEmpty() ? QString() : " class=\"faulty\"");
    const auto album = entry.albums.find("1x");
    const QJsonObject described =
        album == entry.albums.end() ? QJsonObject() : sceneIn(album->second, scene);
    if (described.isEmpty()) {
        return start + "<p class=\"none\">not rendered</p></td>";
    }
    return start +
           QString(
               "<a href=\"1x/%1/%2.png\"><img loading=\"lazy\" src=\"1x/%1/%2.png\" width=\"%3\" "
               "height=\"%4\" alt=\"%5\"></a>%6</td>")
               .arg(entry.code(), name)
               .arg(described["width"].toInt())
               .arg(described["height"].toInt())
               .arg(escaped(entry.language.englishName() + " – " +
                            QString::fromStdString(scene.title)),
                    faults.isEmpty() ? QString() : "<ul>" + faults + "</ul>");
}

QString row(const Entry& entry) {
    QString cells;
    for (const Scene& scene : scenes()) {
        cells += cell(entry, scene) + '\n';
    }
    const QString title =
        entry.albums.empty() ? QString() : entry.albums.begin()->second["title"].toString();
    const QString badge =
        entry.language.isRightToLeft() ? "<span class=\"badge\">right to left</span>" : QString();
    return QString("<tr data-language=\"%1\" data-direction=\"%2\"><th scope=\"row\">"
                   "<strong>%3</strong><span lang=\"%4\" dir=\"auto\">%5</span>"
                   "<span>%1</span>%6<span class=\"title\" lang=\"%4\" dir=\"%2\">%7</span></th>\n"
                   "%8</tr>\n")
        .arg(entry.code(), entry.direction(), escaped(entry.language.englishName()), entry.tag(),
             escaped(entry.language.isPseudo() ? "pseudo-locale" : entry.language.ownName()), badge,
             escaped(title), cells);
}

} // namespace

Page pageOf(const QString& pageTemplate, const QString& folder) {
    QString rows;
    QString findings;
    QString languageOptions;
    qsizetype shipped = 0;
    qsizetype missing = 0;
    for (const Language& language : languages()) {
        const Entry entry{language, albumsOf(folder, language)};
        rows += row(entry);
        const QStringList gaps = missingOf(folder, entry);
        missing += gaps.size();
        findings += gaps.join(QString()) + findingsOf(entry);
        languageOptions += option(entry.code(), language.englishName());
        shipped += language.isPseudo() ? 0 : 1;
    }
    QString head;
    QString sceneOptions;
    for (const Scene& scene : scenes()) {
        const QString name = QString::fromStdString(scene.name);
        const QString title = QString::fromStdString(scene.title);
        head += QString("<th scope=\"col\" data-scene=\"%1\">%2</th>").arg(name, escaped(title));
        sceneOptions += option(name, title);
    }
    const auto pseudo = static_cast<qsizetype>(languages().size()) - shipped;
    const QString summary =
        QString("%1 screens and states in %2 languages and %3 pseudo-locales, rendered by the "
                "program’s own screens. Press a picture to enlarge it; the arrow keys lead on from "
                "there.")
            .arg(scenes().size())
            .arg(shipped)
            .arg(pseudo);
    const QString table = "<table><thead><tr><th scope=\"col\">Language</th><th scope=\"col\">Scene"
                          "</th><th scope=\"col\">Scale</th><th scope=\"col\">Control</th>"
                          "<th scope=\"col\">What is wrong</th></tr></thead><tbody>\n";
    QString page = pageTemplate;
    page.replace("{{SUMMARY}}", summary)
        .replace("{{LANGUAGES}}", languageOptions)
        .replace("{{SCENES}}", sceneOptions)
        .replace("{{HEAD}}", head)
        .replace("{{FINDINGS}}", findings.isEmpty()
                                     ? QString("<p>None: every check holds in every picture.</p>")
                                     : table + findings + "</tbody></table>")
        .replace("{{ROWS}}", rows);
    return {page, missing};
}

} // namespace Gallery
