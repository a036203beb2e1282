// SPDX-License-Identifier: MIT
// The text tool by mouse and keys, its fonts from the browser, and the font that a start finds.
#include "draw/placed_text.h"
#include "draw/tool_input.h"
#include "platform/files.h"
#include "platform/places.h"
#include "runtime/browser_state.h"
#include "runtime/text_settings.h"
#include "screens/browser_listing.h"
#include "screens/browser_places.h"
#include "screens/browser_slots.h"
#include "support/paths.h"
#include "support/point_print.h"
#include "support/screen_session.h"
#include "support/tool_session.h"
#include "tools/text_tool.h"
#include <allegro.h>
#include <filesystem>
#include <fstream>

namespace kelu {

using namespace test;

namespace fs = std::filesystem;

namespace {

constexpr int failure_slot = 124;

class TextTool : public ToolSession {
protected:
    TextTool()
    {
        use(TOOL_TEXT, {1});
        platform::places = {};
        platform::places.drive_root['C' - 'A'] = "/";
        std::ofstream(session.folder() + "/fonts/broken.ttf") << "no font";
        fs::copy(data_folder() + "/fonts/block.bdf", session.folder() + "/fonts/block.bdf");
    }
    /// Chooses a font by name in the browser.
    void choose_font(const char* name)
    {
        session.click(TEXT_SLOT_FONT);
        ASSERT_EQ(menus.menu_id, MENU_BROWSER);
        set_field_text(BROWSER_FILE, name);
        session.click(BROWSER_OKAY);
    }
    bool log_has(const std::string& line) const { return session.log().find(line) != std::string::npos; }
};

std::string field() { return field_text_of(TEXT_SLOT_FIELD).data(); }

/// Colours of the frame besides black.
std::set<int> frame_colours()
{
    std::set<int> colours;
    for (int y = 0; y < store.frame_bitmap.height(); ++y)
        colours.insert(row(store.frame_bitmap, y), row(store.frame_bitmap, y) + store.frame_bitmap.width());
    colours.erase(0);
    return colours;
}

TEST_F(TextTool, HangsOverTheFrameUntilOkay)
{
    session.click_at(60, 60); // in the upper half: the panel opens far from it
    session.type("kelu 16");
    session.drag(gui.x[TEXT_SLOT_SIZE] + 20, gui.y[TEXT_SLOT_SIZE] + 4, gui.x[TEXT_SLOT_SIZE] + 33,
                 gui.y[TEXT_SLOT_SIZE] + 4);
    session.move(gui.x[TEXT_SLOT_GAP] + 10, gui.y[TEXT_SLOT_GAP] + 4);
    session.wheel(1);
    session.click_at(300, 20); // beside the text
    session.click_at(90, 80);
    session.move(110, 70);
    EXPECT_TRUE(matches_golden(session.picture(), "text_tool"));
    session.click_at(100, 90);
    session.move(200, 20);
    EXPECT_EQ(tool_input.tool_nodes[0], (Point{60, 60}));
    EXPECT_EQ(snapshots(), 0);
    EXPECT_TRUE(painted().empty());
    session.click(TEXT_SLOT_OKAY);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(snapshots(), 1);
    EXPECT_GT(frame_colours().size(), 20U) << "soft edges";
    EXPECT_EQ(text_settings.text_string, "kelu 16");
    EXPECT_GT(text_settings.text_size, 32);
}

TEST_F(TextTool, EndsInSeveralWays)
{
    toolbox.tool_table[TOOL_TEXT][0] = 0;
    text_settings.text_string = "I";
    session.click_at(60, 160);
    EXPECT_EQ(gui.y[0], 0) << "far from a press in the lower half";
    session.type("ll");
    session.click(TEXT_SLOT_CANCEL);
    EXPECT_EQ(text_settings.text_string, "I");

    session.click_at(60, 160);
    session.type("L");
    session.key(KEY_ENTER);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(text_settings.text_string, "Il");
    EXPECT_EQ(frame_colours(), std::set<int>{tool_color}) << "hard edges";
    const auto before = painted();

    // The right button is an OKAY, also while the text is taken along; what lies over the edge is cut.
    session.click_at(310, 5);
    session.click_at(314, 20);
    session.move(316, 8);
    session.click_at(316, 8, RIGHT_BUTTON);
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_GT(painted().size(), before.size());
    EXPECT_EQ(snapshots(), 2);

    session.click_at(60, 160);
    retype(session, TEXT_SLOT_FIELD, "");
    EXPECT_EQ(previewed(), 0);
}

TEST_F(TextTool, TakesFontsFromTheBrowser)
{
    session.click_at(60, 60);
    session.type("AAA");
    const int width = placed_text.text_bitmap.width();
    choose_font("missing.ttf");
    EXPECT_EQ(menus.menu_id, MENU_TEXT);
    EXPECT_EQ(menus.status_reason, "NO SUCH FILE!");
    EXPECT_EQ(field(), "aaa");
    EXPECT_EQ(gui_logic.gui_key_focus, TEXT_SLOT_FIELD);

    choose_font("broken.ttf");
    EXPECT_EQ(gui.active[failure_slot], 1);
    EXPECT_TRUE(log_has("[ ERROR ] : Missing or corrupt font file! Name = broken.ttf"));
    session.click_at(160, 20, RIGHT_BUTTON);
    EXPECT_EQ(gui.active[failure_slot], 1) << "it waits for the left button";
    show_in_field(BROWSER_PATH, "/HOME/ME/KELU/FONTS");
    EXPECT_TRUE(looks_like(session, "failure_panel", 160, 20));
    session.press();
    EXPECT_EQ(gui.active[failure_slot], 1) << "and for its release";
    session.release();
    EXPECT_EQ(gui.active[failure_slot], 0);
    EXPECT_EQ(menus.menu_id, MENU_TEXT);
    EXPECT_EQ(text_settings.font_file, "system.ttf");
    EXPECT_EQ(placed_text.text_bitmap.width(), width);

    choose_font("block.bdf");
    EXPECT_EQ(text_settings.font_file, "block.bdf");
    EXPECT_TRUE(log_has("[ ERROR ] : Font error detected. Dunno what, 'cuz the lib won't fucking tell me."));
    EXPECT_EQ(placed_text.text_bitmap.height(), 8 + 2 * text_margin);
    session.click(TEXT_SLOT_OKAY);
    EXPECT_EQ(painted().size(), 3 * 14U) << "the font shows its A for what it lacks";
}

TEST_F(TextTool, ItsBrowserHasPlacesOfItsOwn)
{
    const std::string fonts = session.folder() + "/fonts";
    fs::remove(fonts + "/block.bdf");
    fs::remove(fonts + "/broken.ttf");
    browser_state.home_image_dir = "/";
    session.click_at(60, 60);
    session.click(TEXT_SLOT_FONT);
    session.click(BROWSER_LOCAL);
    EXPECT_EQ(platform::working_directory(), fonts);
    session.click(BROWSER_HOME);
    EXPECT_EQ(browser_state.home_font_dir, fonts);
    EXPECT_EQ(browser_state.home_image_dir, "/");
    session.click(BROWSER_FILTER_0 + 6);
    session.click_at(gui.x[BROWSER_LIST] + 20, gui.y[BROWSER_LIST] + 10);
    show_in_field(BROWSER_PATH, "/HOME/ME/KELU/FONTS");
    EXPECT_TRUE(looks_like(session, "font_browser"));
    show_present_folder();
    session.click(BROWSER_OKAY);
    EXPECT_EQ(text_settings.font_dir, platform::upper_case(fonts));
    EXPECT_EQ(text_settings.font_file, "SYSTEM.TTF");
    session.click(TEXT_SLOT_FONT);
    EXPECT_EQ(browser_state.browser_dir, text_settings.font_dir) << "and opens where it was";
    session.click(BROWSER_OS);
    EXPECT_EQ(platform::working_directory(), platform::system_font_folder());
    session.click(BROWSER_CANCEL);
    EXPECT_EQ(text_settings.font_dir, platform::upper_case(fonts));
}

TEST_F(TextTool, WritesTheLargestText)
{
    text_settings.text_string = std::string(130, 'W');
    text_settings.text_size = 350;
    session.click_at(60, 60);
    EXPECT_EQ(field().size(), 120U);
    EXPECT_EQ(placed_text.text_bitmap.width(), max_bitmap_side);
    EXPECT_TRUE(log_has("[ WARNING ] : Text is too wide and loses its end."));
    session.key(KEY_BACKSPACE);
    EXPECT_EQ(field().size(), 119U);
    session.click(TEXT_SLOT_OKAY);
    EXPECT_GT(painted().size(), 5000U);
}

/// A second start in the folder of a first, whose workspace names a font.
void start_with_font(const std::string& font_dir, const std::string& font_file, auto look)
{
    Session session;
    text_settings.font_dir = font_dir.empty() ? session.folder() + "/fonts" : font_dir;
    text_settings.font_file = font_file;
    std::ofstream(session.folder() + "/fonts/broken.ttf") << "no font";
    session.restart();
    look(session);
    EXPECT_EQ(run_state.gui_active, 1);
    EXPECT_EQ(text_settings.font_file, "system.ttf");
    EXPECT_TRUE(open_fonts.text_font);
}

TEST(TextFontStart, FallsBackToTheProgramsOwnFont)
{
    start_with_font("/gone", "MINE.TTF", [](Session& session) {
        EXPECT_NE(session.log().find("[ WARNING ] : Preferred font path doesn't exist."), std::string::npos);
        EXPECT_EQ(text_settings.font_dir, run_state.program_dir);
    });
    start_with_font("", "MINE.TTF", [](Session& session) {
        EXPECT_EQ(session.log().find("[ WARNING ]"), std::string::npos);
        EXPECT_EQ(text_settings.font_dir, run_state.program_dir + "/fonts");
    });
    start_with_font("", "broken.ttf", [](Session& session) {
        EXPECT_EQ(run_state.gui_active, 0) << "the failure panel waits";
        session.click_at(160, 95);
        session.frame(10);
    });
}

} // namespace
} // namespace kelu
