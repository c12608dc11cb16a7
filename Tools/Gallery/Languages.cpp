#include "Languages.h"

#include <QLocale>

#include <algorithm>
#include <map>
#include <utility>

namespace Gallery {
namespace {

struct PseudoLocale {
    const char* layoutCode;
    const char* name;
};

/// Languages that the toolkit calls by a variant's name, or by that of another code.
struct Names {
    const char* english;
    const char* own;
};

const std::map<std::string, Names>& ownNames() {
    static const std::map<std::string, Names> all{{"en", {"English", "English"}},
                                                  {"es", {"Spanish", "español"}},
                                                  {"no", {"Norwegian", "norsk"}}};
    return all;
}

const std::map<std::string, PseudoLocale>& pseudoLocales() {
    static const std::map<std::string, PseudoLocale> all{
        {"xa", {"en", "Accented English"}},
        {"xr", {"he", "Right-to-left English"}},
        {"xl", {"en", "Longest texts of all languages"}}};
    return all;
}

} // namespace

bool Language::isRightToLeft() const {
    return QLocale(QString::fromStdString(layoutCode)).textDirection() == Qt::RightToLeft;
}

Language Language::leftToRight() const {
    return {code, resources, "en"};
}

QString Language::englishName() const {
    if (isPseudo()) {
        return QString::fromLatin1(pseudoLocales().at(code).name);
    }
    const auto named = ownNames().find(code);
    return named != ownNames().end()
               ? QString::fromUtf8(named->second.english)
               : QLocale::languageToString(QLocale(QString::fromStdString(code)).language());
}

QString Language::ownName() const {
    if (isPseudo()) {
        return englishName();
    }
    const auto named = ownNames().find(code);
    return named != ownNames().end() ? QString::fromUtf8(named->second.own)
                                     : QLocale(QString::fromStdString(code)).nativeLanguageName();
}

bool Language::isPseudo() const {
    return pseudoLocales().contains(code);
}

const std::vector<Language>& languages() {
    static const std::vector<Language> all = [] {
        std::vector<std::string> codes{VEXORA_LANGUAGE_CODES};
        std::sort(codes.begin(), codes.end());
        std::vector<Language> made;
        made.reserve(codes.size() + pseudoLocales().size());
        for (const std::string& code : codes) {
            made.push_back(languageIn(STAGED_RESOURCES, code));
        }
        for (const char* code : {"xa", "xr", "xl"}) {
            made.push_back(languageIn(PSEUDO_RESOURCES, code));
        }
        return made;
    }();
    return all;
}

Language languageIn(const std::string& folder, const std::string& code) {
    const auto pseudo = pseudoLocales().find(code);
    return {code, folder, pseudo == pseudoLocales().end() ? code : pseudo->second.layoutCode};
}

} // namespace Gallery
