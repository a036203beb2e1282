// Any bytes for the ICO reader.
#include "imagefile/ico.h"

#include "reader_target.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    const kelu::Icon icon = kelu::decode_ico({data, size});
    look_at(icon.picture);
    look_at(icon.alpha);
    return 0;
}
