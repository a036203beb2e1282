// The ICO reader.
#include "imagefile/ico.h"

#include "imagefile/picture_files.h"
#include "imagefile/png.h"
#include "platform/files.h"
#include "runtime/log.h"
#include "runtime/pixels.h"
#include "runtime/store.h"
#include <array>

namespace kelu {
namespace {

constexpr int white = 0xffffff;
constexpr uint32_t info_header_bytes = 40;

/// The first row of the directory, and what the image's own head adds.
struct Image {
    int colors = 0; ///< of the palette
    int bits = 0;   ///< of a pixel
    int width = 0, height = 0;

    bool known() const { return bits == 1 || bits == 4 || bits == 8 || bits == 24 || bits == 32; }
    /// Bytes of a stored row of pixels of so many bits, padded to 4.
    std::size_t row_bytes(int pixel_bits) const
    {
        return (static_cast<std::size_t>(width) * static_cast<std::size_t>(pixel_bits) + 31) / 32 * 4;
    }
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

/// Splits a picture in merged form.
Icon split(Bitmap merged)
{
    Icon icon;
    icon.alpha = Bitmap(merged.width(), merged.height());
    if (!icon.alpha) return {};
    for (int y = 0; y < merged.height(); ++y) {
        int* pixels = row(merged, y);
        int* alpha = row(icon.alpha, y);
        for (int x = 0; x < merged.width(); ++x) {
            const int a = static_cast<int>(static_cast<uint32_t>(pixels[x]) >> 24);
            alpha[x] = pack_rgb(a, a, a);
            pixels[x] &= 0xffffff;
        }
    }
    icon.picture = std::move(merged);
    return icon;
}

/// A PNG with an alpha channel keeps it; one without is opaque.
Icon read_embedded_png(std::span<const uint8_t> bytes)
{
    Bitmap picture = decode_png(bytes);
    if (!picture) return {};
    constexpr std::size_t color_type_at = 25;
    if (bytes[color_type_at] & 4) return split(std::move(picture));
    Icon icon;
    icon.alpha = Bitmap(picture.width(), picture.height(), white);
    icon.picture = std::move(picture);
    return icon;
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

/// Fills the picture, and for 32 bits the alpha, bottom row first.
void read_colors(ByteReader& in, const Image& image, const std::array<int, 256>& palette, Icon& icon)
{
    for (int y = image.height - 1; y >= 0; --y) {
        const auto line = in.take(image.row_bytes(image.bits));
        int* pixels = row(icon.picture, y);
        int* alpha = row(icon.alpha, y);
        for (int x = 0; x < image.width; ++x) {
            if (image.bits >= 24) {
                const uint8_t* at = &line[static_cast<std::size_t>(x * image.bits / 8)];
                pixels[x] = pack_rgb(at[2], at[1], at[0]);
                if (image.bits == 32) alpha[x] = pack_rgb(at[3], at[3], at[3]);
            } else { // from the high bits of a byte down
                const int bit = x * image.bits;
                const int byte = line[static_cast<std::size_t>(bit / 8)];
                const int index = byte >> (8 - image.bits - bit % 8) & ((1 << image.bits) - 1);
                pixels[x] = palette[static_cast<std::size_t>(index)];
            }
        }
    }
}

/// A set bit of the mask is a pixel that isn't there. A file that ends before its mask is opaque.
void read_mask(ByteReader& in, const Image& image, Bitmap& alpha)
{
    for (int y = image.height - 1; y >= 0; --y) {
        const auto line = in.take(image.row_bytes(1));
        if (in.ended()) return;
        for (int x = 0; x < image.width; ++x)
            row(alpha, y)[x] = line[static_cast<std::size_t>(x / 8)] >> (7 - x % 8) & 1 ? 0 : white;
    }
}

Icon read_image(ByteReader in, Image image)
{
    if (!read_info_header(in, image)) return {};
    std::array<int, 256> palette{};
    if (image.known() && image.bits <= 8) {
        const int entries = palette_entries(image);
        if (entries < 0) return {};
        for (std::size_t i = 0; i < static_cast<std::size_t>(entries); ++i)
            palette[i] = static_cast<int>(in.little32() & 0xffffff);
    }
    // All rows have to be there before memory is asked for.
    const std::size_t rows = image.row_bytes(image.bits) * static_cast<std::size_t>(image.height);
    if (in.ended() || (image.known() && in.left() < rows)) return {};
    Icon icon{Bitmap(image.width, image.height), Bitmap(image.width, image.height, white)};
    if (!icon.picture || !icon.alpha) return {};
    if (image.known()) read_colors(in, image, palette, icon);
    if (image.known() && image.bits < 32) read_mask(in, image, icon.alpha);
    return icon;
}

} // namespace

Icon decode_ico(std::span<const uint8_t> bytes)
{
    ByteReader in(bytes);
    in.skip(2);
    const int type = in.little16();
    const int count = in.little16();
    if (count < 1) {
        log_line("[ WARNING ] : ICO file is reporting zero stored bitmaps. WTF mang?");
        return {};
    }
    if (type != 1) {
        log_line("[ WARNING ] : ICO file is reporting itself as being non-iconic. Value = %d", type);
        return {};
    }
    Image image;
    in.skip(2); // the sides stand in the image as well, without the limit of a byte
    image.colors = in.byte();
    in.skip(3);
    image.bits = in.little16();
    const std::size_t size = in.little32();
    if (!in.seek(in.little32())) return {};
    ByteReader magic = in;
    magic.skip(1);
    if (magic.starts_with("PNG")) return read_embedded_png(in.take(std::min(size, in.left())));
    return read_image(in, image);
}

Bitmap load_ico(const char* file_name, bool preview)
{
    Bytes bytes;
    if (!platform::read_file(file_name, max_picture_file, bytes)) {
        log_line("[ ERROR ] : Attempted to load ICO, but file was inaccessible. Derp.");
        return {};
    }
    Icon icon = decode_ico(bytes);
    if (icon.picture && !preview) store.alpha_bitmap = std::move(icon.alpha);
    return std::move(icon.picture);
}

} // namespace kelu
