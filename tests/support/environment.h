// SPDX-License-Identifier: MIT
// A word of the environment for the time of a block.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace kelu::test {

class EnvironmentWord {
public:
    /// Without a value the word is taken away.
    EnvironmentWord(const char* name, const std::optional<std::string>& value) : name_(name)
    {
        if (const char* before = std::getenv(name)) before_ = before;
        set(value);
    }
    ~EnvironmentWord() { set(before_); }
    EnvironmentWord(const EnvironmentWord&) = delete;
    EnvironmentWord& operator=(const EnvironmentWord&) = delete;

private:
    void set(const std::optional<std::string>& value) const
    {
        value ? setenv(name_, value->c_str(), 1) : unsetenv(name_);
    }
    const char* name_;
    std::optional<std::string> before_;
};

} // namespace kelu::test
