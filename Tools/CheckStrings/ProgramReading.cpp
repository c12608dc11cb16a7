#include "ProgramReading.h"

#include <kvparser.h>
#include <trtools.h>

#include <array>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace CheckStrings {

namespace {

using VXLOCAL::TRTools::escape;
using VXLOCAL::TRTools::unescape;

/// By the letter behind a backslash: the byte that the library escapes so, or 0.
std::array<char, 256> escapedBytes() {
    std::array<char, 256> bytes = {};
    for (int byte = 1; byte <= std::numeric_limits<unsigned char>::max(); ++byte) {
        const std::string escaped = escape(std::string(1, static_cast<char>(byte)));
        if (escaped.size() == 2) {
            bytes[static_cast<unsigned char>(escaped[1])] = static_cast<char>(byte);
        }
    }
    return bytes;
}

/// The text in the program that look-up turns into this key, or nothing when there is none.
std::optional<std::string> identifierOf(std::string_view key) {
    static const std::array<char, 256> bytes = escapedBytes();
    std::string identifier;
    for (std::size_t at = 0; at < key.size(); ++at) {
        if (key[at] == '\\' && at + 1 < key.size()) {
            identifier += bytes[static_cast<unsigned char>(key[++at])];
        } else {
            identifier += key[at];
        }
    }
    return escape(identifier) == key ? std::optional(identifier) : std::nullopt;
}

/// The message as it reaches printf: key and message end at a zero byte.
std::string lookUp(const VXLOCAL::KVParser& parser, const std::string& identifier) {
    return parser.getMessage(identifier.c_str()).c_str();
}

/// The entry that counts for each key: the last one. Keys with a line that breaks a rule, which is
/// reported already, are left out.
std::map<std::string_view, const Entry*> soundEntries(const std::vector<Entry>& entries) {
    std::map<std::string_view, const Entry*> last;
    for (const Entry& entry : entries) {
        last[entry.key] = &entry;
    }
    for (const Entry& entry : entries) {
        if (!entry.sound) {
            last.erase(entry.key);
        }
    }
    return last;
}

} // namespace

void compareWithProgram(const std::filesystem::path& file, const std::vector<Entry>& entries,
                        FileReport& report) {
    VXLOCAL::KVParser parser(file.filename().c_str());
    parser.setLocaleDir(file.has_parent_path() ? file.parent_path().string() : ".");
    parser.parse();
    for (const auto& [key, entry] : soundEntries(entries)) {
        const auto identifier = identifierOf(key);
        if (!identifier) {
            report.add(entry->line, Rule::Misread,
                       "no text of the program finds this key; see to its quotes and escapes");
        } else if (const std::string read = lookUp(parser, *identifier);
                   read != unescape(entry->value)) {
            report.add(entry->line, Rule::Misread, "the program reads: " + read);
        }
    }
}

} // namespace CheckStrings
