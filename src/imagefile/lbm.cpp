// SPDX-License-Identifier: MIT
// Reader and writer of LBM.
#include "imagefile/lbm.h"

#include "imagefile/indexed.h"
#include "imagefile/refusal.h"
#include "runtime/pixels.h"

namespace kelu {
namespace {

struct Form {
    int width = 0, height = 0, planes = 0;
    bool masked = false;   ///< one more plane in each row, which says what is seen
    bool packed = false;   ///< ByteRun1
    bool bitplanes = true; ///< ILBM, else a byte a pixel

    std::size_t plane_bytes() const
    {
        const auto w = static_cast<std::size_t>(width);
        return bitplanes ? (w + 15) / 16 * 2 : (w + 1) / 2 * 2;
    }
    std::size_t stored_planes() const { return bitplanes ? planes + (masked ? 1 : 0) : 1; }
};

bool read_header(ByteReader chunk, Form& form)
{
    form.width = chunk.big16();
    form.height = chunk.big16();
    chunk.skip(4); // place
    form.planes = chunk.byte();
    form.masked = chunk.byte() == 1;
    const int compression = chunk.byte();
    form.packed = compression == 1;
    const bool known = (form.planes >= 1 && form.planes <= 8) || (form.planes == 24 && form.bitplanes);
    return !chunk.ended() && compression <= 1 && known && bitmap_size_valid(form.width, form.height);
}

void read_colors(ByteReader chunk, RGB* palette)
{
    const auto count = std::min<std::size_t>(PAL_SIZE, chunk.left() / 3);
    for (std::size_t i = 0; i < count; ++i) {
        palette[i].r = static_cast<unsigned char>(chunk.byte() >> 2);
        palette[i].g = static_cast<unsigned char>(chunk.byte() >> 2);
        palette[i].b = static_cast<unsigned char>(chunk.byte() >> 2);
    }
}

/// Unpacks runs into `size` bytes: a count n up to 127 is followed by n + 1 bytes as they are, one from 129 on by a
/// byte that is repeated 257 - n times. Fewer bytes come back when the data ends before.
Bytes unpack(ByteReader& in, std::size_t size)
{
    Bytes out;
    out.reserve(size);
    while (out.size() < size && in.left() > 0) {
        const int count = in.byte();
        const std::size_t room = size - out.size();
        if (count < 128) {
            const auto run = in.take(count + 1);
            out.insert(out.end(), run.begin(), run.begin() + static_cast<std::ptrdiff_t>(std::min(room, run.size())));
        } else if (count > 128) {
            out.insert(out.end(), std::min(room, static_cast<std::size_t>(257 - count)),
                       static_cast<uint8_t>(in.byte()));
        }
    }
    return out;
}

/// Gathers a pixel's bits, plane 0 lowest.
int planar_pixel(const Bytes& rows, std::size_t plane_bytes, int planes, int x)
{
    const auto column = static_cast<std::size_t>(x) / 8;
    int value = 0;
    for (int p = 0; p < planes; ++p)
        value |= (rows[p * plane_bytes + column] >> (7 - x % 8) & 1) << p;
    return value;
}

/// All planes of one row, side by side; shorter when the data ends.
Bytes read_row(ByteReader& body, const Form& form, std::size_t plane)
{
    if (!form.packed) {
        const auto run = body.take(plane * form.stored_planes());
        return {run.begin(), run.end()};
    }
    Bytes line;
    for (std::size_t p = 0; p < form.stored_planes(); ++p) {
        const Bytes part = unpack(body, plane);
        line.insert(line.end(), part.begin(), part.end());
    }
    return line;
}

Bitmap read_body(ByteReader body, const Form& form, const RGB* palette)
{
    std::size_t plane = form.plane_bytes();
    const std::size_t size = plane * form.stored_planes();
    const auto height = static_cast<std::size_t>(form.height);
    const auto tight = static_cast<std::size_t>(form.width) * height;
    if (!form.packed && !form.bitplanes && body.left() == tight) plane = static_cast<std::size_t>(form.width);
    // Two packed bytes stand for 128 of one plane's row at most, so a short body can't ask for a large picture.
    const std::size_t packed = (plane + 127) / 128 * 2 * form.stored_planes() * height;
    const std::size_t least = form.packed ? packed : std::min(size * height, tight);
    if (body.left() < least) return refuse(refusal::ends_early);

    const auto colors = palette_colors(palette);
    Bitmap bitmap(form.width, form.height);
    for (int y = 0; bitmap && y < form.height; ++y) {
        const Bytes line = read_row(body, form, plane);
        if (line.size() < plane * form.stored_planes()) return refuse(refusal::ends_early);
        int* out = row(bitmap, y);
        for (int x = 0; x < form.width; ++x) {
            const int value = form.bitplanes ? planar_pixel(line, plane, form.planes, x) : line[x];
            // With 24 planes the bits are the colour itself, red lowest.
            out[x] = form.planes == 24 ? pack_rgb(value & 255, value >> 8 & 255, value >> 16 & 255) : colors[value];
        }
    }
    return bitmap;
}

} // namespace

Bitmap decode_lbm(std::span<const uint8_t> bytes, RGB* palette)
{
    PALETTE own;
    if (!palette) palette = own;
    std::fill_n(palette, PAL_SIZE, RGB{});
    ByteReader in(bytes);
    if (!in.match("FORM")) return refuse("Not an LBM file!");
    in.skip(4); // size of the form, which writers get wrong
    Form form;
    form.bitplanes = in.starts_with("ILBM");
    if (!in.match("ILBM") && !in.match("PBM ")) return refuse(refusal::no_picture);
    while (in.left() > 8) {
        const bool header = in.starts_with("BMHD"), colors = in.starts_with("CMAP"), body = in.starts_with("BODY");
        in.skip(4);
        const std::size_t size = in.big32();
        const ByteReader chunk(in.take(size));
        if (header && !read_header(chunk, form)) return refuse("Bad or unsupported size!");
        if (colors) read_colors(chunk, palette);
        if (body) return form.planes > 0 ? read_body(chunk, form, palette) : refuse("The head is missing!");
        if (size % 2 != 0) in.skip(1);
    }
    return refuse(refusal::no_picture);
}

int encode_lbm(BITMAP* bitmap, const RGB* palette, Bytes& out)
{
    if (!bitmap || bitmap->w < 1 || bitmap->h < 1) return -1;
    const Bytes indices = index_pixels(bitmap, palette);
    const std::size_t pad = indices.size() % 2;
    ByteWriter file(out);
    file.text("FORM");
    file.big32(static_cast<uint32_t>(4 + 8 + 20 + 8 + 768 + 8 + indices.size() + pad));
    file.text("PBM BMHD");
    file.big32(20);
    file.big16(bitmap->w);
    file.big16(bitmap->h);
    file.fill(4);  // origin
    file.byte(8);  // planes
    file.fill(11); // no masking, no compression, transparent colour, aspect and page of 0
    file.text("CMAP");
    file.big32(768);
    put_palette(file, palette);
    file.text("BODY");
    file.big32(static_cast<uint32_t>(indices.size()));
    file.append(indices);
    file.fill(pad);
    return 0;
}

} // namespace kelu
