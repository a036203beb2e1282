// SPDX-License-Identifier: MIT
// Where the status bar stands and what it says.
#include "gui/status_bar.h"

#include "gui/tooltips.h"
#include "gui_fixture.h"
#include "runtime/frame_snapshot.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include "support/golden.h"
#include "support/screen_resources.h"

namespace kelu::test {
namespace {

constexpr int desk = 0x8090a0;

class StatusBar : public GuiTest {
protected:
    void SetUp() override
    {
        GuiTest::SetUp();
        load_screen_resources();
        frame_snapshot = {};
        frame_snapshot.mouse_x = 100;
        frame_snapshot.mouse_y = 100;
        place(0, KIND_WINDOW, 0, 207, 319, 32);
    }
    /// The bar's first line, -1 when there is none.
    static int drawn_at()
    {
        clear_to_color(screen_state.back_buffer, desk);
        draw_status_bar();
        for (int y = 0; y < logical_h; ++y) {
            if (row(screen_state.back_buffer, y)[310] != desk) return y;
        }
        return -1;
    }
};

} // namespace

TEST_F(StatusBar, ItGetsOutOfTheWay)
{
    EXPECT_EQ(drawn_at(), 0);
    frame_snapshot.mouse_y = 6; // the menu fills the bottom: just above it
    EXPECT_EQ(drawn_at(), 200);
    gui.y[0] = 100; // the menu ends above the bottom line
    EXPECT_EQ(drawn_at(), 233);
    gui.y[0] = 3; // a menu at the top
    EXPECT_EQ(drawn_at(), 233);
    frame_snapshot.mouse_y = 233;
    EXPECT_EQ(drawn_at(), 3 + 32 + 1);
    gui_reset_slot(0);
    EXPECT_EQ(drawn_at(), 0);
}

TEST_F(StatusBar, OptionsAndAHiddenMenuHideItUnlessAToolAsks)
{
    gui.hidden[0] = 1;
    EXPECT_EQ(drawn_at(), -1);
    frame_snapshot.status_message = TIP_GRAB_FIRST;
    EXPECT_EQ(drawn_at(), 0) << "a tool that has hidden the menu asks";
    frame_snapshot.status_message = -1;
    EXPECT_EQ(drawn_at(), 0);
    gui.hidden[0] = 0;
    preferences.status_bar_on = 0;
    EXPECT_EQ(drawn_at(), 0);
    frame_snapshot.status_message = 0;
    EXPECT_EQ(drawn_at(), -1);
    run_state.exit_requested = 1;
    EXPECT_EQ(drawn_at(), 0) << "the end waits for the user";
    run_state.exit_requested = 0;
    preferences.status_bar_on = 1;
    preferences.status_opacity = 255; // held below solid
    EXPECT_EQ(drawn_at(), 0);
    EXPECT_EQ(row(screen_state.back_buffer, 0)[245], blend_pixel(desk, 0, 254));
}

TEST_F(StatusBar, MessagesBeforeTooltipsBeforeTheReadout)
{
    const Bitmap lines(logical_w, 90, desk);
    int y = 0;
    const auto keep = [&] {
        drawn_at();
        blit(screen_state.back_buffer, lines, 0, 0, 0, y, logical_w, status_bar_h);
        y += 9;
    };
    store.current_frame = 7;
    frame_snapshot.frame_mouse_x = -12;
    frame_snapshot.frame_mouse_y = 345;
    gui.tooltip[0] = TIP_BRUSH_TIP;
    frame_snapshot.tooltip_slot = 0;
    preferences.tooltips_on = 0;
    keep(); // the readout
    preferences.tooltips_on = 1;
    keep(); // the tooltip
    frame_snapshot.status_message = -1;
    keep(); // the readout in any case
    frame_snapshot.status_message = TIP_NOW_FILLED;
    keep(); // the message, with its own colours
    frame_snapshot.status_message = 0;
    frame_snapshot.tooltip_slot = -1;
    view.onion_on = 1;
    keep();
    preferences.status_font = 0;
    keep();
    store.alpha_edit_mode = 1;
    keep();
    preferences.status_font = 1;
    keep();
    frame_snapshot.status_message = TIP_CEL_XFORM;
    keep();
    EXPECT_TRUE(matches_golden(lines, "status_bar"));
}

} // namespace kelu::test
