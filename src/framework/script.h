// SPDX-License-Identifier: MIT
// The script interpreter: up to 20 small byte programs side by side, one command each a hundredth of a second.
//
// The editor starts none. A program that does calls `load_script`, sets the slot's `script_owner` and, last,
// `script_active`. Scripts run on the timer thread; the jobs that they queue run on the main thread.
#pragma once

#include "base/words.h"
#include <array>
#include <cstdint>
#include <span>

namespace kelu {

constexpr int max_scripts = 20;
constexpr int script_program_size = 10000; ///< words of a program, its end word with it
constexpr int script_string_size = 300;    ///< bytes of a text argument, its zero with it
constexpr int script_arg_count = 10;
constexpr int script_var_count = 32;

/// Bytes of the compiled form that are no commands.
enum ScriptMark : int {
    SCRIPT_QUOTE = 0x22,  ///< before and behind a text
    SCRIPT_RECORD = 0xf0, ///< begins a script: two bytes of its id follow
    SCRIPT_STRING = 0xf1, ///< begins a text argument
    SCRIPT_NUMBER = 0xf2, ///< begins a number argument: sign, high byte, low byte
    SCRIPT_END = 0xff     ///< ends a program
};

/// One running script. The main thread fills a slot while it is inactive; then it is the timer's.
struct ScriptSlot {
    Shared<int> script_pc = 0;                                    ///< index of the next word of the program
    Shared16 script_wait = 0;                                     ///< ticks left to sleep
    Shared16 script_owner = 0;                                    ///< actor that the script controls
    Shared<uint8_t> script_waiting = 0;                           ///< 1: waits for a behaviour to end
    Shared<uint8_t> script_pending = 0;                           ///< 1: waits for `script_wait_actor` to be known
    Shared16 script_wait_actor = -1;                              ///< actor whose behaviour is waited for, -1 none
    Shared16 script_wait_slot = -1;                               ///< its behaviour slot, -1 none
    std::array<Shared16, script_arg_count> script_args{};         ///< arguments of the current command
    std::array<Shared16, script_program_size> script_program{};   ///< a byte of the file in each word
    std::array<Shared<char>, script_string_size> script_string{}; ///< text argument, ends with a zero
    std::array<Shared<uint8_t>, script_var_count> script_vars{};  ///< numbers that commands 70 and 71 keep
    Published<uint8_t> script_active = 0;                         ///< 1: the slot runs; stored last
};
inline std::array<ScriptSlot, max_scripts> scripts;

/// A displacement of the picture that runs out; idle in the editor. Aged by the script pass.
struct WaveDisplacer {
    Shared<int> running = 0; ///< 1: counts
    Shared<int> counter = 0; ///< passes so far
    Shared<int> limit = 0;   ///< passes before the end
    Shared<int> ended = 0;   ///< 1: has passed its limit
};
inline std::array<WaveDisplacer, 3> wave_displacers;

inline ScriptSlot& script_at(int slot) { return scripts[slot]; }
constexpr bool script_slot_exists(int slot) { return slot >= 0 && slot < max_scripts; }

/// Makes a slot free and blank. A number outside the table: a line in the log.
void reset_script(int slot);
/// Loads script `id` of resource/mojo.def into a slot, from the program's folder. Returns the id, or -1 when there
/// is no such file or script; the slot is then blank.
int load_script(int slot, int id);
/// The same from the bytes of a compiled file. A body of more than 9999 bytes is cut.
int load_script_from(int slot, int id, std::span<const uint8_t> file);
/// Reads the arguments behind word `pc` into `script_args`, which is cleared first; returns 4 for each, and 41 when
/// there are ten, with a line in the log.
int read_args(int slot, int pc);
/// Reads the text argument behind word `pc` into `script_string`; returns the distance to its last quote. An
/// unfinished text or one of more than 299 bytes: 1, with a line in the log.
int read_string(int slot, int pc);
/// Timer callback: one command of every script that doesn't sleep or wait.
void script_tick();
/// True while a script or a displacer runs: somebody waits for the tick.
bool scripts_run();

} // namespace kelu
