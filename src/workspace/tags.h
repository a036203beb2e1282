// SPDX-License-Identifier: MIT
// Tagged files: plain sequences of records, without a head and without a version.
//
// A record is four big-endian words, the marker 0xDEADBEEF, the tag, a minor number and a count, and then its payload,
// whole words too. What a tag stands for is a row of a table, and the same row serves reader, writer and test. A
// reader that doesn't know a tag goes on at the next marker, so a file may come from an older or a newer program.
#pragma once

#include "base/reader.h"
#include "workspace/field.h"
#include <limits>
#include <span>
#include <string>

namespace kelu {

constexpr uint32_t tag_marker = 0xdeadbeef;
constexpr int tag_text_bytes = 256; ///< payload of every text

/// The values a word may have, and how one outside is put right when it is read.
struct Range {
    enum Mend : uint8_t {
        CLAMP, ///< the nearest value in range
        ZERO,  ///< 0
        COLOR  ///< its low 24 bits
    };
    int low = std::numeric_limits<int>::min();
    int high = std::numeric_limits<int>::max();
    Mend mend = CLAMP;

    constexpr bool holds(int word) const { return word >= low && word <= high; }
    int mended(int word) const;
};

constexpr Range any_word{};
constexpr Range flag_range{0, 1};
constexpr Range level_range{0, 255};
constexpr Range color_range{0, 0xffffff, Range::COLOR};

/// One tag. Rows are in the order in which the file is written. A row without words and text is passed over by the
/// reader and left out by the writer.
struct TagRow {
    int tag;
    Range range = any_word;
    Field a = {}, b = {};                     ///< the words; two fields interleave: a0 b0 a1 b1
    int unit = 1;                             ///< words for one step of the record's count
    std::string* text = nullptr;              ///< a text instead of words
    int text_room = 0;                        ///< bytes of a text's field, of which the last is its terminator
    int records = 1;                          ///< records that the words are cut into
    int minors = 1;                           ///< of these, how many are stored, distinguished by their minor number
    int (*place)(int minor, int i) = nullptr; ///< which of the words is word i of a minor's record
    std::span<const Range> ranges = {};       ///< by word of a record, in place of `range`
    const char* bad_minor = nullptr;          ///< log line for a minor that isn't there

    /// Words of one record.
    constexpr int words() const { return (a.count() + b.count()) / records; }
    int get(int minor, int i) const;
    void set(int minor, int i, int word) const;
    const Range& range_of(int i) const;
};

/// What a reader found.
struct TagReport {
    int records = 0;      ///< records of known tags
    int put_back = 0;     ///< records with words outside their range, which were put in order
    bool damaged = false; ///< some bytes were no record, or a record was cut short
};

/// Appends one record for each row and each of its minors.
void write_tags(std::span<const TagRow> rows, ByteWriter& out);

/// Reads records until the end. Words outside their range are put right and logged once for a record, words beyond a
/// table's size are dropped, texts that are too long are logged and passed over, unknown tags are logged and passed
/// over. Behind a count that can't be true the reader goes on at the next marker. What a file doesn't hold keeps its
/// value.
TagReport read_tags(std::span<const TagRow> rows, std::span<const uint8_t> bytes);

} // namespace kelu
