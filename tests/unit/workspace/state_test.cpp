// SPDX-License-Identifier: MIT
// The workspace as files: written and found again, begun anew, wiped, taken over from the alternate set, and started
// from every kind of damage.

#include "draw/preview.h"
#include "imagefile/bmp.h"
#include "runtime/color_band.h"
#include "runtime/color_settings.h"
#include "support/failing_calls.h"
#include "workspace/alternate.h"
#include "workspace/colour_files.h"
#include "workspace/custom_tip.h"
#include "workspace_fixture.h"

namespace kelu {
namespace {

class StateTest : public WorkspaceTest {
protected:
    /// A workspace with three frames, the second of them current, and some values of its own.
    void make_workspace()
    {
        make_frames(3);
        ASSERT_TRUE(fetch_frame(0, 1, 0));
        store.cel_source_bitmap = Bitmap(5, 4, 0x123456);
        store.cel_bitmap = Bitmap(5, 4);
        row(store.tip_sheet, 47)[3] = 0x00ff00;
        store.workspace_title = "MINE";
        animation.anim_tag[1] = 1;
        refresh_derived_state();
        view.zoom = 3;
        view.pan_x = -35; // within the range of a frame of 8 x 6
        view.pan_y = -27;
        write_workspace_state("current.spa", false);
    }
};

} // namespace

TEST_F(StateTest, WorkspaceComesBackWhole)
{
    make_workspace();
    row(store.frame_bitmap, 0)[0] = 0xabcdef;
    const std::filesystem::path elsewhere = folder.path() / "resource";
    std::filesystem::current_path(elsewhere);
    browser_state.browser_dir = "/Pictures";
    write_workspace_state("current.spa", false);
    workspace_state_bytes();
    EXPECT_EQ(browser_state.browser_dir, "/Pictures");
    EXPECT_EQ(platform::working_directory(), run_state.program_dir);
    const std::string spa = bytes("current.spa");
    folder.put("WORKSPACE/alternate.tip", "left over");
    forget();
    EXPECT_EQ(read_state(), 1);
    EXPECT_FALSE(exists("alternate.tip"));
    EXPECT_EQ(menus.status_message, 0) << "nothing has to be told";
    EXPECT_EQ(browser_state.browser_dir, platform::upper_case(elsewhere.string()));
    EXPECT_EQ(store.current_frame, 1);
    EXPECT_EQ(store.frame_count, 3);
    EXPECT_EQ(pixel(store.frame_bitmap), 0xabcdef);
    EXPECT_EQ(pixel(store.frame_bitmap, 1), 0x11);
    EXPECT_EQ(store.cel_bitmap.width(), 5);
    EXPECT_EQ(pixel(store.cel_source_bitmap), 0x123456);
    EXPECT_EQ(pixel(store.tip_sheet, 3, 47), 0x00ff00);
    EXPECT_EQ(store.workspace_title, "MINE");
    EXPECT_EQ(pixel(store.nail_sheet, nail_x(1) + 39, 39), 0x11);
    EXPECT_EQ(view.zoom, 3);
    EXPECT_EQ(view.frame_zoom[1], 3);
    EXPECT_EQ(animation.anim_count, 1) << "the list of the animation";
    EXPECT_EQ(run_state.workspace_damaged, 0);
    std::filesystem::current_path(elsewhere);
    write_workspace_state("current.spa", true);
    EXPECT_TRUE(bytes("current.spa") == spa); // too long to be printed

    std::filesystem::create_directory(in_store(".next.list.kelu-new")); // what can't be done in one step is done
    store.cel_source_bitmap = Bitmap(5, 4, 0x654321);
    row(store.tip_sheet, 47)[3] = 0x0000ff;
    EXPECT_TRUE(write_workspace_state("current.spa", false));
    forget();
    EXPECT_EQ(read_state(), 1);
    EXPECT_EQ(pixel(store.cel_source_bitmap), 0x654321);
    EXPECT_EQ(pixel(store.tip_sheet, 3, 47), 0x0000ff);
}

TEST_F(StateTest, MissingContainersAreRepairedAndBrokenOnesKept)
{
    make_workspace();
    std::filesystem::remove(in_store("current.cel"));
    folder.put("WORKSPACE/current.tip", "BM nonsense");
    std::filesystem::remove(in_store("current.nal"));
    forget();
    EXPECT_EQ(read_state(), 1);
    EXPECT_EQ(run_state.workspace_damaged, 1);
    EXPECT_EQ(store.cel_bitmap.width(), 16);
    EXPECT_EQ(read_bmp(in_store("current.cel").string()).height(), 16);
    EXPECT_EQ(bytes("damaged.tip"), "BM nonsense");
    EXPECT_EQ(read_bmp(in_store("current.tip").string()).height(), custom_tip_h);
    EXPECT_EQ(read_bmp(in_store("current.nal").string()).width(), 400);
    EXPECT_TRUE(
        logged("[ INFO ] : Workspace damage encountered. Attempting repair!\n[ INFO ] : Cel container repaired"));
}

TEST_F(StateTest, WithoutStateTheFreshFieldsAreSetAndNoOthers)
{
    toolbox.tool_slot = 4;
    toolbox.extended_favorites[200] = 5;
    preferences.file_preview_mode = 2;
    grid.grid_w = 9;
    view.pan_x = view.pan_y = view.frame_pan_x[3] = view.frame_pan_y[3] = view.frame_zoom[3] = 4;
    preferences.cel_masking = 0;
    EXPECT_EQ(read_state(), 0);
    EXPECT_EQ((std::vector<int>{view.pan_x, view.pan_y, view.frame_pan_x[3], view.frame_pan_y[3], view.frame_zoom[3],
                                preferences.cel_masking, toolbox.tool_slot}),
              (std::vector{0, 0, 0, 0, 1, 1, 0}));
    EXPECT_EQ(toolbox.extended_favorites[200], 0x9e9e9e);
    EXPECT_EQ(preferences.file_preview_mode, 1);
    EXPECT_EQ(grid.grid_w, 9);

    begin_workspace();
    EXPECT_EQ(store.frame_count, 1);
    EXPECT_EQ(store.frame_bitmap.width(), 320);
    EXPECT_EQ(stored_pixel(0), opaque);
    for (const char* name : {"current.spa", "current.cel", "current.tip", "current.nal"})
        EXPECT_TRUE(exists(name)) << name;
    EXPECT_EQ(read_state(), 1);
    EXPECT_EQ(run_state.workspace_damaged, 0);
}

TEST_F(StateTest, LostStateKeepsTheFrames)
{
    make_workspace();
    std::filesystem::remove(in_store("current.spa"));
    forget();
    EXPECT_EQ(read_state(), 0);
    store.current_frame = 2;
    begin_workspace();
    EXPECT_EQ(store.frame_count, 3);
    EXPECT_EQ(store.current_frame, 0);
    EXPECT_EQ(pixel(store.frame_bitmap), 0x10);
    EXPECT_EQ(stored_pixel(2), frame_color(2));
    EXPECT_EQ(pixel(store.cel_source_bitmap), 0x123456);
    EXPECT_TRUE(exists("current.spa"));
    folder.put("WORKSPACE/" + frame_file(0), "no picture");
    begin_workspace();
    EXPECT_EQ(store.frame_count, 3);
    EXPECT_EQ(bytes("damaged.000"), "no picture");
    EXPECT_EQ(stored_pixel(0), opaque);
}

TEST_F(StateTest, UnreadableStatesAreKept)
{
    make_workspace();
    folder.put("WORKSPACE/current.spa", "some text of another program");
    forget();
    EXPECT_EQ(read_state(), 1);
    EXPECT_EQ(store.frame_count, 3);
    EXPECT_EQ(bytes("damaged.spa"), "some text of another program");
    EXPECT_EQ(read_state(), 1); // and once is enough
    EXPECT_FALSE(exists("damaged.spa.1"));
    folder.put("WORKSPACE/current.spa", "another text");
    EXPECT_EQ(read_state(), 1);
    EXPECT_EQ(bytes("damaged.spa.1"), "another text");
    std::filesystem::remove(in_store("current.spa"));
    std::filesystem::create_directory(in_store("current.spa"));
    EXPECT_EQ(read_state(), 0);
    EXPECT_TRUE(std::filesystem::is_directory(in_store("damaged.spa.2")));
}

TEST_F(StateTest, WipeLeavesOneBlankFrame)
{
    make_workspace();
    folder.put("WORKSPACE/backup.001", "x");
    spectrum.spectrum_start = spectrum.spectrum_end = toolbox.favorites[0] = toolbox.favorites[9] =
        toolbox.favorites[10] = -1;
    grid.grid_on = 1;
    grid.grid_w = 8;
    toolbox.tool_table[3][0] = 5;
    view.onion_on = 1;
    view.onion_opacity = 3;
    preview.preview_active = 1;
    color_settings.favorites_scroll = toolbox.tool_slot = toolbox.ink_slot = 2;
    toolbox.tool_slots[1] = TOOL_TEXT;
    toolbox.ink_slots[1] = 3;
    view.frame_pan_x[5] = view.frame_pan_y[5] = view.frame_zoom[5] = animation.anim_delay[5] = 7;
    run_state.timers_locked = 0;
    fill_frame_cache();
    const std::string frame = bytes("current.001");
    for (const char* file : {"000", "cel", "nal", "tip"}) { // one that can't be written
        const auto barrier = in_store(std::string(".next.") + file + ".kelu-new");
        std::filesystem::create_directory(barrier);
        clear_workspace();
        EXPECT_TRUE(reported().starts_with("THE WORKSPACE COULDN'T BE SAVED! current.spa ")) << file;
        EXPECT_EQ(bytes("current.001"), frame) << file;
        std::filesystem::remove(barrier);
    }
    clear_workspace();
    EXPECT_EQ(run_state.timers_locked, 0);
    EXPECT_EQ((std::vector<int>{color_settings.favorites_scroll, toolbox.tool_slot, toolbox.ink_slot, view.pan_x,
                                view.pan_y, view.frame_pan_x[5], view.frame_pan_y[5], animation.anim_delay[5],
                                animation.anim_count, store.current_frame, preview.preview_active}),
              std::vector<int>(11, 0));
    EXPECT_EQ(view.frame_zoom[5], 1);
    EXPECT_TRUE(spectrum.spectrum_start != -1 && spectrum.spectrum_end != -1);
    EXPECT_TRUE(toolbox.favorites[0] != -1 && toolbox.favorites[9] != -1 && toolbox.favorites[10] == -1);
    EXPECT_EQ(view.onion_opacity, View().onion_opacity);
    EXPECT_TRUE(toolbox.tool_slots == Toolbox().tool_slots && toolbox.ink_slots == Toolbox().ink_slots);
    EXPECT_EQ(pixel(store.nail_sheet, nail_x(1) + 9, 9), 0);
    EXPECT_EQ(pixel(store.cel_source_bitmap), 0);
    EXPECT_EQ(count_workspace_frames(), 1);
    EXPECT_FALSE(exists("backup.001"));
    EXPECT_EQ(pixel(store.tip_sheet, 3, 47), 0);
    EXPECT_EQ(store.workspace_title, "UNNAMED WORKSPACE");
    EXPECT_EQ(grid.grid_on, 0);
    EXPECT_EQ(grid.grid_w, 4);
    EXPECT_EQ(toolbox.tool_table[3][0], 5); // options of tools and inks stay
    EXPECT_EQ(toolbox.extended_favorites[255], 0x9e9e9e);
    EXPECT_EQ(view.onion_on, 0);
    EXPECT_FALSE(cached_frame(1));
    EXPECT_NE(bytes("current.spa").find("UNNAMED"), std::string::npos);

    run_state.program_dir = "/nowhere/at/all";
    put_frame(1, opaque);
    clear_workspace();
    EXPECT_TRUE(logged("[ ERROR ] : WORKSPACE directory unavailable. Aborting clear operation!"));
    EXPECT_TRUE(exists("current.001"));
}

TEST_F(StateTest, FilesThatTheSystemWontReadStayAndNothingIsWrittenOverThem)
{
    make_workspace();
    const std::string frame = bytes("current.001");
    forget();
    {
        // Every call fails: nothing can be read, nor put aside.
        const FailingCalls failing(Fault::BROKEN, 1);
        EXPECT_EQ(read_state(), 0);
    }
    EXPECT_TRUE(reported().starts_with("THE WORKSPACE COULDN'T BE READ! current.spa ERROR OF THE DISK"));
    forget();
    EXPECT_EQ(read_state(), 1);
    EXPECT_EQ(store.workspace_title, "MINE");
    EXPECT_EQ(bytes("current.001"), frame);
    EXPECT_EQ(reported(), "");
}

TEST_F(StateTest, TheFolderOfTheWorkspaceIsMadeAndNothingIsWrittenBesideIt)
{
    make_workspace();
    std::filesystem::remove_all("WORKSPACE");
    EXPECT_TRUE(write_workspace_state("current.spa", false));
    EXPECT_TRUE(exists("current.spa"));
    EXPECT_TRUE(exists("current.001"));
    std::filesystem::remove_all("WORKSPACE");
    folder.put("WORKSPACE", "a file");
    EXPECT_FALSE(write_workspace_state("current.spa", false));
    EXPECT_NE(reported(), "");
    EXPECT_FALSE(std::filesystem::exists("current.spa"));
    EXPECT_FALSE(std::filesystem::exists("current.001"));
    std::filesystem::remove("WORKSPACE");
}

TEST_F(StateTest, SettingsComeBackAndAMissingFileHasItsOwnValues)
{
    read_user_settings();
    EXPECT_TRUE(logged("[ INFO ] : Couldn't locate the user settings file. Assuming default settings."));
    EXPECT_EQ(preferences.mouse_swap, 0);
    EXPECT_EQ(preferences.sample_volume, 255);
    EXPECT_EQ(preferences.music_volume, 255);
    EXPECT_EQ(preferences.crosshair_opacity, 18);
    preferences.undo_depth = 9;
    macros.macro_table[7].brush_tip = 3;
    menu_scheme.scheme[SCHEME_SHADOW] = 0x010203;
    std::filesystem::current_path("/");
    write_user_settings();
    EXPECT_EQ(platform::working_directory(), run_state.program_dir);
    forget();
    EXPECT_EQ(preferences.undo_depth, 3);
    read_user_settings();
    EXPECT_EQ(preferences.undo_depth, 9);
    EXPECT_EQ(macros.macro_table[7].brush_tip, 3);
    EXPECT_EQ(menu_scheme.scheme[SCHEME_SHADOW], 0x010203);
    EXPECT_EQ(platform::working_directory(), run_state.program_dir);

    folder.put("resource/user.def", "");
    forget();
    read_user_settings();
    EXPECT_EQ(preferences.sample_volume, 128); // the file is there: start values stand
    folder.put("resource/user.def", "garbage of a length");
    read_user_settings();
    EXPECT_EQ(folder.text("resource/damaged.def"), "garbage of a length");
    std::filesystem::remove_all("resource");
    EXPECT_FALSE(write_user_settings());
    EXPECT_TRUE(logged("[ ERROR ] : Couldn't write file! Name = user.def"));
    EXPECT_FALSE(std::filesystem::exists("user.def")) << "it has no place here";
}

TEST_F(StateTest, ColourFilesRoundTripAndForeignOnesChangeNothing)
{
    menu_scheme.scheme[9] = 0x0000aa;
    toolbox.extended_favorites[255] = 0x00bb00;
    EXPECT_TRUE(save_scheme_file("my.scheme"));
    EXPECT_TRUE(save_favorites_file("my.colors"));
    EXPECT_EQ(folder.text("my.scheme").substr(0, 7), std::string("SCH\0\x9e\x9e\x9e", 7));
    menu_scheme.scheme[9] = 1;
    toolbox.extended_favorites[255] = 2;
    EXPECT_EQ(load_scheme_file("my.colors"), -1);
    EXPECT_EQ(load_favorites_file("my.scheme"), -1);
    EXPECT_EQ(load_favorites_file("missing"), -1);
    folder.put("short", folder.text("my.scheme").substr(0, 42));
    EXPECT_EQ(load_scheme_file("short"), -1);
    EXPECT_EQ(menu_scheme.scheme[9], 1);
    EXPECT_EQ(toolbox.extended_favorites[255], 2);
    EXPECT_EQ(load_scheme_file("my.scheme"), 1);
    EXPECT_EQ(load_favorites_file("my.colors"), 1);
    EXPECT_EQ(menu_scheme.scheme[9], 0x0000aa);
    EXPECT_EQ(toolbox.extended_favorites[255], 0x00bb00);
}

} // namespace kelu
