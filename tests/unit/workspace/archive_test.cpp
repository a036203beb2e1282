// SPDX-License-Identifier: MIT
// Archives: what is packed comes back, and what is short or wrong touches nothing.

#include "base/reader.h"
#include "gui/slots.h"
#include "gui/tooltips.h"
#include "workspace_fixture.h"
#include <map>

namespace kelu {
namespace {

std::vector<int> bar; ///< what the progress bar showed, frame by frame

void show_bar() { bar.push_back(gui.list_items[2][0]); }

class ArchiveTest : public WorkspaceTest {
protected:
    ArchiveTest() { bar.clear(); }

    /// A workspace of n frames that is written and packed as "w.wsp".
    void pack(int n)
    {
        make_frames(n);
        store.workspace_title = "PACKED";
        EXPECT_EQ(save_workspace_archive("w.wsp", show_bar), 0);
    }
    /// All names and bytes of the store.
    std::map<std::string, std::string> store_files() const
    {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path() / "WORKSPACE"))
            files[entry.path().filename().string()] = bytes(entry.path().filename().string());
        return files;
    }
    void put_archive(const std::string& name, const Bytes& content) const
    {
        folder.put(name, {reinterpret_cast<const char*>(content.data()), content.size()});
    }
};

void put_block(ByteWriter& out, const std::string& content)
{
    out.big32(static_cast<uint32_t>(content.size()));
    out.text(content);
}

} // namespace

TEST_F(ArchiveTest, HoldsTheOpenFrameInItsFixedLayout)
{
    make_frames(2);
    row(store.frame_bitmap, 0)[0] = 0xabcdef; // never committed by hand
    store.workspace_title = "T";
    store.workspace_notes = std::string(300, 'N');
    EXPECT_EQ(save_workspace_archive("w.wsp", show_bar), 0);
    EXPECT_EQ(platform::working_directory(), run_state.program_dir);
    const std::string archive = folder.text("w.wsp");
    Bytes expected;
    ByteWriter out(expected);
    out.text("kWSP");
    out.byte(1);
    out.text("T");
    out.byte(255);
    out.text(std::string(255, 'N'));
    out.big32(2);
    for (const char* name : {"current.000", "current.001", "current.cel", "current.nal", "current.tip", "current.spa"})
        put_block(out, bytes(name));
    EXPECT_TRUE(archive == std::string(expected.begin(), expected.end()));
    EXPECT_EQ(stored_pixel(0), opaque | 0xabcdef);
    EXPECT_EQ(bar, (std::vector<int>{50, 100, 100}));
    EXPECT_EQ(menus.menu_id, MENU_DRAW);
    EXPECT_EQ(gui.active[0], 0);
}

TEST_F(ArchiveTest, OpensInColourEditing)
{
    make_frames(2);
    show_onion_skin();
    switch_alpha_mode();
    ASSERT_EQ(pixel(store.onion_bitmap), 0xffffff) << "the neighbour's alpha shows through";
    save_workspace_archive("w.wsp", show_bar);
    EXPECT_EQ(load_workspace_archive("w.wsp", show_bar), 0);
    EXPECT_EQ(store.alpha_edit_mode, 0);
    EXPECT_EQ(row(store.frame_bitmap, 0)[0], 0x10);
    EXPECT_EQ(row(store.alpha_bitmap, 0)[0], 0xffffff);
    ASSERT_EQ(view.onion_on, 1);
    EXPECT_EQ(pixel(store.onion_bitmap) & 0xffffff, 0x11) << "the neighbour's colours";
}

TEST_F(ArchiveTest, RefusesEveryDamageBeforeAnythingIsTouched)
{
    pack(2);
    const std::string text = folder.text("w.wsp");
    const Bytes whole(text.begin(), text.end());
    const auto files = store_files();
    std::vector<Bytes> damaged;
    for (const std::size_t size :
         {std::size_t{0}, std::size_t{3}, std::size_t{5}, std::size_t{20}, whole.size() / 2, whole.size() - 1})
        damaged.emplace_back(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
    damaged.push_back(whole);
    damaged.back().push_back(0); // something behind the end
    damaged.push_back(whole);
    damaged.back()[0] = 'K';
    const std::size_t count_at = 4 + 1 + 6 + 1 + 3;
    for (const int frames : {0, 1, 3, 101, 255}) {
        damaged.push_back(whole);
        damaged.back()[count_at + 3] = static_cast<uint8_t>(frames);
    }
    damaged.push_back(whole);
    damaged.back()[count_at] = 0xff; // a negative number of frames
    damaged.push_back(whole);
    damaged.back()[count_at + 4] = 0xff; // a first block of four gigabytes
    for (const Bytes& archive : damaged) {
        put_archive("bad.wsp", archive);
        EXPECT_EQ(load_workspace_archive("bad.wsp", show_bar), -1);
    }
    EXPECT_TRUE(logged("[ ERROR ] : Workspace packfile appears to be corrupt. Aborting load!"));
    EXPECT_EQ(load_workspace_archive("missing.wsp", show_bar), -1);
    EXPECT_TRUE(logged("[ ERROR ] : Workspace archive is missing or corrupt! Aborting load!"));
    EXPECT_EQ(load_workspace_archive("WORKSPACE", show_bar), -1);
    EXPECT_TRUE(logged("[ ERROR ] : Failure to read file at OS level! Aborting load!"));
    EXPECT_TRUE(store_files() == files);
    EXPECT_EQ(store.workspace_title, "PACKED");
    EXPECT_EQ(gui.active[0], 0);
}

TEST_F(ArchiveTest, FailedSaveLeavesTheOldArchive)
{
    pack(2);
    const std::string before = folder.text("w.wsp");
    // One that would hold an older form of the open frame isn't written at all.
    std::filesystem::create_directory(in_store(".next.list.kelu-new"));
    std::filesystem::create_directory(in_store(".current.000.kelu-new"));
    clear_to_color(store.frame_bitmap, 0x778899);
    save_workspace_archive("w.wsp", show_bar);
    EXPECT_TRUE(folder.text("w.wsp") == before);
    EXPECT_TRUE(reported().starts_with("THE FRAME COULDN'T BE SAVED! current.000 "));
    std::filesystem::remove(in_store(".next.list.kelu-new"));
    std::filesystem::remove(in_store(".current.000.kelu-new"));
    save_workspace_archive("missing/w.wsp", show_bar);
    EXPECT_TRUE(logged("[ ERROR ] : Couldn't write file! Name = missing/w.wsp"));
}

TEST_F(ArchiveTest, RefusesBlocksThatHoldNoPicture)
{
    pack(2);
    const auto files = store_files();
    const std::string names[] = {"current.000", "current.001", "current.cel",
                                 "current.nal", "current.tip", "current.spa"};
    for (const std::string& wrong : names) {
        for (const bool empty : {false, true}) {
            if (!empty && wrong == "current.spa") continue; // a state may hold what a later program knows
            Bytes archive;
            ByteWriter out(archive);
            out.text("kWSP");
            out.byte(0);
            out.byte(0);
            out.big32(2);
            for (const std::string& name : names)
                put_block(out, name != wrong ? bytes(name) : std::string(empty ? 0 : bytes(name).size(), 'j'));
            put_archive("junk.wsp", archive);
            EXPECT_EQ(load_workspace_archive("junk.wsp", show_bar), -1) << wrong;
        }
    }
    EXPECT_TRUE(store_files() == files);
    EXPECT_EQ(store.workspace_title, "PACKED");
}

} // namespace kelu
