// SPDX-License-Identifier: MIT
// Loading from the build's program folder.
#include "support/screen_resources.h"

#include "base/run_state.h"
#include "gui/scheme.h"
#include "support/paths.h"
#include "workspace/resources.h"
#include <filesystem>

namespace kelu::test {

void load_screen_resources()
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(app_folder());
    load_framework_video();
    load_application_resources();
    std::filesystem::current_path(before);
    menu_scheme = {};
    apply_scheme();
    preview_scheme();
    const SchemeColours& colours = menu_scheme.scheme;
    recolor_gui_sheet(colours[SCHEME_BACKGROUND], colours[SCHEME_BORDER], colours[SCHEME_SHADOW],
                      colours[SCHEME_HIGHLIGHT_FORE]);
    screen_state.back_buffer = Bitmap(logical_w, logical_h);
    screen_state.preview_bitmap = Bitmap(117, 79);
}

} // namespace kelu::test
