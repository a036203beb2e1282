// SPDX-License-Identifier: MIT
// The custom tip's file.
#include "workspace/custom_tip.h"

#include "imagefile/bmp.h"
#include "platform/files.h"
#include "runtime/store.h"
#include "workspace/folder.h"

namespace kelu {

void clear_custom_tip()
{
    rectfill(store.tip_sheet, custom_tip_x, custom_tip_y, custom_tip_x + custom_tip_w - 1,
             custom_tip_y + custom_tip_h - 1, 0);
}

Bytes custom_tip_bytes()
{
    Bitmap tip(custom_tip_w, custom_tip_h);
    blit(store.tip_sheet, tip, custom_tip_x, custom_tip_y, 0, 0, custom_tip_w, custom_tip_h);
    Bytes bytes;
    encode_bmp(tip, bytes);
    return bytes;
}

bool save_custom_tip() { return write_custom_tip(set_file("tip")); }

bool write_custom_tip(const std::string& name) { return platform::replace_file(name, custom_tip_bytes()); }

bool load_custom_tip()
{
    const Bitmap tip = read_bmp(set_file("tip"));
    if (!tip) return false;
    blit(tip, store.tip_sheet, 0, 0, custom_tip_x, custom_tip_y, custom_tip_w, custom_tip_h);
    return true;
}

} // namespace kelu
