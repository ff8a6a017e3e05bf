// SPDX-License-Identifier: MIT
#include "telemetry/DiskIOReading.h"

#include <algorithm>

namespace vtx {
namespace {

constexpr std::uint64_t DiskIOCounters::* allCounters[] = {
    &DiskIOCounters::bytesRead, &DiskIOCounters::bytesWritten, &DiskIOCounters::readOps,
    &DiskIOCounters::writeOps};

const std::string& keyOf(const DiskIOSnapshot& drive) {
    return drive.bsdDevice ? *drive.bsdDevice : drive.name;
}

}  // namespace

void addUp(std::span<const DiskIOSnapshot> volumes, DiskIOTotals& into) {
    std::size_t count = 0;
    for (const DiskIOSnapshot& drive : volumes) {
        const auto used = std::span(into).first(count);
        auto total = std::ranges::find(used, keyOf(drive), &DiskIOTotal::key);
        if (total == used.end()) {
            if (count == into.size()) into.emplace_back();
            DiskIOTotal& fresh = into[count++];
            fresh.key = keyOf(drive);
            fresh.counters = drive;
            continue;
        }
        for (const auto counter : allCounters) total->counters.*counter += drive.*counter;
    }
    into.resize(count);
}

std::optional<DiskIORates> ratesBetween(const DiskIOTotals& previous, const DiskIOTotals& current,
                                        double intervalSeconds) {
    if (!(intervalSeconds > 0.0)) return std::nullopt;
    DiskIOCounters sum;
    for (const auto& [key, now] : current) {
        const auto before = std::ranges::find(previous, key, &DiskIOTotal::key);
        if (before == previous.end()) continue;
        for (const auto counter : allCounters)
            if (now.*counter >= before->counters.*counter)
                sum.*counter += now.*counter - before->counters.*counter;
    }
    const auto rate = [intervalSeconds](std::uint64_t count) {
        return static_cast<double>(count) / intervalSeconds;
    };
    return DiskIORates{rate(sum.bytesRead), rate(sum.bytesWritten), rate(sum.readOps),
                       rate(sum.writeOps)};
}

}  // namespace vtx
