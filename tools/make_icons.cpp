// SPDX-License-Identifier: MIT
// Draws the program's icons for desktops, from the pictures of small sizes in the assets. Larger ones are these
// enlarged by a whole number, so that their pixels stay squares.
//
//   make_icons ASSETS OUT    leaves OUT/16.png to OUT/256.png and OUT/kelu.svg
#include "base/bitmap.h"
#include "imagefile/png.h"
#include "platform/files.h"
#include "platform/host.h"
#include "text_art.h"
#include <cstdio>
#include <string>

namespace kelu::tools {
namespace {

struct Icon {
    int side;  ///< pixels of the icon's side
    int drawn; ///< that of the picture from which it is made, of which `side` is a multiple
};
constexpr Icon icons[] = {{16, 16}, {24, 24}, {32, 32}, {48, 24}, {64, 32}, {96, 32}, {128, 32}, {256, 32}};
constexpr int scalable_side = 32;
constexpr unsigned opaque = 0xff000000U;

TextPicture drawn_icon(const std::string& assets, int side)
{
    TextPicture picture = read_picture(assets + "/icon_" + std::to_string(side) + ".txt");
    if (picture.w == side && picture.h == side) return picture;
    std::fprintf(stderr, "icon_%d.txt has another size\n", side);
    std::exit(1);
}

int color_at(const TextPicture& picture, int x, int y)
{
    return picture.colors.at(picture.rows[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]);
}

bool write_png(const TextPicture& picture, int side, const std::string& name)
{
    const Bitmap icon(side, side);
    const int factor = side / picture.w;
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const int color = color_at(picture, x / factor, y / factor);
            row(icon, y)[x] = color == clear_pixel ? 0 : static_cast<int>(opaque | static_cast<unsigned>(color));
        }
    }
    return save_png(name.c_str(), icon) == 0;
}

/// Runs of equal pixels as rectangles, without seams between them.
bool write_svg(const TextPicture& picture, const std::string& name)
{
    std::string text = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"256\" height=\"256\" viewBox=\"0 0 " +
                       std::to_string(picture.w) + " " + std::to_string(picture.h) +
                       "\" shape-rendering=\"crispEdges\">\n";
    for (int y = 0; y < picture.h; ++y) {
        for (int x = 0, end = 0; x < picture.w; x = end) {
            const int color = color_at(picture, x, y);
            for (end = x + 1; end < picture.w && color_at(picture, end, y) == color;)
                ++end;
            if (color == clear_pixel) continue;
            char line[128];
            std::snprintf(line, sizeof line, "<path fill=\"#%06x\" d=\"M%d %dh%dv1h-%dz\"/>\n",
                          static_cast<unsigned>(color), x, y, end - x, end - x);
            text += line;
        }
    }
    text += "</svg>\n";
    return platform::replace_file(name, {reinterpret_cast<const uint8_t*>(text.data()), text.size()});
}

} // namespace
} // namespace kelu::tools

int main(int argc, char** argv)
{
    using namespace kelu;
    if (argc != 3) {
        std::fprintf(stderr, "usage: make_icons ASSETS OUT\n");
        return 2;
    }
    platform::headless_host.start();
    const std::string assets = argv[1], out = std::string(argv[2]) + "/";
    bool good = tools::write_svg(tools::drawn_icon(assets, tools::scalable_side), out + "kelu.svg");
    for (const auto& [side, drawn] : tools::icons)
        good = tools::write_png(tools::drawn_icon(assets, drawn), side, out + std::to_string(side) + ".png") && good;
    if (!good) std::fprintf(stderr, "the icons can't be written to %s\n", out.c_str());
    return good ? 0 : 1;
}
