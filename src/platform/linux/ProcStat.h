// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vtx {

/// What is read of /proc/PID/stat, in which one line tells nearly all of a process.
struct ProcStat {
    /// Raw: it may hold white space, brackets, line ends and any other byte. The view lives as long
    /// as the text.
    std::string_view comm;
    std::uint64_t userTicks = 0;  ///< in clock ticks, as the next one
    std::uint64_t systemTicks = 0;
    std::int32_t nice = 0;
    std::int32_t threads = 0;
    std::uint64_t startTime = 0;  ///< in clock ticks since the machine started
    std::uint64_t residentPages = 0;
    /// Where program and stack begin in memory: another program has taken over when they change. 0
    /// without memory of its own, as kernel threads and zombies; 1 and 0 where we may not know.
    std::uint64_t startCode = 0;
    std::uint64_t startStack = 0;

    /// Neither a kernel thread nor a zombie.
    [[nodiscard]] bool hasProgram() const { return startCode != 0; }
};

/// Absent where the text breaks off before what is needed, or is no such line.
[[nodiscard]] std::optional<ProcStat> parseProcStat(std::string_view text);

}  // namespace vtx
