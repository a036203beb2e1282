// SPDX-License-Identifier: MIT
// Cells of the tip sheet, and what the pointer takes from them.
#include "draw/tips.h"

#include "runtime/pixels.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "support/fresh_state.h"
#include "support/pixel_text.h"

namespace kelu {
namespace {

class TipsTest : public test::FreshState {
protected:
    void SetUp() override { store.tip_sheet = Bitmap(206, 62, mask_magenta); }
    void TearDown() override { tips = {}; }
    static void put(int x, int y, int value) { row(store.tip_sheet, y)[x] = pack_rgb(value, 0, 0); }
};

TEST_F(TipsTest, CustomTipEndsAtItsRectangleAndCellsBeyondTheSheetHaveNoInk)
{
    clear_to_color(store.tip_sheet, 0);
    const TipCell custom = tip_cell(custom_tip);
    EXPECT_EQ(custom.line(13)[15], 0);
    EXPECT_EQ(custom.line(13)[16], 255);
    EXPECT_EQ(custom.line(14)[15], 255);
    EXPECT_EQ(tip_cell(48).line(1)[0], 0); // rows 60 and 61 are the sheet's last
    EXPECT_EQ(tip_cell(48).line(2)[0], 255);
    EXPECT_EQ(tip_cell(99).line(0)[0], 255);
    EXPECT_EQ(tip_cell(-1).line(7)[8], 255);
}

TEST_F(TipsTest, CursorShowsRimOrOutlineAndReach)
{
    for (int y = 6; y <= 8; ++y) { // a 3 x 3 block round the centre, one arm two pixels longer to the right
        for (int x = 7; x <= 9; ++x)
            put(x, y, 199);
    }
    put(10, 7, 0);
    put(11, 7, 0);
    const test::Legend legend{{'.', 0x000000}, {'#', 0xffffff}};
    const auto middle = [&] {
        std::vector<std::string> lines;
        for (const std::string& line : test::to_text(tips.tip_cursor, legend))
            lines.push_back(line.substr(5, 9));
        return std::vector(lines.begin() + 4, lines.begin() + 11);
    };
    preferences.cursor_tip = 1;
    set_brush_tip(0);
    EXPECT_EQ(middle(), (std::vector<std::string>{".........", ".........", "..###....", "..#..##..", "..###....",
                                                  ".........", "........."}));
    preferences.cursor_tip = 2;
    rebuild_tip_cursor();
    EXPECT_EQ(middle(), (std::vector<std::string>{".........", "..###....", ".#...##..", ".#.....#.", ".#...##..",
                                                  "..###....", "........."}));
    EXPECT_EQ(tips.reach.left, 1);
    EXPECT_EQ(tips.reach.right, 3);
    EXPECT_EQ(tips.reach.up, 1);
    EXPECT_EQ(tips.reach.down, 1);
}

TEST_F(TipsTest, FullSheetLeavesTheCursorEmptyAndBadTipsAreRefused)
{
    clear_to_color(store.tip_sheet, 0);
    preferences.cursor_tip = 1;
    set_brush_tip(14); // a cell with neighbours on all sides
    for (int y = 0; y < tip_cell_h; ++y) {
        for (int x = 0; x < tip_cell_w; ++x)
            EXPECT_EQ(row(tips.tip_cursor, y)[x], 0);
    }
    EXPECT_EQ(tips.reach.left, 8);
    EXPECT_EQ(tips.reach.down, 7);
    set_brush_tip(100);
    EXPECT_EQ(toolbox.brush_tip, 14);
    set_brush_tip(-1);
    EXPECT_EQ(toolbox.brush_tip, -1);
}

} // namespace
} // namespace kelu
