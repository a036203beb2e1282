// SPDX-License-Identifier: MIT
// The window through Allegro: modes, and the presenter.
//
// Allegro's `screen` is the shared image of the window itself; Allegro repaints exposed parts from it. So a picture
// needs pushing only where it changes.
#include "platform/desktop_window.h"

#include "base/run_state.h"
#include "platform/ending.h"
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

bool desktop_holds(int w, int h)
{
    int desktop_w = 0;
    int desktop_h = 0;
    // Allegro opens any window, though half of it may lie beyond the edge.
    return get_desktop_resolution(&desktop_w, &desktop_h) != 0 || (w <= desktop_w && h <= desktop_h);
}

} // namespace

bool enter_desktop_mode(const VideoMode& mode)
{
    const int w = logical_w * mode.scale;
    const int h = logical_h * mode.scale;
    if (mode.scale < min_scale || mode.scale > max_scale || !desktop_holds(w, h)) return false;
    // The driver states its order of channels by these words, and on odd displays by leaving them alone.
    _rgb_r_shift_32 = 0;
    _rgb_b_shift_32 = 16;
    const bool entered =
        set_gfx_mode(mode.fullscreen ? GFX_AUTODETECT_FULLSCREEN : GFX_AUTODETECT_WINDOWED, w, h, 0, 0) == 0;
    const bool plain = _rgb_r_shift_32 == 16;
    fix_pixel_layout();
    if (!entered) return false;
    // The X driver knows only the second; the first is for systems that lose the picture in the background.
    set_display_switch_mode(mode.fullscreen ? SWITCH_BACKAMNESIA : SWITCH_BACKGROUND);
    presenter.order = plain ? ChannelOrder::PLAIN : ChannelOrder::EXCHANGED;
    presenter.scale = mode.scale;
    presenter.shown = Bitmap(logical_w, logical_h);
    presenter.scaled = window_image() ? Bitmap() : Bitmap(w, h);
    presenter.shown_valid = false;
    return true;
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
    if (presenter.scale != 0) set_gfx_mode(GFX_TEXT, 0, 0, 0, 0);
    presenter = {};
}

} // namespace kelu::platform
