// SPDX-License-Identifier: MIT
// Rings with one writer and one reader each: the writer's count is stored behind the entry.
#include "platform/input_events.h"

#include "base/words.h"
#include <allegro.h>
#include <array>

namespace kelu::platform {
namespace {

/// A ring of fixed size. One thread appends at a time, one takes.
template <class Entry, unsigned Size>
class Ring {
public:
    /// False when it is full.
    bool append(const Entry& entry)
    {
        const unsigned end = appended_;
        if (end - taken_ == Size) return false;
        entries_[end % Size] = entry;
        appended_ = end + 1;
        return true;
    }
    const Entry* first() const { return taken_ == appended_ ? nullptr : &entries_[taken_ % Size]; }
    void drop() { taken_ = taken_ + 1; }

private:
    std::array<Entry, Size> entries_{};
    Published<unsigned> appended_ = 0; ///< entries so far; the writer
    Published<unsigned> taken_ = 0;    ///< of these, dropped; the reader
};

Shared<uint8_t> queued = 0;
Shared<unsigned> event_count = 0; ///< appended so far; the writer
Ring<PointerEvent, 4096> pointer_events;
Ring<KeyPress, 256> field_presses;
Shared<uint8_t> pointer_events_lost = 0;             ///< 1: the queue was full
std::array<Shared<uint8_t>, KEY_MAX> keys_down{};    ///< by scancode; the writer
std::array<Shared<uint8_t>, KEY_MAX> new_presses{};  ///< by scancode, since the last turn
std::array<Shared<uint8_t>, KEY_MAX> late_presses{}; ///< by scancode, before it

void (*on_arrival)() = nullptr; // set before the callbacks are

void tell_queued()
{
    if (on_arrival) on_arrival();
}

void on_pointer(int)
{
    append_pointer_event({::mouse_x, ::mouse_y, ::mouse_b});
    tell_queued();
}

/// Allegro's code of a key: the scancode, and bit 7 for its release.
void on_key(int code)
{
    constexpr int released = 0x80;
    append_key_event(code & ~released, (code & released) == 0);
    tell_queued();
}

} // namespace

void queue_input_events(void (*on_event)())
{
    on_arrival = on_event;
    queued = 1;
    mouse_callback = on_pointer;
    keyboard_lowlevel_callback = on_key;
}

void stop_input_events()
{
    mouse_callback = nullptr;
    keyboard_lowlevel_callback = nullptr;
    queued = 0;
    while (pointer_events.first())
        pointer_events.drop();
    while (field_presses.first())
        field_presses.drop();
    for (std::size_t i = 0; i < keys_down.size(); ++i)
        keys_down[i] = new_presses[i] = late_presses[i] = 0;
}

bool input_events_queued() { return queued != 0; }

unsigned input_event_count() { return event_count; }

void append_pointer_event(const PointerEvent& event)
{
    event_count = event_count + 1;
    if (!pointer_events.append(event)) pointer_events_lost = 1;
}

bool peek_pointer_event(PointerEvent& event)
{
    if (const PointerEvent* first = pointer_events.first()) {
        event = *first;
        return true;
    }
    if (pointer_events_lost.take() == 0) return false;
    pointer_events.append({::mouse_x, ::mouse_y, ::mouse_b});
    return peek_pointer_event(event);
}

void drop_pointer_event() { pointer_events.drop(); }

void append_key_event(int scancode, bool down)
{
    if (scancode <= 0 || scancode >= KEY_MAX) return;
    event_count = event_count + 1;
    const bool repeated = keys_down[scancode] != 0;
    keys_down[scancode] = down ? 1 : 0;
    if (!down || repeated) return;
    new_presses[scancode] = 1;
    field_presses.append({scancode, keys_down[KEY_LSHIFT] != 0 || keys_down[KEY_RSHIFT] != 0});
}

KeyPress take_field_press()
{
    const KeyPress* first = field_presses.first();
    if (!first) return {};
    const KeyPress press = *first;
    field_presses.drop();
    return press;
}

bool key_pressed_lately(int scancode) { return late_presses[scancode] != 0; }

void turn_key_presses()
{
    for (std::size_t i = 0; i < new_presses.size(); ++i)
        late_presses[i] = new_presses[i].take();
}

} // namespace kelu::platform
