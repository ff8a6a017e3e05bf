// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vtx {

/// What the kernel counted of a disk since it came.
struct BlockStat {
    std::uint64_t readOperations = 0;
    std::uint64_t bytesRead = 0;
    std::uint64_t writeOperations = 0;
    std::uint64_t bytesWritten = 0;

    friend bool operator==(const BlockStat&, const BlockStat&) = default;
};

/// The text of /sys/block/NAME/stat: numbers with blanks between them, of which the first seven are
/// as old as the file. Sectors are of 512 bytes, whatever the disk's own are. Discarded and flushed
/// data is neither read nor written and not counted. Absent unless those seven are numbers whose
/// bytes fit 64 bits.
[[nodiscard]] std::optional<BlockStat> parseBlockStat(std::string_view text);

}  // namespace vtx
