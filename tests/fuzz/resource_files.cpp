// SPDX-License-Identifier: MIT
// Any bytes as a scrambled resource, and its picture as that of a screen font.
#include "framework/resource_files.h"
#include "gui/text.h"
#include "imagefile/gif.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    using namespace kelu;
    if (size < 2) return 0;
    // The cipher has no checksum: an input shows through it.
    const Bytes plain = unscramble(scramble({data + 1, size - 1}, data[0]));
    if (!std::equal(plain.begin(), plain.end(), data + 1, data + size)) std::abort();
    PALETTE palette;
    Bitmap picture = decode_gif(plain, palette);
    if (!picture) return 0;
    set_palette(palette);
    BITMAP* const pictures[] = {picture, picture};
    if (load_font(FONT_NARROW, pictures)) draw_text(picture, 1, 1, "Ag ~");
    return 0;
}
