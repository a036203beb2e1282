// SPDX-License-Identifier: MIT
// Both dialogs are one window of three lines; the home strip is frozen behind it.
#include "screens/failure_dialog.h"

#include "base/run_state.h"
#include "gui/build.h"
#include "gui/text.h"
#include "loop/actions.h"
#include "loop/freeze.h"
#include "loop/home_strip.h"
#include "loop/pass.h"
#include "platform/files.h"
#include "screens/dialogs.h"
#include <array>
#include <string>

namespace kelu {
namespace {

enum FailureSlot : int { WINDOW = 120, TITLE, FIRST_LINE, SECOND_LINE, THIRD_LINE, FIRST_BUTTON, SLOT_END = 128 };

constexpr int left = 60, top = 80, width = 200, height = 60;
constexpr int line_w = width - 8; ///< pixels that a text may take
constexpr int first_line_y = 16, line_pitch = 10, button_y = 50;
constexpr int button_w = 59;
constexpr int what_colour = 37, where_colour = 40; ///< codes of colour sets

/// What the lines show while the dialog is open. Main thread.
std::array<std::string, 3> line_texts;

/// A text without its middle, so that it fits a line: the end of a path says most.
std::string fitted(const std::string& text)
{
    set_plain_text(FONT_WIDE, SET_BLACK);
    std::string shown = platform::upper_case(text);
    for (std::size_t cut = 1; text_width(shown.c_str()) > line_w && cut < text.size(); ++cut)
        shown = std::string("...").append(platform::upper_case(text.substr(cut)));
    return shown;
}

void build_lines(const FailureReport& report)
{
    line_texts = {fitted(report.what), fitted(report.where), std::string("<").append(fitted(report.why)).append(">")};
    for (int i = 0; i < 3; ++i) {
        const SlotRow line{FIRST_LINE + i, 0, first_line_y + i * line_pitch, width, KIND_PTR_LABEL};
        build_slot(line.inked(i == 0 ? what_colour : where_colour), left, top);
        gui.ptr[FIRST_LINE + i] = line_texts[i].c_str();
    }
}

/// The strip frozen and hidden while a dialog is over it, and as it was afterwards.
class StripAside {
public:
    StripAside() : stood_(gui.hidden[SLOT_WINDOW] == 0), menu_before_(menus.menu_id)
    {
        menus.menu_id = MENU_DIALOG;
        if (!stood_) return;
        freeze_menu();
        menu_hide(SLOT_WINDOW);
    }
    ~StripAside()
    {
        for (int slot = WINDOW; slot < SLOT_END; ++slot)
            gui_reset_slot(slot);
        menus.menu_id = menu_before_;
        if (!stood_) return;
        clear_ghost();
        menu_show(SLOT_WINDOW);
    }
    StripAside(const StripAside&) = delete;
    StripAside& operator=(const StripAside&) = delete;

private:
    bool stood_;
    int menu_before_;
};

/// Shows the report with one to three buttons and waits; the number of the button, -1 when the program is to end.
int show_report(const FailureReport& report, std::span<const int> buttons)
{
    const StripAside aside;
    build_slot(SlotRow{WINDOW, 0, 0, width, KIND_WINDOW}.high(height).filled(FILL_BACKGROUND), left, top);
    gui.slot_count[WINDOW] = FIRST_BUTTON - WINDOW + static_cast<int>(buttons.size());
    SlotRow title = title_row(2, 2, width - 3, TEXT_LISTEN);
    title.slot = TITLE;
    build_slot(title, left, top);
    build_lines(report);
    const int room = width - 4 - button_w; // from the first button's corner to the last one's
    const int count = static_cast<int>(buttons.size());
    for (int i = 0; i < count; ++i) {
        const int x = count == 1 ? (width - button_w) / 2 : 2 + room * i / (count - 1);
        build_slot(push_row(FIRST_BUTTON + i, x, button_y, button_w, buttons[i]), left, top);
    }
    ++action_state.frame_locked; // no key may change frames behind the question
    int answer = -1;
    while (answer < 0 && run_pass(passes::menu)) {
        for (int i = 0; i < count; ++i)
            if (gui.event[FIRST_BUTTON + i].take() != 0) answer = i;
    }
    --action_state.frame_locked;
    return answer;
}

void tell_of_damage()
{
    if (run_state.workspace_damaged == 0) return;
    run_state.workspace_damaged = 0;
    const bool hidden = gui.hidden[SLOT_WINDOW] != 0;
    confirm_over_window(TEXT_WORKSPACE_DAMAGED, TEXT_REPAIRS_MADE, DialogButtons::OKAY);
    if (hidden) menu_hide(SLOT_WINDOW);
}

} // namespace

void tell_of_failures()
{
    tell_of_damage();
    constexpr std::array buttons{int(TEXT_OKAY)};
    while (const std::optional<FailureReport> report = take_failure_report()) {
        show_report(*report, buttons);
        if (ending()) return;
    }
}

LeaveAnswer ask_about_unwritten(const FailureReport& report)
{
    constexpr std::array buttons{int(TEXT_TRY_AGAIN), int(TEXT_LEAVE), int(TEXT_CANCEL)};
    switch (show_report(report, buttons)) {
    case 0:
        return LeaveAnswer::TRY_AGAIN;
    case 1:
        return LeaveAnswer::LEAVE;
    default:
        return LeaveAnswer::STAY;
    }
}

} // namespace kelu
