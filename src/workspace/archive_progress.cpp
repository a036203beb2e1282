// The window with the bar of an archive on its way.
#include "workspace/archive_progress.h"

#include "base/run_state.h"
#include "gui/build.h"
#include "workspace/archive.h"

namespace kelu {
namespace {

enum { SLOT_BAR = 2, SLOT_COUNT };

constexpr int window_w = 120, window_h = 42, bar_w = 117;
constexpr int whole_bar = 100;

void build_window(int title)
{
    const SlotRow slots[] = {title_row(2, 2, bar_w, title), {SLOT_BAR, 2, 22, bar_w, KIND_PROGRESS}};
    build_screen({.menu_id = MENU_DIALOG,
                  .x = logical_w / 2 - window_w / 2,
                  .y = logical_h / 3,
                  .w = window_w,
                  .h = window_h,
                  .slot_count = SLOT_COUNT,
                  .slots = slots});
}

} // namespace

ArchiveProgress::ArchiveProgress(int title, int steps, ShowProgress show_progress)
    : show_progress_(show_progress), step_(100.0F / static_cast<float>(steps))
{
    build_window(title);
}

ArchiveProgress::~ArchiveProgress() { close_screen(); }

void ArchiveProgress::step()
{
    done_ += step_;
    show(static_cast<int>(done_));
}

void ArchiveProgress::finish() { show(whole_bar); }

void ArchiveProgress::show(int percent)
{
    gui.list_items[SLOT_BAR][0] = percent;
    show_progress_();
}

} // namespace kelu
