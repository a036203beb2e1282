// SPDX-License-Identifier: MIT
// Every table of the program on its start values, before and after a test.
#pragma once

#include "base/run_state.h"
#include "program/startup.h"
#include "runtime/random.h"
#include <gtest/gtest.h>

namespace kelu::test {

class FreshState : public testing::Test {
protected:
    FreshState() { reset(); }
    ~FreshState() override { reset(); }

    static void reset()
    {
        FW_initialize_variables();
        run_state = {};
        run_state.timers_locked = 0;
        seed_random(1);
    }
};

} // namespace kelu::test
