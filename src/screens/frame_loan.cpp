// SPDX-License-Identifier: MIT
// The frame's place while another picture is in it.
#include "screens/frame_loan.h"

#include "loop/actions.h"
#include "runtime/store.h"
#include "runtime/view.h"
#include <utility>

namespace kelu {

FrameLoan::FrameLoan(Bitmap picture)
{
    ++action_state.frame_locked;
    lent_frame.kept_frame = std::exchange(store.frame_bitmap, std::move(picture));
    note_frame_size();
}

FrameLoan::~FrameLoan()
{
    end_frame_loan();
    --action_state.frame_locked;
}

void end_frame_loan()
{
    if (!lent_frame.kept_frame) return;
    store.frame_bitmap = std::move(lent_frame.kept_frame);
    note_frame_size();
}

} // namespace kelu
