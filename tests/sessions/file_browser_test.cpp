// SPDX-License-Identifier: MIT
// The file browser by mouse and keys: what a click, a name and a place stand for, and what is asked before a file goes.
#include "draw/touched.h"
#include "imagefile/formats.h"
#include "imagefile/png.h"
#include "platform/files.h"
#include "platform/places.h"
#include "runtime/browser_list.h"
#include "runtime/browser_state.h"
#include "screens/browser_listing.h"
#include "screens/browser_places.h"
#include "screens/browser_slots.h"
#include "screens/dispatch.h"
#include "support/screen_session.h"
#include "workspace/state.h"
#include <allegro.h>
#include <filesystem>
#include <fstream>
#include <tuple>

namespace kelu {

using namespace test;

namespace fs = std::filesystem;

namespace {

enum { PIC_RESTORE = 3, PIC_SAVE = 7, FAVORITES_SAVE = 2, FAVORITES_LOAD = 3 };
enum { QUALITY_OKAY = 103, ASK_OKAY = 122, ASK_CANCEL = 123, FAILURE_WHY = 124, FAILURE_OKAY = 125 };
constexpr int no_filter = -1, gif = 0, png = 3, jpg = 4; ///< buttons of the filters
constexpr int red = 0xc02020, blue = 0x2040c0, green = 0x20a040;

/// A session that stands in a folder of pictures.
class Browser : public testing::Test {
protected:
    Browser() : folder_(session_.folder() + "/pictures")
    {
        fs::create_directories(folder_ + "/Sub");
        fs::current_path(folder_);
        save_png("Hero.png", Bitmap(8, 6, red));
        save_png("HERO.PNG", Bitmap(9, 6, blue));
        save_png("Sky.png", Bitmap(10, 6, green));
        std::ofstream("damaged.gif") << "no picture";
        save_png("f\xc3\xbc\n.png", Bitmap(7, 6, green));
        platform::places = {};
        platform::places.drive_root['C' - 'A'] = "/";
        platform::places.drive_root['H' - 'A'] = folder_;
    }

    void click_row(const std::string& name)
    {
        for (int row = 0; row < browser_listing.browser_count; ++row) {
            if (browser_listing.true_name[static_cast<std::size_t>(row)] != name) continue;
            session_.click_at(gui.x[BROWSER_LIST] + 20, gui.y[BROWSER_LIST] + 4 + 6 * row);
            return;
        }
        FAIL() << name << " is not listed";
    }
    void load(const std::string& name)
    {
        session_.key(KEY_F9);
        click_row(name);
        session_.click(BROWSER_OKAY);
    }
    void enter(int field, const std::string& name)
    {
        retype(session_, field, name);
        session_.key(KEY_ENTER);
    }
    static std::string text(int field) { return field_text_of(field).data(); }
    static std::string rows()
    {
        std::string all;
        for (int row = 0; row < browser_listing.browser_count; ++row)
            all += std::string(browser_listing.browser_list[static_cast<std::size_t>(row)].data()) + " ";
        return all;
    }
    static int color_of(const std::string& name)
    {
        const Bitmap picture = load_png(name.c_str());
        return picture ? row(picture, 1)[1] & 0xffffff : -1;
    }
    static int frame_color() { return row(store.frame_bitmap, 1)[1]; }

