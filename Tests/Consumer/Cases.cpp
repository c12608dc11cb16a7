// Pieces of code that must or must not compile, chosen by a macro.
#if defined(TR_ALONE)
#include <tr.h>
VXLOCAL::Translator* translator() {
    return VXLOCAL::Translator::getInstance();
}
#elif defined(KVPARSER_ALONE)
#include <kvparser.h>
VXLOCAL::KVParser parser("Localizable.strings");
#elif defined(PARSER_ALONE)
#include <parser.h>
std::string folder(const VXLOCAL::Parser& parser) {
    return parser.getLocaleDir();
}
#elif defined(INNER_HEADER)
#include <trtools.h>
#else

#include <kvparser.h>
#include <tr.h>

#include <string>

std::string use(VXLOCAL::Translator& translator) {
#if defined(PROPER_USE)
    VXLOCAL::KVParser parser("Localizable.strings");
    VXLOCAL::Parser& base = parser;
    return translator.tr("%d of %s, 100 %%", 42, "text") + base.getLocale();
#elif defined(WRONG_ARGUMENT)
    return translator.tr("%d", "text");
#elif defined(MISSING_ARGUMENT)
    return translator.tr("%d of %s", 42);
#elif defined(PARSER_OBJECT)
    VXLOCAL::Parser parser("Localizable.strings");
    return translator.tr("text") + parser.getLocale();
#elif defined(TRANSLATOR_OBJECT)
    static VXLOCAL::Translator another;
    return translator.tr("text") + another.localeDir();
#elif defined(TRANSLATOR_COPY)
    VXLOCAL::Translator& copy = *new VXLOCAL::Translator(translator);
    return copy.tr("text");
#elif defined(TRANSLATOR_ASSIGNMENT)
    translator = *VXLOCAL::Translator::getInstance();
    return translator.tr("text");
#else
#error "no such case"
#endif
}

#endif
