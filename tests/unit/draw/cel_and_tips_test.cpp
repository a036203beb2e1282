// SPDX-License-Identifier: MIT
// The cel as a picture, where it is drawn, and what it leaves in the frame. Cells of the tip sheet, and what the
// pointer takes from them.
#include "draw/cel.h"

#include "base/log.h"
#include "base/run_state.h"
#include "draw/cel_render.h"
#include "draw/ink_rows.h"
#include "draw/tips.h"
#include "draw/touched.h"
#include "draw/undo.h"
#include "runtime/frame_snapshot.h"
#include "runtime/pixels.h"
#include "runtime/preferences.h"
#include "runtime/sheets.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "support/fresh_state.h"
#include "support/pictures.h"
#include "support/pixel_text.h"
#include <array>
#include <gtest/gtest.h>

namespace kelu {
namespace {

using Lines = std::vector<std::string>;

const test::Legend legend{{'.', 0x000000}, {'a', 0xff0000}, {'b', 0x00ff00},    {'c', 0x0000ff},
                          {'d', 0xffff00}, {'n', 0x040404}, {'t', mask_magenta}};

class CelTest : public test::FreshState {
protected:
    void SetUp() override
    {
        screen_state.tool_overlay = Bitmap(logical_w, logical_h, mask_magenta);
        sheets.hatch_tile = Bitmap(tile_side, tile_side, 0xffffff);
        fill_view_tables();
        toolbox.ink_slots[0] = INK_OPAQUE;
    }
    void TearDown() override
    {
        cel_work = {};
        frame_snapshot = {};
        screen_state.tool_overlay.reset();
        sheets = {};
    }

