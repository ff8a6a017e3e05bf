// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/MetricsCoordinator.h"

namespace vtx {

class Clock;

/// Looks at every reading that a coordinator publishes, and notes what no reading may be: a part
/// that is more than the whole, a figure that is none, one of another time than now, wherever the
/// clock was set. The coordinator and the clock must outlive it.
class ReadingWatch {
public:
    ReadingWatch(MetricsCoordinator& coordinator, const Clock& clock);
    ReadingWatch(const ReadingWatch&) = delete;
    ReadingWatch& operator=(const ReadingWatch&) = delete;

    /// What is published beside readings, as it is now.
    void lookAtTheRest();
    /// The first that was not as it may be, in words.
    [[nodiscard]] const std::optional<std::string>& complaint() const { return complaint_; }
    [[nodiscard]] std::size_t readings() const { return readings_; }

private:
    template <class Reading>
    void follow(std::string_view name, const Published<std::optional<Reading>>& latest);
    template <class Reading>
    void follow(std::string_view name, const Published<Reading>& latest);
    void followHistory(std::string_view name, const Published<HistorySeries>& history, double most);
    void ofNow(std::string_view name, Date moment);

    void look(const CPUStats& reading);
    void look(const GPUStats& reading);
    void look(const MemoryStats& reading);
    void look(const ThermalStats& reading);
    void look(const TemperatureReading& reading);
    void look(const BatteryReading& reading);
    void look(const DiskIOReading& reading);
    void look(const NetworkReading& reading);
    void look(const FanStats& reading);

    void demand(bool holds, std::string_view what);
    void fraction(double value, std::string_view what) {
        demand(value >= 0.0 && value <= 1.0, what);
    }
    void fraction(std::optional<double> value, std::string_view what) {
        if (value) fraction(*value, what);
    }
    /// Of parts that weigh the same; 0 of none.
    void mean(double value, const std::vector<double>& of, std::string_view what);
    /// Of one counted figure in the time since the reading before.
    void rate(std::optional<double> perSecond, double counted, double interval,
              std::string_view what);
    /// In seconds, by the time that never jumps; 0 at the first.
    [[nodiscard]] double sinceLast(std::optional<Instant>& last) const;

    MetricsCoordinator& coordinator_;
    const Clock& clock_;
    std::optional<std::string> complaint_;
    std::size_t readings_ = 0;
    std::optional<Instant> lastDisk_, lastNetwork_;
    std::vector<DiskIOSnapshot> lastVolumes_;
    std::uint64_t lastIn_ = 0, lastOut_ = 0;
    Subscriptions subscriptions_;
};

}  // namespace vtx
