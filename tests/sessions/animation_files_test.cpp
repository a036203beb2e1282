// SPDX-License-Identifier: MIT
// Animations between the frames and files, by mouse and keys: what is asked, what is told, and that nothing is lost.
#include "imagefile/apng.h"
#include "imagefile/formats.h"
#include "imagefile/gif_animation.h"
#include "imagefile/png.h"
#include "platform/files.h"
#include "runtime/animation.h"
#include "runtime/failure_reports.h"
#include "runtime/grid.h"
#include "runtime/pixels.h"
#include "screens/animation_slots.h"
#include "screens/browser_slots.h"
#include "support/frames.h"
#include "support/pictures.h"
#include "support/screen_session.h"
#include "workspace/folder.h"
#include "workspace/frame_cache.h"
#include "workspace/sprite_sheet.h"
#include <filesystem>

namespace kelu {

using namespace test;

namespace fs = std::filesystem;

namespace {

enum { FAILURE_WHAT = 122, FAILURE_WHERE, FAILURE_WHY };
enum { OVER_WINDOW = 120, DIALOG_OVER_WINDOW_OKAY = 122, ANSWER_1 = 124, ANSWER_2, PROGRESS_CANCEL = 3 };
constexpr int opaque = static_cast<int>(0xff000000U);

/// Pictures of a file with their times in hundredths.
struct Seen {
    std::vector<Bitmap> pictures;
    std::vector<int> hundredths;
};

Seen seen_in(const std::string& name)
{
    Seen seen;
    Bytes bytes;
    platform::read_file(name, 1 << 20, bytes);
    const auto add = [&seen](const Bitmap& picture, int duration) {
        seen.pictures.push_back(picture.copy());
        seen.hundredths.push_back(duration / units_per_hundredth);
        return true;
    };
    name.ends_with("gif") || name.ends_with("GIF") ? read_gif_animation(bytes, add) : read_apng(bytes, add);
    return seen;
}

/// A session in a folder of pictures, with four frames of which three are tagged, and the animation screen open.
class AnimationFiles : public testing::Test {
protected:
    AnimationFiles()
    {
        folder_ = session_.folder() + "/pictures";
        fs::create_directories(folder_);
        fs::current_path(folder_);
        make_frames(4);
        replace_frame(50, 30, 0x2040c0);
        for (int y = 0; y < 10; ++y)
            std::fill_n(row(store.alpha_bitmap, y), 50, 0);
        fs::current_path(folder_);
        animation.anim_speed = 1;
        for (const int frame : {0, 1, 3}) {
            tag_of(frame) = 1;
            animation.anim_delay[static_cast<std::size_t>(frame)] = 11 + 12 * frame; // 1, 2 and 4 tenths
        }
        animation.anim_count = build_anim_list();
        session_.key(KEY_Z, {KEY_LSHIFT});
    }
    /// Runs the browser behind a button to its end, with an answer to the question that follows and looks so.
    void choose(int button, const std::string& name, int answer = -1, const std::string& golden = {})
    {
        session_.click(button);
        choose_file(session_, name);
        EXPECT_TRUE(golden.empty() || matches_golden(window(OVER_WINDOW), golden));
        if (answer >= 0) session_.click(answer);
        session_.frames_until([] { return menus.menu_id == MENU_ANIMATION; });
    }
    Bitmap window(int slot) const
    {
        Bitmap part(gui.w[slot], gui.h[slot]);
        blit(session_.picture(), part, gui.x[slot], gui.y[slot], 0, 0, part.width(), part.height());
        return part;
    }
    static std::string told() { return menus.status_reason; }

