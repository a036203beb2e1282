// Reads FW_log.txt while the log is open: each line is flushed as it is written.
#include "support/log_lines.h"

#include "runtime/log.h"
#include <cstdlib>
#include <fstream>

namespace kelu::test {

LogLines::LogLines()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "kelu-log-XXXXXX").string();
    folder_ = mkdtemp(pattern.data());
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder_);
    log_open();
    std::filesystem::current_path(before);
}

LogLines::~LogLines()
{
    log_close();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::vector<std::string> LogLines::take()
{
    std::ifstream file(folder_ / "FW_log.txt");
    std::vector<std::string> lines;
    std::size_t read = 0;
    for (std::string line; std::getline(file, line); ++read) {
        if (read >= taken_) lines.push_back(line);
    }
    taken_ = read;
    return lines;
}

} // namespace kelu::test
