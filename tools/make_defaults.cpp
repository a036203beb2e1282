// SPDX-License-Identifier: MIT
// The files that a user finds at the first start, written by the program's own code: the settings with keys, buttons
// and macros, and a workspace with one blank frame, options for every tool and ink, and colours to paint with.
//
//     make_defaults FOLDER    writes FOLDER/resource/user.def and FOLDER/WORKSPACE/current.*
#include "base/run_state.h"
#include "colour/spaces.h"
#include "draw/ink_rows.h"
#include "loop/actions.h"
#include "platform/host.h"
#include "program/startup.h"
#include "runtime/browser_state.h"
#include "runtime/color_band.h"
#include "runtime/hotkeys.h"
#include "runtime/macros.h"
#include "runtime/pixels.h"
#include "runtime/random.h"
#include "runtime/store.h"
#include "runtime/text_settings.h"
#include "runtime/toolbox.h"
#include "screens/action_table.h"
#include "screens/options_table.h"
#include "tools/tools.h"
#include "workspace/blank_workspace.h"
#include "workspace/settings.h"
#include "workspace/state.h"
#include "workspace/tag_files.h"
#include <algorithm>
#include <cstdio>
#include <filesystem>

namespace kelu {
namespace {

constexpr int cel_side = 16;   ///< pixels of the delivered, black cel
constexpr int ramp_cells = 13; ///< cells in a row of the favourites menu: one ramp a row
constexpr int hues = 18;

/// A ramp from dark to light round a hue of 0 to 254: its shadows lean to blue, its lights to yellow, and it is the
/// most colourful in the middle.
void fill_ramp(std::size_t first, double hue)
{
    constexpr double full_turn = 255, blue = 170, yellow = 42;
    const auto lean = [hue](double target, double amount) {
        double way = target - hue;
        if (way > full_turn / 2) way -= full_turn;
        if (way < -full_turn / 2) way += full_turn;
        return hue + way * amount;
    };
    for (int i = 0; i < ramp_cells; ++i) {
        const double light = (i + 1.0) / (ramp_cells + 1.0);
        const double from_middle = light - 0.5;
        double h = from_middle < 0 ? lean(blue, -from_middle * 0.4) : lean(yellow, from_middle * 0.4);
        h = h < 0 ? h + full_turn : h;
        const double saturation = 200 - 260 * from_middle * from_middle;
        toolbox.extended_favorites[first + static_cast<std::size_t>(i)] =
            pack_rgb(hls_to_rgb({.h = h, .l = light * 255, .s = saturation}));
    }
}

/// Greys in the first row, then a ramp a row; the cells that the menu can't scroll to repeat the start.
void set_palette()
{
    for (int i = 0; i < ramp_cells; ++i) {
        const int level = i * 255 / (ramp_cells - 1);
        toolbox.extended_favorites[i] = pack_rgb(level, level, level);
    }
    for (int ramp = 0; ramp < hues; ++ramp)
        fill_ramp(static_cast<std::size_t>((ramp + 1) * ramp_cells), ramp * 255.0 / hues);
    for (std::size_t i = ramp_cells * (hues + 1); i < toolbox.extended_favorites.size(); ++i)
        toolbox.extended_favorites[i] = int(toolbox.extended_favorites[i - ramp_cells * (hues + 1)]);

    constexpr int favorites[] = {0x000000, 0xffffff, 0x7f7f7f, 0xd04648, 0xd27d2c,
                                 0xdad45e, 0x6daa2c, 0x346524, 0x597dce, 0x854c30};
    std::ranges::copy(favorites, toolbox.favorites.begin());
    spectrum = {.spectrum_start = 0x30346d, .spectrum_end = 0xdeeed6, .spectrum_fold = 0};
    toolbox.brush_color = 0xffffff;
    toolbox.mask_color = 0x000000;
}

/// A macro of tools and inks that leaves tip and grid alone.
constexpr Macro tools_and_inks(std::array<int, 6> tools, std::array<int, 6> inks)
{
    Macro macro;
    macro.tools = tools;
    for (std::size_t i = 0; i < inks.size(); ++i)
        macro.inks[i] = inks[i] + 1;
    macro.tool_slot = 0;
    macro.ink_slot = 0;
    return macro;
}

constexpr Macro grid_of(int pitch)
{
    Macro macro;
    macro.grid_mode = MACRO_GRID_ON;
    macro.grid_w = macro.grid_h = pitch;
    macro.grid_opacity = 48;
    return macro;
}

constexpr Macro grid_off()
{
    Macro macro;
    macro.grid_mode = MACRO_GRID_OFF;
    return macro;
}

/// Outline, shade, dither, clean up, texture, gradients, grid on, grid off.
constexpr Macro delivered_macros[macro_count] = {
    tools_and_inks({TOOL_DRAW, TOOL_LINE, TOOL_SPLINE, TOOL_BOX, TOOL_OVAL, TOOL_EDGE},
                   {INK_OPAQUE, INK_UNZAG, INK_HOLLOW, INK_DARK, INK_XOR, INK_CLOSE}),
    tools_and_inks({TOOL_DRAW, TOOL_SPRAY, TOOL_FSHAPE, TOOL_FILL, TOOL_SEP, TOOL_EDGE},
                   {INK_DARK, INK_BRIGHT, INK_GLASS, INK_SOFTEN, INK_PULL, INK_GRAY}),
    tools_and_inks({TOOL_DRAW, TOOL_SPRAY, TOOL_FSHAPE, TOOL_BOX, TOOL_FILL, TOOL_CIRCLE},
                   {INK_GRAIN, INK_JUMBLE, INK_OPAQUE, INK_H_GRAD, INK_V_GRAD, INK_R_GRAD}),
    tools_and_inks({TOOL_DRAW, TOOL_FILL, TOOL_SEP, TOOL_EDGE, TOOL_MOVE, TOOL_LINE},
                   {INK_OPAQUE, INK_UNZAG, INK_CLOSE, INK_SWEEP, INK_HOLLOW, INK_SOFTEN}),
    tools_and_inks({TOOL_SPRAY, TOOL_DRIZ, TOOL_DRAW, TOOL_FSHAPE, TOOL_FILL, TOOL_BOX},
                   {INK_GRAIN, INK_TILE, INK_SCRAPE, INK_EMBOSS, INK_JUMBLE, INK_SPARK}),
    tools_and_inks({TOOL_FILL, TOOL_BOX, TOOL_CIRCLE, TOOL_POLY, TOOL_FSHAPE, TOOL_OVAL},
                   {INK_H_GRAD, INK_V_GRAD, INK_L_GRAD, INK_R_GRAD, INK_GLOW, INK_SOFTEN}),
    grid_of(8),
    grid_off(),
};

/// What DEFAULTS of the options screen chooses; a part of it belongs to the workspace.
void choose_default_options()
{
    for (const OptionRow& row : options_table()) {
        if (row.word) *row.word = row.by_default;
    }
}

void set_settings()
{
    set_default_hotkeys();
    for (std::size_t button = 0; button < hotkeys.mouse_button_map.size(); ++button)
        hotkeys.mouse_button_map[button] = static_cast<int>(button) + 1;
    choose_default_options();
    std::ranges::copy(delivered_macros, macros.macro_table.begin());
}

/// The store's own names, with nothing in them of the machine that makes them.
void write_workspace()
{
    make_blank_workspace();
    choose_default_options();
    set_palette();
    apply_default_options();
    text_settings.font_file = "system.ttf";
    browser_state.browser_dir.clear();
    std::filesystem::current_path("WORKSPACE");
    write_tag_file("current.spa", state_tags());
}

} // namespace
} // namespace kelu

int main(int argc, char** argv)
{
    using namespace kelu;
    if (argc != 2) {
        std::fprintf(stderr, "usage: make_defaults FOLDER\n");
        return 2;
    }
    std::filesystem::create_directories(std::filesystem::path(argv[1]) / "resource");
    std::filesystem::create_directories(std::filesystem::path(argv[1]) / "WORKSPACE");
    std::filesystem::current_path(argv[1]);
    platform::headless_host.start();
    seed_random(1);
    FW_initialize_variables();
    run_state.program_dir = std::filesystem::current_path().string();
    store.tip_sheet = Bitmap(206, 62, mask_magenta);
    store.nail_sheet = Bitmap(400, 400);
    store.cel_bitmap = Bitmap(cel_side, cel_side);
    store.cel_source_bitmap = Bitmap(cel_side, cel_side);
    set_settings();
    write_user_settings();
    write_workspace();
    return std::filesystem::exists("current.spa") ? 0 : 1;
}