    static void set_frame(const Lines& lines)
    {
        store.frame_bitmap = test::from_text(lines, legend);
        store.coverage_bitmap = Bitmap(store.frame_bitmap.width(), store.frame_bitmap.height());
        touch_frame();
        push_undo(false);
    }
    static void set_cel(const Lines& lines)
    {
        store.cel_source_bitmap = test::from_text(lines, legend);
        store.cel_bitmap = store.cel_source_bitmap.copy();
    }
    static Lines frame() { return test::to_text(store.frame_bitmap, legend); }
    static Lines shown(const Bitmap& bitmap) { return test::to_text(bitmap, legend); }
};

TEST_F(CelTest, MaskTakesWhatIsNearerThanTheTolerance)
{
    for (const auto& [tolerance, masking, masked] : {std::tuple{5, 1, "tta"}, {4, 1, "tna"}, {4, 0, ".na"}}) {
        preferences.cel_tolerance = tolerance;
        preferences.cel_masking = masking;
        const Bitmap picture = test::from_text({".na"}, legend);
        apply_cel_mask(picture, 0x000000);
        EXPECT_EQ(shown(picture), Lines{masked});
    }
}

TEST_F(CelTest, GrabBeyondTheFrameKeepsMagentaThere)
{
    set_frame({"ab", "cd"});
    ASSERT_TRUE(take_cel({1, -1, 2, 1}));
    EXPECT_EQ(shown(store.cel_source_bitmap), (Lines{"tt", "bt", "dt"}));
    EXPECT_EQ(shown(store.cel_bitmap), (Lines{"tt", "bt", "dt"}));
    EXPECT_FALSE(take_cel({0, 0, 40000, 40000}));
    EXPECT_EQ(store.cel_bitmap.width(), 2);
}

TEST_F(CelTest, PictureIsFoundInItsBackground)
{
    const auto found = [](int tolerance) {
        preferences.cel_tolerance = tolerance;
        const CelRect box = find_picture(0x000000);
        return std::array{box.left, box.top, box.right, box.bottom};
    };
    set_frame({"......", "..a...", "n.....", ".....b", "......"});
    EXPECT_EQ(found(5), (std::array{2, 1, 5, 3}));
    EXPECT_EQ(found(1), (std::array{0, 1, 5, 3}));
    set_frame({"..", ".."});
    EXPECT_LT(find_picture(0x000000).width(), 1);
}

TEST_F(CelTest, OneColorKeepsWhatIsWithinTheTolerance)
{
    preferences.cel_tolerance = 4;
    toolbox.brush_color = 0x00ff00;
    Bitmap picture = test::from_text({".nad"}, legend);
    cel_one_color(picture, 0x000000);
    EXPECT_EQ(shown(picture), (Lines{".nbb"}));
}

TEST_F(CelTest, TurnsOfTheTransformWindow)
{
    const auto turned_by = [](void (*change)(BITMAP*, BITMAP*), const Lines& lines) {
        Bitmap picture = test::from_text(lines, legend);
        Bitmap scratch = picture.copy();
        change(picture, scratch);
        EXPECT_EQ(test::to_text(picture, legend), test::to_text(scratch, legend));
        return test::to_text(picture, legend);
    };
    EXPECT_EQ(turned_by(flip_cel, {"ab", "cd"}), (Lines{"cd", "ab"}));
    EXPECT_EQ(turned_by(mirror_cel, {"ab", "cd"}), (Lines{"ba", "dc"}));
    EXPECT_EQ(turned_by(turn_cel, {"ab", "cd"}), (Lines{"ca", "db"}));
    EXPECT_EQ(turned_by(flip_cel, {"at", "cd"}), (Lines{"cd", "ad"})); // magenta leaves what was there
    const Lines wide = turned_by(turn_cel, {"a.....", "a....b"});      // loses its ends, and shows the mirrored picture
    EXPECT_EQ(wide.size(), 2U);
    EXPECT_EQ(wide[1].front(), 'b');
}

TEST_F(CelTest, BelowGoesThroughTheInkWhereTheFrameIsBlack)
{
    set_cel({"at", "cd"});
    set_frame({"bb.", "b..", "..."});
    cel_work.cel_place.x = 1;
    cel_work.cel_place.y = 0;
    commit_cel(CEL_BELOW);
    EXPECT_EQ(frame(), (Lines{"bbt", "bcd", "..."}));
}

class TipsTest : public test::FreshState {
protected:
    void SetUp() override { store.tip_sheet = Bitmap(206, 62, mask_magenta); }
    void TearDown() override { tips = {}; }
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
    // A 3 x 3 block round the centre, one arm two pixels longer to the right.
    rectfill(store.tip_sheet, 7, 6, 9, 8, pack_rgb(199, 0, 0));
    hline(store.tip_sheet, 10, 7, 11, 0);
    const test::Legend letters{{'.', 0x000000}, {'#', 0xffffff}};
    const auto middle = [&] {
        Lines lines;
        for (const std::string& line : test::to_text(tips.tip_cursor, letters))
            lines.push_back(line.substr(5, 9));
        return std::vector(lines.begin() + 4, lines.begin() + 11);
    };
    preferences.cursor_tip = 1;
    set_brush_tip(0);
    EXPECT_EQ(middle(),
              (Lines{".........", ".........", "..###....", "..#..##..", "..###....", ".........", "........."}));
    preferences.cursor_tip = 2;
    rebuild_tip_cursor();
    EXPECT_EQ(middle(),
              (Lines{".........", "..###....", ".#...##..", ".#.....#.", ".#...##..", "..###....", "........."}));
    const auto& [left, right, up, down] = tips.reach;
    EXPECT_EQ((std::array{left, right, up, down}), (std::array{1, 3, 1, 1}));
}

TEST_F(TipsTest, FullSheetLeavesTheCursorEmptyAndBadTipsAreRefused)
{
    clear_to_color(store.tip_sheet, 0);
    preferences.cursor_tip = 1;
    set_brush_tip(14); // a cell with neighbours on all sides
    EXPECT_EQ(test::difference(tips.tip_cursor, Bitmap(tip_cell_w, tip_cell_h)), "");
    EXPECT_EQ(tips.reach.left, 8);
    EXPECT_EQ(tips.reach.down, 7);
    set_brush_tip(100);
    EXPECT_EQ(toolbox.brush_tip, 14);
    set_brush_tip(-1);
    EXPECT_EQ(toolbox.brush_tip, -1);
}

} // namespace
} // namespace kelu
