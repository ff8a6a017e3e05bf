// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// The logical processors of the machine, as they were found at start: every present one, online
/// or not, in the order of the kernel's numbers. A processor's place in that order is its number
/// everywhere above this platform; the two differ only where the kernel leaves gaps. One that is
/// plugged in later has no place. Constant, any thread.
///
/// From /sys/devices/system/cpu/present; without it from the lines of /proc/stat.
class LinuxProcessors {
public:
    explicit LinuxProcessors(const LinuxRoot& root);

    /// The kernel's number of each place, ascending; empty when the machine does not say.
    [[nodiscard]] std::span<const std::uint32_t> numbers() const { return numbers_; }
    [[nodiscard]] std::size_t count() const { return numbers_.size(); }
    [[nodiscard]] std::optional<std::size_t> placeOf(std::uint32_t number) const;

    /// Performance levels: 2 on a hybrid machine, else 1.
    [[nodiscard]] std::size_t levelCount() const { return levelCount_; }
    /// 0 for the fast processors and for those of which nothing is known, 1 for the efficient ones.
    [[nodiscard]] std::size_t levelAt(std::size_t place) const { return levels_[place]; }
    /// How many places have that level.
    [[nodiscard]] std::size_t countAt(std::size_t level) const;

private:
    std::vector<std::uint32_t> numbers_;
    std::vector<std::uint8_t> levels_;
    std::size_t levelCount_ = 1;
};

}  // namespace vtx
