// SPDX-License-Identifier: MIT
// What every action owes besides its pixels: steps of undo, the order of the frames and all that belongs to them, the
// state on disk, a word on the status line; and that it keeps away where it must not act.
#include "gui/build.h"
#include "imagefile/clipboard_picture.h"
#include "loop/actions.h"
#include "runtime/animation.h"
#include "runtime/shows.h"
#include "screens/action_table.h"
#include "screens/animation_slots.h"
#include "support/frames.h"
#include "support/history.h"
#include "workspace/folder.h"
#include "workspace/frame_cache.h"
#include "workspace/frame_order.h"
#include "workspace/frame_store.h"
#include "workspace/merged.h"
#include "workspace/running_work.h"
#include "workspace/state.h"
#include "workspace/thumbnails.h"
#include <fstream>
#include <iterator>
#include <set>
#include <utility>

namespace kelu {

using namespace test;

namespace {

enum Owes : unsigned {
    NOTHING = 0,
    UNDO = 1,    ///< changes the frame; the steps back lead to the picture of before
    COMMITS = 2, ///< changes the frame for good
    SIZE = 4,    ///< gives the frame another size
    ROLE = 8,    ///< exchanges the frame with its alpha
    STATE = 16,  ///< writes the state
    FIELDS = 32, ///< acts while a text field has the keys
    ASKS = 64    ///< opens a screen that doesn't end by OKAY alone
};

/// Where an entry of a column stands.
struct Entry {
    int column, slot;
};
constexpr Entry no_entry{-1, -1};

/// An action that may change the frame. `count` and `current` are those of a workspace of three frames after it has
/// acted on the second.
struct Row {
    int action;
    unsigned owes = NOTHING;
    int says = TIP_NONE;
    Entry entry = no_entry;
    int count = 3, current = 1;
};

const Row rows[] = {
    {ACTION_CEL_GET, NOTHING, TIP_GRAB_FIRST, {HOME_CEL, 2}},
    {ACTION_CEL_CLIP, NOTHING, TIP_NONE, {HOME_CEL, 3}},
    {ACTION_CEL_PASTE, UNDO, TIP_CEL_REPOSITION, {HOME_CEL, 4}},
    {ACTION_CEL_BELOW, UNDO, TIP_CEL_REPOSITION, {HOME_CEL, 5}},
    {ACTION_CEL_1_COLOR, NOTHING, TIP_NONE, {HOME_CEL, 6}},
    {ACTION_CEL_TURN, UNDO, TIP_CEL_CENTER, {HOME_CEL, 7}},
    {ACTION_CEL_STRETCH, UNDO, TIP_STRETCH_FROM, {HOME_CEL, 8}},
    {ACTION_CEL_XFORM, NOTHING, TIP_NONE, {HOME_CEL, 9}},
    {ACTION_PIC_CLEAR, UNDO, TIP_NONE, {HOME_PIC, 2}},
    {ACTION_PIC_RESTORE, UNDO | FIELDS, TIP_NONE, {HOME_PIC, 3}},
    {ACTION_PIC_SHEET, SIZE, TIP_NONE, {HOME_PIC, 4}},
    {ACTION_PIC_TINT, COMMITS, TIP_NONE, {HOME_PIC, 5}},
    {ACTION_PIC_SAVE, ASKS},
    {ACTION_PIC_LOAD, ASKS},
    {ACTION_FRAME_CLONE, STATE, TIP_CLONED, {HOME_FRAME, 2}, 4},
    {ACTION_FRAME_INSERT, STATE, TIP_FRAME_CREATED, {HOME_FRAME, 3}, 4},
    {ACTION_FRAME_RESIZE, NOTHING, TIP_NONE, {HOME_FRAME, 4}},
    {ACTION_FRAME_DELETE, STATE, TIP_NONE, {HOME_FRAME, 5}, 2, 1},
    {ACTION_NEXT, NOTHING, TIP_NONE, no_entry, 3, 2},
    {ACTION_PREVIOUS, NOTHING, TIP_NONE, no_entry, 3, 0},
    {ACTION_FIRST, NOTHING, TIP_NONE, no_entry, 3, 0},
    {ACTION_LAST, NOTHING, TIP_NONE, no_entry, 3, 2},
    {ACTION_ANIMATE, NOTHING, TIP_NONE, {HOME_FRAME, 7}},
    {ACTION_FRAME_JUMP},
    {ACTION_PASTE, UNDO},
    {ACTION_UNDO},
    {ACTION_REDO},
    {ACTION_ALPHA_TOGGLE, ROLE},
    {ACTION_ALPHA_PREVIEW},
    {ACTION_PLAY, NOTHING, TIP_NONE, {HOME_FRAME, 8}},
    {ACTION_EXIT, ASKS},
    {ACTION_ANIMATION_SAVE, ASKS},
    {ACTION_ANIMATION_LOAD, ASKS},
};

constexpr int hot_key = KEY_F8; ///< the action in question has it, and no other

/// A workspace in which the actions run.
struct Situation {
    const char* name;
    int frames, current;
    bool alpha = false, hidden = false; ///< in alpha editing; without the menus
};
constexpr Situation three_frames{"ThreeFrames", 3, 1};
constexpr Situation situations[] = {three_frames,
                                    {"OneFrame", 1, 0},
                                    {"HundredFrames", max_frames, 1},
                                    {.name = "AlphaEditing", .frames = 3, .current = 1, .alpha = true},
                                    {.name = "HiddenMenus", .frames = 3, .current = 1, .hidden = true}};

/// Each frame has a number in its first pixel, and a pan, a tag and a cached picture that tell the same.
int number_of(BITMAP* picture) { return (row(picture, 0)[0] & 0xffffff) >> 16; }

class ActionRules : public HistorySession {
protected:
    void prepare(const Situation& at)
    {
        if (store.alpha_edit_mode != 0) switch_alpha_mode();
        if (store.frame_count > at.frames) delete_frames(at.frames, store.frame_count - at.frames);
        if (store.frame_count < at.frames)
            insert_frames(store.frame_count - 1, at.frames - store.frame_count, INSERT_BLANKS);
        clear_frame_cache();
        for (int frame = 0; frame < at.frames; ++frame) {
            tag_of(frame) = is_tagged(at, frame + 1);
            if (frame >= 3) continue;
            fetch_frame(store.current_frame, frame, 0);
            replace_frame(320, 240, 0x010101 * frame);
            number_frame(frame + 1);
            view.pan_x = 10 * frame + 10;
            view.pan_y = 5 * frame + 5;
            keep_view(frame);
        }
        copy_to_clipboard(Bitmap(320, 240, 0x0000ff));
        fetch_frame(store.current_frame, at.current, 0);
        animation.anim_count = build_anim_list();
        fill_frame_cache();
        if (at.alpha) switch_alpha_mode();
        scatter_frame();
        at.alpha ? turn_grey() : number_frame(at.current + 1);
        touch_frame();
        reset_undo_slots();
        something_shows();
        session.frame(2);
        if ((gui.hidden[0] != 0) != at.hidden) session.key(KEY_BACKSPACE);
    }
    static bool is_tagged(const Situation& at, int number) { return at.frames > 1 && (number == 1 || number == 3); }
    /// As alpha is, once it has been written.
    static void turn_grey()
    {
        for (int y = 0; y < store.frame_bitmap.height(); ++y)
            for (int x = 0; x < store.frame_bitmap.width(); ++x)
                row(store.frame_bitmap, y)[x] = (row(store.frame_bitmap, y)[x] & 0xff) * 0x010101;
    }
    static void number_frame(int number) { row(store.frame_bitmap, 0)[0] = number << 16; }

