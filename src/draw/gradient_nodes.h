// SPDX-License-Identifier: MIT
// The two nodes of a gradient ink: where they are, and how they show while they are placed.
#pragma once

#include "draw/point_list.h"
#include <allegro.h>

namespace kelu {

constexpr int node_radius = 8; ///< of the circle that marks a node; a press within it takes the node

enum NodeId : int { NODE_NONE, NODE_START, NODE_END };

/// The nodes while they are placed. Owner: reposition_gradient, except for what the preview notes. Main thread.
/// Writers: tools.
struct NodePlacing {
    int grabbed = NODE_NONE; ///< the node that follows the mouse
    int nodes_in_view = 1;   ///< 1: a node lay in the view in the last preview
};
inline NodePlacing node_placing;

/// One gradient as the loop sees it: which columns of its options hold a node, and which axes count.
struct NodeColumns {
    int ink;
    int start_x, start_y, end_x, end_y; ///< columns, -1: the axis doesn't count
};
/// The columns of a gradient ink, or null for any other ink.
const NodeColumns* columns_of(int ink);
/// A node in frame pixels. An axis that doesn't count takes the coordinate of `other`.
Point node_at(const NodeColumns& columns, NodeId node, Point other);
/// Moves a node; an axis that doesn't count stays.
void put_node(const NodeColumns& columns, int node, Point at);

/// Draws the nodes of a gradient ink, and notes whether one of them is in view. Positions on the overlay are frame
/// pixels less `origin`.
void draw_gradient_nodes(BITMAP* overlay, Point origin, int ink);

} // namespace kelu
