// SPDX-License-Identifier: MIT
// Pictures whose heads promise sizes at the limits and beyond, with as little behind them as there is: none may take
// the memory that it promises. The input says where the sides are put into the file that follows.
#include "imagefile/formats.h"
#include "imagefile/tga.h"

#include "reader_target.h"

namespace {

/// The side at which bitmaps end, the square that has the most pixels, and what words of two and four bytes hold.
constexpr uint32_t sides[] = {1,     2,     255,   256,   4096,  8192,  11585,      11586,
                              16384, 32767, 32768, 65534, 65535, 65536, 0x7fffffff, 0xffffffff};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    using namespace kelu;
    constexpr std::size_t order_bytes = 3;
    if (size < order_bytes) return 0;
    const std::size_t at = data[0], step = data[1] & 1 ? 4 : 2;
    const bool big = data[1] & 2;
    Bytes file(data + order_bytes, data + size);
    for (int i = 0; i < 2; ++i) {
        const uint32_t side = sides[data[2] >> 4 * i & 15];
        for (std::size_t byte = 0; byte < step; ++byte) {
            const std::size_t place = at + static_cast<std::size_t>(i) * step + byte;
            if (place < file.size()) file[place] = static_cast<uint8_t>(side >> 8 * (big ? step - 1 - byte : byte));
        }
    }
    const MemoryWatch watch(file.size(), 4 * 8 * 1032);
    const int format = format_from_bytes(std::span(file).first(std::min(file.size(), signature_bytes)));
    look_at(format == FORMAT_NONE ? decode_tga(file) : decode_picture(file, format));
    return 0;
}
