// SPDX-License-Identifier: MIT
// Turns assets/ into the program's resource folder, with the program's own writers.
//
//   make_resources ASSETS RESOURCE    writes every resource file into RESOURCE
//
// The same assets always give the same files.
#include "framework/resource_files.h"
#include "imagefile/gif.h"
#include "imagefile/png.h"
#include "platform/files.h"
#include "platform/host.h"
#include "resource_pictures.h"
#include "runtime/pixels.h"
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace {

using namespace kelu;
using namespace kelu::tools;

/// Start index of all scrambled files that the build makes.
constexpr int scramble_start = 5;
constexpr std::size_t max_library_file = 1u << 20;

void need(bool good, const std::string& name)
{
    if (good) return;
    std::fprintf(stderr, "can't write %s\n", name.c_str());
    std::exit(1);
}

/// A picture of palette indices as a scrambled resource.
void write_resource(const std::string& name, const Bitmap& picture, const RGB* palette)
{
    Bytes gif;
    need(encode_gif(picture, palette, gif) == 0 && platform::replace_file(name, scramble(gif, scramble_start)), name);
}

void write_png(const std::string& name, const Bitmap& picture) { need(save_png(name.c_str(), picture) == 0, name); }

void write_resources(const std::string& assets, const std::string& out)
{
    const Palette palette = read_palette(assets + "/palette.txt");
    RGB entries[PAL_SIZE] = {};
    for (std::size_t i = 0; i < palette.size(); ++i) {
        entries[i].r = static_cast<unsigned char>(red_of(palette[i]) >> 2);
        entries[i].g = static_cast<unsigned char>(green_of(palette[i]) >> 2);
        entries[i].b = static_cast<unsigned char>(blue_of(palette[i]) >> 2);
    }
    write_resource(out + "/PALETTE", draw_palette(), entries);
    write_resource(out + "/FW_FONT_04", draw_font(read_font(assets + "/font4.txt")), entries);
    write_resource(out + "/FW_FONT_05", draw_font(read_font(assets + "/font5.txt")), entries);
    write_resource(out + "/FW_GUI", draw_gui_sheet(read_picture(assets + "/gui_sheet.txt"), palette), entries);
    write_png(out + "/brushie.PNG", draw_tips(read_tips(assets + "/tips.txt")));
    write_png(out + "/K_HD_1X.RES", draw_picture(read_picture(assets + "/logo.txt")));

    Bytes library;
    need(platform::read_file(assets + "/obj_lib.def", max_library_file, library) &&
             platform::replace_file(out + "/obj_lib.def", library),
         "obj_lib.def");
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: make_resources ASSETS RESOURCE\n");
        return 2;
    }
    if (!platform::headless_host.start()) return 1;
    std::filesystem::create_directories(argv[2]);
    write_resources(argv[1], argv[2]);
    return 0;
}
