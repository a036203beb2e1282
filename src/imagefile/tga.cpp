// SPDX-License-Identifier: MIT
// Reader and writer of TGA.
//
// 18 bytes of header, an id and a colour map that are passed over, then the pixels. A run-length packet is a byte n
// and then one pixel for n - 127 of them (n above 127) or n + 1 pixels; packets may run over the end of a row.
#include "imagefile/tga.h"
#include "base/sizes.h"

#include "base/reader.h"
#include "platform/files.h"
#include "runtime/pixels.h"
#include <array>
#include <bit>
#include <cstring>
#include <optional>
#include <vector>

namespace kelu {
namespace {

static_assert(std::endian::native == std::endian::little, "rows are copied as the file has them");

constexpr std::size_t header_size = 18;
constexpr int type_plain = 2, type_runs = 10;        // true colour; the colour-mapped and grey types are not read
constexpr int right_to_left = 0x10, top_down = 0x20; // bits of the descriptor

/// The pixels of a file in their order, plain or from packets.
class PixelStream {
public:
    PixelStream(ByteReader& in, int pixel_bytes, bool runs) : in_(in), bytes_(pixel_bytes), runs_(runs) {}

    int next()
    {
        if (runs_ && left_ == 0) {
            const int head = in_.byte();
            repeats_ = head > 127;
            left_ = (head & 127) + 1;
            if (repeats_) pixel_ = read();
        }
        if (runs_) --left_;
        return repeats_ ? pixel_ : read();
    }

private:
    int read()
    {
        if (bytes_ == 4) return static_cast<int>(in_.little32());
        const int blue = in_.byte(), green = in_.byte(), red = in_.byte();
        return static_cast<int>(0xff000000U) | pack_rgb(red, green, blue);
    }

    ByteReader& in_;
    int bytes_; // of a pixel, 3 or 4
    bool runs_;
    bool repeats_ = false; // the present packet is one pixel many times
    int left_ = 0;         // pixels left in the present packet
    int pixel_ = 0;        // of a packet that repeats it
};

/// Rows of plain words as the file has them: the form in which the frames themselves are kept, so it must be fast.
void read_words(ByteReader& in, BITMAP* picture, bool from_top)
{
    const std::size_t row_bytes = picture->w * sizeof(int);
    for (int y = 0; y < picture->h; ++y) {
        const auto run = in.take(row_bytes);
        std::memcpy(row(picture, from_top ? y : picture->h - 1 - y), run.data(), run.size());
    }
}

void read_pixels(PixelStream pixels, BITMAP* picture, const ByteReader& in, int descriptor)
{
    for (int y = 0; y < picture->h && !in.ended(); ++y) {
        int* line = row(picture, descriptor & top_down ? y : picture->h - 1 - y);
        for (int x = 0; x < picture->w; ++x)
            line[descriptor & right_to_left ? picture->w - 1 - x : x] = pixels.next();
    }
}

} // namespace

Bitmap decode_tga(std::span<const uint8_t> bytes)
{
    ByteReader in(bytes);
    const int id_size = in.byte();
    const bool mapped = in.byte() != 0;
    const int type = in.byte();
    in.skip(2); // first entry of the map
    const int map_length = in.little16(), map_bits = in.byte();
    in.skip(4); // origin on the screen
    const int w = in.little16(), h = in.little16(), bits = in.byte(), descriptor = in.byte();
    if ((type != type_plain && type != type_runs) || (bits != 24 && bits != 32) || !bitmap_size_valid(w, h)) return {};
    in.skip(id_size);
    if (mapped) in.skip(product(map_length, (map_bits + 7) / 8));

    // A packet of a byte and one pixel stands for at most 128 pixels: fewer bytes can't be a picture of this size.
    const auto pixel_count = product(w, h);
    const auto least = type == type_plain ? pixel_count * (bits / 8) : (pixel_count + 127) / 128 * (1 + bits / 8);
    if (in.ended() || in.left() < least) return {};

    Bitmap picture = Bitmap::unfilled(w, h); // where the data ends early, nothing is given out
    if (!picture) return {};
    if (type == type_plain && bits == 32 && (descriptor & right_to_left) == 0) {
        read_words(in, picture, (descriptor & top_down) != 0);
    } else {
        read_pixels(PixelStream(in, bits / 8, type == type_runs), picture, in, descriptor);
    }
    return in.ended() ? Bitmap() : std::move(picture);
}

/// What the form in which frames are kept has before its pixels.
struct PlainHead {
    int w, h;
    bool from_top;