    void run(const Row& action, bool by_column)
    {
        if (by_column) {
            session.click(action.entry.column);
            session.click(action.entry.slot);
            return;
        }
        const HotkeyRow kept = std::exchange(hotkeys.hotkey_table[action.action], {});
        hotkeys.hotkey_table[action.action].primary = hot_key;
        session.key(hot_key);
        hotkeys.hotkey_table[action.action] = kept;
    }

    /// View, thumbnail, tag and cached picture of every frame that has been left.
    static void expect_followers(const Situation& at)
    {
        settle_running_work();
        const platform::DirectoryVisit visit("WORKSPACE");
        for (int frame = 0; frame < store.frame_count; ++frame) {
            const Bitmap picture = frame == store.current_frame ? Bitmap() : read_stored_frame(frame_file(frame));
            const int number = picture ? number_of(picture) : 0;
            if (number == 0) continue;
            const auto i = static_cast<std::size_t>(frame);
            EXPECT_EQ((Point{view.frame_pan_x[i], view.frame_pan_y[i]}), (Point{10 * number, 5 * number}))
                << "view of frame " << frame;
            EXPECT_EQ(tag_of(frame), is_tagged(at, number)) << "tag of frame " << frame;
            const Bitmap sheet = store.nail_sheet.copy();
            draw_nail(frame, picture);
            EXPECT_EQ(difference(store.nail_sheet, sheet), "") << "thumbnail of frame " << frame;
            EXPECT_TRUE(!cached_frame(frame) || number_of(cached_frame(frame)) == number) << "cache of " << frame;
        }
    }

