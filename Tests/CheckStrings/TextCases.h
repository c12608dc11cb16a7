// Cases of one entry that is sound but for its text.
#pragma once

#include "CheckStringsFixture.h"

#include <string>

inline LineCase found(const char* name, const std::string& key, const std::string& text,
                      const std::string& rule) {
    return {name, key, "\"" + key + "\" = \"" + text + "\"", rule};
}

inline LineCase passes(const char* name, const std::string& key, const std::string& text) {
    return found(name, key, text, "");
}
