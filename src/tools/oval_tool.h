// SPDX-License-Identifier: MIT
// "OVAL": an ellipse between two axes that the mouse sets.
#pragma once

namespace kelu {

/// The flow of the tool: two clicks for the first axis, nodes 0 and 1, then a third for the second one, which points at
/// the mouse. 0 when the first axis was cancelled.
int gather_oval();

} // namespace kelu
