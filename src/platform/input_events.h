// SPDX-License-Identifier: MIT
// What the pointer and the keys did, in the order in which it happened.
//
// The callbacks of Allegro append, under its lock; each queue has one reader. A fast mouse reports a thousand positions
// a second and a finger presses where it lands: between two looks at Allegro's words both would be lost.
#pragma once

#include <cstdint>

namespace kelu::platform {

/// The pointer after one event.
struct PointerEvent {
    int x = 0, y = 0; ///< physical pixels
    int buttons = 0;  ///< bits as in Allegro's mouse_b
};

/// Begins to queue events; before that, and on a machine without events, the queues stay empty and Allegro's own words
/// are what there is. `on_event` is called behind each event, on any thread. Main thread, once the mouse and the
/// keyboard are installed.
void queue_input_events(void (*on_event)() = nullptr);
/// Ends that; what is queued goes.
void stop_input_events();
/// True when events are queued.
bool input_events_queued();
/// Events so far, modulo 2^32.
unsigned input_event_count();

/// Appends an event. Where the queue is full an event is left out, and the last one of all gives the state as it is.
void append_pointer_event(const PointerEvent& event);
/// The oldest event of the pointer that hasn't been dropped; false when there is none. Main thread.
bool peek_pointer_event(PointerEvent& event);
/// Drops the oldest event. Main thread.
void drop_pointer_event();

/// A key that went down.
struct KeyPress {
    int scancode = 0;   ///< 0: none
    bool shift = false; ///< a Shift key was down then
};

/// Notes that a key went down, or with `down` false that it went up. A key that is down already has only repeated.
void append_key_event(int scancode, bool down);
/// The next press for the text field that has the keys. Timer thread.
KeyPress take_field_press();
/// True when the key went down since the last call of `turn_key_presses` but one, however short it was. Any thread.
bool key_pressed_lately(int scancode);
/// Ends the time in which the presses so far count as lately, and begins that of the ones since. Main thread.
void turn_key_presses();

} // namespace kelu::platform
