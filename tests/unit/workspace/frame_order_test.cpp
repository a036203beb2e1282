// SPDX-License-Identifier: MIT
// Adding and deleting frames: files, views, thumbnails, cache and the refusals.

#include "workspace/repair.h"
#include "workspace_fixture.h"

namespace kelu {
namespace {

class FrameOrderTest : public WorkspaceTest {
protected:
    /// Colours of the stored frames, as distances from the colour of frame 0; -1 for a black one.
    std::vector<int> order() const
    {
        std::vector<int> colors;
        for (int i = 0; i < store.frame_count; ++i)
            colors.push_back(std::max(-1, (stored_pixel(i) & 0xffffff) - 0x10));
        return colors;
    }
    static int nail(int frame) { return row(store.nail_sheet, nail_y(frame) + 3)[nail_x(frame) + 3]; }
};

using Order = std::vector<int>;

} // namespace

TEST_F(FrameOrderTest, CloneOpensBehindAndTakesTheLivePicture)
{
    make_frames(3);
    view.frame_zoom[0] = 2, view.frame_zoom[1] = 3, view.frame_zoom[2] = 4;
    row(store.frame_bitmap, 0)[0] = 0x10 + 9; // not committed yet
    draw_nail(0);
    draw_nail(2);
    insert_frames(0, 1, INSERT_CLONES);
    EXPECT_EQ(store.frame_count, 4);
    EXPECT_EQ(order(), (Order{0, 9, 1, 2}));
    EXPECT_EQ(store.current_frame, 0);
    EXPECT_EQ(view.frame_zoom[1], 2);
    EXPECT_EQ(view.frame_zoom[2], 3);
    EXPECT_EQ(view.frame_zoom[3], 4);
    EXPECT_EQ(nail(1), nail(0));
    EXPECT_EQ(nail(2), 0); // the old cell 1
    EXPECT_TRUE(exists("current.nal"));
    EXPECT_EQ(platform::working_directory(), run_state.program_dir);
}

TEST_F(FrameOrderTest, DeleteClosesTheGapAndDiscardsTheEdits)
{
    make_frames(4);
    ASSERT_TRUE(fetch_frame(0, 1, 0));
    row(store.frame_bitmap, 0)[0] = 0xabcdef;
    view.frame_zoom[2] = 3;
    delete_frames(1, 1);
    EXPECT_EQ(order(), (Order{0, 2, 3}));
    EXPECT_FALSE(exists("current.003"));
    EXPECT_EQ(store.current_frame, 1); // keeps its number, shows the next frame
    EXPECT_EQ(row(store.frame_bitmap, 0)[0], 0x12);
    EXPECT_EQ(view.frame_zoom[1], 3);

    ASSERT_TRUE(fetch_frame(1, 2, 0));
    delete_frames(2, 1); // the last one: to the new last one
    EXPECT_EQ(store.current_frame, 1);
    EXPECT_EQ(order(), (Order{0, 2}));
    view.onion_on = 1;
    store.onion_bitmap = Bitmap(2, 2);
    delete_frames(1, 1);
    EXPECT_EQ(store.current_frame, 0);
    EXPECT_EQ(view.onion_on, 0);
    EXPECT_FALSE(store.onion_bitmap);

    delete_frames(0, 1);
    EXPECT_EQ(told, (std::vector<int>{TEXT_FRAME_CANT_BE_DELETED}));
    EXPECT_EQ(order(), (Order{0}));
}

TEST_F(FrameOrderTest, CachedFramesTakeTagAndDelayAlong)
{
    make_frames(4);
    for (const std::size_t i : {1U, 3U}) {
        animation.anim_tag[i] = 1;
        animation.anim_delay[i] = static_cast<int>(10 * i);
    }
    build_anim_list();
    fill_frame_cache();
    EXPECT_EQ(row(cached_frame(3), 0)[0], frame_color(3));
    insert_frames(0, 1, INSERT_BLANKS);
    EXPECT_EQ(animation.anim_tag[2], 1);
    EXPECT_EQ(animation.anim_delay[4], 30);
    EXPECT_EQ(animation.anim_tag[1], 0);
    EXPECT_EQ(animation.anim_count, 2);
    EXPECT_EQ(animation.anim_list[1], 4);
    EXPECT_EQ(row(cached_frame(4), 0)[0], frame_color(3));

    // The deleted frame's picture goes, and that of the frame behind it takes the number.
    ASSERT_TRUE(fetch_frame(0, 2, 0));
    delete_frames(2, 1);
    EXPECT_EQ(row(cached_frame(3), 0)[0], frame_color(3));
    EXPECT_FALSE(cached_frame(2));
    EXPECT_EQ(animation.anim_tag[3], 1);

    // A frame that isn't cached leaves its tag where it was.
    clear_frame_cache();
    insert_frames(0, 1, INSERT_BLANKS);
    EXPECT_EQ(animation.anim_tag[3], 1);
    EXPECT_EQ(animation.anim_tag[4], 0);
}

TEST_F(FrameOrderTest, RangesAreRefused)
{
    make_frames(2);
    const auto insert = [](int start, int count) { insert_frames(start, count, INSERT_BLANKS); };
    struct Refusal {
        void (*change)(int start, int count);
        int start, count;
        const char* line;
    };
    for (const auto& [change, start, count, line] :
         {Refusal{insert, 100, 1, "Starting point OOB in call to insert_frames! start = 100"},
          {insert, 99, 1, "Frame count OOB in call to insert_frames! num_frames = 1"},
          {insert, 0, 0, "Frame count OOB in call to insert_frames! num_frames = 0"},
          {delete_frames, 100, 1, "Starting point OOB in call to delete_frames! start = 100"},
          {delete_frames, 99, 1, "Frame count OOB in call to delete_frames! num_frames = 1"}}) {
        change(start, count);
        EXPECT_TRUE(logged(std::string("[ ERROR ] : ") + line));
    }
    EXPECT_EQ(order(), (Order{0, 1}));
    store.frame_count = 100;
    insert_frames(0, 1, INSERT_BLANKS);
    EXPECT_EQ(told, (std::vector<int>{TEXT_CANT_ADD_FRAMES}));
}

TEST_F(FrameOrderTest, LastFreeNumberCanBeFilled)
{
    make_frames(99);
    ASSERT_TRUE(fetch_frame(0, 98, 0));
    insert_frames(98, 1, INSERT_BLANKS);
    EXPECT_EQ(store.frame_count, 100);
    EXPECT_EQ(stored_pixel(99), opaque);
}

TEST_F(FrameOrderTest, FailedInsertPutsTheFramesBack)
{
    make_frames(3);
    std::filesystem::create_directory(in_store(".next.001.kelu-new")); // no way to write the new frame beside
    insert_frames(0, 1, INSERT_BLANKS);
    EXPECT_EQ(store.frame_count, 3);
    EXPECT_EQ(order(), (Order{0, 1, 2}));
    EXPECT_FALSE(exists("current.003"));
    EXPECT_TRUE(reported().starts_with("THE FRAME COULDN'T BE SAVED! current.000 "));
}

TEST_F(FrameOrderTest, TheTablesOnDiskHaveTheNumbersOfTheFiles)
{
    const auto views_on_disk = [this] {
        view = {};
        store.frame_count = 0;
        const platform::DirectoryVisit visit("WORKSPACE");
        EXPECT_EQ(read_workspace_state("current.spa"), 1);
        return std::vector<int>(view.frame_pan_x.begin(), view.frame_pan_x.begin() + store.frame_count);
    };
    make_frames(4);
    for (int i = 0; i < 4; ++i) {
        view.frame_pan_x[static_cast<std::size_t>(i)] = 10 * i;
        rectfill(store.nail_sheet, nail_x(i), 0, nail_x(i) + 39, 39, 0x10 + i);
    }
    const auto frame_of_nail = [](int i) { return pixel(store.nail_sheet, nail_x(i) + 9, 9) - 0x10; };
    // The program ends before its caller writes the state.
    insert_frames(1, 1, INSERT_BLANKS);
    EXPECT_EQ(views_on_disk(),
              (std::vector<int>{0, 10, 10, 20, 30})); // the frame inserted has the view of the one before
    EXPECT_EQ(frame_of_nail(3), 2);
    delete_frames(2, 1);
    EXPECT_EQ(views_on_disk(), (std::vector<int>{0, 10, 20, 30}));
    EXPECT_EQ(frame_of_nail(2), 2);
}

TEST_F(FrameOrderTest, WhatBelongsToAFrameFollowsItIntoAGap)
{
    make_frames(4);
    for (std::size_t i = 0; i < 4; ++i) {
        view.frame_pan_x[i] = static_cast<int>(10 * i);
        animation.anim_tag[i] = i == 3;
        animation.anim_delay[i] = static_cast<int>(i);
        rectfill(store.nail_sheet, nail_x(static_cast<int>(i)), 0, nail_x(static_cast<int>(i)) + 39, 39,
                 static_cast<int>(0x10 + i));
    }
    ASSERT_TRUE(fetch_frame(0, 3, 0));
    write_workspace_state("current.spa", false);
    std::filesystem::remove(in_store("current.001")); // by hand
    {
        const platform::DirectoryVisit visit("WORKSPACE");
        EXPECT_EQ(read_workspace_state("current.spa"), 1);
    }
    EXPECT_EQ(order(), (Order{0, 2, 3}));
    EXPECT_EQ(store.current_frame, 2);
    EXPECT_EQ(view.frame_pan_x[1], 20);
    EXPECT_EQ(view.frame_pan_x[2], 30);
    EXPECT_EQ(animation.anim_tag[2], 1);
    EXPECT_EQ(animation.anim_delay[1], 2);
    EXPECT_EQ(pixel(store.nail_sheet, nail_x(1) + 9, 9), 0x12);
}

TEST_F(FrameOrderTest, GapsOfAnInterruptedRunAreClosed)
{
    make_frames(5);
    std::filesystem::rename(in_store("current.004"), in_store("current.005")); // killed in the middle of an insert
    std::filesystem::remove(in_store("current.001"));                          // or of a delete
    const platform::DirectoryVisit visit("WORKSPACE");
    EXPECT_EQ(close_frame_gaps(4), 4);
    store.frame_count = 4;
    EXPECT_EQ(order(), (Order{0, 2, 3, 4}));
    EXPECT_EQ(count_workspace_frames(), 4);
}

} // namespace kelu
