// SPDX-License-Identifier: MIT
// Any bytes as the body of a compiled script, and any text as the source of one, for some hundred ticks.
#include "framework/script.h"
#include "base/run_state.h"
#include "framework/behaviors.h"
#include "framework/bubbles.h"
#include "framework/framework_jobs.h"
#include "framework/script_compiler.h"
#include "runtime/jobs.h"
#include <string_view>

#include "reader_target.h"

namespace kelu {
namespace {

constexpr int ticks = 100;
constexpr int speaker = 3;
constexpr int script_id = 1;

void run(const std::vector<uint8_t>& file)
{
    if (load_script_from(0, script_id, file) != script_id) return;
    script_at(0).script_owner = speaker;
    script_at(0).script_active = 1;
    // The other passes run now and then: they are slow under the sanitizers, and scripts wait for them.
    for (int i = 0; i < ticks && script_at(0).script_active != 0; ++i) {
        script_tick();
        if (i % 16 != 0) continue;
        behavior_tick();
        bubble_tick();
        run_jobs();
    }
    reset_script(0);
    FW_destroy_actor(speaker, "fuzz");
    clear_jobs();
}

} // namespace
} // namespace kelu

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    using namespace kelu;
    run_state.timers_locked = 0;
    register_framework_jobs([] {});
    std::vector<uint8_t> compiled{SCRIPT_RECORD, 0, script_id};
    compiled.insert(compiled.end(), data, data + size);
    run(compiled);
    std::string source = "0001\n";
    source.append(reinterpret_cast<const char*>(data), size);
    run(compile_script_text(source));
    return 0;
}
