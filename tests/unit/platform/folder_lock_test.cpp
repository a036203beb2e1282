// SPDX-License-Identifier: MIT
// One program a folder: the lock stands as long as its process and leaves nothing behind.
#include "platform/folder_lock.h"

#include "support/temporary_folder.h"
#include <csignal>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kelu {

TEST(folder_lock, goes_with_its_process_however_that_ends)
{
    const TemporaryFolder folder;
    int ready[2] = {};
    ASSERT_EQ(pipe(ready), 0);
    const pid_t other = fork();
    if (other == 0) {
        const char taken = platform::lock_folder() ? 'y' : 'n';
        if (write(ready[1], &taken, 1) == 1) pause();
        _exit(0);
    }
    char taken = 0;
    ASSERT_EQ(read(ready[0], &taken, 1), 1);
    EXPECT_EQ(taken, 'y');
    EXPECT_FALSE(platform::lock_folder()) << "the folder is in use";
    kill(other, SIGKILL);
    waitpid(other, nullptr, 0);
    EXPECT_TRUE(platform::lock_folder());
    EXPECT_TRUE(std::filesystem::is_empty("."));
    {
        const TemporaryFolder elsewhere;
        EXPECT_TRUE(platform::lock_folder()) << "another folder is another matter";
    }
    platform::unlock_folder();
    close(ready[0]);
    close(ready[1]);
}

} // namespace kelu
