// PseudoLocales RESOURCES FOLDER CODE... makes three pseudo-locales out of the languages with these
// codes in the resources' sources, and writes the strings file and the licence of each below the
// folder: xa is accented English, xr the same from right to left, and xl takes each message from
// the language with the widest word in it, and of several such the one that is the widest as a
// whole. The licence of xl is the one with the most characters. Licences are written in UTF-8.
#include "FileRules.h"
#include "PseudoText.h"
#include "TextWidth.h"

#include <kvparser.h>

#include <QGuiApplication>

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace fs = std::filesystem;

namespace {

using Text = std::function<std::string(const std::string&)>;

std::unique_ptr<VXLOCAL::KVParser> catalogue(const fs::path& resources, const std::string& code) {
    auto parser = std::make_unique<VXLOCAL::KVParser>("Localizable.strings");
    parser->setLocaleDir((resources / (code + ".lproj")).string());
    parser->parse();
    return parser;
}

/// The licence's text; empty for a language that is shipped with the English one.
std::string licence(const fs::path& resources, const std::string& code) {
    std::ifstream stream(resources / "Licenses" / ("LA_" + code + ".txt"), std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

/// Every paragraph by itself; the empty lines between them stay empty.
std::string byParagraph(const std::string& text, const Text& made) {
    std::istringstream lines(text);
    std::string all;
    for (std::string line; std::getline(lines, line);) {
        all += (line.empty() ? line : made(line)) + '\n';
    }
    return all;
}

void write(const fs::path& file, const std::string& bytes) {
    fs::create_directories(file.parent_path());
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream << bytes;
    stream.close();
    if (!stream) {
        throw std::runtime_error("cannot write " + file.string());
    }
}

void writeStrings(const fs::path& folder, const std::string& code, const CheckStrings::Keys& keys,
                  const Text& text) {
    std::string bytes;
    for (const std::string& key : keys) {
        const std::string value = text(key);
        if (value.find_first_of("\n\r\t\\") != std::string::npos) {
            throw std::runtime_error("a text that would need escapes: " + value);
        }
        bytes.append("\"").append(key).append("\" = \"").append(value).append("\"\n");
    }
    write(folder / (code + ".lproj") / "Localizable.strings", bytes);
}

void make(const fs::path& resources, const fs::path& folder,
          const std::vector<std::string>& codes) {
    const auto english = catalogue(resources, "en");
    const CheckStrings::Keys keys =
        CheckStrings::readKeys(resources / "en.lproj" / "Localizable.strings");
    const std::string englishLicence = licence(resources, "en");
    const std::pair<std::string, Text> pseudoLocales[] = {
        {ACCENTED_TEXTS, Gallery::accented}, {RIGHT_TO_LEFT_TEXTS, Gallery::rightToLeft}};
    for (const auto& [code, made] : pseudoLocales) {
        const Text& change = made;
        writeStrings(folder, code, keys,
                     [&](const std::string& key) { return change(english->getMessage(key)); });
        write(folder / ("LA_" + code + ".txt"), byParagraph(englishLicence, made));
    }

    std::vector<std::unique_ptr<VXLOCAL::KVParser>> catalogues;
    std::string longestLicence;
    for (const std::string& code : codes) {
        catalogues.push_back(catalogue(resources, code));
        const std::string text = licence(resources, code);
        if (Gallery::characterCount(text) > Gallery::characterCount(longestLicence)) {
            longestLicence = text;
        }
    }
    writeStrings(folder, LONGEST_TEXTS, keys, [&](const std::string& key) {
        std::string widest;
        Gallery::TextWidth width;
        for (const auto& parser : catalogues) {
            const std::string text = parser->getMessage(key);
            const Gallery::TextWidth other = Gallery::widthOf(key, text);
            if (width < other) {
                widest = text;
                width = other;
            }
        }
        return widest;
    });
    write(folder / "LA_" LONGEST_TEXTS ".txt", longestLicence);
}

} // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        std::fputs("Usage: PseudoLocales RESOURCES FOLDER CODE...\n", stderr);
        return 2;
    }
    // The build has no display, and its typefaces do not depend on who builds.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("FC_LANG", "en");
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    const QGuiApplication toolkit(argc, argv);
    try {
        make(arguments[0], arguments[1], {arguments.begin() + 2, arguments.end()});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "PseudoLocales: %s\n", error.what());
        return 1;
    }
    return 0;
}
