// The PNG reader: the head, the chunks up to the picture's data, one call of zlib, the filters, the pixels.
//
// Every size is checked before it is allocated: the sides by the bounds of a bitmap, the raw rows by what the
// compressed bytes can hold at most.
#include "imagefile/png.h"

#include "imagefile/indexed.h"
#include "imagefile/png_filters.h"
#include "imagefile/refusal.h"
#include "runtime/pixels.h"
#include <array>
#include <bit>
#include <new>
#include <zlib.h>

namespace kelu {
namespace {

enum ColorType { GREY = 0, TRUE_COLOR = 2, INDEXED = 3, GREY_ALPHA = 4, TRUE_COLOR_ALPHA = 6 };

/// By colour type: samples of one pixel, and the sum of the sample depths that go with it.
struct ColorForm {
    int channels;
    int depths;
};
constexpr ColorForm color_forms[] = {
    {1, 1 | 2 | 4 | 8 | 16}, {}, {3, 8 | 16}, {1, 1 | 2 | 4 | 8}, {2, 8 | 16}, {}, {4, 8 | 16}};

/// What deflate can shrink a run of bytes by at most.
constexpr std::size_t most_expansion = 1032;

struct Picture {
    int width = 0, height = 0;
    int depth = 0; ///< bits of a sample
    int color_type = 0;
    bool interlaced = false;
    bool has_palette = false;
    RGB* palette = nullptr; ///< 256 entries

    int channels() const { return color_forms[color_type].channels; }
    /// Bytes of `count` pixels in a row, without the filter byte.
    std::size_t row_bytes(int count) const
    {
        return (static_cast<std::size_t>(count) * static_cast<std::size_t>(channels() * depth) + 7) / 8;
    }
};

/// Where a pass of the picture lies: its first pixel and the distance to the next one.
struct Pass {
    int x, y, dx, dy;

