#include "Platform/Qt/Typeface.h"

#include <QStringList>

#include <fontconfig/fontconfig.h>

#include <memory>

namespace Vexora {
namespace {

using Pattern = std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)>;
using FontSet = std::unique_ptr<FcFontSet, decltype(&FcFontSetDestroy)>;

const FcChar8* bytesOf(const QByteArray& text) {
    return reinterpret_cast<const FcChar8*>(text.constData());
}

/// What to ask the system for.
Pattern request(const QByteArray& family, const QByteArray& language) {
    Pattern pattern(FcPatternCreate(), &FcPatternDestroy);
    FcPatternAddString(pattern.get(), FC_FAMILY, bytesOf(family));
    FcPatternAddString(pattern.get(), FC_LANG, bytesOf(language));
    FcConfigSubstitute(nullptr, pattern.get(), FcMatchPattern);
    FcDefaultSubstitute(pattern.get());
    return pattern;
}

QString familyOf(const FcPattern* font) {
    FcChar8* family = nullptr;
    FcPatternGetString(font, FC_FAMILY, 0, &family);
    return QString::fromUtf8(reinterpret_cast<const char*>(family));
}

/// Whether a font has every letter of a language.
bool covers(const FcPattern* font, const QByteArray& language) {
    FcLangSet* languages = nullptr;
    return FcPatternGetLangSet(font, FC_LANG, 0, &languages) == FcResultMatch &&
           FcLangSetHasLang(languages, bytesOf(language)) != FcLangDifferentLang;
}

/// Whether a font is fit for an interface: of free pitch and without serifs, as far as it says.
bool isPlain(const FcPattern* font) {
    int spacing = FC_PROPORTIONAL;
    FcPatternGetInteger(font, FC_SPACING, 0, &spacing);
    return spacing == FC_PROPORTIONAL && !familyOf(font).contains(QLatin1String("Serif"));
}

/// A plain family with every letter of a language, of those that are designed to stand beside one
/// another if there is one; null where there is none.
QString plainFamily(const QByteArray& language) {
    const Pattern pattern = request("sans-serif", language);
    FcResult result = FcResultNoMatch;
    const FontSet fonts(FcFontSort(nullptr, pattern.get(), FcFalse, nullptr, &result),
                        &FcFontSetDestroy);
    QString first;
    for (int i = 0; fonts != nullptr && i < fonts->nfont; ++i) {
        const FcPattern* font = fonts->fonts[i];
        if (covers(font, language) && isPlain(font)) {
            QString family = familyOf(font);
            if (family.startsWith(QLatin1String("Noto Sans"))) {
                return family;
            }
            first = first.isNull() ? family : first;
        }
    }
    return first;
}

} // namespace

QFont fontForLanguage(const QFont& desktop, const QString& language) {
    // Simplified characters are meant, as they are in the texts.
    const QByteArray code = language == QLatin1String("zh") ? "zh-cn" : language.toUtf8();
    const Pattern pattern = request(desktop.family().toUtf8(), "en");
    FcResult result = FcResultNoMatch;
    const Pattern found(FcFontMatch(nullptr, pattern.get(), &result), &FcPatternDestroy);
    if (found != nullptr && covers(found.get(), code) &&
        (isPlain(found.get()) || familyOf(found.get()) == desktop.family())) {
        return desktop;
    }
    QFont font = desktop;
    const QString family = plainFamily(code);
    if (!family.isNull()) {
        // The second has the Latin letters that the first of a foreign script may lack.
        font.setFamilies({family, QStringLiteral("Noto Sans"), desktop.family()});
    }
    return font;
}

} // namespace Vexora
