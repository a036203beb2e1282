// SPDX-License-Identifier: MIT
// Every place of the program where it waits for its user, with the way there and the way back.
#pragma once

#include "draw/tool_input.h"
#include "runtime/animation.h"
#include "screens/animation_slots.h"
#include "screens/browser_slots.h"
#include "support/frames.h"
#include "support/screen_session.h"
#include "tools/text_tool.h"
#include <allegro.h>
#include <fstream>

namespace kelu::test {

constexpr int over_window = 120;         ///< first slot of a question over a window
constexpr int answer_cancel = 126;       ///< of the question about an animation's form
constexpr int bare_x = 160, bare_y = 12; ///< on the frame, away from the windows

inline void click_canvas(Session& session) { session.click_at(bare_x, bare_y); }
inline void right_click(Session& session) { session.click_at(bare_x, bare_y, RIGHT_BUTTON); }

inline void open_entry_of(Session& session, int column, int entry)
{
    session.click(column);
    session.click(entry);
}

template <int Column, int Entry>
void open_at(Session& session)
{
    open_entry_of(session, Column, Entry);
}
template <int Slot>
void click_on(Session& session)
{
    session.click(Slot);
}
template <int Key>
void tap(Session& session)
{
    session.key(Key);
}
template <int Key>
void hold(Session& session)
{
    session.hold_key(Key);
}
template <int Key>
void let_go(Session& session)
{
    session.release_key(Key);
}

/// A press on the canvas with a tool, which is released again where the tool goes on without the button.
template <int Tool, bool Released = true>
void use_tool(Session& session)
{
    toolbox.tool_slots[0] = Tool;
    toolbox.tool_slot = 0;
    session.move(bare_x, bare_y);
    session.press();
    session.frame(4);
    if (Released) session.release();
    session.frame(4);
}

inline void use_two(Session& session)
{
    use_tool<TOOL_OVAL>(session);
    session.click_at(bare_x + 40, bare_y + 20);
}

inline void leave_both(Session& session, int inner, int outer)
{
    session.click(inner);
    session.click(outer);
}

inline void tag_two(Session&)
{
    animation.anim_count = 2;
    animation.anim_list[0] = animation.anim_list[1] = 0;
}

/// Types a name into the browser that is open.
inline void enter_name(Session& session, const char* name, const char* ending)
{
    session.type(name);
    session.key(KEY_STOP);
    session.type(ending);
    session.key(KEY_ENTER);
    session.frame(4);
}

inline void overwrite(Session& session)
{
    std::ofstream("a.png") << "something";
    open_entry_of(session, HOME_PIC, 7);
    enter_name(session, "a", "png");
}

inline void choose_broken_font(Session& session)
{
    std::ofstream(session.folder() + "/fonts/b.ttf") << "no font";
    use_tool<TOOL_TEXT>(session);
    session.click(TEXT_SLOT_FONT);
    enter_name(session, "b", "ttf");
}

inline void save_animation_as_png(Session& session)
{
    tag_two(session);
    open_entry_of(session, HOME_FRAME, 7);
    session.click(SLOT_SAVE);
    enter_name(session, "c", "png");
}

/// A place where the program waits for its user.
struct Place {
    const char* name;
    void (*open)(Session&);
    void (*leave)(Session&);
    void (*draft)(Session&) = nullptr; ///< something that CANCEL gives up
};

inline const Place places[] = {
    {"column", click_on<HOME_USER>, click_on<10>},
    {"options", open_at<HOME_USER, 2>, click_on<7>, click_on<6>},
    {"keys", open_at<HOME_USER, 3>, click_on<27>, [](Session& s) { s.click(6, RIGHT_BUTTON); }},
    {"remap dialog",
     [](Session& s) {
         open_entry_of(s, HOME_USER, 3);
         s.click(6);
     },
     [](Session& s) { leave_both(s, DIALOG_CANCEL, 27); }, tap<KEY_K>},
    {"buttons", open_at<HOME_USER, 4>, click_on<15>,
     [](Session& s) {
         s.click(17);
         s.click_at(160, 200);
     }},
    {"list of functions",
     [](Session& s) {
         open_entry_of(s, HOME_USER, 4);
         s.click(17);
     },
     [](Session& s) {
         right_click(s);
         s.click(15);
     }},
    {"scheme", open_at<HOME_USER, 5>, click_on<110>, [](Session& s) { s.click(81, RIGHT_BUTTON); }},
    {"colour of a swatch",
     [](Session& s) {
         open_entry_of(s, HOME_USER, 5);
         s.click(77);
     },
     [](Session& s) {
         right_click(s);
         s.click(110);
     },
     click_on<30>},
    {"window on the move", click_on<HOME_LABEL>, click_canvas},
    {"help", open_at<HOME_USER, 6>, click_on<4>},
    {"workspace", open_at<HOME_USER, 7>, click_on<11>},
    {"about", open_at<HOME_USER, 8>, click_on<3>},
    {"question", open_at<HOME_USER, 9>, click_on<DIALOG_CANCEL>},
    {"resize", open_at<HOME_FRAME, 4>, click_on<20>, [](Session& s) { retype(s, 15, "50"); }},
    {"quick crop",
     [](Session& s) {
         open_entry_of(s, HOME_FRAME, 4);
         s.click(13);
     },
     right_click, click_canvas},
    {"animation", open_at<HOME_FRAME, 7>, click_on<SLOT_CANCEL>, click_on<SLOT_ALL>},
    {"playback",
     [](Session& s) {
         tag_two(s);
         open_entry_of(s, HOME_FRAME, 8);
     },
     click_on<8>, click_on<6>},
    {"sheet", open_at<HOME_PIC, 4>, click_on<94>},
    {"tint", open_at<HOME_PIC, 5>, click_on<10>, click_on<2>},
    {"grid", open_at<HOME_PIC, 6>, click_on<16>, [](Session& s) { retype(s, 4, "33"); }},
    {"save browser", open_at<HOME_PIC, 7>, click_on<BROWSER_CANCEL>},
    {"quality",
     [](Session& s) {
         open_entry_of(s, HOME_PIC, 7);
         s.click(BROWSER_FILTER_0 + 4);
         s.type("a");
         s.click(BROWSER_OKAY);
     },
     click_on<105>},
    {"load browser", open_at<HOME_PIC, 8>, click_on<BROWSER_CANCEL>},
    {"overwrite question", overwrite, [](Session& s) { leave_both(s, over_window + DIALOG_CANCEL, BROWSER_CANCEL); }},
    {"failure panel", choose_broken_font,
     [](Session& s) {
         click_canvas(s);
         s.click(TEXT_SLOT_CANCEL);
     }},
    {"form of an animation", save_animation_as_png,
     [](Session& s) {
         s.click(answer_cancel);
         s.click(SLOT_CANCEL);
     }},
    {"get", open_at<HOME_CEL, 2>, right_click, click_canvas},
    {"paste", open_at<HOME_CEL, 4>, right_click},
    {"turn", open_at<HOME_CEL, 7>, right_click},
    {"stretch", open_at<HOME_CEL, 8>, right_click, click_canvas},
    {"transform", open_at<HOME_CEL, 9>, click_on<6>, click_on<2>},
    {"tools", tap<KEY_B>, tap<KEY_B>},
    {"inks", tap<KEY_I>, tap<KEY_I>},
    {"colour", tap<KEY_C>, tap<KEY_C>},
    {"favourites", tap<KEY_P>, tap<KEY_P>},
    {"macros", tap<KEY_M>, tap<KEY_M>, click_on<25>},
    {"tips", tap<KEY_T>, tap<KEY_T>},
    {"custom tip",
     [](Session& s) {
         s.key(KEY_T);
         s.click(2, RIGHT_BUTTON);
     },
     [](Session& s) {
         right_click(s);
         s.key(KEY_T);
     }},
    {"spectrum", [](Session& s) { s.click(HOME_SPECTRUM, RIGHT_BUTTON); }, right_click, click_canvas},
    {"quick slider",
     [](Session& s) {
         toolbox.ink_slots[0] = INK_GLASS;
         toolbox.ink_slot = 0;
         s.hold_key(KEY_PGUP);
     },
     let_go<KEY_PGUP>},
    {"frame stepping",
     [](Session& s) {
         make_frames(4);
         s.hold_key(KEY_PGDN);
     },
     let_go<KEY_PGDN>},
    {"frame jump", hold<KEY_BACKSLASH>, let_go<KEY_BACKSLASH>},
    {"alpha preview", hold<KEY_SLASH>, let_go<KEY_SLASH>},
    {"quick pan", hold<KEY_0_PAD>, let_go<KEY_0_PAD>},
    {"line", use_tool<TOOL_LINE>, right_click},
    {"line, button held", use_tool<TOOL_LINE, false>,
     [](Session& s) {
         s.release();
         right_click(s);
     }},
    {"poly", use_tool<TOOL_POLY>, right_click},
    {"oval, second axis", use_two, click_canvas},
    {"freehand shape", use_tool<TOOL_FSHAPE, false>, [](Session& s) { s.release(); }},
    {"stroke", use_tool<TOOL_DRAW, false>, [](Session& s) { s.release(); }},
    {"dabs", use_tool<TOOL_DRIZ, false>, [](Session& s) { s.release(); }},
    {"spray", use_tool<TOOL_SPRAY, false>, [](Session& s) { s.release(); }},
    {"spline", use_tool<TOOL_SPLINE>, right_click},
    {"polygon", use_tool<TOOL_RPOLY>, click_on<3>},
    {"supershape", use_tool<TOOL_SSHAPE>, click_on<3>},
    {"spiral", use_tool<TOOL_SPIRAL>, click_on<3>},
    {"text", use_tool<TOOL_TEXT>, click_on<TEXT_SLOT_CANCEL>},
    {"move", use_tool<TOOL_MOVE>, right_click},
    {"move, in the air",
     [](Session& s) {
         use_tool<TOOL_MOVE>(s);
         s.click_at(bare_x + 30, bare_y + 30);
     },
     right_click},
    {"gradient",
     [](Session& s) {
         toolbox.ink_slots[0] = INK_L_GRAD;
         toolbox.ink_slot = 0;
         s.key(KEY_PGUP);
     },
     tap<KEY_PGUP>},
};

/// A frame to open them over, and settings that differ from those of a start.
inline void prepare(Session& session)
{
    preferences.mouse_swap = 0;
    preferences.undo_depth = 7;
    replace_frame(320, 240, 0x404040);
    for (int x = 0; x < 320; ++x)
        row(store.frame_bitmap, 20)[x] = 0x010101 * (x & 0x7f);
    store.cel_bitmap = Bitmap(4, 4, 0x123456);
    store.cel_source_bitmap = store.cel_bitmap.copy();
    session.frame(2);
}

} // namespace kelu::test
