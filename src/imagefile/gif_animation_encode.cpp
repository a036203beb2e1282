// SPDX-License-Identifier: MIT
// The writer of animated GIFs: the table of colours, then picture by picture the smallest of a few ways to code it.
#include "imagefile/gif_animation.h"
#include "imagefile/gif_blocks.h"
#include "imagefile/gif_steps.h"
#include "imagefile/lzw.h"
#include "imagefile/palette8.h"
#include <bit>
#include <optional>

namespace kelu {
namespace {

constexpr int least_hundredths = 2;
constexpr int most_hundredths = 0xffff;
constexpr int color_bits = 0xffffff;
constexpr int no_marker = -1;

/// The colours of a picture, and the index that stands for "leave the pixel alone".
struct Table {
    Palette8 colors;
    int marker = no_marker;
    bool holds_all = true; ///< also the colours of pixels that have not changed

    int entries() const { return static_cast<int>(colors.size()) + (marker == no_marker ? 0 : 1); }
    /// Bits of an index; a table in a file has two entries at least.
    int bits() const { return std::max(1, static_cast<int>(std::bit_width(static_cast<unsigned>(entries() - 1)))); }
};

/// What becomes of the pixels that have not changed: any of it shows the same, and which is shortest depends.
enum Unchanged { LEAVE_ALL, PAINT_ALL, AS_BEFORE };

struct Canvases {
    BITMAP *shown, *target;
    PictureArea area;

    template <class Visit>
    void each_pixel(Visit visit) const
    {
        for (int y = area.top; y < area.bottom; ++y) {
            for (int x = area.left; x < area.right; ++x)
                visit(row(shown, y)[x], row(target, y)[x]);
        }
    }
};

Bytes indices_of(const Canvases& canvases, const Table& table, NearestColor& nearest, Unchanged unchanged)
{
    Bytes indices;
    indices.reserve(static_cast<std::size_t>(canvases.area.pixels()));
    int last = no_marker;
    canvases.each_pixel([&](int shown, int target) {
        const bool may_leave = shown == target && table.marker != no_marker;
        const bool must_leave = may_leave && (target == 0 || unchanged == LEAVE_ALL);
        int index = table.marker;
        if (!must_leave) {
            index = nearest(target & color_bits);
            if (may_leave && unchanged == AS_BEFORE && index != last) index = table.marker;
        }
        indices.push_back(static_cast<uint8_t>(index));
        last = index;
    });
    return indices;
}

/// Size byte, sub-blocks and end of the pixels.
Bytes coded(const Bytes& indices, bool clears_when_full)
{
    const auto bits = static_cast<int>(std::bit_width(unsigned{*std::ranges::max_element(indices)}));
    const int minimum_size = std::max(2, bits);
    Bytes data{static_cast<uint8_t>(minimum_size)};
    lzw_encode(indices, data, {minimum_size, clears_when_full});
    data.push_back(0);
    return data;
}

Bytes shortest(const Canvases& canvases, const Table& table)
{
    NearestColor nearest(table.colors);
    Bytes best;
    for (const Unchanged unchanged : {LEAVE_ALL, PAINT_ALL, AS_BEFORE}) {
        if (unchanged != LEAVE_ALL && !table.holds_all) continue;
        const Bytes indices = indices_of(canvases, table, nearest, unchanged);
        for (const bool clears : {false, true}) {
            Bytes data = coded(indices, clears);
            if (best.empty() || data.size() < best.size()) best = std::move(data);
        }
        if (table.marker == no_marker) break; // the three are one
    }
    return best;
}

void put_table(ByteWriter& out, const Table& table)
{
    for (const int color : table.colors) {
        out.byte(color >> 16);
        out.byte(color >> 8);
        out.byte(color);
    }
    out.fill(3 * ((std::size_t{1} << table.bits()) - table.colors.size()));
}

/// A table of one picture: its own colours if these are few, else reduced from those that have changed.
Table own_table(const Canvases& canvases, int reduction)
{
    ColorSet all;
    bool few = true, leaves = false;
    std::vector<int> changed;
    canvases.each_pixel([&](int shown, int target) {
        leaves |= shown == target;
        if (shown != target) changed.push_back(target & color_bits);
        if (few && target != 0) few = all.add(target & color_bits);
    });
    const int most = ColorSet::most_colors - (leaves ? 1 : 0);
    few = few && static_cast<int>(all.colors().size()) <= most;
    Table table{few ? all.colors() : reduce_to_palette(changed, reduction, most), no_marker, few};
    if (leaves) table.marker = static_cast<int>(table.colors.size());
    return table;
}

class Writer {
public:
    Writer(const AnimationSource& source, int reduction, ByteSink sink, WorkDone done)
        : source_(source), count_(static_cast<int>(source.durations.size())), reduction_(reduction), sink_(sink),
          done_(done)
    {}
    WriteResult write();

private:
    bool gather_colors();
    bool put_head();
    bool put_pictures();
    bool put_picture(int i, const Canvases& canvases, int disposal);
    Bitmap canvas_of(int i);
    int hundredths(int i);
    bool fail(WriteResult result)
    {
        result_ = result;
        return false;
    }

