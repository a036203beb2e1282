// SPDX-License-Identifier: MIT
// The start on an alternate workspace, with a failure at each of its calls on files or the program's end there: no part
// of that workspace is ever lost, and the next start that can have it has it.
#include "support/failing_calls.h"
#include "workspace_fixture.h"

namespace kelu {
namespace {

class AlternateTest : public WorkspaceTest {
protected:
    static void start()
    {
        FW_initialize_variables();
        clear_frame_cache();
        store.nail_sheet = Bitmap(40, 40);
        store.tip_sheet = Bitmap(206, 62);
        platform::change_directory(run_state.program_dir);
        int found = 0;
        {
            const WorkspaceVisit visit({});
            found = read_workspace_state("current.spa");
        }
        if (found == 0) begin_workspace();
    }
    bool taken_over() const
    {
        bool whole = store.frame_count == 3 && store.workspace_title == "OTHER" && !exists("alternate.spa");
        for (int i = 0; i < 3; ++i)
            whole = whole && stored_pixel(i) == frame_color(i);
        return whole;
    }
    /// The set is all there, whatever stands beside it.
    bool waits() const
    {
        bool whole = exists("alternate.spa") && exists("alternate.cel");
        for (int i = 0; i < 3; ++i)
            whole = whole && exists(frame_file(i, file_set::alternate));
        return whole;
    }
};

} // namespace

TEST_F(AlternateTest, IsTakenOverWholeOrWaitsWhole)
{
    store.nail_sheet = Bitmap(40, 40);
    make_frames(3);
    store.workspace_title = "OTHER";
    write_workspace_state("current.spa", false);
    std::filesystem::create_directory("template");
    for (const auto& entry : std::filesystem::directory_iterator("WORKSPACE"))
        std::filesystem::rename(entry.path(), "template/alternate" + entry.path().extension().string());
    int points = 0, waiting = 0;
    for (const Fault fault : all_faults) {
        const auto [first, step] = sampled_points(fault);
        for (int point = first;; point += step) {
            fill_store("template");
            reported();
            {
                const FailingCalls failing(fault, point);
                start();
                if (FailingCalls::count() < point) break;
            }
            const bool spoken = fault == Fault::ENDS || taken_over() || !reported().empty();
            ++points;
            start();
            waiting += !taken_over();
            ASSERT_TRUE(taken_over() || waits()) << "fault " << static_cast<int>(fault) << " at " << point;
            ASSERT_TRUE(spoken) << "fault " << static_cast<int>(fault) << " at " << point << " is silent";
        }
    }
    EXPECT_EQ(waiting, 0) << "of " << points;
}

} // namespace kelu
