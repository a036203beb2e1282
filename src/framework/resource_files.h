// SPDX-License-Identifier: MIT
// Scrambled resource files: the pictures of the framework, each a GIF file under a name without an extension.
//
//   byte 0     start index into `scramble_table`, 0 to 63
//   the rest   the bytes of the GIF file, each with its bits in reverse order and then XORed with a byte of the table
//
// A plain NAME.gif that is dropped into the folder replaces the resource at the next load, and is consumed. All of it
// runs on the main thread, before the timers.
#pragma once

#include "base/bitmap.h"
#include "base/reader.h"
#include <array>
#include <span>
#include <string>

namespace kelu {

using ScrambleTable = std::array<uint8_t, 64>;
/// The key of all resource files.
extern const ScrambleTable scramble_table;

/// One step of the cipher with entry `index` of the table, 0 to 63, and back.
uint8_t scramble_byte(const ScrambleTable& table, int index, uint8_t byte);
uint8_t unscramble_byte(const ScrambleTable& table, int index, uint8_t byte);

/// The scrambled form of a plain file, with the start index (its low 6 bits count) in front.
Bytes scramble(std::span<const uint8_t> plain, int start);
/// The plain file of a scrambled one; empty for one byte or none.
Bytes unscramble(std::span<const uint8_t> scrambled);

/// Makes the scrambled file from the plain one and removes the plain one, unless the scrambled one is the newer.
/// Without a plain file, or when the scrambled one can't be written, the program ends with a message.
void convert_resource(const std::string& plain_name, const std::string& scrambled_name);

/// The picture of a resource in the working directory, its palette in `framework_palette`. A plain NAME.gif there is
/// converted first. A missing file, or one that holds no picture, ends the program with a message.
Bitmap load_resource_bitmap(const std::string& name);

/// Removes what an interrupted load of older versions may have left in the working directory.
void sweep_old_resources();

} // namespace kelu
