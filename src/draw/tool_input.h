// SPDX-License-Identifier: MIT
// What a tool has gathered: the nodes that were clicked and the outline that comes of them.
#pragma once

#include "draw/point_list.h"
#include <array>

namespace kelu {

constexpr int node_limit = 256; ///< entries of a table of nodes
constexpr int unset_node = -1;  ///< both coordinates of a free node
using NodeTable = std::array<Point, node_limit>;

constexpr NodeTable all_nodes_unset = [] {
    NodeTable nodes{};
    nodes.fill({unset_node, unset_node});
    return nodes;
}();

/// Owner: the tool that runs. `tool_dispatch` wipes the nodes, each tool leaves the list empty. Main thread.
/// Writers: tools.
struct ToolInput {
    NodeTable tool_nodes = all_nodes_unset; ///< frame pixels; 0 and 1 are start and end of the two-point tools
    Points point_list;                      ///< outline, frame pixels; SSHAPE's in view coordinates until it is drawn
    Bounds bounds;                          ///< box of the outline, in the list's coordinates
    int show_bounds = 0;                    ///< 1: the preview shows the box, a shape is being dragged
};
inline ToolInput tool_input;

/// Frees the outline.
inline void free_point_list() { tool_input.point_list = {}; }

} // namespace kelu
