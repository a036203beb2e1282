// The outline that the hand draws.
#include "draw/freehand_shape.h"

namespace kelu {

void append_sample(Points& points, Point last, Point sample)
{
    if (sample == last) return;
    const auto is_step = [](int from, int to) { return from == no_position || (to - from <= 1 && from - to <= 1); };
    if (!is_step(last.x, sample.x) || !is_step(last.y, sample.y)) points.push_back(last);
    points.push_back(sample);
}

} // namespace kelu
