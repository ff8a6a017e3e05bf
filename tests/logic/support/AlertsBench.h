// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "alerts/AlertsService.h"
#include "support/CoordinatorBench.h"

namespace vtx {

/// The service on a bench, whose user has granted the right to notify, with the readings of the
/// next round.
class AlertsBench : public AppBench {
public:
    AlertsBench() { settle(); }

    AlertsService alerts{ports(), main};
    SimulatedUserNotificationCenter& center = platform.userNotifications;

    AlertRules rules;
    std::optional<CPUStats> cpu;
    std::optional<GPUStats> gpu;
    std::optional<MemoryStats> memory;
    std::optional<ThermalStats> thermal = ThermalStats{};
    std::optional<TemperatureReading> temperature;

    void setCPU(double load) { cpu.emplace().totalUsage = load; }
    void setGPU(double load) { gpu.emplace().deviceUtilization = load; }
    void setMemory(std::uint64_t used, std::uint64_t total) {
        memory.emplace();
        memory->usedBytes = used;
        memory->totalBytes = total;
    }
    void setPressure(MemoryStats::Pressure pressure) { memory.emplace().pressure = pressure; }
    void setTemperature(std::optional<double> degrees) { temperature.emplace().cpuMaxC = degrees; }

    /// One evaluation, so many seconds after the first one.
    void roundAt(double second) {
        if (!start_) start_ = clock.continuous();
        clock.advanceTo(*start_ + seconds(second));
        alerts.evaluate(rules, cpu, gpu, memory, thermal, temperature);
        settle();
    }
    /// Evaluations at each of these seconds, the last one included.
    void rounds(double first, double last, double step = 1.0) {
        for (double second = first; second <= last; second += step) roundAt(second);
    }

    [[nodiscard]] std::size_t sent() const { return center.posted().size(); }
    [[nodiscard]] std::vector<std::string> bodies() const {
        std::vector<std::string> all;
        for (const auto& request : center.posted()) all.push_back(request.body);
        return all;
    }
    [[nodiscard]] std::size_t logged(LogLevel level, std::string_view message) const {
        return log.count(level, "Alerts", message);
    }

private:
    std::optional<Instant> start_;
};

}  // namespace vtx
