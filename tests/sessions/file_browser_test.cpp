// SPDX-License-Identifier: MIT
// The file browser by mouse and keys: what a click, a name and a place stand for, and what is asked before a file goes.
#include "draw/touched.h"
#include "gui/build.h"
#include "gui/field.h"
#include "imagefile/formats.h"
#include "imagefile/png.h"
#include "platform/files.h"
#include "platform/places.h"
#include "runtime/browser_list.h"
#include "runtime/browser_state.h"
#include "runtime/text_settings.h"
#include "screens/browser_listing.h"
#include "screens/browser_places.h"
#include "screens/browser_slots.h"
#include "screens/dispatch.h"
#include "screens/file_browser.h"
#include "support/screen_session.h"
#include "workspace/state.h"
#include <allegro.h>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace kelu {

using namespace test;

namespace fs = std::filesystem;

namespace {

enum { PIC_RESTORE = 3, PIC_SAVE = 7, FAVORITES_SAVE = 2, FAVORITES_LOAD = 3 };
enum { ASK_OKAY = 122, ASK_CANCEL = 123 };
enum { FAILURE_WHY = 124, FAILURE_OKAY = 125 };
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
        std::ofstream("f\xc3\xbc\n.txt") << "text";
        platform::places = {};
        platform::places.drive_root['C' - 'A'] = "/";
        platform::places.drive_root['H' - 'A'] = folder_;
    }
    ~Browser() override { fs::current_path(session_.folder()); }

    void open(int key) { session_.key(key); }
    void click_row(const std::string& name)
    {
        for (int row = 0; row < browser_listing.browser_count; ++row) {
            if (browser_listing.true_name[static_cast<std::size_t>(row)] != name) continue;
            session_.click_at(gui.x[BROWSER_LIST] + 20, gui.y[BROWSER_LIST] + 4 + 6 * row);
            return;
        }
        FAIL() << name << " is not listed";
    }
    /// Types letters, digits, blanks and points over the text of a field.
    void enter(int field, const std::string& name)
    {
        session_.click(field);
        session_.key(KEY_END);
        while (!text(field).empty())
            session_.key(KEY_BACKSPACE);
        for (const char letter : name) {
            if (letter == '.' || letter == '/') {
                session_.key(letter == '.' ? KEY_STOP : KEY_SLASH);
            } else {
                session_.type({letter});
            }
        }
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
    open(KEY_F9);
    ASSERT_EQ(menus.menu_id, MENU_BROWSER);
    EXPECT_EQ(rows(), "\\.. \\SUB DAMAGED.GIF F??.TXT HERO.PNG HERO.PNG SKY.PNG ");
    EXPECT_EQ(gui.scroll_on[BROWSER_LIST], 0);
    EXPECT_EQ(gui.kind[BROWSER_DRIVE_0 + 1], KIND_BUTTON_LIT) << "the longest root that holds the folder";
    session_.click(BROWSER_FILTER_0 + 3);
    EXPECT_EQ(rows(), "\\.. \\SUB HERO.PNG HERO.PNG SKY.PNG ");
    click_row("Sky.png");
    show_in_field(BROWSER_PATH, "/HOME/ME/PICTURES");
    session_.move(5, 60);
    session_.frame(200);
    EXPECT_TRUE(matches_golden(session_.picture(), "file_browser"));
    show_present_folder();
    session_.click(BROWSER_FILTER_0);
    EXPECT_EQ(gui.kind[BROWSER_FILTER_0 + 3], KIND_BUTTON);
    EXPECT_EQ(rows(), "\\.. \\SUB DAMAGED.GIF ");
    session_.click(BROWSER_FILTER_0);
    click_row("Sub");
    EXPECT_EQ(rows(), "\\.. ");
    EXPECT_EQ(browser_state.browser_dir, platform::upper_case(folder_ + "/Sub"));
    for (int i = 0; i < 13; ++i)
        std::ofstream("file" + std::to_string(i)) << "x";
    enter(BROWSER_PATH, ".");
    session_.key(KEY_ENTER);
    EXPECT_EQ(gui.scroll_on[BROWSER_LIST], 1);
    EXPECT_EQ(gui.scroll_max[BROWSER_LIST], 2);
    session_.click(BROWSER_HOME);
    EXPECT_EQ(browser_state.home_image_dir, folder_ + "/Sub");
    EXPECT_EQ(gui.text_id[BROWSER_HOME], TEXT_FLOAT);
    click_row("..");
    session_.click_at(100, 50, RIGHT_BUTTON);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(platform::working_directory(), folder_);
    open(KEY_F5);
    EXPECT_EQ(platform::working_directory(), folder_ + "/Sub") << "opens at home";
    session_.click(BROWSER_HOME);
    EXPECT_EQ(browser_state.home_image_dir, "");
    session_.click(BROWSER_DRIVE_0);
    EXPECT_EQ(platform::working_directory(), "/");
    EXPECT_FALSE(rows().starts_with("\\.. "));
    session_.click(BROWSER_CANCEL);
}

