// SPDX-License-Identifier: MIT
#pragma once

#include "base/Shared.h"
#include "core/MetricsCoordinator.h"
#include "core/UpdaterService.h"
#include "language/Localization.h"
#include "support/TestBench.h"

namespace vtx {

/// A bench with the process-wide objects that the coordinator asks for.
class AppBench : public TestBench {
public:
    explicit AppBench(MacShape shape = MacShape::standard(),
                      SimulatedUserDefaults::Values settings = {})
        : TestBench(std::move(shape), std::move(settings)) {
        Shared<Localization>::setFactory(
            [this] { return std::make_unique<Localization>(platform.locale); });
        Shared<UpdaterService>::setFactory(
            [this] { return std::make_unique<UpdaterService>(platform.softwareUpdater); });
    }
    ~AppBench() {
        Shared<UpdaterService>::reset();
        Shared<Localization>::reset();
    }
};

/// A coordinator on a bench, whose loop has not started.
class CoordinatorBench : public AppBench {
public:
    explicit CoordinatorBench(SimulatedUserDefaults::Values settings = {})
        : AppBench(MacShape::laptop(), std::move(settings)) {}

    MetricsCoordinator coordinator{std::make_unique<Services>(ports(), executors()), ports(),
                                   executors()};

    void change(const std::function<void(DisplayPreferences&)>& edit) {
        DisplayPreferences changed = *coordinator.preferences;
        edit(changed);
        coordinator.preferences = changed;
    }
    /// Turns off all that keeps the processor sampled while idle.
    void needNoCPU() {
        change([](auto& p) { p.showCPU = p.menuBarLiveCPU = p.alertCPUEnabled = false; });
    }
    /// Passes so far, told by the processor samples of a coordinator that needs them.
    [[nodiscard]] std::size_t samples() const { return platform.calls("host_processor_info"); }
};

}  // namespace vtx
