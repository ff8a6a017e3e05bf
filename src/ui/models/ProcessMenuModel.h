// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "processes/ProcessSnapshot.h"

namespace vtx {

/// What an entry of a process's menu does.
enum class ProcessAction { none, reveal, copyPath, openSystemMonitor, renice };

/// One entry of the menu, whose texts are the same in every language.
struct ProcessMenuEntry {
    std::string_view title;  ///< empty for the line between groups
    ProcessAction action = ProcessAction::none;
    /// What `renice` asks for.
    std::int32_t nice = 0;
    bool isEnabled = true;

    [[nodiscard]] bool isSeparator() const { return title.empty(); }
    bool operator==(const ProcessMenuEntry&) const = default;
};

/// What the menu depends on beside the process.
struct ProcessMenuContext {
    /// Whether its priority may be changed.
    bool isModifiable = false;
    /// Whether there is a system monitor to open.
    bool hasSystemMonitor = true;
};

[[nodiscard]] std::vector<ProcessMenuEntry> describeProcessMenu(const ProcessSnapshot& process,
                                                                ProcessMenuContext context);

}  // namespace vtx
