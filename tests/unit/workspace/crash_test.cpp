// SPDX-License-Identifier: MIT
// The program killed while it writes: whatever the moment, the next start finds every frame whole and a state that
// reads. A child process does the work and is killed at a random time; the parent starts on what it left.
#include "support/failing_calls.h"
#include "workspace_fixture.h"
#include <csignal>
#include <random>
#include <sys/wait.h>
#include <unistd.h>

namespace kelu {
namespace {

constexpr int frame_side = 64;
constexpr int kills = 100;
constexpr int longest_wait = 25000; // microseconds

/// Every frame is of one colour all over, so that a torn one shows.
bool one_color(BITMAP* picture)
{
    for (int y = 0; y < picture->h; ++y)
        for (int x = 0; x < picture->w; ++x)
            if (row(picture, y)[x] != row(picture, 0)[0]) return false;
    return true;
}

void paint(int color) { clear_to_color(store.frame_bitmap, color); }

/// One of the things that write, on the workspace as it stands.
void work(unsigned step)
{
    paint(static_cast<int>(step * 37 & 0xffffff));
    switch (step % 6) {
    case 0:
        fetch_frame(store.current_frame, (store.current_frame + 1) % store.frame_count, 0);
        break;
    case 1:
        if (store.frame_count < 8) insert_frames(store.current_frame, 1, INSERT_CLONES);
        write_workspace_state("current.spa", true);
        break;
    case 2:
        if (store.frame_count > 3) delete_frames(store.current_frame, 1);
        write_workspace_state("current.spa", true);
        break;
    case 3:
        write_workspace_state("current.spa", false);
        break;
    case 4:
        write_user_settings();
        break;
    case 5:
        if (step % 4 == 1) load_workspace_archive("kept.wsp", [] {});
        break;
    }
}

class CrashTest : public WorkspaceTest {
protected:
    CrashTest() : no_flush_(Fault::NONE, 0) {}

    /// Lets a child work until it is killed after some microseconds.
    static void work_and_die(unsigned seed, useconds_t after)
    {
        const pid_t child = fork();
        if (child == 0) {
            for (unsigned step = seed;; ++step)
                work(step);
        }
        usleep(after);
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }

    void start_again()
    {
        FW_initialize_variables();
        store.nail_sheet = Bitmap(400, 400);
        store.tip_sheet = Bitmap(206, 62);
        read_user_settings();
        const platform::DirectoryVisit visit("WORKSPACE");
        ASSERT_EQ(read_workspace_state("current.spa"), 1);
    }

private:
    FailingCalls no_flush_; ///< a process that is killed needs no flush to disk
};

} // namespace

TEST_F(CrashTest, EveryFrameIsWholeAtTheNextStart)
{
    for (int i = 0; i < 4; ++i)
        put_frame(i, frame_color(i), frame_side, frame_side);
    store.frame_count = 4;
    store.current_frame = 0;
    ASSERT_TRUE(fetch_frame(0, 0, 0));
    save_workspace_archive("kept.wsp", [] {});
    write_user_settings();
    std::mt19937 random(7);
    for (unsigned round = 0; round < kills; ++round) {
        work_and_die(round * 5, static_cast<useconds_t>(random() % longest_wait));
        start_again();
        ASSERT_GE(store.frame_count, 3) << round;
        ASSERT_EQ(store.frame_count, count_workspace_frames());
        for (int i = 0; i < store.frame_count; ++i) {
            const Bitmap frame = read_tga(in_store(frame_file(i)).string());
            ASSERT_EQ(frame.width(), frame_side) << round;
            ASSERT_TRUE(one_color(frame)) << round;
        }
        ASSERT_FALSE(exists("damaged.000")) << round;
        ASSERT_FALSE(exists("damaged.spa")) << round;
        ASSERT_EQ(folder.text("resource/damaged.def"), "");
    }
}

} // namespace kelu
