// SPDX-License-Identifier: MIT
// The frame in memory: its bitmaps, the sheets that travel with a workspace, and the numbers of the frame store.
#pragma once

#include "base/bitmap.h"
#include "base/words.h"
#include <cstdint>
#include <string>

namespace kelu {

/// Live bitmaps of the current frame and the workspace's sheets. Owner: workspace/frame_store. Also written by draw/
/// (pixels of the frame, coverage, cels, custom tip), the onion skin of the view, resize and the loaders.
/// Writers: draw, workspace, tools, screens.
struct Store {
    Bitmap frame_bitmap;           ///< what the tools draw on; top byte 0
    Bitmap alpha_bitmap;           ///< the alpha channel as a grey picture of the frame's size
    Bitmap restoration_bitmap;     ///< the frame as last fetched, alpha in the top byte
    Bitmap coverage_bitmap;        ///< frame's size: weight of the strongest stamp of the present operation
    Bitmap onion_bitmap;           ///< picture of the onion skin, or empty
    Bitmap cel_source_bitmap;      ///< the cel as grabbed
    Bitmap cel_bitmap;             ///< working copy of the cel, of equal size
    Bitmap tip_sheet;              ///< 206 x 62: brush tips; the custom tip is the 16 x 14 pixels at (0, 45)
    Bitmap nail_sheet;             ///< 400 x 400: thumbnails, 10 x 10 cells of 40 x 40
    Shared<int> frame_count = 1;   ///< frames of the workspace, 1 to 100
    Shared<int> current_frame = 0; ///< index of the frame in memory, 0 to frame_count - 1
    uint8_t alpha_edit_mode = 0;   ///< 1: the pictures of frame and alpha are exchanged
    uint8_t spa_flag = 1;          ///< 0 or 1; kept with the workspace, without effect
    std::string workspace_title = "UNNAMED WORKSPACE"; ///< at most 120 characters
    std::string workspace_notes = "...";               ///< at most 255 characters
};
inline Store store;

} // namespace kelu
