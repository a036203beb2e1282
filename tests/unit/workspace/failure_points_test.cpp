// SPDX-License-Identifier: MIT
// Every operation on the workspace with a failure at each of its calls on files, or the program's end there: the next
// start finds the old workspace or the new one, every picture whole, and a failure that the program survives is told.
// The same for files of the user's that are written one by one, and for the start on an alternate workspace: no part of
// it is ever lost, and the next start that can have it has it.
#include "gui/scheme.h"
#include "screens/dispatch.h"
#include "support/failing_calls.h"
#include "workspace/custom_tip.h"
#include "workspace_fixture.h"

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

/// Colour of a picture, -1 for one that isn't whole.
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

    /// The store and the archive with which each trial begins.
    void make_templates()
    {
        const FailingCalls unflushed(Fault::NONE, 0);
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
        std::filesystem::rename("WORKSPACE", "template");
    }

    /// Only what is drawn of the thumbnails takes a part; a whole sheet would take most of the time.
    static void start_small() { start_again(nails_per_row * nail_side, nail_side); }

    static void start_on(int count, int current)
    {
        if (store.nail_sheet.height() != nail_side) store.nail_sheet = Bitmap(nails_per_row * nail_side, nail_side);
        store.frame_count = count;
        store.current_frame = current;
        const platform::DirectoryVisit visit("WORKSPACE");
        ASSERT_TRUE(load_frame_file(frame_file(current), LOAD_STORED));
    }

    void put_back() const
    {
        fill_store("template");
        start_small();
        // What the user has done since, and no file holds yet.
        clear_to_color(store.frame_bitmap, stroke_color);
        store.cel_source_bitmap = Bitmap(3, 3, cel_color);
        rectfill(store.tip_sheet, custom_tip_x, custom_tip_y, custom_tip_x + custom_tip_w - 1,
                 custom_tip_y + custom_tip_h - 1, cel_color);
        store.workspace_title = "LATER";
        told.clear();
        reported();
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

    /// What a start has found: colours of pictures and what the state holds.
    std::string look() const
    {
        std::string found = store.workspace_title;
        const auto add = [&found](int word) { found += ' ' + std::to_string(word); };
        for (const int frame : stored_frames())
            add(frame);
        for (int i = 0; i < nails_per_row; ++i) {
            const auto slot = static_cast<std::size_t>(i);
            add(pixel(store.nail_sheet, nail_x(i) + 9, 9));
            add(view.frame_pan_x[slot]);
            add(animation.anim_tag[slot] * 1000 + animation.anim_delay[slot]);
        }
        add(color_of(store.cel_source_bitmap));
        add(pixel(store.tip_sheet, custom_tip_x + 5, custom_tip_y + 5));
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
        start_small();
        const std::vector<int> frames = stored_frames();
        const std::string found = look();
        const bool is_new = found == after_, is_old = found == before_;
        // The program has gone on with what lies in the store.
        const bool agrees = fault() >= Fault::BROKEN || (left == frames && count_in_memory == store.frame_count);
        // What the operation hasn't done hasn't taken the work from memory either.
        const bool lost = !is_new && fault() != Fault::ENDS && !stroke_stands;
        const bool mixed =
            (!is_new && !is_old) || !tidy() || !agrees || lost || store.frame_count != static_cast<int>(frames.size());
        const bool silent = fault() != Fault::ENDS && !is_new && !spoken;
        ++tried_;
        EXPECT_FALSE(mixed || silent) << "at call " << point << (is_new ? " new" : "") << (is_old ? " old" : "")
                                      << (silent ? ", silent" : "") << (agrees ? "" : ", memory differs")
                                      << (lost ? ", work lost" : "");
        return !HasFailure();
    }

    std::string before_, after_; ///< what a start finds when nothing has been done, and when nothing has failed
    int tried_ = 0;
};

struct WrittenFile {
    const char* name;
    const char* path;
    void (*write)();
};
constexpr WrittenFile written_files[] = {
    {"Settings", "resource/user.def", [] { write_user_settings(); }},
    {"Scheme", "my.sch", [] { save_picture_file("my.sch", BROWSE_SCHEME); }},
    {"Favorites", "my.col", [] { save_picture_file("my.col", BROWSE_FAVORITES); }},
    {"Archive", "my.wsp", [] { save_workspace_archive("my.wsp", [] {}); }},
    {"Png", "my.png", [] { save_picture_file("my.png", BROWSE_PICTURE); }},
    {"Ico", "my.ico", [] { save_picture_file("my.ico", BROWSE_PICTURE); }},
    {"Gif", "my.gif", [] { save_picture_file("my.gif", BROWSE_PICTURE); }},
    {"Lbm", "my.lbm", [] { save_picture_file("my.lbm", BROWSE_PICTURE); }},
    {"Pcx", "my.pcx", [] { save_picture_file("my.pcx", BROWSE_PICTURE); }},
    {"Bmp", "my.bmp", [] { save_picture_file("my.bmp", BROWSE_PICTURE); }},
};

