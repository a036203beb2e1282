// SPDX-License-Identifier: MIT
// A bubble on the screen: panel, place, characters as they fade in.
#include "framework/bubble_painter.h"

#include "framework/actor_shadow.h"
#include "framework/bubbles.h"
#include "support/fresh_state.h"
#include "support/pixel_text.h"
#include "unit/gui/test_font.h"
#include <gtest/gtest.h>

namespace kelu::test {
namespace {

constexpr int ground = 0x101010;
constexpr int letter = 0x957959; // first tone of set 6

class BubblePainterTest : public FreshState {
protected:
    BubblePainterTest()
    {
        set_test_palette();
        init_text_colours();
        const Bitmap font = font_picture({{'A', {"###", "###", "###", "###"}}, {' ', {}}});
        BITMAP* pictures[] = {font};
        load_font(FONT_NARROW, pictures);
        actor_at(3).Type = ACTOR_SPEAKER;
    }
    ~BubblePainterTest() override
    {
        font_table[FONT_NARROW] = {};
        text_pen = {};
    }
    static void tick(int n)
    {
        for (int i = 0; i < n; ++i)
            bubble_tick();
    }
    /// The picture with the actor at (x, y): '#' the panel, 'A' a full letter, '?' one that fades.
    static std::vector<std::string> drawn(int w, int h, int x, int y)
    {
        actor_at(3).actor_pos[0] = x;
        actor_at(3).actor_pos[1] = y;
        update_actor_shadow();
        const Bitmap picture(w, h, ground);
        draw_bubbles(picture);
        return to_text(picture, {{'.', ground}, {'#', palette_color[208]}, {'A', letter}});
    }
};

} // namespace

TEST_F(BubblePainterTest, OpensAsAPanelAndThenShowsItsLetters)
{
    bubble_say(3, -1, "AA"); // 14 x 13 pixels
    EXPECT_EQ(drawn(16, 4, 8, 40), std::vector<std::string>(4, "................")) << "nothing is open yet";
    tick(1);
    EXPECT_EQ(drawn(18, 5, 9, 17),
              (std::vector<std::string>{"..##############..", "..##############..", "..##############..",
                                        "..................", ".................."}));
    tick(6 + 9); // open after seven ticks; the first letter is full after nine more
    const std::vector<std::string> typed = drawn(18, 20, 9, 17);
    EXPECT_EQ(typed[4], "..##############..");
    EXPECT_EQ(typed[5], "..#####AAA#???##..");
    EXPECT_EQ(typed[8], "..#####AAA#???##..");
    EXPECT_EQ(typed[9], "..##############..");
    EXPECT_EQ(typed[12], "..##############..");
    EXPECT_EQ(typed[13], "..................");
}

} // namespace kelu::test
