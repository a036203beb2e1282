// SPDX-License-Identifier: MIT
// The whole program in a test, without a display and without chance.
//
// A session makes a folder with the program's resources, starts the program on a stack of its own and lets it
// run one frame at a time, in turns with the test. Time is virtual: a frame is 10 ms, in which the timers' callbacks
// run in the order of their table. The test acts through Allegro's own words, mouse_x, mouse_b, mouse_z and key[], and
// may look at any state and at the presented picture while a screen's loop is open.
#pragma once

#include "base/bitmap.h"
#include "support/temporary_folder.h"
#include <string>
#include <vector>

namespace kelu::test {

enum MouseButton : int { LEFT_BUTTON = 1, RIGHT_BUTTON = 2, MIDDLE_BUTTON = 4 };

/// How the timers' callbacks run.
enum class Ticks {
    virtual_clock, ///< between frames, in order: the same at every run
    real_thread    ///< on a thread of their own while the program runs: for ThreadSanitizer
};

class Session {
public:
    /// Starts the program in a fresh folder, which is the user's home, too, and runs it to its first frames.
    /// `home_loop` takes the place of the drawing menu's loop; `prepare` runs in the folder before the start.
    explicit Session(void (*home_loop)() = nullptr, void (*prepare)() = nullptr, Ticks ticks = Ticks::virtual_clock);
    /// Ends the program when it still runs, and removes the folder.
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;
    /// Ends the program and starts it again in the same folder, as it has left it.
    void restart()
    {
        end();
        start();
    }

    /// Lets the program run n frames; fewer when it ends.
    void frame(int n = 1);
    /// Runs frames until the condition holds; false after `limit` frames without it.
    template <class Condition>
    bool frames_until(Condition condition, int limit = 500)
    {
        while (!condition() && limit-- > 0 && !ended())
            frame();
        return condition();
    }

    /// Puts the pointer on a logical pixel, and lets a few frames pass so that it counts as standing still.
    void move(int x, int y, int frames = settle_frames);
    void press(int button = LEFT_BUTTON);
    void release(int button = LEFT_BUTTON);
    /// Moves, presses and releases on a logical pixel.
    void click_at(int x, int y, int button = LEFT_BUTTON);
    /// Clicks the middle of a slot of the GUI.
    void click(int slot, int button = LEFT_BUTTON);
    /// Presses at the first point, moves in `steps` to the second, releases.
    void drag(int x0, int y0, int x1, int y1, int steps = 8, int button = LEFT_BUTTON);
    /// Turns the wheel by `steps`, above 0 away from the user.
    void wheel(int steps);
    void hold_key(int scancode);
    void release_key(int scancode);
    /// Taps a key, with modifier keys (KEY_LSHIFT ...) held.
    void key(int scancode, const std::vector<int>& modifiers = {});
    /// Types letters A to Z, digits, blanks, points and slashes.
    void type(const std::string& text);

    /// The picture presented last, 320 x 240.
    BITMAP* picture() const;
    /// The lines of the log so far.
    std::string log() const { return folder_.text("FW_log.txt"); }
    /// Asks for the end as a second press of the close button does, and runs to it. Returns false when the program does
    /// not end.
    bool finish();
    bool ended() const;
    /// Exit code once ended.
    int exit_code() const;
    /// The program's folder.
    std::string folder() const { return folder_.path(); }

private:
    static constexpr int settle_frames = 6;
    void start();
    void end();
    template <class Word>
    void set(Word& word, int value, int frames);

    TemporaryFolder folder_;
    Ticks ticks_;
};

/// Puts an opaque frame of one colour in the place of the live one, with what belongs to it.
void replace_frame(int w, int h, int color);

} // namespace kelu::test
