// SPDX-License-Identifier: MIT
// The order of what the thread writes, where a commit fails and is tried again.
#include "workspace/work_thread.h"

#include "workspace_fixture.h"

namespace kelu {
namespace {

class WorkThreadTest : public WorkspaceTest {
protected:
    static constexpr int side = 70;

    BeginOrder begin(int frame, bool drops) const
    {
        return {frame, in_store(frame_file(frame)).string(), in_store(frame_file(frame, file_set::journal)).string(),
                drops};
    }
    /// Frame 0 gets a journal with a picture.
    void paint()
    {
        {
            const std::lock_guard lock(unsaved.mutex);
            thread.append(begin(0, false));
            thread.append(PictureOrder{Bitmap(side, side, opaque | 0x30)});
        }
        thread.settle();
    }
    /// It is left for frame 1, and its commit comes behind the beginning of that frame's journal, as it does when it is
    /// tried again.
    void leave_with_late_commit()
    {
        const std::lock_guard lock(unsaved.mutex);
        thread.append(begin(1, true));
        thread.append_commit(
            {{0, Bitmap(side, side, 0x30), Bitmap(side, side, 0xffffff)}, in_store("current.000").string()});
    }

    WorkThread thread;
};

} // namespace

TEST_F(WorkThreadTest, AJournalStaysUntilItsFrameIsInItsFile)
{
    put_frame(0, frame_color(0), side, side);
    thread.start();
    paint();
    ASSERT_TRUE(exists("journal.000"));
    std::filesystem::remove(in_store("current.000"));
    std::filesystem::create_directory(in_store("current.000"));
    leave_with_late_commit();
    EXPECT_FALSE(thread.settle());
    EXPECT_TRUE(exists("journal.000")) << "the only copy of the picture";
    EXPECT_EQ(thread.take_failure().value_or(WorkThread::Failure{}).error, EISDIR);

    std::filesystem::remove(in_store("current.000"));
    EXPECT_TRUE(thread.settle()) << "the commit is tried again";
    EXPECT_EQ(stored_pixel(0), opaque | 0x30);
    EXPECT_FALSE(exists("journal.000"));
}

} // namespace kelu
