// SPDX-License-Identifier: MIT
// The rows of the formats, and the ways to find one.
#include "imagefile/formats.h"

#include "base/log.h"
#include "imagefile/bmp.h"
#include "imagefile/gif.h"
#include "imagefile/ico.h"
#include "imagefile/jpeg.h"
#include "imagefile/lbm.h"
#include "imagefile/pcx.h"
#include "imagefile/picture_files.h"
#include "imagefile/png.h"
#include "imagefile/reduce.h"
#include "imagefile/refusal.h"
#include "platform/files.h"
#include <algorithm>
#include <new>
#include <utility>

namespace kelu {
namespace {

using Span = std::span<const uint8_t>;

Bitmap opaque(Bitmap picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            row(picture, y)[x] |= static_cast<int>(0xff000000);
    }
    return picture;
}

Bitmap decode_png_merged(Span bytes)
{
    // Only RGBA carries alpha into a frame. The colour type is the 13th byte behind the start of the head's name.
    constexpr std::size_t searched = 30, color_type_at = 13;
    constexpr std::string_view head_name = "IHDR";
    const Span start = bytes.first(std::min(searched, bytes.size()));
    const auto head = std::search(start.begin(), start.end(), head_name.begin(), head_name.end());
    const bool rgba = start.end() - head > static_cast<std::ptrdiff_t>(color_type_at) && head[color_type_at] == 6;
    Bitmap picture = decode_png(bytes);
    return rgba ? std::move(picture) : opaque(std::move(picture));
}

using PaletteWriter = int (*)(const char*, BITMAP*, const RGB*);

template <PaletteWriter write>
bool save_reduced(const char* name, BITMAP* picture, const SaveOptions& options)
{
    PALETTE palette;
    reduce_colors(picture, options.color_reduction, palette);
    return write(name, picture, palette) == 0;
}

constexpr Bitmap (*no_decoder)(Span) = nullptr;
constexpr bool (*no_writer)(const char*, BITMAP*, const SaveOptions&) = nullptr;

// clang-format off
constexpr FormatRow formats[] = {
    // id               at name   signature                        prev.  alpha  filter
    {FORMAT_GIF,       0, "GIF", "GIF",                           true,  false, 0,
     [](Span bytes) { return opaque(decode_gif(bytes)); }, save_reduced<save_gif>},
    {FORMAT_PCX,       0, "PCX", "",                              true,  false, 1,
     [](Span bytes) { return opaque(decode_pcx(bytes)); },
     [](const char* name, BITMAP* picture, const SaveOptions&) { return save_pcx_picture(name, picture) == 0; }},
    {FORMAT_BMP,       0, "BMP", "BM",                            true,  false, 2,
     [](Span bytes) { return opaque(decode_bmp(bytes)); },
     [](const char* name, BITMAP* picture, const SaveOptions&) { return write_bmp(name, picture); }},
    {FORMAT_PNG,       1, "PNG", "PNG",                           true,  true,  3,
     decode_png_merged,
     [](const char* name, BITMAP* picture, const SaveOptions&) { return save_png(name, picture) == 0; }},
    {FORMAT_JPG,       0, "JPG", "\xff\xd8\xff",                  true,  false, 4,
     [](Span bytes) { return opaque(decode_jpeg(bytes)); },
     [](const char* name, BITMAP* picture, const SaveOptions& options) { return save_jpeg(name, picture, options.jpg_quality); }},
    {FORMAT_LBM,       0, "LBM", "FORM",                          true,  false, 5,
     [](Span bytes) { return opaque(decode_lbm(bytes)); }, save_reduced<save_lbm>},
    {FORMAT_TTF,       0, "TTF", "",                              true,  false, 6, no_decoder, no_writer},
    {FORMAT_FON,       0, "FON", "",                              true,  false, -1, no_decoder, no_writer},
    {FORMAT_WSP,       0, "WSP", "kWSP",                          false, false, 8, no_decoder, no_writer},
    {FORMAT_FAVORITES, 0, "",    "COL",                           false, false, -1, no_decoder, no_writer},
    {FORMAT_SCHEME,    0, "",    "SCH",                           false, false, -1, no_decoder, no_writer},
    {FORMAT_ICO,       0, "ICO", std::string_view("\0\0\1\0", 4), true,  true,  7,
     decode_ico,
     [](const char* name, BITMAP* picture, const SaveOptions&) { return save_ico(name, picture) == 1; }},
};
// clang-format on

constexpr bool rows_in_order()
{
    for (std::size_t i = 0; i < std::size(formats); ++i) {
        if (formats[i].id != static_cast<int>(i)) return false;
    }
    return std::size(formats) == FORMAT_COUNT;
}
static_assert(rows_in_order());

constexpr const FormatRow* row_of_filter(int filter) { return std::ranges::find(formats, filter, &FormatRow::filter); }
constexpr int filters = 9;
constexpr bool every_filter_has_a_row()
{
    for (int i = 0; i < filters; ++i) {
        if (row_of_filter(i) == std::end(formats)) return false;
    }
    return true;
}
static_assert(every_filter_has_a_row());

/// Other endings of formats that have one of their own.
constexpr std::pair<std::string_view, int> other_endings[] = {{"JPEG", FORMAT_JPG}, {"JPE", FORMAT_JPG}};

/// A PCX file has no signature, but its first four bytes leave little to chance: maker, version, packed runs, depth.
bool starts_as_pcx(Span bytes)
{
    constexpr uint8_t maker = 10, newest = 5, packed_runs = 1;
    const uint8_t version = bytes[1], depth = bytes[3];
    const bool known_depth = depth == 1 || depth == 2 || depth == 4 || depth == 8;
    return bytes[0] == maker && version <= newest && version != 1 && bytes[2] == packed_runs && known_depth;
}

} // namespace

