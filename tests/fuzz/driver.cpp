// SPDX-License-Identifier: MIT
// Runs a fuzz target without libFuzzer, so that any compiler's sanitizers can watch it:
// driver SECONDS|RUNSx FOUND [CORPUS ...]
//
// First each example of the folders as it is, then random changes of examples until the time is over, or so many of
// them. The changes are the same in each run. When a sanitizer ends the process, the input of that moment stays as
// FOUND/crash.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <sanitizer/common_interface_defs.h>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* bytes, std::size_t size);
extern "C" __attribute__((weak)) int LLVMFuzzerInitialize(int* count, char*** words);

namespace {

using Input = std::vector<uint8_t>;

constexpr std::size_t longest_input = 65536;

Input current;
std::string found_folder;

void keep_current()
{
    std::ofstream(found_folder + "/crash", std::ios::binary)
        .write(reinterpret_cast<const char*>(current.data()), static_cast<std::streamsize>(current.size()));
}

std::vector<Input> read_corpus(const char* folder)
{
    std::vector<std::filesystem::path> names;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) names.push_back(entry.path());
    }
    std::ranges::sort(names); // the order on disk differs from one checkout to the next
    std::vector<Input> corpus;
    for (const auto& name : names) {
        std::ifstream file(name, std::ios::binary);
        corpus.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    }
    return corpus;
}

/// Values at which sizes and counts go wrong.
constexpr uint8_t edges[] = {0, 1, 0x7f, 0x80, 0xfe, 0xff};

void change(Input& input, std::mt19937& random)
{
    const auto below = [&](std::size_t n) { return random() % std::max<std::size_t>(n, 1); };
    const auto at = static_cast<std::ptrdiff_t>(below(input.size() + 1));
    const auto length = std::min(static_cast<std::ptrdiff_t>(1 + below(8)), std::ssize(input) - at);
    switch (below(6)) {
    case 0: // one bit
        if (length > 0) input[static_cast<std::size_t>(at)] ^= static_cast<uint8_t>(1U << below(8));
        break;
    case 1: // one byte
        if (length > 0) input[static_cast<std::size_t>(at)] = static_cast<uint8_t>(random());
        break;
    case 2: // a word at an edge
        std::fill_n(input.begin() + at, std::max<std::ptrdiff_t>(length, 0), edges[below(std::size(edges))]);
        break;
    case 3: // a piece less
        input.erase(input.begin() + at, input.begin() + at + std::max<std::ptrdiff_t>(length, 0));
        break;
    case 4: // a piece more
        input.insert(input.begin() + at, 1 + below(16), static_cast<uint8_t>(random()));
        break;
    default: // an early end
        if (below(8) == 0) input.resize(static_cast<std::size_t>(at));
        break;
    }
    input.resize(std::min(input.size(), longest_input));
}

void run(const Input& input)
{
    current = input;
    LLVMFuzzerTestOneInput(current.data(), current.size());
}

} // namespace

int main(int count, char** words)
{
    if (count < 3) return 2;
    if (LLVMFuzzerInitialize) LLVMFuzzerInitialize(&count, &words);
    found_folder = words[2];
    __sanitizer_set_death_callback(keep_current);
    std::vector<Input> corpus = {{}};
    for (int i = 3; i < count; ++i)
        std::ranges::move(read_corpus(words[i]), std::back_inserter(corpus));
    std::ranges::for_each(corpus, run);

    std::mt19937 random(1);
    const bool counted = std::string_view(words[1]).ends_with('x');
    const long length = std::atol(words[1]);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(length);
    long runs = 0;
    for (; counted ? runs < length : std::chrono::steady_clock::now() < end; ++runs) {
        Input input = corpus[random() % corpus.size()];
        for (std::size_t changes = 1 + random() % 8; changes > 0; --changes)
            change(input, random);
        run(input);
    }
    std::cout << corpus.size() << " examples, " << runs << " changed ones\n";
}
