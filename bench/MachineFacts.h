// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <iosfwd>
#include <optional>
#include <string>

namespace vtx::bench {

/// What figures depend on besides the program.
struct MachineFacts {
    std::string processor;  ///< as the kernel names it; empty where it does not
    long cores = 0;         ///< online
    std::string kernel;
    std::string distribution;  ///< by /etc/os-release; empty where that does not tell
    std::string toolkit;       ///< version of Qt that this was built with
};
[[nodiscard]] MachineFacts machineFacts();

/// PRETTY_NAME of the text of an os-release file, its quotes taken off; empty where there is none.
[[nodiscard]] std::string prettyNameOf(std::istream& text);

/// Ticks of all processors since the machine started, from /proc/stat.
struct ProcessorTime {
    std::uint64_t busy = 0;
    std::uint64_t all = 0;
};
[[nodiscard]] ProcessorTime processorTime();

/// The busy part of the time between the two, 0 to 1; absent where none has passed.
[[nodiscard]] std::optional<double> busyFraction(const ProcessorTime& begin,
                                                 const ProcessorTime& end);

}  // namespace vtx::bench
