// SPDX-License-Identifier: MIT
// playback X Y SECONDS: watches a pixel of the screen while an animation plays whose n-th frame of 100 has 20 + 2n as
// its blue, and prints how many positions came, how many were skipped and the most that lay between two looks.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace {

constexpr int frames = 100;

/// The position that shows, -1 for none.
int position(Display* display, int x, int y)
{
    XImage* image = XGetImage(display, DefaultRootWindow(display), x, y, 1, 1, AllPlanes, ZPixmap);
    if (!image) return -1;
    const int blue = static_cast<int>(XGetPixel(image, 0, 0) & 255);
    XDestroyImage(image);
    const int n = (blue - 20) / 2;
    return blue >= 20 && n < frames ? n : -1;
}

} // namespace

int main(int count, char** words)
{
    using Clock = std::chrono::steady_clock;
    Display* display = count == 4 ? XOpenDisplay(nullptr) : nullptr;
    if (!display) {
        std::fputs("usage: playback X Y SECONDS\n", stderr);
        return EXIT_FAILURE;
    }
    const int x = std::atoi(words[1]), y = std::atoi(words[2]);
    const auto end = Clock::now() + std::chrono::seconds(std::atoi(words[3]));
    int last = position(display, x, y), shown = 0, skipped = 0;
    std::chrono::duration<double, std::milli> longest{};
    for (auto before = Clock::now(); before < end;) {
        const int now = position(display, x, y);
        const auto time = Clock::now();
        longest = std::max<decltype(longest)>(longest, time - before);
        before = time;
        if (now < 0 || last < 0 || now == last) {
            last = last < 0 ? now : last;
            continue;
        }
        ++shown;
        skipped += (now - last + frames) % frames - 1;
        last = now;
    }
    std::printf("%d positions shown, %d skipped; at most %.1f ms between two looks\n", shown, skipped, longest.count());
}
