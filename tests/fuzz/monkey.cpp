// SPDX-License-Identifier: MIT
// A user without a plan: the whole program under random pointer, keys, files and ends, with checks in between.
//
// The bytes of the input choose what is done; behind its end a generator that they have seeded goes on, up to
// KELU_MONKEY_EVENTS events or 3000. So an input that breaks something does so again. KELU_MONKEY_LOG=1 tells each
// event.
#include "monkey_hands.h"
#include "platform/dropped_files.h"
#include "platform/ending.h"
#include "platform/host.h"
#include "platform/places.h"
#include "runtime/opened_files.h"
#include "support/paths.h"
#include "workspace/frame_resize.h"
#include <functional>

namespace kelu::test::monkey {
namespace {

namespace fs = std::filesystem;

constexpr int most_tries = 40;       ///< to get out of wherever the user is
constexpr int most_pixels = 1 << 17; ///< of a frame; a larger one soon makes way for a small one, for the time it takes
constexpr std::array dropped{"png/rgba-8.png",   "gif/animated.gif", "bmp/rgb-8.bmp",   "pcx/indexed-4.pcx",
                             "apng/palette.png", "jpeg/rgb.jpg",     "fonts/block.bdf", "state/filled.def"};

void use_action()
{
    const HotkeyRow& row = hotkeys.hotkey_table[below(ACTION_LIST_END)];
    const int keys = below(3) == 0 ? row.alternate : row.primary;
    if (keys <= 0) return;
    below(4) == 0 ? key(keys & ~key_modifiers, true) : tap_key(keys & ~key_modifiers, keys & key_modifiers);
}

void shrink_frame() { resize_frame(store.current_frame, 2 + below(100), 2 + below(80), below(9), below(2)); }

/// Another tool, ink, tip or colour, which the menus would take long to come to.
void choose()
{
    note("choose");
    toolbox.tool_slots[int(toolbox.tool_slot)] = 1 + below(TOOL_COUNT - 1);
    toolbox.ink_slots[int(toolbox.ink_slot)] = below(INK_COUNT);
    set_brush_tip(below(custom_tip + 1));
    toolbox.brush_color = below(256) << below(17);
    something_shows();
    if (is_quiet() && store.frame_bitmap.width() * store.frame_bitmap.height() > most_pixels) shrink_frame();
}

void open_place()
{
    let_go();
    if (!is_quiet()) return;
    const Place& place = one_of(places);
    note(place.name);
    platform::stop_input_events();
    place.open(*session);
    platform::queue_input_events();
    hold(::mouse_b);
}

void fill_disk()
{
    if (!disk_fails) return;
    disk_is_full = !disk_is_full;
    note(disk_is_full ? "disk full" : "disk free");
}

void drop_file()
{
    const fs::path name = one_of(dropped);
    note(name.c_str());
    platform::add_dropped_files({folder / name.filename()});
}

/// Nothing is held: time for the checks that take longer.
void look_back()
{
    let_go();
    frames(5);
    check_words();
    if (!is_quiet()) return;
    check_home();
    check_history();
    if (!disk_is_full) check_files(*session);
}

/// What gets a user out of anything: the buttons that leave, Escape, a click somewhere, and again.
void try_to_leave()
{
    constexpr std::array ways{int(TEXT_CANCEL), int(TEXT_EXIT), int(TEXT_BACK), int(TEXT_RETURN), int(TEXT_OKAY)};
    const auto click_slowly = [](int bits) {
        hold(bits);
        frames(6);
        hold(0);
        frames(6);
    };
    for (int slot = gui_slots - 1; slot >= 0; --slot) {
        if (!slot_live(slot) || std::ranges::find(ways, int(gui.text_id[slot])) == ways.end()) continue;
        point(gui.x[slot] + 2, gui.y[slot] + 2);
        click_slowly(1);
        break;
    }
    key(KEY_ESC, true);
    frames(4);
    key(KEY_ESC, false);
    frames(4);
    point_anywhere();
    click_slowly(1 + below(2));
}

/// Once the program has started.
void settle_in()
{
    cage = folder = session->folder();
    platform::places.drive_root = {};
    static void (*const check)() = still_frame_check;
    still_frame_check = [] { // it takes longer than the frame that isn't composed
        if (frame_time % 16 == 0) check();
    };
    platform::queue_input_events();
    buttons = 0;
}

void end_program()
{
    disk_is_full = false;
    require(session->finish(), "the program doesn't end");
    require(disk_fails || session->exit_code() == 0, "the program has ended with a failure");
    if (talks) std::cerr << session->log();
    platform::stop_input_events();
    platform::take_dropped_files();
    opened_files.waiting.clear();
    cage.clear();
    lives_by_frames = false;
}

/// A user can save over the files that come with the program, without which it doesn't start: they come back.
void bring_delivered_files()
{
    for (const auto& file : fs::recursive_directory_iterator(app_folder() + "/resource")) {
        const fs::path name = fs::relative(file.path(), app_folder());
        if (file.is_regular_file() && name.filename() != "user.def")
            fs::copy_file(file, folder / name, fs::copy_options::overwrite_existing);
    }
}

void start_again()
{
    bring_delivered_files();
    session->restart();
    settle_in();
}

/// Ends the program, now or once the user has left what is open, and starts it again.
void leave()
{
    note("leave");
    disk_is_full = false;
    let_go();
    for (int requests = 1 + below(2); requests > 0; --requests)
        request_end();
    frames(6);
    for (int tries = most_tries; tries > 0 && !session->ended(); --tries)
        try_to_leave();
    require(session->ended(), "the user can't leave");
    let_go();
    const bool wrote_all = session->exit_code() == 0; // or the user has left with the disk full
    const Work work(*session);
    end_program();
    start_again();
    if (wrote_all) check_start(work, *session, false);
}

/// The power goes: what the disk has at this moment is what the next start finds.
void cut_power()
{
    note("power cut");
    if (disk_is_full.exchange(false)) frames(400); // the time in which it is tried again
    let_go();
    for (int tries = below(8); tries > 0 && !is_quiet(); --tries)
        try_to_leave();
    if (session->ended()) return;
    const bool comparable = is_quiet();
    if (comparable) check_files(*session);
    const Work work(*session);
    fs::copy(folder + "/WORKSPACE", folder + "/kept");
    end_program();
    fs::remove_all(folder + "/WORKSPACE");
    fs::rename(folder + "/kept", folder + "/WORKSPACE");
    start_again();
    if (comparable) check_start(work, *session, true);
}

struct Deed {
    int weight;
    void (*act)();
};
constexpr Deed deeds[] = {
    {100, point_anywhere}, {60, point_near}, {110, click_slot},
    {60, click},           {25, drag},       {50, [] { hold(buttons ^ one_of(std::array{1, 1, 1, 1, 2, 4})); }},
    {15, turn_wheel},      {50, press_key},  {12, type_word},
    {50, use_action},      {12, let_go},     {12, [] { frames(1 + below(30)); }},
    {12, choose},          {20, open_place}, {2, drop_file},
    {8, look_back},        {1, leave},       {1, cut_power},
    {3, fill_disk}};

void act()
{
    constexpr int all = [] {
        int sum = 0;
        for (const Deed& deed : deeds)
            sum += deed.weight;
        return sum;
    }();
    int number = below(all);
    const Deed* deed = deeds;
    for (; number >= deed->weight; ++deed)
        number -= deed->weight;
    deed->act();
    frames(below(3));
    if (session->ended()) leave(); // a key or a button has asked for it
    check_pictures();
}

/// A program on some work.
void begin()
{
    event_count = 0;
    const auto live = [] {
        lives_by_frames = true;
        draw_menu();
    };
    const auto bring_files = [] {
        for (const char* name : dropped)
            fs::copy(data_folder() + '/' + name, ".");
    };
    session.emplace(live, bring_files);
    settle_in();
    if (below(4) != 0) prepare(*session);
    if (below(2) != 0) shrink_frame();
    if (below(3) == 0) make_frames(below(20) == 0 ? max_frames - below(3) : 2 + below(7));
    disk_fails = below(4) == 0;
    reset_undo_slots();
}

} // namespace
} // namespace kelu::test::monkey

extern "C" const char* __asan_default_options() { return "handle_abort=1"; }

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    static const kelu::platform::FileCalls calls = kelu::caged_calls();
    kelu::platform::file_calls = &calls;
    kelu::platform::headless_host.start();
    GTEST_FLAG_SET(break_on_failure, true);
    if (std::filesystem::is_directory("/dev/shm")) setenv("TMPDIR", "/dev/shm", 0);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace kelu::test;
    using namespace monkey;
    if (size == 0) return 0; // the driver's first
    input.assign(data, size);
    std::seed_seq seed(data, data + size);
    random_numbers.seed(seed);
    for (begin(); event_count < most_events;)
        act();
    let_go();
    end_program();
    session.reset();
    return 0;
}
