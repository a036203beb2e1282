// SPDX-License-Identifier: MIT
// The tools by mouse, from the first click to the last.
#include "draw/oval.h"
#include "draw/preview.h"
#include "draw/spline.h"
#include "draw/tool_input.h"
#include "draw/touched.h"
#include "runtime/clock.h"
#include "runtime/jobs.h"
#include "support/golden.h"
#include "support/pictures.h"
#include "support/point_print.h"
#include "support/screen_session.h"
#include "support/tool_session.h"
#include "tools/oval_tool.h"
#include "tools/spline_tool.h"
#include "tools/tools.h"

namespace kelu {

using namespace test;

namespace {

class Tools : public ToolSession {};

TEST_F(Tools, PaintAsTheyDid)
{
    struct Work {
        int tool;
        std::array<int, 3> options;
        Points clicks;
        bool right_click_ends = false;
    };
    for (const auto& [left, size] : {std::pair{20, 9}, {50, 3}, {80, 9}, {110, 9}, {140, 3}})
        rectfill(store.frame_bitmap, left, 150, left + size, 150 + size, left < 80 ? 0x800000 : left * 0x000101);
    rectfill(store.frame_bitmap, 170, 150, 179, 159, 110 * 0x000101);
    touch_frame();
    for (const Work& work : {Work{TOOL_BOX, {}, {{60, 50}, {30, 20}}},
                             {TOOL_BOX, {1}, {{70, 50}, {100, 20}}},
                             {TOOL_CIRCLE, {}, {{140, 40}, {155, 60}}},
                             {TOOL_BOX, {1}, {{0, 0}, {5, 3}}}, // at the frame's edge
                             {TOOL_CIRCLE, {1}, {{195, 40}, {204, 52}}},
                             {TOOL_CIRCLE, {}, {{12, 20}, {12, 20}}}, // a radius of 0
                             {TOOL_CIRCLE, {1}, {{6, 20}, {6, 20}}},
                             {TOOL_OVAL, {}, {{220, 40}, {300, 40}, {260, 60}}},
                             {TOOL_OVAL, {1}, {{220, 90}, {300, 90}, {260, 105}}},
                             {TOOL_POLY, {}, {{20, 80}, {60, 90}, {40, 130}}, true},
                             {TOOL_POLY, {}, {{8, 8}}, true}, // one corner is one point
                             {TOOL_DRIZ, {6, 10}, {{150, 100}}},
                             {TOOL_EDGE, {5}, {{22, 152}}},
                             {TOOL_FILL, {5}, {{82, 152}}},
                             {TOOL_SEP, {5}, {{112, 152}}},
                             {TOOL_SEP, {0}, {{141, 152}}}}) { // tolerance 0 takes nothing
        use(work.tool, work.options);
        for (const Point p : work.clicks)
            session.click_at(p.x, p.y);
        if (work.right_click_ends) session.click_at(310, 10, RIGHT_BUTTON);
    }
    use(TOOL_FSHAPE, {1});
    session.move(80, 80);
    session.press();
    for (const Point corner : {Point{110, 80}, {110, 110}, {80, 110}})
        session.move(corner.x, corner.y);
    session.release();
    use(TOOL_DRIZ, {6, 10});
    session.drag(200, 180, 300, 180, 1); // 100 pixels in one sample leave a gap
    EXPECT_TRUE(matches_golden(store.frame_bitmap, "tools"));
    const int before = snapshots();
    view.pan_x = -50;
    session.click_at(20, 52);
    EXPECT_EQ(snapshots(), before) << "a press beside the frame";
}

TEST_F(Tools, TheGridTakesTheNodesAndTheStrokes)
{
    grid.grid_w = grid.grid_h = 10;
    grid.grid_on = 1;
    use(TOOL_LINE);
    session.click_at(21, 32);
    session.click_at(58, 47);
    EXPECT_EQ(painted(), outline({{60, 50}, {20, 30}}));
    session.key(KEY_U);
    use(TOOL_FSHAPE);
    session.drag(12, 12, 48, 12, 9);
    EXPECT_EQ(painted(), outline({{50, 10}, {10, 10}}));
    session.key(KEY_U);
    // The tools that go by colour take the pixel that was clicked.
    row(store.frame_bitmap, 101)[303] = 0x0000ff;
    touch_frame();
    use(TOOL_FILL, {1});
    session.click_at(303, 101);
    EXPECT_EQ(painted(), (Pixels{{303, 101}}));
    toolbox.ink_slots[0] = INK_ADD; // which changes a pixel of the brush's own colour
    session.click_at(303, 101);
    EXPECT_NE(frame_pixel(303, 101), tool_color);
}

TEST_F(Tools, SplineSetsMovesAndJoinsNodes)
{
    use(TOOL_SPLINE, {0, 0, 40});
    session.click_at(30, 30);
    session.click_at(100, 40);
    session.click_at(60, 120);
    EXPECT_EQ(spline.count, 3);
    EXPECT_EQ(tool_input.point_list.size(), 64U) << "the preview rebuilds the curve";
    session.click_at(62, 118); // picks the third node up
    session.move(80, 140);
    EXPECT_EQ(tool_input.tool_nodes[3], (Point{80, 140}));
    session.click_at(90, 150);
    EXPECT_EQ(spline.count, 3);
    session.click_at(200, 20, RIGHT_BUTTON);
    NodeTable table = all_nodes_unset;
    table[1] = {30, 30};
    table[2] = {100, 40};
    table[3] = {90, 150};
    SplineNodes nodes{};
    prepare_spline_nodes(table, 4, false, nodes);
    EXPECT_EQ(painted(), outline(build_spline(nodes, 3, false, 40)));
}

TEST(LongOperations, AreTheSameWithFramesInBetween)
{
    bool seen_half_done = false;
    const auto filled_box = [&](bool show) {
        Session session;
        toolbox.tool_slots[0] = TOOL_BOX;
        toolbox.ink_slots[0] = INK_SOFTEN;
        toolbox.tool_table[TOOL_BOX][options::filled.column] = 1;
        toolbox.ink_table[INK_SOFTEN][0] = 200;
        Bitmap before = paint(320, 240, [](int x, int y) { return x * 7919 * (y + 3) & 0xffffff; });
        blit(before, store.frame_bitmap, 0, 0, 0, 0, 320, 240);
        touch_frame();
        session.click_at(2, 3);
        session.move(310, 180);
        // A job that stays in the queue makes a frame due at every display test.
        constexpr int job_type = 60;
        set_job_handler(job_type, [](int) { clock_state.tool_ticks = 9; });
        const int job = show ? push_to_job(job_type) : -1;
        const auto covered = [&](int x, int y) { return frame_pixel(x, y) != row(before, y)[x]; };
        session.press();
        session.release();
        EXPECT_TRUE(session.frames_until(
            [&] {
                seen_half_done = seen_half_done || (covered(2, 3) && !covered(310, 180));
                return covered(310, 180);
            },
            20000));
        if (show) job_clear(job);
        return store.frame_bitmap.copy();
    };
    const Bitmap at_once = filled_box(false);
    EXPECT_FALSE(seen_half_done);
    const Bitmap shown = filled_box(true);
    EXPECT_TRUE(seen_half_done) << "the picture follows the work";
    EXPECT_EQ(difference(at_once, shown), "");
}

} // namespace
} // namespace kelu
