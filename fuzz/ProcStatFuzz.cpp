// SPDX-License-Identifier: MIT
#include <array>
#include <string>
#include <vector>

#include "Fuzz.h"
#include "platform/linux/CpuStat.h"
#include "platform/linux/Parse.h"

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
    return 0;
}
