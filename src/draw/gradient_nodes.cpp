// SPDX-License-Identifier: MIT
// Nodes in the options of their inks, and their preview.
#include "draw/gradient_nodes.h"

#include "draw/dashes.h"
#include "draw/gradient.h"
#include "draw/ink_rows.h"
#include "gui/text.h"
#include "runtime/frame_snapshot.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include <algorithm>

namespace kelu {
namespace {

constexpr NodeColumns node_columns[] = {
    {INK_H_GRAD, GRADIENT_START, -1, GRADIENT_END, -1},
    {INK_L_GRAD, GRADIENT_START_X, GRADIENT_START_Y, GRADIENT_END_X, GRADIENT_END_Y},
    {INK_R_GRAD, GRADIENT_START_X, GRADIENT_START_Y, GRADIENT_END_X, GRADIENT_END_Y},
    {INK_V_GRAD, -1, GRADIENT_START, -1, GRADIENT_END},
};

Shared<int>& option(int ink, int column) { return toolbox.ink_table[ink][column]; }

} // namespace

const NodeColumns* columns_of(int ink)
{
    const auto* found = std::find_if(std::begin(node_columns), std::end(node_columns),
                                     [ink](const NodeColumns& columns) { return columns.ink == ink; });
    return found == std::end(node_columns) ? nullptr : found;
}

Point node_at(const NodeColumns& columns, NodeId node, Point other)
{
    const int x = node == NODE_START ? columns.start_x : columns.end_x;
    const int y = node == NODE_START ? columns.start_y : columns.end_y;
    return {x < 0 ? other.x : int(option(columns.ink, x)), y < 0 ? other.y : int(option(columns.ink, y))};
}

void put_node(const NodeColumns& columns, int node, Point at)
{
    const int x = node == NODE_START ? columns.start_x : columns.end_x;
    const int y = node == NODE_START ? columns.start_y : columns.end_y;
    if (x >= 0) option(columns.ink, x) = at.x;
    if (y >= 0) option(columns.ink, y) = at.y;
}

void draw_gradient_nodes(BITMAP* overlay, Point origin, int ink)
{
    const NodeColumns* columns = columns_of(ink);
    if (!columns) return;
    const int level = frame_snapshot.zoom;
    const int w = static_cast<int>(view.view_w[level]);
    const int h = static_cast<int>(view.view_h[level]);
    const Point middle{origin.x + w / 2, origin.y + h / 2};
    const auto shown_at = [&](NodeId node) {
        const Point at = node_at(*columns, node, middle);
        return Point{at.x - origin.x, at.y - origin.y};
    };
    const auto in_view = [&](Point at) { return at.x >= 0 && at.y >= 0 && at.x < w && at.y < h; };
    const Point start = shown_at(NODE_START);
    const Point end = shown_at(NODE_END);
    {
        const DashPen pen(overlay);
        pen.line(start, end);
        pen.circle(start, node_radius);
        pen.circle(end, node_radius);
    }
    set_outlined_text(FONT_NARROW, SET_LIGHT_ALT);
    draw_text(overlay, start.x - 9, start.y - 15, "START");
    draw_text(overlay, end.x - 5, end.y - 15, "END");
    node_placing.nodes_in_view = in_view(start) || in_view(end) ? 1 : 0;
}

} // namespace kelu
