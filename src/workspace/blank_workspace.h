// SPDX-License-Identifier: MIT
// A workspace as it is before anything has been drawn.
#pragma once

namespace kelu {

/// The pictures, views, colours and tools of a new workspace, in memory and in the store: one black frame of 320 x
/// 240, fully opaque. The process ends up in the program's folder.
void make_blank_workspace();

/// Wipes the workspace: removes all frames of the store, and those put aside by an archive, and begins a new one. When
/// the program's folder is gone nothing is removed.
void clear_workspace();

/// A workspace at the start of the program when there is no state file: takes over the frames and containers that lie
/// in the store, and without a frame begins a new workspace.
void begin_workspace();

/// The colours, tools and slots that a workspace has without a state: random favourites and spectrum, grey extended
/// favourites, the usual tools and inks.
void reset_palette_and_slots();

} // namespace kelu
