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
    PassRow{"temperature", PassPhase::main,
            [](const MetricsCoordinator& coordinator) {
                return coordinator.needsSubsystem(Subsystem::temperature);
            },
            nullptr, [](MetricsCoordinator& coordinator) { coordinator.temperature.refresh(); }},
    PassRow{"diskIO", PassPhase::main,
            [](const MetricsCoordinator& coordinator) {
                return coordinator.needsSubsystem(Subsystem::disk);
            },
            nullptr, [](MetricsCoordinator& coordinator) { coordinator.diskIO.refresh(); }},
    PassRow{"fan", PassPhase::main,
            [](const MetricsCoordinator& coordinator) {
                return coordinator.needsSubsystem(Subsystem::fan);
            },
            nullptr, [](MetricsCoordinator& coordinator) { coordinator.fan.refresh(); }},
    PassRow{"network", PassPhase::activeOnly, nullptr, nullptr,
            [](MetricsCoordinator& coordinator) { coordinator.network.refresh(); }},
};

}  // namespace

std::span<const PassRow> passTable() { return table; }

}  // namespace vtx
