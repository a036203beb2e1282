// SPDX-License-Identifier: MIT
// Options and files. Nothing here needs a display.
#include "program/command_line.h"

#include "base/version.h"
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace kelu {
namespace {

constexpr int exit_wrong_usage = 2;

constexpr const char* usage = "Usage: kelu [FILE...]\n"
                              "       kelu --help | --version\n";

constexpr const char* help =
    "\n"
    "Paints and animates pixel by pixel.\n"
    "\n"
    "  FILE       a picture (GIF, PCX, BMP, PNG, JPG, LBM or ICO): becomes a new frame behind the last one;\n"
    "             a workspace (WSP): takes the place of the present one, after a question\n"
    "  --help     prints this text\n"
    "  --version  prints the version\n"
    "  --         what follows are files, though they begin with a dash\n"
    "\n"
    "The work is kept in the program's own folder; where the program is installed, in\n"
    "$XDG_DATA_HOME/kelu or ~/.local/share/kelu.\n";

CommandLine refused(const std::string& why)
{
    return {.exit_code = exit_wrong_usage, .text = "kelu: " + why + "\n" + usage, .files = {}};
}

CommandLine printed(std::string text) { return {.exit_code = 0, .text = std::move(text), .files = {}}; }

/// Why a file can't be opened; empty when it can.
std::string trouble_with(const std::string& name)
{
    struct stat status = {};
    if (stat(name.c_str(), &status) != 0) return std::strerror(errno);
    if (S_ISDIR(status.st_mode)) return std::strerror(EISDIR);
    if (!S_ISREG(status.st_mode)) return "Not a file";
    return access(name.c_str(), R_OK) == 0 ? std::string() : std::strerror(errno);
}

} // namespace

CommandLine read_command_line(std::span<const char* const> words)
{
    CommandLine line;
    bool options = true;
    for (std::size_t i = 1; i < words.size(); ++i) {
        const std::string word = words[i];
        if (options && word == "--help") return printed(std::string(usage) + help);
        if (options && word == "--version")
            return printed(std::string("kelu ") + version() + " (built " + build_date() + ")\n");
        if (options && word == "--") {
            options = false;
            continue;
        }
        if (options && word.starts_with('-')) return refused("unknown option: " + word);
        if (const std::string trouble = trouble_with(word); !trouble.empty()) return refused(word + ": " + trouble);
        line.files.push_back(std::filesystem::absolute(word).lexically_normal().string());
    }
    return line;
}

int answer(const CommandLine& line)
{
    std::fputs(line.text.c_str(), line.exit_code == 0 ? stdout : stderr);
    return line.exit_code;
}

} // namespace kelu
