// SPDX-License-Identifier: MIT
// The same picture through libpng at the same level of zlib, to hold our own codec against.
#include "base/reader.h"
#include "imagefile/png.h"
#include "ramps.h"
#include "runtime/pixels.h"
#include <benchmark/benchmark.h>
#include <png.h>

namespace kelu {
namespace {

constexpr int side = ramps_side;

void append(png_structp file, png_bytep data, png_size_t count)
{
    Bytes& bytes = *static_cast<Bytes*>(png_get_io_ptr(file));
    bytes.insert(bytes.end(), data, data + count);
}

Bytes encode_by_libpng(const Bytes& samples)
{
    Bytes bytes;
    png_structp file = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(file);
    png_set_write_fn(file, &bytes, append, nullptr);
    png_set_compression_level(file, 9);
    png_set_IHDR(file, info, side, side, 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_write_info(file, info);
    for (std::size_t y = 0; y < side; ++y)
        png_write_row(file, samples.data() + y * side * 3);
    png_write_end(file, nullptr);
    png_destroy_write_struct(&file, &info);
    return bytes;
}

Bytes samples_of(const Bitmap& picture)
{
    Bytes samples;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const int color = row(picture, y)[x];
            for (const int channel : {red_of(color), green_of(color), blue_of(color)})
                samples.push_back(static_cast<uint8_t>(channel));
        }
    }
    return samples;
}

void png_save_ours(benchmark::State& state)
{
    const Bitmap picture = ramps();
    for (auto turn : state) {
        Bytes bytes;
        encode_png(picture, nullptr, bytes);
        state.counters["bytes"] = static_cast<double>(bytes.size());
    }
}
BENCHMARK(png_save_ours)->Unit(benchmark::kMillisecond);

void png_save_libpng(benchmark::State& state)
{
    const Bytes samples = samples_of(ramps());
    for (auto turn : state)
        state.counters["bytes"] = static_cast<double>(encode_by_libpng(samples).size());
}
BENCHMARK(png_save_libpng)->Unit(benchmark::kMillisecond);

void png_load_ours(benchmark::State& state)
{
    const Bytes bytes = encode_by_libpng(samples_of(ramps()));
    for (auto turn : state)
        benchmark::DoNotOptimize(decode_png(bytes));
}
BENCHMARK(png_load_ours)->Unit(benchmark::kMillisecond);

void png_load_libpng(benchmark::State& state)
{
    const Bytes bytes = encode_by_libpng(samples_of(ramps()));
    Bytes pixels(std::size_t{side} * side * 4);
    for (auto turn : state) {
        png_image image{};
        image.version = PNG_IMAGE_VERSION;
        png_image_begin_read_from_memory(&image, bytes.data(), bytes.size());
        image.format = PNG_FORMAT_BGRA;
        png_image_finish_read(&image, nullptr, pixels.data(), 0, nullptr);
        benchmark::DoNotOptimize(pixels.data());
    }
}
BENCHMARK(png_load_libpng)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kelu
