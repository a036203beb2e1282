// SPDX-License-Identifier: MIT
// Speech bubbles: what their codes do, and where their tables end.
#include "framework/bubbles.h"

#include "base/run_state.h"
#include "framework/bubble_layout.h"
#include "runtime/actors.h"
#include "support/fresh_state.h"
#include "support/log_lines.h"

namespace kelu {
namespace {

using Lines = std::vector<std::string>;

class BubbleTest : public test::FreshState {
protected:
    BubbleTest() { actor_at(3).Type = ACTOR_SPEAKER; }
    /// The lines of a text as they are drawn, with "/" at each line's end.
    static std::string laid_out(std::string_view text)
    {
        static Bubble blank;
        Bubble& bubble = bubble_at(1);
        bubble = blank;
        lay_out_bubble(bubble, text);
        std::array<BubblePlace, bubble_text_size> places;
        const int length = place_bubble_text(bubble, places);
        std::string lines;
        int line = 0;
        for (int i = 0; i < length; ++i) {
            const auto index = static_cast<std::size_t>(i);
            for (; line < places[index].line; ++line)
                lines = lines.substr(0, lines.find_last_not_of(' ') + 1) + '/';
            lines += static_cast<char>(bubble.bubble_text[index]);
        }
        return lines;
    }
    static int height() { return (bubble_at(1).bubble_height - 7) / 6; }
    LogLines log;
};

} // namespace

TEST_F(BubbleTest, CodesColourBreakAndMark)
{
    EXPECT_EQ(laid_out("ONE|c24 TWO^THREE"), "ONE TWO/THREE");
    EXPECT_EQ(log.take(), Lines{"[BREAK] at 1"});
    EXPECT_EQ(bubble_at(1).bubble_colours[2], 6);
    EXPECT_EQ(bubble_at(1).bubble_colours[4], 24);
    EXPECT_EQ(laid_out("`A|h37 BC|c99^ D|h"), "A/BC^/D|h");
    EXPECT_EQ(bubble_at(1).bubble_marks[3], 7);
    EXPECT_EQ(bubble_at(1).bubble_colours[2], 6) << "there is no set 99";
    EXPECT_EQ(height(), 3);
}

TEST_F(BubbleTest, LongTextsAreCutAtTheTableAndFullTablesRefuse)
{
    laid_out(std::string(5000, 'X'));
    EXPECT_EQ(bubble_at(1).bubble_text[1498], 'X');
    EXPECT_EQ(bubble_at(1).bubble_text[1499], bubble_text_end);
    std::string words = "`";
    for (int i = 0; i < 2000; ++i)
        words += "A ";
    laid_out(words);
    EXPECT_EQ(height(), 254);
    EXPECT_EQ(bubble_at(1).bubble_breaks[254], -1);
    laid_out(std::string(3000, '^'));
    EXPECT_EQ(height(), 1);
    reset();
    for (int row = 1; row < max_bubbles; ++row)
        EXPECT_EQ(bubble_say(3, 1, "X"), row);
    EXPECT_EQ(bubble_say(3, 1, "X"), -1);
    EXPECT_EQ(bubble_say(50, 1, "X"), -1);
}

} // namespace kelu
