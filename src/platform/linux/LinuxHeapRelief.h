// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/HeapRelief.h"
#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// Trims the C library's heap, every arena of it. The library does not tell how much that gave
/// back, so the memory that belongs to this program alone is counted before and after: resident and
/// swapped out together, since under pressure the system moves pages from one to the other at the
/// same time, and without the pages of files, which it takes away by itself. Owned by the platform.
class LinuxHeapRelief final : public HeapRelief {
public:
    explicit LinuxHeapRelief(const LinuxRoot& root) : root_(root) {}

    /// The relief alone, without the count, which takes a walk over all that is mapped. Any thread.
    static void trim();

    /// Has all threads share two heaps: each of their own would keep up to 132 kB that a relief
    /// does not give back. Before the first thread.
    static void shareHeaps();

    [[nodiscard]] std::int64_t mallocZonePressureRelief() override;

    /// Bytes that this program holds for itself; absent where the system does not tell.
    [[nodiscard]] std::optional<std::int64_t> heldBytes() const;

    /// "Anonymous" and "Swap" of the text of /proc/PID/smaps_rollup, together, in bytes.
    [[nodiscard]] static std::optional<std::int64_t> heldBytes(std::string_view smapsRollup);

private:
    const LinuxRoot& root_;
};

}  // namespace vtx
