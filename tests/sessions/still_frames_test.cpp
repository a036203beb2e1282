// SPDX-License-Identifier: MIT
// Frames are composed for a reason only, and for every one. That nothing is missed is checked in all sessions.
#include "support/screen_session.h"

namespace kelu {

using namespace test;

namespace {

int still_frames = 0;

/// The frames of the next `n` that aren't composed.
int still_of(Session& session, int n)
{
    still_frames = 0;
    const auto before = std::exchange(still_frame_check, [] { ++still_frames; });
    session.frame(n);
    still_frame_check = before;
    return still_frames;
}

} // namespace

TEST(StillFrames, OnlyWhatShowsIsComposed)
{
    Session session;
    session.move(160, 100);
    session.frame(200); // the picture has faded in
    EXPECT_GE(still_of(session, 90), 88);

    session.hold_key(KEY_LCONTROL);
    EXPECT_EQ(still_of(session, 60), 0) << "a key is down";
    session.release_key(KEY_LCONTROL);
    EXPECT_EQ(still_of(session, 20), 0) << "just released";
    session.frame(60);
    EXPECT_GE(still_of(session, 60), 58);

    flash_status_message(1, 30); // half a second
    EXPECT_EQ(still_of(session, 2), 1);
    EXPECT_GE(still_of(session, 80), 77);

    gui.colour[HOME_BRUSH] = 0x123456;
    EXPECT_EQ(still_of(session, 10), 0);
}

TEST(StillFrames, WhatMarchesAndBlinksMoves)
{
    Session session;
    session.move(160, 100);
    session.frame(60);
    gui_logic.gui_key_focus = 1;              // no field, but the blinking is the same
    const int still = still_of(session, 140); // two turns of the caret
    EXPECT_GE(still, 130);
    EXPECT_LE(still, 137);
    gui_logic.gui_key_focus = -1;

    gui.frame_state[0] = 2; // as while it is moved
    session.frame(60);
    EXPECT_LE(still_of(session, 45), 30) << "dashes march at 45 Hz, in frames of 10 ms";
}

} // namespace kelu
