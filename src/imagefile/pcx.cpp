// SPDX-License-Identifier: MIT
// Reader and writer of PCX.
#include "imagefile/pcx.h"
#include "base/sizes.h"

#include "imagefile/indexed.h"
#include "imagefile/refusal.h"
#include "runtime/pixels.h"

namespace kelu {
namespace {

constexpr int maker = 10, version = 5, run_length_coded = 1;
constexpr std::size_t head_bytes = 128, tail_palette_bytes = 768;
constexpr int tail_palette_mark = 12;
/// A byte with both high bits set is a count of up to 63 of the byte that follows.
constexpr int run_mark = 0xc0, longest_run = 0x3f;

struct Head {
    int bits = 0, planes = 0;
    int width = 0, height = 0;
    std::size_t plane_bytes = 0; ///< of one row

    std::size_t row_bytes() const { return plane_bytes * planes; }
    bool true_color() const { return bits == 8 && planes == 3; }
};

void read_colors(ByteReader& in, int count, RGB* palette)
{
    for (int i = 0; i < count; ++i) {
        palette[i].r = static_cast<unsigned char>(in.byte() >> 2);
        palette[i].g = static_cast<unsigned char>(in.byte() >> 2);
        palette[i].b = static_cast<unsigned char>(in.byte() >> 2);
    }
}

/// Reads the head and its 16 colours, and leaves `in` at the rows.
bool read_head(ByteReader& in, Head& head, RGB* palette)
{
    if (in.byte() != maker) return false;
    in.skip(1); // version
    if (in.byte() != run_length_coded) return false;
    head.bits = in.byte();
    const int left = in.little16(), top = in.little16();
    head.width = in.little16() - left + 1;
    head.height = in.little16() - top + 1;
    in.skip(4); // resolution
    read_colors(in, 16, palette);
    in.skip(1);
    head.planes = in.byte();
    head.plane_bytes = in.little16();
    const bool indexed = (head.bits == 1 && head.planes >= 1 && head.planes <= 4) ||
                         (head.planes == 1 && (head.bits == 2 || head.bits == 4 || head.bits == 8));
    return in.seek(head_bytes) && (indexed || head.true_color()) && bitmap_size_valid(head.width, head.height) &&
           head.plane_bytes * 8 >= product(head.width, head.bits);
}

/// The colours of a picture with a palette: those at the end of the file for 256, else those of the head.
void complete_palette(std::span<const uint8_t> bytes, const Head& head, RGB* palette)
{
    if (head.bits == 8 && bytes.size() > head_bytes + tail_palette_bytes) {
        ByteReader tail(bytes.last(tail_palette_bytes + 1));
        if (tail.byte() == tail_palette_mark) read_colors(tail, PAL_SIZE, palette);
    }
    // Two colours without a palette are black and white.
    const bool no_colors = palette[0].r == palette[1].r && palette[0].g == palette[1].g && palette[0].b == palette[1].b;
    if (head.bits == 1 && head.planes == 1 && no_colors) {
        palette[0] = {};
        palette[1] = {63, 63, 63, 0};
    }
}

/// Gives the bytes of the rows. Runs may go on from row to row.
class RunReader {
public:
    explicit RunReader(ByteReader& in) : in_(in) {}

    void fill(Bytes& line)
    {
        for (uint8_t& byte : line) {
            if (count_ == 0) start_run();
            byte = value_;
            --count_;
        }
    }

private:
    void start_run()
    {
        const int byte = in_.byte();
        const bool run = (byte & run_mark) == run_mark && byte != run_mark;
        count_ = run ? byte & longest_run : 1;
        value_ = static_cast<uint8_t>(run ? in_.byte() : byte);
    }

    ByteReader& in_;
    int count_ = 0;
    uint8_t value_ = 0;
};

/// Pixel x of a row: its bits in each plane, the first plane lowest.
int pixel_value(const Head& head, const Bytes& line, int x)
{
    if (head.true_color()) {
        const auto at = static_cast<std::size_t>(x);
        return pack_rgb(line[at], line[head.plane_bytes + at], line[2 * head.plane_bytes + at]);
    }
    const int bit = x * head.bits;
    int value = 0;
    for (int p = 0; p < head.planes; ++p) {
        const uint8_t byte = line[p * head.plane_bytes + bit / 8];
        value |= (byte >> (8 - head.bits - bit % 8) & ((1 << head.bits) - 1)) << p;
    }
    return value;
}

/// Codes one row of all planes; runs go across the planes, not across rows.
void put_runs(ByteWriter& out, const Bytes& line)
{
    for (std::size_t i = 0; i < line.size();) {
        int count = 1;
        while (i + count < line.size() && line[i + count] == line[i] && count < longest_run)
            ++count;
        if (count > 1 || (line[i] & run_mark) == run_mark) out.byte(run_mark | count);
        out.byte(line[i]);
        i += count;
    }
}

} // namespace

Bitmap decode_pcx(std::span<const uint8_t> bytes, RGB* palette)
{
    PALETTE own;
    if (!palette) palette = own;
    std::fill_n(palette, PAL_SIZE, RGB{});
    ByteReader in(bytes);
    Head head;
    if (!read_head(in, head, palette)) return refuse("Not a known PCX file!");
    // Two bytes stand for 63 at most, so a short file can't ask for a large picture.
    if (head.row_bytes() * head.height / 32 > in.left()) return refuse(refusal::ends_early);
    complete_palette(bytes, head, palette);

    const auto colors = palette_colors(palette);
    Bitmap bitmap(head.width, head.height);
    RunReader runs(in);
    Bytes line(head.row_bytes());
    for (int y = 0; bitmap && y < head.height; ++y) {
        runs.fill(line);
        if (in.ended()) return refuse(refusal::ends_early);
        int* out = row(bitmap, y);
        for (int x = 0; x < head.width; ++x) {
            const int value = pixel_value(head, line, x);
            out[x] = head.true_color() ? value : colors[value];
        }
    }
    return bitmap;
}

int encode_pcx(BITMAP* bitmap, Bytes& out)
{
    if (!bitmap || bitmap->w < 1 || bitmap->h < 1) return -1;
    ByteWriter file(out);
    for (const int value : {maker, version, run_length_coded, 8})
        file.byte(value);
    for (const int value : {0, 0, bitmap->w - 1, bitmap->h - 1, 320, 200})
        file.little16(value);
    file.fill(48 + 1); // no palette
    file.byte(3);      // planes
    file.little16(bitmap->w);
    file.little16(1); // colours, not greys
    file.little16(bitmap->w);
    file.little16(bitmap->h);
    file.fill(54);
    const auto w = static_cast<std::size_t>(bitmap->w);
    Bytes line(3 * w);
    for (int y = 0; y < bitmap->h; ++y) {
        for (std::size_t x = 0; x < w; ++x) {
            const int pixel = row(bitmap, y)[x];
            line[x] = static_cast<uint8_t>(red_of(pixel));
            line[w + x] = static_cast<uint8_t>(green_of(pixel));
            line[2 * w + x] = static_cast<uint8_t>(blue_of(pixel));
        }
        put_runs(file, line);
    }
    return 0;
}

} // namespace kelu