TEST_F(Browser, LoadsTheFileThatWasClickedOrTyped)
{
    for (const auto& [name, color] : {std::pair{"Hero.png", red}, {"HERO.PNG", blue}}) {
        open(KEY_F9);
        click_row(name);
        EXPECT_EQ(text(BROWSER_FILE), "HERO.PNG");
        EXPECT_EQ(row(screen_state.preview_bitmap, 40)[40], color) << name;
        session_.click(BROWSER_FILTER_0 + 3); // the list comes anew, the field stands
        session_.click(BROWSER_OKAY);
        EXPECT_EQ(frame_color(), color) << name;
    }
    open(KEY_F9);
    click_row("Sky.png");
    session_.frame(60);
    click_row("Sky.png");
    EXPECT_EQ(menus.menu_id, MENU_BROWSER) << "too slow for a double click";
    click_row("Sky.png");
    EXPECT_EQ(frame_color(), green);
    for (const auto& [typed, color] : {std::pair{"sub/../hero.png", blue}, {"SKY.PNG", green}}) {
        open(KEY_F9);
        enter(BROWSER_FILE, typed);
        session_.key(KEY_ENTER);
        EXPECT_EQ(frame_color(), color) << typed;
    }
    open(KEY_F9);
    click_row("damaged.gif");
    session_.click(BROWSER_OKAY);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(menus.status_message, TIP_LOAD_FAILED);
    EXPECT_EQ(frame_color(), green);
    unsetenv("DISPLAY"); // the tester's own clipboard stays out of this
    session_.key(KEY_V, {KEY_LCONTROL});
    EXPECT_EQ(menus.status_message, TIP_CLIPBOARD_EMPTY);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(frame_color(), green);
}

TEST_F(Browser, PathsThatCantBeOpenedStayToBeMended)
{
    open(KEY_F5);
    enter(BROWSER_PATH, "sub/no/such");
    session_.key(KEY_ENTER);
    EXPECT_EQ(text(BROWSER_PATH), "sub/no/such") << "more than the last part is missing";
    EXPECT_EQ(menus.status_message, TIP_FOLDER_NOT_OPENED);
    EXPECT_EQ(menus.status_reason, "NO SUCH FOLDER");
    EXPECT_EQ(menus.menu_id, MENU_BROWSER);
    enter(BROWSER_FILE, "lost.png");
    session_.click(BROWSER_OKAY);
    EXPECT_EQ(menus.menu_id, MENU_BROWSER) << "where should it go";
    enter(BROWSER_PATH, "sub/new one");
    session_.key(KEY_ENTER);
    ASSERT_EQ(menus.menu_id, MENU_DIALOG);
    EXPECT_EQ(told_text, "<NEW ONE>");
    session_.click(ASK_CANCEL);
    EXPECT_FALSE(fs::exists("Sub/new one"));
    EXPECT_EQ(text(BROWSER_PATH), "sub/new one");
    session_.click(BROWSER_OKAY); // goes there first, too
    session_.click(ASK_OKAY);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(menus.status_message, TIP_SAVED);
    EXPECT_TRUE(fs::exists(folder_ + "/Sub/new one/lost.png"));
    EXPECT_FALSE(fs::exists(folder_ + "/lost.png"));
    open(KEY_F5);
    enter(BROWSER_PATH, "../nothing");
    session_.click(BROWSER_FILE); // a click alone opens nothing
    show_present_folder();
    click_row("lost.png");
    EXPECT_EQ(text(BROWSER_PATH), browser_state.browser_dir);
    session_.click(BROWSER_CANCEL);
}

