// SPDX-License-Identifier: MIT
// Deleting frames, and what belongs to a frame whose number changes by hand.
#include "workspace/change_set.h"
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
};

using Order = std::vector<int>;

} // namespace

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

TEST_F(FrameOrderTest, ARecordOfAChangeReachesNoFileOutsideTheStore)
{
    make_frames(2);
    folder.put("mine", "KEPT");
    folder.put("WORKSPACE/next.list", "take ../mine current.001\nremove ../mine\nremove current.001\n");
    const platform::DirectoryVisit visit("WORKSPACE");
    EXPECT_TRUE(finish_changes());
    EXPECT_EQ(folder.text("mine"), "KEPT");
    EXPECT_FALSE(platform::file_exists("current.001"));
    EXPECT_FALSE(platform::file_exists("next.list"));
}

} // namespace kelu
