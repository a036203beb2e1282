// SPDX-License-Identifier: MIT
// What a frame of text and a full table of slots cost.
#include "base/run_state.h"
#include "gui/build.h"
#include "gui/render.h"
#include "gui/text.h"
#include "platform/host.h"
#include "runtime/frame_snapshot.h"
#include "support/screen_resources.h"
#include <benchmark/benchmark.h>

namespace kelu {
namespace {

void prepare()
{
    static const bool once = [] {
        platform::headless_host.start();
        test::load_screen_resources();
        return true;
    }();
    benchmark::DoNotOptimize(once);
    for (int slot = 0; slot < gui_slots; ++slot)
        gui_reset_slot(slot);
    frame_snapshot = {};
}

/// A help page: 30 lines of 33 characters.
void text_page(benchmark::State& state)
{
    prepare();
    for (auto _ : state) {
        for (int line = 0; line < 30; ++line) {
            set_plain_text(FONT_WIDE, SET_HIGHLIGHT);
            draw_text(screen_state.back_buffer, 10, 5 + 7 * line, "THE QUICK BROWN FOX JUMPS OVER IT");
        }
    }
}
BENCHMARK(text_page)->Unit(benchmark::kMicrosecond);

void outlined_page(benchmark::State& state)
{
    prepare();
    for (auto _ : state) {
        for (int line = 0; line < 30; ++line) {
            set_outlined_text(FONT_WIDE, SET_MESSAGE);
            draw_text(screen_state.back_buffer, 10, 5 + 7 * line, "THE QUICK BROWN FOX JUMPS OVER IT");
        }
    }
}
BENCHMARK(outlined_page)->Unit(benchmark::kMicrosecond);

/// A window, a list, a colour map, three sliders, a field, and push buttons in all the other slots.
void full_table(benchmark::State& state)
{
    prepare();
    constexpr SlotRow rows[] = {
        title_row(2, 2, 87, TEXT_GRID_SETTINGS),
        SlotRow{2, 2, 12, 72, KIND_LIST}.high(65).with(
            ListRows{.first_text = first_ink_name, .items = 25, .rows = 9, .pitch = 7, .font = 5, .width = 59}),
        SlotRow{3, 160, 150, 159, KIND_RGB_PLANE}.high(59),
        slider_row(4, 80, 12, 139, 256),
        slider_row(5, 80, 22, 139, 256),
        slider_row(6, 80, 32, 139, 256),
        field_row(7, 80, 42, 100, 14, 40),
    };
    gui_window(0, 0, 319, 239, gui_slots);
    build_slots(rows, 0, 0);
    for (std::size_t i = 0; i < 3; ++i)
        gui.items[3][i] = 4 + static_cast<int>(i);
    for (int slot = 8; slot < gui_slots; ++slot)
        build_slot(push_row(slot, 2 + slot % 7 * 40, 80 + slot / 7 * 7, 39, TEXT_DEFAULTS), 0, 0);
    for (auto _ : state)
        gui_render();
}
BENCHMARK(full_table)->Unit(benchmark::kMicrosecond);

/// A colour map whose sliders move: its picture is made anew each time.
void moving_plane(benchmark::State& state)
{
    prepare();
    build_slot(SlotRow{3, 160, 150, 159, KIND_HLS_PLANE}.high(59), 0, 0);
    for (std::size_t i = 0; i < 3; ++i)
        gui.items[3][i] = 4;
    int value = 0;
    for (auto _ : state) {
        gui.scroll_value[4] = ++value % 256;
        gui_render();
    }
}
BENCHMARK(moving_plane)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace kelu