    Session session_;
    std::string folder_;
};

} // namespace

TEST_F(Browser, ListsFiltersAndGoesPlaces)
{
    session_.key(KEY_F9);
    EXPECT_EQ(rows(), "\\.. \\SUB DAMAGED.GIF F??.PNG HERO.PNG HERO.PNG SKY.PNG ");
    session_.click(BROWSER_FILTER_0 + png);
    click_row("Sky.png");
    show_in_field(BROWSER_PATH, "/HOME/ME/PICTURES");
    EXPECT_TRUE(looks_like(session_, "file_browser")) << "lit: the filter, and the longest root that holds the folder";
    show_present_folder();
    session_.click(BROWSER_FILTER_0);
    EXPECT_EQ(rows(), "\\.. \\SUB DAMAGED.GIF ");
    session_.click_at(gui.x[BROWSER_LIST] + 20, gui.y[BROWSER_LIST] + 4 + 6 * 3);
    EXPECT_EQ(text(BROWSER_FILE), "SKY.PNG") << "there is nothing below the last file";
    session_.click(BROWSER_FILTER_0);
    click_row("Sub");
    for (int i = 0; i < 13; ++i)
        std::ofstream("file" + std::to_string(i)) << "x";
    enter(BROWSER_PATH, ".");
    EXPECT_EQ(gui.scroll_max[BROWSER_LIST], 2);
    session_.click(BROWSER_HOME);
    click_row("..");
    EXPECT_EQ(platform::working_directory(), folder_);
    session_.click_at(100, 50, RIGHT_BUTTON);
    session_.key(KEY_F5);
    EXPECT_EQ(platform::working_directory(), folder_ + "/Sub") << "opens at home";
    session_.click(BROWSER_HOME);
    EXPECT_EQ(browser_state.home_image_dir, "");
    session_.click(BROWSER_DRIVE_0);
    EXPECT_EQ(platform::working_directory(), "/");
    EXPECT_FALSE(rows().starts_with("\\.. "));
}

TEST_F(Browser, LoadsTheFileThatWasClickedOrTyped)
{
    for (const auto& [name, color] : {std::pair{"Hero.png", red}, {"HERO.PNG", blue}}) {
        session_.key(KEY_F9);
        click_row(name);
        EXPECT_EQ(text(BROWSER_FILE), "HERO.PNG");
        EXPECT_EQ(row(screen_state.preview_bitmap, 40)[40], color) << name;
        session_.click(BROWSER_FILTER_0 + png); // the list comes anew, the field stands
        session_.click(BROWSER_OKAY);
        EXPECT_EQ(frame_color(), color) << name;
    }
    session_.key(KEY_F9);
    click_row("Sky.png");
    session_.frame(60);
    click_row("Sky.png");
    EXPECT_EQ(menus.menu_id, MENU_BROWSER) << "too slow for a double click";
    click_row("Sky.png");
    EXPECT_EQ(frame_color(), green);
    for (const auto& [typed, color] : {std::pair{"sub/../hero.png", blue}, {"SKY.PNG", green}}) {
        session_.key(KEY_F9);
        enter(BROWSER_FILE, typed);
        EXPECT_EQ(frame_color(), color) << typed;
    }
    load("damaged.gif");
    EXPECT_EQ(menus.status_message, TIP_LOAD_FAILED);
}

TEST_F(Browser, PathsThatCantBeOpenedStayToBeMended)
{
    session_.key(KEY_F5);
    enter(BROWSER_PATH, "sub/no/such");
    EXPECT_EQ(text(BROWSER_PATH), "sub/no/such") << "more than the last part is missing";
    EXPECT_EQ(menus.status_message, TIP_FOLDER_NOT_OPENED);
    EXPECT_EQ(menus.status_reason, "NO SUCH FOLDER");
    retype(session_, BROWSER_FILE, "lost.png");
    session_.click(BROWSER_OKAY);
    EXPECT_EQ(menus.menu_id, MENU_BROWSER) << "where should it go";
    enter(BROWSER_PATH, "sub/new one");
    ASSERT_EQ(menus.menu_id, MENU_DIALOG);
    EXPECT_EQ(told_text, "<NEW ONE>");
    session_.click(ASK_CANCEL);
    EXPECT_FALSE(fs::exists("Sub/new one"));
    session_.click(BROWSER_OKAY); // goes there first, too
    session_.click(ASK_OKAY);
    EXPECT_TRUE(fs::exists(folder_ + "/Sub/new one/lost.png"));
    session_.key(KEY_F5);
    retype(session_, BROWSER_PATH, "../nothing");
    session_.click(BROWSER_FILE); // a click alone opens nothing
    show_present_folder();
    click_row("lost.png");
    EXPECT_EQ(text(BROWSER_PATH), browser_state.browser_dir);
}

TEST_F(Browser, ProposesTheNameOfTheLastPicture)
{
    load("f\xc3\xbc\n.png");
    session_.key(KEY_F5);
    EXPECT_EQ(text(BROWSER_FILE), "") << "the field has not all letters of that one";
    session_.type("walk");
    session_.click(BROWSER_FILTER_0 + png);
    session_.click(BROWSER_OKAY);
    EXPECT_EQ(menus.status_message, TIP_SAVED);
    EXPECT_EQ(menus.status_reason, "WALK.PNG");
    session_.key(KEY_F5);
    click_row("Sub");
    EXPECT_EQ(text(BROWSER_FILE), "walk.PNG") << "a folder is no name";
    session_.type("run"); // into the marked text's place
    EXPECT_EQ(text(BROWSER_FILE), "run");
    session_.click(BROWSER_CANCEL);
    session_.key(KEY_F5);
    EXPECT_EQ(text(BROWSER_FILE), "walk.PNG") << "nothing was saved since";
    session_.move(5, 60);
    session_.key(KEY_LEFT); // it is no longer marked as a whole
    session_.key(KEY_BACKSPACE);
    EXPECT_EQ(text(BROWSER_FILE), "walk.PG");
    session_.click(BROWSER_CANCEL);
    session_.key(KEY_F5);
    session_.key(KEY_BACKSPACE);
    EXPECT_EQ(text(BROWSER_FILE), "");
}

TEST_F(Browser, AKeyBringsTheReplacedPictureBack)
{
    row(store.frame_bitmap, 1)[1] = 0x55aa55; // painted since the frame was fetched
    touch_frame();
    view.pan_x = 12;
    load("Hero.png"); // looked for, and found at the second go
    load("Sky.png");
    EXPECT_EQ(menus.status_reason, "SKY.PNG. R BRINGS THE OLD PICTURE BACK");
    session_.key(KEY_R);
    EXPECT_EQ(frame_color(), 0x55aa55);
    EXPECT_EQ(view.pan_x, 12) << "in the view that it was left with";
    hotkeys.hotkey_table[ACTION_PIC_RESTORE].primary = 0;
    load("Sky.png");
    EXPECT_EQ(menus.status_reason, "SKY.PNG. PIC, RESTORE BRINGS THE OLD PICTURE BACK");
    row(store.frame_bitmap, 1)[1] = 0x112233; // painted on what was loaded: that is worth keeping
    touch_frame();
    load("Hero.png");
    session_.click(HOME_PIC);
    session_.click(PIC_RESTORE);
    EXPECT_EQ(frame_color(), 0x112233);
}

TEST_F(Browser, TheLitFilterSuppliesTheEndingOfASavedName)
{
    using Row = std::tuple<int, const char*, const char*>;
    for (const auto& [filter, typed, file] :
         {Row{png, "walk", "walk.PNG"}, Row{png, "walk.v2", "walk.v2.PNG"}, Row{png, "run.gif", "run.gif"},
          Row{gif, "jump", "jump.GIF"}, Row{jpg, "photo.jpeg", "photo.jpeg"}, Row{no_filter, "plain", "plain"}}) {
        open_entry(session_, HOME_PIC, PIC_SAVE, MENU_BROWSER);
        if (filter != no_filter) session_.click(BROWSER_FILTER_0 + filter);
        enter(BROWSER_FILE, typed);
        if (menus.menu_id == MENU_JPEG_QUALITY) session_.click(QUALITY_OKAY);
        EXPECT_TRUE(fs::exists(file)) << file;
    }
    EXPECT_EQ(format_from_signature("photo.jpeg"), FORMAT_JPG);
    session_.key(KEY_F9);
    session_.click(BROWSER_FILTER_0 + jpg);
    EXPECT_EQ(rows(), "\\.. \\SUB PHOTO.JPEG ") << "a filter lists every ending of its format";
}

TEST_F(Browser, AsksBeforeTheFileThatWouldGo)
{
    replace_frame(7, 5, 0x123456);
    session_.key(KEY_F5);
    enter(BROWSER_FILE, "sky.png");
    ASSERT_EQ(menus.menu_id, MENU_DIALOG);
    session_.move(5, 60);
    session_.key(KEY_X);
    session_.click(ASK_CANCEL);
    EXPECT_EQ(menus.menu_id, MENU_BROWSER);
    EXPECT_EQ(text(BROWSER_FILE), "sky.png") << "keys in the dialog are not the field's";
    EXPECT_EQ(color_of("Sky.png"), green);
    session_.click(BROWSER_OKAY);
    session_.click(ASK_OKAY);
    EXPECT_EQ(color_of("Sky.png"), 0x123456);
    EXPECT_FALSE(fs::exists("sky.png")) << "no second file beside the one that was asked about";
    session_.key(KEY_F5);
    click_row("Hero.png");
    session_.click(BROWSER_OKAY);
    session_.click(ASK_OKAY);
    EXPECT_EQ(color_of("Hero.png"), 0x123456);
    EXPECT_EQ(color_of("HERO.PNG"), blue);
    session_.key(KEY_F5);
    enter(BROWSER_FILE, "new.png");
    EXPECT_TRUE(fs::exists("new.png")) << "a new name as it was typed";
    session_.key(KEY_F5);
    enter(BROWSER_FILE, "");
    EXPECT_STREQ(gui.ptr[FAILURE_WHY], "<NO SUCH FILE>");
    session_.click(FAILURE_OKAY);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(gui.kind[FAILURE_WHY], 0);
}

TEST_F(Browser, KeepsFavorites)
{
    load("Sky.png");
    toolbox.extended_favorites[5] = green;
    session_.key(KEY_P);
    session_.click(FAVORITES_SAVE);
    EXPECT_EQ(text(BROWSER_FILE), "") << "the last picture's name is for pictures";
    enter(BROWSER_FILE, "mine");
    toolbox.extended_favorites[5] = red;
    session_.click(FAVORITES_LOAD);
    click_row("mine");
    session_.click(BROWSER_OKAY);
    EXPECT_EQ(int(toolbox.extended_favorites[5]), green);
}

TEST_F(Browser, GoesBackToTheLastFolder)
{
    session_.key(KEY_F9);
    click_row("Sub");
    session_.click(BROWSER_CANCEL);
    write_workspace_state("current.spa", true); // leaves the folder of the process
    session_.key(KEY_F9);
    EXPECT_EQ(platform::working_directory(), folder_ + "/Sub") << "where the user was";
    session_.restart();
    EXPECT_EQ(platform::working_directory(), folder_ + "/Sub");
}

} // namespace kelu
