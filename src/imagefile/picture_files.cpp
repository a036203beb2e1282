// SPDX-License-Identifier: MIT
// The file side of the codecs, and their registration with Allegro.
#include "imagefile/picture_files.h"

#include "imagefile/gif.h"
#include "imagefile/lbm.h"
#include "imagefile/pcx.h"
#include "imagefile/png.h"
#include "platform/files.h"

namespace kelu {
namespace {

using Encode = int (*)(BITMAP*, const RGB*, Bytes&);

/// "PNG " as Allegro's datafiles number their objects.
constexpr int datafile_png = DAT_ID('P', 'N', 'G', ' ');

int save_by(Encode encode, const char* file_name, BITMAP* bitmap, const RGB* palette)
{
    Bytes bytes;
    return encode(bitmap, palette, bytes) == 0 && platform::replace_file(file_name, bytes) ? 0 : -1;
}

/// A PNG that lies in an Allegro datafile.
void* load_datafile_png(PACKFILE* file, long size)
{
    if (size < 0 || static_cast<std::size_t>(size) > max_picture_file) return nullptr;
    Bytes bytes(size);
    const long got = pack_fread(bytes.data(), size, file);
    return decode_png({bytes.data(), static_cast<std::size_t>(std::max(got, 0L))}).release();
}

void destroy_datafile_png(void* picture) { destroy_bitmap(static_cast<BITMAP*>(picture)); }

} // namespace

Bitmap load_png(const char* file_name, RGB* palette)
{
    Bytes bytes;
    if (platform::read_file(file_name, max_picture_file, bytes)) return decode_png(bytes, palette);
    png_error = "Cannot open file!";
    return {};
}

int save_png(const char* file_name, BITMAP* bitmap, const RGB* palette)
{
    Bytes bytes;
    if (encode_png(bitmap, palette, bytes) != 0) return -1;
    if (platform::replace_file(file_name, bytes)) return 0;
    png_error = "Cannot write to the file!";
    return -1;
}

Bitmap load_gif(const char* file_name, RGB* palette)
{
    Bytes bytes;
    return platform::read_file(file_name, max_picture_file, bytes) ? decode_gif(bytes, palette) : Bitmap();
}

int save_gif(const char* file_name, BITMAP* bitmap, const RGB* palette)
{
    return save_by(encode_gif, file_name, bitmap, palette);
}

int save_lbm(const char* file_name, BITMAP* bitmap, const RGB* palette)
{
    return save_by(encode_lbm, file_name, bitmap, palette);
}

int save_pcx_picture(const char* file_name, BITMAP* bitmap)
{
    return save_by([](BITMAP* picture, const RGB*, Bytes& out) { return encode_pcx(picture, out); }, file_name, bitmap,
                   nullptr);
}

void register_picture_formats()
{
    register_bitmap_file_type(
        "png", [](const char* name, RGB* palette) { return load_png(name, palette).release(); }, save_png);
    register_bitmap_file_type(
        "gif", [](const char* name, RGB* palette) { return load_gif(name, palette).release(); }, save_gif);
    register_datafile_object(datafile_png, load_datafile_png, destroy_datafile_png);
}

} // namespace kelu
