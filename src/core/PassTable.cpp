// SPDX-License-Identifier: MIT
#include "core/PassTable.h"

#include <array>

namespace vtx {
namespace {

constexpr std::array table{
    PassRow{"cpu", PassPhase::concurrent,
            [](const MetricsCoordinator& coordinator) { return coordinator.needsCPU(); },
            [](MetricsCoordinator& coordinator) { return coordinator.cpu.refresh(); }, nullptr},
    PassRow{"gpu", PassPhase::concurrent,
            [](const MetricsCoordinator& coordinator) {
                return coordinator.needsSubsystem(Subsystem::gpu);
            },
            [](MetricsCoordinator& coordinator) { return coordinator.gpu.refresh(); }, nullptr},
    PassRow{"memory", PassPhase::concurrent,
            [](const MetricsCoordinator& coordinator) {
                return coordinator.needsSubsystem(Subsystem::memory);
            },
            [](MetricsCoordinator& coordinator) { return coordinator.memory.refresh(); }, nullptr},
};

}  // namespace

std::span<const PassRow> passTable() { return table; }

}  // namespace vtx
