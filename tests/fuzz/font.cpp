// SPDX-License-Identifier: MIT
// Any bytes as a font: loaded, drawn for the browser, and set to sizes of the text tool.
#include "imagefile/font_preview.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    using namespace kelu;
    static const Bitmap preview(116, 116);
    if (!font_system_ready()) font_system_init();
    const FontOwner face = font_open({data, data + size});
    if (!face) return 0;
    draw_font_sample(preview, *face);
    for (const int height : {8, 24}) {
        font_set_size(*face, height);
        font_draw_text_plain(preview, *face, "g\xe4", 10, 10, 0);
    }
    return 0;
}
