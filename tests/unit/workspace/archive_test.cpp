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

constexpr const char* names[] = {"current.000", "current.001", "current.cel",
                                 "current.nal", "current.tip", "current.spa"};

class ArchiveTest : public WorkspaceTest {
protected:
    ArchiveTest() { bar.clear(); }

    /// A workspace of two frames that is written and packed as "w.wsp".
    void pack()
    {
        make_frames(2);
        store.workspace_title = "PACKED";
        EXPECT_EQ(save_workspace_archive("w.wsp", show_bar), 0);
    }
    /// The store's files in the fixed layout, one of them exchanged.
    Bytes archive(const std::string& title, const std::string& notes, const std::string& exchanged = {},
                  const std::string& with = {}) const
    {
        Bytes archive;
        ByteWriter out(archive);
        out.text("kWSP");
        for (const std::string& text : {title, notes}) {
            out.byte(static_cast<int>(text.size()));
            out.text(text);
        }
        out.big32(2);
        for (const std::string name : names) {
            const std::string block = name == exchanged ? with : bytes(name);
            out.big32(static_cast<uint32_t>(block.size()));
            out.text(block);
        }
        return archive;
    }
    /// All names and bytes of the store.
    std::map<std::string, std::string> store_files() const
    {
        std::map<std::string, std::string> files;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path() / "WORKSPACE"))
            files[entry.path().filename().string()] = bytes(entry.path().filename().string());
        return files;
    }
};

} // namespace

TEST_F(ArchiveTest, HoldsTheOpenFrameInItsFixedLayout)
{
    make_frames(2);
    row(store.frame_bitmap, 0)[0] = 0xabcdef; // never committed by hand
    store.workspace_title = "T";
    store.workspace_notes = std::string(300, 'N');
    EXPECT_EQ(save_workspace_archive("w.wsp", show_bar), 0);
    EXPECT_EQ(platform::working_directory(), run_state.program_dir);
    const Bytes expected = archive("T", std::string(255, 'N'));
    EXPECT_TRUE(folder.text("w.wsp") == std::string(expected.begin(), expected.end()));
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
    bar.clear();
    EXPECT_EQ(load_workspace_archive("w.wsp", show_bar), 0);
    EXPECT_EQ(bar, (std::vector<int>{50, 100, 100}));
    EXPECT_EQ(store.alpha_edit_mode, 0);
    EXPECT_EQ(row(store.frame_bitmap, 0)[0], 0x10);
    EXPECT_EQ(row(store.alpha_bitmap, 0)[0], 0xffffff);
    ASSERT_EQ(view.onion_on, 1);
    EXPECT_EQ(pixel(store.onion_bitmap) & 0xffffff, 0x11) << "the neighbour's colours";
    delete_frames(1, 1);
    save_workspace_archive("w.wsp", show_bar);
    EXPECT_EQ(load_workspace_archive("w.wsp", show_bar), 0) << "one frame is enough";
}

TEST_F(ArchiveTest, RefusesEveryDamageBeforeAnythingIsTouched)
{
    pack();
    const std::string text = folder.text("w.wsp");
    const Bytes whole(text.begin(), text.end());
    const auto files = store_files();
    std::vector<Bytes> damaged;
    for (const std::size_t size : {std::size_t{0}, std::size_t{3}, std::size_t{5}, std::size_t{20}, whole.size() / 2,
                                   whole.size() - 1, whole.size() + 1}) {
        damaged.push_back(whole);
        damaged.back().resize(size);
    }
    constexpr std::size_t count = 4 + 1 + 6 + 1 + 3;
    // The magic, wrong and negative numbers of frames, and a first block of four gigabytes.
    for (const auto& [at, value] : {std::pair{std::size_t{0}, 'K'},
                                    {count + 3, 0},
                                    {count + 3, 1},
                                    {count + 3, 3},
                                    {count + 3, 101},
                                    {count + 3, 255},
                                    {count, 255},
                                    {count + 4, 255}}) {
        damaged.push_back(whole);
        damaged.back()[at] = static_cast<uint8_t>(value);
    }
    for (const std::string name : names) { // blocks that hold no picture; a state may hold what a later program knows
        damaged.push_back(archive("PACKED", "", name));
        if (name != "current.spa") damaged.push_back(archive("PACKED", "", name, std::string(bytes(name).size(), 'j')));
    }
    for (std::size_t i = 0; i < damaged.size(); ++i) {
        folder.put("bad.wsp", damaged[i]);
        EXPECT_EQ(load_workspace_archive("bad.wsp", show_bar), -1) << i;
    }
    EXPECT_TRUE(logged("[ ERROR ] : Workspace packfile appears to be corrupt. Aborting load!"));
    EXPECT_EQ(menus.status_message, TIP_LOAD_FAILED);
    EXPECT_EQ(reported(), "") << "no call has failed";
    EXPECT_EQ(load_workspace_archive("missing.wsp", show_bar), -1);
    EXPECT_TRUE(logged("[ ERROR ] : Workspace archive is missing or corrupt! Aborting load!"));
    EXPECT_EQ(load_workspace_archive("WORKSPACE", show_bar), -1);
    EXPECT_TRUE(logged("[ ERROR ] : Failure to read file at OS level! Aborting load!"));
    EXPECT_TRUE(reported().ends_with("A FOLDER IS IN THE WAY\n"));
    EXPECT_TRUE(store_files() == files);
    EXPECT_EQ(store.workspace_title, "PACKED");
    EXPECT_EQ(gui.active[0], 0);
}

TEST_F(ArchiveTest, FailedSaveLeavesTheOldArchive)
{
    pack();
    const std::string before = folder.text("w.wsp");
    // One that would hold an older form of the open frame isn't written at all.
    std::filesystem::create_directory(in_store(".next.list.kelu-new"));
    std::filesystem::create_directory(in_store(".current.000.kelu-new"));
    clear_to_color(store.frame_bitmap, 0x778899);
    save_workspace_archive("w.wsp", show_bar);
    EXPECT_TRUE(folder.text("w.wsp") == before);
    EXPECT_TRUE(reported().starts_with("THE FRAME COULDN'T BE SAVED! current.000 "));
}

} // namespace kelu
