// SPDX-License-Identifier: MIT
// The text tool at its largest: 120 letters at a size of 350.
#include "draw/placed_text.h"
#include "platform/host.h"
#include "support/paths.h"
#include <benchmark/benchmark.h>

namespace kelu {
namespace {

FontOwner font_of_size(int size)
{
    platform::headless_host.start();
    font_system_init();
    FontOwner font = font_load(test::app_folder() + "/fonts/system.ttf");
    font_set_size(*font, size);
    return font;
}

std::string text_of(std::size_t length)
{
    std::string text;
    while (text.size() < length)
        text += static_cast<char>('!' + text.size() % 90);
    return text;
}

/// What a key costs: the picture of the whole text anew, its letters being cached.
void text_picture(benchmark::State& state)
{
    const FontOwner font = font_of_size(static_cast<int>(state.range(0)));
    const std::string text = text_of(120);
    for (auto _ : state)
        render_placed_text(*font, text.c_str(), true);
}
BENCHMARK(text_picture)->Arg(32)->Arg(350)->Unit(benchmark::kMillisecond);

/// What a step of the size slider costs: all letters anew, too.
void text_size_step(benchmark::State& state)
{
    const int size = static_cast<int>(state.range(0));
    const FontOwner font = font_of_size(size);
    const std::string text = text_of(120);
    int step = 0;
    for (auto _ : state) {
        font_set_size(*font, size - (step ^= 1));
        render_placed_text(*font, text.c_str(), true);
    }
}
BENCHMARK(text_size_step)->Arg(32)->Arg(350)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace kelu
