// SPDX-License-Identifier: MIT
// The window, its loop, and the text that sticks to the pointer.
#include "tools/text_tool.h"

#include "base/log.h"
#include "base/run_state.h"
#include "draw/placed_text.h"
#include "draw/preview.h"
#include "draw/tool_input.h"
#include "draw/tool_options.h"
#include "gui/build.h"
#include "gui/field.h"
#include "loop/frame.h"
#include "loop/home_strip.h"
#include "loop/tool_loop.h"
#include "runtime/input.h"
#include "runtime/jobs.h"
#include "runtime/text_settings.h"
#include "runtime/view.h"
#include "tools/shape_panel.h"
#include <array>

namespace kelu {
namespace {

constexpr int window_w = 319, window_h = 32;
constexpr int window_slots = 12;
constexpr int visible_characters = 40;
constexpr int first_size = 28; ///< while none is set

constexpr std::array text_slots{
    title_row(2, 2, 33, TEXT_TEXT),
    caption_row(2, 36, 2, 33, TEXT_SIZE),
    caption_row(3, 2, 12, 67, TEXT_INPUT),
    field_row(TEXT_SLOT_FIELD, 70, 12, 248, visible_characters, text_limits::characters),
    panel_slider_row(TEXT_SLOT_SIZE, 70, 2, 150, 0, text_limits::size, text_limits::size + 1, 3),
    caption_row(6, 221, 2, 27, TEXT_GAP),
    panel_slider_row(TEXT_SLOT_GAP, 249, 2, 69, 0, text_limits::gap, text_limits::gap + 1, 3),
    push_row(TEXT_SLOT_OKAY, 2, 22, 59, TEXT_OKAY),
    push_row(TEXT_SLOT_CANCEL, 259, 22, 59, TEXT_CANCEL),
    SlotRow{TEXT_SLOT_FONT, 70, 22, 180, KIND_FONT_NAME, TEXT_NONE, ACT_CLICK},
};
constexpr MenuLayout text_window{.menu_id = MENU_TEXT,
                                 .row = WINDOW_NONE,
                                 .w = window_w,
                                 .h = window_h,
                                 .slot_count = window_slots,
                                 .slots = text_slots};

FieldText typed_text() { return field_text_of(TEXT_SLOT_FIELD); }

/// At x, y with `keep`; otherwise at the edge of the screen that is far from the press.
void build_text_window(int x, int y, bool keep)
{
    const bool press_is_low = pointer.press_y - view.pan_y > logical_h / 2;
    const Origin far{0, press_is_low ? 0 : logical_h - window_h - 1};
    build_screen_at(text_window, keep ? x : far.x, keep ? y : far.y);
}

void fill_window(const char* text, int size, int gap)
{
    set_field_text(TEXT_SLOT_FIELD, text);
    set_panel_slider(TEXT_SLOT_SIZE, size);
    set_panel_slider(TEXT_SLOT_GAP, gap);
    gui_set_key_focus(TEXT_SLOT_FIELD, true);
}

/// The text sticks to the pointer until the next click. True when that was the right button's.
bool drag_text()
{
    const Point node = tool_input.tool_nodes[0];
    sample_press();
    const Point press = snapped_press();
    const Point offset{node.x - press.x, node.y - press.y};
    const auto stick_to = [offset](Point at) { tool_input.tool_nodes[0] = {at.x + offset.x, at.y + offset.y}; };
    for (stick_to(snapped_mouse()); run_pass(passes::plain); stick_to(snapped_mouse())) {
        if (left_down()) {
            sample_press();
            stick_to(snapped_press());
            const bool right = right_down();
            wait_left_release();
            return right;
        }
        if (right_down()) {
            wait_right_release();
            return true;
        }
    }
    return false;
}

/// One text, from the window's opening to its end.
class TextLine {
public:
    void run();
    bool accepted() const { return accepted_; }

private:
    void follow_window();
    void set_size();
    void read_frame();
    void read_buttons();
    void choose_font();
    void end(bool accepted)
    {
        open_ = false;
        accepted_ = accepted;
    }

