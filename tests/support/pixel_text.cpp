// SPDX-License-Identifier: MIT
// Text to pixels and back.
#include "support/pixel_text.h"

namespace kelu::test {

Bitmap from_text(const std::vector<std::string>& lines, const Legend& legend)
{
    Bitmap picture(static_cast<int>(lines.at(0).size()), static_cast<int>(lines.size()));
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            row(picture, y)[x] = legend.at(lines[static_cast<std::size_t>(y)][static_cast<std::size_t>(x)]);
    }
    return picture;
}

std::vector<std::string> to_text(BITMAP* bitmap, const Legend& legend)
{
    std::vector<std::string> lines;
    for (int y = 0; bitmap && y < bitmap->h; ++y) {
        std::string line;
        for (int x = 0; x < bitmap->w; ++x) {
            char letter = '?';
            for (const auto& [name, color] : legend) {
                if (color == row(bitmap, y)[x]) letter = name;
            }
            line += letter;
        }
        lines.push_back(line);
    }
    return lines;
}

} // namespace kelu::test
