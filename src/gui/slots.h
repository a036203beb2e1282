// SPDX-License-Identifier: MIT
// The one table of the GUI: 128 slots that serve as windows, buttons, sliders, lists and fields.
//
// A structure of arrays, indexed by slot number. The main thread builds slots and draws them; the logic tick on the
// timer thread tests them against the pointer and writes `hover_row`, `scroll_value`, `event`, the kinds of buttons and
// the text of fields. A build function resets a slot, fills it and stores `active` last. Slots are drawn from 0 up, so
// that a higher one lies on top.
#pragma once

#include "base/words.h"
#include "runtime/shows.h"
#include <array>
#include <cstdint>

namespace kelu {

constexpr int gui_slots = 128;          ///< slots of the table
constexpr int max_list_items = 72;      ///< list texts or small parameters of a slot
constexpr int max_knob_steps = 1024;    ///< places that a knob can take
constexpr int knob_cross = 1024;        ///< entry of `knob_pos` that holds the knob's place on the other axis
constexpr int field_bytes = 256;        ///< bytes of a field's text, the last one always 0
constexpr int solid_opacity = 254;      ///< fill that covers: the fast path
constexpr int standard_button_w = 39;   ///< pixels
constexpr int standard_button_h = 9;    ///< pixels
constexpr int standard_row_height = 14; ///< pixels from one list row to the next

/// What a press on a slot starts, the values of `left_action` and `right_action`. It takes effect at the release, and
/// where "inside" is said only when the press was on the slot.
enum SlotAction : int {
    ACT_NONE = 0,
    ACT_ROW = 1,          ///< a press on a list row: holds off other slots until the release
    ACT_TAB_VGA = 10,     ///< colour menu: the tab VGA
    ACT_TAB_RGB = 11,     ///< the tab RGB
    ACT_TAB_HLS = 12,     ///< the tab HLS
    ACT_TAB_HSV = 13,     ///< the tab HSV
    ACT_PRESS = 15,       ///< inside: `event` = 1
    ACT_RELEASE = 16,     ///< `event` = 1, wherever the press was
    ACT_FOCUS = 20,       ///< the field takes the keys
    ACT_CLICK = 21,       ///< inside: `event` = the slot's number
    ACT_RIGHT_CLICK = 22, ///< inside: `event` = EVENT_RIGHT
    ACT_TOOL_OPTION = 25, ///< inside: flips a brush tool option, by `list_items` 0 and 1
    ACT_INK_OPTION = 26,  ///< inside: flips an ink option
    ACT_FLIP = 30,        ///< inside: flips between button and lit button, no event
    ACT_DRAG = 32,        ///< inside: moves the window that starts one slot below
    ACT_TOGGLE = 33,      ///< inside: ACT_FLIP and `event` = the slot's number
    ACT_LIGHT = 34,       ///< inside: lights a button, `event` = the slot's number; a lit one stays
    ACT_RADIO = 40        ///< inside: lights an option, writes it through `radio_ptr`, puts the slots of `params` out
};

constexpr int EVENT_RIGHT = -2; ///< event word of a click with the secondary button; a left click is above 0

/// One word of a slot, with the value that a reset gives it. A new value has the next frame composed.
template <class T, T Start, class Base = Shared<T>>
class Cell : public Base {
public:
    constexpr Cell() : Base(Start) {}
    Cell(const Cell&) = default;
    Cell& operator=(const Cell& other) { return *this = T(other); }
    Cell& operator=(T value)
    {
        if (T(*this) == value) return *this;
        Base::operator=(value);
        something_shows();
        return *this;
    }
    void reset() { *this = Start; }
};

/// A field of the table: one word a slot.
template <class T, T Start = T{}, class Base = Shared<T>>
class Column {
public:
    using Value = Cell<T, Start, Base>;
    constexpr Value& operator[](int slot) { return cells_[static_cast<std::size_t>(slot)]; }
    constexpr const Value& operator[](int slot) const { return cells_[static_cast<std::size_t>(slot)]; }
    void reset(int slot) { (*this)[slot].reset(); }

private:
    std::array<Value, gui_slots> cells_{};
};

/// A field of the table: N words a slot.
template <class T, std::size_t N, T Start = T{}>
class Block {
public:
    using Values = std::array<Cell<T, Start>, N>;
    constexpr Values& operator[](int slot) { return cells_[static_cast<std::size_t>(slot)]; }
    constexpr const Values& operator[](int slot) const { return cells_[static_cast<std::size_t>(slot)]; }
    void reset(int slot)
    {
        for (auto& cell : (*this)[slot])
            cell.reset();
    }

private:
    std::array<Values, gui_slots> cells_{};
};

/// The table. Positions and sizes are logical pixels of the screen, never relative to a window.
/// Writers: workspace, loop, tools, screens.
struct Gui {
    // Identity and geometry.
    Column<int, 0, Published<int>> active; ///< not 0: drawn, hit and ticked; stored last by a build
    Column<int> hidden;                    ///< 1: skipped by renderer and logic, but keeps everything
    Column<int> reserved;                  ///< 1: part of a fixed layout, gui_find_free_slot passes it over
    Column<int, 1> hover_target;           ///< 0: the pointer goes through
    Column<int> kind;                      ///< a Kind
    Column<int> x, y, w, h;                ///< rectangle
    Column<int> slot_count;                ///< on a menu's window: slots of the menu, from this one on
    Column<int> event;                     ///< pending event, 0 none; written by the logic, taken by the menu

