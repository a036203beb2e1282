// Tagged files: both tables round trip, the bytes of a record, and everything a damaged file may hold.
#include "workspace/tags.h"

#include "gui/menus.h"
#include "gui/scheme.h"
#include "runtime/animation.h"
#include "runtime/browser_state.h"
#include "runtime/grid.h"
#include "runtime/hotkeys.h"
#include "runtime/macros.h"
#include "runtime/preferences.h"
#include "runtime/toolbox.h"
#include "runtime/view.h"
#include "workspace/settings.h"
#include "workspace/state.h"
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

const TagRow& row_of(std::span<const TagRow> rows, int tag) { return *std::ranges::find(rows, tag, &TagRow::tag); }

/// A valid word of the row that differs from most others.
int some_word(const TagRow& row, int minor, int i)
{
    const Range& range = row.range_of(i);
    const long low = std::max(range.low, -100000), high = std::min(range.high, 0xffffff);
    return static_cast<int>(low + (7L * row.tag + 13L * minor + i) % (high - low + 1));
}

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

void expect_filled(std::span<const TagRow> rows)
{
    for (const TagRow& row : rows) {
        if (row.text) {
            EXPECT_EQ(*row.text, "TEXT OF " + std::to_string(row.tag));
        }
        for (int minor = 0; minor < row.minors; ++minor)
            for (int i = 0; i < row.words(); ++i) {
                const bool flag_or_constant = row.range_of(i).high == any_word.high;
                if (!flag_or_constant) {
                    EXPECT_EQ(row.get(minor, i), some_word(row, minor, i)) << row.tag;
                }
            }
    }
}

} // namespace

TEST_F(TagsTest, EveryFieldComesBackAndTheBytesAreTheSame)
{
    for (const auto rows : {state_tags(), settings_tags()}) {
        FW_initialize_variables();
        const Bytes start = written(rows);
        fill_table(rows);
        const Bytes filled = written(rows);
        ASSERT_EQ(filled.size(), start.size());
        EXPECT_FALSE(read_tags(rows, start).damaged); // everything back to its start value ...
        EXPECT_TRUE(written(rows) == start);
        EXPECT_FALSE(read_tags(rows, filled).damaged); // ... and away from it again
        EXPECT_TRUE(written(rows) == filled);
        expect_filled(rows);
    }
    EXPECT_FALSE(logged("OOB"));
}

TEST_F(TagsTest, RecordsHaveTheirFixedOrderAndCounts)
{
    struct Count {
        int tag;
        uint32_t count;
        int words;
    };
    constexpr Count state_counts[] = {
        {1, 6, 6},      {2, 6, 6},   {3, 1, 1},    {4, 1, 1},      {5, 1, 1},      {6, 1, 1},     {7, 1, 1},
        {8, 1, 1},      {9, 1, 1},   {10, 1, 1},   {11, 1, 1},     {12, 1, 1},     {13, 1, 1},    {14, 1, 1},
        {15, 6, 6},     {16, 5, 5},  {17, 3, 3},   {18, 10, 10},   {19, 256, 256}, {20, 1, 1},    {21, 1, 1},
        {22, 1, 1},     {23, 1, 1},  {24, 1, 1},   {25, 1, 1},     {26, 1, 1},     {27, 1, 1},    {28, 1, 1},
        {29, 1, 1},     {30, 1, 1},  {31, 1, 1},   {32, 1, 1},     {33, 1, 1},     {34, 2, 2},    {35, 2, 2},
        {36, 2, 2},     {37, 1, 1},  {38, 1, 1},   {39, 100, 100}, {40, 50, 800},  {41, 64, 128}, {43, 100, 200},
        {44, 100, 200}, {45, 1, 1},  {46, 17, 64}, {47, 3, 64},    {48, 0, 64},    {49, 0, 64},   {50, 0, 64},
        {51, 0, 64},    {52, 0, 64}, {53, 0, 64},  {54, 0, 64},    {60, 4, 4}};
    const Bytes bytes = written(state_tags());
    ByteReader in(bytes);
    for (const Count& expected : state_counts) {
        ASSERT_EQ(in.big32(), tag_marker) << expected.tag;
        ASSERT_EQ(in.big32(), static_cast<uint32_t>(expected.tag));
        EXPECT_EQ(in.big32(), 0U);
        EXPECT_EQ(in.big32(), expected.count) << expected.tag;
        const auto payload = in.take(static_cast<std::size_t>(expected.words) * 4);
        if (expected.tag == 31) {
            EXPECT_EQ(payload[3], 16);
        }
        if (expected.tag == 46) {
            EXPECT_EQ(std::string(payload.begin(), payload.begin() + 18), std::string("UNNAMED WORKSPACE\0", 18));
        }
    }
    EXPECT_EQ(in.left(), 0U);
}

