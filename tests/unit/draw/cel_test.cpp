// SPDX-License-Identifier: MIT
// The cel as a picture, where it is drawn, and what it leaves in the frame.
#include "draw/cel.h"

#include "base/log.h"
#include "base/run_state.h"
#include "draw/cel_render.h"
#include "draw/ink_rows.h"
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
#include "support/pixel_text.h"
#include <algorithm>
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
    preferences.cel_tolerance = 5;
    Bitmap picture = test::from_text({".na"}, legend);
    apply_cel_mask(picture, 0x000000);
    EXPECT_EQ(shown(picture), (Lines{"tta"}));
    preferences.cel_tolerance = 4;
    picture = test::from_text({".na"}, legend);
    apply_cel_mask(picture, 0x000000);
    EXPECT_EQ(shown(picture), (Lines{"tna"}));
    preferences.cel_masking = 0;
    picture = test::from_text({".na"}, legend);
    apply_cel_mask(picture, 0x000000);
    EXPECT_EQ(shown(picture), (Lines{".na"}));
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
    set_frame({"......", "..a...", "n.....", ".....b", "......"});
    preferences.cel_tolerance = 5;
    CelRect box = find_picture(0x000000);
    EXPECT_EQ((std::array{box.left, box.top, box.right, box.bottom}), (std::array{2, 1, 5, 3}));
    preferences.cel_tolerance = 1;
    box = find_picture(0x000000);
    EXPECT_EQ((std::array{box.left, box.top, box.right, box.bottom}), (std::array{0, 1, 5, 3}));
    set_frame({"..", ".."});
    box = find_picture(0x000000);
    EXPECT_LT(box.width(), 1);
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

TEST_F(CelTest, PlainAndBelowGoThroughTheInk)
{
    set_cel({"at", "cd"});
    set_frame({"bb.", "b..", "..."});
    cel_work.cel_place.x = 0;
    cel_work.cel_place.y = 0;
    commit_cel(CEL_PLAIN);
    EXPECT_EQ(frame(), (Lines{"ab.", "cd.", "..."}));
    set_frame({"bb.", "b..", "..."});
    cel_work.cel_place.x = 1;
    commit_cel(CEL_BELOW);
    EXPECT_EQ(frame(), (Lines{"bbt", "bcd", "..."}));
}

} // namespace
} // namespace kelu
