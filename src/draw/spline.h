// "SPLINE": a smooth curve through nodes that the user sets and moves.
//
// Each stretch between two nodes is a cubic Bézier curve; its control points lie along the tangents at the nodes, and
// the tangent at a node runs parallel to the chord between its neighbours. Fixed-point throughout.
#pragma once

#include "draw/point_list.h"
#include <array>

namespace kelu {

constexpr int node_limit = 256;  ///< entries of a table of nodes
constexpr int spline_steps = 32; ///< points of a segment
constexpr int unset_node = -1;   ///< both coordinates of a free node

/// The user's nodes in entries 1 and up; entry 0 serves a closed curve.
using NodeTable = std::array<Point, node_limit>;

struct SplineNode {
    int x = 0, y = 0;
    fixed tangent = 0; ///< 16.16, 256 units a circle
};
/// Larger than a table of nodes by the virtual neighbours beyond an end.
using SplineNodes = std::array<SplineNode, node_limit + 4>;

/// Makes the user's nodes, 1 to n - 1 of `table`, into a chain of `nodes`: an open curve repeats its last node as node
/// n, a closed one goes on with its first two and begins with its last. An entry whose x is -1 leaves its node as it
/// was. n, the first free entry, is 2 to 256.
void prepare_spline_nodes(const NodeTable& table, int n, bool closed, SplineNodes& nodes);

/// The control points of the segment from a to b, x and y in turn. `curviness` is 16.16, 0 a straight line.
std::array<int, 8> spline_control_points(const SplineNode& a, const SplineNode& b, fixed curviness);

/// The curve through `count` user nodes of a prepared chain: 32 points for each of its count - 1 segments, or count
/// when it is closed. `curve` is 0 to 100. Sets the tangents in `nodes`.
Points build_spline(SplineNodes& nodes, int count, bool closed, int curve);

/// The tool: nodes 0 and 1 are the first press.
void spline_tool();

} // namespace kelu
