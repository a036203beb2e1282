// SPDX-License-Identifier: MIT
// The options screen: DEFAULTS, CANCEL, and what its end brings about.
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
enum { CURSOR_TIP = 4, LIMITER = 16, DEPTH = 18, ONION = 34 };

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
