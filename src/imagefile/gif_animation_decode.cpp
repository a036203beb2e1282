// SPDX-License-Identifier: MIT
// The reader of animated GIFs: images laid over each other on a canvas.
#include "base/sizes.h"
#include "imagefile/gif_animation.h"
#include "imagefile/gif_blocks.h"
#include "imagefile/gif_steps.h"
#include "imagefile/lzw.h"
#include "imagefile/refusal.h"
#include <array>

namespace kelu {
namespace {

constexpr int opaque = static_cast<int>(0xff000000U);
/// Viewers take a picture that asks for less than two hundredths for one that asks for nothing, and give it a tenth.
constexpr int least_hundredths = 2, usual_hundredths = 10;

using ColorTable = std::array<int, 256>;

/// An image and what its control block says.
struct Image {
    int left = 0, top = 0, width = 0, height = 0;
    int packed = 0;
    GifControl control;
};

void read_table(ByteReader& in, int packed, ColorTable& table)
{
    const auto levels = in.take(3 * static_cast<std::size_t>(gif_table_entries(packed)));
    for (std::size_t i = 0; i < levels.size() / 3; ++i)
        table[i] = opaque | levels[3 * i] << 16 | levels[3 * i + 1] << 8 | levels[3 * i + 2];
}

/// Walks a file. Head and tables are read at once, images one by one.
class Walker {
public:
    explicit Walker(std::span<const uint8_t> bytes) : in_(bytes) {}

    /// False when it is no GIF file.
    bool read_head()
    {
        if (!in_.match("GIF") || !in_.skip(3)) return false; // version
        width = in_.little16();
        height = in_.little16();
        const int packed = in_.byte();
        in_.skip(2); // background, aspect
        read_table(in_, packed, shared_);
        return !in_.ended();
    }
    /// Reads up to the data of the next image; false at the end of the file.
    bool next(Image& image)
    {
        image = {};
        if (!find_gif_image(in_, image.control)) return false;
        read_descriptor(image);
        return !in_.ended();
    }
    /// Steps over the data of an image.
    void skip_data()
    {
        in_.byte();
        skip_blocks();
    }
    /// Decodes the data of an image into indices; false when it doesn't fill the image.
    bool read_data(const Image& image, Bytes& indices)
    {
        const int minimum_size = in_.byte();
        if (minimum_size < 1 || minimum_size > 8) return false;
        const auto wanted = static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height);
        // The decoder stops at the last pixel; what is left of the sub-blocks is passed over.
        ByteReader data = in_;
        indices.clear();
        lzw_decode(data, minimum_size, wanted, indices);
        skip_blocks();
        return indices.size() == wanted;
    }
    const ColorTable& colors() const { return has_own_ ? own_ : shared_; }

    int width = 0, height = 0; ///< of the canvas

private:
    void read_descriptor(Image& image)
    {
        image.left = in_.little16();
        image.top = in_.little16();
        image.width = in_.little16();
        image.height = in_.little16();
        image.packed = in_.byte();
        has_own_ = image.packed & gif_packed_table;
        own_ = {};
        read_table(in_, image.packed, own_);
    }
    void skip_blocks()
    {
        for (int size = in_.byte(); size > 0; size = in_.byte())
            in_.skip(static_cast<std::size_t>(size));
    }

    ByteReader in_;
    ColorTable shared_{}, own_{};
    bool has_own_ = false;
};

/// The part of an image that lies on the canvas.
PictureArea area_on(BITMAP* canvas, const Image& image)
{
    const int left = std::min(image.left, canvas->w), top = std::min(image.top, canvas->h);
    return {left, top, std::min(image.left + image.width, canvas->w), std::min(image.top + image.height, canvas->h)};
}

void paint(BITMAP* canvas, const Image& image, const Bytes& indices, const ColorTable& colors)
{
    const PictureArea area = area_on(canvas, image);
    const uint8_t* from = indices.data();
    for (const int y : gif_row_order(image.height, image.packed & gif_packed_interlaced)) {
        if (image.top + y < area.bottom) {
            int* to = row(canvas, image.top + y) + image.left;
            for (int x = 0; x < area.width(); ++x)
                if (from[x] != image.control.transparent) to[x] = colors[from[x]];
        }
        from += image.width;
    }
}

void clear(BITMAP* canvas, const PictureArea& area)
{
    if (area.pixels() > 0) rectfill(canvas, area.left, area.top, area.right - 1, area.bottom - 1, 0);
}

/// The canvas of a file: its own, made larger where the first image doesn't fit.
void fit_canvas(Walker& file, const Image& first)
{
    file.width = std::max(file.width, first.left + first.width);
    file.height = std::max(file.height, first.top + first.height);
}

bool fail(const char* reason)
{
    refuse(reason);
    return false;
}

bool bounded(const AnimationHead& head, std::size_t bytes)
{
    if (head.pictures == 0) return fail(refusal::no_picture);
    const bool fits = bitmap_size_valid(head.width, head.height) &&
                      long{head.width} * head.height <= max_animation_pixels / head.pictures &&
                      may_hold(bytes, product(head.width, head.height), lzw_most_a_byte);
    return fits || fail(refusal::too_large);
}

/// Paints an image and hands the canvas out. What shows then is what the next image is laid over.
bool show(Walker& file, const Image& image, Bitmap& canvas, TakePicture take)
{
    Bytes indices;
    const auto pixels = static_cast<long>(image.width) * image.height;
    if (pixels < 1 || pixels > max_bitmap_pixels || !file.read_data(image, indices)) return fail(refusal::damaged);
    Bitmap before;
    if (image.control.disposal == GIF_BRING_BACK && !(before = canvas.copy())) return fail(refusal::no_memory);
    paint(canvas, image, indices, file.colors());
    const int hundredths = image.control.hundredths < least_hundredths ? usual_hundredths : image.control.hundredths;
    if (!take(canvas, hundredths * units_per_hundredth)) return false;
    if (image.control.disposal == GIF_BRING_BACK) canvas = std::move(before);
    if (image.control.disposal == GIF_CLEAR) clear(canvas, area_on(canvas, image));
    return true;
}

} // namespace

AnimationHead gif_animation_head(std::span<const uint8_t> bytes)
{
    Walker file(bytes);
    AnimationHead head;
    if (!file.read_head()) {
        fail("Not a GIF file!");
        return {};
    }
    for (Image image; file.next(image); ++head.pictures) {
        if (head.pictures == 0) fit_canvas(file, image);
        file.skip_data();
    }
    head.width = file.width;
    head.height = file.height;
    return bounded(head, bytes.size()) ? head : AnimationHead{};
}

bool read_gif_animation(std::span<const uint8_t> bytes, TakePicture take)
{
    const AnimationHead head = gif_animation_head(bytes);
    if (head.pictures == 0) return false;
    Walker file(bytes);
    file.read_head();
    Bitmap canvas(head.width, head.height);
    if (!canvas) return fail(refusal::no_memory);
    for (Image image; file.next(image);)
        if (!show(file, image, canvas, take)) return false;
    return true;
}

} // namespace kelu