    CanvasButtons buttons_;
    bool open_ = true, accepted_ = false;
    int size_ = -1, gap_ = -1, width_ = -1; // what the picture was drawn with, -1: not yet
};

void TextLine::set_size()
{
    size_ = gui.scroll_value[TEXT_SLOT_SIZE];
    if (font_set_size(*open_fonts.text_font, size_) != 0)
        log_line("[ ERROR ] : Font error detected. Dunno what, 'cuz the lib won't fucking tell me.");
}

/// Brings font and picture up to what the window says.
void TextLine::follow_window()
{
    VectorFont& font = *open_fonts.text_font;
    if (gui.scroll_value[TEXT_SLOT_SIZE] != size_) set_size();
    if (gui.scroll_value[TEXT_SLOT_GAP] != gap_) {
        gap_ = gui.scroll_value[TEXT_SLOT_GAP];
        font_set_spacing(font, gap_);
    }
    const FieldText text = typed_text();
    placed_text.shown = text[0] != 0 ? 1 : 0;
    const int width = font_text_length(font, text.data());
    if (width != width_ && placed_text.shown != 0)
        render_placed_text(font, text.data(), tool_option(TOOL_TEXT, options::antialias) != 0);
    width_ = width;
}

/// Buttons on the frame: the left one takes the text along, the right one ends the tool wherever it is pressed.
void TextLine::read_frame()
{
    if (buttons_.left_pressed()) {
        const bool inside = placed_text_holds(frame_mouse());
        wait_left_release();
        if (inside && drag_text()) end(true);
    }
    if (open_ && right_down()) {
        wait_right_release();
        end(true);
    }
}

/// Another font, over which the text and the sliders stay as they are.
void TextLine::choose_font()
{
    const FieldText text = typed_text();
    const Origin at{gui.x[0], gui.y[0]};
    const int size = gui.scroll_value[TEXT_SLOT_SIZE];
    const int gap = gui.scroll_value[TEXT_SLOT_GAP];
    text_settings.text_string = text.data();
    placed_text.shown = 0;
    gui_clear_window();
    push_to_job(JOB_CHOOSE_FONT);
    run_frame(0); // its last step runs the job
    gui_clear_window();
    build_text_window(at.x, at.y, true);
    fill_window(text.data(), size, gap);
    set_size();
    gap_ = width_ = -1;
}

void TextLine::read_buttons()
{
    const bool okay = gui.event[TEXT_SLOT_OKAY].take() != 0;
    const bool enter = gui.event[TEXT_SLOT_FIELD].take() != 0;
    if (okay || enter) end(true);
    if (gui.event[TEXT_SLOT_CANCEL].take() != 0) end(false);
    if (open_ && gui.event[TEXT_SLOT_FONT].take() != 0) choose_font();
}

void TextLine::run()
{
    build_text_window(0, 0, false);
    fill_window(text_settings.text_string.c_str(), text_settings.text_size < 1 ? first_size : text_settings.text_size,
                text_settings.text_gap);
    for (follow_window(); run_pass({.quick_pan = true}); follow_window()) {
        read_frame();
        read_buttons();
        tool_input.show_bounds = 1;
        if (!open_) return;
    }
    end(false);
}

void keep_settings()
{
    text_settings.text_string = typed_text().data();
    text_settings.text_size = gui.scroll_value[TEXT_SLOT_SIZE];
    text_settings.text_gap = gui.scroll_value[TEXT_SLOT_GAP];
}

} // namespace

void text_tool()
{
    Point& node = tool_input.tool_nodes[0];
    node = {node.x - text_margin, node.y - text_margin};
    placed_text = {};
    placed_text.text_bitmap = Bitmap(2, 2);
    if (placed_text.text_bitmap && open_fonts.text_font) {
        const PreviewScope shown(TOOL_TEXT);
        TextLine line;
        line.run();
        if (line.accepted()) {
            ink_placed_text();
            keep_settings();
        }
    }
    placed_text = {};
    tool_input.show_bounds = 0;
    menus.status_message = 0;
    gui_logic.gui_key_focus = -1;
    close_screen();
    build_draw_menu();
}

} // namespace kelu
