// SPDX-License-Identifier: MIT
// The texts that pictures are drawn from: a mistake is named by file and line.
#include "text_art.h"

#include "support/temporary_folder.h"
#include <gtest/gtest.h>

namespace kelu::tools {
namespace {

class TextArtDeathTest : public testing::Test {
protected:
    /// Expects a reader to stop at a text, with the line and a part of the complaint.
    template <class Reader>
    void refuses(Reader read, const std::string& text, const std::string& complaint)
    {
        folder_.put("art.txt", text);
        EXPECT_EXIT(read("art.txt"), testing::ExitedWithCode(1), "art.txt:" + complaint) << text;
    }

private:
    TemporaryFolder folder_;
};

/// A palette of 256 greenish colours, eight a line, with one of them exchanged.
std::string palette_text(int exchanged, const char* color)
{
    std::string text = "; all of them\n";
    for (int i = 0; i < 256; ++i) {
        char entry[8];
        std::snprintf(entry, sizeof entry, "%02x%02x%02x", i % 16 * 4, i / 16 * 4, 128);
        if (i % 8 == 0) text += "\n" + std::to_string(i);
        text += std::string(" ") + (i == exchanged ? color : entry);
    }
    return text + "   ; the end\n";
}

TEST_F(TextArtDeathTest, names_the_line_of_a_mistake)
{
    refuses(read_palette, palette_text(9, "030083"), "4: 030083 is there already");
    refuses(read_palette, palette_text(255, "fe02fd"), "34: magenta is the mask");
    refuses(read_palette, "0 000000\n", "1: ends too early");
    EXPECT_EXIT(read_palette("none.txt"), testing::ExitedWithCode(1), "none.txt:0: can't be read");
    refuses(read_picture, "size 3 1\ncolour a 000000\nclear a\n", "3: the letter is declared already");
    refuses(read_picture, "size 3 2\nclear .\n...\n..\n", "4: the row has 2 letters instead of 3");
    refuses(read_picture, "size 3 2\nclear .\n...\n.x.\n", "4: the letter 'x' is not declared");
    refuses(read_picture, "size 3 1\nclear .\n...\n...\n", "4: more rows");
    const std::string head = "cell 3 1\nshadow 1 1\nglyph A advance 4 drop 0\n###\n";
    refuses(read_font, head + "glyph A advance 4 drop 0\n###\n", "5: the glyph is there already");
    refuses(read_font, head + "glyph #300 advance 4 drop 0\n###\n", "5: '#300' is no character");
    refuses(read_font, head + "glyph B advance 40 drop 0\n###\n", "5: advance 1 to 16");
    refuses(read_tips, "tip 1\n", "1: expected 'tip 0'");
}

} // namespace
} // namespace kelu::tools
