// SPDX-License-Identifier: MIT
// start COMMAND...: how long a program takes from its start to its window, to the first picture in it, and to the
// whole picture, the one that still stands a second later.
//
// The display belongs to this measurement alone: the window is looked for on the whole screen.
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <sys/ipc.h>
#include <sys/resource.h>
#include <sys/shm.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <X11/extensions/XShm.h> // leans on the names of the two above

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Milliseconds = std::chrono::duration<double, std::milli>;
using Picture = std::vector<char>;

constexpr auto patience = 10s; ///< for a window
constexpr auto still = 1s;     ///< without a change the picture counts as whole

/// The screen as shared memory, so that looking at it costs the display little.
class Desktop {
public:
    explicit Desktop(Display* display) : display_(display), root_(DefaultRootWindow(display))
    {
        const int number = DefaultScreen(display);
        image_ = XShmCreateImage(display, DefaultVisual(display, number),
                                 static_cast<unsigned>(DefaultDepth(display, number)), ZPixmap, nullptr, &memory_,
                                 static_cast<unsigned>(DisplayWidth(display, number)),
                                 static_cast<unsigned>(DisplayHeight(display, number)));
        memory_.shmid = shmget(IPC_PRIVATE, size(), IPC_CREAT | 0600);
        memory_.shmaddr = image_->data = static_cast<char*>(shmat(memory_.shmid, nullptr, 0));
        XShmAttach(display, &memory_);
        XSync(display, False);
        shmctl(memory_.shmid, IPC_RMID, nullptr);
    }
    std::size_t size() const
    {
        return static_cast<std::size_t>(image_->bytes_per_line) * static_cast<std::size_t>(image_->height);
    }
    /// True when it isn't what it was.
    bool changed(Picture& kept)
    {
        XShmGetImage(display_, root_, image_, 0, 0, AllPlanes);
        if (kept.size() == size() && std::memcmp(kept.data(), image_->data, size()) == 0) return false;
        kept.assign(image_->data, image_->data + size());
        return true;
    }
    bool has_window() const
    {
        Window root = None, parent = None, *children = nullptr;
        unsigned count = 0;
        XQueryTree(display_, root_, &root, &parent, &children, &count);
        bool shown = false;
        for (unsigned i = 0; i < count; ++i) {
            XWindowAttributes attributes;
            shown |=
                XGetWindowAttributes(display_, children[i], &attributes) != 0 && attributes.map_state == IsViewable;
        }
        if (children) XFree(children);
        return shown;
    }

private:
    Display* display_;
    Window root_;
    XShmSegmentInfo memory_{};
    XImage* image_ = nullptr;
};

pid_t start(char** words)
{
    const pid_t child = fork();
    if (child == 0) {
        execvp(words[0], words);
        std::_Exit(EXIT_FAILURE);
    }
    return child;
}

int measure(Desktop& desktop, char** words)
{
    Picture kept;
    desktop.changed(kept);
    const auto begin = Clock::now();
    const pid_t child = start(words);
    std::optional<Clock::time_point> window, first, last;
    for (auto now = begin; now - last.value_or(begin) < (last ? Clock::duration(still) : patience);) {
        if (!window && desktop.has_window()) window = Clock::now();
        if (desktop.changed(kept)) {
            last = now = Clock::now();
            // The window itself is black: what follows is a picture.
            if (!first && window && now > *window) first = now;
        }
        std::this_thread::sleep_for(200us);
        now = Clock::now();
    }
    kill(child, SIGTERM);
    rusage usage{};
    int status = 0;
    wait4(child, &status, 0, &usage);
    if (!window || !last) {
        std::fputs("no window\n", stderr);
        return EXIT_FAILURE;
    }
    const auto after = [begin](Clock::time_point time) { return Milliseconds(time - begin).count(); };
    std::printf("window %.0f ms, first picture %.0f ms, whole picture %.0f ms; processor until the end %.0f ms\n",
                after(*window), after(first.value_or(*last)), after(*last),
                1e3 * static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
                    1e-3 * static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec));
    return EXIT_SUCCESS;
}

} // namespace

int main(int count, char** words)
{
    Display* display = count > 1 ? XOpenDisplay(nullptr) : nullptr;
    if (!display || XShmQueryExtension(display) == False) {
        std::fputs("usage: start COMMAND..., on a display with the MIT-SHM extension\n", stderr);
        return EXIT_FAILURE;
    }
    Desktop desktop(display);
    return measure(desktop, words + 1);
}
