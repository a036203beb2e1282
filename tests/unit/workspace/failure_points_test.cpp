// Every operation on the workspace with a failure at each of its calls on files, or the program's end there: the next
// start finds the old workspace or the new one, every picture whole, and a failure that the program survives is told.
#include "support/failing_calls.h"
#include "workspace_fixture.h"
#include <cstdlib>
#include <iostream>

namespace kelu {
namespace {

constexpr int frame_w = 8, frame_h = 6;
constexpr int old_frames = 5;
constexpr int old_color = static_cast<int>(0xffffff00U); // the frames differ in their blue

/// Colours of a workspace's frames in their order; -1 for one that isn't whole.
using Frames = std::vector<int>;

struct Operation {
    const char* name;
    void (*run)();
};
constexpr Operation operations[] = {
    {"load archive", [] { load_workspace_archive("kept.wsp", [] {}); }},
    {"new", clear_workspace},
    {"clone", [] { insert_frames(1, 1, INSERT_CLONES); }},
    {"insert", [] { insert_frames(1, 2, INSERT_BLANKS); }},
    {"delete", [] { delete_frames(1, 2); }},
    {"delete last", [] { delete_frames(old_frames - 1, 1); }},
    {"swap frame", [] { fetch_frame(1, 3, 0); }},
};

struct Tally {
    int points = 0, old_ones = 0, new_ones = 0, mixed = 0, silent = 0;
};

class FailurePointsTest : public WorkspaceTest, public testing::WithParamInterface<Operation> {
protected:
    /// A fixture's store, in the form that each trial begins with.
    void make_templates()
    {
        for (int i = 0; i < 3; ++i)
            put_frame(i, opaque | 0x770000 | i, frame_w, frame_h);
        start_on(3, 0);
        save_workspace_archive("kept.wsp", [] {});
        for (int i = 0; i < old_frames; ++i)
            put_frame(i, old_color | i, frame_w, frame_h);
        start_on(old_frames, 1);
        write_workspace_state("current.spa", false);
        std::filesystem::copy("WORKSPACE", "template");
    }

    static void start_on(int count, int current)
    {
        store.frame_count = count;
        store.current_frame = current;
        ASSERT_TRUE(platform::change_directory("WORKSPACE"));
        ASSERT_TRUE(load_frame_file(frame_file(current), LOAD_STORED, 0));
        ASSERT_TRUE(platform::change_directory(".."));
    }

    /// The start of the program on what lies in the store.
    void start_again() const
    {
        platform::change_directory(run_state.program_dir);
        FW_initialize_variables();
        clear_frame_cache();
        store.nail_sheet = Bitmap(400, 400);
        store.tip_sheet = Bitmap(206, 62);
        run_state.workspace_damaged = 0;
        menus.status_message = 0;
        int found = 0;
        {
            const platform::DirectoryVisit visit("WORKSPACE");
            found = read_workspace_state("current.spa");
        }
        if (found == 0) begin_workspace();
        platform::change_directory(run_state.program_dir);
    }

    void put_back() const
    {
        std::filesystem::remove_all("WORKSPACE");
        std::filesystem::copy("template", "WORKSPACE");
        start_again();
        // The stroke that the file of the frame doesn't hold yet.
        clear_to_color(store.frame_bitmap, 0x123456);
    }

    static int color_of(BITMAP* picture)
    {
        for (int y = 0; y < picture->h; ++y)
            for (int x = 0; x < picture->w; ++x)
                if (row(picture, y)[x] != row(picture, 0)[0]) return -1;
        return row(picture, 0)[0] & 0xffffff;
    }

    Frames stored_frames() const
    {
        Frames frames;
        for (int i = 0; exists(frame_file(i)); ++i) {
            const Bitmap picture = read_tga(in_store(frame_file(i)).string());
            frames.push_back(picture ? color_of(picture) : -1);
        }
        return frames;
    }

    /// Leaves no file of a change behind, and none that was found damaged.
    bool tidy() const
    {
        for (const auto& entry : std::filesystem::directory_iterator("WORKSPACE")) {
            const std::string name = entry.path().filename().string();
            if (name.starts_with("next.") || name.starts_with("damaged.")) return false;
        }
        return true;
    }

    /// One trial; false when the operation ended before the point.
    bool trial(Fault fault, int point, Tally& tally)
    {
        put_back();
        told.clear();
        {
            const FailingCalls failing(fault, point);
            GetParam().run();
            if (FailingCalls::count() < point) return false;
        }
        platform::change_directory(run_state.program_dir);
        const bool spoken = menus.status_message != 0 || !told.empty();
        const int count_in_memory = store.frame_count;
        const Frames left = stored_frames();
        start_again();
        const Frames found = stored_frames();
        ++tally.points;
        const bool is_new = found == after_, is_old = found == before_;
        tally.new_ones += is_new;
        tally.old_ones += is_old && !is_new;
        const bool mixed = (!is_new && !is_old) || !tidy() || store.frame_count != static_cast<int>(found.size()) ||
                           (fault < Fault::BROKEN && (left != found || count_in_memory != store.frame_count));
        tally.mixed += mixed;
        const bool silent = fault != Fault::ENDS && !is_new && !spoken;
        tally.silent += silent;
        if (mixed || silent)
            ADD_FAILURE() << GetParam().name << ", fault " << static_cast<int>(fault) << " at call " << point
                          << (mixed ? ": mixed" : ": silent");
        return true;
    }

    Frames before_, after_; ///< what a start finds when nothing has failed
};

} // namespace

TEST_P(FailurePointsTest, LeavesTheOldOrTheNewWorkspace)
{
    make_templates();
    put_back();
    before_ = stored_frames();
    ASSERT_EQ(before_.size(), static_cast<std::size_t>(old_frames));
    GetParam().run();
    start_again();
    after_ = stored_frames();
    ASSERT_NE(after_, before_);
    Tally tally;
    // Each point takes the time of two starts: without the wish for all of them only the end comes at each.
    const bool all = std::getenv("KELU_ALL_FAILURES") != nullptr;
    for (const Fault fault : {Fault::NO_SPACE, Fault::IO_ERROR, Fault::SHORT, Fault::BROKEN, Fault::ENDS}) {
        const int step = all || fault == Fault::ENDS ? 1 : 4;
        for (int point = all ? 1 : 1 + static_cast<int>(fault) % 4; trial(fault, point, tally) && !HasFailure();)
            point += step;
    }
    EXPECT_GT(tally.old_ones, 0);
    EXPECT_GT(tally.new_ones, 0);
    std::cout << GetParam().name << ": " << tally.points << " points, " << tally.old_ones << " old, " << tally.new_ones
              << " new, " << tally.mixed << " mixed, " << tally.silent << " silent\n";
}

INSTANTIATE_TEST_SUITE_P(Operations, FailurePointsTest, testing::ValuesIn(operations));

} // namespace kelu
