// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>

#include "processes/ProcessSnapshot.h"

namespace vtx {

/// The texts of one row of the process list.
struct ProcessRowModel {
    /// The mark of what is not known where the process has no name.
    std::string name;
    /// "nice 10"; empty for a process whose niceness is 0.
    std::string niceMark;
    std::string cpu;
    std::string memory;
    std::string pid;
    /// What a screen reader says after the name.
    std::string spoken;

    bool operator==(const ProcessRowModel&) const = default;
};

[[nodiscard]] ProcessRowModel describeProcessRow(const ProcessSnapshot& process);

/// A fraction of one core as "9.4%" or, from ten percent on, "12%"; the mark of what is not known
/// for nothing.
[[nodiscard]] std::string formatCPU(double coreFraction);
/// Bytes as "188M" or "3.2G", in units of 2^20 and 2^30; the mark of what is not known for 0.
[[nodiscard]] std::string formatMem(std::uint64_t bytes);

}  // namespace vtx
