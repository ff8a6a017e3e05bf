// SPDX-License-Identifier: MIT
#include "support/PaceWatch.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/Clock.h"
#include "platform/UserNotificationCenter.h"

namespace vtx {
namespace {

constexpr Duration shortestPass = seconds(DisplayPreferences::minRefreshIntervalSeconds);
/// On battery it lasts twice as long as it was set to.
constexpr Duration longestPass = seconds(2.0 * DisplayPreferences::maxRefreshIntervalSeconds);
constexpr Duration walkInterval = std::chrono::seconds(5);
/// Of passes: one under way, one for a mode that changed, one that was asked for.
constexpr std::size_t unplanned = 3;

}  // namespace

PaceWatch::PaceWatch(MetricsCoordinator& coordinator, const Clock& clock)
    : coordinator_(coordinator), clock_(clock) {
    const auto count = [this](Beat& beat) {
        return [this, &beat](const auto& /*told*/) {
            ++beat.count;
            beat.last = clock_.continuous();
        };
    };
    // Each pass reads the thermal level, whatever else it reads.
    subscriptions_.push_back(coordinator.thermal.latest.subscribe(count(passes_)));
    subscriptions_.push_back(coordinator.processes.processes.subscribe(count(walks_)));

    const auto follow = [this](Load& load, const auto& latest, auto isHigh) {
        subscriptions_.push_back(latest.subscribe([this, &load, isHigh](const auto& reading) {
            if (!reading) return;
            const std::optional<bool> high = isHigh(*coordinator_.preferences, *reading);
            if (high) note(load, *high);
        }));
    };
    using P = DisplayPreferences;
    using Known = std::optional<bool>;
    follow(cpu_, coordinator.cpu.latest, [](const P& p, const CPUStats& reading) -> Known {
        return p.alertCPUEnabled && reading.totalUsage >= p.alertCPUThreshold;
    });
    follow(gpu_, coordinator.gpu.latest, [](const P& p, const GPUStats& reading) -> Known {
        return p.alertGPUEnabled && reading.deviceUtilization >= p.alertGPUThreshold;
    });
    follow(memory_, coordinator.memory.latest, [](const P& p, const MemoryStats& reading) -> Known {
        return p.alertMemoryEnabled && reading.usedFraction() >= p.alertMemoryThreshold;
    });
    follow(temperature_, coordinator.temperature.latest,
           [](const P& p, const TemperatureReading& reading) -> Known {
               if (!reading.cpuMaxC) return std::nullopt;  // neither hot nor not
               return p.alertTempEnabled && *reading.cpuMaxC >= p.alertTempCelsius;
           });
    begin();
}

void PaceWatch::begin() {
    begun_ = clock_.continuous();
    passes_ = walks_ = {0, begun_};
    // Another threshold makes another beginning.
    for (Load* load : {&cpu_, &gpu_, &memory_, &temperature_}) load->highSince.reset();
}

void PaceWatch::note(Load& load, bool isHigh) {
    if (!isHigh) {
        load.highSince.reset();
        load.isTold = false;
    } else if (!load.highSince) {
        load.highSince = clock_.continuous();
    }
}

void PaceWatch::look(std::span<const NotificationRequest> posted, bool isOneRefused) {
    const auto mode = *coordinator_.pollingMode;
    if (mode != PollingMode::suspended) {
        demandPace("passes", passes_, shortestPass, longestPass);
        if (mode == PollingMode::active || coordinator_.preferences->hogDetectorEnabled)
            demandPace("walks through the processes", walks_, walkInterval,
                       walkInterval + longestPass);
    }
    for (Load* load : {&cpu_, &gpu_, &memory_, &temperature_}) lookAt(*load, posted, isOneRefused);
}

void PaceWatch::demandPace(std::string_view name, const Beat& beat, Duration shortest,
                           Duration longest) {
    const Instant now = clock_.continuous();
    const auto most = static_cast<std::size_t>((now - begun_) / shortest) + unplanned;
    demand(beat.count <= most,
           fmt::format("{} {} in {} s", beat.count, name, toSeconds(now - begun_)));
    demand(now - beat.last <= longest,
           fmt::format("no {} for {} s", name, toSeconds(now - beat.last)));
}

void PaceWatch::lookAt(Load& load, std::span<const NotificationRequest> posted, bool isOneRefused) {
    const Instant now = clock_.continuous();
    const auto told = static_cast<std::size_t>(
        std::ranges::count(posted, load.identifier, &NotificationRequest::identifier));
    // One in the event itself, and one at once, for a load that had lasted before its switch went
    // on.
    const auto most = static_cast<std::size_t>((now - begun_) / load.persistence) + 2;
    demand(told <= most,
           fmt::format("{} alerts of {} in {} s", told, load.identifier, toSeconds(now - begun_)));
    if (told > 0 || isOneRefused) load.isTold = true;
    // The pass that is to tell it, and the one that is under way.
    const Duration latest = load.persistence + 2 * longestPass;
    const bool isDue = load.highSince && now - *load.highSince > latest;
    demand(!isDue || load.isTold || !*coordinator_.alerts.permissionGranted,
           fmt::format("no alert of {}", load.identifier));
}

void PaceWatch::demand(bool holds, std::string_view what) {
    if (!holds && !complaint_) complaint_ = what;
}

}  // namespace vtx
