// SPDX-License-Identifier: MIT
// Scripts: compiled from text, and what malformed ones do.
#include "framework/script.h"

#include "base/run_state.h"
#include "framework/framework_jobs.h"
#include "framework/script_compiler.h"
#include "loop/frame.h"
#include "runtime/actors.h"
#include "runtime/bubble_table.h"
#include "support/fresh_state.h"
#include "support/log_lines.h"
#include <algorithm>

namespace kelu {
namespace {

using Bytes = std::vector<uint8_t>;

class ScriptTest : public test::FreshState {
protected:
    ScriptTest() { register_framework_jobs(run_frame_plain); }
    /// Compiles a text, loads script 1 of it and starts it for actor 3.
    static void start(std::string_view text, int slot = 0)
    {
        ASSERT_EQ(load_script_from(slot, 1, compile_script_text(text)), 1);
        actor_at(3).Type = ACTOR_SPEAKER;
        script_at(slot).script_owner = 3;
        script_at(slot).script_active = 1;
    }
    static void tick(int n = 1)
    {
        for (int i = 0; i < n; ++i)
            script_tick();
    }
    bool logged(const std::string& line) { return std::ranges::count(log.take(), line) == 1; }
    LogLines log;
};

} // namespace

TEST_F(ScriptTest, CompilesHeadsCommandsNumbersTextsAndRemarks)
{
    const Bytes expected{0xf0, 1,    50,                                // head, the rest of its line ignored
                         2,    0xf2, 0,   1,   44,                      // [02 300
                         21,   0xf2, 1,   0,   1,                       // [21 -1
                         42,   0xf2, 0,   0,   1,   0xf2, 0,   0,    9, // [42 1 9
                         0xf1, 0x22, 'A', ';', '[', '\n', '1', 0x22, 99};
    EXPECT_EQ(compile_script_text("0150 the title 77\r\n [02] 300 ; 5 6 7\n [21 -1\n\n [42] 1 9 \"A;[\r\n1\" [99]"),
              expected);
    // Up to four characters make a number; a line may end anywhere.
    EXPECT_EQ(compile_script_text(" 12345"), (Bytes{0xf2, 0, 4, 210, 0xf2, 0, 0, 5}));
    EXPECT_EQ(compile_script_text(" ["), Bytes{0});
    EXPECT_EQ(compile_script_text("7"), (Bytes{0xf0, 7, 0}));
    EXPECT_EQ(compile_script_text(""), Bytes{});
}

TEST_F(ScriptTest, MalformedScriptsEndWithTheirLines)
{
    start("0001\n [12] 1 2 3 4 5 6 7 8 9 10 [99]");
    tick();
    EXPECT_TRUE(logged("[ ERROR ] : MAXIMUM NUMBER OF SCRIPT ARGUMENTS EXCEEDED! Offset = 0"));
    EXPECT_EQ(script_at(0).script_args[9], 10);
    EXPECT_EQ(script_at(0).script_pc, 42);

    start("0001\n [42] 0 5 \"NO END", 1);
    tick();
    EXPECT_TRUE(logged("[ ERROR ] : PROBLEMS PROCESSING SCRIPT STRING! offset = 17"));
    start("0001\n [42] 0 5 \"" + std::string(300, 'A') + "\" [99]", 1);
    tick();
    EXPECT_TRUE(logged("[ ERROR ] : PROBLEMS TRANSFERRING SCRIPT STRING! offset = 310"));
    EXPECT_EQ(bubble_at(1).bubble_actor, -1) << "half a text is not said";
    start("0001\n [42] 0 5 \"" + std::string(299, 'A') + "\" [99]", 1);
    tick();
    EXPECT_EQ(bubble_at(1).bubble_text[298], 'A');

    // A number that is cut off by the program's end, and words that no file holds.
    reset();
    EXPECT_EQ(load_script_from(0, 1, Bytes{0xf0, 0, 1, 2, 0xf2}), 1);
    script_at(0).script_active = 1;
    tick(40);
    script_at(0).script_pc = 9999;
    script_at(0).script_program[9999] = SCRIPT_NUMBER;
    script_at(0).script_active = 1;
    tick(2);
    EXPECT_EQ(read_args(0, 9998), 4);
    EXPECT_EQ(read_string(0, 20000), 1);
}

} // namespace kelu
