// SPDX-License-Identifier: MIT
// The start-up sequence. Each step leans on what the one before it left in the global tables.
#include "program/startup.h"

#include "base/log.h"
#include "base/run_state.h"
#include "base/version.h"
#include "draw/tips.h"
#include "framework/framework_jobs.h"
#include "framework/resource_files.h"
#include "framework/script.h"
#include "framework/tint.h"
#include "gui/logic.h"
#include "gui/scheme.h"
#include "imagefile/png.h"
#include "imagefile/vector_font.h"
#include "loop/actions.h"
#include "loop/drag.h"
#include "loop/frame.h"
#include "loop/home_strip.h"
#include "platform/clipboard.h"
#include "platform/ending.h"
#include "platform/file_calls.h"
#include "platform/files.h"
#include "platform/folder_lock.h"
#include "platform/host.h"
#include "platform/places.h"
#include "runtime/actors.h"
#include "runtime/browser_state.h"
#include "runtime/clock.h"
#include "runtime/failure.h"
#include "runtime/input.h"
#include "runtime/jobs.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "screens/color_menu.h"
#include "screens/dialogs.h"
#include "screens/failure_panel.h"
#include "screens/file_browser.h"
#include "tools/tools.h"
#include "workspace/blank_workspace.h"
#include "workspace/folder.h"
#include "workspace/frame_store.h"
#include "workspace/notice.h"
#include "workspace/resources.h"
#include "workspace/running_work.h"
#include "workspace/settings.h"
#include "workspace/state.h"
#include <algorithm>
#include <array>
#include <cstdlib>
#include <ctime>
#include <string>

