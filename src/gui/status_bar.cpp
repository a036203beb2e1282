// SPDX-License-Identifier: MIT
// Place and contents of the status bar.
#include "gui/status_bar.h"

#include "base/run_state.h"
#include "gui/kinds.h"
#include "gui/menus.h"
#include "gui/slots.h"
#include "gui/text.h"
#include "gui/tooltips.h"
#include "runtime/frame_snapshot.h"
#include "runtime/pixels.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include <algorithm>
#include <array>
#include <cstdio>
#include <string>

namespace kelu {
namespace {

constexpr int readout_in_any_case = -1; // message: the bar shows, whatever options and menu say
constexpr int darkest = 254;
constexpr int bottom_line = logical_h - status_bar_h;

/// On the top edge, or out of the way of the pointer and of a menu there.
int bar_y()
{
    const bool menu_in_view = gui.hidden[0] == 0 && gui.kind[0] != 0;
    const bool menu_on_top = menu_in_view && gui.y[0] < status_bar_h;
    const int menu_end = gui.y[0] + gui.h[0];
    if (menu_on_top) return frame_snapshot.mouse_y < bottom_line ? bottom_line : menu_end + 1;
    if (frame_snapshot.mouse_y >= status_bar_h) return 0;
    return !menu_in_view || menu_end < bottom_line ? bottom_line : gui.y[0] - status_bar_h;
}

void draw_in_the_middle(int y, int colour_set, const char* text)
{
    set_outlined_text(FONT_WIDE, colour_set);
    draw_text(screen_state.back_buffer, logical_w / 2 - text_width(text) / 2, y + 1, text);
}

/// The text of a message, with its reason when it has one.
std::string message_text(int message)
{
    std::string text = tooltip_text(message);
    if (message != menus.reasoned_message) return text;
    set_outlined_text(FONT_WIDE, SET_MESSAGE);
    const std::string both = text + " " + menus.status_reason;
    return text_width(both.c_str()) < logical_w ? both : menus.status_reason;
}

/// What to do in a state in which clicks on the frame do nothing, TIP_NONE elsewhere.
int way_out()
{
    const int menu = menus.menu_id;
    const bool window_hidden = gui.active[0] != 0 && gui.hidden[0] != 0;
    if (window_hidden && menu != MENU_DRAW && menu != MENU_DIALOG) return TIP_WINDOW_HIDDEN;
    if (menu == MENU_PLAYBACK) return TIP_PLAYBACK_RUNS;
    const bool column = menu == MENU_PIC || menu == MENU_CEL || menu == MENU_USER || menu == MENU_FRAME;
    return column && gui.kind[0] == KIND_WINDOW ? TIP_COLUMN_OPEN : TIP_NONE;
}

const char* frame_label()
{
    if (store.alpha_edit_mode) return "|c44ALPHA|c21 > |c32";
    return view.onion_on ? "|c42ONION|c21 > |c32" : "|c21FRAME > |c32";
}

/// Pointer on the screen and on the frame, and the number of the frame.
void draw_readout(int y)
{
    const bool wide = preferences.status_font != 0;
    const FrameSnapshot& shot = frame_snapshot;
    BITMAP* target = screen_state.back_buffer;
    std::array<char, 64> text{};
    set_outlined_text(wide ? FONT_WIDE : FONT_NARROW, SET_TOOLTIP);
    std::snprintf(text.data(), text.size(), "MOUSE > |c24%d.%d", shot.mouse_x, shot.mouse_y);
    draw_text(target, 1, y + 1, text.data());
    std::snprintf(text.data(), text.size(), "|c21PIXEL > |c24%d.%d", shot.frame_mouse_x, shot.frame_mouse_y);
    draw_text(target, wide ? 120 : 136, y + 1, text.data());
    std::snprintf(text.data(), text.size(), "%s%02d", frame_label(), int(store.current_frame));
    draw_text(target, logical_w - (wide ? 60 : 40), y + 1, text.data());
}

} // namespace

void draw_status_bar()
{
    // The end that waits for the user comes before all but what shows for a while only, such as a failure.
    const bool end_waits = run_state.exit_requested != 0 && menus.status_message_ticks == 0;
    const int tooltip_slot = preferences.tooltips_on != 0 ? int(frame_snapshot.tooltip_slot) : -1;
    int message = end_waits ? TIP_LEAVE_TO_END : int(frame_snapshot.status_message);
    if (message == 0 && tooltip_slot == -1) message = way_out();
    const bool prompts = message > 0;
    const bool shown = preferences.status_bar_on != 0 && menus.status_bar_away == 0 && (gui.hidden[0] == 0 || prompts);
    if (!shown && !end_waits && message != readout_in_any_case) return;
    const int y = bar_y();
    blend_rect(screen_state.back_buffer, 0, y, logical_w, status_bar_h, fixed_colours.black,
               std::min(int(preferences.status_opacity), darkest));
    if (message > 0) {
        draw_in_the_middle(y, SET_MESSAGE, message_text(message).c_str());
    } else if (message == 0 && tooltip_slot != -1) {
        draw_in_the_middle(y, SET_TOOLTIP, tooltip_text(gui.tooltip[tooltip_slot]));
    } else {
        draw_readout(y);
    }
}

} // namespace kelu
