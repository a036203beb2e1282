// The frame's place, lent to a picture that is only looked at.
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

/// Puts the frame back, if it is lent.
void end_frame_loan();

} // namespace kelu