    static void expect_state_on_disk()
    {
        std::ifstream file("WORKSPACE/current.spa", std::ios::binary);
        const Bytes bytes{std::istreambuf_iterator<char>(file), {}};
        EXPECT_TRUE(bytes == workspace_state_bytes()) << "the state on disk is older";
    }

    void expect_owed(const Row& action, const Situation& at, bool by_column)
    {
        SCOPED_TRACE("action " + std::to_string(action.action) + (by_column ? " by column" : ""));
        prepare(at);
        const Bitmap before = store.frame_bitmap.copy();
        run(action, by_column);
        if (at.hidden) {
            EXPECT_TRUE(gui.hidden[0] != 0 || gui.active[0] == 0 || menus.menu_id != MENU_DRAW)
                << "the menus come back";
        } else if (at.frames == three_frames.frames) {
            EXPECT_EQ(menus.status_message, action.says);
        }
        if ((action.owes & STATE) != 0 && menus.menu_id == MENU_DRAW) expect_state_on_disk();
        answer();
        ASSERT_EQ(menus.menu_id, MENU_DRAW);
        const int moved = action.count - three_frames.frames;
        const int count = std::clamp(at.frames + moved, 1, max_frames);
        EXPECT_EQ(store.frame_count, count);
        if (at.frames == three_frames.frames) {
            EXPECT_EQ(store.current_frame, action.current);
        }
        if (count > at.frames) {
            EXPECT_EQ(view.frame_pan_x[static_cast<std::size_t>(at.current) + 1], 10 * (at.current + 1))
                << "a new frame has the view of the one before";
        }
        expect_followers(at);
        const bool shows_another = store.current_frame != at.current || (moved < 0 && count != at.frames);
        if (shows_another || (action.owes & (SIZE | ROLE)) != 0) return;
        expect_whole_history(before, (action.owes & UNDO) != 0 ? 1 : 0, (action.owes & COMMITS) == 0);
        if ((action.owes & COMMITS) == 0) return;
        while (snapshots() > 0)
            undo_step();
        EXPECT_NE(difference(store.frame_bitmap, before), "");
    }

    /// A key that must do nothing.
    void expect_nothing(const Row& action)
    {
        SCOPED_TRACE("action " + std::to_string(action.action));
        const Bitmap before = store.frame_bitmap.copy();
        run(action, false);
        EXPECT_EQ(difference(store.frame_bitmap, before), "");
        EXPECT_EQ(store.frame_count, three_frames.frames);
        EXPECT_EQ(store.current_frame, three_frames.current);
        EXPECT_EQ(snapshots(), 0);
        EXPECT_EQ(menus.status_message, TIP_NONE);
        ASSERT_EQ(menus.menu_id, MENU_DRAW);
    }
};

class Owed : public ActionRules, public testing::WithParamInterface<Situation> {};

} // namespace

TEST_P(Owed, EveryActionLeavesWhatItShould)
{
    for (const Row& action : rows) {
        for (const bool by_column : {false, true}) {
            const bool has_entry = action.entry.column >= 0 && GetParam().name == three_frames.name;
            if ((action.owes & ASKS) != 0 || (by_column && !has_entry)) continue;
            expect_owed(action, GetParam(), by_column);
            if (HasFatalFailure()) return;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Actions, Owed, testing::ValuesIn(situations),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(ActionRules, KeepAwayFromAPictureThatIsLent)
{
    prepare(three_frames);
    const auto files = frame_files(session);
    ++action_state.frame_locked;
    for (const Row& action : rows)
        expect_nothing(action);
    --action_state.frame_locked;
    EXPECT_TRUE(frame_files(session) == files);
    std::set<int> known, change_frame;
    for (const Row& action : rows)
        known.insert(action.action);
    for (const ActionRow& action : action_table())
        if ((action.flags & CHANGES_FRAME) != 0) change_frame.insert(action.action);
    EXPECT_EQ(known, change_frame) << "a row is missing";
}

TEST_F(ActionRules, LeaveTheKeysToATextField)
{
    prepare(three_frames);
    build_slot(field_row(gui_slots - 1, 20, 20, 40, 4, 8), 0, 0);
    gui_logic.gui_key_focus = gui_slots - 1;
    for (const Row& action : rows)
        if ((action.owes & (FIELDS | ASKS)) == 0) expect_nothing(action);
    const Bitmap before = store.frame_bitmap.copy();
    run({ACTION_PIC_RESTORE}, false);
    EXPECT_NE(difference(store.frame_bitmap, before), "") << "keys that no field takes act";
}

} // namespace kelu
