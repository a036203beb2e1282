// SPDX-License-Identifier: MIT
// The reader of PNG animations: chunks, pictures in their rectangles, and how they are laid over what shows.
#include "base/sizes.h"
#include "imagefile/apng.h"
#include "imagefile/picture_area.h"
#include "imagefile/png.h"
#include "imagefile/png_rows.h"
#include "imagefile/refusal.h"
#include "runtime/pixels.h"
#include <array>

namespace kelu {
namespace {

constexpr int opaque = static_cast<int>(0xff000000U);
constexpr int color_bits = 0xffffff;

enum Disposal { KEEP, CLEAR, BRING_BACK };
enum Blend { REPLACE, LAY_OVER };

/// A picture of the file: its rectangle, its data, and what its control chunk says.
struct Picture {
    PictureArea area;
    int duration = 0;
    int disposal = KEEP, blend = REPLACE;
    Bytes data; ///< a zlib stream
};

/// What a file is made of. Its pictures' data are collected one picture at a time.
struct File {
    PngForm form;
    Bytes palette, transparency; ///< data of PLTE and tRNS
    bool animated = false;       ///< there was an acTL before the first data
    uint32_t number = 0;         ///< that the next fcTL or fdAT must have
};

bool fail(const char* reason)
{
    refuse(reason);
    return false;
}
bool damaged() { return fail(refusal::damaged); }

/// Takes each picture of a file. False: stop.
using VisitPicture = FunctionRef<bool(const File& file, const Picture& picture)>;

int units_of(int numerator, int denominator)
{
    const int parts = denominator == 0 ? 100 : denominator;
    return static_cast<int>((static_cast<long>(numerator) * time_units + parts / 2) / parts);
}

bool read_control(ByteReader data, File& file, Picture& picture)
{
    if (data.big32() != file.number++) return damaged();
    const auto side = [&data] { return static_cast<int>(std::min<uint32_t>(data.big32(), max_bitmap_side + 1)); };
    const int w = side(), h = side(), left = side(), top = side();
    const int numerator = data.big16(), denominator = data.big16();
    picture.disposal = data.byte();
    picture.blend = data.byte();
    picture.duration = units_of(numerator, denominator);
    picture.area = {left, top, left + w, top + h};
    const bool inside = w > 0 && h > 0 && left + w <= file.form.width && top + h <= file.form.height;
    return (!data.ended() && inside && picture.disposal <= BRING_BACK && picture.blend <= LAY_OVER) || damaged();
}

/// Walks the chunks and hands each picture on once all its data are there.
class Walker {
public:
    Walker(std::span<const uint8_t> bytes, VisitPicture visit) : in_(bytes), visit_(visit) {}
    bool walk()
    {
        if (!read_png_header(in_, file_.form)) return fail(png_error);
        PngChunk chunk;
        do {
            if (!read_png_chunk(in_, chunk)) return fail(refusal::ends_early);
            const auto data = in_.take(chunk.length);
            if (in_.ended() || !skip_png_chunk(in_, 0)) return fail(refusal::ends_early);
            if (!take(chunk.type, data)) return false;
        } while (chunk.type != "IEND");
        return true;
    }

private:
    bool take(std::string_view type, std::span<const uint8_t> data);
    bool begin_picture(std::span<const uint8_t> data);
    bool add_numbered(std::span<const uint8_t> data);
    bool hand_on();
    void add(std::span<const uint8_t> data) { picture_.data.insert(picture_.data.end(), data.begin(), data.end()); }

