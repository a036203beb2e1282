// SPDX-License-Identifier: MIT
// The program's log, opened in a folder of its own for the time of a test and read back line by line.
#pragma once

#include "base/log.h"
#include "support/temporary_folder.h"
#include <sstream>
#include <vector>

namespace kelu {

class LogLines {
public:
    LogLines() { log_open(); }
    ~LogLines() { log_close(); }
    LogLines(const LogLines&) = delete;
    LogLines& operator=(const LogLines&) = delete;
    /// Lines written since the last call; each is flushed as it is written.
    std::vector<std::string> take()
    {
        std::istringstream file(folder.text("FW_log.txt"));
        std::vector<std::string> lines;
        std::size_t read = 0;
        for (std::string line; std::getline(file, line); ++read) {
            if (read >= taken_) lines.push_back(line);
        }
        taken_ = read;
        return lines;
    }

    TemporaryFolder folder; ///< the working directory as long as the log is open

private:
    std::size_t taken_ = 0; // lines handed out
};

} // namespace kelu