    const AnimationSource& source_;
    int count_, reduction_;
    ByteSink sink_;
    WorkDone done_;
    std::optional<Table> shared_;
    long units_due_ = 0, hundredths_written_ = 0; ///< of the pictures so far
    WriteResult result_ = WriteResult::WRITTEN;
};

Bitmap Writer::canvas_of(int i)
{
    Bitmap picture = source_.picture(i);
    if (picture)
        make_gif_canvas(picture);
    else
        fail(WriteResult::NO_PICTURE);
    return picture;
}

/// Looks whether one table does for all pictures.
bool Writer::gather_colors()
{
    ColorSet colors;
    bool few = true, transparent = false;
    for (int i = 0; i < count_ && few; ++i) {
        const Bitmap canvas = canvas_of(i);
        if (!canvas) return false;
        for (int y = 0; y < canvas.height() && few; ++y) {
            for (const int pixel : std::span(row(canvas, y), static_cast<std::size_t>(canvas.width()))) {
                transparent |= pixel == 0;
                if (pixel != 0 && !colors.add(pixel & color_bits)) few = false;
            }
        }
        if (!done_(i + 1, 2 * count_)) return fail(WriteResult::CALLED_OFF);
    }
    const bool room = colors.colors().size() < ColorSet::most_colors;
    if (!few || (transparent && !room)) return true;
    shared_ = Table{colors.colors(), room ? static_cast<int>(colors.colors().size()) : no_marker};
    return true;
}

bool Writer::put_head()
{
    Bytes bytes;
    bytes.reserve(1024); // a head with the largest table
    ByteWriter out(bytes);
    out.text("GIF89a");
    out.little16(source_.width);
    out.little16(source_.height);
    constexpr int eight_bits = 0x70; // of colour resolution
    out.byte(shared_ ? gif_packed_table | eight_bits | (shared_->bits() - 1) : eight_bits);
    out.byte(0); // background
    out.byte(0); // aspect
    if (shared_) put_table(out, *shared_);
    out.byte(GIF_EXTENSION);
    out.byte(gif_application_label);
    out.text("\x0bNETSCAPE2.0\x03\x01");
    out.fill(3); // runs without an end, end of the extension
    return sink_(bytes) || fail(WriteResult::NOT_TAKEN);
}

/// The delay in a picture's control block: the time due so far less the time written so far, so that no error adds up.
int Writer::hundredths(int i)
{
    units_due_ += source_.durations[static_cast<std::size_t>(i)];
    const long due = (units_due_ + units_per_hundredth / 2) / units_per_hundredth - hundredths_written_;
    const int delay = static_cast<int>(std::clamp(due, long{least_hundredths}, long{most_hundredths}));
    hundredths_written_ += delay;
    return delay;
}

bool Writer::put_picture(int i, const Canvases& canvases, int disposal)
{
    const Table table = shared_ ? *shared_ : own_table(canvases, reduction_);
    const PictureArea& area = canvases.area;
    Bytes bytes;
    ByteWriter out(bytes);
    out.byte(GIF_EXTENSION);
    out.byte(gif_control_label);
    out.byte(4);
    out.byte(disposal << 2 | (table.marker == no_marker ? 0 : 1));
    out.little16(hundredths(i));
    out.byte(std::max(table.marker, 0));
    out.byte(0);
    out.byte(GIF_IMAGE);
    for (const int number : {area.left, area.top, area.width(), area.height()})
        out.little16(number);
    out.byte(shared_ ? 0 : gif_packed_table | (table.bits() - 1));
    if (!shared_) put_table(out, table);
    out.append(shortest(canvases, table));
    return sink_(bytes) || fail(WriteResult::NOT_TAKEN);
}

bool Writer::put_pictures()
{
    Bitmap shown(source_.width, source_.height), target = canvas_of(0), next;
    if (!shown || !target) return fail(WriteResult::NO_PICTURE);
    for (int i = 0; i < count_; ++i) {
        const bool is_last = i + 1 == count_;
        next = is_last ? Bitmap() : canvas_of(i + 1);
        if (!is_last && !next) return false;
        const GifStep step = plan_gif_step(shown, target, next, i == 0);
        if (!put_picture(i, {shown, target, step.area}, step.disposal)) return false;
        if (!done_(count_ + i + 1, 2 * count_)) return fail(WriteResult::CALLED_OFF);
        end_gif_step(shown, target, step);
        target = std::move(next);
    }
    return true;
}

WriteResult Writer::write()
{
    constexpr uint8_t end[] = {GIF_END};
    if (count_ > 0 && gather_colors() && put_head() && put_pictures() && !sink_(end)) fail(WriteResult::NOT_TAKEN);
    return result_;
}

} // namespace

WriteResult write_gif_animation(const AnimationSource& source, int reduction, ByteSink sink, WorkDone done)
{
    return Writer(source, reduction, sink, done).write();
}

} // namespace kelu
