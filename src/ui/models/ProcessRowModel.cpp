// SPDX-License-Identifier: MIT
#include "ui/models/ProcessRowModel.h"

#include <fmt/format.h>

#include <cmath>

#include "ui/models/Formatters.h"

namespace vtx {
namespace {

constexpr double mebibyte = 1048576.0;
constexpr double mebibytesPerGibibyte = 1024.0;

}  // namespace

std::string formatCPU(double coreFraction) {
    if (!(coreFraction > 0.0) || !std::isfinite(coreFraction)) return std::string(emptyMark);
    const double percent = coreFraction * 100.0;
    return percent < 10.0 ? fmt::format("{:.1f}%", percent)
                          : fmt::format("{:.0f}%", std::round(percent));
}

std::string formatMem(std::uint64_t bytes) {
    if (bytes == 0) return std::string(emptyMark);
    const double size = static_cast<double>(bytes) / mebibyte;
    return size < mebibytesPerGibibyte ? fmt::format("{:.0f}M", std::round(size))
                                       : fmt::format("{:.1f}G", size / mebibytesPerGibibyte);
}

ProcessRowModel describeProcessRow(const ProcessSnapshot& process) {
    ProcessRowModel row;
    row.name = process.name.empty() ? std::string(emptyMark) : process.name;
    if (process.nice != 0) row.niceMark = fmt::format("nice {}", process.nice);
    row.cpu = formatCPU(process.cpuPercent);
    row.memory = formatMem(process.residentMemoryBytes);
    row.pid = fmt::format("{}", process.pid);
    row.spoken = fmt::format("CPU {}, Mem {}, PID {}", row.cpu, row.memory, row.pid);
    if (!row.niceMark.empty()) row.spoken += ", " + row.niceMark;
    return row;
}

}  // namespace vtx