const FormatRow& format_row(int id) { return formats[id]; }

const FormatRow& format_of_filter(int filter) { return *row_of_filter(filter); }

int format_from_extension(const std::string& name, bool fonts_only)
{
    const std::size_t point = name.rfind('.');
    if (point == std::string::npos || point + 1 == name.size()) return FORMAT_NONE;
    const std::string extension = platform::upper_case(name.substr(point + 1));
    for (const FormatRow& format : formats) {
        if (fonts_only && format.id != FORMAT_TTF && format.id != FORMAT_FON) continue;
        if (format.extension == extension) return format.id;
    }
    for (const auto& [ending, id] : other_endings) {
        if (!fonts_only && ending == extension) return id;
    }
    return FORMAT_NONE;
}

int format_from_bytes(std::span<const uint8_t> start)
{
    if (start.size() < signature_bytes) return FORMAT_NONE;
    for (const FormatRow& format : formats) {
        ByteReader in(start);
        in.seek(format.signature_at);
        if (!format.signature.empty() && in.starts_with(format.signature)) return format.id;
    }
    return starts_as_pcx(start) ? FORMAT_PCX : FORMAT_NONE;
}

int format_from_signature(const std::string& name)
{
    Bytes start;
    if (!platform::read_start(name, signature_bytes, start)) {
        log_line("[ ERROR ] : Failure to read file at OS level! Aborting operation!");
        return FORMAT_NONE;
    }
    if (start.size() < signature_bytes) log_line("[ ERROR ] : Requested file is too small to have usable content!");
    return format_from_bytes(start);
}

int format_of_file(const std::string& name)
{
    const int format = format_from_extension(name, false);
    return format != FORMAT_NONE ? format : format_from_signature(name);
}

Bitmap decode_picture(std::span<const uint8_t> bytes, int format)
{
    const bool known = format >= 0 && format < FORMAT_COUNT && formats[format].decode;
    return known ? formats[format].decode(bytes) : refuse("No kind of picture that is known!");
}

Bitmap load_picture(const std::string& name, int format)
{
    try {
        Bytes bytes;
        if (!platform::read_file(name, max_picture_file, bytes)) return refuse("Cannot open file!");
        return decode_picture(bytes, format);
    } catch (const std::bad_alloc&) {
        log_line("[ ERROR ] : Memory is too short for the picture %s", name);
    }
    return refuse(refusal::no_memory);
}

} // namespace kelu
