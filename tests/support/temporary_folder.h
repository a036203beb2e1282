// SPDX-License-Identifier: MIT
// A folder for the time of a test, entered at the start and removed with all that it holds at the end.
#pragma once

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

namespace kelu {

/// The whole of a file, empty when there is none.
inline std::string file_text(const std::filesystem::path& name)
{
    std::ostringstream text;
    text << std::ifstream(name, std::ios::binary).rdbuf();
    return std::move(text).str();
}

class TemporaryFolder {
public:
    TemporaryFolder() : before_(std::filesystem::current_path())
    {
        std::string form = (std::filesystem::temp_directory_path() / "kelu-test-XXXXXX").string();
        path_ = std::filesystem::canonical(mkdtemp(form.data()));
        std::filesystem::current_path(path_);
    }
    ~TemporaryFolder()
    {
        std::filesystem::current_path(before_);
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    /// Writes a file below the folder.
    void put(const std::string& name, std::string_view text) const
    {
        std::ofstream(path_ / name, std::ios::binary) << text;
    }
    void put(const std::string& name, std::span<const uint8_t> bytes) const
    {
        put(name, std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
    }
    /// The whole of a file below the folder, empty when there is none.
    std::string text(const std::string& name) const { return file_text(path_ / name); }

private:
    std::filesystem::path before_, path_;
};

} // namespace kelu
