// Behaviours that act on the whole screen.
#include "framework/behavior_steps.h"
#include "framework/tint.h"

namespace kelu {

/// p0 to p2 colour, p3 opacity to reach, p4 moves a run; below 1 the colour is held for good.
Outcome BE_palette_control(const Run& run)
{
    const auto& p = run.params;
    tint.tint_red = p[0];
    tint.tint_green = p[1];
    tint.tint_blue = p[2];
    const int target = p[3];
    const int moves = p[4];
    if (moves < 1) return Outcome::GOES_ON;
    int opacity = tint.tint_opacity;
    Outcome outcome = Outcome::GOES_ON;
    for (int move = 0; move < moves && outcome == Outcome::GOES_ON; ++move) {
        if (opacity == target)
            outcome = Outcome::ENDS;
        else
            opacity += opacity < target ? 1 : -1;
    }
    tint.tint_opacity = opacity;
    return outcome;
}

} // namespace kelu