namespace kelu {
namespace {

constexpr int exit_in_use = 2;    ///< another program has the folder
constexpr int exit_unwritten = 1; ///< some of the work could not be written
constexpr const char* state_file = "current.spa";
constexpr int preview_w = 117;
constexpr int preview_h = 79;
constexpr int nail_sheet_side = 400;
constexpr int tint_start = 254; ///< opacity of the black that the first frames fade from
constexpr int tint_step = 32;   ///< of it a tick of the actors: the fade takes eight

/// The permissions test comes before the log is touched, so that the last run's log stays readable.
void test_folder()
{
    if (platform::file_writable("config.def")) return;
    platform::host->start();
    fatal_stop(fatal_text::permissions);
}

/// Two programs in one folder would write over each other's work.
void take_folder()
{
    if (platform::lock_folder()) return;
    platform::host->start();
    static std::string text; // stays while the process ends
    text = "The program already runs in this folder: \n \n" + platform::working_directory();
    fatal_stop(text.c_str(), exit_in_use);
}

void start_log()
{
    log_open();
    log_line("[ INIT ] : Old resources swept up");
    log_line("[ INIT ] : Kelu v%s now loading", version());
    log_line("[ INIT ] : DEFCON 1 - Standard logging");
}

void start_machine()
{
    if (!platform::host->start()) {
        log_line("[ FATAL ] : No display to draw on");
        fatal_stop("No display was found. Start the program from a graphical desktop.");
    }
    log_line("[ INIT ] : Initialized Allegro");
    platform::host->set_title((std::string("Kelu v") + version()).c_str());
}

/// The window's icons, if they are there.
void show_icons()
{
    const platform::DirectoryVisit folder(delivered_folder("resource/icons"));
    if (!folder.entered()) return;
    const std::array icons = {load_png("16.png"), load_png("24.png"), load_png("32.png"), load_png("48.png"),
                              load_png("128.png")};
    std::array<BITMAP*, icons.size()> pictures{};
    std::ranges::copy(icons, pictures.begin());
    platform::host->set_icons(pictures);
}

void load_resources()
{
    {
        const platform::DirectoryVisit folder(delivered_folder("resource"));
        load_object_library();
    }
    log_line("[ INIT ] : Loaded application audio resources");
    log_line("[ INIT ] : Loaded framework audio resources");
    load_application_resources();
    log_line("[ INIT ] : Loaded application video resources");
    show_icons();
    load_framework_video();
    log_line("[ INIT ] : Loaded framework video resources");
    const platform::DirectoryVisit folder("resource");
    sweep_old_resources();
}

/// Reductions to 256 colours look colours up here.
void make_color_map()
{
    static RGB_MAP map;
    create_rgb_table(&map, framework_palette, nullptr);
    rgb_map = &map;
}

void make_bitmaps()
{
    screen_state.screen_buffer_a = Bitmap(logical_w, logical_h, mask_magenta);
    screen_state.tool_overlay = Bitmap(logical_w, logical_h, mask_magenta);
    screen_state.preview_bitmap = Bitmap(preview_w, preview_h);
    for (Bitmap* placeholder : {&store.cel_bitmap, &store.cel_source_bitmap, &store.restoration_bitmap,
                                &store.coverage_bitmap, &store.alpha_bitmap})
        *placeholder = Bitmap(2, 2);
    store.nail_sheet = Bitmap(nail_sheet_side, nail_sheet_side);
    store.onion_bitmap.reset();
}

void restore_workspace()
{
    int loaded = 0;
    {
        const WorkspaceVisit visit({});
        if (visit.entered()) loaded = read_workspace_state(state_file);
    }
    if (loaded != 0) {
        store.frame_count = count_workspace_frames();
        log_line("[ INIT ] : User workspace restored from file");
    } else {
        log_line("[ INFO ] : Couldn't locate workspace. Assuming default settings.");
        apply_default_options();
        begin_workspace();
    }
}

/// What lower levels ask of higher ones.
void connect_levels()
{
    logic_hooks.hotkeys = [] { hotkey_dispatch(2); };
    logic_hooks.follow_view = [] {
        clamp_pan();
        update_mouse_position();
    };
    logic_hooks.wheel_zoom = zoom_step;
    logic_hooks.colour_tab = request_colour_tab;
    show_notice = [](int first, int second) { ask(first, second, DialogButtons::OKAY); };
    show_failure_panel = show_failure;
    install_drag_job();
    set_job_handler(JOB_CHOOSE_FONT, choose_font_job);
    register_framework_jobs(run_frame_plain);
}

void prepare()
{
    run_state.timers_locked = 1;
    test_folder();
    take_folder();
    start_log();
    run_state.program_dir = platform::working_directory();
    run_state.current_dir = run_state.program_dir;
    start_machine();
    initialize_display();
    log_line("[ INIT ] : Framework initialized");
    read_user_settings();
    log_line("[ INIT ] : User settings loaded from file");
    load_resources();
    std::srand(static_cast<unsigned>(std::time(nullptr)));
    make_color_map();
    make_bitmaps();
    pointer.last_mouse_z = ::mouse_z;
    platform::host->position_mouse(screen_state.screen_w / 2, screen_state.screen_h / 2);
    wave_displacers = {};
    actor_at(0).Type = ACTOR_RESERVED;
    fill_view_tables();
    connect_levels();
    install_interrupts();
    restore_workspace();
    start_running_work();
}

/// For a system that goes down while a menu is open: the program ends from inside it.
[[noreturn]] void end_program_at_once() { std::exit(shutdown_program(write_last_work())); }

/// The folder in which the user last looked for files, if it is still there; else the one for pictures.
void enter_last_folder()
{
    const std::string& last = browser_state.browser_dir;
    const bool entered =
        (!last.empty() && platform::change_directory(last)) || platform::change_directory(platform::picture_folder());
    if (entered) run_state.current_dir = platform::working_directory();
    platform::change_directory(run_state.current_dir);
}

void enter_running()
{
    platform::end_at_once = end_program_at_once;
    run_state.gui_clicks_enabled = 1;
    run_state.timers_locked = 0;
    log_line("[ INIT ] : All preparations complete. Entering program loop");
    log_line(" ");
    if (run_state.start_month == 0 && run_state.start_day == 29) log_line("[ DERP ] : Birthday mode engaged!");
    enter_last_folder();
    run_state.gui_active = 1;
    run_state.gui_clicks_enabled = 1;
    tint.tint_red = 0;
    tint.tint_green = 0;
    tint.tint_blue = 0;
    tint.tint_opacity = tint_start;
    FW_tint_screen(0, 0, 0, 0, 0, tint_step);
    apply_scheme();
    recolor_gui_sheet(menu_scheme.scheme_background, menu_scheme.scheme_border, menu_scheme.scheme_shadow,
                      menu_scheme.scheme_highlight_fore);
    rebuild_tip_cursor();
}

} // namespace

int run_program()
{
    prepare();
    enter_running();
    Leaving leaving = Leaving::STAYS;
    while (leaving == Leaving::STAYS) {
        program.home_loop();
        leaving = leave_program();
    }
    return shutdown_program(leaving);
}

int shutdown_program(Leaving leaving)
{
    stop_running_work(leaving == Leaving::WRITTEN);
    log_line("[ END ] : Closing font renderer hooks.");
    font_system_exit();
    log_line("[ END ] : Closing log.");
    log_close();
    remove_interrupts();
    platform::clipboard_close();
    platform::host->stop();
    platform::unlock_folder();
    return leaving == Leaving::WRITTEN ? EXIT_SUCCESS : exit_unwritten;
}

} // namespace kelu
