// SPDX-License-Identifier: MIT
// The inside of PNG files, for both readers: what an input has as data of its pictures is their rows before they are
// packed.
#include "imagefile/png_rows.h"
#include "imagefile/apng.h"
#include "imagefile/png.h"
#include "imagefile/png_filters.h"
#include "imagefile/png_write.h"
#include <zlib.h>

#include "reader_target.h"

namespace {

/// Appends a zlib stream that holds the bytes as they are: quick to make, and the input shows through it.
void append_stored(kelu::Bytes& to, std::span<const uint8_t> bytes)
{
    constexpr std::size_t most = 0xffff; // in a block
    kelu::ByteWriter out(to);
    out.big16(0x7801);
    const auto check = adler32(adler32(0, nullptr, 0), bytes.data(), static_cast<uInt>(bytes.size()));
    do {
        const auto block = bytes.first(std::min(bytes.size(), most));
        bytes = bytes.subspan(block.size());
        out.byte(bytes.empty() ? 1 : 0);
        out.little16(static_cast<int>(block.size()));
        out.little16(static_cast<int>(~block.size() & 0xffff));
        out.append(block);
    } while (!bytes.empty());
    out.big32(static_cast<uint32_t>(check));
}

/// The file with all data packed and all checksums right, up to where its chunks end.
kelu::Bytes with_packed_data(std::span<const uint8_t> bytes)
{
    kelu::Bytes file(std::begin(kelu::png_signature), std::end(kelu::png_signature));
    kelu::ByteReader in(bytes);
    kelu::ByteWriter out(file);
    in.skip(file.size());
    for (kelu::PngChunk chunk; read_png_chunk(in, chunk) && chunk.type != "IEND"; in.skip(4)) {
        const auto data = in.take(std::min(chunk.length, in.left()));
        const std::size_t head = std::min<std::size_t>(chunk.type == "fdAT" ? 4 : 0, data.size());
        kelu::Bytes packed(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(head));
        if (chunk.type == "IDAT" || chunk.type == "fdAT")
            append_stored(packed, data.subspan(head));
        else
            packed.assign(data.begin(), data.end());
        put_png_chunk(out, chunk.type, packed);
    }
    put_png_chunk(out, "IEND", {});
    return file;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const kelu::Bytes file = with_packed_data({data, size});
    const MemoryWatch watch(file.size(), 4 * 8 * 1032);
    look_at(kelu::decode_png(file));
    const auto look = [](const kelu::Bitmap& picture, int) {
        look_at(picture);
        return true;
    };
    kelu::read_apng(file, look);
    return 0;
}