TEST_F(Browser, ProposesTheNameOfTheLastPicture)
{
    replace_frame(7, 5, 0x123456);
    open(KEY_F5);
    EXPECT_EQ(text(BROWSER_FILE), "");
    session_.type("walk");
    session_.click(BROWSER_FILTER_0 + 3);
    session_.click(BROWSER_OKAY);
    EXPECT_EQ(menus.status_message, TIP_SAVED);
    EXPECT_EQ(menus.status_reason, "WALK.PNG");
    open(KEY_F5);
    EXPECT_EQ(text(BROWSER_FILE), "walk.PNG");
    click_row("Sub");
    EXPECT_EQ(text(BROWSER_FILE), "walk.PNG") << "a folder is no name";
    session_.key(KEY_R); // into the marked text's place
    EXPECT_EQ(text(BROWSER_FILE), "r");
    session_.type("un");
    EXPECT_EQ(text(BROWSER_FILE), "run");
    session_.click(BROWSER_CANCEL);
    open(KEY_F5);
    EXPECT_EQ(text(BROWSER_FILE), "walk.PNG") << "nothing was saved since";
    session_.move(5, 60);
    EXPECT_TRUE(gui_proposes_text(BROWSER_FILE));
    session_.key(KEY_LEFT);
    EXPECT_FALSE(gui_proposes_text(BROWSER_FILE));
    session_.key(KEY_BACKSPACE);
    EXPECT_EQ(text(BROWSER_FILE), "walk.PG");
    session_.click(BROWSER_CANCEL);
    open(KEY_F5);
    session_.key(KEY_BACKSPACE);
    EXPECT_EQ(text(BROWSER_FILE), "");
    session_.click(BROWSER_CANCEL);
    session_.key(KEY_P);
    session_.click(FAVORITES_SAVE);
    EXPECT_EQ(text(BROWSER_FILE), "") << "colors are no picture";
    session_.click(BROWSER_CANCEL);
    session_.click_at(100, 50, RIGHT_BUTTON);
}

TEST_F(Browser, AKeyBringsTheReplacedPictureBack)
{
    row(store.frame_bitmap, 1)[1] = 0x55aa55; // painted since the frame was fetched
    touch_frame();
    view.pan_x = 12;
    for (const char* name : {"Hero.png", "Sky.png"}) { // looked for, and found at the second go
        open(KEY_F9);
        click_row(name);
        session_.click(BROWSER_OKAY);
        EXPECT_EQ(menus.status_message, TIP_LOADED);
    }
    EXPECT_EQ(menus.status_reason, "SKY.PNG. R BRINGS THE OLD PICTURE BACK");
    EXPECT_EQ(frame_color(), green);
    session_.key(KEY_R);
    EXPECT_EQ(frame_color(), 0x55aa55);
    EXPECT_EQ(view.pan_x, 12) << "in the view that it was left with";
    hotkeys.hotkey_table[ACTION_PIC_RESTORE].primary = 0;
    open(KEY_F9);
    click_row("Sky.png");
    session_.click(BROWSER_OKAY);
    EXPECT_EQ(menus.status_reason, "SKY.PNG. PIC, RESTORE BRINGS THE OLD PICTURE BACK");
    row(store.frame_bitmap, 1)[1] = 0x112233; // painted on what was loaded: that is worth keeping
    touch_frame();
    open(KEY_F9);
    click_row("Hero.png");
    session_.click(BROWSER_OKAY);
    session_.click(HOME_PIC);
    session_.click(PIC_RESTORE);
    EXPECT_EQ(frame_color(), 0x112233);
}

