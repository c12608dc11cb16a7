#include "kvparser.h"

#include "trtools.h"

#include <algorithm>
#include <cerrno>
#include <optional>
#include <stdexcept>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VXLOCAL {

namespace {

constexpr std::string_view separator = "\" = \"";

/// An open file, closed with the object. Opening it waits for nobody: a FIFO does not open.
class File {
public:
    explicit File(const std::string& path)
        : descriptor_(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {
        // Without a file these only fail, as close() does.
        fstat(descriptor_, &status_);
        fcntl(descriptor_, F_SETFL, O_RDONLY);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { close(descriptor_); }

    bool isOpen() const { return descriptor_ >= 0 && !S_ISFIFO(status_.st_mode); }

    /// The bytes up to the end of the file, or up to the last line that was complete when reading
    /// failed.
    std::vector<char> readLines() const {
        std::vector<char> bytes(static_cast<std::size_t>(status_.st_size) + 1);
        std::size_t used = 0;
        for (;;) {
            const ssize_t count = read(descriptor_, bytes.data() + used, bytes.size() - used);
            if (count > 0) {
                used += static_cast<std::size_t>(count);
                if (used == bytes.size()) {
                    bytes.resize(2 * used);
                }
            } else if (count == 0) {
                bytes.resize(used);
                return bytes;
            } else if (errno != EINTR) {
                // One more than nowhere is nothing.
                bytes.resize(std::string_view(bytes.data(), used).rfind('\n') + 1);
                return bytes;
            }
        }
    }

private:
    int descriptor_;
    /// Nothing where the system does not tell.
    struct stat status_ = {};
};

std::string_view trimmed(std::string_view text, char removed) {
    const std::size_t first = text.find_first_not_of(removed);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(removed) - first + 1);
}

/// The two pieces of a line that TRTools::split cuts into exactly two, found without copying them.
std::optional<std::pair<std::string_view, std::string_view>> twoPieces(std::string_view line) {
    const std::size_t first = line.find(separator);
    if (first == std::string_view::npos) {
        return std::nullopt;
    }
    const std::string_view rest = line.substr(first + separator.size());
    const std::size_t second = rest.find(separator);
    if (rest.empty() ||
        (second != std::string_view::npos && second + separator.size() != rest.size())) {
        return std::nullopt;
    }
    return std::pair(line.substr(0, first), rest.substr(0, second));
}

} // namespace

KVParser::KVParser(const char* name) : Parser(name) {}

KVParser::~KVParser() = default;

void KVParser::parse() {
    const std::string path = localeFile(getLocale());
    if (path.empty()) {
        throw std::runtime_error("Could not find locale strings file for: " + getLocale() + "\n");
    }
    const File file(path);
    if (!file.isOpen()) {
        throw std::runtime_error("Could not open " + path + "\n");
    }
    std::vector<char> text = file.readLines();
    std::vector<Entry> entries(messages);
    readEntries(std::string_view(text.data(), text.size()), entries);
    adopt(entries, text);
}

/// Appends the entries of a strings file's text, in the order of its lines.
void KVParser::readEntries(std::string_view text, std::vector<Entry>& entries) {
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        if (const auto pieces = twoPieces(text.substr(0, length))) {
            const std::string_view key = trimmed(pieces->first, '"');
            const std::string_view value = trimmed(trimmed(pieces->second, '\r'), '"');
            if (!key.empty() && !value.empty()) {
                entries.push_back({key, value});
            }
        }
        text.remove_prefix(std::min(length + 1, text.size()));
    }
}

/// Makes these entries the table, of several with one key the last. A first file that mostly
/// consists of keys and values is kept as it is; otherwise these are copied out, so that a table
/// parsed again and again holds no more than twice what it can answer.
void KVParser::adopt(std::vector<Entry>& entries, std::vector<char>& text) {
    std::stable_sort(entries.begin(), entries.end(),
                     [](const Entry& left, const Entry& right) { return left.key < right.key; });
    std::size_t count = 0;
    std::size_t size = 0;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (i + 1 == entries.size() || entries[i].key != entries[i + 1].key) {
            entries[count++] = entries[i];
            size += entries[i].key.size() + entries[i].value.size();
        }
    }
    entries.resize(count);
    entries.shrink_to_fit();

    if (!messages.empty() || size < text.capacity() / 2) {
        std::vector<char> copies;
        copies.reserve(size);
        const auto copied = [&copies](std::string_view original) {
            const std::size_t start = copies.size();
            copies.insert(copies.end(), original.begin(), original.end());
            return std::string_view(copies.data() + start, original.size());
        };
        for (Entry& entry : entries) {
            entry = {copied(entry.key), copied(entry.value)};
        }
        text.swap(copies);
    }
    messages.swap(entries);
    bytes_.swap(text);
}

std::string KVParser::getMessage(const std::string& key) const {
    std::string escaped;
    std::string_view wanted = key;
    if (TRTools::needsEscape(key)) {
        escaped = TRTools::escape(key);
        wanted = escaped;
    }
    const auto entry = std::ranges::lower_bound(messages, wanted, {}, &Entry::key);
    if (entry == messages.end() || entry->key != wanted) {
        return key;
    }
    std::string message(entry->value);
    if (message.find('\\') != std::string::npos) {
        return TRTools::unescape(message);
    }
    return message;
}

} // namespace VXLOCAL
