// SPDX-License-Identifier: MIT
// Codecs and quantiser on large pictures.
#include "imagefile/gif.h"
#include "imagefile/jpeg.h"
#include "imagefile/png.h"
#include "imagefile/reduce.h"
#include "platform/host.h"
#include "runtime/pixels.h"
#include <benchmark/benchmark.h>

namespace kelu {
namespace {

/// Areas of one colour, ramps and a little grain, as in painted pictures.
Bitmap painted(int side)
{
    platform::headless_host.start();
    Bitmap picture(side, side);
    uint32_t grain = 1;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            grain = grain * 1664525 + 1013904223;
            const bool flat = (x / 64 + y / 64) % 3 == 0;
            row(picture, y)[x] =
                flat ? 0x406080
                     : pack_rgb(x >> 3 & 255, y >> 3 & 255, (x + y) / 16 % 240 + static_cast<int>(grain >> 28));
        }
    }
    return picture;
}

void count_pixels(benchmark::State& state, const Bitmap& picture)
{
    state.SetItemsProcessed(state.iterations() * picture.width() * picture.height());
}

void png_save(benchmark::State& state)
{
    const Bitmap picture = painted(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        Bytes bytes;
        encode_png(picture, nullptr, bytes);
        state.counters["bytes"] = static_cast<double>(bytes.size());
    }
    count_pixels(state, picture);
}
BENCHMARK(png_save)->Arg(320)->Arg(4096)->Unit(benchmark::kMillisecond);

void png_load(benchmark::State& state)
{
    const Bitmap picture = painted(static_cast<int>(state.range(0)));
    Bytes bytes;
    encode_png(picture, nullptr, bytes);
    for (auto _ : state)
        benchmark::DoNotOptimize(decode_png(bytes));
    count_pixels(state, picture);
}
BENCHMARK(png_load)->Arg(320)->Arg(4096)->Unit(benchmark::kMillisecond);

void gif_save(benchmark::State& state)
{
    const Bitmap picture = painted(static_cast<int>(state.range(0)));
    PALETTE palette;
    reduce_colors(picture, REDUCE_FAST, palette);
    for (auto _ : state) {
        Bytes bytes;
        encode_gif(picture, palette, bytes);
        state.counters["bytes"] = static_cast<double>(bytes.size());
    }
    count_pixels(state, picture);
}
BENCHMARK(gif_save)->Arg(320)->Arg(1024)->Unit(benchmark::kMillisecond);

void gif_load(benchmark::State& state)
{
    const Bitmap picture = painted(static_cast<int>(state.range(0)));
    PALETTE palette;
    reduce_colors(picture, REDUCE_FAST, palette);
    Bytes bytes;
    encode_gif(picture, palette, bytes);
    for (auto _ : state)
        benchmark::DoNotOptimize(decode_gif(bytes));
    count_pixels(state, picture);
}
BENCHMARK(gif_load)->Arg(1024)->Unit(benchmark::kMillisecond);

void jpeg_save(benchmark::State& state)
{
    const Bitmap picture = painted(1024);
    for (auto _ : state) {
        Bytes bytes;
        encode_jpeg(picture, 90, bytes);
    }
    count_pixels(state, picture);
}
BENCHMARK(jpeg_save)->Unit(benchmark::kMillisecond);

void neural_quantiser(benchmark::State& state)
{
    const Bitmap picture = painted(1024);
    PALETTE palette;
    for (auto _ : state)
        quantize_neural(picture, static_cast<int>(state.range(0)), palette);
    count_pixels(state, picture);
}
BENCHMARK(neural_quantiser)->Arg(1)->Arg(10)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kelu
