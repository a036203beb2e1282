// SPDX-License-Identifier: MIT
// Allegro's connection to the display for a block of calls. Its event thread waits meanwhile.
#pragma once

#include <allegro.h>
#include <xalleg.h>

extern "C" {
/// Allegro's own locking, by which a thread may enter again.
void _unix_lock_mutex(void* mutex);
void _unix_unlock_mutex(void* mutex);
}

namespace kelu::platform {

class XLock {
public:
    XLock()
    {
        if (_xwin.mutex) _unix_lock_mutex(_xwin.mutex);
    }
    ~XLock()
    {
        if (_xwin.mutex) _unix_unlock_mutex(_xwin.mutex);
    }
    XLock(const XLock&) = delete;
    XLock& operator=(const XLock&) = delete;
};

} // namespace kelu::platform
