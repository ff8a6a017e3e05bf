// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

namespace vtx {

/// The CPU time of each process of one sample, in nanoseconds by pid. Filled whole, then asked: in
/// the order in which it was filled that costs next to nothing. One thread at a time.
class CPUTotals {
public:
    void reserve(std::size_t count) { totals_.reserve(count); }
    void add(std::int32_t pid, std::uint64_t nanoseconds) {
        totals_.emplace_back(pid, nanoseconds);
    }
    /// To be called between filling and asking.
    void arrange();

    [[nodiscard]] std::optional<std::uint64_t> find(std::int32_t pid);

private:
    std::vector<std::pair<std::int32_t, std::uint64_t>> totals_;  ///< ascending once arranged
    std::size_t next_ = 0;  ///< behind the one that was found last
};

}  // namespace vtx
