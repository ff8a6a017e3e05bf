// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <map>
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

private:
    pid_t process_;
};

}  // namespace vtx::bench
