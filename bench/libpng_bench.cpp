// SPDX-License-Identifier: MIT
// The same picture through libpng at the same level of zlib, to hold our own codec against.
#include "base/reader.h"
#include "imagefile/png.h"
#include "pictures.h"
#include "runtime/pixels.h"
#include <benchmark/benchmark.h>
#include <memory>
#include <png.h>

namespace kelu {
namespace {

void append(png_structp file, png_bytep data, png_size_t count)
{
    Bytes& bytes = *static_cast<Bytes*>(png_get_io_ptr(file));
    bytes.insert(bytes.end(), data, data + count);
}

/// `filters`: PNG_ALL_FILTERS is libpng's own choice; PNG_FILTER_PAETH what our writer does.
Bytes encode_by_libpng(const Bytes& samples, int side, int filters)
{
    Bytes bytes;
    png_structp file = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
    png_infop info = png_create_info_struct(file);
    png_set_write_fn(file, &bytes, append, nullptr);
    png_set_compression_level(file, 9);
    if (filters != PNG_ALL_FILTERS) png_set_compression_strategy(file, 0);
    png_set_filter(file, 0, filters);
    const auto size = static_cast<png_uint_32>(side);
    png_set_IHDR(file, info, size, size, 8, PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
                 PNG_FILTER_TYPE_DEFAULT);
    png_write_info(file, info);
    for (std::size_t y = 0; y < size; ++y)
        png_write_row(file, samples.data() + y * size * 3);
    png_write_end(file, nullptr);
    png_destroy_write_struct(&file, &info);
    return bytes;
}

Bytes samples_of(const Bitmap& picture)
{
    Bytes samples;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int color = row(picture, y)[x];
            for (const int channel : {red_of(color), green_of(color), blue_of(color)})
                samples.push_back(static_cast<uint8_t>(channel));
        }
    }
    return samples;
}

/// Flat art of that side; ramps at the side of ramps.
Bitmap picture_of(const benchmark::State& state)
{
    return state.range(0) == ramps_side ? ramps() : flat_art(static_cast<int>(state.range(0)));
}

/// The time to read a file hangs on its filters.
Bytes file_of(const benchmark::State& state)
{
    const Bitmap picture = picture_of(state);
    return encode_by_libpng(samples_of(picture), picture.width(), static_cast<int>(state.range(1)));
}

void png_save_ours(benchmark::State& state)
{
    const Bitmap picture = picture_of(state);
    for (auto turn : state) {
        Bytes bytes;
        encode_png(picture, nullptr, bytes);
        state.counters["bytes"] = static_cast<double>(bytes.size());
    }
}
BENCHMARK(png_save_ours)->Arg(ramps_side)->Arg(4096)->Unit(benchmark::kMillisecond);

void png_save_libpng(benchmark::State& state)
{
    const Bitmap picture = picture_of(state);
    const Bytes samples = samples_of(picture);
    for (auto turn : state) {
        const Bytes bytes = encode_by_libpng(samples, picture.width(), static_cast<int>(state.range(1)));
        state.counters["bytes"] = static_cast<double>(bytes.size());
    }
}
BENCHMARK(png_save_libpng)
    ->ArgsProduct({{ramps_side, 4096}, {PNG_FILTER_PAETH, PNG_ALL_FILTERS}})
    ->Unit(benchmark::kMillisecond);

void png_load_ours(benchmark::State& state)
{
    const Bytes bytes = file_of(state);
    for (auto turn : state)
        benchmark::DoNotOptimize(decode_png(bytes));
}
BENCHMARK(png_load_ours)
    ->ArgsProduct({{ramps_side, 4096}, {PNG_FILTER_PAETH, PNG_ALL_FILTERS}})
    ->Unit(benchmark::kMillisecond);

/// Into memory that is as new as that of our bitmap.
void png_load_libpng(benchmark::State& state)
{
    const Bytes bytes = file_of(state);
    for (auto turn : state) {
        png_image image{};
        image.version = PNG_IMAGE_VERSION;
        png_image_begin_read_from_memory(&image, bytes.data(), bytes.size());
        image.format = PNG_FORMAT_BGRA;
        const auto pixels = std::make_unique_for_overwrite<uint8_t[]>(PNG_IMAGE_SIZE(image));
        png_image_finish_read(&image, nullptr, pixels.get(), 0, nullptr);
        benchmark::DoNotOptimize(pixels.get());
    }
}
BENCHMARK(png_load_libpng)
    ->ArgsProduct({{ramps_side, 4096}, {PNG_FILTER_PAETH, PNG_ALL_FILTERS}})
    ->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kelu
