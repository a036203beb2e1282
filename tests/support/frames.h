// SPDX-License-Identifier: MIT
// A workspace of several frames that tell themselves apart, its files, and keys tapped one after the other.
#pragma once

#include "runtime/store.h"
#include "runtime/toolbox.h"
#include "screens/draw_menu.h"
#include "support/session.h"
#include "workspace/frame_order.h"
#include "workspace/frame_store.h"
#include "workspace/running_work.h"
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

namespace kelu::test {

/// The drawing menu with the same favourites at every run, for pictures: the home loop of a session.
inline void plain_home()
{
    for (Shared<int>& favorite : toolbox.favorites)
        favorite = 0x808080;
    draw_menu();
}

/// The colour of frame `number`.
inline int frame_color(int number) { return number << 16 | (255 - 2 * number) << 8 | 0x40; }

/// Fills the workspace up to `count` frames, each painted in its colour with a white corner; frame 0 becomes current.
inline void make_frames(int count)
{
    const int missing = count - store.frame_count;
    if (missing > 0) insert_frames(0, missing, INSERT_BLANKS);
    if (store.frame_count < count) return; // the disk has no room
    if (store.current_frame != 0) fetch_frame(store.current_frame, 0, 0);
    for (int frame = 0; frame < count; ++frame) {
        clear_to_color(store.frame_bitmap, frame_color(frame));
        rectfill(store.frame_bitmap, 0, 0, 20 + 2 * frame, 20, 0xffffff);
        fetch_frame(frame, (frame + 1) % count, 0);
    }
}

/// Contents of all stored frames by name.
inline std::map<std::string, std::string> frame_files(const Session& session)
{
    settle_running_work();
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(session.folder() + "/WORKSPACE")) {
        const std::string name = entry.path().filename();
        if (name.starts_with("current.0")) files[name] = file_text(entry.path());
    }
    return files;
}

/// Taps every key that an action can have, with the modifiers held, but for those named.
inline void tap_every_key(Session& session, const std::vector<int>& spared, const std::vector<int>& modifiers = {})
{
    for (int code = 1; code <= 105; ++code)
        if (std::ranges::find(spared, code) == spared.end()) session.key(code, modifiers);
}

} // namespace kelu::test
