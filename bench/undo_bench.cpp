// SPDX-License-Identifier: MIT
// Undo on canvases of several sizes: what a stroke costs at its begin and at its end, and the memory of its steps.
#include "draw/inks.h"
#include "draw/touched.h"
#include "draw/undo.h"
#include "platform/host.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include <algorithm>
#include <benchmark/benchmark.h>

namespace kelu {
namespace {

constexpr int stroke_pixels = 60;

/// A frame as it stands after a fetch.
void fetch(int side)
{
    platform::headless_host.start();
    store.frame_bitmap = Bitmap(side, side, 0x808080);
    store.coverage_bitmap = Bitmap(side, side);
    preferences.undo_depth = max_undo_depth;
    toolbox.brush_color = 0x40c0f0;
    set_initial_ink_options();
    reset_undo_slots();
}

void drop()
{
    undo = {};
    touched = {};
    store = {};
    toolbox = {};
    preferences = {};
}

/// The pixels of a small stroke, at another place for each number.
void scribble(int number, int side)
{
    for (int i = 0; i < stroke_pixels; ++i)
        apply_ink((number * 977 + i) % side, (number * 131 + i) % side, INK_GLASS, 0x40c0f0, 0);
}

/// From the press to the first pixel.
void first_pixel(benchmark::State& state)
{
    const int side = static_cast<int>(state.range(0));
    fetch(side);
    int number = 0;
    for (auto _ : state) {
        push_undo(false);
        apply_ink(number * 977 % side, number * 131 % side, INK_GLASS, 0x40c0f0, 0);
        state.PauseTiming();
        settle_frame();
        ++number;
        state.ResumeTiming();
    }
    drop();
}
BENCHMARK(first_pixel)->Arg(320)->Arg(4096)->Arg(9999)->Unit(benchmark::kMicrosecond)->Iterations(300);

/// A small stroke, its undo and its redo.
void stroke_undo_redo(benchmark::State& state)
{
    const int side = static_cast<int>(state.range(0));
    fetch(side);
    int number = 0;
    for (auto _ : state) {
        {
            const UndoableOperation step;
            scribble(number++, side);
        }
        undo_step();
        redo_step();
    }
    drop();
}
BENCHMARK(stroke_undo_redo)->Arg(320)->Arg(4096)->Arg(9999)->Unit(benchmark::kMicrosecond)->Iterations(300);

/// The end of an operation that has changed every pixel.
void settle_whole_canvas(benchmark::State& state)
{
    const int side = static_cast<int>(state.range(0));
    fetch(side);
    int color = 0;
    for (auto _ : state) {
        state.PauseTiming();
        push_undo(false);
        clear_to_color(store.frame_bitmap, ++color);
        touch_frame();
        state.ResumeTiming();
        settle_frame();
    }
    drop();
}
BENCHMARK(settle_whole_canvas)->Arg(320)->Arg(4096)->Unit(benchmark::kMillisecond);

/// Bytes that twelve small strokes keep.
void twelve_strokes(benchmark::State& state)
{
    const int side = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        fetch(side);
        state.ResumeTiming();
        for (int number = 0; number < max_undo_depth; ++number) {
            const UndoableOperation step;
            scribble(number, side);
        }
    }
    double bytes = 0;
    for (const TileSet& slot : undo.undo_slots) {
        bytes += static_cast<double>(slot.tiles.size()) * sizeof(slot.tiles[0]);
        bytes +=
            static_cast<double>(std::ranges::count_if(slot.tiles, [](const auto& tile) { return tile != nullptr; })) *
            sizeof(TilePixels);
    }
    state.counters["bytes"] = bytes;
    drop();
}
BENCHMARK(twelve_strokes)->Arg(320)->Arg(4096)->Arg(9999)->Unit(benchmark::kMicrosecond)->Iterations(3);

} // namespace
} // namespace kelu
