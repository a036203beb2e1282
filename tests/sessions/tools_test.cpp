// The tools by mouse, from the first click to the last.
#include "draw/oval.h"
#include "draw/preview.h"
#include "draw/spline.h"
#include "draw/tools.h"
#include "runtime/clock.h"
#include "runtime/grid.h"
#include "runtime/jobs.h"
#include "runtime/measure.h"
#include "runtime/view.h"
#include "support/pictures.h"
#include "support/point_print.h"
#include "support/tool_session.h"

namespace kelu {

using test::Pixels;
using test::RIGHT_BUTTON;
using test::Session;

namespace {

class Tools : public test::ToolSession {};

TEST_F(Tools, LineRunsBetweenTwoClicksAndIsOneUndoStep)
{
    use(TOOL_LINE);
    session.click_at(20, 30);
    session.move(120, 90);
    EXPECT_EQ(preview.preview_kind, TOOL_LINE);
    EXPECT_EQ(previewed(), 101) << "the dashed line";
    EXPECT_TRUE(painted().empty()) << "nothing touches the frame before the second click";
    session.click_at(120, 90);
    EXPECT_EQ(painted(), outline({{120, 90}, {20, 30}}));
    EXPECT_EQ(snapshots(), 1);
    EXPECT_EQ(previewed(), 0);
    EXPECT_EQ(preview.preview_kind, no_preview);
    session.key(KEY_U);
    EXPECT_TRUE(painted().empty());
}

TEST_F(Tools, ARightClickCancelsTheSecondPoint)
{
    for (const int tool : {TOOL_LINE, TOOL_BOX, TOOL_CIRCLE, TOOL_OVAL}) {
        use(tool);
        session.click_at(20, 30);
        session.move(100, 70);
        EXPECT_GT(previewed(), 0);
        session.click_at(60, 70, RIGHT_BUTTON);
        EXPECT_EQ(preview.preview_kind, no_preview);
        EXPECT_EQ(previewed(), 0);
        EXPECT_EQ(snapshots(), 0);
        EXPECT_TRUE(painted().empty());
    }
}

TEST_F(Tools, BoxHollowAndFilledFromAnyCorner)
{
    use(TOOL_BOX);
    session.click_at(60, 50);
    session.click_at(30, 20);
    EXPECT_EQ(painted(), outline({{30, 20}, {60, 20}, {60, 50}, {30, 50}, {30, 20}}));
    use(TOOL_BOX, {1});
    session.click_at(30, 50);
    session.click_at(60, 20);
    EXPECT_EQ(painted().size(), 31U * 31U);
    // A corner beyond the frame cuts the box off.
    session.key(KEY_U);
    session.key(KEY_U);
    view.pan_x = -100;
    session.click_at(90, 20);
    session.click_at(104, 22);
    EXPECT_EQ(painted().size(), 5U * 3U);
}

TEST_F(Tools, CircleRunsThroughTheSecondPoint)
{
    use(TOOL_CIRCLE);
    session.click_at(100, 100);
    session.click_at(130, 140);
    Pixels rim;
    walk_circle({100, 100}, 50, [&](int x, int y) { rim.emplace(x, y); });
    EXPECT_EQ(painted(), rim);
    use(TOOL_CIRCLE, {1});
    session.click_at(100, 100);
    session.click_at(130, 140);
    Pixels disc;
    walk_disc({100, 100}, 50, 240, [&](int left, int right, int y) {
        for (int x = left; x <= right; ++x)
            disc.emplace(x, y);
    });
    EXPECT_EQ(painted(), disc);
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
    row(store.frame_bitmap, 101)[103] = 0x0000ff;
    use(TOOL_FILL, {1});
    session.click_at(103, 101);
    EXPECT_EQ(painted(), (Pixels{{103, 101}}));
}

TEST_F(Tools, TheMeasurementIsAnchoredAtTheFirstPoint)
{
    preferences.show_tool_distance = 1;
    use(TOOL_BOX);
    session.click_at(40, 41);
    EXPECT_EQ(measure.measure_x, 40);
    EXPECT_EQ(measure.measure_y, 41);
    EXPECT_EQ(measure.measure_is_distance, 0);
    session.click_at(60, 60);
    EXPECT_EQ(measure.measure_x, -1);
    use(TOOL_LINE);
    session.click_at(40, 41);
    EXPECT_EQ(measure.measure_is_distance, 1);
    session.click_at(60, 60, RIGHT_BUTTON);
    EXPECT_EQ(measure.measure_x, -1);
    // One that the user runs himself stays.
    measure = {.measure_x = 5, .measure_y = 6, .measure_state = 2};
    session.click_at(40, 41);
    session.click_at(60, 60);
    EXPECT_EQ(measure.measure_x, 5);
    measure = {};
}

TEST_F(Tools, FillReplaceAndEdgeGoByColor)
{
    rectfill(store.frame_bitmap, 50, 50, 59, 59, 0x800000);
    rectfill(store.frame_bitmap, 80, 50, 83, 53, 0x800000);
    use(TOOL_EDGE, {5});
    session.click_at(52, 52);
    EXPECT_EQ(painted().size(), 36U + 12U) << "the rims of both areas";
    session.key(KEY_U);
    use(TOOL_FILL, {5});
    session.click_at(52, 52);
    EXPECT_EQ(painted().size(), 100U);
    session.click_at(52, 52);
    EXPECT_EQ(painted().size(), 100U);
    session.key(KEY_U);
    session.key(KEY_U);
    use(TOOL_SEP, {5});
    session.click_at(52, 52);
    EXPECT_EQ(painted().size(), 116U);
    session.key(KEY_U);
    use(TOOL_SEP, {0});
    session.click_at(52, 52);
    EXPECT_TRUE(painted().empty()) << "tolerance 0 takes nothing";
    const int before = snapshots();
    view.pan_x = -50;
    session.click_at(20, 52);
    EXPECT_EQ(snapshots(), before) << "a press beside the frame";
}

TEST_F(Tools, DrizIsWidestAtRestAndBreaksWhenFast)
{
    use(TOOL_DRIZ, {6, 10});
    session.click_at(100, 100);
    Pixels disc;
    walk_disc({100, 100}, 6, 240, [&](int left, int right, int y) {
        for (int x = left; x <= right; ++x)
            disc.emplace(x, y);
    });
    EXPECT_EQ(painted(), disc);
    session.key(KEY_U);
    session.drag(100, 100, 200, 100, 1);
    EXPECT_EQ(painted(), disc) << "100 pixels in one sample leave a gap";
}

TEST_F(Tools, SprayFillsItsDisc)
{
    use(TOOL_SPRAY, {100, 10});
    session.move(150, 100);
    session.press();
    session.frame(300);
    session.release();
    session.frame(2);
    int inside = 0;
    for (int y = 90; y < 110; ++y)
        for (int x = 140; x < 160; ++x)
            inside += (x - 150) * (x - 150) + (y - 100) * (y - 100) < 100 ? 1 : 0;
    EXPECT_EQ(static_cast<int>(painted().size()), inside) << "13500 drops reach every pixel, and none beyond";
    for (const auto& [x, y] : painted())
        EXPECT_LT((x - 150) * (x - 150) + (y - 100) * (y - 100), 100);
}

TEST_F(Tools, OvalTakesTwoAxes)
{
    use(TOOL_OVAL);
    session.click_at(60, 80);
    session.click_at(140, 80);
    session.move(100, 110);
    EXPECT_EQ(preview.preview_kind, TOOL_OVAL);
    EXPECT_GT(previewed(), 100);
    EXPECT_EQ(snapshots(), 0);
    session.click_at(100, 110);
    Pixels chain;
    for (const Point p : interpolate_ellipse(100, 80, 40, 30, 360, 360))
        chain.emplace(p.x, p.y);
    EXPECT_EQ(painted(), chain);
    EXPECT_TRUE(tool_input.point_list.empty());

    use(TOOL_OVAL, {1});
    session.click_at(60, 80);
    session.click_at(140, 80);
    session.click_at(100, 110);
    for (int y = 51; y < 110; ++y)
        EXPECT_TRUE(painted().contains({100, y})) << y;
    EXPECT_EQ(snapshots(), 2);
}

TEST_F(Tools, PolyTakesCornersUntilARightClick)
{
    use(TOOL_POLY);
    session.click_at(30, 30);
    session.click_at(90, 40);
    session.click_at(50, 90);
    EXPECT_EQ(tool_input.point_list, (Points{{30, 30}, {90, 40}, {50, 90}}));
    EXPECT_EQ(snapshots(), 0);
    session.click_at(10, 10, RIGHT_BUTTON);
    EXPECT_EQ(painted(), outline({{30, 30}, {90, 40}, {50, 90}, {30, 30}}));
    session.key(KEY_U);
    use(TOOL_POLY);
    session.click_at(30, 30);
    session.click_at(90, 90, RIGHT_BUTTON);
    EXPECT_EQ(painted(), (Pixels{{30, 30}})) << "one corner is one point";
}

TEST_F(Tools, FreehandShapeClosesItself)
{
    use(TOOL_FSHAPE, {1});
    session.move(40, 40);
    session.press();
    for (const Point corner : {Point{80, 40}, {80, 80}, {40, 80}})
        session.move(corner.x, corner.y);
    session.release();
    session.frame(2);
    EXPECT_EQ(painted().size(), 41U * 41U);
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
    EXPECT_EQ(tool_input.tool_nodes[3], Point(80, 140));
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
    EXPECT_EQ(snapshots(), 1);
}

TEST(LongInput, EndsWithTheProgram)
{
    for (const int tool : {TOOL_LINE, TOOL_POLY, TOOL_OVAL, TOOL_SPLINE, TOOL_SSHAPE, TOOL_SPIRAL}) {
        Session session;
        toolbox.tool_slots[0] = tool;
        session.click_at(30, 30);
        EXPECT_NE(preview.preview_kind, no_preview) << tool;
        EXPECT_TRUE(session.finish()) << tool;
        EXPECT_EQ(preview.preview_kind, no_preview) << tool;
    }
}

TEST(LongOperations, AreTheSameWithFramesInBetween)
{
    bool seen_half_done = false;
    const auto filled_box = [&](bool show) {
        Session session;
        toolbox.tool_slots[0] = TOOL_BOX;
        toolbox.ink_slots[0] = INK_SOFTEN;
        toolbox.tool_table[TOOL_BOX][OPTION_FILLED] = 1;
        toolbox.ink_table[INK_SOFTEN][0] = 200;
        Bitmap before = test::paint(320, 240, [](int x, int y) { return x * 7919 * (y + 3) & 0xffffff; });
        blit(before, store.frame_bitmap, 0, 0, 0, 0, 320, 240);
        session.click_at(2, 3);
        session.move(310, 180);
        clear_to_color(store.coverage_bitmap, 0);
        // A job that stays in the queue makes a frame due at every display test.
        constexpr int job_type = 60;
        set_job_handler(job_type, [](int) { clock_state.tool_ticks = 9; });
        const int job = show ? push_to_job(job_type, 0, 0, 0, 0, 0, 0, 0, 0, 0) : -1;
        const auto covered = [](int x, int y) { return row(store.coverage_bitmap, y)[x] != 0; };
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
    EXPECT_EQ(test::difference(at_once, shown), "");
}

} // namespace
} // namespace kelu
