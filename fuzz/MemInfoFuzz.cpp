// SPDX-License-Identifier: MIT
#include <algorithm>

#include "Fuzz.h"
#include "memory/MemoryStats.h"
#include "platform/linux/MemInfo.h"

using namespace vtx;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto text = fuzz::asInputText(data, size);
    const auto zram = parseZramPool(text);
    const auto info = parseMemInfo(text);
    // The second time by the places of the first.
    MemInfoText reader;
    fuzz::expect(reader.parse(text) == info);
    fuzz::expect(reader.parse(text) == info);
    if (!info) return 0;
    const auto available = info->available < info->total ? info->available : info->total;
    for (const std::uint64_t pageSize : {4096U, 16'384U, 65'536U}) {
        const std::uint64_t perPage = pageSize / 1024;
        const auto pages = pageCountsOf(*info, zram.value_or(0), pageSize);
        fuzz::expect(pages.active + pages.wired + pages.compressor ==
                     info->total / perPage - available / perPage);
        fuzz::expect(pages.free + pages.inactive == available / perPage);
        const MemoryPages counts{pages.active,     pages.wired, pages.inactive,
                                 pages.compressor, pages.free,  pages.speculative};
        const SwapUsage swap{info->swapTotal,
                             info->swapTotal - std::min(info->swapFree, info->swapTotal)};
        const auto stats = MemoryStats::make(counts, pageSize, info->total * 1024, swap,
                                             MemoryStats::Pressure::normal, Date());
        fuzz::expect(stats.usedBytes <= stats.totalBytes);
        fuzz::expect(stats.usedBytes ==
                     stats.activeBytes + stats.wiredBytes + stats.compressedBytes);
        fuzz::expect(stats.freeBytes + stats.inactiveBytes <= available * 1024);
        fuzz::expect(stats.usedFraction() >= 0.0 && stats.usedFraction() <= 1.0);
        fuzz::expect(stats.totalBytes - stats.usedBytes >= stats.freeBytes + stats.inactiveBytes);
    }
    return 0;
}
