// SPDX-License-Identifier: MIT
// One row a kind of preview.
#include "draw/preview.h"

#include "base/maths.h"
#include "base/run_state.h"
#include "draw/dashes.h"
#include "draw/gradient_nodes.h"
#include "draw/grid.h"
#include "draw/ink_rows.h"
#include "draw/placed_text.h"
#include "draw/polygon.h"
#include "draw/spline.h"
#include "draw/supershape.h"
#include "draw/tool_input.h"
#include "runtime/frame_snapshot.h"
#include "runtime/toolbox.h"

namespace kelu {
namespace {

/// Where a preview is drawn. Coordinates of the overlay are frame pixels less the origin.
struct Sheet {
    DashPen pen;
    Point origin;  ///< frame pixel at the overlay's corner
    Point pointer; ///< in frame pixels, not on the grid
    Point snapped; ///< the same, on the grid while that is on

    Point at(Point frame) const { return {frame.x - origin.x, frame.y - origin.y}; }
    void list() const { pen.polyline(tool_input.point_list, origin); }
    void box(const Bounds& bounds) const
    {
        if (!tool_input.show_bounds || tool_input.point_list.empty()) return;
        pen.rectangle(at({bounds.left, bounds.top}), at({bounds.right, bounds.bottom}));
    }
};

void draw_rectangle(const Sheet& sheet)
{
    sheet.pen.rectangle(sheet.at(tool_input.tool_nodes[0]), sheet.at(sheet.snapped));
}

void draw_circle(const Sheet& sheet)
{
    const Point center = tool_input.tool_nodes[0];
    sheet.pen.circle(sheet.at(center), dist2(center.x, center.y, sheet.snapped.x, sheet.snapped.y));
}

void draw_line(const Sheet& sheet) { sheet.pen.line(sheet.at(tool_input.tool_nodes[0]), sheet.at(sheet.snapped)); }

void draw_list(const Sheet& sheet) { sheet.list(); }

void draw_corners(const Sheet& sheet)
{
    sheet.list();
    if (!tool_input.point_list.empty()) sheet.pen.line(sheet.at(sheet.pointer), sheet.at(tool_input.point_list.back()));
}

void draw_polygon(const Sheet& sheet)
{
    plot_shown_polygon();
    sheet.list();
    sheet.box(tool_input.bounds);
}

void draw_supershape(const Sheet& sheet)
{
    plot_shown_supershape(sheet.origin);
    sheet.pen.polyline(tool_input.point_list, {0, 0});
    if (tool_input.show_bounds) sheet.pen.rectangle(tool_input.bounds);
}

void draw_spiral(const Sheet& sheet)
{
    sheet.list();
    sheet.box(tool_input.bounds);
}

void draw_spline(const Sheet& sheet)
{
    constexpr int node_radius = 8;
    for (std::size_t i = 1; i < tool_input.tool_nodes.size(); ++i) {
        const Point node = tool_input.tool_nodes[i];
        if (node.x != unset_node) sheet.pen.circle(sheet.at(node), node_radius);
    }
    if (spline.count < 2) return;
    rebuild_spline();
    sheet.list();
}

void draw_text_line(const Sheet& sheet)
{
    if (placed_text.shown == 0) return;
    draw_placed_text(screen_state.tool_overlay, sheet.origin);
    const Bounds& box = placed_text.text_box;
    if (tool_input.show_bounds == 0 || box.left > box.right) return;
    const Point corner = sheet.at(tool_input.tool_nodes[0]);
    sheet.pen.rectangle({corner.x + box.left, corner.y + box.top}, {corner.x + box.right, corner.y + box.bottom});
}

template <InkId Ink>
void draw_gradient(const Sheet& sheet)
{
    draw_gradient_nodes(screen_state.tool_overlay, sheet.origin, Ink);
}

struct PreviewRow {
    int kind;
    void (*draw)(const Sheet& sheet);
};
constexpr PreviewRow previews[] = {
    {TOOL_BOX, draw_rectangle},
    {TOOL_CIRCLE, draw_circle},
    {TOOL_LINE, draw_line},
    {TOOL_OVAL, draw_list},
    {TOOL_POLY, draw_corners},
    {TOOL_RPOLY, draw_polygon},
    {TOOL_FSHAPE, draw_list},
    {TOOL_SSHAPE, draw_supershape},
    {TOOL_SPIRAL, draw_spiral},
    {TOOL_SPLINE, draw_spline},
    {TOOL_TEXT, draw_text_line},
    {preview_of_ink + INK_H_GRAD, draw_gradient<INK_H_GRAD>},
    {preview_of_ink + INK_L_GRAD, draw_gradient<INK_L_GRAD>},
    {preview_of_ink + INK_R_GRAD, draw_gradient<INK_R_GRAD>},
    {preview_of_ink + INK_V_GRAD, draw_gradient<INK_V_GRAD>},
};

} // namespace

void draw_tool_preview()
{
    BITMAP* const overlay = screen_state.tool_overlay;
    clear_to_color(overlay, mask_magenta);
    const FrameSnapshot& shot = frame_snapshot;
    const Point pointer{shot.frame_mouse_x, shot.frame_mouse_y};
    const Sheet sheet{DashPen(overlay),
                      {shot.pan_x, shot.pan_y},
                      pointer,
                      {snap_to_grid(pointer.x, pointer.y, 0), snap_to_grid(pointer.x, pointer.y, 1)}};
    for (const PreviewRow& row : previews)
        if (row.kind == preview.preview_kind) row.draw(sheet);
}

} // namespace kelu
