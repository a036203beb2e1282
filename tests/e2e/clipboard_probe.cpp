// SPDX-License-Identifier: MIT
// clipboard_probe: copies and pastes pictures as the editor does, by commands on standard input, one a line:
//   copy FILE.PNG    answers "copied" or "failed"
//   paste FILE.PNG   saves what is on the clipboard; answers "W x H" or "empty"
//   quit             leaves as the editor does
#include "imagefile/clipboard_picture.h"
#include "imagefile/png.h"
#include "platform/clipboard.h"
#include "platform/host.h"
#include <iostream>
#include <string>

namespace {

std::string copy(const std::string& file)
{
    return kelu::copy_to_clipboard(kelu::load_png(file.c_str())) ? "copied" : "failed";
}

std::string paste(const std::string& file)
{
    const kelu::Bitmap picture = kelu::picture_from_clipboard();
    if (!picture || kelu::save_png(file.c_str(), picture) != 0) return "empty";
    return std::to_string(picture.width()) + " x " + std::to_string(picture.height());
}

} // namespace

int main()
{
    if (!kelu::platform::headless_host.start()) return 1;
    kelu::platform::host = &kelu::platform::desktop_host;
    std::string command, file;
    while (std::cin >> command && command != "quit") {
        std::cin >> file;
        std::cout << (command == "copy" ? copy(file) : paste(file)) << std::endl;
    }
    kelu::platform::clipboard_close();
}
