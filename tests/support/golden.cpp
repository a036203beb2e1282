// SPDX-License-Identifier: MIT
// Comparison with a kept picture.
#include "support/golden.h"

#include "imagefile/png.h"
#include "runtime/pixels.h"
#include "support/paths.h"
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace kelu::test {
namespace {

constexpr int rgb_mask = 0xffffff;
constexpr int differs_colour = 0xff0000;

Bitmap opaque_copy(BITMAP* picture)
{
    Bitmap copy(picture->w, picture->h);
    for (int y = 0; y < picture->h; ++y) {
        for (int x = 0; x < picture->w; ++x)
            row(copy, y)[x] = row(picture, y)[x] & rgb_mask;
    }
    return copy;
}

/// Pixels that differ are red on the picture, dimmed; returns their number.
int mark_differences(BITMAP* actual, BITMAP* golden, BITMAP* marked)
{
    int count = 0;
    for (int y = 0; y < actual->h; ++y) {
        for (int x = 0; x < actual->w; ++x) {
            const bool equal = in_bitmap(golden, x, y) && (row(golden, y)[x] & rgb_mask) == row(actual, y)[x];
            row(marked, y)[x] = equal ? blend_pixel(row(actual, y)[x], 0, 160) : differs_colour;
            count += equal ? 0 : 1;
        }
    }
    return count;
}

} // namespace

testing::AssertionResult matches_golden(BITMAP* picture, const std::string& name)
{
    if (!picture) return testing::AssertionFailure() << name << ": there is no picture";
    const std::string golden_path = golden_folder() + "/" + name + ".png";
    const Bitmap actual = opaque_copy(picture);
    if (std::getenv("KELU_ACCEPT")) {
        std::filesystem::create_directories(std::filesystem::path(golden_path).parent_path());
        if (save_png(golden_path.c_str(), actual) == 0) return testing::AssertionSuccess();
        return testing::AssertionFailure() << golden_path << " can't be written: " << png_error;
    }
    const Bitmap golden = load_png(golden_path.c_str());
    Bitmap marked(actual.width(), actual.height());
    const int differing = golden ? mark_differences(actual, golden, marked) : actual.width() * actual.height();
    const bool same_size = golden.width() == actual.width() && golden.height() == actual.height();
    if (differing == 0 && same_size) return testing::AssertionSuccess();
    const std::filesystem::path folder = std::filesystem::path(app_folder()).parent_path() / "golden";
    std::filesystem::create_directories((folder / name).parent_path());
    const std::string out = (folder / name).string();
    save_png((out + ".actual.png").c_str(), actual);
    if (golden) save_png((out + ".diff.png").c_str(), marked);
    auto failure = testing::AssertionFailure();
    if (!golden) return failure << golden_path << " isn't there; see " << out << ".actual.png";
    return failure << differing << " pixels of " << actual.width() << " x " << actual.height() << " differ from "
                   << golden.width() << " x " << golden.height() << " of " << name << ".png; see " << out
                   << ".diff.png";
}

testing::AssertionResult text_matches_golden(const std::string& text, const std::string& name)
{
    const std::filesystem::path file = golden_folder() + "/" + name + ".txt";
    if (std::getenv("KELU_ACCEPT")) {
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file) << text;
        return testing::AssertionSuccess();
    }
    std::ifstream kept(file);
    std::istringstream now(text);
    for (;;) {
        std::string was, is;
        std::getline(kept, was);
        std::getline(now, is);
        if (was != is) return testing::AssertionFailure() << name << ": " << is << "\n  was: " << was;
        if (!kept && !now) return testing::AssertionSuccess();
    }
}

} // namespace kelu::test
