// SPDX-License-Identifier: MIT
// Records of tagged files in memory.
#include "workspace/tags.h"

#include "base/log.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr std::size_t word_bytes = 4;

struct RecordHead {
    int tag = 0, minor = 0;
    uint32_t count = 0;
};

void write_words(const TagRow& row, int minor, ByteWriter& out)
{
    out.big32(static_cast<uint32_t>(row.words() / row.unit));
    for (int i = 0; i < row.words(); ++i)
        out.big32(static_cast<uint32_t>(row.get(minor, i)));
}

void write_text(const TagRow& row, ByteWriter& out)
{
    const std::string_view text = std::string_view(*row.text).substr(0, row.text_room - 1);
    out.big32(static_cast<uint32_t>(text.size()));
    out.text(text);
    out.fill(tag_text_bytes - text.size());
}

/// Walks word by word to the next marker. False at the end. `skipped` says that there was something that is no record.
bool find_record(ByteReader& in, RecordHead& head, bool& skipped)
{
    skipped = false;
    while (in.left() >= word_bytes) {
        if (in.big32() != tag_marker) {
            skipped = true;
            continue;
        }
        if (in.left() < 3 * word_bytes) {
            skipped = true;
            return false;
        }
        head.tag = static_cast<int>(in.big32());
        head.minor = static_cast<int>(in.big32());
        head.count = in.big32();
        return true;
    }
    return false;
}

/// True when a record may end `words` further on: the next marker is there, or the end of the file.
bool ends_there(ByteReader in, uint64_t words)
{
    if (words > in.left() / word_bytes) return false;
    in.skip(words * word_bytes);
    return in.left() < word_bytes || in.big32() == tag_marker;
}

/// Drops the words of a record, as many as its count says. Of a count that can't be true nothing is dropped: the scan
/// then goes on to the next marker. False in that case.
bool drop_words(ByteReader& in, uint64_t words) { return ends_there(in, words) && in.skip(words * word_bytes); }

/// Reads the words of a record into the row's fields. False: the record or its count is damaged.
bool read_words(const TagRow& row, const RecordHead& head, ByteReader& in, TagReport& report)
{
    // A single value and a row of a table have their own length; only whole tables go by the count.
    const bool fixed = row.words() == 1 || row.place;
    const uint64_t count =
        fixed ? static_cast<uint64_t>(row.words()) : uint64_t{head.count} * static_cast<uint64_t>(row.unit);
    const bool true_count = fixed || ends_there(in, count);
    const auto kept = static_cast<int>(std::min<uint64_t>(count, static_cast<uint64_t>(row.words())));
    bool mended = false;
    for (int i = 0; i < kept; ++i) {
        if (in.left() < word_bytes || (!true_count && ends_there(in, 0))) return false;
        const int word = static_cast<int>(in.big32());
        const int valid = row.range_of(i).mended(word);
        if (valid != word && !mended) {
            log_line("[ WARNING ] : Value of tag #%d is OOB and was put back. Value = %d", row.tag, word);
            mended = true;
        }
        row.set(head.minor, i, valid);
    }
    if (mended) ++report.put_back;
    return true_count && in.skip((count - static_cast<uint64_t>(kept)) * word_bytes);
}

/// Reads a text, up to its first zero byte. False: it was cut short, or so long that it was left out.
bool read_text(const TagRow& row, const RecordHead& head, ByteReader& in)
{
    if (head.count > static_cast<uint32_t>(row.text_room)) {
        log_line("[ ERROR ] : Length of tag #%d is OOB. Len = %d", row.tag, static_cast<int>(head.count));
        return false;
    }
    const auto bytes = in.take(head.count);
    const auto kept = bytes.first(std::min(bytes.size(), static_cast<std::size_t>(row.text_room - 1)));
    row.text->assign(kept.begin(), std::find(kept.begin(), kept.end(), 0));
    return in.skip(tag_text_bytes - head.count) && bytes.size() == head.count;
}

/// Reads the payload of a known tag. False: something was wrong with it.
bool read_record(const TagRow& row, const RecordHead& head, ByteReader& in, TagReport& report)
{
    if (row.text) return read_text(row, head, in);
    if (!row.place || (head.minor >= 0 && head.minor < row.minors)) return read_words(row, head, in, report);
    if (row.bad_minor) {
        log_line(row.bad_minor, head.minor);
        drop_words(in, head.count);
    }
    return false;
}

} // namespace

int Range::mended(int word) const
{
    if (holds(word)) return word;
    if (mend == COLOR) return word & 0xffffff;
    return mend == ZERO ? 0 : std::clamp(word, low, high);
}

int TagRow::get(int minor, int i) const
{
    const int at = place ? place(minor, i) : i;
    return b.count() ? (at % 2 ? b : a).get(at / 2) : a.get(at);
}

void TagRow::set(int minor, int i, int word) const
{
    const int at = place ? place(minor, i) : i;
    b.count() ? (at % 2 ? b : a).set(at / 2, word) : a.set(at, word);
}

const Range& TagRow::range_of(int i) const
{
    return ranges.empty() ? range : ranges[static_cast<std::size_t>(i) % ranges.size()];
}

void write_tags(std::span<const TagRow> rows, ByteWriter& out)
{
    for (const TagRow& row : rows) {
        if (!row.text && row.words() == 0) continue; // a tag that is read and never written
        for (int minor = 0; minor < row.minors; ++minor) {
            out.big32(tag_marker);
            out.big32(static_cast<uint32_t>(row.tag));
            out.big32(static_cast<uint32_t>(minor));
            row.text ? write_text(row, out) : write_words(row, minor, out);
        }
    }
}

TagReport read_tags(std::span<const TagRow> rows, std::span<const uint8_t> bytes)
{
    ByteReader in(bytes);
    TagReport report;
    RecordHead head;
    bool skipped = false, payload_follows = false;
    while (find_record(in, head, skipped)) {
        report.damaged |= skipped && !payload_follows;
        payload_follows = false;
        const auto row = std::ranges::find(rows, head.tag, &TagRow::tag);
        if (row == rows.end()) {
            log_line("[ WARNING ] : I have no idea what I just read. Tag = %d", head.tag);
            drop_words(in, head.count);
            report.damaged = true;
            continue;
        }
        ++report.records;
        if (!row->text && row->words() == 0)
            payload_follows = true;
        else if (!read_record(*row, head, in, report))
            report.damaged = true;
    }
    report.damaged |= in.left() != 0 || (skipped && !payload_follows);
    return report;
}

} // namespace kelu
