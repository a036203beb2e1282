// SPDX-License-Identifier: MIT
// JPEG reader and writer on libjpeg.
//
// libjpeg leaves by a long jump when it meets an error. Between a setjmp and the last call of the library nothing with
// a destructor is made: such objects are in the frame of the caller.
#include "imagefile/jpeg.h"

#include "base/log.h"
#include "base/sizes.h"
#include "imagefile/picture_files.h"
#include "imagefile/refusal.h"
#include "platform/files.h"
#include "runtime/pixels.h"
#include <algorithm>
#include <bit>
#include <csetjmp>
#include <cstdio>
#include <cstdlib>
// Behind cstdio, which it needs.
#include <jpeglib.h>

namespace kelu {
namespace {

/// libjpeg's error manager with the way back. `base` comes first: the library knows only that.
struct ErrorManager {
    jpeg_error_mgr base;
    std::jmp_buf way_back;
};

[[noreturn]] void leave(j_common_ptr info)
{
    char text[JMSG_LENGTH_MAX];
    info->err->format_message(info, text);
    log_line("[ ERROR ] : JPEG: %s", static_cast<const char*>(text));
    picture_refusal = static_cast<const char*>(text);
    std::longjmp(reinterpret_cast<ErrorManager*>(info->err)->way_back, 1);
}

/// Damaged data brings warnings by the thousand; the picture is shown as far as it goes.
void be_silent(j_common_ptr) {}
/// A progressive file can ask for pass after pass over a large picture with a few bytes each. Ordinary ones have about
/// ten.
void watch_scans(j_common_ptr info)
{
    if (!info->is_decompressor) return;
    const auto& decoder = *reinterpret_cast<j_decompress_ptr>(info);
    const long most = std::clamp((1L << 31) / (long{decoder.image_width} * decoder.image_height), 20L, 100L);
    if (decoder.input_scan_number > most) leave(info);
}

// The library's own layout for our pixels, where it has one: a word 0x00RRGGBB with its lowest byte first.
#ifdef JCS_EXTENSIONS
constexpr bool has_our_layout = std::endian::native == std::endian::little;
constexpr J_COLOR_SPACE our_layout = JCS_EXT_BGRX;
#else
constexpr bool has_our_layout = false;
constexpr J_COLOR_SPACE our_layout = JCS_RGB;
#endif
constexpr J_COLOR_SPACE pixel_layout = has_our_layout ? our_layout : JCS_RGB;
constexpr int samples_a_pixel = has_our_layout ? 4 : 3;

/// The samples of a line, to be read from or written to: the pixels themselves, or `line` where the layouts differ.
JSAMPROW samples_of(int* pixels, Bytes& line)
{
    return has_our_layout ? reinterpret_cast<JSAMPROW>(pixels) : line.data();
}

/// Puts the samples of a line, as the library has left them, into the form of pixels.
void take_samples(const Bytes& line, int* pixels, int count)
{
    [[maybe_unused]] const uint8_t* in = line.data();
    for (int x = 0; x < count; ++x) {
        if constexpr (has_our_layout) {
            pixels[x] &= 0xffffff; // what the library leaves in the fourth byte is its own affair
        } else {
            pixels[x] = pack_rgb(in[3 * x], in[3 * x + 1], in[3 * x + 2]);
        }
    }
}

/// Puts pixels into the form of samples.
void give_samples(const int* pixels, Bytes& line, int count)
{
    if (has_our_layout) return;
    uint8_t* out = line.data();
    for (int x = 0; x < count; ++x, out += 3) {
        out[0] = static_cast<uint8_t>(red_of(pixels[x]));
        out[1] = static_cast<uint8_t>(green_of(pixels[x]));
        out[2] = static_cast<uint8_t>(blue_of(pixels[x]));
    }
}

/// Pixels that a byte stands for at most in a large picture. A Huffman code for a block of 64 has a bit or more, which
/// makes 512; arithmetic coding, which few use, takes less for what is even.
constexpr std::size_t most_pixels_a_byte = 2048;

void set_errors(ErrorManager& errors, jpeg_error_mgr*& used)
{
    used = jpeg_std_error(&errors.base);
    errors.base.error_exit = leave;
    errors.base.output_message = be_silent;
}

/// Runs the decompressor from head to end; `progress`, `bitmap` and `line` belong to the caller.
bool run_decoder(jpeg_decompress_struct& info, ErrorManager& errors, std::span<const uint8_t> bytes,
                 jpeg_progress_mgr& progress, Bitmap& bitmap, Bytes& line)
{
    if (setjmp(errors.way_back) != 0) return false;
    jpeg_create_decompress(&info);
    info.progress = &progress;
    jpeg_mem_src(&info, bytes.data(), bytes.size());
    jpeg_read_header(&info, TRUE);
    if (!bitmap_size_valid(info.image_width, info.image_height)) return false;
    if (!may_hold(bytes.size(), std::size_t{info.image_width} * info.image_height, most_pixels_a_byte)) return false;
    info.out_color_space = pixel_layout; // greyscale pictures too come as three components
    jpeg_start_decompress(&info);
    bitmap = Bitmap::unfilled(static_cast<int>(info.output_width), static_cast<int>(info.output_height));
    if (!has_our_layout) line.resize(std::size_t{info.output_width} * samples_a_pixel);
    while (bitmap && info.output_scanline < info.output_height) {
        int* out = row(bitmap, static_cast<int>(info.output_scanline));
        JSAMPROW lines[] = {samples_of(out, line)};
        jpeg_read_scanlines(&info, lines, 1);
        take_samples(line, out, bitmap.width());
    }
    jpeg_finish_decompress(&info);
    return static_cast<bool>(bitmap);
}

/// Where libjpeg puts what it writes; it grows the block by itself.
struct Output {
    unsigned char* block = nullptr;
    unsigned long size = 0;
    ~Output() { std::free(block); }
};

bool run_encoder(jpeg_compress_struct& info, ErrorManager& errors, BITMAP* bitmap, int quality, Output& output,
                 Bytes& line)
{
    if (setjmp(errors.way_back) != 0) return false;
    jpeg_create_compress(&info);
    jpeg_mem_dest(&info, &output.block, &output.size);
    info.image_width = static_cast<JDIMENSION>(bitmap->w);
    info.image_height = static_cast<JDIMENSION>(bitmap->h);
    info.input_components = samples_a_pixel;
    info.in_color_space = pixel_layout;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    jpeg_start_compress(&info, TRUE);
    for (int y = 0; y < bitmap->h; ++y) {
        give_samples(row(bitmap, y), line, bitmap->w);
        JSAMPROW lines[] = {samples_of(row(bitmap, y), line)};
        jpeg_write_scanlines(&info, lines, 1);
    }
    jpeg_finish_compress(&info);
    return true;
}

} // namespace

Bitmap decode_jpeg(std::span<const uint8_t> bytes)
{
    if (bytes.empty()) return refuse(refusal::ends_early);
    jpeg_decompress_struct info = {};
    ErrorManager errors;
    set_errors(errors, info.err);
    Bitmap bitmap;
    Bytes line;
    picture_refusal = "Bad or unsupported size!"; // unless the library says something else
    jpeg_progress_mgr progress = {};
    progress.progress_monitor = watch_scans;
    if (!run_decoder(info, errors, bytes, progress, bitmap, line)) bitmap.reset();
    jpeg_destroy_decompress(&info);
    return bitmap;
}

bool encode_jpeg(BITMAP* bitmap, int quality, Bytes& out)
{
    if (!bitmap || bitmap->w < 1 || bitmap->h < 1) return false;
    jpeg_compress_struct info = {};
    ErrorManager errors;
    set_errors(errors, info.err);
    Output output;
    Bytes line(has_our_layout ? 0 : static_cast<std::size_t>(bitmap->w) * samples_a_pixel);
    const bool good = run_encoder(info, errors, bitmap, quality, output, line);
    jpeg_destroy_compress(&info);
    if (good) ByteWriter(out).append({output.block, output.size});
    return good;
}

bool save_jpeg(const char* file_name, BITMAP* bitmap, int quality)
{
    Bytes bytes;
    if (encode_jpeg(bitmap, quality, bytes) && platform::replace_file(file_name, bytes)) return true;
    std::fprintf(stderr, "can't open %s\n", file_name);
    log_line("[ ERROR ] : Couldn't open new or existing JPG for saving!");
    return false;
}

} // namespace kelu
