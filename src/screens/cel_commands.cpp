// SPDX-License-Identifier: MIT
// Cel operations started from the drawing menu.
#include "screens/cel_commands.h"

#include "gui/build.h"
#include "loop/freeze.h"
#include "loop/home_strip.h"
#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "screens/dialogs.h"
#include "screens/draw_menu.h"
#include "tools/cel_grab.h"
#include "tools/cel_paste.h"

namespace kelu {
void run_cel_by_key(void (*operation)())
{
    const bool hidden = gui.hidden[0] != 0;
    if (!hidden) freeze_menu();
    gui_clear_window();
    operation();
    clear_ghost();
    build_draw_menu();
    if (hidden) menu_hide(0);
}

void get_cel() { cel_get(no_corner_yet, no_corner_yet, true); }

void clip_cel() { cel_clip(toolbox.mask_color); }

void paste_cel() { cel_paste(true, true); }

void paste_cel_below() { cel_below(); }

void convert_cel()
{
    if (ask(TEXT_CONVERT_CEL, TEXT_CANNOT_BE_UNDONE) == 0) return;
    cel_one_color(store.cel_source_bitmap, toolbox.mask_color);
    note_new_cel();
    restore_cel_copy();
}

void paste_cel_by_key() { run_cel_by_key(paste_cel); }

void paste_cel_below_by_key() { run_cel_by_key(paste_cel_below); }

} // namespace kelu
