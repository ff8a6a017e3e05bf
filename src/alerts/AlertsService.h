// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "alerts/AlertRules.h"
#include "base/Date.h"
#include "base/Published.h"
#include "base/TaskScope.h"
#include "memory/MemoryStats.h"
#include "smc/TemperatureReading.h"
#include "telemetry/CPUStats.h"
#include "telemetry/GPUStats.h"
#include "telemetry/ThermalStats.h"

namespace vtx {

class Clock;
class UserNotificationCenter;
struct Ports;

/// Tells the user of a metric that stays at or above its threshold: once, until it has fallen below
/// again. It has no timer and sees the time only in the calls of `evaluate`. Lives on the main
/// executor; owned with the other services.
class AlertsService : public ObservableObject {
public:
    /// Asks the platform's notification centre once for the right to notify; inside a test harness
    /// there is no centre. One that is passed in is used in its place and not asked: whoever passes
    /// it says in `permissionGranted` whether it may be used. Ports, centre and executor must
    /// outlive the service.
    AlertsService(const Ports& ports, Executor& main, UserNotificationCenter* center = nullptr);

    /// The answer to that request. While it is false nothing is evaluated and no time starts to
    /// run.
    Published<bool> permissionGranted{*this, false};

    /// Looks at the readings of one pass.
    void evaluate(const AlertRules& rules, const std::optional<CPUStats>& cpu,
                  const std::optional<GPUStats>& gpu, const std::optional<MemoryStats>& memory,
                  const std::optional<ThermalStats>& thermal,
                  const std::optional<TemperatureReading>& temperature);

private:
    enum class Metric : std::uint8_t { cpu, gpu, memory, pressure, temperature };
    struct Traits;
    struct Watch {
        std::optional<Instant> aboveSince;  ///< when it was first seen at or above the threshold
        bool isFired = false;               ///< told, and not below since
    };
    /// What a body tells, in its own units; absent where it has no place for it.
    struct Numbers {
        std::optional<double> value;
        std::optional<double> threshold;
    };

    [[nodiscard]] static const Traits& traitsOf(Metric metric);
    [[nodiscard]] Watch& watchOf(Metric metric) {
        return watches_[static_cast<std::size_t>(metric)];
    }

    void evaluateLoad(Metric metric, const AlertRules::Rule& rule, std::optional<double> value,
                      Instant now);
    void evaluateTemperature(const AlertRules::Rule& rule,
                             const std::optional<TemperatureReading>& reading, Instant now);
    void evaluateOne(Metric metric, bool isAbove, Instant now, const Numbers& numbers);

    void send(std::string_view title, std::string body, Metric metric);
    Task<> deliver(std::string title, std::string body, Metric metric);
    Task<> requestPermissionIfNeeded();

    const Clock& clock_;
    UserNotificationCenter* center_;
    std::array<Watch, 5> watches_{};
    TaskScope tasks_;  // last: its frames use all of the above
};

}  // namespace vtx
