// SPDX-License-Identifier: MIT
// The failure panel over an open menu.
#include "loop/home_strip.h"
#include "screens/failure_panel.h"
#include "support/screen_session.h"

namespace kelu {

using namespace test;

TEST(FailurePanel, WaitsForTheLeftButtonAndLeavesNoSlots)
{
    static bool dismissed;
    dismissed = false;
    test::Session session([] {
        preferences.mouse_swap = 0; // the raw left button counts, whichever is the primary one
        build_draw_menu();
        show_failure(1);
        dismissed = true;
        draw_menu();
    });
    session.click_at(160, 20, test::RIGHT_BUTTON);
    EXPECT_FALSE(dismissed);
    EXPECT_EQ(gui.kind[124], KIND_FAILURE_PANEL);
    gui_clear_window(); // the strip's colours are random
    EXPECT_TRUE(looks_like(session, "failure_panel", 300, 20));
    session.press();
    EXPECT_FALSE(dismissed) << "it waits for the release";
    session.release();
    session.frame(2);
    EXPECT_TRUE(dismissed);
    EXPECT_EQ(gui.active[124] + gui.active[125] + gui.active[126], 0);
}

} // namespace kelu
