// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <string>

#include "base/Published.h"
#include "telemetry/SystemInfo.h"

namespace vtx {

class ProcessInfo;
struct Ports;

/// Gathers the facts about the machine once, at construction, and publishes them. Under a test
/// harness it touches nothing and publishes a placeholder: devices are not safe to ask there. Lives
/// on the main executor, owned by the composition root.
class SystemInfoService : public ObservableObject {
public:
    /// Asks the devices on the spot, which takes noticeable time. The ports are not used after it.
    explicit SystemInfoService(const Ports& ports);

    /// Does not change.
    Published<SystemInfo> info;

    /// Whether the process runs inside a test harness, by its environment or what is loaded in it.
    [[nodiscard]] static bool isRunningTests(const ProcessInfo& process);

    /// The facts as the machine tells them now.
    [[nodiscard]] static SystemInfo detect(const Ports& ports);

    /// What is published under a test harness.
    [[nodiscard]] static SystemInfo placeholder();
};

}  // namespace vtx
