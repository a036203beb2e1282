// SPDX-License-Identifier: MIT
// The table of file formats: how each is determined by name or content, read into a picture and written from one.
#pragma once

#include "base/bitmap.h"
#include "base/reader.h"
#include <string>

namespace kelu {

/// Formats of the files that the browser shows. The numbers are those of the table's rows.
enum FormatId : int {
    FORMAT_NONE = -1,
    FORMAT_GIF,
    FORMAT_PCX,
    FORMAT_BMP,
    FORMAT_PNG,
    FORMAT_JPG,
    FORMAT_LBM,
    FORMAT_TTF,
    FORMAT_FON,
    FORMAT_WSP,       ///< workspace archive
    FORMAT_FAVORITES, ///< colour file
    FORMAT_SCHEME,    ///< colour scheme file
    FORMAT_ICO,
    FORMAT_COUNT
};

/// What a picture's writer needs beside the picture.
struct SaveOptions {
    int color_reduction = 0; ///< to 256 colours: 0 fast, 1 good, 2 best
    int jpg_quality = 90;    ///< 0 to 100
};

/// One row a format. What a format doesn't have is empty.
struct FormatRow {
    int id;
    int signature_at;           ///< where in its files the signature is
    std::string_view extension; ///< upper case
    std::string_view signature; ///< bytes that identify it
    bool previews;              ///< the browser shows its content
    bool keeps_alpha;           ///< `save` takes the merged form
    int filter;                 ///< button of the file browser that lists it alone, 0 to 8; -1: none
    /// Decodes a file to merged form; a picture without an alpha channel is opaque.
    Bitmap (*decode)(std::span<const uint8_t> bytes);
    /// Writes a file, which replaces an old one only when it is whole on disk; false when that failed.
    bool (*save)(const char* name, BITMAP* picture, const SaveOptions& options);
};

/// The row of a format, `id` 0 to FORMAT_COUNT - 1.
const FormatRow& format_row(int id);

/// The format that a name's extension stands for, or FORMAT_NONE. The letters behind the last point count, in any case:
/// the row's extension, for JPG also "JPEG" and "JPE"; with `fonts_only` just those of fonts.
int format_from_extension(const std::string& name, bool fonts_only);

/// The row of the format that has a filter's button, 0 to 8.
const FormatRow& format_of_filter(int filter);

constexpr std::size_t signature_bytes = 4; ///< first bytes of a file that tell its format

/// The format that a file's first bytes identify, or FORMAT_NONE: for everything that looks into a file.
int format_from_bytes(std::span<const uint8_t> start);

/// The same for the file of that name, of which no more is read; one that can't be read leaves a line in the log.
int format_from_signature(const std::string& name);

/// The format by extension, else by signature, or FORMAT_NONE.
int format_of_file(const std::string& name);

/// Decodes the bytes of a picture file of a format into merged form; empty as below. Throws std::bad_alloc.
Bitmap decode_picture(std::span<const uint8_t> bytes, int format);

/// Reads a picture file of a format into merged form. Empty when the file can't be read, isn't such a picture, or the
/// format has no pictures.
Bitmap load_picture(const std::string& name, int format);

} // namespace kelu
