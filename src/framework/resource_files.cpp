// SPDX-License-Identifier: MIT
// The cipher of the resource files, their conversion and their loading.
#include "framework/resource_files.h"

#include "base/log.h"
#include "imagefile/gif.h"
#include "platform/files.h"
#include "runtime/failure.h"
#include "runtime/random.h"
#include "runtime/sheets.h"
#include <filesystem>

namespace kelu {
namespace {

namespace fs = std::filesystem;

/// Longest resource file that is read, in bytes: the pictures of the program are some thousands.
constexpr std::size_t max_resource_file = 4u << 20;

/// Names that a load by way of a plain temporary file uses.
constexpr const char* leftover_names[] = {"prat", "prat.def", "prat_2.def"};

uint8_t reversed(uint8_t byte)
{
    int out = 0;
    for (int bit = 0; bit < 8; ++bit)
        out |= (byte >> bit & 1) << (7 - bit);
    return static_cast<uint8_t>(out);
}

/// The walk through the table: which entry serves the next byte. The same in both directions.
class Walk {
public:
    Walk(const ScrambleTable& table, int start) : table_(table), index_(start & 63) {}
    int index() const { return index_; }
    void step()
    {
        index_ = (index_ + 1 + table_[index_] % divisor_) & 63;
        divisor_ = ((divisor_ + 1) & 30) + 1; // 1, 3, 5 ... 31 and again
    }

private:
    const ScrambleTable& table_;
    int index_;
    int divisor_ = 1;
};

/// Puts every byte of `from` through one half of the cipher.
void translate(std::span<const uint8_t> from, int start, uint8_t (*half)(const ScrambleTable&, int, uint8_t),
               Bytes& out)
{
    Walk walk(scramble_table, start);
    for (const uint8_t byte : from) {
        out.push_back(half(scramble_table, walk.index(), byte));
        walk.step();
    }
}

/// True when `scrambled_name` exists and is not older than `plain_name`.
bool up_to_date(const std::string& plain_name, const std::string& scrambled_name)
{
    std::error_code failed;
    const auto scrambled = fs::last_write_time(scrambled_name, failed);
    if (failed) return false;
    const auto plain = fs::last_write_time(plain_name, failed);
    return failed || scrambled >= plain;
}

[[noreturn]] void stop_for(const std::string& name)
{
    log_line("ERROR: Failed to find a resource file. File = %s", name);
    fatal_stop(fatal_text::resource_missing);
}

[[noreturn]] void stop_conversion(const std::string& name)
{
    log_line("ERROR: Failed to convert a resource file. File = %s", name);
    fatal_stop(fatal_text::conversion);
}

} // namespace

// clang-format off
constexpr ScrambleTable scramble_table = {
    0x4b, 0xd2, 0x17, 0x8e, 0x65, 0xf9, 0x30, 0xac, 0x73, 0x0d, 0xe8, 0x91, 0x5a, 0xc6, 0x2f, 0xb4,
    0x1c, 0x87, 0xfa, 0x43, 0xde, 0x68, 0x35, 0x9b, 0xe1, 0x56, 0x0a, 0xc9, 0x7f, 0x24, 0xb8, 0x92,
    0x3d, 0xf6, 0x61, 0xab, 0x14, 0xcf, 0x58, 0x83, 0xe7, 0x39, 0x9c, 0x02, 0x76, 0xd5, 0x4e, 0xbb,
    0x29, 0x90, 0xed, 0x5f, 0xa4, 0x1b, 0xc8, 0x72, 0x06, 0xdb, 0x67, 0x3e, 0xf1, 0x8a, 0x45, 0xb3,
};
// clang-format on

uint8_t scramble_byte(const ScrambleTable& table, int index, uint8_t byte) { return reversed(byte) ^ table[index]; }

uint8_t unscramble_byte(const ScrambleTable& table, int index, uint8_t byte) { return reversed(byte ^ table[index]); }

Bytes scramble(std::span<const uint8_t> plain, int start)
{
    Bytes out;
    out.reserve(plain.size() + 1);
    out.push_back(static_cast<uint8_t>(start & 63));
    translate(plain, start, scramble_byte, out);
    return out;
}

Bytes unscramble(std::span<const uint8_t> scrambled)
{
    Bytes out;
    if (scrambled.size() < 2) return out;
    out.reserve(scrambled.size() - 1);
    translate(scrambled.subspan(1), scrambled[0], unscramble_byte, out);
    return out;
}

void convert_resource(const std::string& plain_name, const std::string& scrambled_name)
{
    if (up_to_date(plain_name, scrambled_name)) return;
    std::vector<uint8_t> plain;
    if (!platform::read_file(plain_name, max_resource_file, plain)) stop_conversion(plain_name);
    if (!platform::replace_file(scrambled_name, scramble(plain, rnd(8)))) stop_conversion(plain_name);
    platform::remove_file(plain_name);
}

Bitmap load_resource_bitmap(const std::string& name)
{
    const std::string plain_name = name + ".gif";
    if (platform::file_exists(plain_name)) convert_resource(plain_name, name);
    std::vector<uint8_t> bytes;
    if (!platform::read_file(name, max_resource_file, bytes)) stop_for(name);
    // The plain bytes stay in memory: nothing is left behind when the program is cut short.
    Bitmap picture = decode_gif(unscramble(bytes), framework_palette);
    if (!picture) stop_for(name);
    return picture;
}

void sweep_old_resources()
{
    for (const char* name : leftover_names)
        if (platform::file_exists(name)) platform::remove_file(name);
}

} // namespace kelu
