// SPDX-License-Identifier: MIT
#include <array>
#include <string>
#include <vector>

#include "Fuzz.h"
#include "platform/linux/CpuStat.h"
#include "platform/linux/Parse.h"
#include "telemetry/CPUStats.h"

using namespace vtx;

namespace {

/// As the kernel writes it.
std::string written(const CpuStatLine& line) {
    std::string text = "cpu" + std::to_string(line.number);
    for (const auto ticks : line.ticks) text += " " + std::to_string(ticks);
    return text;
}

/// No column ever falls, whatever the lines say one after the other.
void tryTicks(const std::vector<CpuStatLine>& lines) {
    ProcessorTicks ticks;
    // User and nice are words of one column each.
    std::array<std::uint64_t, 2> counted{};
    for (const auto& line : lines) {
        const auto before = ticks.words();
        ticks.take(line.ticks);
        const auto words = ticks.words();
        const std::array gains{words[0] - before[0], words[3] - before[3]};
        for (const std::size_t column : {0U, 1U}) {
            const auto now = line.ticks.at(column);
            auto& highest = counted.at(column);
            // A fall counts nothing: it is jitter, or the counter started over.
            const auto gain = now > highest ? now - highest : 0;
            fuzz::expect(gains.at(column) == static_cast<std::uint32_t>(gain));
            const bool isJitter = now <= highest && highest - now <= 1000;
            if (!isJitter) highest = now;
        }
        // The same once more is no gain.
        ticks.take(line.ticks);
        fuzz::expect(ticks.words() == words);
    }
}

/// Loads between two moments of processors that count any ticks.
void tryLoads(const std::vector<CpuStatLine>& lines) {
    RawCPUSample before, now;
    CoreLayout layout;
    for (std::size_t i = 0; i + 1 < lines.size(); i += 2) {
        for (const bool isFirst : {true, false}) {
            ProcessorTicks ticks;
            ticks.take(lines[isFirst ? i : i + 1].ticks);
            const auto [user, system, idle, nice] = ticks.words();
            (isFirst ? before : now).perCpu.push_back({user, system, idle, nice});
        }
        ++(lines[i].number % 2 == 0 ? layout.pCoreCount : layout.eCoreCount);
    }
    const auto stats = CPUStats::make(now, before, layout);
    fuzz::expect(stats && stats->perCoreUsage.size() == now.perCpu.size());
    fuzz::expect(stats->pPerCore.size() == static_cast<std::size_t>(layout.pCoreCount));
    fuzz::expect(stats->ePerCore.size() == static_cast<std::size_t>(layout.eCoreCount));
    for (const double load : stats->perCoreUsage) fuzz::expect(load >= 0.0 && load <= 1.0);
    for (const double load : {stats->totalUsage, stats->pCoreUsage, stats->eCoreUsage})
        fuzz::expect(load >= 0.0 && load <= 1.0 + 1e-9);
    ++layout.pCoreCount;
    fuzz::expect(!CPUStats::make(now, before, layout));
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asInputText(data, size);
    const auto found = leadingCpuLines(text);
    fuzz::expect(text.starts_with(found.lines));
    fuzz::expect(found.lines.empty() || found.lines.ends_with('\n'));
    auto rest = found.lines;
    std::vector<CpuStatLine> lines;
    while (!rest.empty()) {
        const auto line = takeLine(rest);
        fuzz::expect(line.starts_with("cpu"));
        const auto parsed = parseCpuStatLine(line);
        if (!parsed) continue;
        fuzz::expect(parsed->number < cpuNumberLimit);
        const auto again = parseCpuStatLine(written(*parsed));
        fuzz::expect(again && again->number == parsed->number && again->ticks == parsed->ticks);
        lines.push_back(*parsed);
    }
    tryTicks(lines);
    tryLoads(lines);
    return 0;
}
