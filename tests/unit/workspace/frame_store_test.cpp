// SPDX-License-Identifier: MIT
// Swapping frames: what is committed, what is loaded, and what a missing or broken file leaves.
#include "imagefile/png.h"
#include "workspace/frame_store.h"
#include "workspace_fixture.h"

namespace kelu {
using FrameStoreTest = WorkspaceTest;

TEST_F(FrameStoreTest, UnchangedFrameIsNotRewrittenButTheSheetIs)
{
    make_frames(2);
    const auto before = std::filesystem::last_write_time(in_store("current.000"));
    EXPECT_FALSE(exists("current.nal"));
    EXPECT_TRUE(fetch_frame(0, 1, 0));
    EXPECT_EQ(std::filesystem::last_write_time(in_store("current.000")), before);
    EXPECT_TRUE(exists("current.nal"));
}

TEST_F(FrameStoreTest, SameSlotDiscardsTheEdits)
{
    make_frames(1);
    row(store.frame_bitmap, 0)[0] = 0xabcdef;
    push_undo(false);
    EXPECT_TRUE(fetch_frame(0, 0, 0));
    EXPECT_EQ(pixel(store.frame_bitmap), 0x10);
    EXPECT_EQ(stored_pixel(0), frame_color(0));
    EXPECT_EQ(undo.undo_age, all_undo_slots_free);
}

TEST_F(FrameStoreTest, SwapKeepsAlphaEditing)
{
    make_frames(2);
    toggle_alpha_edit();
    row(store.frame_bitmap, 0)[0] = 0x404040;
    EXPECT_TRUE(fetch_frame(0, 1, 0));
    EXPECT_EQ(static_cast<unsigned>(stored_pixel(0)), 0x40000010U);
    EXPECT_EQ(pixel(store.frame_bitmap), 0xffffff);
    EXPECT_EQ(pixel(store.alpha_bitmap), 0x11);
    EXPECT_EQ(pixel(store.nail_sheet, 30, 30), 0x10) << "the thumbnail of the frame that was left, in its colours";
}

TEST_F(FrameStoreTest, AlphaModeTakesTheOnionSkinAlongAndLeavesUndoAlone)
{
    make_frames(2);
    push_undo(false);
    show_onion_skin();
    switch_alpha_mode();
    EXPECT_EQ(store.alpha_edit_mode, 1);
    EXPECT_EQ(view.onion_on, 1);
    EXPECT_EQ(pixel(store.onion_bitmap), 0xffffff);
    switch_alpha_mode();
    EXPECT_EQ(pixel(store.onion_bitmap) & 0xffffff, 0x11);
    view.onion_on = 0;
    switch_alpha_mode();
    EXPECT_FALSE(store.onion_bitmap);
    undo_step(); // the copy of the colours comes back into the frame, whose role is now the alpha
    EXPECT_EQ(pixel(store.frame_bitmap), 0x10);
}

TEST_F(FrameStoreTest, SlotOutOfRangeChangesNothing)
{
    make_frames(1);
    row(store.frame_bitmap, 0)[0] = 0xabcdef;
    EXPECT_FALSE(fetch_frame(0, 1, 0));
    EXPECT_FALSE(fetch_frame(0, -1, 1));
    EXPECT_TRUE(logged("[ ERROR ] : New_frame OOB in call to fetch_frame! slot = -1"));
    EXPECT_EQ(pixel(store.frame_bitmap), 0xabcdef);
    EXPECT_EQ(stored_pixel(0), frame_color(0));
}

TEST_F(FrameStoreTest, BrokenFrameIsKeptAndReplacedByABlankOne)
{
    make_frames(3);
    folder.put("WORKSPACE/current.001", "not a picture");
    EXPECT_TRUE(fetch_frame(0, 1, 0));
    EXPECT_EQ(store.current_frame, 1);
    EXPECT_EQ(store.frame_bitmap.width(), 8); // the size of the frame that was left
    EXPECT_EQ(store.frame_bitmap.height(), 6);
    EXPECT_EQ(pixel(store.frame_bitmap), 0);
    EXPECT_EQ(run_state.workspace_damaged, 1);
    EXPECT_EQ(bytes("damaged.001"), "not a picture");
    EXPECT_EQ(stored_pixel(1), opaque);

    EXPECT_TRUE(fetch_frame(1, 0, 0));
    folder.put("WORKSPACE/current.001", "again"); // a second one doesn't take the first one's place
    EXPECT_TRUE(fetch_frame(0, 1, 0));
    EXPECT_EQ(bytes("damaged.001"), "not a picture");
    EXPECT_EQ(bytes("damaged.001.1"), "again");
}

TEST_F(FrameStoreTest, MissingAndTooSmallFramesBecomeBlank)
{
    make_frames(2);
    std::filesystem::remove(in_store("current.001"));
    EXPECT_TRUE(fetch_frame(0, 1, 0));
    EXPECT_TRUE(logged("[ ERROR ] : Tried to load non-existent file! Name = current.001"));
    EXPECT_EQ(stored_pixel(1), opaque);
    EXPECT_FALSE(exists("damaged.001"));
    put_frame(0, opaque | 5, 1, 9); // narrower than a frame may be
    EXPECT_TRUE(fetch_frame(1, 0, 0));
    EXPECT_TRUE(exists("damaged.000"));
    EXPECT_EQ(store.frame_bitmap.width(), 8);
}

TEST_F(FrameStoreTest, PictureOfAnotherProgramKeepsTheRestorationCopy)
{
    make_frames(1);
    ASSERT_EQ(save_png("picture", Bitmap(4, 3, 0x40000033)), 0);
    EXPECT_TRUE(load_frame_file("picture", LOAD_PICTURE, FORMAT_PNG));
    EXPECT_EQ(store.frame_bitmap.width(), 4);
    EXPECT_EQ(store.coverage_bitmap.width(), 4);
    EXPECT_EQ(pixel(store.frame_bitmap), 0x33);
    EXPECT_EQ(pixel(store.alpha_bitmap), 0x404040);
    EXPECT_EQ(pixel(store.restoration_bitmap), frame_color(0));
    EXPECT_FALSE(load_frame_file("picture", LOAD_PICTURE, FORMAT_GIF)); // one that can't be read
    EXPECT_FALSE(load_frame_file("missing", LOAD_PICTURE, FORMAT_PNG));
    EXPECT_EQ(pixel(store.frame_bitmap), 0x33);
}

TEST_F(FrameStoreTest, BackdropFollowsTheLightnessOfSmallFrames)
{
    ASSERT_TRUE(adopt_picture(Bitmap(8, 8, opaque | 0xaa0202), true)); // (170 + 2) / 2 = 86
    EXPECT_EQ(view.backdrop, 1);
    ASSERT_TRUE(adopt_picture(Bitmap(8, 8, opaque | 0xaa0101), true));
    EXPECT_EQ(view.backdrop, 0);
    ASSERT_TRUE(adopt_picture(Bitmap(8, 8, opaque | 0xffffff), true));
    EXPECT_EQ(view.backdrop, 2);
    ASSERT_TRUE(adopt_picture(Bitmap(320, 240, opaque), true)); // nothing shows round a frame that fills the screen
    EXPECT_EQ(view.backdrop, 2);
    EXPECT_FALSE(adopt_picture(Bitmap(), true));
}

} // namespace kelu