    int width(const Picture& p) const { return (p.width - x + dx - 1) / dx; }
    int height(const Picture& p) const { return (p.height - y + dy - 1) / dy; }
    /// Bytes of all filtered rows. A pass without columns has no rows either.
    std::size_t size(const Picture& p) const
    {
        if (width(p) < 1 || height(p) < 1) return 0;
        return static_cast<std::size_t>(height(p)) * (p.row_bytes(width(p)) + 1);
    }
};
constexpr Pass whole_picture[] = {{0, 0, 1, 1}};
constexpr Pass adam7[] = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                          {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};

std::span<const Pass> passes(const Picture& p)
{
    return p.interlaced ? std::span<const Pass>(adam7) : std::span<const Pass>(whole_picture);
}

bool fail(const char* error)
{
    png_error = error;
    return false;
}

/// Length and type of the next chunk.
struct Chunk {
    std::size_t length = 0;
    std::string_view type;
};

bool read_chunk_head(ByteReader& in, Chunk& chunk)
{
    chunk.length = in.big32();
    if (in.ended()) return fail("Cannot read chunk length!");
    const auto letters = in.take(4);
    if (in.ended()) return fail("Cannot read chunk type!");
    chunk.type = {reinterpret_cast<const char*>(letters.data()), letters.size()};
    return true;
}

/// Steps over what is left of a chunk's data and its CRC.
bool skip_chunk(ByteReader& in, std::size_t data_left) { return in.skip(data_left + 4) || fail("Cannot fseek!"); }

bool read_header(ByteReader& in, Picture& p)
{
    const auto signature = in.take(sizeof png_signature);
    if (in.ended()) return fail("File shorter than PNG signature!");
    if (!std::equal(signature.begin(), signature.end(), png_signature)) return fail("File signature mismatch!");

    Chunk chunk;
    if (!read_chunk_head(in, chunk)) return false;
    if (chunk.type != "IHDR") return fail("First chunk must be of IHDR type!");
    if (chunk.length != 13) return fail("Incorrect IHDR length!");
    const uint32_t width = in.big32();
    if (in.ended()) return fail("Cannot read image width!");
    if (width == 0) return fail("Zero width!");
    const uint32_t height = in.big32();
    if (in.ended()) return fail("Cannot read image height!");
    if (height == 0) return fail("Zero height!");
    p.depth = in.byte();
    if (in.ended()) return fail("Cannot read image bit depth!");
    p.color_type = in.byte();
    if (in.ended()) return fail("Cannot read image color type!");
    if (p.color_type >= static_cast<int>(std::size(color_forms)) ||
        !std::has_single_bit(static_cast<unsigned>(p.depth)) || !(color_forms[p.color_type].depths & p.depth))
        return fail("Unsupported color type/depth combination!");

    const int compression = in.byte();
    if (in.ended()) return fail("Cannot read image compression method!");
    if (compression != 0) return fail("Unsupported compression method!");
    const int filter_method = in.byte();
    if (in.ended()) return fail("Cannot read filter method!");
    if (filter_method != 0) return fail("Unsupported filter method!");
    const int interlace = in.byte();
    if (in.ended()) return fail("Cannot read interlace method!");
    if (interlace > 1) return fail("Interlace not supported!");
    p.interlaced = interlace == 1;

    if (!bitmap_size_valid(width, height)) return fail("Cannot allocate bitmap!");
    p.width = static_cast<int>(width);
    p.height = static_cast<int>(height);
    return skip_chunk(in, 0);
}

bool read_palette(ByteReader& in, std::size_t length, Picture& p)
{
    if (length % 3 != 0) return fail("Palette chunk length not divisible by 3!");
    if (length < 3 || length > 3 * PAL_SIZE) return fail("Incorrect number of palette entries!");
    const auto levels = in.take(length);
    if (in.ended()) return fail("Cannot read palette!");
    std::fill_n(p.palette, PAL_SIZE, RGB{});
    for (std::size_t i = 0; i < length / 3; ++i) {
        p.palette[i].r = levels[3 * i] >> 2;
        p.palette[i].g = levels[3 * i + 1] >> 2;
        p.palette[i].b = levels[3 * i + 2] >> 2;
    }
    p.has_palette = true;
    return skip_chunk(in, 0);
}

/// Walks to the first IDAT and collects its run of chunks; the head of the chunk behind the run is left in `chunk`.
bool collect_data(ByteReader& in, Picture& p, Chunk& chunk, Bytes& data)
{
    for (;;) {
        if (!read_chunk_head(in, chunk)) return false;
        if (chunk.type == "IDAT") break;
        const bool good = chunk.type == "PLTE" ? read_palette(in, chunk.length, p) : skip_chunk(in, chunk.length);
        if (!good) return false;
    }
    if (p.color_type == INDEXED && !p.has_palette) return fail("Palette required but not found!");
    while (chunk.type == "IDAT") {
        const auto run = in.take(chunk.length);
        if (in.ended()) return fail("Cannot read image data!");
        data.insert(data.end(), run.begin(), run.end());
        if (!skip_chunk(in, 0) || !read_chunk_head(in, chunk)) return false;
    }
    return data.size() >= 7 || fail("File without data!");
}

bool inflate_rows(const Picture& p, const Bytes& data, Bytes& raw)
{
    std::size_t size = 0;
    for (const Pass& pass : passes(p))
        size += pass.size(p);
    if (size / most_expansion > data.size()) return fail("Not enough data!");
    raw.resize(size);
    uLongf unpacked = static_cast<uLongf>(size);
    uLong used = static_cast<uLong>(data.size());
    const int result = uncompress2(raw.data(), &unpacked, data.data(), &used);
    if (result == Z_MEM_ERROR) return fail("Cannot allocate memory!");
    // A stream that is cut has used up its bytes; one that is damaged has stopped before.
    const bool cut = result == Z_DATA_ERROR && used == data.size() && unpacked < size;
    if (result != Z_OK && !cut) return fail("Cannot decompress data!");
    return unpacked == size || fail("Not enough data!");
}

bool unfilter(const Picture& p, Bytes& raw)
{
    const auto step = static_cast<std::size_t>(std::max(1, p.channels() * p.depth / 8));
    uint8_t* at = raw.data();
    for (const Pass& pass : passes(p)) {
        if (pass.size(p) == 0) continue;
        const std::size_t size = p.row_bytes(pass.width(p));
        const Bytes zeros(size);
        const uint8_t* above = zeros.data();
        for (int y = 0; y < pass.height(p); ++y, at += size + 1) {
            if (!unfilter_row(at[0], at + 1, above, size, step)) return fail("Unknown filter!");
            above = at + 1;
        }
    }
    return true;
}

/// The colour of each sample value of a picture with one channel. 16-bit samples count by their high byte.
std::array<int, 256> sample_colors(const Picture& p)
{
    if (p.color_type == INDEXED) return palette_colors(p.palette);
    std::array<int, 256> greys{};
    const int levels = 1 << std::min(p.depth, 8);
    for (int i = 0; i < levels; ++i)
        greys[static_cast<std::size_t>(i)] = i * 255 / (levels - 1) * pack_rgb(1, 1, 1);
    return greys;
}

/// Pixels of one channel, by the table of `sample_colors`.
void unpack_samples(int depth, const std::array<int, 256>& colors, const uint8_t* raw, int count, int* out, int dx)
{
    if (depth >= 8) {
        for (int i = 0; i < count; ++i, out += dx, raw += depth / 8)
            *out = colors[raw[0]];
        return;
    }
    const int mask = (1 << depth) - 1;
    for (int i = 0, bit = 0; i < count; ++i, out += dx, bit += depth)
        *out = colors[static_cast<std::size_t>(raw[bit / 8] >> (8 - depth - bit % 8) & mask)];
}

/// Pixels of several channels of `bytes` bytes each.
void unpack_channels(int color_type, int bytes, const uint8_t* raw, int count, int* out, int dx)
{
    const auto with_alpha = [](int color, int alpha) {
        return static_cast<int>(static_cast<uint32_t>(alpha) << 24) | color;
    };
    for (int i = 0; i < count; ++i, out += dx) {
        switch (color_type) {
        case TRUE_COLOR:
            *out = pack_rgb(raw[0], raw[bytes], raw[2 * bytes]);
            break;
        case GREY_ALPHA:
            *out = with_alpha(pack_rgb(raw[0], raw[0], raw[0]), raw[bytes]);
            break;
        default:
            *out = with_alpha(pack_rgb(raw[0], raw[bytes], raw[2 * bytes]), raw[3 * bytes]);
        }
        raw += color_forms[color_type].channels * bytes;
    }
}

Bitmap build_bitmap(const Picture& p, const Bytes& raw)
{
    Bitmap bitmap(p.width, p.height);
    if (!bitmap) {
        fail("Cannot allocate bitmap!");
        return {};
    }
    const std::array<int, 256> colors = sample_colors(p);
    const uint8_t* at = raw.data();
    for (const Pass& pass : passes(p)) {
        if (pass.size(p) == 0) continue;
        const int count = pass.width(p);
        for (int y = pass.y; y < p.height; y += pass.dy, at += p.row_bytes(count) + 1) {
            int* out = row(bitmap, y) + pass.x;
            if (p.channels() == 1)
                unpack_samples(p.depth, colors, at + 1, count, out, pass.dx);
            else
                unpack_channels(p.color_type, p.depth / 8, at + 1, count, out, pass.dx);
        }
    }
    return bitmap;
}

/// Walks the chunks behind the data, of which `chunk` is the first, up to IEND.
bool read_end(ByteReader& in, Chunk chunk)
{
    while (chunk.type != "IEND") {
        if (!skip_chunk(in, chunk.length) || !read_chunk_head(in, chunk)) return false;
    }
    return chunk.length == 0 || fail("Incorrect IEND length!");
}

Bitmap decode(std::span<const uint8_t> bytes, RGB* palette)
{
    PALETTE own = {};
    Picture p;
    p.palette = palette ? palette : own;
    ByteReader in(bytes);
    Chunk chunk;
    Bytes data, raw;
    if (!read_header(in, p) || !collect_data(in, p, chunk, data) || !inflate_rows(p, data, raw) || !unfilter(p, raw))
        return {};
    Bitmap bitmap = build_bitmap(p, raw);
    if (bitmap && !read_end(in, chunk)) bitmap.reset();
    return bitmap;
}

} // namespace

Bitmap decode_png(std::span<const uint8_t> bytes, RGB* palette)
{
    try {
        if (Bitmap picture = decode(bytes, palette)) return picture;
    } catch (const std::bad_alloc&) {
        png_error = "Cannot allocate memory!";
    }
    return refuse(png_error);
}

} // namespace kelu
