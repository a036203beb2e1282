// SPDX-License-Identifier: MIT
// The options screen: its rows as they scroll, what acts at once, DEFAULTS, CANCEL, and what its end brings about.
#include "draw/undo.h"
#include "screens/options_table.h"
#include "support/paths.h"
#include "support/screen_session.h"
#include <filesystem>
#include <regex>

namespace kelu {

using namespace test;

namespace fs = std::filesystem;

namespace {

enum { OPTIONS = 2 };
enum { LIST = 2, OKAY = 5, DEFAULTS = 6, CANCEL = 7, WIDGET_0 = 8 };
enum { CURSOR_TIP = 4, CROSSHAIR_COLOR = 7, LIMITER = 16, REDUCTION = 17, DEPTH = 18, ONION = 34, LAST_ROW = 41 };

void open_options(Session& session) { open_entry(session, HOME_USER, OPTIONS, MENU_OPTIONS); }

/// Scrolls so that an option is in view; returns the first slot of its widgets.
int scroll_to(Session& session, int option)
{
    gui.scroll_value[LIST] = std::min(option, 33);
    session.frame(3);
    return WIDGET_0 + 3 * (option - gui.scroll_value[LIST]);
}

std::vector<int> option_values()
{
    std::vector<int> values;
    for (const OptionRow& row : options_table())
        if (row.word) values.push_back(*row.word);
    return values;
}

} // namespace

TEST(OptionsMenu, DefaultsAreWhatIsDelivered)
{
    const Session session(nullptr, [] {
        fs::copy(fs::path(app_folder()).parent_path() / "defaults", ".", // the app's own may be a user's
                 fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    });
    const auto rows = options_table();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!rows[i].word) continue;
        EXPECT_EQ(*rows[i].word, rows[i].by_default) << ui_strings[first_option_name + static_cast<int>(i)];
    }
    EXPECT_FALSE(std::regex_search(session.log(), std::regex("WARNING|ERROR"))) << session.log();
}

TEST(OptionsMenu, RowsScrollAndActAtOnce)
{
    Session session;
    open_options(session);
    session.click(WIDGET_0 + 3 * CROSSHAIR_COLOR + 2);
    EXPECT_EQ(preferences.crosshair_color, 2);
    EXPECT_TRUE(looks_like(session, "options_menu", 150, 60));
    session.move(gui.x[WIDGET_0 + 3] + 5, gui.y[WIDGET_0 + 3] + 4);
    session.wheel(-1);
    EXPECT_EQ(gui.scroll_value[LIST], 2) << "the wheel goes through a radio to the list";
    const int depth = scroll_to(session, DEPTH);
    session.move(gui.x[depth] + 70, gui.y[depth] + 4);
    for (int i = 0; i < 5; ++i)
        session.wheel(-1);
    EXPECT_EQ(preferences.undo_depth, 1) << "the lowest";
    session.wheel(1);
    EXPECT_TRUE(looks_like(session, "options_menu_middle", 150, 60));
    scroll_to(session, LAST_ROW);
    EXPECT_EQ(gui.scroll_value[LIST], 33);
    EXPECT_TRUE(looks_like(session, "options_menu_end", 150, 60));
    EXPECT_EQ(gui.kind[scroll_to(session, CROSSHAIR_COLOR) + 2], KIND_RADIO_ON) << "the live value comes back";
    preferences.color_reduction = 7;
    const int reduction = scroll_to(session, REDUCTION);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(gui.kind[reduction + i], KIND_RADIO_OFF) << "no radio stands for a value out of range";
}

TEST(OptionsMenu, DefaultsAndCancelWriteEveryOption)
{
    Session session;
    preferences.mouse_speed = 9;
    const std::vector<int> before = option_values();
    open_options(session);
    session.click(DEFAULTS);
    session.frame(10);
    std::vector<int> by_default;
    for (const OptionRow& row : options_table())
        if (row.word) by_default.push_back(row.by_default);
    EXPECT_EQ(option_values(), by_default);
    EXPECT_EQ(preferences.mouse_speed, 4);
    EXPECT_EQ(gui.kind[WIDGET_0 + 3 * CURSOR_TIP + 1], KIND_RADIO_ON) << "the rows are built anew";
    scroll_to(session, DEPTH); // sliders must not write after the end
    session.click(CANCEL);
    EXPECT_EQ(option_values(), before);
    EXPECT_EQ(preferences.mouse_speed, 9);
    open_options(session);
    session.click(DEFAULTS);
    session.click_at(20, 60, RIGHT_BUTTON);
    EXPECT_EQ(option_values(), before);
}

TEST(OptionsMenu, TheEndOfTheScreenSetsWhatHangsOnTheOptions)
{
    Session session;
    push_undo(false);
    open_options(session);
    preferences.undo_depth = 9;
    session.click(CANCEL);
    EXPECT_EQ(undo.undo_age[0], undo_slot_newest) << "a depth that was taken back costs no undo step";
    open_options(session);
    session.click(scroll_to(session, ONION));
    EXPECT_EQ(options_state.onion_staged, 1);
    const int limiter = scroll_to(session, LIMITER);
    session.click(limiter);
    EXPECT_EQ(preferences.frame_limiter, 0);
    session.move(gui.x[limiter + 6] + 70, gui.y[limiter + 6] + 4);
    session.wheel(1);
    session.click(OKAY);
    EXPECT_EQ(undo.undo_age[0], undo_slot_free) << "another depth, another queue";
    EXPECT_EQ(view.onion_on, 0) << "there is one frame only";
    flash_status_message(1, 120);
    session.frame(20);
    EXPECT_LT(menus.status_message_ticks, 102) << "the logic ticks with every present";
    store.frame_count = 2;
    open_options(session);
    session.click(scroll_to(session, ONION));
    session.click(OKAY);
    EXPECT_EQ(view.onion_on, 1);
}

} // namespace kelu
