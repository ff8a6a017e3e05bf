// SPDX-License-Identifier: MIT
#include "platform/linux/BlockStat.h"

#include <array>

#include "platform/linux/TextScan.h"

namespace vtx {
namespace {

constexpr std::uint64_t sectorBytes = 512;
constexpr std::uint64_t sectorLimit = ~std::uint64_t{0} / sectorBytes;

/// The columns that are told apart, in the kernel's order.
enum Column { reads, readsMerged, sectorsRead, readTicks, writes, writesMerged, sectorsWritten };
constexpr std::size_t columnCount = sectorsWritten + 1;

}  // namespace

std::optional<BlockStat> parseBlockStat(std::string_view text) {
    std::array<std::uint64_t, columnCount> columns{};
    TextScan scan(text);
    for (auto& column : columns) {
        scan.skipBlanks();
        if (!scan.takeWholeNumber(column)) return std::nullopt;
    }
    if (columns[sectorsRead] > sectorLimit || columns[sectorsWritten] > sectorLimit)
        return std::nullopt;
    return BlockStat{columns[reads], columns[sectorsRead] * sectorBytes, columns[writes],
                     columns[sectorsWritten] * sectorBytes};
}

}  // namespace vtx
