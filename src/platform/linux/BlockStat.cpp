// SPDX-License-Identifier: MIT
#include "platform/linux/BlockStat.h"

#include <array>
#include <charconv>

namespace vtx {
namespace {

constexpr std::uint64_t sectorBytes = 512;
constexpr std::uint64_t sectorLimit = ~std::uint64_t{0} / sectorBytes;
constexpr std::string_view blanks = " \t\n";

/// The columns that are told apart, in the kernel's order.
enum Column { reads, readsMerged, sectorsRead, readTicks, writes, writesMerged, sectorsWritten };
constexpr std::size_t columnCount = sectorsWritten + 1;

}  // namespace

std::optional<BlockStat> parseBlockStat(std::string_view text) {
    std::array<std::uint64_t, columnCount> columns{};
    for (auto& column : columns) {
        text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
        const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), column);
        if (error != std::errc{}) return std::nullopt;
        text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
        // Without an end of its own a number may be the first half of one.
        if (text.empty() || blanks.find(text.front()) == std::string_view::npos)
            return std::nullopt;
    }
    if (columns[sectorsRead] > sectorLimit || columns[sectorsWritten] > sectorLimit)
        return std::nullopt;
    return BlockStat{columns[reads], columns[sectorsRead] * sectorBytes, columns[writes],
                     columns[sectorsWritten] * sectorBytes};
}

}  // namespace vtx
