// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Subject.h"

namespace vtx::bench {

/// A monitor of the system that many have, in its own default view, renewed once a second.
struct OtherMonitor {
    std::string_view package;  ///< of Debian
    std::vector<std::string> command;
    Subject::Output output = Subject::Output::nowhere;
    Subject::Settings settings;

    [[nodiscard]] const std::string& program() const { return command.front(); }
};

[[nodiscard]] std::vector<OtherMonitor> otherMonitors();

[[nodiscard]] bool isInstalled(const OtherMonitor& monitor);

/// "htop 3.2.2": its program and its version, the latter where dpkg tells it.
[[nodiscard]] std::string shownName(const OtherMonitor& monitor);

/// What the authors call it, of a version of a Debian package: without epoch and revision.
[[nodiscard]] std::string_view upstreamVersion(std::string_view version);

}  // namespace vtx::bench
