// A message catalogue read from a strings file, with one `"key" = "value"` pair to a line.
// The comment on KVParser is the definition of that format.
#pragma once

#include "parser.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace VXLOCAL {

/// The catalogue of one strings file, held in memory as a table that has each key once.
///
/// The file is a sequence of bytes in lines that end at a line feed; the last line may lack it. A
/// line is an entry when cutting it at every `" = "` (quote, space, equals sign, space, quote)
/// gives exactly two pieces, where an empty piece at the end of the line does not count. Every
/// other line is skipped without a message: blank lines, comments, other spacing around the equals
/// sign, three quoted texts.
///
/// - The key is the first piece without the quotes at its two ends, however many there are. Spaces
///   before the opening quote stay part of the key, and so does the quote behind them.
/// - The value is the second piece without carriage returns at its ends and then without quotes at
///   its ends. There is no terminator: a semicolon behind the closing quote stays in the value with
///   the quote.
/// - A line with an empty key or an empty value is skipped.
/// - Of several lines with one key, the last one counts.
/// - A byte-order mark has no meaning and becomes part of the first line's key.
/// - A key is written with its escapes: backslash and one of a, b, f, n, r, t, v for that control
///   character, and a backslash in front of a quote and of a backslash.
/// - The escapes of a value are kept as written and interpreted by look-up: backslash and one of a,
///   b, f, n, r, t stand for that control character, backslash and v for the letter v, backslash and
///   any other byte for a lone backslash.
///
/// parse() and getMessage() must not run at the same time on one object.
class KVParser : public Parser {
public:
    /// Makes a catalogue with an empty table.
    /// \param name the strings file's name inside its folder, zero-terminated and not null.
    explicit KVParser(const char* name);

    ~KVParser() override;

    /// Reads the strings file on top of the table: keys that the file lacks keep their values.
    /// Takes time in proportion to n log n, n being the bytes of table and file. When reading fails
    /// after the file was opened (a directory can be opened, for one), the lines read completely
    /// until then are kept, and that is no error.
    /// \throws std::runtime_error "Could not open ", the path and a line feed when the file cannot
    ///     be opened, as a FIFO and a socket never can; the table stays as it was.
    /// \throws std::bad_alloc when memory runs out; the table stays as it was.
    void parse() override;

    /// Looks a message up in time in proportion to the key's length and the value's, in rare cases
    /// also to the logarithm of the number of entries. Nothing is allocated but the result, unless
    /// the key holds a byte to escape or the value an escape.
    /// \param key the message identifier in plain text, control characters as themselves.
    /// \return the value with its escapes interpreted, or the key exactly as passed.
    std::string getMessage(const std::string& key) const override;

    /// Whether the table has no entry.
    bool isEmpty() const { return messages.empty(); }

private:
    /// Key and value as written in the file; both point into `bytes_`.
    struct Entry {
        std::string_view key;
        std::string_view value;
        /// Says which bucket the key is in.
        std::uint32_t hash;
        /// Whether the program writes the key as the file does, and whether the value has escapes.
        bool isPlain;
        bool hasEscapes;
    };

    /// Numbers of entries, counted from 1, and behind them 0. As many entries as would be too many
    /// for such a number take 160 GB.
    using Bucket = std::array<std::uint32_t, 4>;

    static void readEntries(std::string_view text, std::vector<Entry>& entries);
    static void putInOrder(std::vector<Entry>& entries);
    static std::vector<Bucket> indexOf(const std::vector<Entry>& entries);
    const Entry* find(std::string_view key) const;

    /// Each key once, in byte-wise order.
    std::vector<Entry> messages;
    /// Finds nearly every key of `messages` with one or two comparisons: a power of two of buckets, no
    /// fewer than there are entries. Each entry is in the one that its key's hash says, unless that is
    /// full.
    std::vector<Bucket> index_ = indexOf({});
    /// Holds the keys and values of `messages`.
    std::unique_ptr<char[]> bytes_;
};

} // namespace VXLOCAL
