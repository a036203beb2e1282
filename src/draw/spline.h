// SPDX-License-Identifier: MIT
// The curve of "SPLINE": smooth, through nodes that the user sets and moves.
//
// Each stretch between two nodes is a cubic Bézier curve; its control points lie along the tangents at the nodes, and
// the tangent at a node runs parallel to the chord between its neighbours. Fixed-point throughout.
#pragma once

#include "draw/tool_input.h"
#include <array>

namespace kelu {

constexpr int spline_steps = 32; ///< points of a segment
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

/// What the running tool has built. Owner: the tool; its preview rebuilds the curve.
/// Writers: tools.
struct Spline {
    SplineNodes spline_nodes{}; ///< prepared from `tool_nodes`
    int count = 0;              ///< user nodes, in entries 1 to `count` of `tool_nodes`
};
inline Spline spline;

/// True when the option joins the last node to the first.
bool closed_curve();
/// Rebuilds the point list from the nodes as they are; empty with fewer than two nodes on an open curve.
void rebuild_spline();

} // namespace kelu
