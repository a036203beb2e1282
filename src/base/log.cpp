// SPDX-License-Identifier: MIT
// Writer of FW_log.txt. A line is put together on the stack, so that timer callbacks never allocate here.
#include "base/log.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>

namespace kelu {
namespace {

constexpr const char* log_name = "FW_log.txt";
FILE* log_file = nullptr; // open from the third step of start-up to the last of shutdown; main thread opens and closes

} // namespace

std::size_t LogArgument::print(char letter, char* out, std::size_t room) const
{
    if (letter == 's') {
        const std::size_t length = std::min(text_.size(), room);
        std::memcpy(out, text_.data(), length);
        return length;
    }
    const int length = letter == 'd'
                           ? std::snprintf(out, room, "%ld", kind_ == 'f' ? static_cast<long>(real_) : number_)
                           : std::snprintf(out, room, "%f", kind_ == 'f' ? real_ : double(number_));
    return length < 0 ? 0 : std::min(static_cast<std::size_t>(length), room);
}

void log_open()
{
    log_close();
    std::remove(log_name);
    log_file = std::fopen(log_name, "a+");
}

void log_close()
{
    if (log_file) std::fclose(log_file);
    log_file = nullptr;
}

void log_write(std::string_view format, std::span<const LogArgument> arguments)
{
    if (!log_file) return;
    std::array<char, 2048> line{};
    std::size_t used = 0;
    std::size_t next = 0;
    const std::size_t room = line.size() - 1; // the newline always fits
    for (std::size_t i = 0; i < format.size() && used < room; ++i) {
        if (format[i] != '%') {
            line[used++] = format[i];
            continue;
        }
        if (++i == format.size()) break;
        const char letter = static_cast<char>(std::tolower(static_cast<unsigned char>(format[i])));
        if (letter == '%') {
            line[used++] = '%';
        } else if ((letter == 's' || letter == 'd' || letter == 'f') && next < arguments.size()) {
            used += arguments[next++].print(letter, &line[used], room - used);
        }
    }
    line[used++] = '\n';
    std::fwrite(line.data(), 1, used, log_file);
    std::fflush(log_file);
}

} // namespace kelu
