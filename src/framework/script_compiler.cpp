// SPDX-License-Identifier: MIT
// Translates scripts line by line. Main thread.
#include "framework/script_compiler.h"

#include "framework/script.h"
#include "platform/files.h"
#include <cstdlib>
#include <string>

namespace kelu {
namespace {

constexpr std::size_t max_text_size = std::size_t{16} << 20;
constexpr std::size_t number_length = 4;

/// The characters that numbers and heads are made of: digits, "-", "." and "/".
bool is_number_character(char c) { return c >= '-' && c <= '9'; }

/// Value of the decimal number at the head of a text, as `atoi` reads it.
int number_in(std::string_view text) { return std::atoi(std::string(text).c_str()); }

class Compiler {
public:
    /// Translates one line, its end character with it.
    void translate(std::string_view line)
    {
        for (std::size_t i = 0; i < line.size();) {
            const char c = line[i];
            const bool in_text = in_text_;
            if (c == '"') {
                put(in_text ? SCRIPT_QUOTE : SCRIPT_STRING);
                in_text_ = !in_text;
            }
            if (in_text_) {
                put(static_cast<uint8_t>(c));
            } else if (c == ';') {
                return;
            } else if (c == '[') {
                put(number_in(line.substr(i + 1, 2)));
                i += 3;
                continue;
            } else if (is_number_character(c)) {
                if (i == 0) return put_head(line);
                i += put_number(line.substr(i));
                continue;
            }
            ++i;
        }
    }
    std::vector<uint8_t> bytes;

private:
    void put(int byte) { bytes.push_back(static_cast<uint8_t>(byte)); }

    void put_head(std::string_view line)
    {
        put(SCRIPT_RECORD);
        put(number_in(line.substr(0, 2)));
        put(line.size() > 2 ? number_in(line.substr(2, 2)) : 0);
    }

    /// Writes the number at the head of `rest`; returns the characters taken.
    std::size_t put_number(std::string_view rest)
    {
        std::size_t length = 0;
        while (length < number_length && length < rest.size() && is_number_character(rest[length]))
            ++length;
        const int value = number_in(rest.substr(0, length));
        const int magnitude = std::abs(value);
        put(SCRIPT_NUMBER);
        put(value < 0 ? 1 : 0);
        put(magnitude / 256);
        put(magnitude % 256);
        return length;
    }

    bool in_text_ = false; // kept from line to line
};

} // namespace

std::vector<uint8_t> compile_script_text(std::string_view text)
{
    Compiler compiler;
    std::string line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        // A line end of two characters counts as one.
        if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n') continue;
        line.push_back(text[i]);
        if (text[i] != '\n') continue;
        compiler.translate(line);
        line.clear();
    }
    compiler.translate(line);
    return std::move(compiler.bytes);
}

void compile_scripts()
{
    const platform::DirectoryVisit resource("resource");
    std::vector<uint8_t> text;
    if (!resource.entered() || !platform::read_file("scripts.def", max_text_size, text)) return;
    const std::string_view characters(reinterpret_cast<const char*>(text.data()), text.size());
    platform::replace_file("mojo.def", compile_script_text(characters));
}

} // namespace kelu
