// SPDX-License-Identifier: MIT
// Fixture formulas, comparisons, and decoding by another program.
#include "support/pictures.h"

#include "runtime/pixels.h"
#include "support/paths.h"
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

namespace kelu::test {

int palette_entry(int k) { return pack_rgb(k * 53 & 255, k * 101 & 255, (255 - k * 29) & 255); }

int six_bit(int color)
{
    const auto spread = [](int channel) { return (channel >> 2) * 255 / 63; };
    return pack_rgb(spread(red_of(color)), spread(green_of(color)), spread(blue_of(color)));
}

Bytes data_file(const std::string& name)
{
    std::ifstream in(data_folder() + "/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

Bitmap paint(int w, int h, const std::function<int(int x, int y)>& pixel)
{
    Bitmap picture(w, h);
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x)
            row(picture, y)[x] = pixel(x, y);
    }
    return picture;
}

Bitmap colorful(int w, int h)
{
    return paint(w, h, [](int x, int y) {
        const auto alpha = static_cast<uint32_t>(1 + (x * 7 + y * 13) % 255);
        return static_cast<int>(alpha << 24) | pack_rgb(level(x, y, 0), (x + y) & 255, (x * y / 5) & 255);
    });
}

Bitmap plain_nothing(BITMAP* picture)
{
    return paint(picture->w, picture->h, [picture](int x, int y) {
        const int pixel = row(picture, y)[x];
        return static_cast<unsigned>(pixel) >> 24 == 0 ? 0 : pixel;
    });
}

std::string difference(BITMAP* a, BITMAP* b)
{
    std::ostringstream text;
    if (!a || !b) return a == b ? "" : "one picture is missing";
    if (a->w != b->w || a->h != b->h) {
        text << a->w << " x " << a->h << " against " << b->w << " x " << b->h;
        return text.str();
    }
    for (int y = 0; y < a->h; ++y) {
        const int* const end = row(a, y) + a->w;
        const auto [here, there] = std::mismatch(row(a, y), row(a, y) + a->w, row(b, y));
        if (here == end) continue;
        text << std::hex << *here << " against " << *there << std::dec << " at " << here - row(a, y) << ", " << y;
        return text.str();
    }
    return "";
}

double loss(BITMAP* a, BITMAP* b)
{
    if (!a || !b || a->w != b->w || a->h != b->h) return 999;
    long sum = 0;
    for (int y = 0; y < a->h; ++y)
        for (int x = 0; x < a->w; ++x)
            for (const int shift : {0, 8, 16})
                sum += std::abs((row(a, y)[x] >> shift & 255) - (row(b, y)[x] >> shift & 255));
    return static_cast<double>(sum) / (3.0 * a->w * a->h);
}

std::optional<Bitmap> decoded_by_convert(const std::string& file_name)
{
    // A PAM of four channels is a head of text and then plain bytes.
    const std::string raw = file_name + ".pam";
    const std::string command =
        "convert '" + file_name + "[0]' -alpha on -type TrueColorAlpha -depth 8 'pam:" + raw + "' >/dev/null 2>&1";
    if (std::system(command.c_str()) != 0) return {};
    std::ifstream in(raw, std::ios::binary);
    std::string word;
    int w = 0, h = 0;
    while (in >> word && word != "ENDHDR") {
        if (word == "WIDTH") in >> w;
        if (word == "HEIGHT") in >> h;
    }
    in.get();
    Bitmap picture(w, h);
    for (int y = 0; y < h; ++y) {
        for (int x = 0; x < w; ++x) {
            const int r = in.get(), g = in.get(), b = in.get(), a = in.get();
            row(picture, y)[x] = static_cast<int>(static_cast<uint32_t>(a) << 24) | pack_rgb(r, g, b);
        }
    }
    return in ? std::optional<Bitmap>(std::move(picture)) : std::nullopt;
}

} // namespace kelu::test
