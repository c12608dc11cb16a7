#include "kvparser.h"

#include "trtools.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <functional>
#include <optional>
#include <stdexcept>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VXLOCAL {

namespace {

constexpr std::string_view separator = "\" = \"";
constexpr std::size_t separatorMiddle = separator.find('=');

std::uint32_t hashOf(std::string_view key) {
    return static_cast<std::uint32_t>(std::hash<std::string_view>()(key));
}

/// Bytes, and room for more.
struct Text {
    explicit Text(std::size_t room)
        : capacity(room), bytes(std::make_unique_for_overwrite<char[]>(room)) {}

    char* end() { return bytes.get() + size; }
    std::string_view view() const { return {bytes.get(), size}; }
    std::string_view append(std::string_view added) {
        added.copy(end(), added.size());
        size += added.size();
        return view().substr(size - added.size());
    }

    std::size_t capacity;
    std::size_t size = 0;
    std::unique_ptr<char[]> bytes;
};

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
    Text readLines() const {
        const auto size = static_cast<std::size_t>(status_.st_size);
        Text text(size + 1);
        for (;;) {
            const ssize_t count = read(descriptor_, text.end(), text.capacity - text.size);
            if (count < 0 && errno == EINTR) {
                continue;
            }
            if (count < 0) {
                // One more than nowhere is nothing.
                text.size = text.view().rfind('\n') + 1;
            }
            if (count <= 0) {
                return text;
            }
            const bool isFirst = text.size == 0;
            text.size += static_cast<std::size_t>(count);
            if (isFirst && text.size == size) {
                return text; // At one go, with room for more.
            }
            if (text.size == text.capacity) {
                Text larger(2 * text.capacity);
                larger.append(text.view());
                text = std::move(larger);
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

/// Where the first separator begins, `start` or later. Its middle is rarer in texts than quotes.
std::size_t findSeparator(std::string_view line, std::size_t start) {
    std::size_t middle = start + separatorMiddle;
    while ((middle = line.find(separator[separatorMiddle], middle)) != std::string_view::npos) {
        if (line.substr(middle - separatorMiddle).starts_with(separator)) {
            return middle - separatorMiddle;
        }
        ++middle;
    }
    return std::string_view::npos;
}

/// The two pieces of a line that TRTools::split cuts into exactly two, found without copying them.
std::optional<std::pair<std::string_view, std::string_view>> twoPieces(std::string_view line) {
    const std::size_t first = findSeparator(line, 0);
    const std::size_t start = first + separator.size();
    if (first == std::string_view::npos || start == line.size()) {
        return std::nullopt;
    }
    const std::size_t second = findSeparator(line, start);
    if (second != std::string_view::npos && second + separator.size() != line.size()) {
        return std::nullopt;
    }
    return std::pair(line.substr(0, first), line.substr(start, second - start));
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
    Text text = file.readLines();
    std::vector<Entry> entries = messages;
    readEntries(text.view(), entries);
    putInOrder(entries);
    std::vector<Bucket> index = indexOf(entries);

    // A first file that mostly consists of keys and values is kept as it is. Otherwise these are
    // copied out: however often it is parsed, no more than twice their bytes are held.
    std::size_t size = 0;
    for (const Entry& entry : entries) {
        size += entry.key.size() + entry.value.size();
    }
    if (!messages.empty() || size < text.capacity / 2) {
        Text copies(size);
        for (Entry& entry : entries) {
            entry.key = copies.append(entry.key);
            entry.value = copies.append(entry.value);
        }
        text = std::move(copies);
    }
    messages = std::move(entries);
    index_ = std::move(index);
    bytes_ = std::move(text.bytes);
}

/// Appends the entries of a strings file's text, in the order of its lines.
void KVParser::readEntries(std::string_view text, std::vector<Entry>& entries) {
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        if (const auto pieces = twoPieces(text.substr(0, length))) {
            const std::string_view key = trimmed(pieces->first, '"');
            const std::string_view value = trimmed(trimmed(pieces->second, '\r'), '"');
            if (!key.empty() && !value.empty()) {
                entries.push_back({key, value, hashOf(key), !TRTools::needsEscape(key),
                                   value.find('\\') != std::string_view::npos});
            }
        }
        text.remove_prefix(std::min(length + 1, text.size()));
    }
}

/// Puts the entries in the order of their keys, and keeps the last of several with one key.
void KVParser::putInOrder(std::vector<Entry>& entries) {
    // A file in this order takes no time for it.
    if (std::ranges::adjacent_find(entries, std::ranges::greater_equal(), &Entry::key) ==
        entries.end()) {
        return;
    }
    std::ranges::stable_sort(entries, {}, &Entry::key);
    const auto earlier =
        std::unique(entries.rbegin(), entries.rend(),
                    [](const Entry& one, const Entry& other) { return one.key == other.key; });
    entries.erase(entries.begin(), earlier.base());
    entries.shrink_to_fit();
}

/// \return the index of entries in their order.
std::vector<KVParser::Bucket> KVParser::indexOf(const std::vector<Entry>& entries) {
    std::vector<Bucket> index(std::bit_ceil(entries.size()));
    std::uint32_t number = 0;
    for (const Entry& entry : entries) {
        ++number;
        Bucket& bucket = index[entry.hash & (index.size() - 1)];
        const auto place = std::ranges::find(bucket, 0U);
        if (place != bucket.end()) {
            *place = number;
        }
    }
    return index;
}

/// \param key as it is written in the file.
const KVParser::Entry* KVParser::find(std::string_view key) const {
    for (const std::uint32_t number : index_[hashOf(key) & (index_.size() - 1)]) {
        if (number == 0) {
            return nullptr;
        }
        const Entry& entry = messages[number - 1];
        if (entry.key == key) {
            return &entry;
        }
    }
    const auto entry = std::ranges::lower_bound(messages, key, {}, &Entry::key);
    return entry != messages.end() && entry->key == key ? &*entry : nullptr;
}

std::string KVParser::getMessage(const std::string& key) const {
    const Entry* entry = find(key);
    // A key that is not plain means another one.
    if ((entry == nullptr || !entry->isPlain) && TRTools::needsEscape(key)) {
        entry = find(TRTools::escape(key));
    }
    if (entry == nullptr) {
        return key;
    }
    std::string message(entry->value);
    if (entry->hasEscapes) {
        return TRTools::unescape(message);
    }
    return message;
}

} // namespace VXLOCAL
