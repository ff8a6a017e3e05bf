// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>

#include "platform/ProcessTable.h"
#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// Gives a process a niceness. The kernel keeps one for each thread, so all those are changed that
/// stood where the first one did, or that the new value would leave ahead of it; those that the
/// process itself put further back stay there. Returns 0, or the errno value with which the first
/// thread was refused: nothing was changed then. ESRCH where the process with that number began at
/// another time. `pid` is 1 at least. Any thread.
[[nodiscard]] int setThreadPriorities(const LinuxRoot& root, std::int32_t pid,
                                      std::optional<ProcessStartTime> start, std::int32_t nice);

}  // namespace vtx
