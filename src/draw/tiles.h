// SPDX-License-Identifier: MIT
// A picture in squares of 64 x 64 pixels: the unit in which undo and the journal keep what an operation has changed.
#pragma once

#include "base/bitmap.h"
#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace kelu {

constexpr int frame_tile_shift = 6;
constexpr int frame_tile_side = 1 << frame_tile_shift; ///< pixels; tiles at the right and lower rim may show fewer

/// The pixels of a picture that one tile covers.
struct TileBox {
    int x = 0, y = 0, w = 0, h = 0;
};

/// The tiles of a picture of w x h pixels, counted row by row.
struct TileGrid {
    int w = 0, h = 0; ///< of the picture, pixels

    static TileGrid of(const Bitmap& picture) { return {picture.width(), picture.height()}; }
    int columns() const { return (w + frame_tile_side - 1) >> frame_tile_shift; }
    int rows() const { return (h + frame_tile_side - 1) >> frame_tile_shift; }
    std::size_t count() const { return static_cast<std::size_t>(columns()) * static_cast<std::size_t>(rows()); }
    /// The tile that holds a pixel of the picture.
    std::size_t at(int x, int y) const
    {
        return static_cast<std::size_t>(y >> frame_tile_shift) * static_cast<std::size_t>(columns()) +
               static_cast<std::size_t>(x >> frame_tile_shift);
    }
    TileBox box(std::size_t tile) const
    {
        const auto across = static_cast<std::size_t>(columns());
        const int x = static_cast<int>(tile % across) << frame_tile_shift;
        const int y = static_cast<int>(tile / across) << frame_tile_shift;
        return {x, y, std::min(frame_tile_side, w - x), std::min(frame_tile_side, h - y)};
    }
    friend bool operator==(const TileGrid&, const TileGrid&) = default;
};

/// The pixels of one tile, 64 a row; what lies outside the picture is 0.
struct TilePixels {
    std::array<int, static_cast<std::size_t>(frame_tile_side) * frame_tile_side> pixels; // `take` fills all of it

    int* line(int y) { return pixels.data() + (static_cast<std::ptrdiff_t>(y) << frame_tile_shift); }
    const int* line(int y) const { return pixels.data() + (static_cast<std::ptrdiff_t>(y) << frame_tile_shift); }
    void take(BITMAP* picture, const TileBox& box)
    {
        if (box.w < frame_tile_side || box.h < frame_tile_side) pixels.fill(0);
        for (int y = 0; y < box.h; ++y)
            std::copy_n(row(picture, box.y + y) + box.x, box.w, line(y));
    }
    void put(BITMAP* picture, const TileBox& box) const
    {
        for (int y = 0; y < box.h; ++y)
            std::copy_n(line(y), box.w, row(picture, box.y + y) + box.x);
    }
};

/// Some tiles of a picture.
struct TileSet {
    TileGrid grid;
    std::vector<std::unique_ptr<TilePixels>> tiles; ///< by number; null: not kept. Without elements none is

    bool has(std::size_t tile) const { return tile < tiles.size() && tiles[tile]; }
    /// Keeps the pixels that the picture has in a tile. Throws std::bad_alloc.
    void keep(std::size_t tile, BITMAP* picture)
    {
        if (tiles.empty()) tiles.resize(grid.count());
        tiles[tile] = std::make_unique_for_overwrite<TilePixels>();
        tiles[tile]->take(picture, grid.box(tile));
    }
};

/// Copies one tile between pictures of one size.
inline void copy_tile(BITMAP* from, BITMAP* to, const TileBox& box)
{
    for (int y = box.y; y < box.y + box.h; ++y)
        std::copy_n(row(from, y) + box.x, box.w, row(to, y) + box.x);
}

/// True when two pictures of one size have the same pixels in a tile.
inline bool same_tile(BITMAP* a, BITMAP* b, const TileBox& box)
{
    for (int y = box.y; y < box.y + box.h; ++y)
        if (!std::equal(row(a, y) + box.x, row(a, y) + box.x + box.w, row(b, y) + box.x)) return false;
    return true;
}

} // namespace kelu
