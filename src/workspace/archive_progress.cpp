// SPDX-License-Identifier: MIT
// The window with the bar of an archive on its way.
#include "workspace/archive_progress.h"

#include "base/run_state.h"
#include "gui/build.h"
#include "platform/input_events.h"
#include "workspace/archive.h"
#include <allegro.h>
#include <chrono>

namespace kelu {
namespace {

enum { SLOT_BAR = 2, SLOT_CANCEL, SLOT_COUNT };

constexpr int window_w = 120, window_h = 42, bar_w = 117;
constexpr int whole_bar = 100;

void build_window(int title, bool cancelable)
{
    const SlotRow slots[] = {title_row(2, 2, bar_w, title),
                             {SLOT_BAR, 2, cancelable ? 17 : 22, bar_w, KIND_PROGRESS},
                             push_row(SLOT_CANCEL, 31, 32, 59, TEXT_CANCEL)};
    build_screen({.menu_id = MENU_DIALOG,
                  .x = logical_w / 2 - window_w / 2,
                  .y = logical_h / 3,
                  .w = window_w,
                  .h = window_h,
                  .slot_count = SLOT_COUNT,
                  .slots = std::span(slots).first(cancelable ? 3 : 2)});
}

} // namespace

ArchiveProgress::ArchiveProgress(int title, int steps, ShowProgress show_progress, bool cancelable)
    : show_progress_(show_progress), step_(100.0F / static_cast<float>(steps)), cancelable_(cancelable)
{
    build_window(title, cancelable);
}

ArchiveProgress::~ArchiveProgress() { close_screen(); }

void ArchiveProgress::step()
{
    done_ += step_;
    show_move(static_cast<int>(done_));
}

void ArchiveProgress::show_part(int done, int all) { show_move(whole_bar * done / all); }

/// A frame for each move of the bar that can be made out, and however slowly it moves, often enough for input.
void ArchiveProgress::show_move(int percent)
{
    constexpr int least_move = 4; // per cent
    constexpr std::chrono::milliseconds longest{40};
    const auto now = std::chrono::steady_clock::now();
    if (percent - shown_ < least_move && now - last_shown_ < longest) return;
    last_shown_ = now;
    shown_ = percent;
    show(percent);
}

void ArchiveProgress::finish() { show(whole_bar); }

bool ArchiveProgress::called_off()
{
    called_off_ |= cancelable_ &&
                   (gui.event[SLOT_CANCEL].take() != 0 || ::key[KEY_ESC] != 0 || platform::key_pressed_lately(KEY_ESC));
    return called_off_ || run_state.exit_requested != 0;
}

void ArchiveProgress::show(int percent)
{
    gui.list_items[SLOT_BAR][0] = percent;
    show_progress_();
}

} // namespace kelu