class SingleFiles : public WorkspaceTest, public testing::WithParamInterface<WrittenFile> {
protected:
    /// What the files hold, in its old form or its new one.
    static void set_form(int form)
    {
        clear_to_color(store.frame_bitmap, form == 0 ? 0x00ff00 : 0xff0000);
        menu_scheme.scheme[0] = form;
        toolbox.extended_favorites[0] = form;
        macros.macro_table[0].brush_tip = form;
        store.workspace_title = form == 0 ? "OLD" : "NEW";
    }
    std::string written() const { return folder.text(GetParam().path); }
};

class AlternateTest : public WorkspaceTest {
protected:
    bool taken_over() const
    {
        bool whole = store.frame_count == 3 && store.workspace_title == "OTHER" && !exists("alternate.spa");
        for (int i = 0; i < 3; ++i)
            whole = whole && stored_pixel(i) == frame_color(i);
        return whole;
    }
};

} // namespace

TEST_P(FailurePoints, LeaveTheOldOrTheNewWorkspace)
{
    make_templates();
    put_back();
    start_small();
    before_ = look();
    ASSERT_EQ(stored_frames().size(), static_cast<std::size_t>(old_frames));
    put_back();
    operation().run();
    start_small();
    after_ = look();
    ASSERT_FALSE(after_ == before_);
    const auto [first, step] = sampled_points(fault());
    for (int point = first; trial(point);)
        point += step;
    EXPECT_GT(tried_, 0);
}

INSTANTIATE_TEST_SUITE_P(Operations, FailurePoints,
                         testing::Combine(testing::ValuesIn(operations), testing::ValuesIn(all_faults)),
                         [](const auto& test) {
                             return std::string(std::get<0>(test.param).name) +
                                    fault_names[static_cast<int>(std::get<1>(test.param))];
                         });

TEST_P(SingleFiles, HaveTheOldFormOrTheNewOne)
{
    store.nail_sheet = Bitmap(40, 40);
    make_frames(2);
    set_form(1);
    GetParam().write();
    const std::string new_form = written();
    set_form(0);
    GetParam().write();
    const std::string old_form = written();
    ASSERT_NE(old_form, new_form);
    EXPECT_EQ(reported(), "");
    set_form(1);
    for (const Fault fault : all_faults) {
        for (int point = 1;; ++point) {
            folder.put(GetParam().path, old_form);
            {
                const FailingCalls failing(fault, point);
                GetParam().write();
                platform::change_directory(run_state.program_dir);
                if (FailingCalls::count() < point) break;
            }
            const bool is_new = written() == new_form;
            const std::string told_of = reported();
            ASSERT_TRUE(is_new || written() == old_form) << "fault " << static_cast<int>(fault) << " at " << point;
            ASSERT_TRUE(is_new || fault == Fault::ENDS || !told_of.empty())
                << "fault " << static_cast<int>(fault) << " at " << point << " is silent";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Written, SingleFiles, testing::ValuesIn(written_files),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(AlternateTest, IsTakenOverWholeByTheNextStart)
{
    store.nail_sheet = Bitmap(40, 40);
    make_frames(3);
    store.workspace_title = "OTHER";
    write_workspace_state("current.spa", false);
    std::filesystem::create_directory("template");
    for (const auto& entry : std::filesystem::directory_iterator("WORKSPACE"))
        std::filesystem::rename(entry.path(), "template/alternate" + entry.path().extension().string());
    for (const Fault fault : all_faults) {
        const auto [first, step] = sampled_points(fault);
        for (int point = first;; point += step) {
            fill_store("template");
            reported();
            {
                const FailingCalls failing(fault, point);
                start_again(40, 40);
                if (FailingCalls::count() < point) break;
            }
            const bool spoken = fault == Fault::ENDS || taken_over() || !reported().empty();
            start_again(40, 40);
            ASSERT_TRUE(taken_over()) << "fault " << static_cast<int>(fault) << " at " << point;
            ASSERT_TRUE(spoken) << "fault " << static_cast<int>(fault) << " at " << point << " is silent";
        }
    }
}

} // namespace kelu
