// SPDX-License-Identifier: MIT
// The quality dialog of a JPEG: the preview on the frame, and what OKAY and CANCEL leave.
#include "loop/actions.h"
#include "runtime/browser_state.h"
#include "screens/jpeg_quality.h"
#include "support/pictures.h"
#include "support/screen_session.h"

namespace kelu {

using namespace test;

namespace {

constexpr int slot_quality = 102, slot_okay = 103, slot_view = 104;
int answer = -1;

Bitmap picture()
{
    return paint(64, 48, [](int x, int y) { return pack_rgb(x * y & 255, x * 3 & 255, y * 5 & 255); });
}

void ask_for_quality()
{
    store.frame_bitmap = picture();
    store.alpha_bitmap = Bitmap(64, 48, 0xffffff);
    answer = jpeg_quality_dialog();
    idle();
}

double loss() { return test::loss(store.frame_bitmap, picture()); }

} // namespace

TEST(JpegQuality, PreviewsOnTheFrameAndOkayKeepsTheQuality)
{
    Session session(ask_for_quality);
    ASSERT_EQ(menus.menu_id, MENU_JPEG_QUALITY);
    const double at_90 = loss(); // the first view comes by itself
    EXPECT_GT(at_90, 0);
    gui.scroll_value[slot_quality] = 5;
    session.frame(2);
    EXPECT_EQ(loss(), at_90); // only VIEW shows the new one
    session.click(slot_view);
    EXPECT_GT(loss(), 2 * at_90);
    EXPECT_GT(action_state.frame_locked, 0) << "no key commits what is only shown";
    session.click(slot_okay);
    EXPECT_EQ(answer, 5);
    EXPECT_EQ(browser_state.jpg_quality, 5);
    EXPECT_EQ(loss(), 0);
}

} // namespace kelu
