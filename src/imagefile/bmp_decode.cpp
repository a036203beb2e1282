// SPDX-License-Identifier: MIT
// The BMP reader.
//
// A file header of 14 bytes ("BM", where the pixels begin), then an info header: of 12 bytes in the oldest files, else
// of 40 or more. For depths up to 8 a palette follows, of blue green red, and 0 but in the oldest. Rows are padded to 4
// bytes, the bottom one first unless the height is negative. 8 and 4 bits may be run-length coded, 16 and 32 bits may
// tell by masks where their channels lie.
#include "base/sizes.h"
#include "imagefile/bmp.h"

#include "base/reader.h"
#include "imagefile/refusal.h"
#include "platform/files.h"
#include "runtime/pixels.h"
#include <array>
#include <bit>
#include <cstdlib>

namespace kelu {
namespace {

constexpr std::size_t file_header = 14, oldest_header = 12, info_header = 40;

enum Compression : uint32_t { PLAIN, RUNS_OF_8, RUNS_OF_4, BY_MASKS, BY_MASKS_WITH_ALPHA = 6 };

using Palette = std::array<int, 256>;

struct Head {
    std::size_t pixels_at = 0, info_size = 0;
    int width = 0, height = 0;
    bool top_down = false;
    int bits = 0;
    uint32_t compression = PLAIN;
    uint32_t red = 0, green = 0, blue = 0; ///< masks of a pixel of 16 or 32 bits

