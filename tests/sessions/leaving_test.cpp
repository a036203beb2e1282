// SPDX-License-Identifier: MIT
// The rule of leaving, in every screen and tool: the first request to end the program waits until the user has left
// what is open, a click acts once meanwhile; the second request doesn't wait, and gives up what isn't committed.
#include "base/version.h"
#include "loop/home_strip.h"
#include "runtime/animation.h"
#include "runtime/macros.h"
#include "screens/browser_slots.h"
#include "support/places.h"
#include <allegro.h>
#include <filesystem>

namespace kelu {

using namespace test;

namespace {

/// Strokes in progress stay, since what is painted is work; and so does a step to another frame, and what the way to
/// the place has changed.
bool acts_at_once(const Place& place)
{
    const std::string name = place.name;
    return name == "stroke" || name == "dabs" || name == "spray" || name.starts_with("frame stepping") ||
           name.ends_with(" frames") || name == "clipboard, wider" || name == "colour of alpha";
}

/// All that a screen could change in the work and in the settings, but the choice of tool, colours and view.
std::string committed()
{
    std::string words;
    const auto add = [&words](int word) { words += std::to_string(word) + ' '; };
    add(store.frame_bitmap.width());
    unsigned sum = 0;
    for (int y = 0; y < store.frame_bitmap.height(); ++y)
        for (int x = 0; x < store.frame_bitmap.width(); ++x)
            sum = sum * 31 + static_cast<unsigned>(frame_pixel(x, y));
    words += std::to_string(sum) + ' ';
    for (const HotkeyRow& keys : hotkeys.hotkey_table) {
        add(keys.primary);
        add(keys.alternate);
    }
    for (const auto& function : hotkeys.mouse_button_map)
        add(function);
    for (const int word : {int(grid.grid_on), int(grid.grid_w), int(grid.grid_h), int(grid.grid_opacity)})
        add(word);
    for (const int color : menu_scheme.scheme)
        add(color);
    for (const int word : {int(preferences.undo_depth), int(preferences.mouse_swap), int(preferences.tooltips_on)})
        add(word);
    for (const auto& tag : animation.anim_tag)
        add(tag);
    add(macros.macro_table[0].grid_mode);
    add(store.cel_bitmap.width());
    add(store.cel_source_bitmap ? row(store.cel_source_bitmap, 0)[0] : 0);
    return words;
}

class Leaving : public testing::TestWithParam<Place> {
protected:
    Session session;
    Leaving() { prepare(session); }
};

TEST_P(Leaving, TheFirstRequestWaitsForTheUser)
{
    GetParam().open(session);
    request_end();
    session.frame(30);
    ASSERT_FALSE(session.ended()) << "the screen runs on";
    GetParam().leave(session);
    session.frame(30);
    EXPECT_TRUE(session.ended()) << "the program ends once the user has left the screen";
    EXPECT_EQ(session.exit_code(), 0);
}

TEST_P(Leaving, TheSecondRequestGivesUpWhatIsNotCommitted)
{
    if (std::string(GetParam().name) == "playback") tag_two(session);
    const std::string before = committed();
    GetParam().open(session);
    GetParam().draft(session);
    ASSERT_FALSE(session.ended());
    request_end();
    request_end();
    session.frame(5);
    ASSERT_TRUE(session.ended());
    EXPECT_EQ(session.exit_code(), 0);
    if (acts_at_once(GetParam())) return;
    EXPECT_EQ(committed(), before);
}

/// The button of the window on top that Escape stands for; -1 none.
int way_out()
{
    for (int button = gui_slots - 1; button >= 0; --button) {
        const int text = gui.text_id[button];
        const bool leaves = text == TEXT_CANCEL || text == TEXT_EXIT || text == TEXT_BACK || text == TEXT_RETURN;
        if (slot_live(button) && leaves) return button;
    }
    return -1;
}

TEST_P(Leaving, EscapeIsTheWayOut)
{
    const std::string name = GetParam().name;
    if (name == "playback") tag_two(session);
    const std::string before = committed();
    GetParam().open(session);
    GetParam().draft(session);
    const bool has_way = (way_out() >= 0 && name != "failure panel") || name == "playback" || name == "about";
    if (name == "remap dialog") {
        session.key(KEY_ESC);
        EXPECT_STREQ(gui.ptr[4], "ESC") << "a key like others";
        session.click(DIALOG_CANCEL);
    }
    for (int i = 0; i < 3 && menus.menu_id != MENU_DRAW && has_way; ++i)
        session.key(KEY_ESC);
    if (!has_way) return;
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(home_strip.hidden_by_user, 0);
    EXPECT_TRUE(acts_at_once(GetParam()) || committed() == before);
}

INSTANTIATE_TEST_SUITE_P(EveryPlace, Leaving, testing::ValuesIn(places), [](const auto& row) {
    std::string name = row.param.name;
    std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); });
    return name;
});

/// The bar tells of the end that waits, unless a message for a while does; also where the bar is out of the way.
TEST(LeavingRule, TheStatusLineSaysSo)
{
    Session session;
    prepare(session);
    open_entry(session, HOME_USER, 8, MENU_ABOUT);
    request_end();
    EXPECT_TRUE(looks_like(session, "leaving_notice"));
    EXPECT_EQ(menus.status_message, TIP_NONE) << "a screen's own message stays";
}

/// After a request a held press is still one click.
TEST(LeavingRule, AClickActsOnce)
{
    namespace fs = std::filesystem;
    Session session;
    prepare(session);
    fs::create_directories(fs::path(session.folder()) / "aa/ab/ac/ad");
    open_entry(session, HOME_PIC, 8, MENU_BROWSER);
    request_end();
    const auto press_in_list = [&session](int row_number) {
        session.move(gui.x[BROWSER_LIST] + 20, gui.y[BROWSER_LIST] + 2 + 6 * row_number + 2);
        session.press();
        session.frame(20);
        session.release();
        session.frame(4);
    };
    const fs::path start = fs::current_path();
    press_in_list(1); // the first row leads up
    EXPECT_EQ(fs::relative(fs::current_path(), start).string(), "aa") << "one folder down, not as far as it goes";
    session.click(BROWSER_CANCEL);
    session.frame(4);
    EXPECT_TRUE(session.ended());
}

TEST(LeavingRule, RapidExitEndsTheProgramAndItsLog)
{
    Session session;
    session.key(KEY_Q, {KEY_LSHIFT});
    EXPECT_TRUE(session.frames_until([&] { return session.ended(); }));
    EXPECT_EQ(session.exit_code(), 0);
    const std::string log = session.log();
    EXPECT_TRUE(log.starts_with("[ INIT ] : Old resources swept up\n[ INIT ] : Kelu v" + std::string(version()) +
                                " now loading\n"));
    EXPECT_NE(log.find("[ INIT ] : Requesting 640x480 windowed resolution\n[ INIT ] : Resolution accepted\n"),
              std::string::npos);
    EXPECT_TRUE(log.ends_with("[ END ] : Closing font renderer hooks.\n[ END ] : Closing log.\n"));
}

TEST(LeavingRule, ACornerIsTakenOnce)
{
    Session session;
    prepare(session);
    with_tool(TOOL_POLY)(session);
    request_end();
    session.move(60, 60);
    session.press();
    session.frame(20);
    EXPECT_EQ(tool_input.point_list.size(), 2U);
    session.release();
    right_click(session);
    session.frame(4);
    EXPECT_TRUE(session.ended());
}

} // namespace
} // namespace kelu
