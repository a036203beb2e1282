// The custom tip's file.
#include "workspace/custom_tip.h"

#include "imagefile/bmp.h"
#include "runtime/store.h"
#include "workspace/folder.h"

namespace kelu {

void clear_custom_tip()
{
    rectfill(store.tip_sheet, custom_tip_x, custom_tip_y, custom_tip_x + custom_tip_w - 1,
             custom_tip_y + custom_tip_h - 1, 0);
}

bool save_custom_tip()
{
    Bitmap tip(custom_tip_w, custom_tip_h);
    blit(store.tip_sheet, tip, custom_tip_x, custom_tip_y, 0, 0, custom_tip_w, custom_tip_h);
    return write_bmp(set_file("tip"), tip);
}

bool load_custom_tip()
{
    const Bitmap tip = read_bmp(set_file("tip"));
    if (!tip) return false;
    blit(tip, store.tip_sheet, 0, 0, custom_tip_x, custom_tip_y, custom_tip_w, custom_tip_h);
    return true;
}

} // namespace kelu
