// SPDX-License-Identifier: MIT
// Files into and out of the frame: alpha on the way, refusals, previews.
#include "screens/dispatch.h"

#include "base/run_state.h"
#include "gui/menus.h"
#include "gui/strings.h"
#include "gui/tooltips.h"
#include "imagefile/formats.h"
#include "imagefile/png.h"
#include "runtime/pixels.h"
#include "runtime/preferences.h"
#include "runtime/store.h"
#include "screens/browser_slots.h"
#include "screens/preview.h"
#include "support/fresh_state.h"
#include "support/paths.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"
#include "workspace/merged.h"
#include <filesystem>
#include <tuple>
#include <utility>

namespace kelu {
namespace {

using namespace test;

class Dispatch : public FreshState {
protected:
    Dispatch()
    {
        store.frame_bitmap = paint(21, 9, [](int x, int y) { return six_bit(pack_rgb(x / 7 * 96, y / 3 * 96, 64)); });
        store.alpha_bitmap = paint(21, 9, [](int x, int y) { return (1 + x * 9 + y) * 0x010101; });
        store.restoration_bitmap = Bitmap(21, 9);
        store.nail_sheet = Bitmap(400, 400);
        run_state.program_dir = folder_.path();
        screen_state.preview_bitmap = Bitmap(117, 79);
        colors_ = store.frame_bitmap.copy();
        alpha_ = store.alpha_bitmap.copy();
    }
    ~Dispatch() override { screen_state.preview_bitmap.reset(); }

