// SPDX-License-Identifier: MIT
// Copying and pasting of the frame.
#include "screens/frame_clipboard.h"

#include "draw/touched.h"
#include "draw/undo.h"
#include "gui/menus.h"
#include "gui/tooltips.h"
#include "imagefile/clipboard_picture.h"
#include "runtime/store.h"
#include "tools/cel_paste.h"

namespace kelu {

void copy_frame_to_clipboard()
{
    const bool copied = copy_to_clipboard(store.frame_bitmap);
    flash_status_message(copied ? TIP_COPIED : TIP_CLIPBOARD_FAILED);
}

void paste_from_clipboard(void (*offer_larger_frame)(int w, int h))
{
    Bitmap picture = picture_from_clipboard();
    if (!picture) {
        flash_status_message(TIP_CLIPBOARD_EMPTY);
        return;
    }
    const Bitmap& frame = store.frame_bitmap;
    if (picture.width() > frame.width() || picture.height() > frame.height())
        offer_larger_frame(picture.width(), picture.height());
    if (picture.width() < frame.width() && picture.height() < frame.height()) {
        paste_picture(std::move(picture));
        return;
    }
    const UndoableOperation step;
    blit(picture, frame, 0, 0, 0, 0, picture.width(), picture.height());
    touch_area(0, 0, picture.width() - 1, picture.height() - 1);
}

} // namespace kelu
