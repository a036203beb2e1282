// SPDX-License-Identifier: MIT
// Loading, and the way back to the program's own font.
#include "workspace/text_font.h"

#include "base/log.h"
#include "base/run_state.h"
#include "imagefile/vector_font.h"
#include "platform/files.h"
#include "runtime/failure.h"
#include "runtime/text_settings.h"
#include "workspace/notice.h"

namespace kelu {
namespace {

constexpr const char* system_font = "system.ttf";
constexpr const char* font_folder = "fonts"; ///< of the user, and of the program's own font

/// The program's own font, from the folder in which it was delivered.
void load_system_font()
{
    platform::change_directory(run_state.program_dir);
    platform::change_directory(delivered_folder(font_folder));
    if (load_vector_font(system_font) != 1) {
        log_line("[ ERROR ] : Preferred font AND system font are missing. Reinstall program!");
        fatal_stop(fatal_text::system_font);
    }
    text_settings.font_file = system_font;
}

/// While no font was chosen yet: the program's own.
void prefer_system_font()
{
    if (!text_settings.font_dir.empty()) return;
    text_settings.font_dir = run_state.program_dir + "/" + font_folder;
    if (text_settings.font_file.empty()) text_settings.font_file = system_font;
}

void load_preferred_font()
{
    prefer_system_font();
    if (!platform::change_directory(text_settings.font_dir)) {
        log_line("[ WARNING ] : Preferred font path doesn't exist. Defaulting as Bravely as I can!");
        text_settings.font_dir = run_state.program_dir;
        load_system_font();
    } else if (load_vector_font(text_settings.font_file) != 1) {
        load_system_font();
    }
}

} // namespace

int load_vector_font(const std::string& name)
{
    const std::string file = platform::resolve_path(name);
    if (name.empty() || !platform::file_exists(file)) return -1;
    FontOwner font = font_load(file);
    if (!font) {
        log_line("[ ERROR ] : Missing or corrupt font file! Name = %s", name);
        if (show_failure_panel) show_failure_panel(failure_font);
        return -1;
    }
    font_set_up(*font, text_settings.text_gap, text_settings.text_size);
    open_fonts.text_font = std::move(font);
    return 1;
}

void restore_text_font()
{
    if (!font_system_ready()) return;
    const std::string before = platform::working_directory();
    load_preferred_font();
    platform::change_directory(before);
}

} // namespace kelu