    std::size_t row_bytes() const { return product(w, 1) * sizeof(int); }
};

/// Reads the head of a file of that form, all of whose pixels are there; none of any other file.
std::optional<PlainHead> read_plain_head(platform::ByteSource& file)
{
    std::array<uint8_t, header_size> bytes{};
    if (!file.read(bytes)) return std::nullopt;
    ByteReader in(bytes);
    const int id_size = in.byte();
    const bool plain = in.byte() == 0 && in.byte() == type_plain;
    in.skip(9);
    const int w = in.little16(), h = in.little16(), bits = in.byte(), descriptor = in.byte();
    if (!plain || bits != 32 || (descriptor & right_to_left) != 0 || !bitmap_size_valid(w, h)) return std::nullopt;
    const PlainHead head{w, h, (descriptor & top_down) != 0};
    const auto size = static_cast<long>(head.row_bytes() * static_cast<std::size_t>(h));
    const bool whole = file.seek(file.position() + id_size) && file.size() - file.position() >= size;
    return whole ? std::optional(head) : std::nullopt;
}

Bitmap read_plain_tga(platform::ByteSource& file)
{
    constexpr std::size_t piece = std::size_t{1} << 18; // bytes that the processor's second cache holds
    const std::optional<PlainHead> head = read_plain_head(file);
    if (!head) return {};
    const std::size_t row_bytes = head->row_bytes();
    const auto rows = static_cast<std::size_t>(head->h);
    Bitmap picture = Bitmap::unfilled(head->w, head->h);
    Bytes block(std::min(rows, std::max<std::size_t>(piece / row_bytes, 1)) * row_bytes);
    for (std::size_t y = 0; picture && y < rows;) {
        const std::size_t count = std::min(block.size() / row_bytes, rows - y);
        if (!file.read(std::span(block).first(count * row_bytes))) return {};
        for (std::size_t i = 0; i < count; ++i, ++y) {
            const auto at = static_cast<int>(head->from_top ? y : rows - 1 - y);
            std::memcpy(row(picture, at), block.data() + i * row_bytes, row_bytes);
        }
    }
    return picture;
}

bool tga_readable(const std::string& name, int least_side)
{
    platform::FileSource file(name);
    const std::optional<PlainHead> head = read_plain_head(file);
    if (head) return head->w >= least_side && head->h >= least_side;
    const Bitmap picture = read_tga(name);
    return picture.width() >= least_side && picture.height() >= least_side;
}

Bitmap read_tga(const std::string& name)
{
    {
        platform::FileSource file(name);
        if (Bitmap picture = read_plain_tga(file)) return picture;
    }
    constexpr std::size_t limit = header_size + 255U + 65536U * 4U + 5U * max_bitmap_pixels;
    Bytes bytes;
    if (!platform::read_file(name, limit, bytes)) return {};
    return decode_tga(bytes);
}

bool write_tga(const std::string& name, int w, int h, const RowSource& rows)
{
    if (!bitmap_size_valid(w, h)) return false;
    Bytes header;
    ByteWriter out(header);
    out.fill(2);
    out.byte(type_plain);
    out.fill(9);
    out.little16(w);
    out.little16(h);
    out.byte(32);
    out.byte(8); // eight bits of alpha, origin at the bottom left
    platform::FileReplacement file(name);
    bool good = file.write(header);
    std::vector<int> line(w);
    Bytes bytes(line.size() * 4);
    for (int y = h - 1; good && y >= 0; --y) {
        rows(y, line.data());
        std::memcpy(bytes.data(), line.data(), bytes.size());
        good = file.write(bytes);
    }
    return good && file.commit();
}

bool write_tga(const std::string& name, BITMAP* bitmap)
{
    return bitmap && write_tga(name, bitmap->w, bitmap->h, [bitmap](int y, int* pixels) {
               std::memcpy(pixels, row(bitmap, y), bitmap->w * sizeof(int));
           });
}

} // namespace kelu
