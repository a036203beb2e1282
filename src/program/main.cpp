// The program's entry: its own folder, the desktop, then the fixed sequence of start-up.
#include "platform/files.h"
#include "platform/host.h"
#include "platform/program_folder.h"
#include "program/startup.h"
#include "screens/draw_menu.h"

int main()
{
    kelu::platform::host = &kelu::platform::desktop_host;
    kelu::platform::change_directory(kelu::platform::program_folder());
    kelu::program.home_loop = kelu::draw_menu;
    return kelu::run_program();
}
