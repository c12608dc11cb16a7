#include "Languages.h"

#include <QFile>
#include <QLocale>

#include <stdexcept>

namespace Gallery {

bool Language::isRightToLeft() const {
    return QLocale(QString::fromStdString(layoutCode)).textDirection() == Qt::RightToLeft;
}

Language languageOf(const std::string& code) {
    for (const std::string folder : {STAGED_RESOURCES, PSEUDO_RESOURCES}) {
        if (QFile::exists(QString::fromStdString(folder + '/' + code + ".lproj"))) {
            return languageIn(folder, code);
        }
    }
    throw std::runtime_error("there is no language " + code);
}

Language languageIn(const std::string& folder, const std::string& code) {
    if (code == RIGHT_TO_LEFT_TEXTS) {
        return {code, folder, "he"};
    }
    const bool isEnglish = code == ACCENTED_TEXTS || code == LONGEST_TEXTS;
    return {code, folder, isEnglish ? "en" : code};
}

} // namespace Gallery
