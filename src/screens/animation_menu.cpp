// SPDX-License-Identifier: MIT
// The loop of the animation screen, and what CANCEL gives back.
#include "screens/animation_menu.h"

#include "gui/build.h"
#include "loop/pass.h"
#include "runtime/hotkeys.h"
#include "runtime/store.h"
#include "screens/animation_files.h"
#include "screens/animation_slots.h"
#include "workspace/frame_cache.h"
#include "workspace/merged.h"
#include "workspace/thumbnails.h"

namespace kelu {
namespace {

void tag_all(bool tagged)
{
    for (int frame = 0; frame < max_frames; ++frame)
        tag_of(frame) = tagged && frame < store.frame_count ? 1 : 0;
    take_delays_anew();
}

void read_tags()
{
    for (int i = 0; i < animation_nails; ++i) {
        if (gui.event[SLOT_NAIL_0 + i].take() == 0) continue;
        Shared<uint8_t>& tag = tag_of(gui.colour[SLOT_NAIL_0 + i]);
        tag = tag == 0 ? 1 : 0;
        take_delays_anew();
    }
    if (gui.event[SLOT_ALL].take() != 0) tag_all(true);
    if (gui.event[SLOT_NONE].take() != 0) tag_all(false);
}

/// Opens the file browser in the place of the screen, and the screen again where it was. Frames that came in keep
/// their tags and delays, whatever CANCEL gives back.
void visit_files(void (*open)(), Animation& kept)
{
    const int strip = gui.scroll_value[SLOT_STRIP], timing = gui.scroll_value[SLOT_TIMING];
    const int frames = store.frame_count;
    close_screen();
    open();
    for (int frame = frames; frame < store.frame_count; ++frame) {
        kept.anim_tag[frame] = static_cast<uint8_t>(animation.anim_tag[frame]);
        kept.anim_delay[frame] = int(animation.anim_delay[frame]);
    }
    if (store.frame_count > frames && kept.anim_count == 0) kept.anim_speed = int(animation.anim_speed);
    build_animation_menu();
    gui.scroll_value[SLOT_STRIP] = strip;
    gui.scroll_value[SLOT_TIMING] = timing;
}

void read_file_buttons(Animation& kept)
{
    if (gui.event[SLOT_SAVE].take() != 0 || hotkey_test(ACTION_ANIMATION_SAVE)) visit_files(save_animation, kept);
    if (gui.event[SLOT_LOAD].take() != 0 || hotkey_test(ACTION_ANIMATION_LOAD)) visit_files(load_animation, kept);
}

/// Runs the loop; true after OKAY.
bool choose_frames(Animation& kept)
{
    constexpr Pass pass{.right_click = RightClick::HIDES, .leave_key = ACTION_ANIMATE};
    while (run_pass(pass)) {
        read_tags();
        read_file_buttons(kept);
        update_animation_menu();
        if (gui.event[SLOT_CANCEL].take() != 0) return false;
        if (gui.event[SLOT_OKAY].take() != 0) return true;
    }
    return false;
}

/// What the screen edits goes back to how it was; playback's position is not its own.
void give_back(const Animation& kept)
{
    animation.anim_tag = kept.anim_tag;
    animation.anim_delay = kept.anim_delay;
    animation.anim_speed = kept.anim_speed;
    animation.anim_count = build_anim_list();
}

} // namespace

void animation_menu()
{
    Animation kept = animation;
    build_animation_menu();
    if (frame_changed()) update_frame_nail(0);
    update_animation_menu();
    wait_for_release(ACTION_ANIMATE);
    const bool accepted = choose_frames(kept);
    close_screen(); // before the old values come back: the sliders write until they have gone
    if (!accepted) give_back(kept);
}

} // namespace kelu