    ByteReader in_;
    VisitPicture visit_;
    File file_;
    Picture picture_;
    bool begun_ = false;    ///< `picture_` is part of the animation
    bool has_data_ = false; ///< there was an IDAT
};

bool Walker::hand_on()
{
    const bool still = !file_.animated && has_data_;
    if (still) picture_.area = {0, 0, file_.form.width, file_.form.height};
    if (!begun_ && !still) return true; // data that only readers of one picture look at
    if (picture_.data.empty()) return damaged();
    begun_ = false;
    return visit_(file_, picture_);
}

bool Walker::begin_picture(std::span<const uint8_t> data)
{
    if (!file_.animated) return true; // without a head the file is a plain one
    if (begun_ && !hand_on()) return false;
    picture_ = {};
    begun_ = true;
    return read_control(ByteReader(data), file_, picture_);
}

bool Walker::add_numbered(std::span<const uint8_t> data)
{
    if (!file_.animated) return true;
    ByteReader in(data);
    if (!begun_ || in.big32() != file_.number++ || in.ended()) return damaged();
    add(in.take(in.left()));
    return true;
}

bool Walker::take(std::string_view type, std::span<const uint8_t> data)
{
    if (type == "PLTE") file_.palette.assign(data.begin(), data.end());
    if (type == "tRNS") file_.transparency.assign(data.begin(), data.end());
    if (type == "acTL") file_.animated |= !has_data_;
    if (type == "IDAT") {
        has_data_ = true;
        if (begun_ || !file_.animated) add(data);
    }
    if (type == "fcTL") return begin_picture(data);
    if (type == "fdAT") return add_numbered(data);
    return type != "IEND" || hand_on();
}

/// The colours of sample values, with their alpha.
std::array<int, 256> colors_of(const File& file)
{
    std::array<int, 256> colors{};
    ByteReader alpha(file.transparency);
    if (file.form.color_type == PNG_INDEXED) {
        for (std::size_t i = 0; i < colors.size() && 3 * i + 2 < file.palette.size(); ++i)
            colors[i] = opaque | pack_rgb(file.palette[3 * i], file.palette[3 * i + 1], file.palette[3 * i + 2]);
        for (std::size_t i = 0; i < colors.size() && i < file.transparency.size(); ++i)
            colors[i] = static_cast<int>(uint32_t{file.transparency[i]} << 24) | (colors[i] & color_bits);
        return colors;
    }
    colors = png_greys(file.form.depth);
    for (int& color : colors)
        color |= opaque;
    const std::size_t key = static_cast<std::size_t>(alpha.big16());
    const bool has_key = file.form.color_type == PNG_GREY && file.form.depth <= 8 && !alpha.ended();
    if (has_key && key < colors.size()) colors[key] &= color_bits;
    return colors;
}

/// RGB has no alpha of its own, but one colour of 8-bit samples may be transparent.
void give_alpha(BITMAP* picture, const File& file)
{
    if (file.form.color_type != PNG_RGB) return;
    ByteReader key(file.transparency);
    const int r = key.big16(), g = key.big16(), b = key.big16();
    const int clear = key.ended() || file.form.depth > 8 ? -1 : pack_rgb(r & 255, g & 255, b & 255);
    for (int y = 0; y < picture->h; ++y) {
        for (int& pixel : std::span(row(picture, y), static_cast<std::size_t>(picture->w)))
            if (pixel != clear) pixel |= opaque;
    }
}

Bitmap decode(const File& file, const Picture& picture)
{
    PngForm form = file.form;
    form.width = picture.area.width();
    form.height = picture.area.height();
    const std::array parts = {std::span<const uint8_t>(picture.data)};
    Bitmap bitmap = read_png_rows(form, colors_of(file), parts);
    if (!bitmap) return refuse(png_error);
    give_alpha(bitmap, file);
    return bitmap;
}

/// One pixel laid over another, by the share of each that shows.
int over(int below, int above)
{
    const unsigned alpha = static_cast<unsigned>(above) >> 24, alpha_below = static_cast<unsigned>(below) >> 24;
    if (alpha == 255 || alpha_below == 0) return above;
    if (alpha == 0) return below;
    const unsigned share = alpha * 255, rest = (255 - alpha) * alpha_below, whole = share + rest;
    const auto mix = [&](int a, int b) {
        return static_cast<int>((static_cast<unsigned>(a) * share + static_cast<unsigned>(b) * rest + whole / 2) /
                                whole);
    };
    const int color = pack_rgb(mix(red_of(above), red_of(below)), mix(green_of(above), green_of(below)),
                               mix(blue_of(above), blue_of(below)));
    return static_cast<int>((whole + 127) / 255 << 24) | color;
}

void lay(BITMAP* canvas, BITMAP* bitmap, const Picture& picture)
{
    for (int y = 0; y < bitmap->h; ++y) {
        const int* from = row(bitmap, y);
        int* to = row(canvas, picture.area.top + y) + picture.area.left;
        for (int x = 0; x < bitmap->w; ++x)
            to[x] = picture.blend == LAY_OVER ? over(to[x], from[x]) : from[x];
    }
}

/// The canvas from picture to picture.
class Canvas {
public:
    explicit Canvas(TakePicture take) : take_(take) {}
    bool show(const File& file, const Picture& picture)
    {
        const bool first = !canvas_;
        if (first) canvas_ = Bitmap(file.form.width, file.form.height);
        const Bitmap bitmap = decode(file, picture);
        if (!bitmap) return false;
        const bool comes_back = picture.disposal == BRING_BACK && !first; // before the first there was nothing
        Bitmap before;
        if (!canvas_ || (comes_back && !(before = canvas_.copy()))) return fail(refusal::no_memory);
        lay(canvas_, bitmap, picture);
        if (!take_(canvas_, picture.duration)) return false;
        const PictureArea& area = picture.area;
        if (comes_back)
            canvas_ = std::move(before);
        else if (picture.disposal != KEEP)
            rectfill(canvas_, area.left, area.top, area.right - 1, area.bottom - 1, 0);
        return true;
    }

private:
    TakePicture take_;
    Bitmap canvas_;
};

} // namespace

AnimationHead apng_head(std::span<const uint8_t> bytes)
{
    AnimationHead head;
    const auto count = [&head](const File& file, const Picture&) {
        head = {file.form.width, file.form.height, head.pictures + 1};
        return true;
    };
    if (!Walker(bytes, count).walk()) return {};
    if (head.pictures == 0) refuse(refusal::no_picture);
    const bool bounded =
        head.pictures == 0 || (long{head.width} * head.height <= max_animation_pixels / head.pictures &&
                               may_hold(bytes.size(), product(head.width, head.height), png_most_pixels_a_byte));
    if (bounded) return head;
    refuse(refusal::too_large);
    return {};
}

bool read_apng(std::span<const uint8_t> bytes, TakePicture take)
{
    if (apng_head(bytes).pictures == 0) return false;
    Canvas canvas(take);
    const auto show = [&canvas](const File& file, const Picture& picture) { return canvas.show(file, picture); };
    return Walker(bytes, show).walk();
}

} // namespace kelu
