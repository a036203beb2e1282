// SPDX-License-Identifier: MIT
// Pictures that were looked at once and are kept: tests compare what the program draws with them.
//
// A mismatch leaves NAME.actual.png and NAME.diff.png in golden/ of the build folder. With KELU_ACCEPT=1 in the
// environment the picture is kept as the new golden one instead, and nothing fails: look at it afterwards.
#pragma once

#include "base/bitmap.h"
#include <gtest/gtest.h>
#include <string>

namespace kelu::test {

/// Success when the bitmap equals tests/golden/NAME.png pixel by pixel; top bytes don't count. Use as
/// EXPECT_TRUE(matches_golden(screen_state.back_buffer, "drawing_menu")).
testing::AssertionResult matches_golden(BITMAP* picture, const std::string& name);

/// The same for a text and tests/golden/NAME.txt; a failure names the first line that differs.
testing::AssertionResult text_matches_golden(const std::string& text, const std::string& name);

} // namespace kelu::test