TEST_F(TagsTest, RowTablesInterleave)
{
    toolbox.tool_table[1][2] = 11;
    toolbox.ink_table[1][2] = 22;
    menus.window_pos[3].x = 5, menus.window_pos[3].y = 6;
    animation.anim_tag[2] = 7; // a flag is stored as 1
    animation.anim_delay[2] = 8;
    EXPECT_EQ(row_of(state_tags(), 40).get(0, 16 + 4), 11);
    EXPECT_EQ(row_of(state_tags(), 40).get(0, 16 + 5), 22);
    EXPECT_EQ(row_of(state_tags(), 41).get(0, 6), 5);
    EXPECT_EQ(row_of(state_tags(), 41).get(0, 7), 6);
    EXPECT_EQ(row_of(state_tags(), 44).get(0, 4), 1);
    EXPECT_EQ(row_of(state_tags(), 44).get(0, 5), 8);
}

TEST_F(TagsTest, HotkeysAndMacrosTakeTheirPlaces)
{
    EXPECT_EQ(hotkey_row_of(5), 5);
    EXPECT_EQ(hotkey_row_of(6), 8);
    EXPECT_EQ(hotkey_row_of(8), 10);
    EXPECT_EQ(hotkey_row_of(9), 12);
    EXPECT_EQ(hotkey_row_of(61), 64);
    EXPECT_EQ(hotkey_row_of(62), 6);
    EXPECT_EQ(hotkey_row_of(63), 7);

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
    const Macro& macro = macros.macro_table[1];
    EXPECT_EQ(macro.tools, (std::array<int, 6>{1, 3, 5, 7, 9, 11}));
    EXPECT_EQ(macro.inks, (std::array<int, 6>{2, 4, 6, 8, 10, 12}));
    EXPECT_EQ(macro.grid_mode, 0);
    EXPECT_EQ(macro.grid_w, 31);
    EXPECT_EQ(macro.grid_h, 32);
    EXPECT_EQ(macro.grid_off_y, 2);
    EXPECT_EQ(macro.grid_opacity, 99);
    EXPECT_EQ(macro.tool_slot, 4);
    EXPECT_EQ(macro.brush_tip, 6);
}

TEST_F(TagsTest, UnknownAndUnreadTagsArePassedOver)
{
    Bytes file;
    put_record(file, 99, 0, 3, {1, 2, 3});
    put_record(file, 0, 0, 0, {});
    put_record(file, 42, 0, 7, {4, 5, 6});
    put_record(file, 22, 0, 1, {200});
    const TagReport report = read_tags(state_tags(), file);
    EXPECT_EQ(report.records, 2);
    EXPECT_TRUE(logged("[ WARNING ] : I have no idea what I just read. Tag = 99"));
    EXPECT_TRUE(logged("[ WARNING ] : I have no idea what I just read. Tag = 0"));
    EXPECT_EQ(view.onion_opacity, 200);
    Bytes skipped; // tag 42 alone is no damage, whatever its payload
    put_record(skipped, 42, 0, 7, {4, 5, 6});
    EXPECT_FALSE(read_tags(state_tags(), skipped).damaged);
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
}

TEST_F(TagsTest, EveryCutAndEverySingleWrongWordIsSurvived)
{
    const Bytes whole = written(state_tags());
    for (std::size_t size = 0; size < whole.size(); size += 61)
        read_tags(state_tags(), {whole.data(), size});
    for (std::size_t at = 0; at + 4 <= whole.size(); at += 4 * 17) {
        Bytes wrong = whole;
        for (std::size_t i = 0; i < 4; ++i)
            wrong[at + i] ^= 0xff;
        read_tags(state_tags(), wrong);
        for (const TagRow& row : state_tags())
            for (int i = 0; i < row.words(); ++i)
                ASSERT_TRUE(row.range_of(i).holds(row.get(0, i))) << row.tag;
    }
    EXPECT_TRUE(read_tags(state_tags(), {whole.data(), whole.size() - 1}).damaged);
    EXPECT_FALSE(read_tags(state_tags(), whole).damaged);
}

} // namespace kelu
