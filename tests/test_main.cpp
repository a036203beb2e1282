// SPDX-License-Identifier: MIT
// Entry of every test program: Allegro without a display, then the tests.
#include "platform/host.h"
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    kelu::platform::headless_host.start();
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
