// SPDX-License-Identifier: MIT
#pragma once

#include "platform/Workspace.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/SimulatedMac.h"

namespace vtx {

/// The session of the simulated machine's user. Main executor.
class SimulatedWorkspace final : public Workspace {
public:
    SimulatedWorkspace(SimulatedMac& mac, Instruments& instruments)
        : mac_(mac), instruments_(instruments) {}

    [[nodiscard]] Subscription onWillSleep(std::function<void()> handler) override;
    [[nodiscard]] Subscription onDidWake(std::function<void()> handler) override;
    [[nodiscard]] std::optional<std::int32_t> frontmostApplication() override;
    void selectFile(const std::string& path) override;
    [[nodiscard]] bool hasSystemMonitor() override { return mac_.hasSystemMonitor; }
    void openSystemMonitor() override;

private:
    SimulatedMac& mac_;
    Instruments& instruments_;
};

}  // namespace vtx
