// SPDX-License-Identifier: MIT
// Reading line by line.
#include "text_lines.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace kelu::tools {

Lines::Lines(const std::string& file) : name_(file), in_(file)
{
    if (!in_) fail("can't be read");
}

std::optional<std::string> Lines::next()
{
    for (std::string line; std::getline(in_, line);) {
        ++number_;
        line.erase(std::min(line.find(';'), line.size()));
        line.erase(line.find_last_not_of(" \t\r") + 1);
        if (!line.empty()) return line;
    }
    return std::nullopt;
}

std::string Lines::need()
{
    auto line = next();
    if (!line) fail("ends too early");
    return *line;
}

void Lines::fail(const std::string& what) const
{
    std::fprintf(stderr, "%s:%d: %s\n", name_.c_str(), number_, what.c_str());
    std::exit(1);
}

int glyph_code(const Lines& lines, const std::string& name, int lowest)
{
    int code = static_cast<unsigned char>(name[0]);
    if (name.size() > 1) code = name[0] == '#' ? std::atoi(name.c_str() + 1) : -1;
    if (code < lowest || code > 126) lines.fail("'" + name + "' is no character");
    return code;
}

} // namespace kelu::tools
