// SPDX-License-Identifier: MIT
// The rule of leaving, in every screen and tool: the first request to end the program waits until the user has left
// what is open, a click acts once meanwhile; the second request doesn't wait, and gives up what isn't committed.
#include "support/screen_session.h"

#include "draw/tool_input.h"
#include "runtime/animation.h"
#include "runtime/macros.h"
#include "screens/animation_slots.h"
#include "screens/browser_slots.h"
#include "support/frames.h"
#include "tools/text_tool.h"
#include <allegro.h>
#include <filesystem>
#include <fstream>

namespace kelu {

using namespace test;

namespace {

constexpr int over_window = 120;         ///< first slot of a question over a window
constexpr int answer_cancel = 126;       ///< of the question about an animation's form
constexpr int bare_x = 160, bare_y = 12; ///< on the frame, away from the windows

void click_canvas(Session& session) { session.click_at(bare_x, bare_y); }
void right_click(Session& session) { session.click_at(bare_x, bare_y, RIGHT_BUTTON); }

void open_entry_of(Session& session, int column, int entry)
{
    session.click(column);
    session.click(entry);
}

template <int Column, int Entry>
void entry(Session& session)
{
    open_entry_of(session, Column, Entry);
}
template <int Slot>
void slot(Session& session)
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

void use_two(Session& session)
{
    use_tool<TOOL_OVAL>(session);
    session.click_at(bare_x + 40, bare_y + 20);
}

void leave_both(Session& session, int inner, int outer)
{
    session.click(inner);
    session.click(outer);
}

void tag_two(Session&)
{
    animation.anim_count = 2;
    animation.anim_list[0] = animation.anim_list[1] = 0;
}

/// Types a name into the browser that is open.
void enter_name(Session& session, const char* name, const char* ending)
{
    session.type(name);
    session.key(KEY_STOP);
    session.type(ending);
    session.key(KEY_ENTER);
    session.frame(4);
}

void overwrite(Session& session)
{
    std::ofstream("a.png") << "something";
    open_entry_of(session, HOME_PIC, 7);
    enter_name(session, "a", "png");
}

void choose_broken_font(Session& session)
{
    std::ofstream(session.folder() + "/fonts/b.ttf") << "no font";
    use_tool<TOOL_TEXT>(session);
    session.click(TEXT_SLOT_FONT);
    enter_name(session, "b", "ttf");
}

void save_animation_as_png(Session& session)
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

const Place places[] = {
    {"column", slot<HOME_USER>, slot<10>},
    {"options", entry<HOME_USER, 2>, slot<7>, slot<6>},
    {"keys", entry<HOME_USER, 3>, slot<27>, [](Session& s) { s.click(6, RIGHT_BUTTON); }},
    {"remap dialog",
     [](Session& s) {
         open_entry_of(s, HOME_USER, 3);
         s.click(6);
     },
     [](Session& s) { leave_both(s, DIALOG_CANCEL, 27); }, tap<KEY_K>},
    {"buttons", entry<HOME_USER, 4>, slot<15>,
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
    {"scheme", entry<HOME_USER, 5>, slot<110>, [](Session& s) { s.click(81, RIGHT_BUTTON); }},
    {"colour of a swatch",
     [](Session& s) {
         open_entry_of(s, HOME_USER, 5);
         s.click(77);
     },
     [](Session& s) {
         right_click(s);
         s.click(110);
     },
     slot<30>},
    {"window on the move", slot<HOME_LABEL>, click_canvas},
    {"help", entry<HOME_USER, 6>, slot<4>},
    {"workspace", entry<HOME_USER, 7>, slot<11>},
    {"about", entry<HOME_USER, 8>, slot<3>},
    {"question", entry<HOME_USER, 9>, slot<DIALOG_CANCEL>},
    {"resize", entry<HOME_FRAME, 4>, slot<20>, [](Session& s) { retype(s, 15, "50"); }},
    {"quick crop",
     [](Session& s) {
         open_entry_of(s, HOME_FRAME, 4);
         s.click(13);
     },
     right_click, click_canvas},
    {"animation", entry<HOME_FRAME, 7>, slot<SLOT_CANCEL>, slot<SLOT_ALL>},
    {"playback",
     [](Session& s) {
         tag_two(s);
         open_entry_of(s, HOME_FRAME, 8);
     },
     slot<8>, slot<6>},
    {"sheet", entry<HOME_PIC, 4>, slot<94>},
    {"tint", entry<HOME_PIC, 5>, slot<10>, slot<2>},
    {"grid", entry<HOME_PIC, 6>, slot<16>, [](Session& s) { retype(s, 4, "33"); }},
    {"save browser", entry<HOME_PIC, 7>, slot<BROWSER_CANCEL>},
    {"quality",
     [](Session& s) {
         open_entry_of(s, HOME_PIC, 7);
         s.click(BROWSER_FILTER_0 + 4);
         s.type("a");
         s.click(BROWSER_OKAY);
     },
     slot<105>},
    {"load browser", entry<HOME_PIC, 8>, slot<BROWSER_CANCEL>},
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
    {"get", entry<HOME_CEL, 2>, right_click, click_canvas},
    {"paste", entry<HOME_CEL, 4>, right_click},
    {"turn", entry<HOME_CEL, 7>, right_click},
    {"stretch", entry<HOME_CEL, 8>, right_click, click_canvas},
    {"transform", entry<HOME_CEL, 9>, slot<6>, slot<2>},
    {"tools", tap<KEY_B>, tap<KEY_B>},
    {"inks", tap<KEY_I>, tap<KEY_I>},
    {"colour", tap<KEY_C>, tap<KEY_C>},
    {"favourites", tap<KEY_P>, tap<KEY_P>},
    {"macros", tap<KEY_M>, tap<KEY_M>, slot<25>},
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
    {"polygon", use_tool<TOOL_RPOLY>, slot<3>},
    {"supershape", use_tool<TOOL_SSHAPE>, slot<3>},
    {"spiral", use_tool<TOOL_SPIRAL>, slot<3>},
    {"text", use_tool<TOOL_TEXT>, slot<TEXT_SLOT_CANCEL>},
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

/// Strokes in progress stay, since what is painted is work; and so does a step to another frame.
bool acts_at_once(const Place& place)
{
    const std::string name = place.name;
    return name == "stroke" || name == "dabs" || name == "spray" || name == "frame stepping";
}

/// All that a screen could change in the work and in the settings, but the choice of tool, colours and view.
std::string committed()
{
    std::string words;
    const auto add = [&words](int word) { words += std::to_string(word) + ' '; };
    add(store.frame_bitmap.width());
    unsigned sum = 0;
    for (int y = 0; y < store.frame_bitmap.height(); ++y)
        for (int x = 0; x < store.frame_bitmap.width(); ++x)
            sum = sum * 31 + static_cast<unsigned>(frame_pixel(x, y));
    words += std::to_string(sum) + ' ';
    for (const HotkeyRow& keys : hotkeys.hotkey_table) {
        add(keys.primary);
        add(keys.alternate);
    }
    for (const auto& function : hotkeys.mouse_button_map)
        add(function);
    for (const int word : {int(grid.grid_on), int(grid.grid_w), int(grid.grid_h), int(grid.grid_opacity)})
        add(word);
    for (const int color : menu_scheme.scheme)
        add(color);
    for (const int word : {int(preferences.undo_depth), int(preferences.mouse_swap), int(preferences.tooltips_on)})
        add(word);
    for (const auto& tag : animation.anim_tag)
        add(tag);
    add(macros.macro_table[0].grid_mode);
    add(store.cel_bitmap.width());
    add(store.cel_source_bitmap ? row(store.cel_source_bitmap, 0)[0] : 0);
    return words;
}

void prepare(Session& session)
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

class Leaving : public testing::TestWithParam<Place> {
protected:
    Session session;
    Leaving() { prepare(session); }
};

TEST_P(Leaving, TheFirstRequestWaitsForTheUser)
{
    GetParam().open(session);
    request_end();
    session.frame(30);
    ASSERT_FALSE(session.ended()) << "the screen runs on";
    GetParam().leave(session);
    session.frame(30);
    EXPECT_TRUE(session.ended()) << "the program ends once the user has left the screen";
    EXPECT_EQ(session.exit_code(), 0);
}

TEST_P(Leaving, TheSecondRequestGivesUpWhatIsNotCommitted)
{
    if (std::string(GetParam().name) == "playback") tag_two(session);
    const std::string before = committed();
    GetParam().open(session);
    if (GetParam().draft) GetParam().draft(session);
    ASSERT_FALSE(session.ended());
    request_end();
    request_end();
    session.frame(5);
    ASSERT_TRUE(session.ended());
    EXPECT_EQ(session.exit_code(), 0);
    if (acts_at_once(GetParam())) return;
    EXPECT_EQ(committed(), before);
}

INSTANTIATE_TEST_SUITE_P(EveryPlace, Leaving, testing::ValuesIn(places), [](const auto& row) {
    std::string name = row.param.name;
    std::erase_if(name, [](char c) { return !std::isalnum(static_cast<unsigned char>(c)); });
    return name;
});

/// The bar tells of the end that waits, unless a message for a while does; also where the bar is out of the way.
TEST(LeavingRule, TheStatusLineSaysSo)
{
    Session session;
    prepare(session);
    open_entry(session, HOME_USER, 8, MENU_ABOUT);
    request_end();
    EXPECT_TRUE(looks_like(session, "leaving_notice"));
    EXPECT_EQ(menus.status_message, TIP_NONE) << "a screen's own message stays";
}

/// After a request a held press is still one click.
TEST(LeavingRule, AClickActsOnce)
{
    namespace fs = std::filesystem;
    Session session;
    prepare(session);
    fs::create_directories(fs::path(session.folder()) / "aa/ab/ac/ad");
    entry<HOME_PIC, 8>(session);
    request_end();
    const auto press_in_list = [&session](int row_number) {
        session.move(gui.x[BROWSER_LIST] + 20, gui.y[BROWSER_LIST] + 2 + 6 * row_number + 2);
        session.press();
        session.frame(20);
        session.release();
        session.frame(4);
    };
    const fs::path start = fs::current_path();
    press_in_list(1); // the first row leads up
    EXPECT_EQ(fs::relative(fs::current_path(), start).string(), "aa") << "one folder down, not as far as it goes";
    session.click(BROWSER_CANCEL);
    session.frame(4);
    EXPECT_TRUE(session.ended());
}

TEST(LeavingRule, ACornerIsTakenOnce)
{
    Session session;
    prepare(session);
    use_tool<TOOL_POLY>(session);
    request_end();
    session.move(60, 60);
    session.press();
    session.frame(20);
    EXPECT_EQ(tool_input.point_list.size(), 2U);
    session.release();
    right_click(session);
    session.frame(4);
    EXPECT_TRUE(session.ended());
}

} // namespace
} // namespace kelu
