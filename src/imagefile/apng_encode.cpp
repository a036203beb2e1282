// SPDX-License-Identifier: MIT
// The writer of PNG animations.
#include "imagefile/apng.h"
#include "imagefile/picture_area.h"
#include "imagefile/png_filters.h"
#include "imagefile/png_rows.h"
#include "imagefile/png_write.h"

namespace kelu {
namespace {

constexpr int keep = 0, replace = 0; // what becomes of a rectangle, and how it is laid over what shows

class Writer {
public:
    Writer(const AnimationSource& source, ByteSink sink, WorkDone done)
        : source_(source), count_(static_cast<int>(source.durations.size())), sink_(sink), done_(done)
    {}
    WriteResult write();

private:
    bool put(const Bytes& bytes) { return sink_(bytes) || fail(WriteResult::NOT_TAKEN); }
    bool put_head();
    bool put_pictures();
    bool put_picture(int i, BITMAP* picture, const PictureArea& area);
    Bytes control_data(int i, const PictureArea& area);
    bool fail(WriteResult result)
    {
        result_ = result;
        return false;
    }

    const AnimationSource& source_;
    int count_;
    ByteSink sink_;
    WorkDone done_;
    uint32_t number_ = 0; ///< of the next fcTL or fdAT
    WriteResult result_ = WriteResult::WRITTEN;
};

bool Writer::put_head()
{
    Bytes bytes(std::begin(png_signature), std::end(png_signature)), runs;
    ByteWriter out(bytes), control(runs);
    put_png_chunk(out, "IHDR", png_header_data(source_.width, source_.height, PNG_RGBA));
    control.big32(static_cast<uint32_t>(count_));
    control.big32(0);
    put_png_chunk(out, "acTL", runs);
    return put(bytes);
}

Bytes Writer::control_data(int i, const PictureArea& area)
{
    Bytes data;
    ByteWriter out(data);
    out.big32(number_++);
    for (const int number : {area.width(), area.height(), area.left, area.top})
        out.big32(static_cast<uint32_t>(number));
    out.big16(std::clamp(source_.durations[static_cast<std::size_t>(i)], 1, 0xffff));
    out.big16(time_units);
    out.byte(keep);
    out.byte(replace);
    return data;
}

bool Writer::put_picture(int i, BITMAP* picture, const PictureArea& area)
{
    const Bitmap changed(create_sub_bitmap(picture, area.left, area.top, area.width(), area.height()));
    const Bytes rows = changed ? packed_rgba(changed) : Bytes();
    if (rows.empty()) return fail(WriteResult::NO_PICTURE);
    Bytes bytes;
    ByteWriter out(bytes);
    put_png_chunk(out, "fcTL", control_data(i, area));
    if (i == 0) {
        put_png_chunk(out, "IDAT", rows);
        return put(bytes);
    }
    Bytes numbered;
    ByteWriter data(numbered);
    data.big32(number_++);
    data.append(rows);
    put_png_chunk(out, "fdAT", numbered);
    return put(bytes);
}

bool Writer::put_pictures()
{
    Bitmap before;
    for (int i = 0; i < count_; ++i) {
        Bitmap picture = source_.picture(i);
        if (!picture) return fail(WriteResult::NO_PICTURE);
        const PictureArea whole{0, 0, source_.width, source_.height};
        if (!put_picture(i, picture, i == 0 ? whole : changed_area(before, picture))) return false;
        if (!done_(i + 1, count_)) return fail(WriteResult::CALLED_OFF);
        before = std::move(picture);
    }
    return true;
}

WriteResult Writer::write()
{
    if (count_ > 0 && put_head() && put_pictures()) {
        Bytes bytes;
        ByteWriter out(bytes);
        put_png_chunk(out, "IEND", {});
        put(bytes);
    }
    return result_;
}

} // namespace

WriteResult write_apng(const AnimationSource& source, ByteSink sink, WorkDone done)
{
    return Writer(source, sink, done).write();
}

} // namespace kelu
