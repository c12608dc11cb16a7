// Feeds arbitrary bytes to the strings-file parser as one or two files, and compares what it finds
// with a straightforward model of the format: a map, and the lines cut with TRTools.
#include "kvparser.h"
#include "trtools.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <sys/mman.h>
#include <unistd.h>

using namespace VXLOCAL;

namespace {

using Model = std::map<std::string, std::string>;

void require(bool condition, const char* what, const std::string& key) {
    if (!condition) {
        std::cerr << what << ", key: " << key << '\n';
        std::abort();
    }
}

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

/// Has the catalogue read a file in memory that holds these bytes.
void parse(KVParser& parser, std::string_view bytes) {
    const int descriptor = memfd_create("strings", MFD_CLOEXEC);
    require(descriptor >= 0, "no file in memory", "");
    while (!bytes.empty()) {
        const ssize_t written = write(descriptor, bytes.data(), bytes.size());
        require(written > 0, "cannot write", "");
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    parser.setFilename(std::to_string(descriptor));
    parser.parse();
    close(descriptor);
}

std::string expected(const Model& model, const std::string& key) {
    const auto entry = model.find(TRTools::escape(key));
    return entry == model.end() ? key : TRTools::unescape(entry->second);
}

/// Asks for every key of the model, in the form of the file and in the form of the program, and for
/// neighbours.
void compare(const KVParser& parser, const Model& model) {
    for (const auto& [written, value] : model) {
        const std::string plain = TRTools::unescape(written);
        for (const std::string& key : {written, plain, written + '\0', written.substr(1)}) {
            require(parser.getMessage(key) == expected(model, key), "another message", key);
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // The byte 1 parts the files of the first and the second reading.
    const std::string input(reinterpret_cast<const char*>(data), size);
    KVParser parser("");
    parser.setLocaleDir("/proc/self/fd");
    Model model;
    for (const std::string& file : TRTools::split(input, "\1")) {
        parse(parser, file);
        readInto(model, file);
        compare(parser, model);
    }
    require(parser.getMessage(input) == expected(model, input), "another message", input);
    return 0;
}
