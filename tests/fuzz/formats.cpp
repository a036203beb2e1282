// SPDX-License-Identifier: MIT
// Any bytes as a picture of whatever format their first ones tell, fitted to the browser's preview.
#include "imagefile/formats.h"
#include "screens/preview.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    using namespace kelu;
    static const Bitmap preview(116, 116);
    const std::span bytes(data, size);
    const MemoryWatch watch(size, 4 * 8 * 1032); // of a PNG; the others need less
    const Bitmap picture = decode_picture(bytes, format_from_bytes(bytes.first(std::min(size, signature_bytes))));
    if (picture) fit_preview(picture, preview);
    return 0;
}
