// SPDX-License-Identifier: MIT
// Speech bubbles: both layouts and the states from opening to free.
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
    static void tick(int n)
    {
        for (int i = 0; i < n; ++i)
            bubble_tick();
    }
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
    static int width() { return (bubble_at(1).bubble_width - 6) / 4; }
    static int height() { return (bubble_at(1).bubble_height - 7) / 6; }
    LogLines log;
};

} // namespace

TEST_F(BubbleTest, WrapsIntoTheNarrowestPanelOfThreeLines)
{
    EXPECT_EQ(laid_out("HELLO THERE YOU"), "HELLO/THERE YOU");
    EXPECT_EQ(width(), 9);
    EXPECT_EQ(height(), 2);
    // Three lines of twelve columns don't do; thirteen do.
    EXPECT_EQ(laid_out("ONE TWO THREE FOUR FIVE SIX SEVEN"), "ONE TWO THREE/FOUR FIVE SIX/SEVEN");
    EXPECT_EQ(width(), 13);
    EXPECT_EQ(laid_out(""), "");
    EXPECT_EQ(bubble_at(1).bubble_height, 13);
    EXPECT_EQ(bubble_at(1).bubble_width, 6);
    // At the widest, three lines hold 75 characters; more text takes more lines, and the narrowest that do.
    const std::string text =
        laid_out("AAAAAAAA BBBBBBBB CCCCCCCC DDDDDDDD EEEEEEEE FFFFFFFF GGGGGGGG HHHHHHHH IIIIIIII");
    EXPECT_EQ(height(), 5);
    EXPECT_EQ(width(), 17);
    EXPECT_EQ(text.substr(0, 18), "AAAAAAAA BBBBBBBB/");
}

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

TEST_F(BubbleTest, LongTextsAreCutAtTheTable)
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
}

TEST_F(BubbleTest, OpensTypesHoldsAndCloses)
{
    ASSERT_EQ(bubble_say(3, 4, "HI YOU"), 1);
    Bubble& bubble = bubble_at(1);
    EXPECT_EQ(bubble.bubble_height, 13);
    tick(6);
    EXPECT_EQ(bubble.bubble_state, BUBBLE_OPENING);
    tick(1);
    EXPECT_EQ(bubble.bubble_state, BUBBLE_TYPING);
    EXPECT_EQ(bubble.bubble_open, 21);
    tick(1);
    EXPECT_EQ(bubble.bubble_fades[0], 59);
    EXPECT_EQ(bubble.bubble_fades[1], 31);
    EXPECT_EQ(bubble.bubble_typed, 1);
    tick(1);
    EXPECT_EQ(bubble.bubble_fades[0], 87);
    EXPECT_EQ(bubble.bubble_typed, 2);
    tick(200);
    EXPECT_EQ(bubble.bubble_actor, -1) << "typed, held for its life, closed and freed";
}

TEST_F(BubbleTest, RefusesWhenTheTableIsFullAndForActorsThatAreNone)
{
    for (int row = 1; row < max_bubbles; ++row)
        EXPECT_EQ(bubble_say(3, 1, "X"), row);
    EXPECT_EQ(bubble_say(3, 1, "X"), -1);
    EXPECT_EQ(bubble_say(50, 1, "X"), -1);
    EXPECT_EQ(log.take(), (Lines{"[ WARNING ] : Attempted to grab bubble, but none available!",
                                 "[ ERROR ] : WHO parameter OOB in call to bubble_say()! who = 50"}));
    FW_destroy_actor(3, "test");
    EXPECT_EQ(bubble_at(31).bubble_actor, -1);
}

} // namespace kelu
