// SPDX-License-Identifier: MIT
// Pictures to frames, workspaces over a question.
#include "screens/opened_files.h"

#include "base/log.h"
#include "gui/menus.h"
#include "gui/strings.h"
#include "gui/tooltips.h"
#include "imagefile/formats.h"
#include "imagefile/refusal.h"
#include "platform/dropped_files.h"
#include "runtime/opened_files.h"
#include "runtime/store.h"
#include "screens/commands.h"
#include "screens/dialogs.h"
#include "screens/dispatch.h"
#include "workspace/frame_order.h"
#include "workspace/frame_store.h"
#include "workspace/state.h"
#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace kelu {
namespace {

constexpr const char* state_file = "current.spa";

/// The picture, or an empty one for what can't be opened, which is reported.
Bitmap read_opened(const std::string& name, int format)
{
    picture_refusal = refusal::no_memory; // until a decoder says something else
    const bool is_picture = format != FORMAT_NONE && format_row(format).decode;
    Bitmap picture = is_picture ? load_picture(name, format) : refuse("No kind of picture!");
    if (picture && (picture.width() < least_frame_side || picture.height() < least_frame_side))
        picture = refuse("Smaller than a frame!");
    if (!picture) {
        log_line("[ ERROR ] : Couldn't open file! Name = %s", name);
        flash_failure(TIP_LOAD_FAILED, picture_refusal);
    }
    return picture;
}

/// True when the user agreed and the workspace is another one.
bool replace_workspace(const std::string& name)
{
    return ask(TEXT_REPLACE_WORKSPACE, TEXT_CANNOT_BE_UNDONE) != 0 && load_picture_file(name, BROWSE_WORKSPACE);
}

/// The files in order. Each new frame is on disk before the next picture is read, so that memory holds one.
void open_files(const std::vector<std::string>& names)
{
    int first_new = -1; // of the frames that the pictures became
    for (const std::string& name : names) {
        const int format = format_of_file(name);
        if (format == FORMAT_WSP) {
            // The new workspace has frames of its own, and shows the one that it was left with.
            if (replace_workspace(name)) first_new = -1;
            continue;
        }
        const Bitmap picture = read_opened(name, format);
        if (!picture) continue;
        if (!append_frame(picture)) break; // it takes no more, which is reported once
        if (first_new < 0) first_new = store.frame_count - 1;
    }
    if (first_new < 0 || !fetch_frame(store.current_frame, first_new, 0)) return;
    write_workspace_state(state_file, true);
}

} // namespace

void open_waiting_files()
{
    std::ranges::move(platform::take_dropped_files(), std::back_inserter(opened_files.waiting));
    if (opened_files.waiting.empty()) return;
    run_over_draw_menu([] { open_files(std::exchange(opened_files.waiting, {})); });
}

} // namespace kelu
