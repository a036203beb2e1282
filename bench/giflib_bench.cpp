// SPDX-License-Identifier: MIT
// A picture of the same size through giflib, to hold our own encoder against.
#include "base/reader.h"
#include "imagefile/gif.h"
#include "imagefile/reduce.h"
#include "pictures.h"
#include <benchmark/benchmark.h>
#include <gif_lib.h>
#include <map>
#include <vector>

namespace kelu {
namespace {

constexpr int side = ramps_side;

int append(GifFileType* file, const GifByteType* data, int count)
{
    Bytes& bytes = *static_cast<Bytes*>(file->UserData);
    bytes.insert(bytes.end(), data, data + count);
    return count;
}

void gif_save_ours(benchmark::State& state)
{
    const Bitmap picture = ramps();
    PALETTE palette;
    reduce_colors(picture, REDUCE_FAST, palette);
    for (auto turn : state) {
        Bytes bytes;
        encode_gif(picture, palette, bytes);
        state.counters["bytes"] = static_cast<double>(bytes.size());
    }
}
BENCHMARK(gif_save_ours)->Unit(benchmark::kMillisecond);

/// An index for each pixel: the number of its colour, folded to a byte.
std::vector<GifPixelType> indices_of(const Bitmap& picture)
{
    std::map<int, GifPixelType> known;
    std::vector<GifPixelType> indices;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            indices.push_back(known.emplace(row(picture, y)[x], static_cast<GifPixelType>(known.size())).first->second);
    }
    return indices;
}

/// Without the search for each pixel's entry, which ours includes.
void gif_save_giflib(benchmark::State& state)
{
    const Bitmap picture = ramps();
    PALETTE palette;
    reduce_colors(picture, REDUCE_FAST, palette);
    std::vector<GifPixelType> indices = indices_of(picture);
    for (auto turn : state) {
        Bytes bytes;
        int error = 0;
        ColorMapObject* map = GifMakeMapObject(256, nullptr);
        GifFileType* file = EGifOpen(&bytes, append, &error);
        EGifPutScreenDesc(file, side, side, 8, 0, map);
        EGifPutImageDesc(file, 0, 0, side, side, false, nullptr);
        EGifPutLine(file, indices.data(), side * side);
        EGifCloseFile(file, &error);
        GifFreeMapObject(map);
        state.counters["bytes"] = static_cast<double>(bytes.size());
    }
}
BENCHMARK(gif_save_giflib)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kelu
