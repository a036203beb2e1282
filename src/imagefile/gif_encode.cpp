// SPDX-License-Identifier: MIT
// The GIF writer.
#include "imagefile/gif.h"

#include "imagefile/indexed.h"
#include "imagefile/lzw.h"

namespace kelu {
namespace {

/// Options of the writer: bit 0 background always transparent, bit 1 local table instead of a global one, bit 2
/// interlaced, bit 3 no transparency. The bits from 3 on are also the background index of the head.
constexpr int gif_flags = 10;

constexpr int minimum_code_size = 8;

void put_head(ByteWriter& out, BITMAP* bitmap)
{
    out.text("GIF89a");
    out.little16(bitmap->w);
    out.little16(bitmap->h);
    out.byte(0x77); // no global table, 8 bits of colour resolution
    out.byte(gif_flags >> 3);
    out.byte(0); // aspect
}

void put_control(ByteWriter& out)
{
    out.text("!\xf9\x04");
    out.fill(5); // flags, delay of two bytes, transparent index, end of the extension
}

void put_descriptor(ByteWriter& out, BITMAP* bitmap)
{
    out.text(",");
    out.little16(0);
    out.little16(0);
    out.little16(bitmap->w);
    out.little16(bitmap->h);
    out.byte(0x87); // local table of 256 entries
}

} // namespace

int encode_gif(BITMAP* bitmap, const RGB* palette, Bytes& out)
{
    if (!bitmap || bitmap->w < 1 || bitmap->h < 1 || bitmap->w > 0xffff || bitmap->h > 0xffff) return -1;
    ByteWriter file(out);
    put_head(file, bitmap);
    put_control(file);
    put_descriptor(file, bitmap);
    put_palette(file, palette);
    file.byte(minimum_code_size);
    lzw_encode(index_pixels(bitmap, palette), out);
    file.byte(0);
    file.text(";");
    return 0;
}

} // namespace kelu
