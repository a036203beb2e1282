// The failure panel over an open menu.
#include "gui/kinds.h"
#include "gui/slots.h"
#include "runtime/preferences.h"
#include "screens/draw_menu.h"
#include "screens/failure_panel.h"
#include "support/golden.h"
#include "support/session.h"
#include <gtest/gtest.h>

namespace kelu {

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
    session.move(300, 20);
    session.frame(200);
    EXPECT_TRUE(test::matches_golden(session.picture(), "failure_panel"));
    session.press();
    EXPECT_FALSE(dismissed) << "it waits for the release";
    session.release();
    session.frame(2);
    EXPECT_TRUE(dismissed);
    EXPECT_EQ(gui.active[124] + gui.active[125] + gui.active[126], 0);
}

} // namespace kelu
