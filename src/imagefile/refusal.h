// SPDX-License-Identifier: MIT
// Why a picture could not be read. The decoders tell it, and the user reads it in the status bar.
#pragma once

#include "base/bitmap.h"
#include <string>

namespace kelu {

/// Reason of the picture that was refused last, a few words in either case. Owner: the decoders and `load_picture`.
/// Main thread.
inline std::string picture_refusal;

/// Notes the reason and gives the empty picture that stands for a refusal.
inline Bitmap refuse(const char* reason)
{
    picture_refusal = reason;
    return {};
}

/// What several decoders find.
namespace refusal {
constexpr const char* ends_early = "The file ends early!";
constexpr const char* no_picture = "No picture in it!";
constexpr const char* damaged = "The file is damaged!";
constexpr const char* too_large = "Too many pixels!";
constexpr const char* no_memory = "Not enough memory!";
} // namespace refusal

} // namespace kelu
