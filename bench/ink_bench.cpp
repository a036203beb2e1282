// SPDX-License-Identifier: MIT
// Inks over large areas and along long strokes. "Pixels" and "stamps" give the cost of one.
#include "draw/gradient.h"
#include "draw/inks.h"
#include "draw/undo.h"
#include "platform/host.h"
#include "runtime/pixels.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include <algorithm>
#include <benchmark/benchmark.h>

namespace kelu {
namespace {

constexpr int side = 1024;

/// A frame of 1024 x 1024 pixels with soft ramps, and an operation begun on it.
void begin_operation()
{
    platform::headless_host.start();
    store.frame_bitmap = Bitmap(side, side);
    store.coverage_bitmap = Bitmap(side, side);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            row(store.frame_bitmap, y)[x] = pack_rgb(x * y >> 6 & 255, x >> 2, y >> 2);
    }
    store.cel_source_bitmap = Bitmap(50, 40, 0x80a0c0);
    reset_undo_slots();
    push_undo(false);
    toolbox.brush_color = 0x40c0f0;
    set_initial_ink_options();
    toolbox.ink_table[INK_GLOW][options::glow_radius.column] = options::glow_radius.highest();
    toolbox.ink_table[INK_L_GRAD][GRADIENT_END_X] = side - 100;
    toolbox.ink_table[INK_L_GRAD][GRADIENT_END_Y] = side / 2;
    update_gradient_geometry();
}

void end_operation()
{
    undo = {};
    store = {};
    toolbox = {};
}

/// A filled box over the whole frame, row by row, as the tool draws it.
void filled_box(benchmark::State& state, int ink)
{
    begin_operation();
    for (auto _ : state) {
        state.PauseTiming();
        clear_to_color(store.coverage_bitmap, 0);
        state.ResumeTiming();
        for (int y = 0; y < side; ++y)
            span_ink(0, side - 1, y, ink, toolbox.brush_color);
    }
    state.counters["pixel"] = benchmark::Counter(static_cast<double>(state.iterations()) * side * side,
                                                 benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    end_operation();
}
BENCHMARK_CAPTURE(filled_box, opaque, INK_OPAQUE)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filled_box, add, INK_ADD)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filled_box, glass, INK_GLASS)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filled_box, soften, INK_SOFTEN)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filled_box, pull, INK_PULL)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filled_box, spark, INK_SPARK)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filled_box, glow, INK_GLOW)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filled_box, linear_gradient, INK_L_GRAD)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(filled_box, tile, INK_TILE)->Unit(benchmark::kMillisecond);

/// A line of 1000 stamps of a soft tip, one pixel apart.
void soft_line(benchmark::State& state, int ink)
{
    constexpr int stamps = 1000;
    begin_operation();
    TipCell tip{};
    for (int y = 0; y < tip_cell_h; ++y) {
        for (int x = 0; x < tip_cell_w; ++x) {
            const int dx = x - tip_center_x;
            const int dy = y - tip_center_y;
            tip.line(y)[x] = static_cast<uint8_t>(std::min(4 * (dx * dx + dy * dy), 255));
        }
    }
    for (auto _ : state) {
        state.PauseTiming();
        clear_to_color(store.coverage_bitmap, 0);
        state.ResumeTiming();
        for (int i = 0; i < stamps; ++i)
            stamp_ink(12 + i, 12 + i, ink, toolbox.brush_color, tip);
    }
    state.counters["stamp"] = benchmark::Counter(static_cast<double>(state.iterations()) * stamps,
                                                 benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    end_operation();
}
BENCHMARK_CAPTURE(soft_line, opaque, INK_OPAQUE)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(soft_line, glass, INK_GLASS)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(soft_line, soften, INK_SOFTEN)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(soft_line, pull, INK_PULL)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kelu