    Session session_{plain_home};
    std::string folder_;
};

} // namespace

TEST_F(AnimationFiles, SavesTheTaggedFramesAsTheyPlay)
{
    choose(SLOT_SAVE, "walk");
    EXPECT_EQ(menus.status_message, TIP_SAVED);
    EXPECT_EQ(told(), "WALK.GIF");
    const Seen gif = seen_in("walk.GIF");
    ASSERT_EQ(gif.pictures.size(), 3U);
    EXPECT_EQ(gif.hundredths, (std::vector<int>{10, 20, 40}));
    EXPECT_EQ(gif.pictures[0].width(), 320);
    EXPECT_EQ(row(gif.pictures[0], 20)[40], opaque | 0x2040c0) << "the frame in memory, as it is now";
    EXPECT_EQ(row(gif.pictures[0], 5)[40], 0) << "with its alpha";
    EXPECT_EQ(row(gif.pictures[0], 20)[60], 0) << "and nothing where it ends";
    EXPECT_EQ(row(gif.pictures[2], 100)[30], opaque | frame_color(3));

    choose(SLOT_SAVE, "walk.png", ANSWER_1);
    const Seen png = seen_in("walk.png");
    ASSERT_EQ(png.pictures.size(), 3U);
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_EQ(difference(plain_nothing(png.pictures[i]), gif.pictures[i]), "") << i;

    sheet_settings = {.spacing_x = 2, .spacing_y = 3, .columns = 2};
    choose(SLOT_SAVE, "sheet.png", ANSWER_2);
    const Bitmap sheet = load_png("sheet.png");
    EXPECT_EQ(sheet.width(), 2 * 320 + 2);
    EXPECT_EQ(sheet.height(), 2 * 240 + 3);
    EXPECT_EQ(row(sheet, 100)[330], opaque | frame_color(1));
    EXPECT_EQ(row(sheet, 343)[30], opaque | frame_color(3));
    EXPECT_EQ(row(sheet, 100)[320], 0);
    EXPECT_EQ(animation.anim_count, 3);
}

TEST_F(AnimationFiles, LeavesNoHalfFileAndSaysWhy)
{
    std::ofstream("walk.gif") << "old";
    choose(SLOT_SAVE, "walk.gif");
    session_.click(DIALOG_OVER_WINDOW_OKAY);
    ASSERT_TRUE(session_.frames_until([] { return gui.kind[PROGRESS_CANCEL - 1] == KIND_PROGRESS; }));
    EXPECT_TRUE(matches_golden(session_.picture(), "progress"));
    session_.key(KEY_ESC);
    session_.frames_until([] { return menus.menu_id == MENU_ANIMATION; });
    EXPECT_EQ(menus.status_message, TIP_CALLED_OFF);
    EXPECT_EQ(fs::file_size("walk.gif"), 3U);
    EXPECT_EQ(std::distance(fs::directory_iterator("."), fs::directory_iterator()), 1) << "nothing else is left";

    choose(SLOT_SAVE, "walk.bmp");
    EXPECT_EQ(menus.status_message, TIP_SAVE_FAILED);
    EXPECT_NE(told().find("GIF OR PNG"), std::string::npos);
    choose(SLOT_SAVE, "nowhere/walk.gif");
    EXPECT_STREQ(gui.ptr[FAILURE_WHAT], "THE FILE COULDN'T BE SAVED!") << "told at once";
    EXPECT_TRUE(std::string(gui.ptr[FAILURE_WHERE]).ends_with("/NOWHERE/WALK.GIF"));
    EXPECT_STREQ(gui.ptr[FAILURE_WHY], "<NO SUCH FILE>");
    session_.key(KEY_ESC);
    EXPECT_EQ(menus.menu_id, MENU_ANIMATION);
    EXPECT_FALSE(take_failure_report());
    session_.click(SLOT_NONE);
    session_.click(SLOT_SAVE);
    EXPECT_EQ(menus.menu_id, MENU_ANIMATION);
    EXPECT_EQ(menus.status_message, TIP_NO_TAGGED_FRAMES);
}

TEST_F(AnimationFiles, BringsTheSameFramesBackBehindTheLast)
{
    choose(SLOT_SAVE, "walk.png", ANSWER_1);
    const Seen saved = seen_in("walk.png");
    choose(SLOT_LOAD, "walk.png");
    EXPECT_EQ(menus.status_message, TIP_LOADED);
    EXPECT_EQ(told(), "3 FRAMES");
    ASSERT_EQ(store.frame_count, 7);
    EXPECT_EQ(animation.anim_count, 6);
    EXPECT_EQ(animation.anim_delay[4], 11);
    EXPECT_EQ(animation.anim_delay[6], 47);
    session_.click(SLOT_CANCEL);
    EXPECT_EQ(animation.anim_count, 6) << "CANCEL gives back tags, not frames";
    EXPECT_EQ(store.current_frame, 0);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(difference(read_stored_frame("../WORKSPACE/" + frame_file(4 + i)),
                             saved.pictures[static_cast<std::size_t>(i)]),
                  "")
            << i;
    session_.restart();
    EXPECT_EQ(store.frame_count, 7);
    EXPECT_EQ(animation.anim_count, 6);
    EXPECT_EQ(animation.anim_delay[5], 23);
}

TEST_F(AnimationFiles, CutsASheetByTheGrid)
{
    Bitmap sheet = paint(8 + 3 * 16 - 5, 4 + 2 * 12,
                         [](int x, int y) { return x >= 24 && y >= 16 ? 0 : opaque | pack_rgb(x, y, 0); });
    save_png("sheet.png", sheet);
    grid.grid_on = 1;
    grid.grid_w = 16;
    grid.grid_h = 12;
    grid.grid_off_x = 8;
    grid.grid_off_y = 4;
    choose(SLOT_LOAD, "sheet.png");
    ASSERT_EQ(store.frame_count, 8)
        << "three in the first row, one in the second, and the empty ones at the end don't count";
    const Bitmap last = read_stored_frame("../WORKSPACE/" + frame_file(7));
    EXPECT_EQ(last.width(), 16);
    EXPECT_EQ(last.height(), 12);
    EXPECT_EQ(row(last, 2)[3], opaque | pack_rgb(8 + 3, 16 + 2, 0));
    EXPECT_EQ(row(read_stored_frame("../WORKSPACE/" + frame_file(6)), 0)[15], 0) << "beyond the edge there is nothing";
    grid.grid_on = 0;
    choose(SLOT_LOAD, "sheet.png");
    EXPECT_EQ(store.frame_count, 9);
}

TEST_F(AnimationFiles, TellsBeforeWhatDoesNotFitAndRefusesAllOfABadFile)
{
    choose(SLOT_SAVE, "walk.gif");
    const auto before = frame_files(session_);
    for (const auto size : {fs::file_size("walk.gif") - 60, uintmax_t{20}}) {
        fs::copy_file("walk.gif", "bad.gif", fs::copy_options::overwrite_existing);
        fs::resize_file("bad.gif", size);
        choose(SLOT_LOAD, "bad.gif");
        EXPECT_EQ(menus.status_message, TIP_LOAD_FAILED);
        EXPECT_EQ(store.frame_count, 4);
    }
    EXPECT_EQ(frame_files(session_), before);
    insert_frames(0, 93, INSERT_BLANKS);
    fs::current_path(folder_);
    choose(SLOT_LOAD, "walk.gif");
    EXPECT_EQ(store.frame_count, 100) << "all of them fit, and nothing is asked";
    delete_frames(98, 2);
    fs::current_path(folder_);
    struct Case {
        int answer;
        const char* room;
        int frames; ///< afterwards
    };
    for (const auto& [answer, room, frames] :
         {Case{ANSWER_2, "2", 98}, Case{ANSWER_1, "2", 100}, Case{ANSWER_1, "NONE", 100}}) {
        choose(SLOT_LOAD, "walk.gif", answer, "room_for_" + std::string(room));
        EXPECT_EQ(store.frame_count, frames);
    }
}

} // namespace kelu