    // Mouse and tooltip.
    Column<int> left_action;  ///< SlotAction of the primary button
    Column<int> right_action; ///< SlotAction of the secondary button
    Column<int> tooltip;      ///< row of the tooltip table, 0 none
    Column<int> label_row;    ///< on a title: row of `window_pos` that a drag writes; 0: the row of the menu's id

    // Look.
    Column<int> colour;                 ///< fill; some kinds keep a colour set here
    Column<int, solid_opacity> opacity; ///< of the fill, 0 to 254
    Column<int> stripes;                ///< not 0: palette index of a window's stripes
    Column<int> frame_state;            ///< 2: the border is dashed, a window that is being moved
    Column<int> text_id;                ///< row of ui_strings; some kinds keep a number here
    Column<const char*> ptr;            ///< text of KIND_PTR_LABEL
    Column<Shared<int>*> radio_ptr;     ///< option that ACT_RADIO writes
    Column<int> sheet_x, sheet_y;       ///< top left of the slot's picture in a sheet
    Column<int> field_error;            ///< 1: the field is red, its value is refused

    // Rows of a list.
    Column<int> list_rows;                       ///< rows that show, 0: no list
    Column<int, standard_row_height> row_height; ///< pixels from row to row
    Column<int, 4> row_font;                     ///< font slot
    Column<int> row_text_y, row_text_x;          ///< inset of the text in a row
    Column<int> row_width;                       ///< width of the rows' area, 0: the slot's
    Column<int, -1> hover_row;                   ///< row under the pointer, -1 none; the logic
    Block<int, max_list_items> list_items;       ///< text ids of the rows, or small parameters by kind
    Block<int, max_list_items> params; ///< larger parameters by kind: colours, slots, 1 + the marked row of a list
    Block<int, 50, -1> items;          ///< ten records of five numbers by kind

