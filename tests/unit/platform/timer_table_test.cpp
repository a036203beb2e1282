// SPDX-License-Identifier: MIT
// Deadlines on a clock of the test's, and ticks that nobody waits for.
#include "platform/timer_table.h"
#include <gtest/gtest.h>
#include <string>

namespace kelu::platform {
namespace {

std::string calls;
bool waited = true;
int passed = 0;

bool is_waited_for() { return waited; }

class TimerTableTest : public testing::Test {
protected:
    void SetUp() override
    {
        calls.clear();
        waited = true;
        passed = 0;
        const auto a = [] { calls += 'a'; };
        const auto b = [] { calls += 'b'; };
        const auto pass = [](int n) { passed += n; };
        EXPECT_TRUE(table.install({a, 300, is_waited_for, pass}, 0));
        EXPECT_TRUE(table.install({b, 100, nullptr, nullptr}, 0));
    }
    TimerTable table;
};

TEST_F(TimerTableTest, RunsInTheOrderOfDeadlinesAndOfInstallation)
{
    EXPECT_EQ(table.run(99), 100);
    EXPECT_EQ(calls, "");
    EXPECT_EQ(table.run(650), 700);
    EXPECT_EQ(calls, "bbabbbab");
}

TEST_F(TimerTableTest, PassesWhatNobodyWaitedForInOneStep)
{
    table.run(300);
    waited = false;
    EXPECT_EQ(table.run(350), 400); // the other timer's
    calls.clear();
    EXPECT_EQ(table.run(1000), 1100);
    EXPECT_EQ(calls, "bbbbbbb");
    EXPECT_EQ(passed, 2);
    waited = true;
    EXPECT_EQ(table.run(1050), 1100);
    EXPECT_EQ(table.run(1250), 1300);
    EXPECT_EQ(calls, "bbbbbbbbab");
    EXPECT_EQ(passed, 2);
}

TEST_F(TimerTableTest, SleepsForGoodWhereNothingIsWaitedFor)
{
    TimerTable quiet;
    EXPECT_TRUE(quiet.install({[] {}, 100, [] { return false; }, [](int n) { passed += n; }}, 50));
    EXPECT_EQ(quiet.run(60), TimerTable::never);
    quiet.pass_idle(1049);
    EXPECT_EQ(passed, 9);
    EXPECT_EQ(quiet.run(1050), TimerTable::never);
    EXPECT_EQ(passed, 10);
}

TEST_F(TimerTableTest, CatchesUpASecondAtMost)
{
    table.run(100);
    calls.clear();
    table.run(100 + 100 * timer_units_per_second);
    EXPECT_LT(calls.size(), 2U * timer_units_per_second / 100);
    EXPECT_GT(passed, 300000);
}

TEST_F(TimerTableTest, TakesANewPeriodFromTheLastDeadlineOn)
{
    const auto c = [] { calls += 'c'; };
    EXPECT_TRUE(table.install({c, 1000, nullptr, nullptr}, 0));
    EXPECT_TRUE(table.install({c, 60, nullptr, nullptr}, 10));
    EXPECT_EQ(table.run(61), 100);
    EXPECT_EQ(calls, "c");
    table.remove(c);
    table.run(99);
    EXPECT_EQ(calls, "c");
}

} // namespace
} // namespace kelu::platform
