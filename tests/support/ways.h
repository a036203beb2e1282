// SPDX-License-Identifier: MIT
// Ways through the program as lists of steps.
#pragma once

#include "support/screen_session.h"
#include <concepts>
#include <functional>
#include <vector>

namespace kelu::test {

/// A step of a way: a click on a slot, or a function.
struct Step {
    Step(int slot) : act([slot](Session& session) { session.click(slot); }) {}
    Step(std::invocable<Session&> auto function) : act(function) {}
    std::function<void(Session&)> act;
};

struct Way : std::vector<Step> {
    using vector::vector;
    void operator()(Session& session) const
    {
        for (const Step& step : *this)
            step.act(session);
    }
};

inline void press_button(Session& session) { session.press(); }
inline void let_button_go(Session& session) { session.release(); }

inline auto right_on(int slot)
{
    return [slot](Session& session) { session.click(slot, RIGHT_BUTTON); };
}
inline auto at(int x, int y, int button = LEFT_BUTTON)
{
    return [=](Session& session) { session.click_at(x, y, button); };
}
inline auto to(int x, int y)
{
    return [=](Session& session) { session.move(x, y); };
}
inline auto frames(int n)
{
    return [n](Session& session) { session.frame(n); };
}
inline auto tap(int key)
{
    return [key](Session& session) { session.key(key); };
}
inline auto control(int key)
{
    return [key](Session& session) { session.key(key, {KEY_LCONTROL}); };
}
inline auto hold(int key)
{
    return [key](Session& session) { session.hold_key(key); };
}
inline auto let_go(int key)
{
    return [key](Session& session) { session.release_key(key); };
}
inline auto typed(int field, const char* text)
{
    return [=](Session& session) { retype(session, field, text); };
}

inline auto file(const char* name)
{
    return [name](Session& session) { choose_file(session, name); };
}

} // namespace kelu::test
