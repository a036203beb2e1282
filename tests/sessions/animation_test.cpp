// SPDX-License-Identifier: MIT
// The animation's two screens: tags, delays and speed, and the playback that nothing of reaches the frame.
#include "runtime/animation.h"
#include "screens/animation_slots.h"
#include "support/frames.h"
#include "support/screen_session.h"
#include "workspace/frame_cache.h"
#include <set>

namespace kelu {

using namespace test;

namespace {

enum { BACKWARD = 3, STOP, PAUSE, FORWARD, HIDE, PLAY_OKAY, NUMBER = 10, SHOW };

int shown_color() { return row(store.frame_bitmap, 100)[30] & 0xffffff; }

void tag(std::initializer_list<int> frames)
{
    for (const int frame : frames)
        tag_of(frame) = 1;
    animation.anim_count = build_anim_list();
}

/// Runs frames and gathers which colours showed.
std::set<int> colors_shown(Session& session)
{
    std::set<int> colors;
    for (int i = 0; i < 40; ++i) {
        session.frame();
        colors.insert(shown_color());
    }
    return colors;
}

void turn_wheel(Session& session, int slot, int steps)
{
    session.move(gui.x[slot] + 40, gui.y[slot] + 6);
    session.wheel(steps);
    session.frame(3);
}

} // namespace

TEST(AnimationMenu, TagsFramesAndSetsTheirTiming)
{
    Session session(plain_home);
    make_frames(12);
    session.key(KEY_Z, {KEY_LSHIFT});
    session.click(SLOT_NAIL_0 + 1);
    session.move(160, 30);
    session.frame(100);
    EXPECT_TRUE(matches_golden(session.picture(), "animation_menu_empty")) << "one frame is no animation";
    session.click(SLOT_NAIL_0 + 4);
    turn_wheel(session, SLOT_STRIP, 1); // one frame to the right: the same cell is frame 5
    session.click(SLOT_NAIL_0 + 4);
    EXPECT_EQ(gui.active[SLOT_DELAY_LEFT], 0) << "nothing stands before the first";
    turn_wheel(session, SLOT_DELAY_RIGHT, 1);
    turn_wheel(session, SLOT_DELAY_RIGHT, 1);
    turn_wheel(session, SLOT_TIMING, 1);
    EXPECT_EQ(gui.scroll_value[SLOT_DELAY_LEFT], 2) << "the delay of frame 1 stands on the left now";
    EXPECT_EQ(gui.scroll_value[SLOT_DELAY_RIGHT], 0);
    turn_wheel(session, SLOT_DELAY_LEFT, 1);
    turn_wheel(session, SLOT_SPEED, -1);
    session.move(160, 30);
    session.frame(100);
    EXPECT_TRUE(matches_golden(session.picture(), "animation_menu"));
    session.click(SLOT_OKAY);
    session.key(KEY_Z, {KEY_LSHIFT});
    session.click(SLOT_ALL);
    EXPECT_EQ(animation.anim_count, 12);
    session.click_at(160, 30, RIGHT_BUTTON);
    EXPECT_EQ(gui.hidden[0], 1);
    session.click_at(160, 30, RIGHT_BUTTON);
    session.click(SLOT_NONE);
    EXPECT_EQ(animation.anim_count, 0);
    session.click(SLOT_CANCEL);
    EXPECT_EQ(animation.anim_count, 3) << "everything back";
    EXPECT_EQ(animation.anim_list[2], 5);
    EXPECT_EQ(animation.anim_delay[1], 3);
}

TEST(Playback, ShowsTheTaggedFramesAndGivesTheFrameBack)
{
    Session session(plain_home);
    make_frames(5);
    fetch_frame(0, 4, 0);
    replace_frame(60, 400, frame_color(4));
    fetch_frame(4, 0, 0);
    session.key(KEY_Z);
    EXPECT_EQ(menus.status_message, TIP_TAG_MORE_FRAMES);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    tag({0, 2, 4});
    fill_frame_cache();
    clear_to_color(store.frame_bitmap, 0x654321); // after it was cached
    session.key(KEY_Z);
    session.frame(30); // and then the message has gone
    EXPECT_TRUE(looks_like(session, "playback_menu", 200, 100));
    const std::set<int> tagged{0x654321, frame_color(2), frame_color(4)};
    session.click(FORWARD);
    EXPECT_EQ(colors_shown(session), tagged);
    session.click(BACKWARD);
    EXPECT_EQ(colors_shown(session), tagged);
    session.click(PAUSE);
    EXPECT_EQ(animation.anim_state, -ANIM_BACKWARD);
    EXPECT_EQ(colors_shown(session).size(), 1U);
    EXPECT_EQ(gui.list_items[NUMBER][0], animation.anim_list[static_cast<std::size_t>(int(animation.anim_pos))]);
    session.click(STOP);
    EXPECT_EQ(animation.anim_pos, 0);
    session.click(HIDE);
    EXPECT_TRUE(matches_golden(session.picture(), "playback_hidden"));
    session.click(SHOW);
    EXPECT_EQ(gui.active[SHOW], 0);
    session.click(FORWARD);
    session.key(KEY_Z);
    EXPECT_EQ(shown_color(), 0x654321) << "the frame is back";
    EXPECT_EQ(store.frame_bitmap.width(), 320);
    EXPECT_EQ(view.pan_x, 0) << "where the narrow frame had to be held no longer counts";
    EXPECT_EQ(animation.anim_state, ANIM_FORWARD) << "and the animation runs on";
    for (const int frame : {3, 2}) { // for a while another frame is tagged, and takes the place in the cache
        tag_of(2) = tag_of(3) = 0;
        tag({frame});
        fill_frame_cache();
    }
    session.key(KEY_Z);
    EXPECT_EQ(colors_shown(session), tagged);
    session.key(KEY_Z);
    clear_frame_cache();
    session.key(KEY_Z);
    EXPECT_EQ(colors_shown(session), tagged) << "a running one finds its pictures";
    session.click(PLAY_OKAY);
    EXPECT_EQ(animation.anim_state, ANIM_STOPPED);
}

TEST(Playback, LetsNoKeyNearTheFiles)
{
    Session session;
    make_frames(5);
    tag({1, 2, 3});
    const auto files = frame_files(session);
    ASSERT_EQ(files.size(), 5U);
    session.key(KEY_Z);
    session.click(FORWARD);
    tap_every_key(session, {KEY_Z, KEY_ESC});
    tap_every_key(session, {KEY_Q}, {KEY_LSHIFT});
    tap_every_key(session, {}, {KEY_LCONTROL});
    EXPECT_EQ(menus.menu_id, MENU_PLAYBACK);
    EXPECT_EQ(store.current_frame, 0);
    EXPECT_TRUE(files == frame_files(session));
    EXPECT_TRUE(session.finish()) << "the program ends out of the screen";
    EXPECT_TRUE(files == frame_files(session)) << "what is written is the frame";
}

} // namespace kelu
