// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace vtx {

/// The columns of a processor's line in /proc/stat that are told apart, in the kernel's order. The
/// two guest columns behind them are part of user and nice already.
enum class CpuColumn : std::uint8_t { user, nice, system, idle, iowait, irq, softirq, steal };
inline constexpr std::size_t cpuColumnCount = 8;

/// One line "cpuN ...": ticks since the machine started. Columns that an old kernel lacks are 0.
struct CpuStatLine {
    std::uint32_t number = 0;
    std::array<std::uint64_t, cpuColumnCount> ticks{};
};

/// Absent for the line of the sums and for every line that is not understood whole: a column that
/// is no number, fewer than four of them, or more ticks than a processor can have counted.
[[nodiscard]] std::optional<CpuStatLine> parseCpuStatLine(std::string_view line);

/// The processors' lines at the start of /proc/stat.
struct CpuLines {
    /// Whole lines only, each with its end.
    std::string_view lines;
    /// Whether something else was seen behind them, so that none is missing.
    bool isComplete = false;
};
[[nodiscard]] CpuLines leadingCpuLines(std::string_view text);

/// One processor's counters over time. Each column is kept monotonic: the kernel's iowait falls now
/// and then, by a few ticks, and idle starts over where a processor was taken out and put back.
class ProcessorTicks {
public:
    void take(const std::array<std::uint64_t, cpuColumnCount>& ticks);

    /// User, system, idle, nice, as sums of the columns modulo 2^32: system with irq, softirq and
    /// steal, idle with iowait.
    [[nodiscard]] std::array<std::uint32_t, 4> words() const;

private:
    struct Column {
        std::uint64_t highest = 0;  ///< of the kernel's values since the last start over
        std::uint64_t before = 0;   ///< what had been counted until then
    };
    [[nodiscard]] std::uint64_t count(CpuColumn column) const;

    std::array<Column, cpuColumnCount> columns_{};
};

}  // namespace vtx
