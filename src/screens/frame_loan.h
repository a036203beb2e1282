// SPDX-License-Identifier: MIT
// Another picture in the frame's place, to be looked at only.
//
// Previews show a picture by putting it in the place of `frame_bitmap`. Meanwhile the frame is kept here and no action
// may commit, swap, replace or save it; and whatever way the program ends, the frame is back before it is written.
#pragma once

#include "base/bitmap.h"

namespace kelu {

/// Owner: FrameLoan. Main thread.
struct LentFrame {
    Bitmap kept_frame; ///< the frame while another picture has its place; empty otherwise
};
inline LentFrame lent_frame;

/// A loan from its making to its end. One at a time.
class FrameLoan {
public:
    explicit FrameLoan(Bitmap picture);
    ~FrameLoan();
    FrameLoan(const FrameLoan&) = delete;
    FrameLoan& operator=(const FrameLoan&) = delete;
};

/// Puts the frame back, if another is in its place.
void end_frame_loan();

} // namespace kelu
