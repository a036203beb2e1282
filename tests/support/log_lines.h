// The program's log, opened in a folder of its own for the time of a test and read back line by line.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace kelu::test {

class LogLines {
public:
    LogLines();
    ~LogLines();
    LogLines(const LogLines&) = delete;
    LogLines& operator=(const LogLines&) = delete;
    /// Lines written since the last call.
    std::vector<std::string> take();

private:
    std::filesystem::path folder_;
    std::size_t taken_ = 0; // lines handed out
};

} // namespace kelu::test
