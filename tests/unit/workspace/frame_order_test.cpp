// SPDX-License-Identifier: MIT
// Adding, deleting and importing frames, and changes of several files: what belongs to a frame follows its number, and
// what can't be done leaves everything as it was.
#include "support/pictures.h"
#include "workspace/change_set.h"
#include "workspace/frame_import.h"
#include "workspace_fixture.h"

namespace kelu {
namespace {

class FrameOrderTest : public WorkspaceTest {
protected:
    /// Colours of the stored frames, as distances from the colour of frame 0; -1 for a black one.
    std::vector<int> order() const
    {
        std::vector<int> colors;
        colors.reserve(static_cast<std::size_t>(store.frame_count));
        for (int i = 0; i < store.frame_count; ++i)
            colors.push_back(std::max(-1, (stored_pixel(i) & 0xffffff) - 0x10));
        return colors;
    }
};

} // namespace

TEST_F(FrameOrderTest, DeleteClosesTheGapAndDiscardsTheEdits)
{
    make_frames(4);
    ASSERT_TRUE(fetch_frame(0, 1, 0));
    row(store.frame_bitmap, 0)[0] = 0xabcdef;
    view.frame_zoom[2] = 3;
    animation.anim_tag[1] = animation.anim_tag[3] = 1;
    fill_frame_cache();
    EXPECT_FALSE(logged("Cache maintenance requested")) << "there is room";
    protect_file("current.001");
    delete_frames(1, 1);
    EXPECT_FALSE(file_protected("current.001")) << "the file of that name is another one";
    EXPECT_FALSE(cached_frame(1)) << "the picture of the frame that went";
    EXPECT_EQ(pixel(cached_frame(2)) & 0xffffff, 0x13);
    EXPECT_EQ(order(), (std::vector{0, 2, 3}));
    EXPECT_FALSE(exists("current.003"));
    EXPECT_EQ(store.current_frame, 1); // keeps its number, shows the next frame
    EXPECT_EQ(row(store.frame_bitmap, 0)[0], 0x12);
    EXPECT_EQ(view.frame_zoom[1], 3);

    ASSERT_TRUE(fetch_frame(1, 2, 0));
    view.frame_zoom[2] = 4;
    view.onion_on = 1;
    store.onion_bitmap = Bitmap(2, 2);
    delete_frames(2, 1); // the last one: to the new last one
    EXPECT_EQ(view.onion_on, 1);
    EXPECT_EQ(store.current_frame, 1);
    EXPECT_EQ(view.frame_zoom[2], 1) << "of no frame that comes later";
    EXPECT_EQ(order(), (std::vector{0, 2}));
    delete_frames(1, 1);
    EXPECT_EQ(store.current_frame, 0);
    EXPECT_EQ(view.onion_on, 0);
    EXPECT_FALSE(store.onion_bitmap);

    delete_frames(0, 1);
    EXPECT_EQ(told, (std::vector<int>{TEXT_FRAME_CANT_BE_DELETED}));
    EXPECT_EQ(order(), (std::vector{0}));
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
    EXPECT_EQ(order(), (std::vector{0, 2, 3}));
    EXPECT_EQ(store.current_frame, 2);
    EXPECT_EQ(view.frame_pan_x[1], 20);
    EXPECT_EQ(view.frame_pan_x[2], 30);
    EXPECT_EQ(animation.anim_tag[2], 1);
    EXPECT_EQ(animation.anim_delay[1], 2);
    EXPECT_EQ(pixel(store.nail_sheet, nail_x(1) + 9, 9), 0x12);
    EXPECT_EQ(run_state.workspace_damaged, 1);
    EXPECT_EQ(animation.anim_tag[3], 0) << "the next frame that is added begins without";
    EXPECT_EQ(animation.anim_delay[3], 0);
    std::filesystem::remove(in_store("current.002")); // the current one
    EXPECT_EQ(read_state(), 1);
    EXPECT_EQ(order(), (std::vector{0, 2}));
    EXPECT_EQ(pixel(store.frame_bitmap), 0x12);
}

TEST_F(FrameOrderTest, NumbersThatCannotBeChangeNothing)
{
    make_frames(3);
    for (const auto& [start, count] :
         {std::pair{-1, 1}, {max_frames, 1}, {max_frames - 1, 1}, {0, 0}, {0, -1}, {0, max_frames - 2}})
        insert_frames(start, count, INSERT_BLANKS);
    EXPECT_EQ(store.frame_count, 3);
    for (const auto& [start, count] : {std::pair{-1, 1}, {max_frames, 1}, {3, 1}, {0, 0}, {0, -1}, {0, 3}, {2, 2}})
        delete_frames(start, count);
    EXPECT_EQ(order(), (std::vector{0, 1, 2}));
    EXPECT_FALSE(exists("current.003"));
    EXPECT_TRUE(fetch_frame(0, 2, 0));
    delete_frames(0, 1);
    EXPECT_EQ(store.current_frame, 0) << "no number is below the first";
}

TEST_F(FrameOrderTest, WhatCannotBeWrittenLeavesEverythingInMemoryAsItWas)
{
    make_frames(3);
    ASSERT_TRUE(fetch_frame(0, 1, 0));
    animation.anim_tag[0] = animation.anim_tag[2] = 1;
    view.frame_zoom[2] = view.frame_pan_x[2] = view.frame_pan_y[2] = animation.anim_delay[2] = 5;
    view.pan_x = view.pan_y = -25;
    view.zoom = 3;
    fill_frame_cache();
    const Bytes state = workspace_state_bytes();
    const Bitmap nails = store.nail_sheet.copy();
    EXPECT_TRUE(cached_frame(0) && cached_frame(2));
    const auto place = in_store("current.003");
    const auto fails = [&](const char* file, void (*change)()) {
        const auto barrier = in_store(".next." + std::string(file) + ".kelu-new");
        std::filesystem::create_directory(barrier);
        change();
        std::filesystem::remove(barrier);
        EXPECT_TRUE(workspace_state_bytes() == state);
        EXPECT_EQ(test::difference(store.nail_sheet, nails), "");
        EXPECT_FALSE(cached_frame(2) || cached_frame(3)) << "its number may be wrong";
        EXPECT_TRUE(reported().starts_with("THE FRAME COULDN'T BE SAVED! current.001 "));
    };
    fails("nal", [] { insert_frames(0, 1, INSERT_CLONES); });
    fails("spa", [] { delete_frames(1, 1); });
    fails("list", [] { EXPECT_FALSE(append_frame(Bitmap(5, 5, frame_color(7)))); });
    EXPECT_EQ(order(), (std::vector{0, 1, 2}));
    std::filesystem::create_directories(place / "of the user's");
    EXPECT_FALSE(append_frame(Bitmap(5, 5, frame_color(7))));
    EXPECT_TRUE(workspace_state_bytes() == state);
    EXPECT_TRUE(reported().ends_with(" A FOLDER IS IN THE WAY\n"));
    std::filesystem::remove_all(place);
    view.frame_zoom[3] = view.frame_pan_x[3] = view.frame_pan_y[3] = 9;
    EXPECT_TRUE(append_frame(Bitmap(5, 5, frame_color(7))));
    EXPECT_EQ(order(), (std::vector{0, 1, 2, 7}));
    EXPECT_TRUE(view.frame_zoom[3] == 1 && view.frame_pan_x[3] == 0 && view.frame_pan_y[3] == 0);
    EXPECT_EQ(pixel(store.nail_sheet, nail_x(3) + 9, 9), 0x17);
}

TEST_F(FrameOrderTest, PicturesTooNarrowForAFrameAreWidened)
{
    make_frames(1);
    {
        FrameImport import;
        EXPECT_TRUE(import.add(Bitmap(1, 60, frame_color(1))));
        EXPECT_TRUE(import.add(Bitmap(60, 1, frame_color(2))));
        EXPECT_TRUE(import.commit({5, 6}));
    }
    EXPECT_EQ(order(), (std::vector{0, 1, 2}));
    for (const auto& [frame, w, h] : {std::tuple{1, 2, 60}, {2, 60, 2}}) {
        EXPECT_TRUE(fetch_frame(store.current_frame, frame, 0));
        EXPECT_EQ(std::pair(store.frame_bitmap.width(), store.frame_bitmap.height()), std::pair(w, h));
        EXPECT_EQ(pixel(store.frame_bitmap, w == 2 ? 0 : w - 1, h == 2 ? 0 : h - 1), 0x10 + frame);
        EXPECT_EQ(pixel(store.alpha_bitmap, w - 1, h - 1), 0) << "what was added is nothing";
    }
    EXPECT_EQ(run_state.workspace_damaged, 0);
    EXPECT_EQ(pixel(store.nail_sheet, nail_x(1) + 9, 39), 0x11) << "the left half of the cell";
    EXPECT_EQ(pixel(store.nail_sheet, nail_x(2) + 39, 9), 0x12);
    EXPECT_EQ(animation.anim_count, 2);
    EXPECT_EQ(animation.anim_delay[2], 6);
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

TEST_F(FrameOrderTest, NoFrameIsWrittenWhileAChangeWaits)
{
    make_frames(1);
    const platform::DirectoryVisit visit("WORKSPACE");
    {
        ChangeSet changes;
        EXPECT_TRUE(changes.stage_copy("current.000", "current.000"));
        std::filesystem::remove("current.000");
        std::filesystem::create_directories("current.000/in the way");
        EXPECT_TRUE(changes.commit()) << "it is decided";
    }
    EXPECT_TRUE(change_waits());
    std::filesystem::create_directory("aside");
    for (const char* name : {"next.list", "next.000"})
        std::filesystem::rename(name, std::string("aside/") + name);
    EXPECT_TRUE(finish_changes() && !change_waits()) << "somebody has taken it away";
    for (const char* name : {"next.list", "next.000"})
        std::filesystem::rename(std::string("aside/") + name, name);
    EXPECT_FALSE(finish_changes());
    EXPECT_TRUE(change_waits()) << "as at a start";
    EXPECT_FALSE(write_frame(1)) << "it would be written over";
    EXPECT_FALSE(fetch_frame(0, 0, 0));
    std::filesystem::remove_all("current.000");
    EXPECT_TRUE(fetch_frame(0, 0, 0)) << "the next try goes on with it";
    EXPECT_FALSE(change_waits());
    EXPECT_EQ(stored_pixel(0), frame_color(0));
}

} // namespace kelu
