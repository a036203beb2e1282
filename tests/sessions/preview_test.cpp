// SPDX-License-Identifier: MIT
// What a tool shows before it is committed are the pixels that it commits, at every zoom and pan.
#include "draw/ink_rows.h"
#include "draw/preview.h"
#include "draw/tool_input.h"
#include "runtime/cel.h"
#include "runtime/shape_settings.h"
#include "support/tool_session.h"
#include "support/ways.h"
#include "tools/shape_panel.h"
#include "tools/text_tool.h"
#include <allegro.h>

namespace kelu {

using namespace test;

namespace {

constexpr int frame_w = 420, frame_h = 320;

/// How a tool comes to its last preview, and what commits it.
struct Case {
    const char* name;
    int tool; ///< TOOL_NONE: a cel, given by its column
    Way gather, commit;
    bool shows_more = false; ///< the preview has marks that aren't committed
    int most_zoom = max_zoom;
};

constexpr auto right_click = [](Session& session) { session.click_at(150, 70, RIGHT_BUTTON); };

const Case cases[] = {
    {"line", TOOL_LINE, {at(64, 48), to(197, 121)}, {at(197, 121)}},
    {"line upwards", TOOL_LINE, {at(40, 150), to(231, 33)}, {at(231, 33)}},
    {"steep line", TOOL_LINE, {at(140, 20), to(101, 171)}, {at(101, 171)}},
    {"box", TOOL_BOX, {at(64, 48), to(197, 121)}, {at(197, 121)}},
    {"circle", TOOL_CIRCLE, {at(150, 100), to(189, 131)}, {at(189, 131)}},
    {"oval", TOOL_OVAL, {at(96, 70), at(224, 130), to(150, 160)}, {at(150, 160)}},
    {"poly", TOOL_POLY, {at(64, 48), at(197, 77), at(130, 160), to(64, 48)}, {at(64, 48, RIGHT_BUTTON)}},
    {"freehand shape",
     TOOL_FSHAPE,
     {to(64, 48), press_button, to(130, 60), to(200, 150), to(90, 131), to(64, 48)},
     {let_button_go}},
    {"polygon", TOOL_RPOLY, {at(150, 90), frames(4)}, {PANEL_OKAY}},
    {"supershape", TOOL_SSHAPE, {at(150, 90), frames(4)}, {PANEL_OKAY}},
    {"spiral", TOOL_SPIRAL, {at(150, 90), frames(4)}, {PANEL_OKAY}},
    // Closer nodes are picked up: at the last level none has room beside another.
    {"spline", TOOL_SPLINE, {at(10, 170), at(160, 10), at(310, 170)}, {right_click}, true, 5},
    {"text", TOOL_TEXT, {at(96, 96), typed(TEXT_SLOT_FIELD, "kelu"), frames(4)}, {TEXT_SLOT_OKAY}, true},
    {"paste", TOOL_NONE, {HOME_CEL, 4}, {right_click}},
    {"turn",
     TOOL_NONE,
     {HOME_CEL, 7, at(160, 96), [](Session&) { gui.scroll_value[PANEL_OWN] = 30; }, frames(4)},
     {PANEL_OKAY}},
    {"stretch", TOOL_NONE, {HOME_CEL, 8, at(64, 64), to(224, 160), at(224, 160)}, {right_click}, true},
};

struct View {
    int zoom, pan_x, pan_y;
};

class Preview : public ToolSession, public testing::WithParamInterface<Case> {
protected:
    Preview()
    {
        preferences.show_tool_distance = 0;
        preferences.anti_jitter = 0;
        shape_settings.rpoly_settings = {.angle = 10, .radius = 30, .sides = 5};
        shape_settings.spiral_settings.scale = 40;
    }

    void look_at(const View& at)
    {
        replace_frame(frame_w, frame_h, 0);
        store.cel_source_bitmap = Bitmap(13, 9, tool_color);
        store.cel_bitmap = store.cel_source_bitmap.copy();
        shape_settings.rpoly_settings.radius = std::max(40 >> (at.zoom - 1), 2);
        shape_settings.supershape_settings.magnitude = std::max(40 >> (at.zoom - 1), 2);
        view.zoom = at.zoom;
        view.pan_x = at.pan_x;
        view.pan_y = at.pan_y;
        cel.cel_origin_x = at.pan_x + 3;
        cel.cel_origin_y = at.pan_y + 2;
        session.move(5, 60);
    }

    /// Pixels of the frame that the overlay covers, in the part of the frame that is seen whole.
    static Pixels shown(const View& at)
    {
        Pixels pixels;
        for (int y = 0; y < logical_h >> (at.zoom - 1); ++y)
            for (int x = 0; x < logical_w >> (at.zoom - 1); ++x)
                if (row(screen_state.tool_overlay, y)[x] != mask_magenta) pixels.emplace(x + at.pan_x, y + at.pan_y);
        return pixels;
    }
    static Pixels committed(const View& at)
    {
        Pixels pixels;
        for (int y = 0; y < logical_h >> (at.zoom - 1); ++y)
            for (int x = 0; x < logical_w >> (at.zoom - 1); ++x)
                if (frame_pixel(x + at.pan_x, y + at.pan_y) != 0) pixels.emplace(x + at.pan_x, y + at.pan_y);
        return pixels;
    }
};

TEST_P(Preview, ShowsThePixelsThatAreCommitted)
{
    const Case& row = GetParam();
    for (const View& at : {View{1, 0, 0}, View{1, 37, 21}, View{2, 37, 21}, View{3, 3, 50}, View{4, 51, 7},
                           View{5, 18, 18}, View{6, 200, 100}}) {
        if (at.zoom > row.most_zoom) continue;
        SCOPED_TRACE(testing::Message() << row.name << " at zoom " << at.zoom << ", pan " << at.pan_x << ", "
                                        << at.pan_y);
        use(row.tool == TOOL_NONE ? TOOL_DRAW : row.tool);
        look_at(at);
        row.gather(session);
        const Pixels before = shown(at);
        ASSERT_EQ(view.pan_x, at.pan_x);
        EXPECT_FALSE(before.empty());
        row.commit(session);
        session.frame(6);
        const Pixels after = committed(at);
        EXPECT_FALSE(after.empty());
        if (row.shows_more) {
            EXPECT_TRUE(std::ranges::includes(before, after));
        } else {
            EXPECT_EQ(before, after);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(EveryTool, Preview, testing::ValuesIn(cases), [](const auto& row) {
    std::string name = row.param.name;
    std::erase(name, ' ');
    return name;
});

} // namespace
} // namespace kelu
