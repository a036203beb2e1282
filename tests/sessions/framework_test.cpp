// SPDX-License-Identifier: MIT
// The actor layer in the running program: the fade at the start, and a script that speaks, fades and waits.
#include "framework/script.h"
#include "framework/script_compiler.h"
#include "framework/tint.h"
#include "runtime/actors.h"
#include "runtime/bubble_table.h"
#include "runtime/jobs.h"
#include "support/screen_session.h"

namespace kelu {

using namespace test;

namespace {

constexpr int speaker = 3;
constexpr int script_slot = 0;

void show_white()
{
    store.frame_bitmap = Bitmap(320, 240, 0xffffff);
    store.coverage_bitmap = Bitmap(320, 240);
    view.pan_x = view.pan_y = 0;
    idle();
}

void start_script(const char* text)
{
    ASSERT_EQ(load_script_from(script_slot, 1, compile_script_text(text)), 1);
    actor_at(speaker).Type = ACTOR_SPEAKER;
    actor_layer.event_actor = speaker;
    script_at(script_slot).script_owner = speaker;
    script_at(script_slot).script_active = 1;
}

} // namespace

TEST(Framework, ThePictureFadesInFromBlack)
{
    Session session(show_white);
    const auto brightness = [&session] { return row(session.picture(), 200)[20] & 255; };
    int last = brightness();
    EXPECT_LT(last, 200);
    while (tint.tint_opacity != 0) {
        session.frame();
        EXPECT_GE(brightness(), last);
        last = brightness();
    }
    session.frame(2);
    EXPECT_EQ(brightness(), 255);
    EXPECT_EQ(count_actors(), 1) << "but for the reserved row the table is empty again";
}

TEST(Framework, AScriptSpeaksFadesWaitsAndEnds)
{
    Session session(show_white);
    session.frame(30); // the fade at the start is over
    start_script("0001\n [42] 0 40 \"HELLO|c24 YOU^THERE\" [60] -1 0 0 [10] 0 1 2 3 4 [03] [02] 20 [22] 7 9 [99]");
    session.frame(4);
    EXPECT_EQ(bubble_at(1).bubble_actor, speaker);
    EXPECT_GT(actor_at(speaker).actor_opacity, 200);
    EXPECT_EQ(script_at(script_slot).script_waiting, 1) << "the frame's jobs have named the fade";
    EXPECT_TRUE(session.frames_until([] { return script_at(script_slot).script_waiting == 0; }, 110));
    EXPECT_EQ(actor_at(speaker).actor_opacity, 0) << "it waited for the end of the fade";
    EXPECT_EQ(view.pan_x, 0);
    EXPECT_TRUE(session.frames_until([] { return script_at(script_slot).script_active == 0; }, 40));
    EXPECT_EQ(view.pan_x, 7);
    EXPECT_EQ(view.pan_y, 9);
    EXPECT_TRUE(session.frames_until([] { return bubble_at(1).bubble_actor == -1; }, 400));
    EXPECT_EQ(job_find(JOB_ANY), -1);
}

} // namespace kelu
