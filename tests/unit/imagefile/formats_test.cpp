// SPDX-License-Identifier: MIT
// The table of formats: names, signatures, alpha on the way in, writers.
#include "imagefile/formats.h"

#include "imagefile/bmp.h"
#include "runtime/pixels.h"
#include "support/paths.h"
#include "support/pictures.h"
#include "support/temporary_folder.h"
#include <gtest/gtest.h>

namespace kelu {
namespace {

using namespace test;

TEST(formats, extensions_stand_behind_the_last_point)
{
    struct Row {
        const char* name;
        int format;
    };
    for (const auto& [name, format] :
         {Row{"a.gif", FORMAT_GIF}, Row{"A.PcX", FORMAT_PCX}, Row{".bmp", FORMAT_BMP}, Row{"a.b.png", FORMAT_PNG},
          Row{"a.jpg", FORMAT_JPG}, Row{"a.LBM", FORMAT_LBM}, Row{"a.ttf", FORMAT_TTF}, Row{"a.fon", FORMAT_FON},
          Row{"a.wsp", FORMAT_WSP}, Row{"a.ico", FORMAT_ICO}, Row{"IMAGE.JPEG", FORMAT_JPG}, Row{"a.jpe", FORMAT_JPG},
          Row{"a.jpg.x", FORMAT_NONE}, Row{"a.jp", FORMAT_NONE}, Row{"png", FORMAT_NONE}, Row{"apng", FORMAT_NONE},
          Row{"a.tga", FORMAT_NONE}, Row{"", FORMAT_NONE}, Row{"a.", FORMAT_NONE}}) {
        EXPECT_EQ(format_from_extension(name, false), format) << name;
        const bool font = format == FORMAT_TTF || format == FORMAT_FON;
        EXPECT_EQ(format_from_extension(name, true), font ? format : FORMAT_NONE) << name;
    }
}

TEST(formats, signatures_tell_when_names_do_not)
{
    const TemporaryFolder folder;
    struct Row {
        std::string start;
        int format;
    };
    for (const auto& [start, format] :
         {Row{"GIF87a", FORMAT_GIF}, Row{"BMxx", FORMAT_BMP}, Row{"\x89PNG", FORMAT_PNG}, Row{"FORM", FORMAT_LBM},
          Row{"kWSP", FORMAT_WSP}, Row{"COL1", FORMAT_FAVORITES}, Row{"SCH1", FORMAT_SCHEME},
          Row{std::string("\0\0\1\0", 4), FORMAT_ICO}, Row{"\xff\xd8\xff\xe0", FORMAT_JPG},
          Row{"\xff\xd8\xfe\xe0", FORMAT_NONE}, Row{"\n\5\1\x8", FORMAT_PCX},
          Row{std::string("\n\0\1\1", 4), FORMAT_PCX}, Row{"\n\6\1\x8", FORMAT_NONE}, Row{"\n\5\1a", FORMAT_NONE},
          Row{"xPN", FORMAT_NONE}, Row{"text", FORMAT_NONE}, Row{"BM", FORMAT_NONE}}) {
        folder.put("file", start);
        EXPECT_EQ(format_from_signature("file"), format) << start;
        EXPECT_EQ(format_of_file("file"), format) << start;
    }
    folder.put("file.png", "GIF89a");
    EXPECT_EQ(format_of_file("file.png"), FORMAT_PNG); // the name comes first
    EXPECT_EQ(format_from_signature("missing"), FORMAT_NONE);
}

} // namespace
} // namespace kelu
