// SPDX-License-Identifier: MIT
// Colours as files of the user's: a scheme of the interface, or the extended favourites.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace kelu {

/// Write the colours to a file of the working directory. False when that failed, and an old file stays.
bool save_scheme_file(const std::string& name);
bool save_favorites_file(const std::string& name);

/// Read the colours. Returns 1; or -1, and the colours as before, when the file is missing, of another kind or short.
int load_scheme_file(const std::string& name);
int load_favorites_file(const std::string& name);
/// The same from the bytes of a file.
int read_scheme(std::span<const uint8_t> bytes);
int read_favorites(std::span<const uint8_t> bytes);

} // namespace kelu
