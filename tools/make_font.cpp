// SPDX-License-Identifier: MIT
// Draws the program's own font: make_font LETTERS OUT
//
//   make_font ../assets/letters.txt system.ttf
#include "platform/files.h"
#include "stroke_font.h"
#include <cstdio>

int main(int argc, char** argv)
{
    using namespace kelu;
    if (argc != 3) {
        std::fprintf(stderr, "usage: make_font LETTERS OUT\n");
        return 2;
    }
    const auto file = tools::write_true_type(tools::read_stroke_font(argv[1], "Kelu"));
    if (platform::replace_file(argv[2], file)) return 0;
    std::fprintf(stderr, "can't write %s\n", argv[2]);
    return 1;
}
