// SPDX-License-Identifier: MIT
// The cel: a rectangle of picture held apart from the frames, the editor's own clipboard and the texture of two inks.
//
// This file is the model: taking a cel, masking it, changing it as a picture. Placing it is in cel_render.h, the
// loops in which the user does so in cel_grab.h, cel_paste.h, cel_turn.h and cel_stretch.h.
#pragma once

#include "base/bitmap.h"
#include "runtime/cel.h"

namespace kelu {

/// What is done with the floating cel. Values of `mode`.
enum CelMode : int { CEL_NONE = -1, CEL_STRETCH, CEL_ROTATION, CEL_PLAIN, CEL_BELOW };

/// The floating cel. All -1 while no cel operation runs.
struct CelPlace {
    int x = -1, y = -1; ///< frame pixels: top left corner; for a rotation the centre
    int x2 = -1;        ///< for a stretch the opposite corner's x; for a rotation the angle, 256 to the circle
    int y2 = -1;        ///< for a stretch the opposite corner's y
    int mode = CEL_NONE;
    int box_x = -1, box_y = -1; ///< box of the preview, view coordinates; set by the preview
    int box_w = -1, box_h = -1; ///< its size for a stretch; for a rotation its right and bottom edge
    int show_outline = -1;      ///< 1: the preview draws a dashed rectangle round the cel
};

constexpr int no_grab = -6666;       ///< value of `grab_x` while no rectangle is being grabbed
constexpr int no_corner_yet = -9000; ///< the first corner of a grab is still to come

/// Owner: draw/cel. Main thread; run_frame's previews read it.
/// Writers: tools, screens.
struct CelWork {
    CelPlace cel_place;
    int cel_in_view = 0;                    ///< 1: the cel's rectangle overlapped the view in the last preview
    int grab_x = no_grab, grab_y = no_grab; ///< first corner of a grab, frame pixels, or the values above
    int borrowed = 0;                       ///< operations that have put the user's cel aside
};
inline CelWork cel_work;

/// A rectangle of frame pixels, right and bottom included.
struct CelRect {
    int left, top, right, bottom;
    int width() const { return right + 1 - left; }
    int height() const { return bottom + 1 - top; }
};

/// Every pixel that is nearer to `color` than `cel_tolerance` in each channel becomes magenta. With the option
/// `cel_masking` off nothing does, so that the whole rectangle is pasted.
void apply_cel_mask(BITMAP* bitmap, int color);

/// Makes a rectangle of the frame the cel; its origin stays. What lies beyond the frame is magenta. False, a line in
/// the log and the old cel when the rectangle is too large.
bool take_cel(const CelRect& rect);

/// The box of all pixels of the frame that aren't near `color`; right is below left when there is none.
CelRect find_picture(int color);

/// The working copy becomes the grabbed cel again.
void restore_cel_copy();

/// Every pixel of the bitmap that differs from `color` by more than `cel_tolerance` in a channel takes the brush
/// colour.
void cel_one_color(BITMAP* bitmap, int color);

/// Turns of the scratch copy in the transform window: `shown` becomes the changed picture, and `scratch` follows.
/// Magenta pixels of the scratch copy leave what `shown` had there.
void flip_cel(BITMAP* shown, BITMAP* scratch);
void mirror_cel(BITMAP* shown, BITMAP* scratch);
/// By 90 degrees about the middle. The size stays: a cel that isn't square loses its ends.
void turn_cel(BITMAP* shown, BITMAP* scratch);

/// Keeps the user's cel, its origin and place while an operation borrows the machinery; its end brings them back.
class KeptCel {
public:
    KeptCel();
    ~KeptCel();
    KeptCel(const KeptCel&) = delete;
    KeptCel& operator=(const KeptCel&) = delete;

private:
    Bitmap source_, copy_;
    Cel cel_;
    CelPlace place_;
};

} // namespace kelu
