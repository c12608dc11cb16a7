#include "parser.h"

#include <utility>

namespace VXLOCAL {

Parser::Parser(const char* name) : filename(name) {}

Parser::~Parser() = default;

void Parser::setLocale(const std::string& name) {
    locale = name;
}

std::string Parser::getLocale() const {
    return locale;
}

void Parser::setLocaleDir(const std::string& folder) {
    localeDir = folder;
}

std::string Parser::getLocaleDir() const {
    return localeDir;
}

void Parser::setFilename(std::string name) {
    filename = std::move(name);
}

std::string Parser::getFilename() const {
    return filename;
}

std::string Parser::localeFile(const std::string& /*name*/) const {
    return localeDir + "/" + filename;
}

} // namespace VXLOCAL
