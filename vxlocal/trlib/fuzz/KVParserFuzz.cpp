// Feeds arbitrary bytes to the strings-file parser as one file after the other, and compares what it finds
// with a straightforward model of the format: a map, and the lines cut with TRTools.
#include "kvparser.h"

#include "Fuzzing.h"
#include "trtools.h"

#include <map>
#include <sstream>
#include <string>
#include <vector>

using namespace VXLOCAL;
using Fuzzing::require;

namespace {

using Model = std::map<std::string, std::string>;

/// Reads a strings file's bytes into the model, one line at a time.
void readInto(Model& model, const std::string& bytes) {
    std::istringstream stream(bytes);
    for (std::string line; std::getline(stream, line);) {
        const std::vector<std::string> pieces = TRTools::split(line, "\" = \"");
        if (pieces.size() != 2) {
            continue;
        }
        const std::string key = TRTools::trim(pieces[0], "\"", false);
        const std::string value = TRTools::trim(TRTools::trim(pieces[1], "\r", false), "\"", false);
        if (!key.empty() && !value.empty()) {
            model[key] = value;
        }
    }
}

std::string expected(const Model& model, const std::string& key) {
    const auto entry = model.find(TRTools::escape(key));
    return entry == model.end() ? key : TRTools::unescape(entry->second);
}

/// Asks for every key of the model, in the form of the file and in the form of the program, and for
/// neighbours.
void compare(const KVParser& parser, const Model& model) {
    require(parser.isEmpty() == model.empty(), "another count", "");
    for (const auto& [written, value] : model) {
        const std::string plain = TRTools::unescape(written);
        for (const std::string& key : {written, plain, written + '\0', written.substr(1)}) {
            require(parser.getMessage(key) == expected(model, key), "another message", key);
        }
    }
}

} // namespace

void Fuzzing::tryInput(std::string input) {
    KVParser parser("");
    parser.setLocaleDir(MemoryFile::folder());
    Model model;
    std::string rest = input;
    // The files of the first and of each further reading.
    while (!rest.empty()) {
        const std::string bytes = takePart(rest);
        const MemoryFile file(bytes);
        parser.setFilename(file.name());
        parser.parse();
        readInto(model, bytes);
        compare(parser, model);
    }
    require(parser.getMessage(input) == expected(model, input), "another message", input);
}
