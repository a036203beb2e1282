// SPDX-License-Identifier: MIT
// Loading, fitting and the messages.
#include "screens/preview.h"

#include "base/run_state.h"
#include "gui/text.h"
#include "imagefile/formats.h"
#include "platform/files.h"
#include "runtime/pixels.h"
#include "runtime/preferences.h"
#include <array>

namespace kelu {
namespace {

enum PreviewMode { PREVIEW_NONE, PREVIEW_ALL, PREVIEW_LIMIT };
constexpr long megabyte = 1'024'000;

struct Line {
    const char* text = nullptr;
    int x = 0, y = 0;
};
using MessageLines = std::array<Line, 3>;

/// By PreviewMessage.
constexpr MessageLines messages[] = {
    {{{"PREVIEW", 37, 30}, {"UNAVAILABLE", 25, 40}}},
    {{{"THIS FILE", 31, 30}, {"IS BORKED", 31, 40}}},
    {{{"PREVIEWS", 35, 30}, {"DISABLED", 35, 40}}},
    {{{"FILE TOO LARGE", 17, 20}, {"FOR PREVIEW", 26, 30}, {"(CLICK TO VIEW)", 14, 50}}},
};

/// The message that keeps a file from being read at all, or -1.
int message_before_reading(const std::string& name, bool forced)
{
    if (preferences.file_preview_mode == PREVIEW_NONE) return PREVIEW_DISABLED;
    const bool small = platform::file_size(name) < preferences.file_preview_limit_mb * megabyte;
    if (preferences.file_preview_mode == PREVIEW_LIMIT && !small && !forced) return PREVIEW_TOO_LARGE;
    const int format = format_from_extension(name, false);
    return format != FORMAT_NONE && format_row(format).previews ? -1 : PREVIEW_UNAVAILABLE;
}

} // namespace

void fit_preview(BITMAP* picture, BITMAP* preview)
{
    if (picture->w < preview->w || picture->h < preview->h)
        stretch_blit(picture, preview, 0, 0, picture->w, picture->h, 0, 0, preview->w, preview->h);
    else
        downscale_bitmap(picture, preview, 0, 0, preview->w, preview->h);
}

Bitmap load_preview_bitmap(const std::string& name)
{
    Bitmap picture = load_picture(name, format_of_file(name));
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            row(picture, y)[x] &= 0xffffff;
    }
    return picture;
}

void show_preview_message(int which)
{
    clear_to_color(screen_state.preview_bitmap, fixed_colours.menu_grey);
    set_plain_text(FONT_WIDE, SET_BLACK);
    for (const Line& line : messages[which]) {
        if (line.text) draw_text(screen_state.preview_bitmap, line.x, line.y, line.text);
    }
}

void update_preview(const std::string& name, bool forced)
{
    const int message = message_before_reading(name, forced);
    if (message >= 0) {
        show_preview_message(message);
        return;
    }
    const Bitmap picture = load_preview_bitmap(name);
    if (picture)
        fit_preview(picture, screen_state.preview_bitmap);
    else
        show_preview_message(PREVIEW_DAMAGED);
}

} // namespace kelu
