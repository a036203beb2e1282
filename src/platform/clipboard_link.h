// SPDX-License-Identifier: MIT
// The clipboard's own connection to the X server: its hidden window, atoms, waiting, and properties.
//
// A selection passes through properties of windows: one side appends, the other reads and deletes. The rules are those
// of the "Inter-Client Communication Conventions Manual". Everything here runs on the clipboard's thread.
//
// X11's headers define words such as None and Bool; only the units of the clipboard include this one.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>
#include <X11/Xlib.h>

namespace kelu::platform {

using ClipboardClock = std::chrono::steady_clock;

/// How long the owner of the clipboard may take to say what it has.
constexpr std::chrono::milliseconds answer_time{1000};
/// How long any step of a transfer may take.
constexpr std::chrono::milliseconds step_time{3000};
/// How long a transfer to us may take in all.
constexpr std::chrono::milliseconds transfer_time{10000};
/// After so long without progress a transfer to another program is given up.
constexpr std::chrono::milliseconds stalled_time{10000};

/// Names of the protocol, as the server numbers them.
struct ClipboardAtoms {
    Atom clipboard, targets, timestamp, multiple, atom_pair, incr, null;
    Atom manager, save_targets;    ///< of the desktop's clipboard manager
    Atom received, stamp, offered; ///< properties of our window: what comes, where time is asked, what is handed over
};

class ClipboardLink {
public:
    ClipboardLink() = default;
    ~ClipboardLink();
    ClipboardLink(const ClipboardLink&) = delete;
    ClipboardLink& operator=(const ClipboardLink&) = delete;

    /// Connects and makes the window; false without a display.
    bool open();
    /// True once the server has gone. No call may reach it from then on, since it could wait for ever.
    bool broken() const { return broken_; }
    Display* display() const { return display_; }
    Window window() const { return window_; }
    const ClipboardAtoms& atoms() const { return atoms_; }
    Atom atom(const char* name) const { return XInternAtom(display_, name, False); }
    /// Most bytes of one property: larger content goes in pieces.
    std::size_t chunk() const { return chunk_; }

    /// Receives every event, also of those that come while something else is waited for.
    std::function<void(const XEvent&)> handle;
    /// Handles what has arrived.
    void handle_pending();
    /// Handles events until one is accepted; false at the deadline.
    bool wait_for(const std::function<bool(const XEvent&)>& accepts, ClipboardClock::time_point deadline);

    /// The server's time now, which requests have to carry.
    Time server_time();

    /// A property's content. Items of 32 bits come as the `long` that Xlib makes of them.
    struct Property {
        Atom type = 0;
        std::vector<uint8_t> bytes;
    };
    /// Reads a property of a window; false when it can't be read or has more than `limit` bytes.
    bool read_property(Window window, Atom name, std::size_t limit, Property& property) const;
    /// Replaces a property by atoms, or by one number.
    void write_atoms(Window window, Atom name, Atom type, const std::vector<Atom>& atoms) const;
    void write_number(Window window, Atom name, Atom type, unsigned long number) const;
    /// Replaces a property by bytes, at most `chunk` of them.
    void write_bytes(Window window, Atom name, Atom type, const uint8_t* bytes, std::size_t count) const;

private:
    Display* display_ = nullptr;
    bool broken_ = false;
    Window window_ = 0;
    ClipboardAtoms atoms_{};
    std::size_t chunk_ = 0;
};

} // namespace kelu::platform
