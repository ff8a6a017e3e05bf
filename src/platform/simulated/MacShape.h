// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vtx {

enum class CoreKind { efficiency, performance };

/// How a simulated machine is built. Constant for its life.
struct MacShape {
    /// The kind of each logical processor, in the order of their numbers.
    std::vector<CoreKind> cores;
    /// Performance levels that the kernel tells of: 2, 1, or absent where it knows no such thing.
    std::optional<int> performanceLevels;
    /// Top clocks that the kernel tells, in hertz; absent where it does not tell, as it does not on
    /// machines whose clocks stand in the power manager's tables.
    std::optional<std::int64_t> performanceMaxHz;
    std::optional<std::int64_t> efficiencyMaxHz;

    /// Two clusters, the efficiency cores having the low numbers.
    static MacShape standard(std::size_t performanceCores = 8, std::size_t efficiencyCores = 4);
    /// One performance level that all cores belong to.
    static MacShape singleLevel(std::size_t coreCount = 8);
    /// A kernel that knows no performance levels.
    static MacShape withoutLevels(std::size_t coreCount = 8);

    [[nodiscard]] std::size_t count(CoreKind kind) const;
};

}  // namespace vtx
