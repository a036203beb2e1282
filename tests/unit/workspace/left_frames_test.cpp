// SPDX-License-Identifier: MIT
// Frames that are left are written behind the user's back: whatever fails, and wherever the program ends, nothing of
// them is lost.
#include "running_work_fixture.h"
#include "workspace/frame_resize.h"
#include <iostream>

namespace kelu {

TEST_F(RunningWorkTest, AFrameThatIsLeftIsWrittenBehindTheBack)
{
    box(20, 0xff8040);
    const Bitmap painted = merged_frame();
    ASSERT_TRUE(fetch_frame(0, 1, 0));
    ASSERT_TRUE(fetch_frame(1, 0, 0)) << "whoever reads it waits for it";
    EXPECT_TRUE(same(merged_frame(), painted));
    EXPECT_FALSE(frame_changed());
    EXPECT_TRUE(settle_running_work());
    EXPECT_EQ(stored_pixel(0), frame_color(0));
    EXPECT_FALSE(exists("journal.000"));
    EXPECT_TRUE(exists("current.nal"));

    box(100, 0x123456); // in alpha editing, too
    toggle_alpha_edit();
    box(60, 0x404040);
    const Bitmap with_alpha = merged_frame();
    ASSERT_TRUE(fetch_frame(0, 2, 0));
    ASSERT_TRUE(settle_running_work());
    ASSERT_TRUE(fetch_frame(2, 0, 0));
    EXPECT_TRUE(same(merged_frame(), with_alpha));
}

TEST_F(RunningWorkTest, AFrameWhoseFileCantBeWrittenIsTriedAgainAndComesBack)
{
    box(20, 0xff8040);
    settle_running_work();
    const Bitmap painted = merged_frame();
    const auto file = in_store("current.000");
    std::filesystem::rename(file, file.string() + ".kept");
    std::filesystem::create_directory(file);
    ASSERT_TRUE(fetch_frame(0, 1, 0));
    EXPECT_FALSE(settle_running_work());
    keep_running_work();
    EXPECT_TRUE(take_failure_report()) << "told";
    EXPECT_TRUE(exists("journal.000")) << "covered meanwhile";
    EXPECT_FALSE(write_workspace_state("current.spa", false)) << "nobody leaves without a word";
    ASSERT_TRUE(fetch_frame(1, 0, 0));
    EXPECT_TRUE(same(merged_frame(), painted));
    EXPECT_TRUE(frame_changed());
    box(100, 0x304050);
    const Bitmap more = merged_frame();
    ASSERT_TRUE(fetch_frame(0, 1, 0));
    ASSERT_TRUE(settle_running_work());
    EXPECT_TRUE(same(read_tga(file.string()), more));
    EXPECT_FALSE(exists("journal.000"));
}

TEST_F(RunningWorkTest, AnEndBeforeTheCommitLosesNothing)
{
    const auto keep = [this](const char* name) { std::filesystem::copy_file(in_store(name), folder.path() / name); };
    const auto put_back = [this](const char* name) {
        std::filesystem::copy_file(folder.path() / name, in_store(name),
                                   std::filesystem::copy_options::overwrite_existing);
    };
    box(20, 0xff8040);
    settle_running_work();
    const Bitmap painted = merged_frame();
    for (const char* name : {"current.000", "journal.000"})
        keep(name);
    ASSERT_TRUE(fetch_frame(0, 1, 0));
    box(50, 0x40ff80);
    settle_running_work();
    const Bitmap second = merged_frame();
    stop_running_work(false);
    for (const char* name : {"current.000", "journal.000"})
        put_back(name);
    start_again();
    EXPECT_EQ(store.current_frame, 1);
    EXPECT_TRUE(same(merged_frame(), second));
    EXPECT_TRUE(same(read_tga(in_store("current.000").string()), painted)) << "the frame that was left is in its file";
    EXPECT_FALSE(exists("journal.000"));
    EXPECT_EQ(run_state.workspace_damaged, 0);
}

TEST_F(RunningWorkTest, NoFailureOfACallLosesWhatWasOnTheDisk)
{
    int points = 0, silent = 0;
    for (const Fault fault : all_faults) {
        const auto [first, step] = sampled_points(fault);
        for (int point = first;; point += step) {
            std::filesystem::remove(journal());
            start_again();
            ASSERT_FALSE(frame_changed());
            start_running_work();
            std::vector<Bitmap> pictures;
            pictures.push_back(merged_frame());
            box(20, 0xff8040);
            settle_running_work();
            pictures.push_back(merged_frame());
            bool reached = false;
            reported(); // nothing of the trial before
            {
                const FailingCalls failing(fault, point);
                for (int i = 0; i < 2; ++i) {
                    box(70 + 50 * i, 0x305070 * (i + 1));
                    settle_running_work();
                    pictures.push_back(merged_frame());
                    if (i == 0) crop_frame(0, 0, 150, 120); // a new journal beside the old one
                    settle_running_work();
                    pictures.push_back(merged_frame());
                }
                reached = FailingCalls::count() >= point;
            }
            if (!reached) break;
            ++points;
            keep_running_work();
            const bool told_so = take_failure_report().has_value();
            start_again();
            const Bitmap found = merged_frame();
            const auto match = std::ranges::find_if(pictures, [&](const Bitmap& one) { return same(one, found); });
            ASSERT_NE(match, pictures.end()) << "fault " << static_cast<int>(fault) << " at call " << point;
            ASSERT_GE(match - pictures.begin(), 1) << "what was on the disk is lost";
            const bool all = same(found, pictures.back());
            silent += fault != Fault::ENDS && !all && !told_so;
            EXPECT_FALSE(kept_aside());
        }
    }
    EXPECT_GT(points, 40);
    EXPECT_EQ(silent, 0);
    std::cout << "journal: " << points << " points, " << silent << " silent\n";
}

} // namespace kelu
