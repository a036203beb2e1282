// The curve through the nodes, and the loops in which the nodes are set and moved.
#include "tools/spline.h"

#include "base/log.h"
#include "base/maths.h"
#include "draw/operation.h"
#include "draw/preview.h"
#include "draw/tool_hooks.h"
#include "loop/frame.h"
#include "loop/tool_loop.h"
#include "runtime/input.h"
#include "runtime/view.h"
#include "tools/tools.h"

namespace kelu {
namespace {

/// A virtual neighbour just beyond a, on the line from b through a.
SplineNode dummy_node(const SplineNode& a, const SplineNode& b)
{
    return {a.x - (b.x - a.x) / 8, a.y - (b.y - a.y) / 8, 0};
}

/// Distance of two nodes, 16.16; scaled down by 64 while it is squared.
fixed node_dist(const SplineNode& a, const SplineNode& b)
{
    const auto scaled = [](int difference) { return itofix(difference) / 64; };
    const fixed dx = scaled(b.x - a.x);
    const fixed dy = scaled(b.y - a.y);
    return fixsqrt(fixadd(fixmul(dx, dx), fixmul(dy, dy))) * 64;
}

Point& user_node(int i) { return tool_input.tool_nodes[static_cast<std::size_t>(i)]; }

bool closed_curve() { return tool_option(TOOL_SPLINE, OPTION_CLOSED, 1) != 0; }

/// Picks up every node near the pointer, one after the other; true when there was one.
bool pick_up_nodes()
{
    constexpr int pick_radius = 9; // closer than this many pixels
    bool picked = false;
    for (int i = 1; i <= spline.count && !leaving(); ++i) {
        const Point node = user_node(i);
        if (node.x == unset_node) continue;
        if (dist2(node.x, node.y, view.frame_mouse_x, view.frame_mouse_y) >= pick_radius) continue;
        reposition_spline_node(i);
        picked = true;
    }
    return picked;
}

/// Sets a node at the press; a full table takes no more. A closed curve needs one entry for its way back.
void add_node()
{
    const int limit = node_limit - (closed_curve() ? 2 : 1);
    if (spline.count >= limit) return;
    sample_press();
    user_node(++spline.count) = snapped_press();
}

void set_tangents(SplineNodes& nodes, int count)
{
    for (int i = 1; i <= count + 1; ++i) {
        const SplineNode& before = nodes[static_cast<std::size_t>(i) - 1];
        const SplineNode& after = nodes[static_cast<std::size_t>(i) + 1];
        nodes[static_cast<std::size_t>(i)].tangent = fixatan2(itofix(after.y - before.y), itofix(after.x - before.x));
    }
}

} // namespace

void prepare_spline_nodes(const NodeTable& table, int n, bool closed, SplineNodes& nodes)
{
    const auto at = [&](int i) -> SplineNode& { return nodes[static_cast<std::size_t>(i)]; };
    const auto copy = [&](int to, int from) {
        at(to).x = at(from).x;
        at(to).y = at(from).y;
    };
    for (int i = 1; i < n; ++i) {
        const Point node = table[static_cast<std::size_t>(i)];
        if (node.x == unset_node) continue;
        at(i).x = node.x;
        at(i).y = node.y;
    }
    if (closed) {
        copy(n, 1);
        copy(n + 1, 2);
        copy(0, n - 1);
    } else {
        copy(n, n - 1);
    }
}

std::array<int, 8> spline_control_points(const SplineNode& a, const SplineNode& b, fixed curviness)
{
    const fixed d = fixmul(node_dist(a, b), curviness);
    const auto across = [d](fixed tangent) { return fixtoi(fixmul(fixcos(tangent), d)); };
    const auto down = [d](fixed tangent) { return fixtoi(fixmul(fixsin(tangent), d)); };
    return {a.x, a.y, a.x + across(a.tangent), a.y + down(a.tangent), b.x - across(b.tangent), b.y - down(b.tangent),
            b.x, b.y};
}

Points build_spline(SplineNodes& nodes, int count, bool closed, int curve)
{
    const auto at = [&](int i) -> SplineNode& { return nodes[static_cast<std::size_t>(i)]; };
    if (!closed) {
        at(0) = dummy_node(at(1), at(2));
        at(count + 3) = dummy_node(at(count + 2), at(count + 1));
    }
    set_tangents(nodes, count);
    const int segments = closed ? count : count - 1;
    const fixed curviness = ftofix(curve / 100.0);
    Points points;
    for (int i = 1; i <= segments; ++i) {
        const std::array<int, 8> control = spline_control_points(at(i), at(i + 1), curviness);
        std::array<int, spline_steps> xs{};
        std::array<int, spline_steps> ys{};
        calc_spline(control.data(), spline_steps, xs.data(), ys.data());
        for (std::size_t k = 0; k < xs.size(); ++k)
            points.push_back({xs[k], ys[k]});
    }
    return points;
}

void rebuild_spline()
{
    const bool closed = closed_curve();
    prepare_spline_nodes(tool_input.tool_nodes, spline.count + 1, closed, spline.spline_nodes);
    tool_input.point_list =
        build_spline(spline.spline_nodes, spline.count, closed, tool_option(TOOL_SPLINE, OPTION_CURVE, 100));
}

void reposition_spline_node(int slot)
{
    constexpr int context_node = 3; // hotkeys that answer while a node is moved
    if (slot < 0 || slot >= node_limit) {
        log_line("[ ERROR ] : Slot OOB in call to reposition_spline_node! Slot = %d", slot);
        return;
    }
    CanvasButtons buttons;
    do {
        user_node(slot) = snapped_mouse();
        run_frame(0);
        call_hook(tool_hooks.hotkey_dispatch, context_node);
    } while (!buttons.left_pressed() && !leaving());
    sample_press();
    user_node(slot) = snapped_press();
    wait_left_release();
}

int gather_spline()
{
    tool_input.tool_nodes = all_nodes_unset;
    sample_press();
    user_node(0) = user_node(1) = snapped_press();
    wait_left_release();
    spline.count = 1;
    free_point_list();
    const PreviewScope shown(TOOL_SPLINE);
    while (!right_down() && !leaving()) {
        run_tool_pass();
        if (!left_down()) continue;
        wait_left_release();
        if (!pick_up_nodes()) add_node();
    }
    wait_right_release();
    const bool finished = !leaving();
    if (finished) {
        rebuild_spline();
        draw_to_frame(0, 0, TOOL_SPLINE, current_ink(), toolbox.brush_tip);
    }
    free_point_list();
    return finished ? 1 : 0;
}

} // namespace kelu
