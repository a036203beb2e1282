// SPDX-License-Identifier: MIT
// Screens from rows: places, standard looks, focus, texts.
#include "gui/build.h"

#include "gui/help_layout.h"
#include "gui/key_labels.h"
#include "gui/scheme.h"
#include "gui/text_blocks.h"
#include "loop/actions.h"
#include "runtime/hotkeys.h"
#include "screens/action_table.h"
#include "support/fresh_state.h"
#include <algorithm>
#include <cstring>
#include <string>
#include <utility>

namespace kelu {
namespace {

enum { SLOT_NAME = 3, SLOT_DONE = 6 };
constexpr SlotRow plain_slots[] = {title_row(2, 2, 87, TEXT_GRID_SETTINGS), push_row(SLOT_DONE, 2, 90, 39, TEXT_OKAY)};
constexpr SlotRow field_slots[] = {field_row(SLOT_NAME, 2, 12, 41, 4, 4)};
constexpr MenuLayout plain = {MENU_TOOL, WINDOW_TOOL_AND_INK, 70, 80, 90, 100, 7, plain_slots};
constexpr MenuLayout tall = {MENU_MACRO, WINDOW_MACRO, 0, 207, 122, 189, 7, field_slots};

using Build = test::FreshState;

/// A text without its colour codes.
std::string bare(std::string text)
{
    for (std::size_t code = text.find("|c"); code != std::string::npos; code = text.find("|c"))
        text.erase(code, 4);
    return text;
}

} // namespace

TEST_F(Build, ANewScreenLeavesNothingOfTheOldOne)
{
    build_screen(plain);
    gui_logic.gui_key_focus = SLOT_NAME;
    build_screen(tall);
    EXPECT_EQ(gui.active[SLOT_DONE], 0);
    EXPECT_EQ(gui_logic.gui_key_focus, SLOT_NAME); // it has a field
    build_screen(plain);
    EXPECT_EQ(gui_logic.gui_key_focus, -1);
    close_screen();
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    for (int slot = 0; slot < gui_slots; ++slot)
        ASSERT_EQ(gui.active[slot], 0) << slot;
}

TEST_F(Build, AWindowOpensWhereItWasPutOrJustFits)
{
    EXPECT_EQ(build_screen(tall).y, 239 - 189);
    EXPECT_EQ(fitted_origin(300, 10, 100, 20).x, 219);
    EXPECT_EQ(fitted_origin(0, 207, 319, 32).y, 207);
    EXPECT_EQ(fitted_origin(0, 10, 400, 300).x, 0);
    menus.window_pos[WINDOW_MACRO] = {10, 230}; // used as it stands
    EXPECT_EQ(build_screen(tall).y, 230);
    EXPECT_EQ(gui.y[SLOT_NAME], 242);
}

TEST_F(Build, DescriptionsFitTheirPanelAndMessagesTheStatusBar)
{
    for (const char* line : description_rows)
        EXPECT_LE(line ? std::strlen(line) : 0, 20U) << line;
    for (int row = 0; row < TIP_COUNT; ++row) {
        const std::string text = bare(tooltip_text(row));
        EXPECT_LE(text.size(), 53U) << text;
        EXPECT_FALSE(text.empty()) << row;
    }
}

TEST_F(Build, EveryTopicHasAPageThatKeepsTheRules)
{
    for (int topic = 0; topic < help_page_count - 1; ++topic) {
        const std::string page = help_pages[static_cast<std::size_t>(topic) + 1];
        EXPECT_EQ(page.rfind("|c43" + std::string(ui_strings[first_help_topic + topic]) + "|c40 | | ", 0), 0U) << page;
        EXPECT_NE(page.find(" | | HINT: "), std::string::npos) << page;
        EXPECT_GE(help_line_count(page), 8) << page;
        EXPECT_LE(help_line_count(page), 45) << page;
        EXPECT_EQ(page.rfind("|c"), page.rfind("|c40")) << "the last colour is the text's: " << page;
        HelpWalk walk(page);
        for (HelpWord word; walk.next(word);) {
            const std::string shown = bare(std::string(word.text));
            EXPECT_LE(word.column + static_cast<int>(shown.size()), help_columns) << shown;
            EXPECT_TRUE(std::ranges::all_of(shown, [](char c) { return c > ' ' && c <= '_' && c != '|' && c != '`'; }))
                << shown;
        }
    }
}

TEST_F(Build, PagesNameTheKeysThatTheProgramHas)
{
    constexpr std::pair<int, int> page_actions[] = {
        {1, ACTION_EXIT},          {1, ACTION_RAPID_EXIT},    {2, ACTION_ALPHA_TOGGLE},  {2, ACTION_ALPHA_PREVIEW},
        {5, ACTION_COLOR_MENU},    {5, ACTION_BRUSH_DROPPER}, {6, ACTION_TIP_SELECT},    {7, ACTION_TOOL_SELECT},
        {7, ACTION_BRUSH_OPTION},  {8, ACTION_CEL_GET},       {8, ACTION_CEL_CLIP},      {8, ACTION_CEL_PASTE},
        {8, ACTION_CEL_XFORM},     {9, ACTION_COPY},          {9, ACTION_PASTE},         {13, ACTION_MEASURE},
        {14, ACTION_MASK_DROPPER}, {15, ACTION_FAVORITES},    {20, ACTION_FRAME_JUMP},   {21, ACTION_NEXT},
        {21, ACTION_PREVIOUS},     {21, ACTION_FIRST},        {21, ACTION_LAST},         {21, ACTION_ANIMATE},
        {21, ACTION_PLAY},         {23, ACTION_PIC_GRID},     {24, ACTION_HIDE_MENU},    {26, ACTION_INK_SELECT},
        {26, ACTION_INK_OPTION},   {27, ACTION_INSPECT},      {30, ACTION_PIC_LOAD},     {31, ACTION_MACRO_MENU},
        {31, ACTION_MACRO_1},      {31, ACTION_MACRO_8},      {34, ACTION_ONION_TOGGLE}, {36, ACTION_REDO},
        {38, ACTION_PIC_RESTORE},  {39, ACTION_PIC_SAVE},     {49, ACTION_UNDO},
    };
    set_default_hotkeys();
    for (const auto& [page, action] : page_actions) {
        const std::string key = key_label(hotkeys.hotkey_table[static_cast<std::size_t>(action)].primary);
        const std::string text = help_pages[static_cast<std::size_t>(page)];
        const bool named = text.find("|c39" + key + "|c40") != std::string::npos;
        EXPECT_TRUE(named) << key << " on the page " << text;
    }
}

} // namespace kelu
