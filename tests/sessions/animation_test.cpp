// The animation's two screens: tags, delays and speed, and the playback that nothing of reaches the frame.
#include "gui/kinds.h"
#include "gui/menus.h"
#include "gui/slots.h"
#include "gui/tooltips.h"
#include "runtime/animation.h"
#include "runtime/run_state.h"
#include "runtime/view.h"
#include "support/frames.h"
#include "support/golden.h"
#include "workspace/frame_cache.h"
#include <gtest/gtest.h>
#include <set>

namespace kelu {

using test::RIGHT_BUTTON;
using test::Session;

namespace {

enum { STRIP = 2, TIMING = 3, ALL = 4, NONE = 5, OKAY = 6, CANCEL = 7, HINT = 9, NAIL_0 = 10, TIMED_0 = 18 };
enum { DELAY_LEFT = 21, DELAY_RIGHT = 23, SPEED = 26 };
enum { BACKWARD = 3, STOP = 4, PAUSE = 5, FORWARD = 6, HIDE = 7, PLAY_OKAY = 8, NUMBER = 10, SHOW = 11 };

int shown_color() { return row(store.frame_bitmap, 100)[100] & 0xffffff; }

void tag(std::initializer_list<int> frames)
{
    for (const int frame : frames)
        animation.anim_tag[static_cast<std::size_t>(frame)] = 1;
    animation.anim_count = build_anim_list();
}

/// Runs frames and gathers which colours of frames showed.
std::set<int> colors_shown(Session& session, int frames)
{
    std::set<int> colors;
    for (; frames > 0; --frames) {
        session.frame();
        colors.insert(row(session.picture(), 100)[100] & 0xffffff);
    }
    return colors;
}

} // namespace

TEST(AnimationMenu, TagsFramesAndSetsTheirTiming)
{
    Session session(test::plain_home);
    test::make_frames(12);
    session.key(KEY_Z, {KEY_LSHIFT});
    ASSERT_EQ(menus.menu_id, MENU_ANIMATION);
    session.move(160, 30);
    session.frame(100);
    EXPECT_TRUE(test::matches_golden(session.picture(), "animation_menu_empty"));
    session.click(NAIL_0 + 1);
    EXPECT_NE(gui.active[HINT], 0) << "one frame is no animation";
    EXPECT_EQ(gui.active[TIMED_0 + 1], 0);
    session.click(NAIL_0 + 4);
    session.move(gui.x[STRIP] + 100, gui.y[STRIP] + 8);
    session.wheel(1); // one frame to the right: the same cell is frame 5
    session.frame(3);
    session.click(NAIL_0 + 4);
    EXPECT_EQ(animation.anim_count, 3);
    EXPECT_EQ(gui.active[HINT], 0);
    EXPECT_EQ(gui.active[DELAY_LEFT], 0) << "nothing stands before the first";
    session.move(gui.x[DELAY_RIGHT] + 40, gui.y[DELAY_RIGHT] + 4);
    session.wheel(1);
    session.wheel(1);
    EXPECT_EQ(animation.anim_delay[1], 2);
    session.move(gui.x[TIMING] + 100, gui.y[TIMING] + 8);
    session.wheel(1);
    session.frame(3);
    EXPECT_EQ(gui.scroll_value[DELAY_LEFT], 2) << "the delay of frame 1 stands on the left now";
    EXPECT_EQ(gui.scroll_value[DELAY_RIGHT], 0);
    session.move(gui.x[DELAY_LEFT] + 40, gui.y[DELAY_LEFT] + 4);
    session.wheel(1);
    session.move(gui.x[SPEED] + 40, gui.y[SPEED] + 4);
    session.wheel(-1);
    EXPECT_EQ(animation.anim_delay[1], 3);
    EXPECT_EQ(animation.anim_delay[4], 0);
    EXPECT_EQ(animation.anim_speed, 0);
    session.move(160, 30);
    session.frame(100);
    EXPECT_TRUE(test::matches_golden(session.picture(), "animation_menu"));
    session.click(OKAY);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    session.key(KEY_Z, {KEY_LSHIFT});
    session.click(ALL);
    EXPECT_EQ(animation.anim_count, 12);
    session.click_at(160, 30, RIGHT_BUTTON);
    EXPECT_EQ(gui.hidden[0], 1);
    session.click_at(160, 30, RIGHT_BUTTON);
    session.click(NONE);
    EXPECT_EQ(animation.anim_count, 0);
    session.click(CANCEL);
    EXPECT_EQ(animation.anim_count, 3) << "everything back";
    EXPECT_EQ(animation.anim_list[2], 5);
    EXPECT_EQ(animation.anim_delay[1], 3);
}

TEST(Playback, ShowsTheTaggedFramesAndGivesTheFrameBack)
{
    Session session(test::plain_home);
    test::make_frames(5);
    session.key(KEY_Z);
    EXPECT_EQ(menus.status_message, TIP_TAG_MORE_FRAMES);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    tag({1, 2, 4});
    session.key(KEY_Z);
    ASSERT_EQ(menus.menu_id, MENU_PLAYBACK);
    session.move(200, 100);
    session.frame(230); // the message has gone
    EXPECT_TRUE(test::matches_golden(session.picture(), "playback_menu"));
    EXPECT_EQ(cached_frame(1), nullptr) << "loaded at the first start only";
    const std::set<int> tagged{test::frame_color(1), test::frame_color(2), test::frame_color(4)};
    session.click(FORWARD);
    EXPECT_EQ(colors_shown(session, 30), tagged);
    session.click(BACKWARD);
    EXPECT_EQ(colors_shown(session, 30), tagged);
    session.click(PAUSE);
    const int paused = animation.anim_pos;
    EXPECT_EQ(animation.anim_state, -ANIM_BACKWARD);
    EXPECT_EQ(colors_shown(session, 30).size(), 1U);
    EXPECT_EQ(animation.anim_pos, paused);
    EXPECT_EQ(gui.list_items[NUMBER][0], animation.anim_list[static_cast<std::size_t>(paused)]);
    session.click(STOP);
    EXPECT_EQ(animation.anim_state, 0);
    EXPECT_EQ(animation.anim_pos, 0);
    session.click(HIDE);
    EXPECT_EQ(gui.hidden[0], 1);
    EXPECT_TRUE(test::matches_golden(session.picture(), "playback_hidden"));
    session.click(SHOW);
    EXPECT_EQ(gui.hidden[0], 0);
    EXPECT_EQ(gui.active[SHOW], 0);
    session.click(FORWARD);
    session.key(KEY_Z);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(shown_color(), test::frame_color(0)) << "the frame is back";
    EXPECT_EQ(animation.anim_state, ANIM_FORWARD) << "and the animation runs on";
    clear_frame_cache();
    session.key(KEY_Z);
    EXPECT_EQ(colors_shown(session, 30), tagged) << "a running one finds its pictures";
    session.click(PLAY_OKAY);
    EXPECT_EQ(animation.anim_state, 0);
}

TEST(Playback, ShowsFramesOfOtherSizesAndEditsOfTheCurrentOne)
{
    Session session(test::plain_home);
    test::make_frames(3);
    fetch_frame(0, 2, 0);
    test::replace_frame(60, 400, 0x123456);
    fetch_frame(2, 0, 0);
    tag({0, 1, 2});
    fill_frame_cache();
    clear_to_color(store.frame_bitmap, 0x654321);
    session.key(KEY_Z);
    session.click(FORWARD);
    std::set<std::pair<int, int>> sizes;
    std::set<int> corners;
    for (int i = 0; i < 40; ++i) {
        session.frame();
        sizes.emplace(store.frame_bitmap.width(), store.frame_bitmap.height());
        corners.insert(row(store.frame_bitmap, 200)[30] & 0xffffff);
    }
    EXPECT_EQ(sizes, (std::set<std::pair<int, int>>{{320, 240}, {60, 400}}));
    EXPECT_EQ(corners, (std::set<int>{0x123456, 0x654321, test::frame_color(1)}));
    session.click(PLAY_OKAY);
    EXPECT_EQ(store.frame_bitmap.width(), 320);
    EXPECT_EQ(shown_color(), 0x654321);
}

TEST(Playback, LetsNoKeyNearTheFiles)
{
    Session session(test::plain_home);
    test::make_frames(5);
    tag({1, 2, 3});
    const auto files = test::frame_files(session);
    ASSERT_EQ(files.size(), 5U);
    session.key(KEY_Z);
    session.click(FORWARD);
    test::tap_every_key(session, {KEY_Z});
    test::tap_every_key(session, {KEY_Q}, {KEY_LSHIFT});
    test::tap_every_key(session, {}, {KEY_LCONTROL});
    EXPECT_EQ(menus.menu_id, MENU_PLAYBACK);
    EXPECT_EQ(store.current_frame, 0);
    EXPECT_TRUE(files == test::frame_files(session));
    session.keep_folder();
    EXPECT_TRUE(session.finish()) << "the program ends out of the screen";
    EXPECT_TRUE(files == test::frame_files(session)) << "what is written is the frame";
    test::remove_program_folder(session.folder());
}

} // namespace kelu
