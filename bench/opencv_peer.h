// SPDX-License-Identifier: MIT
// What OpenCV does, apart from Allegro, whose header shares names with its own.
#pragma once

#include <cstdint>
#include <memory>

namespace kelu {

/// A picture of three bytes a pixel that is filled again and again.
class OpenCvFill {
public:
    /// `pixels`: 0x00RRGGBB, side x side; `pitch`: bytes from row to row.
    OpenCvFill(const int* pixels, int side, long pitch);
    ~OpenCvFill();
    /// Makes the picture what it was.
    void restore();
    void fill(int x, int y);

private:
    struct Pictures;
    std::unique_ptr<Pictures> pictures_;
};

/// A square picture that is brought to another size by its nearest pixels.
class OpenCvResize {
public:
    OpenCvResize(const int* pixels, int side, long pitch) : pixels_(pixels), side_(side), pitch_(pitch) {}
    void resize(int w, int h) const;

private:
    const int* pixels_;
    int side_;
    long pitch_;
};

} // namespace kelu
