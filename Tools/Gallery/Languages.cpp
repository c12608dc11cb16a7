#include "Languages.h"

#include <QLocale>

#include <algorithm>
#include <map>
#include <utility>

namespace Gallery {
namespace {

struct PseudoLocale {
    std::string code;
    std::string layoutCode;
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

const std::vector<PseudoLocale>& pseudoLocales() {
    static const std::vector<PseudoLocale> all{
        {ACCENTED_TEXTS, "en", "Accented English"},
        {RIGHT_TO_LEFT_TEXTS, "he", "Right-to-left English"},
        {LONGEST_TEXTS, "en", "Longest words of all languages"}};
    return all;
}

/// Null for a language.
const PseudoLocale* pseudoLocale(const std::string& code) {
    const auto& all = pseudoLocales();
    const auto found = std::find_if(all.begin(), all.end(),
                                    [&code](const PseudoLocale& one) { return one.code == code; });
    return found == all.end() ? nullptr : &*found;
}

} // namespace

bool Language::isRightToLeft() const {
    return QLocale(QString::fromStdString(layoutCode)).textDirection() == Qt::RightToLeft;
}

Language Language::leftToRight() const {
    return {code, resources, "en"};
}

QString Language::englishName() const {
    if (const PseudoLocale* pseudo = pseudoLocale(code)) {
        return QString::fromLatin1(pseudo->name);
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
    return pseudoLocale(code) != nullptr;
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
        for (const PseudoLocale& pseudo : pseudoLocales()) {
            made.push_back(languageIn(PSEUDO_RESOURCES, pseudo.code));
        }
        return made;
    }();
    return all;
}

Language languageIn(const std::string& folder, const std::string& code) {
    const PseudoLocale* pseudo = pseudoLocale(code);
    return {code, folder, pseudo == nullptr ? code : pseudo->layoutCode};
}

} // namespace Gallery
