// SPDX-License-Identifier: MIT
// What the program brings in from resource/ at start: pictures, tips, palette, fonts and the outline library. The
// bitmaps are in `sheets`, the tips in `store`, the fonts in `font_table`. Main thread, before the timers.
#pragma once

#include "runtime/actors.h"
#include <array>
#include <cstdint>
#include <span>

namespace kelu {

constexpr int object_library_rows = 200;
constexpr int object_row_words = 512; ///< 4 values, the count, then the pairs
constexpr int object_row_pairs = 253; ///< most pairs that a row keeps

/// Outline records of obj_lib.def. Owner and only writer: `load_object_library`.
struct ObjectLibrary {
    std::array<std::array<int, object_row_words>, object_library_rows> rows{};
};
inline ObjectLibrary object_library;

/// Outlines of polygon actors, in the actor's own pixels. Owner and only writer: `copy_object_record`.
struct ActorOutlines {
    std::array<int, max_actors> pair_count{};                              ///< 0 to `object_row_pairs`
    std::array<std::array<int, 2 * object_row_pairs>, max_actors> pairs{}; ///< x, y, x, y ...
};
inline ActorOutlines actor_outlines;

/// Reads obj_lib.def of the working directory, one decimal number a line: records of four values, a count and that
/// many pairs. A missing file leaves the library empty; what goes beyond the table is read over.
void load_object_library();
/// The same from the bytes of such a file.
void read_object_library(std::span<const uint8_t> bytes);
/// Copies the count and the pairs of library row 0 to 199 into outline 0 to 49; other numbers are refused with a line
/// in the log.
void copy_object_record(int slot, int row);

/// Loads the logo and the tips from resource/ below the working directory, and makes the pictures and tiles that come
/// from nothing else. A missing picture ends the program with a message.
void load_application_resources();

/// Loads the GUI sheet, the palette, the text colours and the two fonts from resource/ below the working directory,
/// and makes the palette Allegro's. A missing resource ends the program with a message.
void load_framework_video();

/// Makes the hatch tile and the backdrop tiles: what needs no file.
void make_pattern_tiles();

} // namespace kelu
