// SPDX-License-Identifier: MIT
// JPEG files beside the shortest loop over libjpeg that ends in, or begins with, pixels of our layout.
#include "base/bitmap.h"
#include "imagefile/jpeg.h"
#include "pictures.h"
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstdlib>
// Behind cstdio, which it needs.
#include <jpeglib.h>

namespace kelu {
namespace {

constexpr int quality = 90;

Bytes encode_by_libjpeg(const Bitmap& picture)
{
    jpeg_compress_struct info = {};
    jpeg_error_mgr errors;
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* block = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &block, &size);
    info.image_width = static_cast<JDIMENSION>(picture.width());
    info.image_height = static_cast<JDIMENSION>(picture.height());
    info.input_components = 4;
    info.in_color_space = JCS_EXT_BGRX;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    jpeg_start_compress(&info, TRUE);
    for (int y = 0; y < picture.height(); ++y) {
        JSAMPROW lines[] = {reinterpret_cast<JSAMPROW>(row(picture, y))};
        jpeg_write_scanlines(&info, lines, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    const Bytes bytes(block, block + size);
    std::free(block);
    return bytes;
}

void decode_by_libjpeg(const Bytes& bytes, const Bitmap& picture)
{
    jpeg_decompress_struct info = {};
    jpeg_error_mgr errors;
    info.err = jpeg_std_error(&errors);
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, bytes.data(), bytes.size());
    jpeg_read_header(&info, TRUE);
    info.out_color_space = JCS_EXT_BGRX;
    jpeg_start_decompress(&info);
    while (info.output_scanline < info.output_height) {
        JSAMPROW lines[] = {reinterpret_cast<JSAMPROW>(row(picture, static_cast<int>(info.output_scanline)))};
        jpeg_read_scanlines(&info, lines, 1);
    }
    jpeg_finish_decompress(&info);
    jpeg_destroy_decompress(&info);
}

void jpeg_save_ours(benchmark::State& state)
{
    const Bitmap picture = ramps();
    for (auto turn : state) {
        Bytes bytes;
        encode_jpeg(picture, quality, bytes);
        benchmark::DoNotOptimize(bytes.data());
    }
}
BENCHMARK(jpeg_save_ours)->Unit(benchmark::kMillisecond);

void jpeg_save_libjpeg(benchmark::State& state)
{
    const Bitmap picture = ramps();
    for (auto turn : state)
        benchmark::DoNotOptimize(encode_by_libjpeg(picture).data());
}
BENCHMARK(jpeg_save_libjpeg)->Unit(benchmark::kMillisecond);

void jpeg_load_ours(benchmark::State& state)
{
    const Bytes bytes = encode_by_libjpeg(ramps());
    for (auto turn : state)
        benchmark::DoNotOptimize(decode_jpeg(bytes).get());
}
BENCHMARK(jpeg_load_ours)->Unit(benchmark::kMillisecond);

void jpeg_load_libjpeg(benchmark::State& state)
{
    const Bytes bytes = encode_by_libjpeg(ramps());
    for (auto turn : state) {
        const Bitmap picture = Bitmap::unfilled(ramps_side, ramps_side);
        decode_by_libjpeg(bytes, picture);
        benchmark::DoNotOptimize(picture.get());
    }
}
BENCHMARK(jpeg_load_libjpeg)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kelu
