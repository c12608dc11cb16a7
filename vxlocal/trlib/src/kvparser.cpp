#include "kvparser.h"

#include "trtools.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <map>
#include <optional>
#include <span>
#include <stdexcept>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace VXLOCAL {

namespace {

constexpr std::string_view separator = "\" = \"";
constexpr std::size_t separatorMiddle = 2;

/// The bits of a slot of the index that hold an entry's number; the others are of its key's hash.
constexpr std::uint64_t numberBits = (std::uint64_t{1} << 40) - 1;
/// So many slots, which lie in one or two lines of the processor's cache, are tried for a key.
constexpr std::size_t longestRun = 8;
constexpr std::size_t noSlot = std::string_view::npos;

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
            text.size += static_cast<std::size_t>(count);
            if (static_cast<std::size_t>(count) == size) {
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
    std::size_t middle = line.find(separator[separatorMiddle], start + separatorMiddle);
    while (middle != std::string_view::npos) {
        if (line.substr(middle - separatorMiddle).starts_with(separator)) {
            return middle - separatorMiddle;
        }
        middle = line.find(separator[separatorMiddle], middle + 1);
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
    std::vector<Entry> entries;
    entries.reserve(messages.size() + text.size / 64); // Most lines are longer.
    entries = messages;
    readEntries(text.view(), entries);
    const auto slots = [&entries] { return std::bit_ceil(2 * entries.size()); };
    std::vector<std::uint64_t> index(slots());
    std::size_t indexed = makeTable(entries, index);
    if (index.size() > slots()) { // Many lines had a key of others.
        index = std::vector<std::uint64_t>(slots());
        indexed = makeTable(entries, index);
    }
    entries.shrink_to_fit();

    // A first file that mostly consists of keys and values is kept as it is; otherwise these are
    // copied out, so that a table parsed again and again holds no more than twice what it can
    // answer.
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
    messages.swap(entries);
    index_.swap(index);
    indexed_ = indexed;
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
                entries.push_back({key, value, !TRTools::needsEscape(key),
                                   value.find('\\') != std::string_view::npos});
            }
        }
        text.remove_prefix(std::min(length + 1, text.size()));
    }
}

/// Keeps the last of several entries with one key, and puts those without a slot behind the others,
/// in the order of their keys.
/// \return how many have a slot of the index, which is empty before.
std::size_t KVParser::makeTable(std::vector<Entry>& entries, std::vector<std::uint64_t>& index) {
    std::size_t count = 0;
    std::map<std::string_view, Entry> crowded;
    for (const Entry& entry : entries) {
        const std::uint64_t hash = TRTools::hash(entry.key);
        const std::size_t slot = slotOf(entry.key, hash, entries, index);
        if (slot == noSlot) {
            crowded.insert_or_assign(entry.key, entry);
        } else if (index[slot] == 0) {
            entries[count] = entry;
            index[slot] = (hash & ~numberBits) | ++count;
        } else {
            entries[(index[slot] & numberBits) - 1] = entry;
        }
    }
    entries.resize(count);
    for (const auto& [key, entry] : crowded) {
        entries.push_back(entry);
    }
    return count;
}

/// \return the slot of the key, else the free one that it would take, or noSlot.
std::size_t KVParser::slotOf(std::string_view key, std::uint64_t hash,
                             const std::vector<Entry>& entries,
                             const std::vector<std::uint64_t>& index) {
    for (std::size_t step = 0; step < longestRun; ++step) {
        const std::size_t slot = (hash + step) & (index.size() - 1);
        const std::uint64_t taken = index[slot];
        if (taken == 0 ||
            (((taken ^ hash) & ~numberBits) == 0 && entries[(taken & numberBits) - 1].key == key)) {
            return slot;
        }
    }
    return noSlot;
}

/// \param key as it is written in the file.
const KVParser::Entry* KVParser::find(std::string_view key) const {
    const std::size_t slot = slotOf(key, TRTools::hash(key), messages, index_);
    if (slot != noSlot) {
        return index_[slot] == 0 ? nullptr : &messages[(index_[slot] & numberBits) - 1];
    }
    const auto crowded = std::span(messages).subspan(indexed_);
    const auto entry = std::ranges::lower_bound(crowded, key, {}, &Entry::key);
    return entry != crowded.end() && entry->key == key ? &*entry : nullptr;
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
