// SPDX-License-Identifier: MIT
// Other sizes of the frame: scaled, placed by an anchor, cut out; frame and alpha together.
#include "workspace/frame_resize.h"

#include "gui/tooltips.h"
#include "support/pixel_text.h"
#include "workspace_fixture.h"

namespace kelu {
namespace {

using Lines = std::vector<std::string>;

const test::Legend legend{{'.', 0x000000}, {'#', 0xffffff}, {'m', 0x0000ff}, {'a', 0x101010}, {'b', 0x202020},
                          {'c', 0x303030}, {'d', 0x404040}, {'e', 0x505050}, {'f', 0x606060}, {'-', 0x808080}};

class FrameResizeTest : public WorkspaceTest {
protected:
    /// Gives the live frame these colours and a half transparent alpha.
    static void set_frame(const Lines& lines)
    {
        store.alpha_edit_mode = 0;
        store.frame_bitmap = test::from_text(lines, legend);
        store.alpha_bitmap = Bitmap(store.frame_bitmap.width(), store.frame_bitmap.height(), 0x808080);
        reset_undo_slots();
        push_undo(false);
    }
    static Lines frame() { return test::to_text(store.frame_bitmap, legend); }
    static Lines alpha() { return test::to_text(store.alpha_bitmap, legend); }
};

} // namespace

TEST_F(FrameResizeTest, AnchorsKeepTheirPointInSmallerAndLargerFrames)
{
    const Lines whole{"abc", "def", "abc"};
    const std::array<Lines, anchors> smaller{Lines{"ab", "de"}, {"ab", "de"}, {"bc", "ef"}, {"ab", "de"}, {"ab", "de"},
                                             {"bc", "ef"},      {"de", "ab"}, {"de", "ab"}, {"ef", "bc"}};
    for (int anchor = 0; anchor < anchors; ++anchor) {
        set_frame(whole);
        ASSERT_TRUE(resize_frame(0, 2, 2, anchor, 0));
        EXPECT_EQ(frame(), smaller[static_cast<std::size_t>(anchor)]) << anchor;
    }
    set_frame({"ab", "de"});
    resize_frame(0, 4, 4, 4, 0);
    EXPECT_EQ(frame(), (Lines{"....", ".ab.", ".de.", "...."}));
    EXPECT_EQ(alpha(), (Lines{"####", "#--#", "#--#", "####"})) << "what is new is opaque";
    EXPECT_EQ(store.coverage_bitmap.width(), 4);
    set_frame({"ab", "de"});
    resize_frame(0, 3, 3, 8, 0);
    EXPECT_EQ(frame(), (Lines{"...", ".ab", ".de"}));
    set_frame(whole);
    resize_frame(0, 5, 2, 5, 0);
    EXPECT_EQ(frame(), (Lines{"..abc", "..def"})) << "wider and lower";
}

TEST_F(FrameResizeTest, ScalingAveragesOnlyWhenBothSidesShrink)
{
    set_frame({"aacc", "aacc", "eeaa", "eeaa"});
    ASSERT_TRUE(resize_frame(0, 2, 2, 8, 1));
    EXPECT_EQ(frame(), (Lines{"ac", "ea"}));
    set_frame({"acac", "acac", "acac"});
    resize_frame(0, 2, 2, 0, 1);
    EXPECT_EQ(frame(), (Lines{"bb", "bb"})) << "means";
    EXPECT_EQ(alpha(), (Lines{"--", "--"}));
    set_frame({"acac", "acac", "acac"});
    resize_frame(0, 2, 3, 0, 1);
    EXPECT_EQ(frame(), (Lines{"aa", "aa", "aa"})) << "samples";
    set_frame({"ab", "de"});
    resize_frame(0, 4, 2, 0, 1);
    EXPECT_EQ(frame(), (Lines{"aabb", "ddee"}));
    EXPECT_EQ(alpha(), (Lines{"----", "----"}));
}

TEST_F(FrameResizeTest, CropFillsWhatLiesBeyondTheFrameAndKeepsTheUndoQueue)
{
    toolbox.mask_color = 0x0000ff;
    set_frame({"abc", "def"});
    ASSERT_TRUE(crop_frame(1, 1, 3, 2));
    EXPECT_EQ(frame(), (Lines{"efm", "mmm"}));
    EXPECT_EQ(alpha(), (Lines{"--#", "###"}));
    EXPECT_EQ(undo.undo_age[0], undo_slot_newest);
    set_frame({"ab", "de"});
    toggle_alpha_edit();
    ASSERT_TRUE(crop_frame(-1, 0, 2, 2));
    EXPECT_EQ(frame(), (Lines{"#-", "#-"})) << "the alpha picture is what the tools see";
    EXPECT_EQ(alpha(), (Lines{"ma", "md"}));
    resize_frame(0, 3, 2, 2, 0);
    EXPECT_EQ(frame(), (Lines{"##-", "##-"}));
    EXPECT_EQ(alpha(), (Lines{".ma", ".md"}));
    EXPECT_EQ(undo.undo_age[0], undo_slot_free) << "a resize empties the queue";
}

TEST_F(FrameResizeTest, SizesThatCannotBeHadChangeNothing)
{
    set_frame({"ab", "de"});
    EXPECT_FALSE(resize_frame(0, 1, 5, 0, 0));
    EXPECT_FALSE(crop_frame(0, 0, 5, 1));
    EXPECT_EQ(menus.status_message, TIP_NONE);
    EXPECT_FALSE(resize_frame(0, max_bitmap_side, max_bitmap_side, 0, 1));
    EXPECT_EQ(menus.status_message, TIP_PICTURE_TOO_LARGE);
    EXPECT_FALSE(resize_frame(1, 5, 5, 0, 0)) << "not the frame in memory";
    EXPECT_FALSE(resize_frame(0, 5, 5, anchors, 0));
    EXPECT_EQ(frame(), (Lines{"ab", "de"}));
    EXPECT_EQ(undo.undo_age[0], undo_slot_newest);
    EXPECT_TRUE(logged("[ ERROR ] : The frame can't be resized! w = 32767, h = 32767"));
}

} // namespace kelu
