// SPDX-License-Identifier: MIT
// The compiler of scripts: from the text of scripts.def to the bytes of mojo.def.
//
//   digits in column 0   head of a script: four digits of its id, and the rest of the line is a remark
//   [ and two digits     a byte, as a rule a command's code
//   0-9 - . /            elsewhere: a number argument of up to four characters
//   "                    opens or closes a text; a text may run over line ends
//   ;                    the rest of the line is a remark
//
// The byte 240 begins a script, so no number may hold it in its high or its low byte.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace kelu {

/// The compiled form of a text.
std::vector<uint8_t> compile_script_text(std::string_view text);
/// Compiles resource/scripts.def to resource/mojo.def, from the program's folder. Without the one the other stays.
void compile_scripts();

} // namespace kelu
