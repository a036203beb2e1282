// SPDX-License-Identifier: MIT
// Scripts, compiled from text. What malformed ones do the fuzz target looks for.
#include "framework/script_compiler.h"
#include <cstdint>
#include <gtest/gtest.h>
#include <vector>

namespace kelu {

using Bytes = std::vector<uint8_t>;

TEST(Script, CompilesHeadsCommandsNumbersTextsAndRemarks)
{
    const Bytes expected{0xf0, 1,    50,                                // head, the rest of its line ignored
                         2,    0xf2, 0,   1,   44,                      // [02 300
                         21,   0xf2, 1,   0,   1,                       // [21 -1
                         42,   0xf2, 0,   0,   1,   0xf2, 0,   0,    9, // [42 1 9
                         0xf1, 0x22, 'A', ';', '[', '\n', '1', 0x22, 99};
    EXPECT_EQ(compile_script_text("0150 the title 77\r\n [02] 300 ; 5 6 7\n [21 -1\n\n [42] 1 9 \"A;[\r\n1\" [99]"),
              expected);
    // Up to four characters make a number; a line may end anywhere.
    EXPECT_EQ(compile_script_text(" 12345"), (Bytes{0xf2, 0, 4, 210, 0xf2, 0, 0, 5}));
    EXPECT_EQ(compile_script_text(" ["), Bytes{0});
    EXPECT_EQ(compile_script_text("7"), (Bytes{0xf0, 7, 0}));
    EXPECT_EQ(compile_script_text(""), Bytes{});
}

} // namespace kelu
