// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/linux/Environment.h"
#include "platform/linux/LinuxRoot.h"

namespace vtx {

/// The system monitor that is installed: the first of those that the desktops bring, the running
/// desktop's own before the others. One is installed where its desktop entry is, in the folders
/// that XDG_DATA_HOME and XDG_DATA_DIRS name, and its program too. Looked for anew each time, since
/// programs come and go. Main executor; the root outlives it.
class SystemMonitor {
public:
    using Start = std::function<void(const std::vector<std::string>& command)>;

    /// Without `start` programs are started for good.
    SystemMonitor(const LinuxRoot& root, Environment environment, Start start = {});

    /// Absent where none is installed.
    [[nodiscard]] std::optional<std::vector<std::string>> command() const;
    /// Nothing where none is installed.
    void open() const;

private:
    [[nodiscard]] std::vector<std::string> folders() const;
    [[nodiscard]] bool isInstalled(const std::string& program) const;

    const LinuxRoot* root_;
    Environment environment_;
    Start start_;
};

}  // namespace vtx
