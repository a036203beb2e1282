// SPDX-License-Identifier: MIT
// Every place of the program where it waits for its user, with the way there and the way back.
#pragma once

#include "draw/tool_input.h"
#include "imagefile/clipboard_picture.h"
#include "runtime/animation.h"
#include "screens/animation_slots.h"
#include "screens/browser_slots.h"
#include "support/frames.h"
#include "support/ways.h"
#include "tools/text_tool.h"
#include <allegro.h>
#include <fstream>

namespace kelu::test {

constexpr int over_window = 120;         ///< first slot of a question over a window
constexpr int answer_cancel = 126;       ///< of the question about an animation's form
constexpr int bare_x = 160, bare_y = 12; ///< on the frame, away from the windows

inline void click_canvas(Session& session) { session.click_at(bare_x, bare_y); }
inline void right_click(Session& session) { session.click_at(bare_x, bare_y, RIGHT_BUTTON); }

/// A press on the canvas with a tool, which is released again where the tool goes on without the button.
inline auto with_tool(int tool, bool released = true)
{
    return [=](Session& session) {
        toolbox.tool_slots[0] = tool;
        toolbox.tool_slot = 0;
        session.move(bare_x, bare_y);
        session.press();
        session.frame(4);
        if (released) session.release();
        session.frame(4);
    };
}

inline auto with_ink(int ink)
{
    return [ink](Session&) {
        toolbox.ink_slots[0] = ink;
        toolbox.ink_slot = 0;
    };
}

inline auto with_frames(int n)
{
    return [n](Session&) { make_frames(n); };
}

inline void tag_two(Session&)
{
    animation.anim_count = 2;
    animation.anim_list[0] = animation.anim_list[1] = 0;
}

/// Scrolls a slot to a value.
inline auto scrolled(int slot, int value)
{
    return [=](Session& session) {
        gui.scroll_value[slot] = value;
        session.frame(3);
    };
}

/// Another program has copied a picture.
inline auto copied(int w, int h)
{
    return [=](Session&) { copy_to_clipboard(Bitmap(w, h, 0x2060c0)); };
}

/// Puts a file there that is no picture and no font.
inline auto with_broken_file(const char* name)
{
    return
        [name = std::string(name)](Session& session) { std::ofstream(session.folder() + "/" + name) << "something"; };
}

inline void with_many_files(Session& session)
{
    for (int i = 0; i < 40; ++i)
        with_broken_file(("picture " + std::to_string(i) + ".png").c_str())(session);
}

/// A place where the program waits for its user.
struct Place {
    const char* name;
    Way open, leave;
    Way draft = {}; ///< something that CANCEL gives up
};

inline const Place places[] = {
    {"column", {HOME_USER}, {10}},
    {"options", {HOME_USER, 2}, {7}, {6}},
    {"options, further down", {HOME_USER, 2, scrolled(2, 16)}, {7}},
    {"options, the last", {HOME_USER, 2, scrolled(2, 33)}, {7}},
    {"options, another pointer", {HOME_USER, 2, 22}, {7}},
    {"keys", {HOME_USER, 3}, {27}, {right_on(6)}},
    {"remap dialog", {HOME_USER, 3, 6}, {DIALOG_CANCEL, 27}, {tap(KEY_K)}},
    {"buttons", {HOME_USER, 4}, {15}, {17, at(160, 200)}},
    {"list of functions", {HOME_USER, 4, 17}, {right_click, 15}},
    {"scheme", {HOME_USER, 5}, {110}, {right_on(81)}},
    {"colour of a swatch", {HOME_USER, 5, 77}, {right_click, 110}, {30}},
    {"window on the move", {HOME_LABEL}, {at(bare_x, logical_h - 1)}},
    {"help", {HOME_USER, 6}, {4}},
    {"workspace", {HOME_USER, 7}, {11}},
    {"about", {HOME_USER, 8}, {3}},
    {"question", {HOME_USER, 9}, {DIALOG_CANCEL}},
    {"question of four frames", {with_frames(4), HOME_FRAME, 5}, {DIALOG_CANCEL}},
    {"question with one answer", {HOME_FRAME, 5}, {DIALOG_OKAY}},
    {"question of a cel", {HOME_CEL, 6}, {DIALOG_CANCEL}},
    {"question of favourites", {tap(KEY_P), 4}, {DIALOG_CANCEL, tap(KEY_P)}},
    {"question of a workspace", {HOME_USER, 7, 10}, {DIALOG_CANCEL}},
    {"question of keys", {HOME_USER, 3, 7, tap(KEY_TAB), DIALOG_OKAY, 25}, {DIALOG_CANCEL, 27}},
    {"resize", {HOME_FRAME, 4}, {20}, {typed(15, "50")}},
    {"quick crop", {HOME_FRAME, 4, 13}, {right_click}, {click_canvas}},
    {"quick crop, second corner", {HOME_FRAME, 4, 13, click_canvas, to(220, 60)}, {right_click}},
    {"animation", {HOME_FRAME, 7}, {SLOT_CANCEL}, {SLOT_ALL}},
    {"playback", {tag_two, HOME_FRAME, 8}, {8}, {6}},
    {"sheet", {HOME_PIC, 4}, {94}},
    {"tint", {HOME_PIC, 5}, {10}, {2}},
    {"grid", {HOME_PIC, 6}, {16}, {typed(4, "33")}},
    {"grid, a bad number", {HOME_PIC, 6, typed(4, "1"), typed(8, "1")}, {16}},
    {"grid, numbers at their ends",
     {HOME_PIC, 6, typed(4, "999"), typed(6, "2"), typed(8, "998"), typed(10, "1")},
     {16}},
    {"sheet, a bad number", {HOME_PIC, 4, typed(86, "300")}, {94}},
    {"resize, numbers at their ends", {HOME_FRAME, 4, typed(15, "2"), typed(16, "1")}, {20}},
    {"save browser", {HOME_PIC, 7}, {BROWSER_CANCEL}},
    {"quality", {HOME_PIC, 7, BROWSER_FILTER_0 + 4, file("a")}, {105}},
    {"quality, lower", {HOME_PIC, 7, BROWSER_FILTER_0 + 4, file("a"), scrolled(102, 5)}, {105}},
    {"load browser", {HOME_PIC, 8}, {BROWSER_CANCEL}},
    {"load browser, many files", {with_many_files, HOME_PIC, 8, at(60, 20)}, {BROWSER_CANCEL}},
    {"font browser", {with_tool(TOOL_TEXT), TEXT_SLOT_FONT}, {BROWSER_CANCEL, TEXT_SLOT_CANCEL}},
    {"overwrite question",
     {with_broken_file("a.png"), HOME_PIC, 7, file("a.png")},
     {over_window + DIALOG_CANCEL, BROWSER_CANCEL}},
    {"failure panel",
     {with_broken_file("fonts/b.ttf"), with_tool(TOOL_TEXT), TEXT_SLOT_FONT, file("b.ttf")},
     {click_canvas, TEXT_SLOT_CANCEL}},
    {"form of an animation", {tag_two, HOME_FRAME, 7, SLOT_SAVE, file("c.png")}, {answer_cancel, SLOT_CANCEL}},
    {"animation, all of four frames", {with_frames(4), HOME_FRAME, 7, SLOT_ALL}, {SLOT_CANCEL}},
    {"animation, many frames", {with_frames(14), HOME_FRAME, 7, scrolled(SLOT_STRIP, 3)}, {SLOT_CANCEL}},
    {"playback of four frames", {with_frames(4), HOME_FRAME, 7, SLOT_ALL, SLOT_OKAY, HOME_FRAME, 8}, {8}},
    {"clipboard, wider", {copied(400, 100), control(KEY_V)}, {tap(KEY_ESC)}},
    {"clipboard, smaller", {copied(40, 30), control(KEY_V)}, {right_click}},
    {"get", {HOME_CEL, 2}, {right_click}, {click_canvas}},
    {"get, second corner", {HOME_CEL, 2, click_canvas, to(200, 50)}, {right_click}},
    {"paste", {HOME_CEL, 4}, {right_click}},
    {"turn", {HOME_CEL, 7}, {right_click}},
    {"stretch", {HOME_CEL, 8}, {right_click}, {click_canvas}},
    {"stretch, second point", {HOME_CEL, 8, click_canvas, to(190, 60)}, {right_click}},
    {"transform", {HOME_CEL, 9}, {6}, {2}},
    {"tools", {tap(KEY_B)}, {tap(KEY_B)}},
    {"tools, further down", {tap(KEY_B), scrolled(2, 6)}, {tap(KEY_B)}},
    {"inks", {tap(KEY_I)}, {tap(KEY_I)}},
    {"inks, a gradient", {with_ink(INK_R_GRAD), tap(KEY_I)}, {tap(KEY_I)}},
    {"colour of alpha", {tap(KEY_SPACE), tap(KEY_C)}, {tap(KEY_C), tap(KEY_SPACE)}},
    {"colour", {tap(KEY_C)}, {tap(KEY_C)}},
    {"colour, VGA", {tap(KEY_C), 2}, {tap(KEY_C)}},
    {"colour, HLS", {tap(KEY_C), 4}, {tap(KEY_C)}},
    {"colour, HSV", {tap(KEY_C), 5}, {tap(KEY_C)}},
    {"favourites", {tap(KEY_P)}, {tap(KEY_P)}},
    {"favourites, black picked", {tap(KEY_P), right_on(40), at(128, 20)}, {tap(KEY_P)}},
    {"macros", {tap(KEY_M)}, {tap(KEY_M)}, {25}},
    {"macros, the second", {tap(KEY_M), 3}, {tap(KEY_M)}, {25}},
    {"tips", {tap(KEY_T)}, {tap(KEY_T)}},
    {"custom tip", {tap(KEY_T), right_on(2)}, {right_click, tap(KEY_T)}},
    {"colour band", {right_on(HOME_SPECTRUM)}, {right_click}, {click_canvas}},
    {"quick slider", {with_ink(INK_GLASS), hold(KEY_PGUP)}, {let_go(KEY_PGUP)}},
    {"frame stepping", {with_frames(4), hold(KEY_PGDN)}, {let_go(KEY_PGDN)}},
    {"frame stepping, onion skin", {with_frames(4), tap(KEY_O), hold(KEY_PGDN)}, {let_go(KEY_PGDN), tap(KEY_O)}},
    {"frame jump", {hold(KEY_BACKSLASH)}, {let_go(KEY_BACKSLASH)}},
    {"frame jump, many frames", {with_frames(14), hold(KEY_BACKSLASH)}, {let_go(KEY_BACKSLASH)}},
    {"alpha preview", {hold(KEY_SLASH)}, {let_go(KEY_SLASH)}},
    {"quick pan", {hold(KEY_0_PAD)}, {let_go(KEY_0_PAD)}},
    {"line", {with_tool(TOOL_LINE)}, {right_click}},
    {"line, button held", {with_tool(TOOL_LINE, false)}, {let_button_go, right_click}},
    {"poly", {with_tool(TOOL_POLY)}, {right_click}},
    {"poly, second corner", {with_tool(TOOL_POLY), at(bare_x + 40, bare_y + 20), to(100, 90)}, {right_click}},
    {"oval, second axis", {with_tool(TOOL_OVAL), at(bare_x + 40, bare_y + 20)}, {click_canvas}},
    {"freehand shape", {with_tool(TOOL_FSHAPE, false)}, {let_button_go}},
    {"stroke", {with_tool(TOOL_DRAW, false)}, {let_button_go}},
    {"dabs", {with_tool(TOOL_DRIZ, false)}, {let_button_go}},
    {"spray", {with_tool(TOOL_SPRAY, false)}, {let_button_go}},
    {"spline", {with_tool(TOOL_SPLINE)}, {right_click}},
    {"polygon", {with_tool(TOOL_RPOLY)}, {3}},
    {"supershape", {with_tool(TOOL_SSHAPE)}, {3}},
    {"spiral", {with_tool(TOOL_SPIRAL)}, {3}},
    {"text", {with_tool(TOOL_TEXT)}, {TEXT_SLOT_CANCEL}},
    {"text, typed", {with_tool(TOOL_TEXT), tap(KEY_A), tap(KEY_B)}, {TEXT_SLOT_CANCEL}},
    {"box", {with_tool(TOOL_BOX), to(220, 60)}, {right_click}},
    {"circle", {with_tool(TOOL_CIRCLE), to(190, 40)}, {right_click}},
    {"move", {with_tool(TOOL_MOVE)}, {right_click}},
    {"move, in the air", {with_tool(TOOL_MOVE), at(bare_x + 30, bare_y + 30)}, {right_click}},
    {"radial gradient", {with_ink(INK_R_GRAD), tap(KEY_PGUP)}, {tap(KEY_PGUP)}},
    {"gradient", {with_ink(INK_L_GRAD), tap(KEY_PGUP)}, {tap(KEY_PGUP)}},
};

/// A frame to open them over, and settings that differ from those of a start.
inline void prepare(Session& session)
{
    preferences.mouse_swap = 0;
    preferences.undo_depth = 7;
    preferences.show_tool_distance = 1;
    replace_frame(320, 240, 0x404040);
    for (int x = 0; x < 320; ++x)
        row(store.frame_bitmap, 20)[x] = 0x010101 * (x & 0x7f);
    store.cel_bitmap = Bitmap(12, 8, 0x123456);
    for (int i = 0; i < 96; ++i)
        row(store.cel_bitmap, i / 12)[i % 12] = 0x123456 + 0x050901 * i;
    store.cel_source_bitmap = store.cel_bitmap.copy();
    for (std::size_t i = 0; i < toolbox.extended_favorites.size(); ++i)
        toolbox.extended_favorites[i] = static_cast<int>(0xffffff - i * 0x30507);
    session.frame(2);
}

} // namespace kelu::test
