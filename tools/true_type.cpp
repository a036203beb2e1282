// SPDX-License-Identifier: MIT
// One function a table; all numbers are big-endian.
#include "true_type.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace kelu::tools {
namespace {

using Bytes = std::vector<uint8_t>;

/// Appends numbers to a table.
class Table {
public:
    Table& word(long value) { return put(value, 2); }
    Table& words(std::initializer_list<long> values)
    {
        for (const long value : values)
            word(value);
        return *this;
    }
    Table& long_word(long value) { return put(value, 4); }
    Table& byte(long value) { return put(value, 1); }
    Table& append(const Bytes& bytes)
    {
        bytes_.insert(bytes_.end(), bytes.begin(), bytes.end());
        return *this;
    }
    Table& pad(std::size_t multiple)
    {
        bytes_.resize((bytes_.size() + multiple - 1) / multiple * multiple);
        return *this;
    }
    std::size_t size() const { return bytes_.size(); }
    const Bytes& bytes() const { return bytes_; }

private:
    Table& put(long value, int count)
    {
        for (int shift = 8 * (count - 1); shift >= 0; shift -= 8)
            bytes_.push_back(static_cast<uint8_t>(value >> shift));
        return *this;
    }
    Bytes bytes_;
};

/// The box round a glyph, or round all.
struct Box {
    int left = 32767, bottom = 32767, right = -32767, top = -32767;
    void widen(OutlinePoint p)
    {
        left = std::min(left, p.x);
        bottom = std::min(bottom, p.y);
        right = std::max(right, p.x);
        top = std::max(top, p.y);
    }
};

Box box_of(const OutlineGlyph& glyph)
{
    Box box;
    for (const Contour& contour : glyph.contours)
        for (const OutlinePoint p : contour)
            box.widen(p);
    return glyph.contours.empty() ? Box{0, 0, 0, 0} : box;
}

std::size_t points_of(const OutlineGlyph& glyph)
{
    std::size_t count = 0;
    for (const Contour& contour : glyph.contours)
        count += contour.size();
    return count;
}

/// The coordinates of one axis, as differences of two bytes each.
template <int OutlinePoint::*Axis>
void put_axis(Table& table, const OutlineGlyph& glyph)
{
    int last = 0;
    for (const Contour& contour : glyph.contours) {
        for (const OutlinePoint& p : contour)
            table.word(p.*Axis - std::exchange(last, p.*Axis));
    }
}

Table glyph_table(const OutlineGlyph& glyph)
{
    constexpr long on_curve = 1, overlaps = 64;
    Table table;
    if (glyph.contours.empty()) return table;
    const Box box = box_of(glyph);
    table.words({static_cast<long>(glyph.contours.size()), box.left, box.bottom, box.right, box.top});
    long end = -1;
    for (const Contour& contour : glyph.contours)
        table.word(end += static_cast<long>(contour.size()));
    table.word(0); // no instructions
    for (std::size_t i = 0; i < points_of(glyph); ++i)
        table.byte(i == 0 ? on_curve | overlaps : on_curve);
    put_axis<&OutlinePoint::x>(table, glyph);
    put_axis<&OutlinePoint::y>(table, glyph);
    return table.pad(4);
}

/// All glyphs, and in `places` where each begins, with the end of the last.
Bytes glyf_table(const OutlineFont& font, Table& places)
{
    Table all;
    for (const OutlineGlyph& glyph : font.glyphs) {
        places.long_word(static_cast<long>(all.size()));
        all.append(glyph_table(glyph).bytes());
    }
    places.long_word(static_cast<long>(all.size()));
    return all.bytes();
}

Box font_box(const OutlineFont& font)
{
    Box box;
    for (const OutlineGlyph& glyph : font.glyphs)
        for (const Contour& contour : glyph.contours)
            for (const OutlinePoint p : contour)
                box.widen(p);
    return box;
}

Table head_table(const OutlineFont& font)
{
    constexpr long version = 0x10000, magic = 0x5f0f3cf5, plain_scaling = 0x0b, smallest_size = 6;
    const Box box = font_box(font);
    Table table;
    table.long_word(version).long_word(version).long_word(0).long_word(magic).word(plain_scaling);
    table.word(font.units_per_em);
    table.long_word(0).long_word(0).long_word(0).long_word(0); // made and changed at no time, so that builds are alike
    table.words({box.left, box.bottom, box.right, box.top});
    return table.words({0, smallest_size, 2, 1, 0}); // places of four bytes
}

int widest_advance(const OutlineFont& font)
{
    return std::ranges::max(font.glyphs, {}, &OutlineGlyph::advance).advance;
}

Table hhea_table(const OutlineFont& font)
{
    const Box box = font_box(font);
    Table table;
    table.long_word(0x10000).words({font.ascender, font.descender, 0, widest_advance(font), box.left, 0, box.right});
    return table.words({1, 0, 0, 0, 0, 0, 0, 0, static_cast<long>(font.glyphs.size())});
}

Table hmtx_table(const OutlineFont& font)
{
    Table table;
    for (const OutlineGlyph& glyph : font.glyphs)
        table.words({glyph.advance, box_of(glyph).left});
    return table;
}

Table maxp_table(const OutlineFont& font)
{
    std::size_t points = 0;
    std::size_t contours = 0;
    for (const OutlineGlyph& glyph : font.glyphs) {
        points = std::max(points, points_of(glyph));
        contours = std::max(contours, glyph.contours.size());
    }
    Table table;
    table.long_word(0x10000).word(static_cast<long>(font.glyphs.size()));
    table.words({static_cast<long>(points), static_cast<long>(contours), 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0});
    return table;
}

/// A run of characters that follow each other, as their glyphs do.
struct Run {
    int first, last, glyph;
};

std::vector<Run> runs_of(const OutlineFont& font)
{
    std::vector<Run> runs;
    for (std::size_t i = 1; i < font.glyphs.size(); ++i) {
        const int code = font.glyphs[i].code;
        if (!runs.empty() && runs.back().last + 1 == code) {
            runs.back().last = code;
        } else {
            runs.push_back({code, code, static_cast<int>(i)});
        }
    }
    runs.push_back({0xffff, 0xffff, 0x10000}); // the end: the glyph of a missing character
    return runs;
}

/// Characters to glyphs, in format 4.
Table cmap_table(const OutlineFont& font)
{
    const std::vector<Run> runs = runs_of(font);
    const long count = static_cast<long>(runs.size());
    long power = 1;
    long log = 0;
    for (; power * 2 <= count; power *= 2)
        ++log;
    Table table;
    table.words({0, 1, 3, 1}).long_word(12); // one map: Windows, Unicode
    table.words({4, 16 + 8 * count, 0, 2 * count, 2 * power, log, 2 * (count - power)});
    for (const Run& run : runs)
        table.word(run.last);
    table.word(0);
    for (const Run& run : runs)
        table.word(run.first);
    for (const Run& run : runs)
        table.word(run.glyph - run.first);
    for (std::size_t i = 0; i < runs.size(); ++i)
        table.word(0);
    return table;
}

Table name_table(const OutlineFont& font)
{
    const std::pair<int, std::string> names[] = {
        {1, font.family}, {2, "Regular"}, {3, font.family}, {4, font.family}, {6, font.family}};
    Table head;
    Table text;
    head.words({0, static_cast<long>(std::size(names)), 6 + 12 * static_cast<long>(std::size(names))});
    for (const auto& [id, name] : names) {
        const long bytes = 2 * static_cast<long>(name.size());
        head.words({3, 1, 0x409, id, bytes, static_cast<long>(text.size())});
        for (const char c : name)
            text.word(c);
    }
    return head.append(text.bytes());
}

Table os2_table(const OutlineFont& font)
{
    constexpr long normal_weight = 400, normal_width = 5, regular = 0x40;
    Table table;
    table.words({4, widest_advance(font) / 2, normal_weight, normal_width, 0});
    for (int i = 0; i < 11; ++i)
        table.word(0); // sizes and places of raised letters and strokes, class
    for (int i = 0; i < 10; ++i)
        table.byte(0);                                                               // classification
    table.long_word(1).long_word(0).long_word(0).long_word(0).long_word(0x4b656c75); // basic Latin; vendor
    table.words({regular, font.glyphs[1].code, font.glyphs.back().code, font.ascender, font.descender, 0});
    table.words({font.ascender, -font.descender}).long_word(1).long_word(0);
    return table.words({0, 0, 0, ' ', 1});
}

Table post_table()
{
    Table table;
    table.long_word(0x30000); // no names of glyphs
    for (int i = 0; i < 7; ++i)
        table.long_word(0);
    return table;
}

struct NamedTable {
    std::string_view tag;
    Bytes bytes;
};

uint32_t checksum(Bytes bytes)
{
    bytes.resize((bytes.size() + 3) / 4 * 4);
    uint32_t sum = 0;
    for (std::size_t i = 0; i < bytes.size(); i += 4)
        sum += static_cast<uint32_t>(bytes[i] << 24 | bytes[i + 1] << 16 | bytes[i + 2] << 8 | bytes[i + 3]);
    return sum;
}

/// The directory and the tables, which are sorted by tag.
Bytes assemble(const std::vector<NamedTable>& tables)
{
    constexpr long entry_bytes = 16, head_bytes = 12;
    const long count = static_cast<long>(tables.size());
    Table file;
    file.long_word(0x10000).words({count, 128, 3, (count - 8) * entry_bytes}); // 8 to 15 tables
    long place = head_bytes + entry_bytes * count;
    for (const NamedTable& table : tables) {
        for (const char c : table.tag)
            file.byte(c);
        file.long_word(checksum(table.bytes)).long_word(place).long_word(static_cast<long>(table.bytes.size()));
        place += static_cast<long>((table.bytes.size() + 3) / 4 * 4);
    }
    for (const NamedTable& table : tables)
        file.append(table.bytes).pad(4);
    return file.bytes();
}

} // namespace

std::vector<uint8_t> write_true_type(const OutlineFont& font)
{
    constexpr uint32_t whole_sum = 0xb1b0afba;
    constexpr std::size_t adjustment_at = 8; // in the table "head"
    Table places;
    const Bytes glyphs = glyf_table(font, places);
    const std::vector<NamedTable> tables{
        {"OS/2", os2_table(font).bytes()},  {"cmap", cmap_table(font).bytes()}, {"glyf", glyphs},
        {"head", head_table(font).bytes()}, {"hhea", hhea_table(font).bytes()}, {"hmtx", hmtx_table(font).bytes()},
        {"loca", places.bytes()},           {"maxp", maxp_table(font).bytes()}, {"name", name_table(font).bytes()},
        {"post", post_table().bytes()}};
    Bytes file = assemble(tables);
    const uint32_t adjustment = whole_sum - checksum(file);
    const Bytes sought = head_table(font).bytes();
    const auto head = std::search(file.begin(), file.end(), sought.begin(), sought.end());
    for (std::size_t i = 0; i < 4; ++i)
        head[static_cast<std::ptrdiff_t>(adjustment_at + i)] = static_cast<uint8_t>(adjustment >> (24 - 8 * i));
    return file;
}

} // namespace kelu::tools