    bool by_masks() const { return compression == BY_MASKS || compression == BY_MASKS_WITH_ALPHA; }
    bool by_runs() const { return compression == RUNS_OF_8 || compression == RUNS_OF_4; }
    std::size_t row_bytes() const { return (product(width, bits) + 31) / 32 * 4; }
    /// The bitmap's row for the n-th row of the file.
    int target_row(int n) const { return top_down ? n : height - 1 - n; }
    bool known() const
    {
        switch (compression) {
        case PLAIN:
            return bits == 1 || bits == 4 || bits == 8 || bits == 16 || bits == 24 || bits == 32;
        case RUNS_OF_8:
            return bits == 8 && !top_down;
        case RUNS_OF_4:
            return bits == 4 && !top_down;
        default:
            return by_masks() && (bits == 16 || bits == 32);
        }
    }
};

/// Reads the heads up to the palette; false when they are cut or tell of what isn't known.
bool read_heads(ByteReader& in, Head& head)
{
    if (!in.match("BM")) return false;
    in.skip(8); // size of the file, which writers get wrong, and two reserved words
    head.pixels_at = in.little32();
    head.info_size = in.little32();
    const bool oldest = head.info_size == oldest_header;
    const auto w = oldest ? in.little16() : static_cast<int32_t>(in.little32());
    const auto h = oldest ? in.little16() : static_cast<int32_t>(in.little32());
    in.skip(2); // planes
    head.bits = in.little16();
    if (!oldest) head.compression = in.little32();
    if (!bitmap_size_valid(w, std::labs(long{h}))) return false;
    head.width = w;
    head.height = std::abs(h);
    head.top_down = h < 0;
    head.red = 0x7c00; // 16 bits without masks
    head.green = 0x03e0;
    head.blue = 0x001f;
    if (head.by_masks()) { // behind a header of 40 bytes, or inside a longer one: the same place
        in.seek(file_header + info_header);
        head.red = in.little32();
        head.green = in.little32();
        head.blue = in.little32();
    }
    return !in.ended() && (oldest || head.info_size >= info_header) && head.known();
}

/// The palette: up to 256 entries, of which those that the file lacks are black.
Palette read_palette(ByteReader in, const Head& head)
{
    Palette palette{};
    if (head.bits > 8 || !in.seek(file_header + head.info_size)) return palette;
    const std::size_t entry = head.info_size == oldest_header ? 3 : 4;
    for (std::size_t i = 0; i < std::size_t{1} << head.bits && in.position() + entry <= head.pixels_at; ++i) {
        const auto color = in.take(entry);
        if (color.size() < entry) break;
        palette[i] = pack_rgb(color[2], color[1], color[0]);
    }
    return palette;
}

/// The channel under a mask, spread over 0 to 255.
int channel(uint32_t pixel, uint32_t mask)
{
    if (mask == 0) return 0;
    const int shift = std::countr_zero(mask);
    const uint64_t most = mask >> shift;
    return static_cast<int>(uint64_t{(pixel & mask) >> shift} * 255 / most);
}

void decode_row(const Head& head, const Palette& palette, std::span<const uint8_t> line, int* out)
{
    ByteReader in(line);
    for (int x = 0; x < head.width; ++x) {
        if (head.bits <= 8) { // pixels are in a byte from its high bits down
            const int bit = x * head.bits;
            const int index = line[bit / 8] >> (8 - head.bits - bit % 8);
            out[x] = palette[index & ((1 << head.bits) - 1)];
        } else if (head.bits >= 24 && !head.by_masks()) {
            const uint8_t* color = &line[x * (head.bits / 8)];
            out[x] = pack_rgb(color[2], color[1], color[0]);
        } else {
            const uint32_t pixel = head.bits == 16 ? static_cast<uint32_t>(in.little16()) : in.little32();
            out[x] = pack_rgb(channel(pixel, head.red), channel(pixel, head.green), channel(pixel, head.blue));
        }
    }
}

/// Decodes runs: a count and a value, or 0 and an order: 0 ends the row, 1 the picture, 2 is followed by a step right
/// and up, more is so many pixels as they are, padded to 2 bytes. Pixels that nobody names have colour 0.
void decode_runs(ByteReader in, const Head& head, const Palette& palette, BITMAP* bitmap)
{
    int x = 0, y = 0;
    // Of two pixels in a byte the high one comes first; with 8 bits a byte is a pixel.
    const auto pixel_of = [&](int byte, int n) { return head.bits == 8 ? byte : n % 2 == 0 ? byte >> 4 : byte & 15; };
    const auto put = [&](int index) {
        if (x < head.width) row(bitmap, head.target_row(y))[x++] = palette[index];
    };
    while (y < head.height && !in.ended()) {
        const int count = in.byte(), value = in.byte();
        if (count > 0) {
            for (int n = 0; n < count; ++n)
                put(pixel_of(value, n));
        } else if (value == 0) {
            x = 0;
            ++y;
        } else if (value == 1) {
            return;
        } else if (value == 2) {
            x = std::min(head.width, x + in.byte());
            y += in.byte();
        } else {
            const std::size_t bytes = head.bits == 8 ? value : (value + 1) / 2;
            const auto run = in.take(bytes);
            for (int n = 0; n < value && static_cast<std::size_t>(head.bits == 8 ? n : n / 2) < run.size(); ++n)
                put(pixel_of(run[head.bits == 8 ? n : n / 2], n));
            in.skip(bytes % 2);
        }
    }
}

} // namespace

Bitmap decode_bmp(std::span<const uint8_t> bytes)
{
    ByteReader in(bytes);
    Head head;
    if (!read_heads(in, head)) return refuse("Not a known BMP file!");
    const Palette palette = read_palette(in, head);
    if (!in.seek(head.pixels_at)) return refuse(refusal::ends_early);
    // Plain rows have to be there before memory is asked for. A run of two bytes is up to 255 pixels long.
    const auto height = static_cast<std::size_t>(head.height);
    const bool enough = head.by_runs() ? may_hold(in.left(), product(head.width, head.height), 255 / 2 + 1)
                                       : in.left() / head.row_bytes() >= height;
    if (!enough) return refuse(refusal::ends_early);
    Bitmap bitmap(head.width, head.height, palette[0]);
    if (!bitmap) return refuse(refusal::no_memory);
    if (head.by_runs())
        decode_runs(in, head, palette, bitmap);
    else
        for (int n = 0; n < head.height; ++n)
            decode_row(head, palette, in.take(head.row_bytes()), row(bitmap, head.target_row(n)));
    return bitmap;
}

Bitmap read_bmp(const std::string& name)
{
    constexpr std::size_t limit = 65536U + 4U * max_bitmap_pixels;
    Bytes bytes;
    if (!platform::read_file(name, limit, bytes)) return {};
    return decode_bmp(bytes);
}

} // namespace kelu
