// SPDX-License-Identifier: MIT
// latency WINDOW SCALE SAMPLES: how long it takes from a real event to a pixel of the program's window.
//
// The program stands on its drawing menu with a tool that paints at once. Events go in by the XTEST extension, as a
// mouse's do; the window is read again and again until what is near the pointer has changed. Prints median, 95th
// percentile and maximum in milliseconds of a press, of a motion with the button held, and of one without a button.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <random>
#include <thread>
#include <vector>
#include <X11/extensions/XTest.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;

constexpr auto patience = 1s; ///< after which a sample counts as missed
constexpr auto still = 120ms; ///< without a change the window counts as at rest
constexpr auto look_every = 150us;
constexpr int reach = 6; ///< logical pixels to each side of the pointer that are watched
constexpr int left = 24, top = 30, right = 296, bottom = 180; ///< part of the frame that no menu covers
constexpr int pitch = 13;                                     ///< logical pixels from sample to sample

struct Place {
    int x, y; ///< logical pixels
};

class Watch {
public:
    Watch(Display* display, Window window, int scale) : display_(display), window_(window), scale_(scale)
    {
        Window child = None;
        XTranslateCoordinates(display, window, DefaultRootWindow(display), 0, 0, &root_x_, &root_y_, &child);
    }

    void move(Place to)
    {
        at_ = to;
        XTestFakeMotionEvent(display_, -1, root_x_ + to.x * scale_ + scale_ / 2, root_y_ + to.y * scale_ + scale_ / 2,
                             CurrentTime);
        XFlush(display_);
    }
    void button(bool down)
    {
        XTestFakeButtonEvent(display_, 1, down ? True : False, CurrentTime);
        XFlush(display_);
    }

    /// Waits until what is round `place` has not changed for a while, and keeps it to compare with.
    void settle(Place place)
    {
        watched_ = place;
        kept_ = look();
        for (auto since = Clock::now(); Clock::now() - since < still; std::this_thread::sleep_for(2ms)) {
            std::vector<char> now = look();
            if (now == kept_) continue;
            kept_ = std::move(now);
            since = Clock::now();
        }
    }
    /// Milliseconds from `begin` until it has changed.
    std::optional<double> changed_after(Clock::time_point begin) const
    {
        while (Clock::now() - begin < patience) {
            if (look() != kept_) return Milliseconds(Clock::now() - begin).count();
            std::this_thread::sleep_for(look_every);
        }
        return {};
    }

private:
    std::vector<char> look() const
    {
        const auto side = static_cast<unsigned>((2 * reach + 1) * scale_);
        const std::unique_ptr<XImage, int (*)(XImage*)> image(
            XGetImage(display_, window_, (watched_.x - reach) * scale_, (watched_.y - reach) * scale_, side, side,
                      AllPlanes, ZPixmap),
            [](XImage* gone) { return XDestroyImage(gone); });
        if (!image) return {};
        return {image->data, image->data + static_cast<long>(image->bytes_per_line) * image->height};
    }

    Display* display_;
    Window window_;
    int scale_, root_x_ = 0, root_y_ = 0;
    Place at_{}, watched_{};
    std::vector<char> kept_;
};

/// Goes over the frame row by row, to and fro.
class Walk {
public:
    Place next()
    {
        const Place here = at_;
        at_.x += step_;
        if (at_.x < left || at_.x > right) {
            step_ = -step_;
            at_ = {here.x, here.y + pitch > bottom ? top : here.y + pitch};
        }
        return here;
    }

private:
    Place at_{left, top};
    int step_ = pitch;
};

/// So that events come at any moment of the program's pass.
void pause()
{
    static std::minstd_rand random(1);
    std::this_thread::sleep_for(20ms + std::chrono::microseconds(std::uniform_int_distribution(0, 20'000)(random)));
}

class Samples {
public:
    explicit Samples(const char* name) : name_(name) {}
    void add(std::optional<double> sample)
    {
        if (sample) times_.push_back(*sample);
        if (!sample) ++missed_;
    }
    void print()
    {
        std::ranges::sort(times_);
        const auto at = [this](std::size_t percent) {
            return times_.empty() ? 0 : times_[std::min(times_.size() - 1, times_.size() * percent / 100)];
        };
        std::printf("%-28s median %5.1f  95%% %5.1f  most %5.1f ms  of %zu, %d missed\n", name_, at(50), at(95),
                    at(100), times_.size(), missed_);
    }

private:
    const char* name_;
    std::vector<double> times_;
    int missed_ = 0;
};

void measure_presses(Watch& watch, int count)
{
    Samples samples("press to pixel");
    Walk walk;
    for (int i = 0; i < count; ++i) {
        const Place place = walk.next();
        watch.move(place);
        watch.settle(place);
        pause();
        const auto begin = Clock::now();
        watch.button(true);
        samples.add(watch.changed_after(begin));
        watch.button(false);
        pause();
    }
    samples.print();
}

void measure_motions(Watch& watch, int count, bool held)
{
    Samples samples(held ? "motion to pixel, button held" : "motion to pixel");
    Walk walk;
    watch.move(walk.next());
    pause();
    if (held) watch.button(true);
    pause();
    for (int i = 0; i < count; ++i) {
        const Place place = walk.next();
        watch.settle(place);
        pause();
        const auto begin = Clock::now();
        watch.move(place);
        samples.add(watch.changed_after(begin));
    }
    if (held) watch.button(false);
    samples.print();
}

} // namespace

int main(int count, char** words)
{
    Display* display = count == 4 ? XOpenDisplay(nullptr) : nullptr;
    int event = 0, error = 0, major = 0, minor = 0;
    if (!display || XTestQueryExtension(display, &event, &error, &major, &minor) == False) {
        std::fputs("usage: latency WINDOW SCALE SAMPLES, on a display with the XTEST extension\n", stderr);
        return EXIT_FAILURE;
    }
    Watch watch(display, std::strtoul(words[1], nullptr, 0), std::atoi(words[2]));
    const int samples = std::atoi(words[3]);
    measure_presses(watch, samples);
    measure_motions(watch, samples, true);
    measure_motions(watch, samples, false);
    XCloseDisplay(display);
}
