// Reader and writer of BMP.
//
// A file header of 14 bytes ("BM", where the pixels begin), an info header of 40 bytes or more, for depths up to 8 a
// palette of blue green red 0, then rows padded to 4 bytes, the bottom one first unless the height is negative.
#include "imagefile/bmp.h"

#include "imagefile/reader.h"
#include "platform/files.h"
#include "runtime/pixels.h"
#include <array>
#include <cstdlib>

namespace kelu {
namespace {

constexpr std::size_t file_header = 14, info_header = 40;
constexpr int pixels_per_metre = 2834; // 72 dpi
constexpr int pixel_bits = 24;         // of what is written

using Palette = std::array<int, 256>;

int color_at(const uint8_t* at) { return pack_rgb(at[2], at[1], at[0]); }

std::size_t row_bytes(int w, int bits)
{
    return (static_cast<std::size_t>(w) * static_cast<std::size_t>(bits) + 31U) / 32U * 4U;
}

/// The palette: up to 256 entries, of which those that the file lacks are black.
Palette read_palette(ByteReader in, std::size_t at, std::size_t end)
{
    Palette palette{};
    in.seek(at);
    for (std::size_t i = 0; i < palette.size() && in.position() + 4 <= end; ++i)
        palette[i] = static_cast<int>(in.little32() & 0xffffff);
    return palette;
}

void decode_row(const uint8_t* from, int* to, int w, int bits, const Palette& palette)
{
    if (bits >= 24) {
        for (int x = 0; x < w; ++x, from += bits / 8)
            to[x] = color_at(from);
        return;
    }
    for (int x = 0; x < w; ++x) { // pixels stand in a byte from its high bits down
        const int bit = x * bits;
        const int index = from[bit / 8] >> (8 - bits - bit % 8) & ((1 << bits) - 1);
        to[x] = palette[static_cast<std::size_t>(index)];
    }
}

/// Writes both headers of a picture of 24 bits.
void put_heads(BITMAP* bitmap, Bytes& bytes)
{
    const std::size_t size = row_bytes(bitmap->w, pixel_bits) * static_cast<std::size_t>(bitmap->h);
    ByteWriter out(bytes);
    out.text("BM");
    out.little32(static_cast<uint32_t>(file_header + info_header + size));
    out.little32(0);
    out.little32(file_header + info_header);
    out.little32(info_header);
    out.little32(static_cast<uint32_t>(bitmap->w));
    out.little32(static_cast<uint32_t>(bitmap->h));
    out.little16(1); // planes
    out.little16(pixel_bits);
    out.little32(0); // no compression
    out.little32(static_cast<uint32_t>(size));
    out.little32(pixels_per_metre);
    out.little32(pixels_per_metre);
    out.fill(8); // colours of the palette
}

/// Writes a row into a line whose padding is 0 and stays so.
void encode_row(BITMAP* bitmap, int y, Bytes& line)
{
    const int* pixels = row(bitmap, y);
    for (std::size_t x = 0; x < static_cast<std::size_t>(bitmap->w); ++x) {
        line[3 * x] = static_cast<uint8_t>(blue_of(pixels[x]));
        line[3 * x + 1] = static_cast<uint8_t>(green_of(pixels[x]));
        line[3 * x + 2] = static_cast<uint8_t>(red_of(pixels[x]));
    }
}

} // namespace

Bitmap decode_bmp(std::span<const uint8_t> bytes)
{
    ByteReader in(bytes);
    if (!in.match("BM")) return {};
    in.skip(8); // size of the file, which writers get wrong, and two reserved words
    const std::size_t pixels_at = in.little32(), info_size = in.little32();
    const auto w = static_cast<int32_t>(in.little32()), signed_h = static_cast<int32_t>(in.little32());
    in.skip(2); // planes
    const int bits = in.little16();
    const uint32_t compression = in.little32();
    const long h = std::labs(long{signed_h});
    const bool known = bits == 1 || bits == 4 || bits == 8 || bits == 24 || bits == 32;
    if (in.ended() || info_size < info_header || compression != 0 || !known || !bitmap_size_valid(w, h)) return {};
    const std::size_t stride = row_bytes(w, bits);
    if (pixels_at > bytes.size() || (bytes.size() - pixels_at) / stride < static_cast<std::size_t>(h)) return {};

    const Palette palette = read_palette(in, file_header + info_size, pixels_at);
    Bitmap picture(w, static_cast<int>(h));
    for (int y = 0; picture && y < picture.height(); ++y) {
        const auto stored = static_cast<std::size_t>(signed_h < 0 ? y : picture.height() - 1 - y);
        decode_row(&bytes[pixels_at + stored * stride], row(picture, y), w, bits, palette);
    }
    return picture;
}

Bitmap read_bmp(const std::string& name)
{
    constexpr std::size_t limit = 65536U + static_cast<std::size_t>(max_bitmap_pixels) * 4U;
    Bytes bytes;
    if (!platform::read_file(name, limit, bytes)) return {};
    return decode_bmp(bytes);
}

void encode_bmp(BITMAP* bitmap, std::vector<uint8_t>& out)
{
    put_heads(bitmap, out);
    Bytes line(row_bytes(bitmap->w, pixel_bits));
    for (int y = bitmap->h - 1; y >= 0; --y) {
        encode_row(bitmap, y, line);
        out.insert(out.end(), line.begin(), line.end());
    }
}

bool write_bmp(const std::string& name, BITMAP* bitmap)
{
    if (!bitmap) return false;
    platform::FileReplacement file(name);
    Bytes heads;
    put_heads(bitmap, heads);
    bool good = file.write(heads);
    Bytes line(row_bytes(bitmap->w, pixel_bits));
    for (int y = bitmap->h - 1; good && y >= 0; --y) {
        encode_row(bitmap, y, line);
        good = file.write(line);
    }
    return good && file.commit();
}

} // namespace kelu
