// SPDX-License-Identifier: MIT
// Work that was never committed, found at the next start: after every kind of change, and out of journals that are torn
// or belong to another frame. Frames that are left are written behind the user's back: whatever fails, and wherever the
// program ends, nothing of them is lost.
#include "draw/cel.h"
#include "draw/operation.h"
#include "draw/unsaved.h"
#include "gui/tooltips.h"
#include "running_work_fixture.h"
#include "runtime/cel.h"
#include "runtime/random.h"
#include "workspace/custom_tip.h"
#include "workspace/frame_resize.h"
#include "workspace/journal_file.h"
#include "workspace/restore.h"
#include "workspace/running_files.h"
#include <fstream>

namespace kelu {

/// A change of the frame by its letter.
void make_change(char letter, int number)
{
    if (letter == 's') box(20 + 40 * number, 0xff8040 - 0x303010 * number);
    if (letter == 'd') {
        rectfill(store.frame_bitmap, 5, 5, 30, 30, 0x654321);
        touch_area(5, 5, 30, 30);
    }
    if (letter == 'u') undo_step();
    if (letter == 'a') toggle_alpha_edit();
    if (letter == 'r') resize_frame(0, 150, 333, 4, 0);
    if (letter == 'c') crop_frame(10, 10, 90, 70);
    if (letter == 'b') restore_frame();
    if (letter == 'p') adopt_picture(Bitmap(64, 65, 0x40302010), false);
    if (letter == '.') settle_running_work();
    if (letter == 'k') {
        keep_running_work();
        const std::lock_guard lock(unsaved.mutex);
        EXPECT_FALSE(unsaved.whole) << "a picture of another size is handed over at once";
    }
}

TEST_F(RunningWorkTest, EveryChangeOfTheFrameIsFoundAgain)
{
    // Strokes, Drawing without a step, Undo, Alpha editing and back, Resize, Crop, Brought back,
    // another Picture; what is settled or kept in between, where the end doesn't come first.
    for (const std::string changes : {"s.", "s.ssu.", "sas", "da", "asas.", "srs.", "ck", "r.bs.", "r", "p"}) {
        SCOPED_TRACE(changes);
        TearDown();
        start_again();
        fetch_frame(0, 0, 0);
        start_running_work();
        ASSERT_FALSE(frame_changed());
        keep_running_work();
        settle_running_work();
        EXPECT_FALSE(exists("journal.000")) << "nothing is painted, nothing is written";
        for (std::size_t i = 0; i < changes.size(); ++i)
            make_change(changes[i], static_cast<int>(i));
        const Bitmap painted = merged_frame();
        start_again();
        EXPECT_EQ(menus.status_message, TIP_WORK_RECOVERED);
        EXPECT_TRUE(same(merged_frame(), painted));
        EXPECT_TRUE(frame_changed());
        EXPECT_EQ(stored_pixel(0), frame_color(0)) << "the file stays as it was committed";
        start_again();
        EXPECT_TRUE(same(merged_frame(), painted)) << "an end before anything is written";
        start_running_work();
        box(5, 0x101010);
        settle_running_work();
        const Bitmap more = merged_frame();
        start_again();
        EXPECT_TRUE(same(merged_frame(), more)) << "painting goes on";
        restore_frame();
        EXPECT_FALSE(frame_changed());
        EXPECT_EQ(run_state.workspace_damaged, 0);
        std::filesystem::remove(journal());
    }
}

TEST_F(RunningWorkTest, AStrokeInHandIsKeptAndTheHoleOfALiftedPieceIsNot)
{
    const Bitmap before = merged_frame();
    {
        const UndoableOperation hole;
        rectfill(store.frame_bitmap, 0, 0, 50, 50, 0);
        touch_area(0, 0, 50, 50);
        keep_running_work();
        settle_running_work();
        EXPECT_FALSE(exists("journal.000"));
        undo_step();
    }
    Bitmap held;
    {
        const UndoableOperation stroke;
        const OperationScope scope([] {});
        rectfill(store.frame_bitmap, 0, 0, 50, 50, 0x705030);
        touch_area(0, 0, 50, 50);
        keep_running_work();
        settle_running_work();
        held = merged_frame();
        std::filesystem::copy_file(journal(), journal() + ".held");
        alpha_strip(before, store.frame_bitmap, store.alpha_bitmap); // what it leaves is what was
        touch_area(0, 0, 50, 50);
    }
    settle_running_work();
    start_again();
    EXPECT_TRUE(same(merged_frame(), before)) << "no trace of what the stroke has left again";
    std::filesystem::rename(journal() + ".held", journal());
    start_again();
    EXPECT_TRUE(same(merged_frame(), held));
}

TEST_F(RunningWorkTest, WhatDoesntFitIsKeptAsideAndNeverApplied)
{
    box(20, 0xff8040);
    settle_running_work();
    stop_running_work(false);
    put_frame(0, opaque | 0x777777, side, side - 30); // a program of before has painted on the frame
    start_again();
    EXPECT_EQ(pixel(store.frame_bitmap, 30, 50), 0x777777);
    EXPECT_TRUE(kept_aside());
    EXPECT_FALSE(exists("journal.000"));
    EXPECT_EQ(run_state.workspace_damaged, 1);
    std::ofstream(journal()) << "no journal";
    start_again();
    EXPECT_EQ(pixel(store.frame_bitmap, 30, 50), 0x777777);
    EXPECT_TRUE(exists("damaged.journal.000.1"));
}

TEST_F(RunningWorkTest, ATornTailIsLeftOut)
{
    const Bitmap base = merged_frame();
    std::vector<Bitmap> pictures;
    pictures.push_back(base.copy());
    std::uintmax_t first_size = 0;
    for (int i = 0; i < 3; ++i) {
        box(20 + 55 * i, 0x203040 * (i + 1)); // each in a column of tiles of its own
        settle_running_work();
        pictures.push_back(merged_frame());
        if (i == 0) first_size = std::filesystem::file_size(journal());
    }
    std::ifstream file(journal(), std::ios::binary);
    const Bytes whole{std::istreambuf_iterator<char>(file), {}};
    EXPECT_LT(whole.size(), 4 * first_size) << "every stroke is written once";
    std::size_t reached = 0;
    for (std::size_t length = 0; length <= whole.size(); length += length + 40 < whole.size() ? 37 : 1) {
        const Bitmap found = replay_journal(std::span(whole).first(length), base);
        while (reached + 1 < pictures.size() && found && same(found, pictures[reached + 1]))
            ++reached;
        ASSERT_TRUE(!found ? reached == 0 : same(found, pictures[reached])) << length;
    }
    EXPECT_EQ(reached, 3U);
    Bytes broken = whole;
    broken[whole.size() / 2] ^= 0x10;
    const Bitmap found = replay_journal(broken, base);
    EXPECT_TRUE(found && (same(found, pictures[1]) || same(found, pictures[2]))) << "a record of another checksum";
}

TEST_F(RunningWorkTest, TheJournalIsMadeAnewWhenItOutgrowsItsPictures)
{
    seed_random(3);
    std::uintmax_t largest = 0;
    for (int i = 0; i < 60; ++i) {
        {
            const UndoableOperation step;
            for (int y = 0; y < store.frame_bitmap.height(); ++y)
                for (int x = 0; x < store.frame_bitmap.width(); ++x)
                    row(store.frame_bitmap, y)[x] = rnd(1 << 24);
            touch_frame();
        }
        settle_running_work();
        keep_running_work();
        settle_running_work();
        largest = std::max(largest, std::filesystem::file_size(journal()));
    }
    EXPECT_LT(largest, 1500000U);
    const Bitmap painted = merged_frame();
    start_again();
    EXPECT_TRUE(same(merged_frame(), painted));
}

TEST_F(RunningWorkTest, SmallFilesFollowWhatHasChanged)
{
    EXPECT_TRUE(changed_running_files().empty()) << "an idle program writes nothing";
    const auto changed = [](void (*change)()) {
        change();
        std::string names;
        for (const RunningFile& file : changed_running_files()) {
            EXPECT_TRUE(write_running_file(file));
            names += file.name.substr(file.name.rfind('/') + 1) + ' ';
        }
        return names;
    };
    EXPECT_EQ(changed([] { toolbox.brush_color = 0x123456; }), "current.spa ");
    EXPECT_EQ(changed([] { store.workspace_title = "AN IDEA"; }), "current.spa ");
    EXPECT_EQ(changed([] { preferences.undo_depth = 9; }), "user.def ");
    EXPECT_EQ(changed([] { row(store.tip_sheet, custom_tip_y)[3] = 0x505050; }), "current.tip ");
    EXPECT_EQ(changed([] { take_cel({0, 0, 30, 20}); }), "current.cel ");
    EXPECT_TRUE(changed_running_files().empty());
    start_again();
    EXPECT_EQ(toolbox.brush_color, 0x123456);
    EXPECT_EQ(store.workspace_title, "AN IDEA");
    EXPECT_EQ(store.cel_bitmap.width(), 31);
}

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
    insert_frames(1, 1, INSERT_BLANKS);
    EXPECT_EQ(store.frame_count, 3) << "no number changes meanwhile";
    reported();
    EXPECT_FALSE(settle_running_work());
    keep_running_work();
    EXPECT_FALSE(take_failure_report()) << "and not again while it fails";
    std::filesystem::remove(file);
    {
        const FailingCalls failing(Fault::BROKEN, 1);
        EXPECT_FALSE(settle_running_work());
    }
    std::filesystem::create_directory(file);
    keep_running_work();
    EXPECT_TRUE(reported().ends_with("ERROR OF THE DISK\n")) << "for another reason";
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
    put_back("journal.000"); // one that was committed, and couldn't go
    start_again();
    EXPECT_FALSE(exists("journal.000") || kept_aside());
    EXPECT_EQ(run_state.workspace_damaged, 0);
}

TEST_F(RunningWorkTest, NoFailureOfACallLosesWhatWasOnTheDisk)
{
    int points = 0, silent = 0;
    for (const Fault fault : all_faults) {
        const auto [first, step] = fault == Fault::IO_ERROR ? FaultPoints{1, 1} : sampled_points(fault);
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
            const std::string why = reported();
            const bool told_so = !why.empty();
            const char* reason = fault == Fault::NO_SPACE ? "NO SPACE LEFT\n" : "ERROR OF THE DISK\n";
            EXPECT_TRUE(!told_so || fault == Fault::ENDS || why.ends_with(reason)) << why;
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
}

} // namespace kelu
