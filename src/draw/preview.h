// SPDX-License-Identifier: MIT
// The previews of the tools: dashed shapes on the overlay, which run_frame lays over the frame.
#pragma once

namespace kelu {

/// Values of `preview_kind`: a tool's id, or the id of a gradient ink + 50 while its nodes are being placed.
constexpr int no_preview = -1;
constexpr int preview_of_ink = 50;

/// Owner: the tool that gathers its input. Also set by cels and gradients. Main thread.
/// Writers: workspace, tools.
struct Preview {
    int preview_active = 0;        ///< 1: something has the overlay in use
    int preview_kind = no_preview; ///< what `draw_tool_preview` draws
};
inline Preview preview;

/// A preview from its making to its end.
class PreviewScope {
public:
    explicit PreviewScope(int kind) { preview = {1, kind}; }
    ~PreviewScope() { preview = {}; }
    PreviewScope(const PreviewScope&) = delete;
    PreviewScope& operator=(const PreviewScope&) = delete;
};

/// Clears the overlay and draws the preview of `preview_kind` in view coordinates. Called by run_frame while a kind is
/// set; reads the frame's snapshot.
void draw_tool_preview();

} // namespace kelu
