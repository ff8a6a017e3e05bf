// SPDX-License-Identifier: MIT
#include "Fuzz.h"
#include "platform/linux/CpuStat.h"
#include "platform/linux/Parse.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto found = leadingCpuLines(fuzz::asInputText(data, size));
    fuzz::expect(found.lines.empty() || found.lines.ends_with('\n'));
    auto lines = found.lines;
    ProcessorTicks ticks;
    while (!lines.empty()) {
        const auto line = parseCpuStatLine(takeLine(lines));
        if (!line) continue;
        ticks.take(line->ticks);
        (void)ticks.words();
    }
    return 0;
}
