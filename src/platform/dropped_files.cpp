// SPDX-License-Identifier: MIT
// The list of URIs, and the hand-over from the event thread to the main thread.
#include "platform/dropped_files.h"

#include "base/words.h"
#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <mutex>
#include <unistd.h>
#include <utility>

namespace kelu::platform {
namespace {

std::mutex dropping;              // of `dropped`, for the few moments of a drop
std::vector<std::string> dropped; // in order
Published<uint8_t> any = 0;       // 1: there are some

/// The value of two hexadecimal digits, -1 when they are none.
int hex_value(std::string_view digits)
{
    int value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    return digits.size() == 2 && error == std::errc() && end == digits.data() + 2 ? value : -1;
}

/// A part of a URI with its "%41" read as "A"; empty when one is no such number, or the end of a text is in it.
std::string decode_uri(std::string_view text)
{
    std::string decoded;
    if (text.find('\0') != std::string_view::npos) return {};
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            decoded += text[i];
            continue;
        }
        const int value = hex_value(text.substr(i + 1, 2));
        if (value <= 0) return {};
        decoded += static_cast<char>(value);
        i += 2;
    }
    return decoded;
}

bool is_this_machine(std::string_view host)
{
    std::array<char, 256> name{};
    gethostname(name.data(), name.size() - 1);
    return host.empty() || host == "localhost" || host == name.data();
}

/// The path of "file:///path", "file://host/path" or "file:/path"; empty when it is none of this machine.
std::string file_of_uri(std::string_view uri)
{
    constexpr std::string_view scheme = "file:";
    if (!uri.starts_with(scheme)) return {};
    uri.remove_prefix(scheme.size());
    if (uri.starts_with("//")) {
        uri.remove_prefix(2);
        const std::size_t path = std::min(uri.find('/'), uri.size());
        if (!is_this_machine(uri.substr(0, path))) return {};
        uri.remove_prefix(path);
    }
    return uri.starts_with('/') ? decode_uri(uri) : std::string();
}

} // namespace

std::vector<std::string> files_of_uri_list(std::string_view list)
{
    std::vector<std::string> files;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find_first_of("\r\n"), list.size());
        if (std::string file = file_of_uri(list.substr(0, end)); !file.empty()) files.push_back(std::move(file));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return files;
}

void add_dropped_files(std::vector<std::string> files)
{
    const std::lock_guard lock(dropping);
    for (std::string& file : files)
        dropped.push_back(std::move(file));
    any = 1;
}

std::vector<std::string> take_dropped_files()
{
    if (any == 0) return {};
    const std::lock_guard lock(dropping);
    any = 0;
    return std::exchange(dropped, {});
}

} // namespace kelu::platform
