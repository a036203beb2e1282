// SPDX-License-Identifier: MIT
// Between the two pictures of a frame and its merged form, in both roles. Swapping frames: what is committed, what is
// loaded, and what a missing or broken file leaves.
#include "imagefile/png.h"
#include "workspace/frame_resize.h"
#include "workspace/restore.h"
#include "workspace_fixture.h"

namespace kelu {
namespace {

constexpr int half = static_cast<int>(0x80000000U);

class MergedTest : public WorkspaceTest {
protected:
    MergedTest()
    {
        store.frame_bitmap = Bitmap(2, 1, 0x112233);
        store.alpha_bitmap = Bitmap(2, 1, 0x808080);
    }
};

using FrameStoreTest = WorkspaceTest;

} // namespace

TEST_F(MergedTest, MergeAndStripAreInverseInBothRoles)
{
    Bitmap merged(2, 1);
    alpha_merge(merged);
    EXPECT_EQ(pixel(merged), half | 0x112233);

    toggle_alpha_edit();
    EXPECT_EQ(pixel(store.frame_bitmap), 0x808080);
    EXPECT_EQ(pixel(store.alpha_bitmap), 0x112233);
    Bitmap from_alpha_mode(2, 1);
    alpha_merge(from_alpha_mode);
    EXPECT_EQ(pixel(from_alpha_mode), half | 0x112233);

    Bitmap first(2, 1), second(2, 1);
    alpha_strip(merged, first, second);
    EXPECT_EQ(pixel(first), 0x808080);
    EXPECT_EQ(pixel(second), 0x112233);
    store.alpha_edit_mode = 0;
    alpha_strip(merged, merged, second); // in place
    EXPECT_EQ(pixel(merged), 0x112233);
    EXPECT_EQ(pixel(second), 0x808080);
}

TEST_F(MergedTest, ColoursDrawnIntoAlphaTurnGreyAndGreySurvives)
{
    toggle_alpha_edit();
    row(store.frame_bitmap, 0)[0] = 0xfffffe;
    toggle_alpha_edit();
    EXPECT_EQ(pixel(store.alpha_bitmap), 0xfefefe);
    EXPECT_EQ(pixel(store.alpha_bitmap, 1), 0x808080);
    EXPECT_EQ(pixel(store.frame_bitmap), 0x112233);
    EXPECT_EQ(store.alpha_edit_mode, 0);

    toggle_alpha_edit();
    row(store.frame_bitmap, 0)[1] = 0x0000ff; // (0 + 0 + 255) / 3
    Bitmap merged(2, 1);
    alpha_merge(merged);
    EXPECT_EQ(pixel(merged, 1), 0x55112233);
}

TEST_F(MergedTest, ChangeIsSeenInColourAlphaAndSizeButNotInTheToggle)
{
    store.restoration_bitmap = Bitmap(2, 1);
    alpha_merge(store.restoration_bitmap);
    EXPECT_FALSE(frame_changed());
    toggle_alpha_edit();
    for (const auto& [alpha, color, changed] : {std::tuple{0x808080, 0x112233, false},
                                                {0x818181, 0x112233, true},
                                                {0x80ff01, 0x112233, false}, // a colour of the same grey
                                                {0x8000ff, 0x112233, true},  // but not one of the same red
                                                {0x808080, 0x112234, true}}) {
        row(store.frame_bitmap, 0)[1] = alpha;
        row(store.alpha_bitmap, 0)[1] = color;
        EXPECT_EQ(frame_changed(), changed) << std::hex << alpha << ' ' << color;
    }
    row(store.alpha_bitmap, 0)[1] = 0x112233;
    store.restoration_bitmap = Bitmap(2, 2, half | 0x112233);
    EXPECT_TRUE(frame_changed()) << "another size";
}

TEST_F(FrameStoreTest, UnchangedFrameIsNotRewrittenButTheSheetIs)
{
    make_frames(2);
    const auto before = std::filesystem::last_write_time(in_store("current.000"));
    EXPECT_FALSE(exists("current.nal"));
    browser_state.browser_dir = (folder.path() / "resource").string();
    EXPECT_TRUE(fetch_frame(0, 0, 0));
    EXPECT_EQ(platform::working_directory(), run_state.program_dir);
    for (const int mode : {1, 0}) {
        platform::change_directory(run_state.program_dir);
        EXPECT_TRUE(fetch_frame(0, 1, mode));
        EXPECT_EQ(platform::working_directory(), browser_state.browser_dir) << "files are named from there";
    }
    EXPECT_EQ(std::filesystem::last_write_time(in_store("current.000")), before);
    EXPECT_TRUE(exists("current.nal"));
}

TEST_F(FrameStoreTest, AlphaModeTakesTheOnionSkinAlongAndLeavesUndoAlone)
{
    make_frames(2);
    push_undo(false);
    show_onion_skin();
    switch_alpha_mode();
    EXPECT_EQ(store.alpha_edit_mode, 1);
    EXPECT_EQ(view.onion_on, 1);
    EXPECT_EQ(pixel(store.onion_bitmap), 0xffffff);
    switch_alpha_mode();
    EXPECT_EQ(pixel(store.onion_bitmap) & 0xffffff, 0x11);
    view.onion_on = 0;
    switch_alpha_mode();
    EXPECT_FALSE(store.onion_bitmap);
    undo_step(); // the copy of the colours comes back into the frame, whose role is now the alpha
    EXPECT_EQ(pixel(store.frame_bitmap), 0x10);
}

TEST_F(FrameStoreTest, SlotOutOfRangeChangesNothingAndTheSameSlotDiscardsTheEdits)
{
    make_frames(1);
    row(store.frame_bitmap, 0)[0] = 0xabcdef;
    push_undo(false);
    EXPECT_FALSE(fetch_frame(0, 1, 0));
    EXPECT_FALSE(fetch_frame(-1, 0, 0));
    EXPECT_FALSE(fetch_frame(max_frames, 0, 0));
    EXPECT_FALSE(fetch_frame(0, -1, 1));
    EXPECT_TRUE(logged("[ ERROR ] : New_frame OOB in call to fetch_frame! slot = -1"));
    EXPECT_EQ(pixel(store.frame_bitmap), 0xabcdef);
    EXPECT_TRUE(fetch_frame(0, 0, 0));
    EXPECT_EQ(pixel(store.frame_bitmap), 0x10);
    EXPECT_EQ(stored_pixel(0), frame_color(0));
    EXPECT_EQ(undo.undo_age, all_undo_slots_free);
}

TEST_F(FrameStoreTest, BrokenFrameIsKeptAndReplacedByABlankOne)
{
    make_frames(3);
    folder.put("WORKSPACE/current.001", "not a picture");
    EXPECT_TRUE(fetch_frame(0, 1, 0));
    EXPECT_EQ(store.current_frame, 1);
    EXPECT_EQ(store.frame_bitmap.width(), 8); // the size of the frame that was left
    EXPECT_EQ(store.frame_bitmap.height(), 6);
    EXPECT_EQ(pixel(store.frame_bitmap), 0);
    EXPECT_EQ(run_state.workspace_damaged, 1);
    EXPECT_EQ(bytes("damaged.001"), "not a picture");
    EXPECT_EQ(stored_pixel(1), opaque);

    EXPECT_TRUE(fetch_frame(1, 0, 0));
    put_frame(1, opaque | 5, 1, 9); // narrower than a frame may be; it doesn't take the first one's place
    EXPECT_TRUE(fetch_frame(0, 1, 0));
    EXPECT_EQ(bytes("damaged.001"), "not a picture");
    EXPECT_TRUE(exists("damaged.001.1"));
    std::filesystem::remove(in_store("current.002"));
    EXPECT_TRUE(fetch_frame(1, 2, 0));
    EXPECT_EQ(stored_pixel(2), opaque);
    EXPECT_FALSE(exists("damaged.002"));
}

TEST_F(FrameStoreTest, AFrameThatTheSystemWontReadStaysAndAnotherOneIsShown)
{
    make_frames(2);
    ASSERT_TRUE(fetch_frame(0, 1, 0));
    write_workspace_state("current.spa", false);
    const auto bar = [this](const char* name) { // of all regular files this one can't be read by anybody
        std::filesystem::rename(in_store(name), in_store(name).string() + ".kept");
        std::filesystem::create_symlink("/proc/self/mem", in_store(name));
        reported();
    };
    const std::string why = "THE FRAME COULDN'T BE READ! current.001 ERROR OF THE DISK\n";
    bar("current.001");
    start_again();
    EXPECT_EQ(store.current_frame, 0);
    EXPECT_EQ(pixel(store.frame_bitmap), 0x10);
    EXPECT_EQ(reported(), why);
    EXPECT_FALSE(fetch_frame(0, 1, 0));
    EXPECT_EQ(pixel(store.frame_bitmap), 0x10);
    EXPECT_EQ(reported(), why);
    toggle_alpha_edit();
    EXPECT_FALSE(fetch_frame(0, 1, 1));
    EXPECT_EQ(reported(), why);
    delete_frames(0, 1);
    EXPECT_EQ(store.frame_count, 2) << "nothing could be shown then";
    bar("current.000");
    start_again();
    EXPECT_EQ(store.frame_bitmap.width(), default_frame_w) << "a blank picture stands in";
    EXPECT_TRUE(write_workspace_state("current.spa", false));
    EXPECT_FALSE(exists("damaged.000") || exists("damaged.001")) << "and isn't kept in its place";
    clear_to_color(store.frame_bitmap, 0x445566);
    EXPECT_TRUE(write_workspace_state("current.spa", false)); // now it is work of the user's
    EXPECT_TRUE(exists(frame_file(store.current_frame, file_set::damaged)));
    EXPECT_EQ(stored_pixel(store.current_frame), opaque | 0x445566);
}

TEST_F(FrameStoreTest, PictureOfAnotherProgramKeepsTheRestorationCopy)
{
    make_frames(1);
    ASSERT_EQ(save_png("picture", Bitmap(4, 3, 0x40000033)), 0);
    EXPECT_TRUE(load_frame_file("picture", LOAD_PICTURE, FORMAT_PNG));
    EXPECT_EQ(store.frame_bitmap.width(), 4);
    EXPECT_EQ(store.coverage_bitmap.width(), 4);
    EXPECT_EQ(pixel(store.frame_bitmap), 0x33);
    EXPECT_EQ(pixel(store.alpha_bitmap), 0x404040);
    EXPECT_EQ(pixel(store.restoration_bitmap), frame_color(0));
    EXPECT_FALSE(load_frame_file("picture", LOAD_PICTURE, FORMAT_GIF)); // one that can't be read
    EXPECT_FALSE(load_frame_file("missing", LOAD_PICTURE, FORMAT_PNG));
    EXPECT_EQ(pixel(store.frame_bitmap), 0x33);
}

TEST_F(FrameStoreTest, RestoreBringsTheViewBackOnlyWhereTheLoadedPictureHadAnotherSize)
{
    make_frames(1);
    const auto look = [] { return std::array<int, 3>{view.zoom, view.pan_x, view.pan_y}; };
    for (const auto& [w, h, comes_back] : {std::tuple{8, 3, true}, {4, 6, true}, {8, 6, false}}) {
        save_png("picture", Bitmap(w, h, 0x40000033));
        view.zoom = 3;
        view.pan_x = -35;
        view.pan_y = -27;
        const auto before = look();
        ASSERT_TRUE(load_frame_file("picture", LOAD_PICTURE, FORMAT_PNG));
        view.zoom = 2;
        clamp_pan();
        const auto after = look();
        restore_frame();
        EXPECT_EQ(look(), comes_back ? before : after) << w << " x " << h;
        EXPECT_FALSE(platform::file_exists("current.nal")) << "the folder isn't the store's";
    }
    resize_frame(0, 9, 9, 0, 0);
    restore_frame();
    EXPECT_EQ(view.zoom, 2) << "nothing was loaded";

    for (const int color : {0x33, 0x34}) {
        save_png("picture", Bitmap(4, 3, 0x40000000 | color));
        load_frame_file("picture", LOAD_PICTURE, FORMAT_PNG);
    }
    EXPECT_EQ(stored_pixel(0), frame_color(0)) << "looking for the right picture counts as no work";
    row(store.frame_bitmap, 2)[3] = 0xabcdef;
    load_frame_file("picture", LOAD_PICTURE, FORMAT_PNG);
    restore_frame();
    EXPECT_EQ(pixel(store.frame_bitmap, 3, 2), 0xabcdef) << "but what was painted on it does";
    EXPECT_EQ(static_cast<unsigned>(stored_pixel(0)), 0x40000034U);
}

TEST_F(FrameStoreTest, BackdropFollowsTheLightnessOfSmallFrames)
{
    const auto backdrop_of = [](int w, int h, int color) {
        EXPECT_TRUE(adopt_picture(Bitmap(w, h, opaque | color), true));
        return view.backdrop;
    };
    EXPECT_EQ(backdrop_of(8, 8, 0xaa0202), 1); // (170 + 2) / 2 = 86
    EXPECT_EQ(backdrop_of(8, 8, 0xaa0101), 0);
    EXPECT_EQ(backdrop_of(8, 8, 0xffffff), 2);
    EXPECT_EQ(backdrop_of(320, 240, 0), 2) << "nothing shows round a frame that fills the screen";
    EXPECT_EQ(backdrop_of(320, 8, 0), 0);
    EXPECT_FALSE(adopt_picture(Bitmap(), true));
}

} // namespace kelu
