// SPDX-License-Identifier: MIT
// The ICO reader.
#include "base/sizes.h"
#include "imagefile/ico.h"

#include "base/log.h"
#include "imagefile/png.h"
#include "imagefile/refusal.h"
#include "runtime/pixels.h"
#include <array>

namespace kelu {
namespace {

constexpr uint32_t info_header_bytes = 40;

/// The first row of the directory, and what the image's own head adds.
struct Image {
    int colors = 0; ///< of the palette
    int bits = 0;   ///< of a pixel
    int width = 0, height = 0;

    bool known() const { return bits == 1 || bits == 4 || bits == 8 || bits == 24 || bits == 32; }
    /// Bytes of a stored row of pixels of so many bits, padded to 4.
    std::size_t row_bytes(int pixel_bits) const { return (product(width, pixel_bits) + 31) / 32 * 4; }
};

/// The number of palette entries that the directory's colour count stands for, or -1 for one that can't be.
int palette_entries(const Image& image)
{
    const int count = image.colors;
    if (count == 0) return 1 << image.bits; // all that the pixels can name
    if (count == 2 || count == 16) return count;
    log_line("[ WARNING ] : Colors used by ICO is irregular. Colors (not bpp) = %d", count);
    if (count < 16) return count;
    log_line("[ ERROR ] : Invalid number of colors specified by ICO. Colors (not bpp) = %d", count);
    return -1;
}

constexpr uint32_t opaque = 0xff000000;

/// A PNG with an alpha channel keeps it; one without is opaque.
Bitmap read_embedded_png(std::span<const uint8_t> bytes)
{
    Bitmap picture = decode_png(bytes);
    constexpr std::size_t color_type_at = 25;
    if (!picture || bytes[color_type_at] & 4) return picture;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            row(picture, y)[x] |= static_cast<int>(opaque);
    }
    return picture;
}

bool read_info_header(ByteReader& in, Image& image)
{
    const uint32_t size = in.little32();
    if (size != info_header_bytes)
        log_line("[ WARNING ] : BMPheaderinfo reported irregular size. Size = %d", static_cast<long>(size));
    image.width = static_cast<int>(in.little32());
    image.height = static_cast<int>(in.little32()) / 2; // colour and mask rows together
    in.skip(2);                                         // planes
    const int bits = in.little16();
    if (image.bits == 0) image.bits = bits; // many directories leave it out
    in.skip(info_header_bytes - 16);
    return !in.ended() && bitmap_size_valid(image.width, image.height);
}

/// Fills the picture, bottom row first. Below 32 bits every pixel is opaque at first.
void read_colors(ByteReader& in, const Image& image, const std::array<int, 256>& palette, Bitmap& picture)
{
    for (int y = image.height - 1; y >= 0; --y) {
        const auto line = in.take(image.row_bytes(image.bits));
        int* pixels = row(picture, y);
        for (int x = 0; x < image.width; ++x) {
            uint32_t alpha = opaque;
            if (image.bits >= 24) {
                const uint8_t* at = &line[x * image.bits / 8];
                pixels[x] = pack_rgb(at[2], at[1], at[0]);
                if (image.bits == 32) alpha = uint32_t{at[3]} << 24;
            } else { // from the high bits of a byte down
                const int bit = x * image.bits;
                const int byte = line[bit / 8];
                const int index = byte >> (8 - image.bits - bit % 8) & ((1 << image.bits) - 1);
                pixels[x] = palette[index];
            }
            pixels[x] |= static_cast<int>(alpha);
        }
    }
}

/// A set bit of the mask is a pixel that isn't there. A file that ends before its mask is opaque.
void read_mask(ByteReader& in, const Image& image, Bitmap& picture)
{
    for (int y = image.height - 1; y >= 0; --y) {
        const auto line = in.take(image.row_bytes(1));
        if (in.ended()) return;
        for (int x = 0; x < image.width; ++x) {
            if (line[x / 8] >> (7 - x % 8) & 1) row(picture, y)[x] &= ~static_cast<int>(opaque);
        }
    }
}

Bitmap read_image(ByteReader in, Image image)
{
    if (!read_info_header(in, image)) return refuse("Bad or unsupported size!");
    std::array<int, 256> palette{};
    if (image.known() && image.bits <= 8) {
        const int entries = palette_entries(image);
        if (entries < 0) return refuse("Bad number of colors!");
        for (int i = 0; i < entries; ++i)
            palette[i] = static_cast<int>(in.little32() & 0xffffff);
    }
    // All rows have to be there before memory is asked for, also those of a depth that can't be read.
    const std::size_t rows = image.row_bytes(std::max(image.bits, 1)) * image.height;
    if (in.ended() || in.left() < rows) return refuse(refusal::ends_early);
    Bitmap picture(image.width, image.height, static_cast<int>(opaque));
    if (!picture || !image.known()) return picture;
    read_colors(in, image, palette, picture);
    if (image.bits < 32) read_mask(in, image, picture);
    return picture;
}

} // namespace

Bitmap decode_ico(std::span<const uint8_t> bytes)
{
    ByteReader in(bytes);
    in.skip(2);
    const int type = in.little16();
    const int count = in.little16();
    if (count < 1) {
        log_line("[ WARNING ] : ICO file is reporting zero stored bitmaps. WTF mang?");
        return refuse(refusal::no_picture);
    }
    if (type != 1) {
        log_line("[ WARNING ] : ICO file is reporting itself as being non-iconic. Value = %d", type);
        return refuse("Not an icon!");
    }
    Image image;
    in.skip(2); // the sides are in the image as well, without the limit of a byte
    image.colors = in.byte();
    in.skip(3);
    image.bits = in.little16();
    const std::size_t size = in.little32();
    if (!in.seek(in.little32())) return refuse(refusal::ends_early);
    ByteReader magic = in;
    magic.skip(1);
    if (magic.starts_with("PNG")) return read_embedded_png(in.take(std::min(size, in.left())));
    return read_image(in, image);
}

} // namespace kelu