TEST_F(Browser, TheLitFilterSuppliesTheEndingOfASavedName)
{
    constexpr int no_filter = -1, gif = 0, png = 3, jpg = 4, quality_okay = 103;
    replace_frame(7, 5, 0x123456);
    struct Row {
        int filter;
        const char *typed, *file;
    };
    for (const auto& [filter, typed, file] :
         {Row{png, "walk", "walk.PNG"}, Row{png, "walk.v2", "walk.v2.PNG"}, Row{png, "run.gif", "run.gif"},
          Row{gif, "jump", "jump.GIF"}, Row{jpg, "photo.jpeg", "photo.jpeg"}, Row{no_filter, "plain", "plain"}}) {
        session_.click(HOME_PIC);
        session_.click(PIC_SAVE);
        ASSERT_EQ(menus.menu_id, MENU_BROWSER) << typed;
        if (filter != no_filter) session_.click(BROWSER_FILTER_0 + filter);
        enter(BROWSER_FILE, typed);
        session_.key(KEY_ENTER);
        if (menus.menu_id == MENU_JPEG_QUALITY) session_.click(quality_okay);
        EXPECT_TRUE(fs::exists(file)) << file;
    }
    EXPECT_EQ(color_of("walk.PNG"), 0x123456);
    EXPECT_FALSE(fs::exists("walk"));
    EXPECT_EQ(format_from_signature("photo.jpeg"), FORMAT_JPG);
    open(KEY_F9);
    session_.click(BROWSER_FILTER_0 + jpg);
    EXPECT_EQ(rows(), "\\.. \\SUB PHOTO.JPEG ") << "a filter lists every ending of its format";
    session_.click(BROWSER_CANCEL);
}

TEST_F(Browser, AsksBeforeTheFileThatWouldGo)
{
    replace_frame(7, 5, 0x123456);
    session_.click(HOME_PIC);
    session_.click(PIC_SAVE);
    ASSERT_EQ(menus.menu_id, MENU_BROWSER);
    enter(BROWSER_FILE, "sky.png");
    session_.key(KEY_ENTER);
    ASSERT_EQ(menus.menu_id, MENU_DIALOG);
    session_.move(5, 60);
    session_.key(KEY_X);
    session_.click(ASK_CANCEL);
    EXPECT_EQ(menus.menu_id, MENU_BROWSER);
    EXPECT_EQ(text(BROWSER_FILE), "sky.png") << "keys in the dialog are not the field's";
    EXPECT_EQ(color_of("Sky.png"), green);
    session_.click(BROWSER_OKAY);
    session_.click(ASK_OKAY);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(color_of("Sky.png"), 0x123456);
    EXPECT_FALSE(fs::exists("sky.png")) << "no second file beside the one that was asked about";
    open(KEY_F5);
    click_row("Hero.png");
    session_.click(BROWSER_OKAY);
    session_.click(ASK_OKAY);
    EXPECT_EQ(color_of("Hero.png"), 0x123456);
    EXPECT_EQ(color_of("HERO.PNG"), blue);
    open(KEY_F5);
    enter(BROWSER_FILE, "new.png");
    session_.key(KEY_ENTER);
    EXPECT_EQ(color_of("new.png"), 0x123456) << "a new name as it was typed";
    open(KEY_F5);
    session_.key(KEY_DEL);
    session_.click(BROWSER_OKAY);
    session_.frame(2);
    EXPECT_EQ(menus.menu_id, MENU_DIALOG) << "no name at all";
    EXPECT_STREQ(gui.ptr[FAILURE_WHY], "<NO SUCH FILE>");
    session_.click(FAILURE_OKAY);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(gui.kind[FAILURE_WHY], 0);
    EXPECT_EQ(gui.hidden[0], 0);
}