    // Scroll bar.
    Column<int> scroll_on;                       ///< 1: the slot has a bar
    Column<int> scroll_horizontal;               ///< 1: it lies
    Column<int> scroll_value;                    ///< the value; the logic, and builds
    Column<int> scroll_min, scroll_max;          ///< lowest value, and one above the highest
    Column<int> scroll_steps;                    ///< places of the knob, 1 to max_knob_steps
    Column<int> scroll_dx, scroll_dy;            ///< offset of the bar in the slot
    Column<int> scroll_length;                   ///< length of the bar, 0: the rest of the slot
    Column<int, 1> wheel_step;                   ///< what a click of the wheel adds
    Block<int, 4> knob_sheet;                    ///< knob in the GUI sheet: x, y, w, h
    Block<int, 4, -1> arrow_sheet;               ///< arrows in the GUI sheet: x, y, x, y
    Column<int, 10> arrow_w, arrow_h;            ///< size of an arrow
    Block<int, 4> arrow_box;                     ///< where the arrows are: x, y, x, y; the renderer
    Block<int16_t, max_knob_steps + 1> knob_pos; ///< knob at each step, and knob_cross: 0 not built; the renderer
    Column<Shared<int>*> scroll_show;            ///< number that shows at the knob
    Column<Shared<int>*> scroll_bind;            ///< option that takes the value at each logic pass ...
    Column<int> scroll_bind_on;                  ///< ... while this is set

    // Text field. The text is edited by the logic, or set by set_field_text.
    Block<char, field_bytes> field_text; ///< zero-terminated
    Column<int> field_caret;             ///< where the next character goes, 0 to the length
    Column<int> field_visible;           ///< characters that show
    Column<int> field_max;               ///< characters that the field takes, at most 255
    Column<int> field_scroll;            ///< first character that shows
    Column<int, 4> field_font;           ///< font slot that gives the caret its height and pitch
};
inline Gui gui;

/// What the pointer holds. Owner: gui/logic on the timer thread, also gui_reset_slot.
/// Writers: tools, screens.
struct GuiLogic {
    Shared<int> gui_capture = 0;      ///< 0 idle, 1 a press on slot or row, 2 and 3 the first and second arrow of a bar
    Shared<int> gui_press_action = 0; ///< SlotAction that the release will do
    Shared<int> gui_press_slot = 0;   ///< slot of that action
    Shared<int> gui_press_row = 0;    ///< row of a press on a list
    Shared<int> gui_key_focus = -1;   ///< field that takes the keys, -1 none; set_key_focus and builds
    Shared<int> gui_logic_paused = 0; ///< not 0: the logic does nothing
    Shared<int> slider_grab = 0;      ///< slot whose knob is dragged; 0 none, so that slot 0 can't hold a knob
    Shared<int> repeat_count = 0;     ///< logic passes since the last step of a held arrow
    Shared<int> repeat_delay = 0;     ///< passes until the next step
    Shared<int> repeat_slot = 0;      ///< slot of the held arrow
    Shared<int> tooltip_slot = -1;    ///< slot whose tooltip is being timed, -1 none
    Shared<int> tooltip_count = 0;    ///< logic passes spent on it
    Shared<int> tooltip_active = -1;  ///< slot whose tooltip shows, -1 none
    Shared<int> pulse_wait = 30;      ///< logic passes until the pulse begins
    Shared<int> pulse_step = 2;       ///< which way the pulse goes
    Shared<int> pulse_value = 0;      ///< triangle wave of 0 to about 98, for highlights
};
inline GuiLogic gui_logic;

/// Frees a slot: every field takes its start value. Returns the slot.
int gui_reset_slot(int slot);
/// First slot that is neither active nor reserved: direction 0 from 1 up to 127, 1 from 121 down to 1. -1: none.
int gui_find_free_slot(int direction);
/// True for a slot of the table; otherwise a line in the log names the caller.
bool gui_check_slot(int slot, const char* caller);
/// Resets the slots of the open window, as many as its `slot_count` says.
void gui_clear_window();
/// Highest slot whose whole rectangle holds the position of the press, -1 none.
int gui_slot_at_press();
/// True when (x, y) lies in the slot, its last column and row included.
bool slot_holds(int slot, int x, int y);
/// True when the slot is active and not hidden.
bool slot_live(int slot);
/// True when the pointer is on the slot, whose last column and row don't count.
bool slot_hovered(int slot);
/// Highest slot in view under the pointer that doesn't let it through, -1 none; it was drawn last.
int slot_under_pointer();

/// Hide, show or flip the menu that starts at slot `first`.
void menu_hide(int first);
void menu_show(int first);
void menu_toggle_hidden(int first);

} // namespace kelu
