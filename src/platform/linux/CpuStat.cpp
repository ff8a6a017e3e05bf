// SPDX-License-Identifier: MIT
#include "platform/linux/CpuStat.h"

#include "platform/linux/Parse.h"
#include "platform/linux/TextScan.h"

namespace vtx {
namespace {

/// 348 years of a hundred ticks a second. The kernel prints values beyond it when a difference of
/// its own went below zero.
constexpr std::uint64_t ticksLimit = std::uint64_t{1} << 40;

/// A fall by more than this many ticks is a counter that started over, not jitter.
constexpr std::uint64_t jitterTicks = 1000;

}  // namespace

std::optional<CpuStatLine> parseCpuStatLine(std::string_view line) {
    CpuStatLine parsed;
    if (!line.starts_with("cpu")) return std::nullopt;
    TextScan scan(line.substr(3));
    std::uint64_t number = 0;
    if (!scan.takeNumber(number) || number >= cpuNumberLimit) return std::nullopt;
    parsed.number = static_cast<std::uint32_t>(number);
    std::size_t column = 0;
    for (; !scan.isAtEnd(); ++column) {
        std::uint64_t ticks = 0;
        if (!scan.take(' ')) return std::nullopt;
        if (!scan.takeNumber(ticks) || ticks >= ticksLimit) return std::nullopt;
        if (column < cpuColumnCount) parsed.ticks[column] = ticks;
    }
    if (column < 4) return std::nullopt;
    return parsed;
}

CpuLines leadingCpuLines(std::string_view text) {
    constexpr std::string_view prefix = "cpu";
    std::size_t end = 0;
    for (;;) {
        const auto rest = text.substr(end);
        if (!rest.starts_with(prefix)) {
            return {text.substr(0, end), !prefix.starts_with(rest.substr(0, prefix.size()))};
        }
        const auto newline = rest.find('\n');
        if (newline == std::string_view::npos) return {text.substr(0, end), false};
        end += newline + 1;
    }
}

void ProcessorTicks::take(const std::array<std::uint64_t, cpuColumnCount>& ticks) {
    for (std::size_t i = 0; i < cpuColumnCount; ++i) {
        auto& [highest, before] = columns_[i];
        if (ticks[i] + jitterTicks < highest) {
            before += highest - ticks[i];
            highest = ticks[i];
        }
        if (ticks[i] > highest) highest = ticks[i];
    }
}

std::uint64_t ProcessorTicks::count(CpuColumn column) const {
    const auto& [highest, before] = columns_[static_cast<std::size_t>(column)];
    return before + highest;
}

std::array<std::uint32_t, 4> ProcessorTicks::words() const {
    using enum CpuColumn;
    const std::uint64_t inKernel = count(system) + count(irq) + count(softirq) + count(steal);
    const std::uint64_t notBusy = count(idle) + count(iowait);
    return {static_cast<std::uint32_t>(count(user)), static_cast<std::uint32_t>(inKernel),
            static_cast<std::uint32_t>(notBusy), static_cast<std::uint32_t>(count(nice))};
}

}  // namespace vtx
