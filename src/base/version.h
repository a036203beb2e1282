// SPDX-License-Identifier: MIT
// The program's version. It is given in the build's project line, and the build passes it to version.cpp.
#pragma once

namespace kelu {

/// As in "1.6".
const char* version();
/// The day of what was built, as in "2026-11-25": of SOURCE_DATE_EPOCH where that is set, else of the newest commit.
const char* build_date();

} // namespace kelu
