// SPDX-License-Identifier: MIT
// The program's entry: the command line, its folders, the desktop, then the fixed sequence of start-up.
#include "base/run_state.h"
#include "platform/files.h"
#include "platform/host.h"
#include "platform/program_folder.h"
#include "program/command_line.h"
#include "program/folders.h"
#include "program/startup.h"
#include "runtime/failure.h"
#include "runtime/opened_files.h"
#include "screens/draw_menu.h"

int main(int count, char** words)
{
    using namespace kelu;
    const CommandLine line = read_command_line({words, static_cast<std::size_t>(count)});
    if (line.exit_code >= 0) return answer(line);
    platform::host = &platform::desktop_host;
    const Folders folders = find_folders(platform::program_folder());
    if (const std::string trouble = complete_user_folder(folders); !trouble.empty()) {
        platform::host->start();
        fatal_stop(trouble.c_str());
    }
    platform::change_directory(folders.user);
    run_state.art_dir = folders.art;
    opened_files.waiting = line.files;
    program.home_loop = draw_menu;
    return run_program();
}
