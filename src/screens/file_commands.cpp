// SPDX-License-Identifier: MIT
// What the frame's files and the clipboard need around them.
#include "screens/file_commands.h"

#include "gui/strings.h"
#include "loop/actions.h"
#include "runtime/hotkeys.h"
#include "runtime/store.h"
#include "screens/cel_commands.h"
#include "screens/dialogs.h"
#include "screens/dispatch.h"
#include "screens/file_browser.h"
#include "screens/frame_clipboard.h"
#include "workspace/frame_resize.h"
#include <algorithm>

namespace kelu {
namespace {

/// Asks whether the frame should become as large as a picture that is wider or higher.
void offer_larger_frame(int w, int h)
{
    if (ask(TEXT_CLIPBOARD_LARGER, TEXT_RESIZE_TO_MATCH) == 0) return;
    const Bitmap& frame = store.frame_bitmap;
    resize_frame(store.current_frame, std::max(w, frame.width()), std::max(h, frame.height()), 0, 0);
}

} // namespace

void save_frame_picture()
{
    wait_for_release(ACTION_PIC_SAVE); // or the key would be the first letter of the name
    file_browser(BROWSER_SAVE, BROWSE_PICTURE);
}

void load_frame_picture()
{
    wait_for_release(ACTION_PIC_LOAD);
    file_browser(BROWSER_LOAD, BROWSE_PICTURE);
}

void paste_by_key()
{
    run_cel_by_key([] { paste_from_clipboard(offer_larger_frame); });
}

} // namespace kelu
