// SPDX-License-Identifier: MIT
// One-line text fields: key focus, editing, and the keyboard with a repeat of its own.
//
// The editor reads Allegro's `key` array by scancode on the timer thread. Screens read a field's text after its event.
#pragma once

#include "base/words.h"
#include <array>

namespace kelu {

/// What the editor keeps from pass to pass.
struct FieldKeys {
    std::array<int, 128> key_repeat{}; ///< logic passes that each key has been down, by scancode; timer thread
    Shared<int> proposing = -1;        ///< field whose text the next character replaces, -1 none
};
inline FieldKeys field_keys;

/// Gives the keys to a field. The caret goes behind the character under the pointer, or with `to_end` behind the text.
void gui_set_key_focus(int slot, bool to_end);
/// Gives the keys to a field whose text is a proposal: it shows marked, a character takes its place, a deletion takes
/// all of it, and any other key or a click makes it a text like others.
void gui_propose_text(int slot);
/// True while the text of a field with the keys is marked.
bool gui_proposes_text(int slot);
/// Inserts a character at `position`, 0 to `field_max` - 1; true when it was stored, false when the field is full.
bool gui_insert_field(int slot, char character, int position);
/// Backspace: takes away the character before `position`, when the caret isn't at the start.
void gui_delete_field(int slot, int position);
/// Delete: takes away the character at `position`.
void gui_delete_field_forward(int slot, int position);
/// Forgets the presses that no field has taken. Timer thread.
void drop_field_presses();
/// One round of key polling for the field with the focus.
void gui_field_editor(int slot);

} // namespace kelu
