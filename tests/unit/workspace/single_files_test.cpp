// SPDX-License-Identifier: MIT
// Files of the user's that are written one by one, with a failure at each call or the program's end there: the old form
// stands or the new one, and a failure that the program survives is told.
#include "gui/scheme.h"
#include "screens/dispatch.h"
#include "support/failing_calls.h"
#include "workspace_fixture.h"

namespace kelu {
namespace {

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

} // namespace

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

} // namespace kelu
