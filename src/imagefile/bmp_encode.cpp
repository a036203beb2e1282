// SPDX-License-Identifier: MIT
// The BMP writer: a file header of 14 bytes, an info header of 40, rows of blue green red padded to 4 bytes, the bottom
// one first.
#include "base/sizes.h"
#include "imagefile/bmp.h"

#include "base/reader.h"
#include "platform/files.h"
#include "runtime/pixels.h"

namespace kelu {
namespace {

constexpr std::size_t file_header = 14, info_header = 40;
constexpr int pixels_per_metre = 2834; // 72 dpi
constexpr int pixel_bits = 24;         // of what is written

std::size_t row_bytes(int w, int bits) { return (product(w, bits) + 31U) / 32U * 4U; }

/// Writes both headers of a picture of 24 bits.
void put_heads(BITMAP* bitmap, Bytes& bytes)
{
    const std::size_t size = row_bytes(bitmap->w, pixel_bits) * bitmap->h;
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
    for (int x = 0; x < bitmap->w; ++x) {
        line[3 * x] = static_cast<uint8_t>(blue_of(pixels[x]));
        line[3 * x + 1] = static_cast<uint8_t>(green_of(pixels[x]));
        line[3 * x + 2] = static_cast<uint8_t>(red_of(pixels[x]));
    }
}

} // namespace

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
