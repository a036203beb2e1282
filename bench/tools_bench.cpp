// SPDX-License-Identifier: MIT
// Flood fills of large frames: the cost of a pixel on flat ground, in a maze and in noise.
#include "draw/fill.h"
#include "draw/undo.h"
#include "opencv_peer.h"
#include "platform/host.h"
#include "runtime/random.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include <algorithm>
#include <benchmark/benchmark.h>

namespace kelu {
namespace {

constexpr int side = 4096;
constexpr int wall = 0xffffff;

void flat(BITMAP*) {}

/// One corridor, two pixels wide, that runs to and fro over the whole frame.
void serpentine(BITMAP* picture)
{
    for (int y = 2; y < side; y += 3) {
        int* const line = row(picture, y);
        std::fill(line, line + side, wall);
        const int gap = y / 3 % 2 ? 0 : side - 2;
        line[gap] = line[gap + 1] = 0;
    }
}

/// A third of the pixels are walls.
void noise(BITMAP* picture)
{
    seed_random(1);
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < side; ++x)
            row(picture, y)[x] = rnd(3) == 0 ? wall : 0;
    row(picture, side / 2)[side / 2] = 0;
}

void flood(benchmark::State& state, void (*paint)(BITMAP*), int x, int y)
{
    platform::headless_host.start();
    store.frame_bitmap = Bitmap(side, side);
    store.coverage_bitmap = Bitmap(side, side);
    paint(store.frame_bitmap);
    reset_undo_slots();
    push_undo(false);
    toolbox.brush_color = 0x40c0f0;
    for (auto _ : state) {
        state.PauseTiming();
        blit(stroke_source(), store.frame_bitmap, 0, 0, 0, 0, side, side);
        state.ResumeTiming();
        flood_fill(stroke_source(), x, y, toolbox.brush_color, 1);
    }
    state.counters["pixel"] = benchmark::Counter(static_cast<double>(state.iterations()) * side * side,
                                                 benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
    undo = {};
    store = {};
    toolbox = {};
}
/// The same by OpenCV, with the channels side by side and a tolerance of 0, which is our 1.
void flood_opencv(benchmark::State& state, void (*paint)(BITMAP*), int x, int y)
{
    platform::headless_host.start();
    const Bitmap picture(side, side);
    paint(picture);
    OpenCvFill peer(row(picture, 0), side, picture->line[1] - picture->line[0]);
    for (auto _ : state) {
        state.PauseTiming();
        peer.restore();
        state.ResumeTiming();
        peer.fill(x, y);
    }
}

BENCHMARK_CAPTURE(flood, flat, flat, 17, 3000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(flood_opencv, flat, flat, 17, 3000)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(flood, serpentine, serpentine, 0, 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(flood_opencv, serpentine, serpentine, 0, 0)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(flood, noise, noise, side / 2, side / 2)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(flood_opencv, noise, noise, side / 2, side / 2)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kelu
