// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/ProcessTable.h"

namespace vtx {

/// One process at one moment: a row of the process table. A value; `pid` identifies it within one
/// sample.
struct ProcessSnapshot {
    std::int32_t pid = 0;
    /// Short name; empty where the system refuses it.
    std::string name;
    /// Full path of the executable; absent where the system refuses it.
    std::optional<std::string> executablePath;
    /// Effective user.
    std::uint32_t uid = 0;
    /// Despite its name a fraction of one core: 2.5 is two and a half cores busy for the whole
    /// interval. 0 where it is not known.
    double cpuPercent = 0.0;
    /// 0 where the system refuses the task's information, as the next one.
    std::uint64_t residentMemoryBytes = 0;
    std::ptrdiff_t threadCount = 0;
    /// Niceness; 0 where the system refuses it.
    std::int32_t nice = 0;

    /// Whether the system put it there rather than its user; absent where the platform does not
    /// tell, and `executablePath` and `name` then decide.
    std::optional<bool> isSystemSoftware;
    /// Tells it from an earlier process with this number; absent where the platform does not tell.
    std::optional<ProcessStartTime> startTime;

    /// Whether it is `user`'s own and not the system's: one that its user could do without.
    [[nodiscard]] bool isOwnSoftware(std::uint32_t user) const;
    /// Whether a program that `user` runs may change its priority.
    [[nodiscard]] bool isModifiable(std::uint32_t user) const;

    bool operator==(const ProcessSnapshot&) const = default;
};

/// Whether the path is one of the system's own, by its beginning. On a platform that says itself
/// what is system software this is not asked.
[[nodiscard]] bool isSystemPath(std::string_view executablePath);

}  // namespace vtx