TEST(BrowserStart, GoesBackToTheLastFolder)
{
    Session session;
    const fs::path drawings = fs::path(session.folder()) / "Drawings";
    fs::create_directory(drawings);
    session.key(KEY_F9);
    ASSERT_EQ(menus.menu_id, MENU_BROWSER);
    session.click_at(gui.x[BROWSER_LIST] + 20, gui.y[BROWSER_LIST] + 4 + 6); // behind the row that leads up
    EXPECT_EQ(fs::current_path(), drawings);
    session.click(BROWSER_CANCEL);
    write_workspace_state("current.spa", true); // leaves the folder of the process
    session.key(KEY_F9);
    EXPECT_EQ(fs::current_path(), drawings) << "where the user was";
    session.restart();
    EXPECT_EQ(fs::current_path(), drawings);
}

TEST(BrowserStart, OpensInThePictureFolder)
{
    Session session(nullptr, [] {
        fs::create_directory("Drawn Things");
        fs::create_directory(".config");
        std::ofstream(".config/user-dirs.dirs") << "XDG_PICTURES_DIR=\"$HOME/Drawn Things\"\n";
    });
    session.key(KEY_F9);
    EXPECT_EQ(fs::current_path(), fs::path(session.folder()) / "Drawn Things");
}

TEST_F(Browser, KeepsFavorites)
{
    toolbox.extended_favorites[5] = green;
    session_.key(KEY_P);
    session_.click(FAVORITES_SAVE);
    enter(BROWSER_FILE, "mine");
    session_.key(KEY_ENTER);
    EXPECT_EQ(menus.menu_id, MENU_FAVORITES);
    toolbox.extended_favorites[5] = red;
    session_.click(FAVORITES_LOAD);
    click_row("mine");
    session_.click(BROWSER_OKAY);
    EXPECT_EQ(menus.menu_id, MENU_FAVORITES);
    EXPECT_EQ(int(toolbox.extended_favorites[5]), green);
    session_.click_at(100, 50, RIGHT_BUTTON);
}

namespace {

/// The font browser again and again, as the text tool's button opens it.
void browse_fonts()
{
    while (run_state.exit_requested == 0)
        file_browser(BROWSER_FONT, BROWSE_FONT);
}

} // namespace

TEST(FontBrowser, HasPlacesOfItsOwn)
{
    Session session(browse_fonts);
    const std::string fonts = session.folder() + "/fonts";
    platform::places = {};
    platform::places.drive_root['C' - 'A'] = "/";
    browser_state.home_image_dir = "/";
    session.click(BROWSER_CANCEL); // the next one has the drives of the test
    session.click(BROWSER_LOCAL);
    EXPECT_EQ(platform::working_directory(), fonts);
    session.click(BROWSER_HOME);
    EXPECT_EQ(browser_state.home_font_dir, fonts);
    EXPECT_EQ(browser_state.home_image_dir, "/");
    session.click(BROWSER_FILTER_0 + 6);
    session.click_at(gui.x[BROWSER_LIST] + 20, gui.y[BROWSER_LIST] + 10);
    EXPECT_EQ(browser_state.browser_file, "SYSTEM.TTF");
    show_in_field(BROWSER_PATH, "/HOME/ME/KELU/FONTS");
    EXPECT_TRUE(looks_like(session, "font_browser"));
    show_present_folder();
    session.click(BROWSER_OKAY);
    EXPECT_EQ(text_settings.font_dir, platform::upper_case(fonts));
    EXPECT_EQ(text_settings.font_file, "SYSTEM.TTF");
    EXPECT_EQ(browser_state.browser_dir, text_settings.font_dir) << "and opens where it was";
    session.click(BROWSER_OS);
    EXPECT_EQ(platform::working_directory(), platform::system_font_folder());
    session.click(BROWSER_CANCEL);
    EXPECT_EQ(text_settings.font_dir, platform::upper_case(fonts));
    show_in_field(BROWSER_FILE, "no such font");
    session.click(BROWSER_OKAY);
    EXPECT_EQ(menus.status_reason, "NO SUCH FILE!");
    EXPECT_EQ(text_settings.font_file, "SYSTEM.TTF");
    run_state.exit_requested = 1;
    session.frame(4);
    EXPECT_EQ(menus.menu_id, MENU_BROWSER) << "stays until its user leaves it";
    session.click(BROWSER_CANCEL);
}

} // namespace kelu