    TemporaryFolder folder_;
    Bitmap colors_, alpha_;
};

TEST_F(Dispatch, AlphaTravelsInPngAndIconsAndIsOpaqueElsewhere)
{
    preferences.color_reduction = 2;
    const Bitmap white(21, 9, 0xffffff);
    for (const char* name : {"A.PNG", "A.ICO", "A.GIF", "A.PCX", "A.BMP", "A.LBM"}) {
        store.frame_bitmap = colors_.copy();
        store.alpha_bitmap = alpha_.copy();
        ASSERT_TRUE(save_picture_file(name, BROWSE_PICTURE)) << name;
        store.frame_bitmap = Bitmap(4, 4, 0x111111); // another one, into which it is loaded
        store.alpha_bitmap = Bitmap(4, 4, 0x222222);
        ASSERT_TRUE(load_picture_file(name, BROWSE_PICTURE)) << name;
        const bool keeps = name[2] == 'P' ? name[3] == 'N' : name[2] == 'I';
        EXPECT_EQ(difference(store.frame_bitmap, colors_), "") << name;
        EXPECT_EQ(difference(store.alpha_bitmap, keeps ? alpha_.get() : white.get()), "") << name;
    }
    EXPECT_EQ(menus.status_message, TIP_LOADED);
}

TEST_F(Dispatch, APictureGetsItsOpaqueAlphaInAlphaEditingToo)
{
    toggle_alpha_edit();
    ASSERT_TRUE(load_picture_file(data_folder() + "/jpeg/rgb.jpg", BROWSE_PICTURE));
    EXPECT_EQ(row(alpha_picture(), 3)[3], 0xffffff); // opaque by role, with the picture in the other bitmap
    EXPECT_NE(row(color_picture(), 3)[3], 0xffffff);
}

TEST_F(Dispatch, OtherNamesBecomePngWithoutAlpha)
{
    for (const char* name : {"NAME.TXT", "name", "a.ttf"}) {
        ASSERT_TRUE(save_picture_file(name, BROWSE_PICTURE)) << name;
        EXPECT_EQ(difference(load_png(name), colors_), "") << name;
    }
}

TEST_F(Dispatch, WhatCannotBeLoadedLeavesTheFrame)
{
    folder_.put("text.png", "no picture");
    folder_.put("tiny", "BM");
    folder_.put("a.ttf", "no picture");
    std::filesystem::copy_file(data_folder() + "/gif/plain.gif", "gif.png");
    std::filesystem::copy_file("gif.png", "not.jpg");
    for (const auto& [name, reason] : {std::pair{"text.png", "FILE SIGNATURE MISMATCH!"},
                                       {"tiny", "NO KIND OF PICTURE!"},
                                       {"a.ttf", "NO KIND OF PICTURE!"},
                                       {"gif.png", "FILE SIGNATURE MISMATCH!"},
                                       {"not.jpg", "NOT A JPEG FILE: STARTS WITH 0X47 0X49"},
                                       {"missing.png", "NO SUCH FILE!"},
                                       {"IMAGE.JPEG", "NO SUCH FILE!"}}) {
        menus = {};
        EXPECT_FALSE(load_picture_file(name, BROWSE_PICTURE)) << name;
        EXPECT_EQ(menus.status_message, TIP_LOAD_FAILED) << name;
        EXPECT_EQ(menus.status_reason, reason) << name;
        EXPECT_EQ(difference(store.frame_bitmap, colors_), "") << name;
        EXPECT_EQ(difference(store.alpha_bitmap, alpha_), "") << name;
    }
    EXPECT_FALSE(load_picture_file("text.png", BROWSE_SCHEME));
    EXPECT_FALSE(load_picture_file("text.png", BROWSE_FAVORITES));
}

TEST_F(Dispatch, WhatIsTooLargeForAnIconLeavesTheOldFile)
{
    for (const auto& [w, h] : {std::pair{257, 3}, {3, 257}, {256, 256}}) {
        store.frame_bitmap = Bitmap(w, h);
        store.alpha_bitmap = Bitmap(w, h);
        folder_.put("old.ico", "old");
        EXPECT_EQ(save_picture_file("old.ico", BROWSE_PICTURE), w == h);
        EXPECT_EQ(menus.status_message, w == h ? TIP_SAVED : TIP_PICTURE_TOO_LARGE);
        EXPECT_EQ(folder_.text("old.ico") == "old", w != h);
    }
}

TEST_F(Dispatch, AFilterListsTheFormatThatItsButtonNames)
{
    for (int filter = 0; filter < browser_filters; ++filter)
        EXPECT_EQ(format_of_filter(filter).extension, ui_strings[TEXT_GIF + filter]);
}

/// What stands in the preview: a picture's colour in its middle, or the messages' ground.
int preview_middle() { return row(screen_state.preview_bitmap, 70)[58]; }

TEST_F(Dispatch, PreviewsFitShrinkAndGiveWay)
{
    save_png("large.png", Bitmap(500, 400, 0x102030));
    save_png("small.png", Bitmap(3, 700, 0x405060));
    save_png("limit.png", Bitmap(8, 8, 0x708090));
    std::filesystem::copy_file("limit.png", "below.png");
    std::filesystem::resize_file("limit.png", 2'048'000);
    std::filesystem::resize_file("below.png", 2'047'999);
    folder_.put("damaged.png", "no picture");
    folder_.put("a.wsp", "kWSP");
    const int none = fixed_colours.menu_grey;
    for (const auto& [name, clicked, middle] : {std::tuple{"large.png", false, 0x102030},
                                                {"damaged.png", false, none},
                                                {"small.png", false, 0x405060},
                                                {"a.wsp", false, none},
                                                {"limit.png", true, 0x708090},
                                                {"limit.png", false, none},
                                                {"below.png", false, 0x708090},
                                                {"none", false, none}}) {
        update_preview(name, clicked);
        EXPECT_EQ(preview_middle(), middle) << name;
    }
    preferences.file_preview_mode = 0;
    update_preview("large.png", true);
    EXPECT_EQ(preview_middle(), none);
    EXPECT_EQ(difference(store.alpha_bitmap, alpha_), ""); // nothing has touched the frame
}

} // namespace
} // namespace kelu
