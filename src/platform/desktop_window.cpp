// SPDX-License-Identifier: MIT
// The window through Allegro: modes, and the presenter.
//
// Allegro's `screen` is the shared image of the window itself; Allegro repaints exposed parts from it. So a picture
// needs pushing only where it changes.
#include "platform/desktop_window.h"

#include "base/run_state.h"
#include "platform/ending.h"
#include "platform/full_screen.h"
#include "platform/layout.h"
#include "platform/scaler.h"
#include <algorithm>
#include <cstring>

namespace kelu::platform {
namespace {

/// Half a second at the usual rate: a caret that blinks or a pointer that moves keeps the full rate.
constexpr int still_enough = 50;

/// Main thread only.
struct Presenter {
    int scale = 0;                            ///< of the mode, 0: there is no mode
    ChannelOrder order = ChannelOrder::PLAIN; ///< of the screen's words
    Bitmap shown;                             ///< the last picture pushed, logical size
    bool shown_valid = false;                 ///< false: the screen holds something else
    int still = 0;                            ///< presents in a row that changed nothing, up to `still_enough`
    Bitmap scaled; ///< physical size, `shown` as the screen has it; empty while the window's own image serves
};
Presenter presenter;

/// Logical rows from the first to the last; empty when `first` > `last`.
struct RowSpan {
    int first, last;
};

/// The rows in which the picture differs from the one shown.
RowSpan changed_rows(BITMAP* picture)
{
    if (!presenter.shown_valid) return {0, logical_h - 1};
    const auto same = [picture](int y) {
        return std::memcmp(row(picture, y), row(presenter.shown, y), logical_w * sizeof(int)) == 0;
    };
    RowSpan span = {0, logical_h - 1};
    while (span.first <= span.last && same(span.first))
        ++span.first;
    while (span.first < span.last && same(span.last))
        --span.last;
    return span;
}

/// True when the desktop has room for a window of this size; Allegro would open any. An unknown desktop has.
bool desktop_holds(int w, int h)
{
    int desktop_w = 0;
    int desktop_h = 0;
    return get_desktop_resolution(&desktop_w, &desktop_h) != 0 || (w <= desktop_w && h <= desktop_h);
}

/// The largest scale at which the picture lies within these sizes; below `min_scale` when there is none.
int largest_scale(int w, int h) { return std::min({w / logical_w, h / logical_h, max_scale}); }

/// Has Allegro enter a mode of this driver and scale.
bool set_mode(int driver, int scale)
{
    const int w = logical_w * scale;
    const int h = logical_h * scale;
    if (scale < min_scale || scale > max_scale || !desktop_holds(w, h)) return false;
    leave_full_screen();
    // The driver states its order of channels by these words, and on odd displays by leaving them alone.
    _rgb_r_shift_32 = 0;
    _rgb_b_shift_32 = 16;
    const bool entered = set_gfx_mode(driver, w, h, 0, 0) == 0;
    const bool plain = _rgb_r_shift_32 == 16;
    fix_pixel_layout();
    if (!entered) return false;
    presenter.order = plain ? ChannelOrder::PLAIN : ChannelOrder::EXCHANGED;
    presenter.scale = scale;
    presenter.shown = Bitmap(logical_w, logical_h);
    presenter.scaled = window_image() ? Bitmap() : Bitmap(w, h);
    presenter.shown_valid = false;
    return true;
}

/// By the window manager. On a desktop of several screens the window gets one of them, so that the scale may have to be
/// found anew.
int enter_full_screen_of_manager(int scale)
{
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (!set_mode(GFX_AUTODETECT_WINDOWED, scale)) return 0;
        const Extent screen_size = ask_for_full_screen();
        const int fitting = largest_scale(screen_size.w, screen_size.h);
        if (fitting == scale) return scale;
        scale = fitting;
    }
    return 0;
}

/// Without a manager that does it, by a window that no manager has a say in.
int enter_full_screen()
{
    int w = 0;
    int h = 0;
    const int scale = get_desktop_resolution(&w, &h) == 0 ? largest_scale(w, h) : min_scale;
    const int managed = manager_offers_full_screen() ? enter_full_screen_of_manager(scale) : 0;
    if (managed != 0) return managed;
    return set_mode(GFX_AUTODETECT_FULLSCREEN, scale) ? scale : 0;
}

} // namespace

int enter_desktop_mode(const VideoMode& mode)
{
    const int scale =
        mode.fullscreen ? enter_full_screen() : (set_mode(GFX_AUTODETECT_WINDOWED, mode.scale) ? mode.scale : 0);
    // The X driver knows only the second; the first is for systems that lose the picture in the background.
    if (scale != 0) set_display_switch_mode(mode.fullscreen ? SWITCH_BACKAMNESIA : SWITCH_BACKGROUND);
    return scale;
}

void present_on_desktop(BITMAP* picture, bool fresh)
{
    if (presenter.scale == 0 || display_lost()) return;
    if (!fresh && presenter.shown_valid) {
        presenter.still = std::min(presenter.still + 1, still_enough);
        return;
    }
    const RowSpan rows = changed_rows(picture);
    const bool still = rows.first > rows.last;
    presenter.still = still ? std::min(presenter.still + 1, still_enough) : 0;
    if (still) return;
    const int top = rows.first * presenter.scale;
    const int height = (rows.last - rows.first + 1) * presenter.scale;
    BITMAP* const scaled = presenter.scaled ? presenter.scaled.get() : window_image();
    // One request to the server: the display never shows half a picture.
    acquire_screen();
    if (connection_stands()) {
        scale_rows(picture, scaled, presenter.scale, rows.first, rows.last, presenter.order);
        if (presenter.scaled) {
            blit(scaled, screen, 0, top, 0, top, scaled->w, height);
        } else {
            push_image(top, height);
        }
        send_requests();
    }
    release_screen();
    blit(picture, presenter.shown, 0, rows.first, 0, rows.first, logical_w, rows.last - rows.first + 1);
    presenter.shown_valid = true;
}

bool picture_stands_still() { return presenter.still == still_enough; }

void close_desktop_window()
{
    leave_full_screen();
    if (presenter.scale != 0) set_gfx_mode(GFX_TEXT, 0, 0, 0, 0);
    presenter = {};
}

} // namespace kelu::platform
