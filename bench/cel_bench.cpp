// SPDX-License-Identifier: MIT
// The preview of a cel that is stretched over the view, a frame of it, beside a resize of the cel to that size.
#include "base/run_state.h"
#include "draw/cel.h"
#include "draw/cel_render.h"
#include "opencv_peer.h"
#include "pictures.h"
#include "runtime/frame_snapshot.h"
#include "runtime/store.h"
#include <benchmark/benchmark.h>

namespace kelu {
namespace {

constexpr int shown_w = 280, shown_h = 200;

void stretch_preview(benchmark::State& state)
{
    store.cel_bitmap = flat_art(static_cast<int>(state.range(0)));
    screen_state.tool_overlay = Bitmap(logical_w, logical_h);
    frame_snapshot = {};
    cel_work.cel_place = {};
    cel_work.cel_place.mode = CEL_STRETCH;
    cel_work.cel_place.x = cel_work.cel_place.y = 20;
    cel_work.cel_place.x2 = 20 + shown_w;
    cel_work.cel_place.y2 = 20 + shown_h;
    for (auto _ : state)
        draw_cel_preview();
    cel_work = {};
    screen_state.tool_overlay.reset();
    store = {};
}
BENCHMARK(stretch_preview)->Arg(256)->Arg(4096)->Unit(benchmark::kMillisecond);

void resize_opencv(benchmark::State& state)
{
    const Bitmap picture = flat_art(static_cast<int>(state.range(0)));
    const OpenCvResize peer(row(picture, 0), picture.width(), picture->line[1] - picture->line[0]);
    for (auto _ : state)
        peer.resize(shown_w, shown_h);
}
BENCHMARK(resize_opencv)->Arg(256)->Arg(4096)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kelu
