// The machine without a display: Allegro's bitmaps and files, no timers, no waiting.
#include "platform/host.h"

#include "platform/layout.h"
#include <cerrno>

namespace kelu::platform {
namespace {

bool start()
{
    if (install_allegro(SYSTEM_NONE, &errno, nullptr) != 0) return false;
    fix_pixel_layout();
    return true;
}

bool enter_mode(const VideoMode&) { return true; }
void set_title(const char*) {}
void present(BITMAP*) {}
void rest_briefly(int) {}
void wait_vertical_blank() {}
bool install_timer_row(void (*)(), int) { return true; }
void remove_timer(void (*)()) {}
void move_pointer(int x, int y)
{
    ::mouse_x = x;
    ::mouse_y = y;
}
void show_message(const char*) {}
const char* key_name(int) { return ""; }
int key_character(int) { return 0; }
void stop() { allegro_exit(); }

} // namespace

const Host headless_host = {start,        enter_mode,          set_title,         present,
                            rest_briefly, wait_vertical_blank, install_timer_row, remove_timer,
                            move_pointer, show_message,        key_name,          key_character,
                            stop};

} // namespace kelu::platform
