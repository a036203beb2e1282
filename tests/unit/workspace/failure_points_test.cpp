// SPDX-License-Identifier: MIT
// Every operation on the workspace with a failure at each of its calls on files, or the program's end there: the next
// start finds the old workspace or the new one, every picture whole, and a failure that the program survives is told.
#include "support/failing_calls.h"
#include "workspace/custom_tip.h"
#include "workspace_fixture.h"
#include <iostream>
#include <unistd.h>

namespace kelu {
namespace {

constexpr int frame_w = 8, frame_h = 6;
constexpr int old_frames = 5;
constexpr int old_color = static_cast<int>(0xffffff00U); // the frames differ in their blue
constexpr int stroke_color = 0x123456;
constexpr int cel_color = 0x0c0c0c;

constexpr const char* fault_names[] = {"", "NoSpace", "IoError", "Short", "Broken", "Ends"};

struct Operation {
    const char* name;
    void (*run)();
};
constexpr Operation operations[] = {
    {"LoadArchive", [] { load_workspace_archive("kept.wsp", [] {}); }},
    {"New", clear_workspace},
    {"Clone", [] { insert_frames(1, 1, INSERT_CLONES); }},
    {"Insert", [] { insert_frames(1, 2, INSERT_BLANKS); }},
    {"Delete", [] { delete_frames(1, 2); }},
    {"DeleteLast", [] { delete_frames(old_frames - 1, 1); }},
    {"SwapFrame", [] { fetch_frame(1, 3, 0); }},
    {"Leave", [] { write_workspace_state("current.spa", false); }},
    {"WriteState", [] { write_workspace_state("current.spa", true); }},
};

/// What a start finds: colours of pictures, -1 for one that isn't whole, and what the state holds.
struct Found {
    std::vector<int> frames, nails, pans, tags;
    int cel = 0, tip = 0;
    std::string title;
    bool operator==(const Found&) const = default;
};

struct Tally {
    int points = 0, old_ones = 0, new_ones = 0, mixed = 0, silent = 0;
};

int color_of(BITMAP* picture)
{
    for (int y = 0; y < picture->h; ++y)
        for (int x = 0; x < picture->w; ++x)
            if (row(picture, y)[x] != row(picture, 0)[0]) return -1;
    return row(picture, 0)[0] & 0xffffff;
}

class FailurePoints : public WorkspaceTest, public testing::WithParamInterface<std::tuple<Operation, Fault>> {
protected:
    static const Operation& operation() { return std::get<0>(GetParam()); }
    static Fault fault() { return std::get<1>(GetParam()); }

    /// The store and the archive with which each trial begins, the same for all tests of the process.
    void fetch_templates()
    {
        static const std::filesystem::path made = [this] {
            make_templates();
            std::filesystem::path kept =
                std::filesystem::temp_directory_path() / ("kelu-points-" + std::to_string(getpid()));
            std::filesystem::create_directory(kept);
            for (const char* name : {"WORKSPACE", "kept.wsp"})
                std::filesystem::rename(name, kept / name);
            return kept;
        }();
        static const struct Remover {
            ~Remover() { std::filesystem::remove_all(made); }
        } remover;
        template_ = made / "WORKSPACE";
        std::filesystem::create_hard_link(made / "kept.wsp", "kept.wsp");
    }
    void make_templates()
    {
        for (int i = 0; i < 3; ++i)
            put_frame(i, opaque | 0x770000 | i, frame_w, frame_h);
        store.workspace_title = "PACKED";
        start_on(3, 0);
        save_workspace_archive("kept.wsp", [] {});
        for (int i = 0; i < old_frames; ++i)
            put_frame(i, old_color | i, frame_w, frame_h);
        for (int i = 0; i < old_frames; ++i) {
            const auto slot = static_cast<std::size_t>(i);
            view.frame_pan_x[slot] = i;
            animation.anim_tag[slot] = i % 2 != 0;
            animation.anim_delay[slot] = 3 * i;
        }
        store.workspace_title = "OLD";
        for (int i = 0; i < old_frames; ++i) {
            start_on(old_frames, i);
            draw_nail(i);
        }
        start_on(old_frames, 1);
        write_workspace_state("current.spa", false);
    }

    /// Only what is drawn of the thumbnails takes a part; a whole sheet would take most of the time.
    static void make_sheets()
    {
        store.nail_sheet = Bitmap(nails_per_row * nail_side, nail_side);
        store.tip_sheet = Bitmap(206, 62);
    }

    static void start_on(int count, int current)
    {
        make_sheets_once();
        store.frame_count = count;
        store.current_frame = current;
        const platform::DirectoryVisit visit("WORKSPACE");
        ASSERT_TRUE(load_frame_file(frame_file(current), LOAD_STORED));
    }
    static void make_sheets_once()
    {
        if (store.nail_sheet.height() != nail_side) make_sheets();
    }

    /// The start of the program on what lies in the store.
    static void start_again()
    {
        platform::change_directory(run_state.program_dir);
        FW_initialize_variables();
        clear_frame_cache();
        make_sheets();
        run_state.workspace_damaged = 0;
        menus.status_message = 0;
        reported();
        int found = 0;
        {
            const WorkspaceVisit visit({});
            found = read_workspace_state("current.spa");
        }
        if (found == 0) begin_workspace();
        platform::change_directory(run_state.program_dir);
    }

