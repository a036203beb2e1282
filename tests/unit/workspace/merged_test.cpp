// SPDX-License-Identifier: MIT
// Between the two pictures of a frame and its merged form, in both roles.
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
    EXPECT_FALSE(frame_changed());
    row(store.frame_bitmap, 0)[1] = 0x818181;
    EXPECT_TRUE(frame_changed());
    row(store.frame_bitmap, 0)[1] = 0x80ff01; // a colour of the same grey is none
    EXPECT_FALSE(frame_changed());
    row(store.frame_bitmap, 0)[1] = 0x8000ff; // but one of the same red is
    EXPECT_TRUE(frame_changed());
    row(store.frame_bitmap, 0)[1] = 0x808080;
    row(store.alpha_bitmap, 0)[1] = 0x112234;
    EXPECT_TRUE(frame_changed());
    row(store.alpha_bitmap, 0)[1] = 0x112233;
    EXPECT_FALSE(frame_changed());
    store.restoration_bitmap = Bitmap(1, 2, half | 0x112233);
    EXPECT_TRUE(frame_changed());
}

} // namespace kelu
