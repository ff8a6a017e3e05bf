// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vtx::bench {

class PseudoTerminal;

/// A program that was started here, and is ended when this goes.
class Program {
public:
    using Environment = std::map<std::string, std::string>;

    /// Starts it with these variables over our own. It has the terminal for itself, which outlives
    /// it; without one its output goes nowhere and its messages to ours. Throws `std::system_error`
    /// when there can be no further process.
    Program(const std::vector<std::string>& command, const Environment& environment,
            const PseudoTerminal* terminal = nullptr);
    ~Program();
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    [[nodiscard]] pid_t process() const { return process_; }
    /// Whether it has not ended by itself.
    [[nodiscard]] bool isRunning();
    /// Asks it to end: its exit status, or 128 and the signal that ended it. Absent where it does
    /// not within some seconds, or ended before.
    std::optional<int> end();

private:
    pid_t process_;
    int status_ = 0;  // as waitpid gives it, once it has ended
};

}  // namespace vtx::bench
