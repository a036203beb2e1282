// SPDX-License-Identifier: MIT
// Tools under a queue of events: presses act where they were, and strokes pass through every reported position.
#include "draw/tool_input.h"
#include "draw/touched.h"
#include "gui/kinds.h"
#include "gui/slots.h"
#include "loop/input_turn.h"
#include "platform/input_events.h"
#include "runtime/view.h"
#include "support/tool_session.h"
#include <cmath>

namespace kelu {

using namespace test;

namespace {

/// A session whose pointer acts by events; several of them may come between two frames.
class Events : public ToolSession {
protected:
    Events()
    {
        preferences.anti_jitter = 0;
        platform::queue_input_events();
        event(10, 10, 0);
        session.frame(4);
    }
    ~Events() override { platform::stop_input_events(); }

    static void event(int x, int y, int buttons)
    {
        platform::append_pointer_event({x * screen_state.screen_scale, y * screen_state.screen_scale, buttons});
    }
    /// Arrives with the button down already and lets it go at once: no time passes between the three.
    static void tap(int x, int y)
    {
        event(x, y, 0);
        event(x, y, LEFT_BUTTON);
        event(x, y, 0);
    }
};

Points circle(int positions)
{
    Points points;
    for (int i = 0; i <= positions; ++i) {
        const double angle = i * 6.283185307 / positions;
        points.push_back({160 + static_cast<int>(std::lround(70 * std::cos(angle))),
                          100 + static_cast<int>(std::lround(70 * std::sin(angle)))});
    }
    return points;
}

} // namespace

TEST_F(Events, APressActsWhereItWas)
{
    struct Case {
        int tool;
        Pixels corners; ///< pixels that two taps at (20, 30) and (60, 70) paint
    };
    const Case cases[] = {
        {TOOL_DRAW, {{20, 30}, {60, 70}}},
        {TOOL_LINE, {{20, 30}, {40, 50}, {60, 70}}},
        {TOOL_BOX, {{20, 30}, {60, 30}, {20, 70}, {60, 70}}},
    };
    for (const Case& made : cases) {
        use(made.tool);
        clear_to_color(store.frame_bitmap, 0);
        touch_frame();
        tap(20, 30);
        tap(60, 70);
        event(100, 100, 0); // the pointer is elsewhere long before the program has seen the taps
        session.frame(40);
        const Pixels pixels = painted();
        for (const auto& corner : made.corners)
            EXPECT_TRUE(pixels.contains(corner)) << made.tool << " at " << corner.first << ", " << corner.second;
        EXPECT_FALSE(pixels.contains({100, 100})) << made.tool;
    }
}

TEST_F(Events, AStrokeReleasedInMotionReachesItsEnd)
{
    for (const int tool : {TOOL_DRAW, TOOL_FSHAPE}) {
        use(tool);
        clear_to_color(store.frame_bitmap, 0);
        touch_frame();
        event(120, 50, 0);
        event(120, 50, LEFT_BUTTON);
        session.frame(6);
        for (int x = 121; x <= 200; ++x)
            event(x, 50, LEFT_BUTTON);
        event(200, 60, 0);
        event(10, 200, 0);
        session.frame(10);
        const Pixels pixels = painted();
        EXPECT_TRUE(pixels.contains({200, 50})) << tool;
        EXPECT_TRUE(pixels.contains({200, 60})) << tool;
        EXPECT_FALSE(pixels.contains({10, 200})) << tool;
    }
}

TEST_F(Events, AFastCircleStaysRoundAtEveryZoom)
{
    for (const int zoom : {1, 2, 3}) {
        use(TOOL_DRAW);
        clear_to_color(store.frame_bitmap, 0);
        touch_frame();
        view.zoom = zoom;
        view.pan_x = 3;
        view.pan_y = 5;
        const Points hand = circle(400);
        event(hand[0].x, hand[0].y, 0);
        for (const Point at : hand)
            event(at.x, at.y, LEFT_BUTTON);
        event(hand[0].x, hand[0].y, 0);
        session.frame(8);
        Points on_frame;
        for (const Point at : hand)
            on_frame.push_back({(at.x >> (zoom - 1)) + 3, (at.y >> (zoom - 1)) + 5});
        const Pixels pixels = painted();
        for (const Point at : on_frame)
            EXPECT_TRUE(pixels.contains({at.x, at.y})) << zoom << " at " << at.x << ", " << at.y;
        // Nothing but the line through them: pixels of a step may differ from those of a longer line by a corner.
        EXPECT_NEAR(static_cast<double>(pixels.size()), static_cast<double>(outline(on_frame).size()), 20) << zoom;
    }
}

TEST_F(Events, AMenuSeesEachClickOfABurst)
{
    constexpr int slots_of_tools = 4; // the strip's buttons
    const int x = gui.x[slots_of_tools + 1] + 4;
    const int y = gui.y[slots_of_tools + 1] + 4;
    toolbox.tool_slot = 0;
    tap(x, y);
    session.frame(30);
    EXPECT_EQ(toolbox.tool_slot, 1);
    tap(gui.x[slots_of_tools + 2] + 4, y);
    tap(x, y);
    session.frame(60);
    EXPECT_EQ(toolbox.tool_slot, 1) << "both clicks, in their order";
    EXPECT_FALSE(input_turn_waits());
    EXPECT_TRUE(painted().empty()) << "no press of the menu is one on the frame";
}

TEST_F(Events, AKeyOfNoLengthActsOnce)
{
    const int zoom = view.zoom;
    platform::append_key_event(KEY_PLUS_PAD, true);
    platform::append_key_event(KEY_PLUS_PAD, false);
    session.frame(10);
    EXPECT_EQ(view.zoom, zoom + 1);
}

} // namespace kelu
