// A resource directory with two sound languages, for tests to spoil.
#pragma once

#include "CheckStringsFixture.h"

#include <string>
#include <vector>

class ResourcesFixture : public CheckStringsFixture {
protected:
    ResourcesFixture() {
        addLanguage("en");
        addLanguage("de");
    }

    void addLanguage(const std::string& code, const std::vector<std::string>& keys = {"Start"}) {
        folder_.write("all/" + code + ".lproj/Localizable.strings", stringsOf(keys));
        folder_.write("all/LA_" + code, text_);
    }

    /// What is found after the German licence got these bytes.
    Lines faultsInLicense(const std::string& bytes) {
        folder_.write("all/LA_de", bytes);
        return faults({"all"});
    }

    const std::string text_ = {"\xFF\xFEO\0k\0", 6};
};
