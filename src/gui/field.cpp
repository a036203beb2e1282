// SPDX-License-Identifier: MIT
// The field editor.
#include "gui/field.h"

#include "base/log.h"
#include "gui/slots.h"
#include "platform/input_events.h"
#include "runtime/fonts.h"
#include "runtime/input.h"
#include <algorithm>
#include <allegro.h>

namespace kelu {
namespace {

constexpr int repeat_at = 29;   // passes that a key is down when it acts for the second time
constexpr int repeat_from = 24; // where the count goes on from then

/// What a key does in a field: a character plain and with Shift, or an edit. An edit that returns false ends the round.
struct FieldKey {
    int scancode;
    char plain = 0, shifted = 0;
    bool (*edit)(int slot) = nullptr;
};

int text_length(int slot)
{
    int length = 0;
    while (length < field_bytes - 1 && gui.field_text[slot][length] != 0)
        ++length;
    return length;
}

Cell<char, 0>& character_at(int slot, int position) { return gui.field_text[slot][position]; }

/// Nothing is behind the last character that the field takes.
void clear_tail(int slot)
{
    for (int i = std::max(0, int(gui.field_max[slot])); i < field_bytes; ++i)
        character_at(slot, i) = '\0';
}

void caret_left(int slot)
{
    if (gui.field_caret[slot] > 0) gui.field_caret[slot] = gui.field_caret[slot] - 1;
    if (gui.field_caret[slot] < gui.field_scroll[slot]) gui.field_scroll[slot] = gui.field_scroll[slot] - 1;
}

void caret_right(int slot)
{
    const int caret = gui.field_caret[slot];
    if (caret >= gui.field_max[slot] || caret >= field_bytes || character_at(slot, caret) == 0) return;
    if (gui.field_visible[slot] <= caret - gui.field_scroll[slot]) gui.field_scroll[slot] = gui.field_scroll[slot] + 1;
    gui.field_caret[slot] = caret + 1;
}

/// The text is the user's own from now on. True when it was a proposal.
bool accept_proposal(int slot)
{
    const bool proposed = gui_proposes_text(slot);
    field_keys.proposing = -1;
    return proposed;
}

/// Takes a marked text away; true when there was one.
bool drop_proposal(int slot)
{
    if (!accept_proposal(slot)) return false;
    for (int i = 0; i < field_bytes; ++i)
        character_at(slot, i) = '\0';
    gui.field_caret[slot] = 0;
    gui.field_scroll[slot] = 0;
    return true;
}

bool edit_left(int slot)
{
    accept_proposal(slot);
    caret_left(slot);
    return true;
}

bool edit_right(int slot)
{
    accept_proposal(slot);
    caret_right(slot);
    return true;
}

bool edit_backspace(int slot)
{
    if (drop_proposal(slot)) return true;
    gui_delete_field(slot, gui.field_caret[slot]);
    caret_left(slot);
    return true;
}

bool edit_delete(int slot)
{
    if (drop_proposal(slot)) return true;
    gui_delete_field_forward(slot, gui.field_caret[slot]);
    return true;
}

bool edit_enter(int slot)
{
    gui.event[slot] = 1;
    return true;
}

bool edit_home(int slot)
{
    accept_proposal(slot);
    gui.field_caret[slot] = 0;
    gui.field_scroll[slot] = 0;
    return true;
}

bool edit_end(int slot)
{
    accept_proposal(slot);
    const int length = text_length(slot);
    gui.field_caret[slot] = length;
    gui.field_scroll[slot] = std::max(0, length - gui.field_visible[slot]);
    return true;
}

/// The next field above takes the keys, from the end of the table back to its start.
bool edit_tab(int slot)
{
    for (int step = 1; step < gui_slots; ++step) {
        const int next = (slot + step) % gui_slots;
        if (gui.left_action[next] != ACT_FOCUS) continue;
        gui_set_key_focus(next, true);
        break;
    }
    return false;
}

constexpr FieldKey other_keys[] = {
    {KEY_MINUS, '-', '_'},         {KEY_EQUALS, '=', '+'},
    {KEY_OPENBRACE, '[', '{'},     {KEY_CLOSEBRACE, ']', '}'},
    {KEY_QUOTE, '\'', '"'},        {KEY_BACKSLASH, '\\', '|'},
    {KEY_COMMA, ',', '<'},         {KEY_STOP, '.', '>'},
    {KEY_SLASH, '/', '?'},         {KEY_SEMICOLON, ';', ':'},
    {KEY_SPACE, ' ', ' '},         {KEY_BACKSPACE, 0, 0, edit_backspace},
    {KEY_DEL, 0, 0, edit_delete},  {KEY_TAB, 0, 0, edit_tab},
    {KEY_ENTER, 0, 0, edit_enter}, {KEY_ENTER_PAD, 0, 0, edit_enter},
    {KEY_HOME, 0, 0, edit_home},   {KEY_END, 0, 0, edit_end},
    {KEY_LEFT, 0, 0, edit_left},   {KEY_RIGHT, 0, 0, edit_right},
};
constexpr std::size_t letters = 26;
constexpr std::size_t digits = 10;

/// All keys in their order: letters, digits, the others.
constexpr auto keys = [] {
    std::array<FieldKey, letters + digits + std::size(other_keys)> all{};
    constexpr char shifted_digits[] = ")!@#$%^&*(";
    for (std::size_t i = 0; i < letters; ++i) {
        const int place = static_cast<int>(i);
        all[i] = {KEY_A + place, static_cast<char>('a' + place), static_cast<char>('A' + place)};
    }
    for (std::size_t i = 0; i < digits; ++i) {
        const int place = static_cast<int>(i);
        all[letters + i] = {KEY_0 + place, static_cast<char>('0' + place), shifted_digits[i]};
    }
    std::ranges::copy(other_keys, all.begin() + letters + digits);
    return all;
}();

/// Counts the passes of a key; true in those in which it acts.
bool key_acts(int scancode)
{
    int& passes = field_keys.key_repeat[scancode];
    if (!::key[scancode]) {
        passes = 0;
        return false;
    }
    ++passes;
    // Presses that are queued come one by one in their order; here a key then only repeats.
    if (passes != repeat_at) return passes == 1 && !platform::input_events_queued();
    passes = repeat_from;
    return true;
}

bool is_letter(int scancode) { return scancode >= KEY_A && scancode <= KEY_Z; }

bool shift_down() { return ::key[KEY_LSHIFT] || ::key[KEY_RSHIFT]; }

void type_character(int slot, const FieldKey& typed, bool shift)
{
    drop_proposal(slot);
    const bool capital = shift || (is_letter(typed.scancode) && (::key_shifts & KB_CAPSLOCK_FLAG));
    if (gui_insert_field(slot, capital ? typed.shifted : typed.plain, gui.field_caret[slot])) caret_right(slot);
}

/// What a key does. False when the field has lost the keys by it.
bool act(int slot, const FieldKey& typed, bool shift)
{
    if (typed.edit) return typed.edit(slot);
    type_character(slot, typed, shift);
    return true;
}

/// The presses since the last pass, in their order; false when the field has lost the keys.
bool act_on_presses(int slot)
{
    for (platform::KeyPress press = platform::take_field_press(); press.scancode != 0;
         press = platform::take_field_press()) {
        const auto* typed = std::ranges::find(keys, press.scancode, &FieldKey::scancode);
        if (typed != keys.end() && !act(slot, *typed, press.shift)) return false;
    }
    return true;
}

} // namespace

void drop_field_presses()
{
    while (platform::take_field_press().scancode != 0) {}
}

void gui_set_key_focus(int slot, bool to_end)
{
    if (!gui_check_slot(slot, "GUI_set_key_focus")) return;
    gui_logic.gui_key_focus = slot;
    field_keys.proposing = -1;
    const int font = std::clamp(int(gui.field_font[slot]), 0, FONT_SLOT_COUNT - 1);
    const Font& shown = font_table[font];
    if (shown.cell_w < 1 || shown.advance['A'] < 1) {
        log_line("[ ERROR ] : Width of text field font is less than one!");
        log_line("[ STATS ] : Font slot = %d", font);
        log_line("[ STATS ] : Width     = %d", shown.cell_w);
        return;
    }
    const int inside = pointer.mouse_x - 5 - gui.x[slot];
    const int caret = inside / shown.advance['A'] + (inside > 0 ? 1 : 0) + gui.field_scroll[slot];
    const int length = text_length(slot);
    gui.field_caret[slot] = to_end ? length : std::clamp(caret, 0, length);
}

void gui_propose_text(int slot)
{
    gui_set_key_focus(slot, true);
    if (gui_logic.gui_key_focus == slot && text_length(slot) > 0) field_keys.proposing = slot;
}

bool gui_proposes_text(int slot) { return field_keys.proposing == slot && gui_logic.gui_key_focus == slot; }

bool gui_insert_field(int slot, char character, int position)
{
    if (!gui_check_slot(slot, "GUI_insert_field")) return false;
    const int max = std::min(int(gui.field_max[slot]), field_bytes - 1);
    if (position < 0 || position >= max || text_length(slot) >= max) return false;
    for (int i = field_bytes - 2; i >= position; --i)
        character_at(slot, i + 1) = char(character_at(slot, i));
    clear_tail(slot);
    character_at(slot, position) = character;
    character_at(slot, field_bytes - 1) = '\0';
    return true;
}

void gui_delete_field(int slot, int position)
{
    if (!gui_check_slot(slot, "GUI_delete_field")) return;
    if (position < 1 || position > gui.field_max[slot] || gui.field_caret[slot] <= 0) return;
    for (int i = position; i < field_bytes - 1; ++i)
        character_at(slot, i - 1) = char(character_at(slot, i));
    clear_tail(slot);
    character_at(slot, field_bytes - 1) = '\0';
}

void gui_delete_field_forward(int slot, int position)
{
    if (!gui_check_slot(slot, "GUI_delete_field")) return;
    if (position < 0 || position >= gui.field_max[slot]) return;
    for (int i = position; i < field_bytes - 1; ++i)
        character_at(slot, i) = char(character_at(slot, i + 1));
    clear_tail(slot);
    character_at(slot, field_bytes - 1) = '\0';
}

void gui_field_editor(int slot)
{
    if (gui.field_max[slot] < 1 || !act_on_presses(slot)) return;
    for (const FieldKey& typed : keys) {
        if (key_acts(typed.scancode) && !act(slot, typed, shift_down())) return;
    }
}

} // namespace kelu
