// SPDX-License-Identifier: MIT
// The cost of a frame, of presenting it, and of a stroke.
#include "base/run_state.h"
#include "draw/ink_rows.h"
#include "draw/operation.h"
#include "loop/frame.h"
#include "loop/home_strip.h"
#include "platform/scaler.h"
#include "runtime/frame_flags.h"
#include "runtime/input.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "screens/draw_menu.h"
#include "support/session.h"
#include "tools/operation.h"
#include <benchmark/benchmark.h>

namespace kelu {
namespace {

/// Runs `body` in the place of the drawing menu's loop, over the strip, in a whole program.
template <class Body>
void in_program(Body body)
{
    static Body* kept = nullptr;
    kept = &body;
    test::Session session([] {
        build_draw_menu();
        run_frame(0);
        run_frame(0);
        run_frame(0);
        frame_flags.clean_render = 1; // composes the whole picture but hands no turn to the session
        (*kept)();
        frame_flags.clean_render = 0;
        draw_menu();
    });
}

void frame_at_zoom(benchmark::State& state)
{
    in_program([&state] {
        view.zoom = static_cast<int>(state.range(0));
        for (auto turn : state)
            run_frame(0);
    });
}
BENCHMARK(frame_at_zoom)->DenseRange(1, 6);

/// What a wholly changed picture costs before it goes to the display: scaled, then copied into the window's bitmap.
void present_at_scale(benchmark::State& state)
{
    const int scale = static_cast<int>(state.range(0));
    const Bitmap picture(320, 240, 0x345678);
    const Bitmap scaled(320 * scale, 240 * scale);
    const Bitmap window(320 * scale, 240 * scale);
    for (auto turn : state) {
        platform::scale_rows(picture, scaled, scale, 0, 239, platform::ChannelOrder::PLAIN);
        blit(scaled, window, 0, 0, 0, 0, 320 * scale, 240 * scale);
    }
}
BENCHMARK(present_at_scale)->DenseRange(2, 4);

void stroke_of_1000_stamps(benchmark::State& state)
{
    in_program([&state] {
        toolbox.brush_tip = 5;
        for (auto turn : state) {
            draw_to_frame(160, 120, TOOL_NONE, INK_OPAQUE, 5);
            for (int i = 0; i < 1000; ++i)
                stamp_tip(20 + i % 280, 20 + i / 5, TOOL_DRAW, INK_OPAQUE, 5);
        }
    });
}
BENCHMARK(stroke_of_1000_stamps);

} // namespace
} // namespace kelu
