// SPDX-License-Identifier: MIT
#include "telemetry/CPUStats.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace vtx {
namespace {

// Differences are taken modulo 2^32, so a counter that wrapped gives its true small difference. One
// that went backwards gives a huge one, which the limit to 1.0 bounds.
double loadBetween(const CPUTicks& previous, const CPUTicks& current) {
    const std::uint32_t user = current.user - previous.user;
    const std::uint32_t system = current.system - previous.system;
    const std::uint32_t idle = current.idle - previous.idle;
    const std::uint32_t nice = current.nice - previous.nice;
    const double busy =
        static_cast<double>(user) + static_cast<double>(system) + static_cast<double>(nice);
    const double total = busy + static_cast<double>(idle);
    return total > 0.0 ? std::min(busy / total, 1.0) : 0.0;
}

double mean(const std::vector<double>& values) {
    if (values.empty()) return 0.0;
    return std::accumulate(values.begin(), values.end(), 0.0) / static_cast<double>(values.size());
}

// Without a map the efficiency cluster has the low processor numbers.
bool isEfficiency(std::size_t processor, const CoreLayout& layout, std::size_t count) {
    if (layout.clusterMap.size() == count)
        return layout.clusterMap[processor] == ClusterType::efficiency;
    return std::cmp_less(processor, layout.eCoreCount);
}

}  // namespace

std::optional<CPUStats> CPUStats::make(const RawCPUSample& current, const RawCPUSample& previous,
                                       const CoreLayout& layout) {
    const std::size_t count = current.perCpu.size();
    const std::int64_t expected = std::int64_t{layout.pCoreCount} + layout.eCoreCount;
    if (previous.perCpu.size() != count || static_cast<std::int64_t>(count) != expected)
        return std::nullopt;

    CPUStats stats;
    stats.perCoreUsage.reserve(count);
    stats.pPerCore.reserve(count);
    stats.ePerCore.reserve(static_cast<std::size_t>(std::max(layout.eCoreCount, 0)));
    for (std::size_t i = 0; i < count; ++i) {
        const double load = loadBetween(previous.perCpu[i], current.perCpu[i]);
        stats.perCoreUsage.push_back(load);
        (isEfficiency(i, layout, count) ? stats.ePerCore : stats.pPerCore).push_back(load);
    }
    stats.totalUsage = mean(stats.perCoreUsage);
    stats.pCoreUsage = mean(stats.pPerCore);
    stats.eCoreUsage = mean(stats.ePerCore);
    stats.layout = layout;
    stats.timestamp = current.timestamp;
    return stats;
}

}  // namespace vtx
