// SPDX-License-Identifier: MIT
// Any bytes for the readers of pictures. Each row of the table is a target, built with its name as KELU_FUZZED; CMake,
// tools/fuzz.sh and tools/check_documents.py find the rows by how they begin.
#include "imagefile/bmp.h"
#include "imagefile/gif.h"
#include "imagefile/ico.h"
#include "imagefile/jpeg.h"
#include "imagefile/lbm.h"
#include "imagefile/pcx.h"
#include "imagefile/png.h"
#include "reader_target.h"
#include <algorithm>
#include <string_view>

namespace {

using Bytes = std::span<const uint8_t>;

/// A reader without the palette that it can hand out.
template <kelu::Bitmap (*decode)(Bytes, RGB*)>
kelu::Bitmap alone(Bytes bytes)
{
    return decode(bytes, nullptr);
}

struct Target {
    std::string_view name;
    kelu::Bitmap (*decode)(Bytes);
    std::size_t most_a_byte; ///< see MemoryWatch
};

constexpr Target targets[] = {
    {"bmp", kelu::decode_bmp, 4 * 128},             // a run of two bytes: 255 pixels
    {"gif", alone<kelu::decode_gif>, 4 * 2731},     // see `lzw_most_a_byte`
    {"ico", kelu::decode_ico, 4 * 8 * 1032},        // a PNG of one bit in it
    {"jpeg", kelu::decode_jpeg, 10 * 2048},         // coefficients of a progressive one
    {"lbm", alone<kelu::decode_lbm>, 4 * 8 * 64},   // a run of two bytes in one plane
    {"pcx", alone<kelu::decode_pcx>, 4 * 8 * 32},   // the same
    {"png", alone<kelu::decode_png>, 4 * 8 * 1032}, // one bit a pixel, deflated
};
constexpr const Target& target = *std::ranges::find(targets, KELU_FUZZED, &Target::name);

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const MemoryWatch watch(size, target.most_a_byte);
    look_at(target.decode({data, size}));
    return 0;
}