    void put_back() const
    {
        fill_store(template_);
        start_again();
        // What the user has done since, and no file holds yet.
        clear_to_color(store.frame_bitmap, stroke_color);
        store.cel_source_bitmap = Bitmap(3, 3, cel_color);
        rectfill(store.tip_sheet, custom_tip_x, custom_tip_y, custom_tip_x + custom_tip_w - 1,
                 custom_tip_y + custom_tip_h - 1, cel_color);
        store.workspace_title = "LATER";
        told.clear();
    }

    std::vector<int> stored_frames() const
    {
        std::vector<int> frames;
        for (int i = 0; exists(frame_file(i)); ++i) {
            const Bitmap picture = read_tga(in_store(frame_file(i)).string());
            frames.push_back(picture ? color_of(picture) : -1);
        }
        return frames;
    }

    /// After a start.
    Found look() const
    {
        Found found;
        found.frames = stored_frames();
        found.cel = color_of(store.cel_source_bitmap);
        for (int i = 0; i < nails_per_row; ++i) {
            const auto slot = static_cast<std::size_t>(i);
            found.nails.push_back(pixel(store.nail_sheet, nail_x(i) + 9, 9));
            found.pans.push_back(view.frame_pan_x[slot]);
            found.tags.push_back(animation.anim_tag[slot] * 1000 + animation.anim_delay[slot]);
        }
        found.tip = pixel(store.tip_sheet, custom_tip_x + 5, custom_tip_y + 5);
        found.title = store.workspace_title;
        return found;
    }

    /// No file of a change is left behind, and none was found damaged.
    static bool tidy()
    {
        for (const auto& entry : std::filesystem::directory_iterator("WORKSPACE")) {
            const std::string name = entry.path().filename().string();
            if (name.starts_with("next.") || name.starts_with("damaged.")) return false;
        }
        return true;
    }

    /// One trial; false when the operation ended before the point.
    bool trial(int point)
    {
        put_back();
        {
            const FailingCalls failing(fault(), point);
            operation().run();
            if (FailingCalls::count() < point) return false;
        }
        platform::change_directory(run_state.program_dir);
        const bool spoken = menus.status_message != 0 || !told.empty() || !reported().empty();
        const int count_in_memory = store.frame_count;
        const bool stroke_stands = color_of(store.frame_bitmap) == stroke_color;
        const std::vector<int> left = stored_frames();
        start_again();
        const Found found = look();
        judge(point, found, spoken,
              fault() >= Fault::BROKEN || (left == found.frames && count_in_memory == store.frame_count),
              stroke_stands);
        return !HasFailure();
    }

    /// `agrees`: the program went on with what lies in the store.
    void judge(int point, const Found& found, bool spoken, bool agrees, bool stroke_stands)
    {
        const bool is_new = found == after_, is_old = found == before_;
        ++tally_.points;
        tally_.new_ones += is_new;
        tally_.old_ones += is_old && !is_new;
        // What the operation hasn't done hasn't taken the work from memory either.
        const bool lost = !is_new && fault() != Fault::ENDS && !stroke_stands;
        const bool mixed = (!is_new && !is_old) || !tidy() || !agrees || lost ||
                           store.frame_count != static_cast<int>(found.frames.size());
        const bool silent = fault() != Fault::ENDS && !is_new && !spoken;
        tally_.mixed += mixed;
        tally_.silent += silent;
        if (mixed || silent)
            ADD_FAILURE() << "at call " << point << (mixed ? ": mixed" : ": silent") << (is_new ? " new" : "")
                          << (is_old ? " old" : "") << (agrees ? "" : ", memory differs")
                          << (lost ? ", work lost" : "");
    }

    Found before_, after_; ///< what a start finds when nothing has been done, and when nothing has failed
    Tally tally_;
    std::filesystem::path template_;
};

} // namespace

TEST_P(FailurePoints, LeaveTheOldOrTheNewWorkspace)
{
    fetch_templates();
    put_back();
    start_again();
    before_ = look();
    ASSERT_EQ(before_.frames.size(), static_cast<std::size_t>(old_frames));
    put_back();
    operation().run();
    start_again();
    after_ = look();
    ASSERT_FALSE(after_ == before_);
    const auto [first, step] = sampled_points(fault());
    for (int point = first; trial(point);)
        point += step;
    EXPECT_GT(tally_.old_ones + tally_.new_ones, 0);
    std::cout << operation().name << ' ' << fault_names[static_cast<int>(fault())] << ": " << tally_.points
              << " points, " << tally_.old_ones << " old, " << tally_.new_ones << " new, " << tally_.mixed << " mixed, "
              << tally_.silent << " silent\n";
}

INSTANTIATE_TEST_SUITE_P(Operations, FailurePoints,
                         testing::Combine(testing::ValuesIn(operations), testing::ValuesIn(all_faults)),
                         [](const auto& test) {
                             return std::string(std::get<0>(test.param).name) +
                                    fault_names[static_cast<int>(std::get<1>(test.param))];
                         });

} // namespace kelu
