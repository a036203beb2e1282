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
#include <array>
#include <benchmark/benchmark.h>
#include <pixman.h>

namespace kelu {
namespace {

constexpr int box_side = 1024;

/// A square frame with soft ramps, and an operation begun on it.
void begin_operation(int side)
{
    platform::headless_host.start();
    store.frame_bitmap = Bitmap(side, side);
    store.coverage_bitmap = Bitmap(side, side);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            row(store.frame_bitmap, y)[x] = pack_rgb(x * y >> 6 & 255, x >> 2 & 255, y >> 2 & 255);
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
    begin_operation(box_side);
    for (auto _ : state) {
        state.PauseTiming();
        clear_to_color(store.coverage_bitmap, 0);
        state.ResumeTiming();
        for (int y = 0; y < box_side; ++y)
            span_ink(0, box_side - 1, y, ink, toolbox.brush_color);
    }
    state.counters["pixel"] = benchmark::Counter(static_cast<double>(state.iterations()) * box_side * box_side,
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

constexpr int canvas_side = 4096;
constexpr int stamps = 4000;

/// A round tip, weaker towards its rim.
TipCell soft_tip()
{
    TipCell tip{};
    for (int y = 0; y < tip_cell_h; ++y) {
        for (int x = 0; x < tip_cell_w; ++x) {
            const int dx = x - tip_center_x;
            const int dy = y - tip_center_y;
            tip.line(y)[x] = static_cast<uint8_t>(std::min(4 * (dx * dx + dy * dy), 255));
        }
    }
    return tip;
}

void count_stamps(benchmark::State& state)
{
    state.counters["stamp"] = benchmark::Counter(static_cast<double>(state.iterations()) * stamps,
                                                 benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

/// A line of stamps, one pixel apart.
void soft_line(benchmark::State& state, int ink)
{
    begin_operation(canvas_side);
    const TipCell tip = soft_tip();
    for (auto _ : state) {
        state.PauseTiming();
        clear_to_color(store.coverage_bitmap, 0);
        state.ResumeTiming();
        for (int i = 0; i < stamps; ++i)
            stamp_ink(12 + i, 12 + i, ink, toolbox.brush_color, tip);
    }
    count_stamps(state);
    end_operation();
}

/// The same stamps of a colour by pixman, which lays each over what is there.
void soft_line_pixman(benchmark::State& state)
{
    begin_operation(canvas_side);
    TipCell tip = soft_tip();
    constexpr int stride = (tip_cell_w + 3) / 4 * 4;
    alignas(4) std::array<uint8_t, static_cast<std::size_t>(stride) * tip_cell_h> mask{};
    for (int y = 0; y < tip_cell_h; ++y) {
        for (int x = 0; x < tip_cell_w; ++x)
            mask[static_cast<std::size_t>(y * stride + x)] =
                static_cast<uint8_t>(std::max(0, tip_no_ink - tip.line(y)[x]) * 255 / tip_no_ink);
    }
    const pixman_color_t color{0x4040, 0xc0c0, 0xf0f0, 0xffff};
    pixman_image_t* const brush = pixman_image_create_solid_fill(&color);
    pixman_image_t* const shape =
        pixman_image_create_bits(PIXMAN_a8, tip_cell_w, tip_cell_h, reinterpret_cast<uint32_t*>(mask.data()), stride);
    pixman_image_t* const canvas = pixman_image_create_bits(
        PIXMAN_x8r8g8b8, canvas_side, canvas_side, reinterpret_cast<uint32_t*>(row(store.frame_bitmap, 0)),
        static_cast<int>(store.frame_bitmap->line[1] - store.frame_bitmap->line[0]));
    for (auto _ : state) {
        for (int i = 0; i < stamps; ++i)
            pixman_image_composite32(PIXMAN_OP_OVER, brush, shape, canvas, 0, 0, 0, 0, 12 + i - tip_center_x,
                                     12 + i - tip_center_y, tip_cell_w, tip_cell_h);
    }
    for (pixman_image_t* image : {brush, shape, canvas})
        pixman_image_unref(image);
    count_stamps(state);
    end_operation();
}

BENCHMARK(soft_line_pixman)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(soft_line, opaque, INK_OPAQUE)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(soft_line, glass, INK_GLASS)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(soft_line, soften, INK_SOFTEN)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(soft_line, pull, INK_PULL)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kelu
