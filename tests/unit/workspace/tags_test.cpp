// SPDX-License-Identifier: MIT
// Tagged files: both tables round trip, the bytes of a record, and what a damaged file may hold; the fuzz target
// tries all of it.
#include "workspace/tags.h"

#include "runtime/hotkeys.h"
#include "support/pictures.h"
#include "workspace_fixture.h"

namespace kelu {
namespace {

using TagsTest = WorkspaceTest;

/// A record of words with a true count.
void put_record(Bytes& file, int tag, int minor, uint32_t count, const std::vector<int>& words)
{
    ByteWriter out(file);
    out.big32(tag_marker);
    out.big32(static_cast<uint32_t>(tag));
    out.big32(static_cast<uint32_t>(minor));
    out.big32(count);
    for (const int word : words)
        out.big32(static_cast<uint32_t>(word));
}

Bytes written(std::span<const TagRow> rows)
{
    Bytes bytes;
    ByteWriter out(bytes);
    write_tags(rows, out);
    return bytes;
}

/// A valid word of the row that differs from most others.
int some_word(const TagRow& row, int minor, int i)
{
    const Range& range = row.range_of(i);
    const long low = std::max(range.low, -100000), high = std::min(range.high, 0xffffff);
    return static_cast<int>(low + (7L * row.tag + 13L * minor + i) % (high - low + 1));
}

/// The word that `fill_table` gives to a tag of the workspace's state.
int filled_word(int tag, int i = 0) { return some_word(*std::ranges::find(state_tags(), tag, &TagRow::tag), 0, i); }

/// Gives every word and text of the table a value of its own.
void fill_table(std::span<const TagRow> rows)
{
    for (const TagRow& row : rows) {
        if (row.text) *row.text = "TEXT OF " + std::to_string(row.tag);
        for (int minor = 0; minor < row.minors; ++minor)
            for (int i = 0; i < row.words(); ++i)
                row.set(minor, i, some_word(row, minor, i));
    }
}

} // namespace

TEST_F(TagsTest, EveryFieldComesBackAndTheBytesAreTheSame)
{
    for (const auto& [rows, kept] :
         {std::pair{state_tags(), "state/filled.spa"}, {settings_tags(), "state/filled.def"}}) {
        FW_initialize_variables();
        const Bytes start = written(rows);
        fill_table(rows);
        const Bytes filled = written(rows);
        EXPECT_TRUE(filled == test::data_file(kept)) << kept << ": files of earlier runs hold their words elsewhere";
        EXPECT_FALSE(read_tags(rows, start).damaged); // everything back to its start value ...
        EXPECT_TRUE(written(rows) == start);
        EXPECT_FALSE(read_tags(rows, filled).damaged); // ... and away from it again
        EXPECT_TRUE(written(rows) == filled);
        EXPECT_TRUE(read_tags(rows, {filled.data(), filled.size() - 1}).damaged);
    }
    EXPECT_FALSE(logged("OOB"));
}

TEST_F(TagsTest, WordsArriveInTheirVariables)
{
    read_tags(state_tags(), test::data_file("state/filled.spa"));
    EXPECT_EQ(toolbox.tool_slots[4], filled_word(1, 4));
    EXPECT_EQ(toolbox.ink_slots[4], filled_word(2, 4));
    EXPECT_EQ(toolbox.tool_slot, filled_word(3));
    EXPECT_EQ(toolbox.ink_slot, filled_word(4));
    EXPECT_EQ(view.zoom, filled_word(7));
    // Rows of two tables interleave.
    EXPECT_EQ(toolbox.tool_table[1][2], filled_word(40, 16 + 4));
    EXPECT_EQ(toolbox.ink_table[1][2], filled_word(40, 16 + 5));
    EXPECT_EQ(menus.window_pos[3].x, filled_word(41, 6));
    EXPECT_EQ(menus.window_pos[3].y, filled_word(41, 7));
    EXPECT_EQ(animation.anim_delay[2], filled_word(44, 5));
}

TEST_F(TagsTest, HotkeysAndMacrosTakeTheirPlaces)
{
    Bytes file;
    put_record(file, 7, 9, 2, {1027, 4});
    put_record(file, 7, 64, 2, {5, 5}); // no such row
    put_record(file, 27, 1, 21, {1, 2, 0, 3, 4, 31, 5, 6, 32, 7, 8, 1, 9, 10, 2, 11, 12, 99, 4, 5, 6});
    put_record(file, 27, 9, 21, std::vector<int>(21, 1));
    put_record(file, 18, 0, 1, {77});
    EXPECT_TRUE(read_tags(settings_tags(), file).damaged);
    EXPECT_EQ(hotkeys.hotkey_table[12].primary, 1027);
    EXPECT_EQ(hotkeys.hotkey_table[12].alternate, 4);
    EXPECT_TRUE(logged("[ ERROR ] : Macro import failed. Index OOB. Index = 9"));
    EXPECT_EQ(preferences.cel_tolerance, 77); // what follows still arrives
    EXPECT_EQ(macros.macro_table[1].tools, (std::array<int, 6>{1, 3, 5, 7, 9, 11}));
    EXPECT_EQ(macros.macro_table[1].brush_tip, 6);
}

TEST_F(TagsTest, UnknownAndUnreadTagsArePassedOver)
{
    Bytes file;
    put_record(file, 99, 0, 5, {static_cast<int>(tag_marker), 23, 0, 1, 9}); // what looks like a record in it is none
    put_record(file, 0, 0, 0, {});
    put_record(file, 42, 0, 7, {4, 5, 6});
    put_record(file, 22, 0, 1, {200});
    const TagReport report = read_tags(state_tags(), file);
    EXPECT_EQ(report.records, 2);
    EXPECT_TRUE(report.damaged) << "what nobody knows is kept";
    EXPECT_TRUE(logged("[ WARNING ] : I have no idea what I just read. Tag = 99"));
    EXPECT_TRUE(logged("[ WARNING ] : I have no idea what I just read. Tag = 0"));
    EXPECT_EQ(view.onion_opacity, 200);
    EXPECT_NE(grid.grid_w, 9);
    Bytes skipped; // tag 42 alone is no damage, whatever its payload
    put_record(skipped, 42, 0, 7, {4, 5, 6});
    put_record(skipped, 22, 0, 1, {200});
    put_record(skipped, 22, 0, 1, {201});
    EXPECT_FALSE(read_tags(state_tags(), skipped).damaged);
    Bytes cut = skipped;
    ByteWriter(cut).big32(tag_marker);
    EXPECT_TRUE(read_tags(state_tags(), cut).damaged) << "a record that isn't there";
    skipped.resize(skipped.size() + 4); // nothing of a record, behind one that is whole, and between two
    EXPECT_TRUE(read_tags(state_tags(), skipped).damaged);
    put_record(skipped, 22, 0, 1, {202});
    EXPECT_TRUE(read_tags(state_tags(), skipped).damaged);
}

TEST_F(TagsTest, TextsKeepTheirTerminatorAndLongOnesAreLeftOut)
{
    browser_state.browser_file = "KEPT";
    Bytes file;
    put_record(file, 49, 0, 129, std::vector<int>(64, 0x41414141));
    put_record(file, 46, 0, 256, std::vector<int>(64, 0x41424142));
    put_record(file, 50, 0, 0, std::vector<int>(64, 0));
    put_record(file, 47, 0, 8, {0x41420043, 0x44444444});
    file.resize(file.size() + 248);
    put_record(file, 22, 0, 1, {9});
    EXPECT_TRUE(read_tags(state_tags(), file).damaged);
    EXPECT_TRUE(logged("[ ERROR ] : Length of tag #49 is OOB. Len = 129"));
    EXPECT_EQ(browser_state.browser_file, "KEPT");
    EXPECT_EQ(store.workspace_title.size(), 255U);
    EXPECT_EQ(store.workspace_notes, "AB");
    EXPECT_EQ(view.onion_opacity, 9);
    Bytes torn;
    put_record(torn, 47, 0, 8, {0x41420043, 0x44444444});
    EXPECT_TRUE(read_tags(state_tags(), torn).damaged);
    store.workspace_title = std::string(300, 'X'); // longer than its field: the writer cuts it
    const Bytes bytes = written(state_tags());
    EXPECT_FALSE(read_tags(state_tags(), bytes).damaged);
    EXPECT_EQ(store.workspace_title.size(), 255U);
}

TEST_F(TagsTest, CountsAreCutAndValuesPutBackInRange)
{
    Bytes file;
    put_record(file, 1, 0, 8, {3, 3, 3, 3, 3, 99, 77, 77}); // two more than the table has
    put_record(file, 7, 0, 4000000000U, {9});               // a single value ignores the count
    put_record(file, 14, 0, 1, {-5});
    put_record(file, 37, 0, 1, {static_cast<int>(0xff123456)});
    put_record(file, 23, 0, 1, {0});
    put_record(file, 20, 0, 1, {256});
    put_record(file, 43, 0, 4000000000U, {1, 2}); // far more than there is: the file is cut short here
    const TagReport report = read_tags(state_tags(), file);
    EXPECT_TRUE(report.damaged);
    EXPECT_EQ(report.records, 7);
    EXPECT_EQ(toolbox.tool_slots[4], 3);
    EXPECT_EQ(toolbox.tool_slots[5], TOOL_TEXT);
    EXPECT_EQ(view.zoom, max_zoom);
    EXPECT_EQ(toolbox.brush_tip, 0);
    EXPECT_EQ(toolbox.brush_color, 0x123456);
    EXPECT_EQ(grid.grid_w, 2);
    EXPECT_EQ(store.alpha_edit_mode, 1);
    EXPECT_EQ(view.frame_pan_y[0], 2);
    EXPECT_TRUE(logged("[ WARNING ] : Value of tag #1 is OOB and was put back. Value = 99"));
    EXPECT_EQ(report.put_back, 5);
    file.clear();
    put_record(file, 7, 0, 9, {9});
    EXPECT_FALSE(read_tags(state_tags(), file).damaged);
}

TEST_F(TagsTest, BehindACountThatCantBeTrueTheReaderGoesOnAtTheNextMarker)
{
    for (const uint32_t count : {7U, 13U, 4000000000U}) {
        toolbox.ink_slots[5] = 4;
        view.onion_opacity = 0;
        Bytes file;
        put_record(file, 99, 0, count, {1, 2});         // unknown
        put_record(file, 2, 0, count, {5, 5, 5, 5, 5}); // one short of its table
        put_record(file, 22, 0, 1, {200});
        put_record(file, 27, 0, 1, {100});
        put_record(file, 45, 0, 1, {2});
        const TagReport report = read_tags(state_tags(), file);
        EXPECT_TRUE(report.damaged);
        EXPECT_EQ(report.records, 4) << count;
        EXPECT_EQ(toolbox.ink_slots[4], 5) << count;
        EXPECT_EQ(toolbox.ink_slots[5], 4) << count;
        EXPECT_EQ(view.onion_opacity, 200) << count;
        EXPECT_EQ(animation.anim_speed, 2) << count;
        EXPECT_EQ(report.put_back, 0);
    }
}

} // namespace kelu
