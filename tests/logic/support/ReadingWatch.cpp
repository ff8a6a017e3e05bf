// SPDX-License-Identifier: MIT
#include "support/ReadingWatch.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <set>
#include <span>

#include "base/Clock.h"

namespace vtx {
namespace {

constexpr double historyWindowSeconds = 3600.0;
constexpr std::size_t historySlack = 64;
constexpr double shortestPass = DisplayPreferences::minRefreshIntervalSeconds;
/// Of points: twice as many as were there, were a pass begun whenever one is due.
constexpr auto mostPoints = static_cast<std::size_t>(2.0 * historyWindowSeconds / shortestPass);

bool isNone(const ThermalStats& /*reading*/) { return false; }
/// The one reading without fans has the time of its first use.
bool isNone(const FanStats& reading) { return reading.fans.empty(); }

bool haveOwnNames(const std::vector<DiskIOSnapshot>& volumes) {
    std::set<std::string> names;
    return std::ranges::all_of(volumes, [&names](const auto& each) {
        return names.insert(each.bsdDevice.value_or(each.name)).second;
    });
}

}  // namespace

ReadingWatch::ReadingWatch(MetricsCoordinator& coordinator, const Clock& clock)
    : coordinator_(coordinator), clock_(clock) {
    follow("processor", coordinator.cpu.latest);
    follow("graphics", coordinator.gpu.latest);
    follow("memory", coordinator.memory.latest);
    follow("thermal level", coordinator.thermal.latest);
    follow("temperature", coordinator.temperature.latest);
    follow("battery", coordinator.battery.latest);
    follow("drives", coordinator.diskIO.latest);
    follow("network", coordinator.network.latest);
    follow("fans", coordinator.fan.latest);
    followHistory("history of the processor", coordinator.cpuHistory, 1.0);
    followHistory("history of performance cores", coordinator.pCoreHistory, 1.0);
    followHistory("history of efficiency cores", coordinator.eCoreHistory, 1.0);
    followHistory("history of the graphics", coordinator.gpuHistory, 1.0);
    followHistory("history of the memory", coordinator.memoryHistory, 1.0);
    followHistory("history of reading", coordinator.diskReadHistory, HUGE_VAL);
    followHistory("history of writing", coordinator.diskWriteHistory, HUGE_VAL);
    followHistory("history of the Neural Engine", coordinator.aneHistory, 1.0);
    subscriptions_.push_back(coordinator.memoryPressure.events.subscribe([this](const auto& all) {
        if (!all.empty()) ofNow("the newest change of the pressure", all.front().timestamp);
    }));
}

template <class Reading>
void ReadingWatch::follow(std::string_view name, const Published<std::optional<Reading>>& latest) {
    subscriptions_.push_back(
        latest.subscribe([this, name, was = false](const std::optional<Reading>& now) mutable {
            demand(now || !was, fmt::format("{}: there was a reading, and there is none", name));
            if (!now) return;
            was = true;
            ++readings_;
            ofNow(name, now->timestamp);
            look(*now);
        }));
}

template <class Reading>
void ReadingWatch::follow(std::string_view name, const Published<Reading>& latest) {
    subscriptions_.push_back(latest.subscribe([this, name](const Reading& now) {
        ++readings_;
        if (!isNone(now)) ofNow(name, now.timestamp);
        look(now);
    }));
}

void ReadingWatch::followHistory(std::string_view name, const Published<HistorySeries>& history,
                                 double most) {
    subscriptions_.push_back(history.subscribe([this, name, most](const HistorySeries& series) {
        if (series.empty()) return;
        // The one that came: all others were looked at when they did.
        const auto& [now, value] = series.back();
        demand(value >= 0.0 && value <= most && std::isfinite(value),
               fmt::format("{}: {}", name, value));
        ofNow(name, now);
        demand(series.size() <= mostPoints, fmt::format("{}: {} points", name, series.size()));
        if (series.size() <= historySlack) return;
        // Those before a moment at which the clock was set back wait for it to come again.
        const auto oldest = std::span(series).first(historySlack + 1);
        demand(!std::ranges::is_sorted(oldest, {}, &HistoryPoint::timestamp) ||
                   toSeconds(now - oldest.back().timestamp) <= historyWindowSeconds,
               fmt::format("{}: keeps what is too old", name));
    }));
}

void ReadingWatch::ofNow(std::string_view name, Date moment) {
    const auto age = clock_.now() - moment;
    constexpr std::chrono::seconds longestSample{1};
    demand(age >= age.zero() && age <= longestSample,
           fmt::format("{}: it is {} s old", name, toSeconds(age)));
}

double ReadingWatch::sinceLast(std::optional<Instant>& last) const {
    const Instant now = clock_.continuous();
    const double passed = last ? toSeconds(now - *last) : 0.0;
    last = now;
    return passed;
}

void ReadingWatch::demand(bool holds, std::string_view what) {
    if (!holds && !complaint_) complaint_ = what;
}

void ReadingWatch::mean(double value, const std::vector<double>& of, std::string_view what) {
    constexpr double rounding = 1e-9;
    if (of.empty()) return demand(value == 0.0, what);
    const auto [least, most] = std::ranges::minmax(of);
    demand(value >= least - rounding && value <= most + rounding, what);
}

void ReadingWatch::rate(std::optional<double> perSecond, double counted, double interval,
                        std::string_view what) {
    if (!perSecond) return;
    demand(std::isfinite(*perSecond) && *perSecond >= 0.0, what);
    constexpr double rounding = 1.000001;
    demand(*perSecond * interval <= counted * rounding + 1.0, what);
}

void ReadingWatch::look(const CPUStats& reading) {
    fraction(reading.totalUsage, "processor: the load of all cores");
    fraction(reading.pCoreUsage, "processor: the load of the performance cores");
    fraction(reading.eCoreUsage, "processor: the load of the efficiency cores");
    for (const auto* cores : {&reading.perCoreUsage, &reading.pPerCore, &reading.ePerCore})
        for (const double load : *cores) fraction(load, "processor: the load of a core");
    demand(reading.pPerCore.size() + reading.ePerCore.size() == reading.perCoreUsage.size(),
           "processor: cores are missing");
    mean(reading.totalUsage, reading.perCoreUsage, "processor: the load of all is none of theirs");
    mean(reading.pCoreUsage, reading.pPerCore, "processor: the performance cores' load");
    mean(reading.eCoreUsage, reading.ePerCore, "processor: the efficiency cores' load");
    constexpr double fastestMHz = 10'000.0;
    for (const auto& clock : {reading.pCoreCurrentFrequencyMHz, reading.eCoreCurrentFrequencyMHz})
        demand(!clock || (*clock > 0.0 && *clock < fastestMHz), "processor: a clock");
}

void ReadingWatch::look(const GPUStats& reading) {
    fraction(reading.deviceUtilization, "graphics: the load");
    fraction(reading.tilerUtilization, "graphics: the tiler's load");
    fraction(reading.rendererUtilization, "graphics: the renderer's load");
}

void ReadingWatch::look(const MemoryStats& reading) {
    fraction(reading.usedFraction(), "memory: the part in use");
    for (const auto bytes : {reading.usedBytes, reading.freeBytes, reading.activeBytes,
                             reading.wiredBytes, reading.inactiveBytes, reading.compressedBytes})
        demand(bytes <= reading.totalBytes, "memory: a part is more than all");
    demand(reading.activeBytes + reading.wiredBytes + reading.compressedBytes == reading.usedBytes,
           "memory: the parts in use");
    demand(reading.swapUsedBytes <= reading.swapTotalBytes, "memory: swap in use");
}

void ReadingWatch::look(const ThermalStats& reading) {
    demand(
        std::ranges::find(ThermalStats::allLevels, reading.level) != ThermalStats::allLevels.end(),
        "thermal level: one that there is not");
}

void ReadingWatch::look(const TemperatureReading& reading) {
    constexpr double meltsC = 150.0, coldestC = -40.0;
    demand(!reading.cpuMaxC || (*reading.cpuMaxC > 0.0 && *reading.cpuMaxC < meltsC),
           "temperature: the processor's");
    demand(!reading.batteryC || (*reading.batteryC > coldestC && *reading.batteryC < meltsC),
           "temperature: the battery's");
}

void ReadingWatch::look(const BatteryReading& reading) {
    constexpr double aLittleMoreThanFull = 1.5;
    if (reading.chargeFraction)
        demand(*reading.chargeFraction >= 0.0 && *reading.chargeFraction <= aLittleMoreThanFull,
               "battery: the charge");
    for (const auto& figure : {reading.minutesUntilFull, reading.minutesRemaining,
                               reading.currentCapacityMAh, reading.maxCapacityMAh})
        demand(!figure || *figure >= 0, "battery: a figure below 0");
    constexpr double coldestC = -40.0, meltsC = 150.0;
    demand(!reading.temperatureC ||
               (*reading.temperatureC > coldestC && *reading.temperatureC < meltsC),
           "battery: the temperature");
    constexpr std::int64_t mostMV = 30'000, mostMA = 30'000;
    demand(!reading.voltageMV || (*reading.voltageMV >= 0 && *reading.voltageMV <= mostMV),
           "battery: the voltage");
    demand(!reading.amperageMA || std::abs(*reading.amperageMA) <= mostMA, "battery: the current");
}

void ReadingWatch::look(const DiskIOReading& reading) {
    const int rates = reading.bytesReadPerSecond.has_value() +
                      reading.bytesWrittenPerSecond.has_value() + reading.readIOPS.has_value() +
                      reading.writeIOPS.has_value();
    demand(rates == 0 || rates == 4, "drives: some of the rates are missing");
    const bool isPlain = haveOwnNames(lastVolumes_) && haveOwnNames(reading.volumes);
    double read = 0.0, written = 0.0, reads = 0.0, writes = 0.0;
    for (const auto& volume : reading.volumes) {
        demand(!volume.name.empty(), "drives: one has no name");
        // Of one that is new, began anew, or has a name that another has too, all there is: that is
        // no less than what came.
        const auto isIt = [&volume](const auto& each) {
            return each.name == volume.name && each.bsdDevice == volume.bsdDevice;
        };
        const auto before = std::ranges::find_if(lastVolumes_, isIt);
        const bool goesOn =
            isPlain && before != lastVolumes_.end() && before->bytesRead <= volume.bytesRead &&
            before->bytesWritten <= volume.bytesWritten && before->readOps <= volume.readOps &&
            before->writeOps <= volume.writeOps;
        const DiskIOCounters from = goesOn ? *before : DiskIOCounters{};
        read += static_cast<double>(volume.bytesRead - from.bytesRead);
        written += static_cast<double>(volume.bytesWritten - from.bytesWritten);
        reads += static_cast<double>(volume.readOps - from.readOps);
        writes += static_cast<double>(volume.writeOps - from.writeOps);
    }
    lastVolumes_ = reading.volumes;
    const double interval = sinceLast(lastDisk_);
    rate(reading.bytesReadPerSecond, read, interval, "drives: what is read");
    rate(reading.bytesWrittenPerSecond, written, interval, "drives: what is written");
    rate(reading.readIOPS, reads, interval, "drives: reads");
    rate(reading.writeIOPS, writes, interval, "drives: writes");
}

void ReadingWatch::look(const NetworkReading& reading) {
    demand(reading.bytesInPerSecond.has_value() == reading.bytesOutPerSecond.has_value(),
           "network: one of the rates is missing");
    demand(std::ranges::is_sorted(reading.interfaces, {}, &NetworkInterfaceSnapshot::bsdName),
           "network: the interfaces are not by name");
    std::uint64_t in = 0, out = 0;
    for (const auto& each : reading.interfaces) {
        demand(!each.bsdName.empty(), "network: an interface has no name");
        if (!each.isActive) continue;
        in += each.bytesIn;
        out += each.bytesOut;
    }
    demand(in == reading.totalBytesIn && out == reading.totalBytesOut, "network: the totals");
    if (reading.primary)
        demand(
            reading.primary->isActive &&
                std::ranges::find(reading.interfaces, *reading.primary) != reading.interfaces.end(),
            "network: the first interface is none that is used");
    const double interval = sinceLast(lastNetwork_);
    rate(reading.bytesInPerSecond, static_cast<double>(in - std::min(in, lastIn_)), interval,
         "network: what comes in");
    rate(reading.bytesOutPerSecond, static_cast<double>(out - std::min(out, lastOut_)), interval,
         "network: what goes out");
    lastIn_ = in;
    lastOut_ = out;
}

void ReadingWatch::look(const FanStats& reading) {
    constexpr int fastest = 12'000;
    for (const FanReading& fan : reading.fans) {
        demand(fan.currentRPM >= 0 && fan.currentRPM <= fastest, "fans: a speed");
        for (const auto& bound : {fan.minRPM, fan.maxRPM, fan.targetRPM})
            demand(!bound || (*bound >= 0 && *bound <= fastest), "fans: a bound");
    }
    fraction(reading.averageLoad(), "fans: their place between the bounds");
}

void ReadingWatch::lookAtTheRest() {
    const MetricsCoordinator& c = coordinator_;
    demand(!c.ane.latest->utilization && !c.ane.latest->watts && !c.ane.latest->activeJobs,
           "Neural Engine: a figure without a source");
    demand(std::ranges::find(DisplayPreferences::knownTileIDs, *c.criticalMetric) !=
               DisplayPreferences::knownTileIDs.end(),
           "critical metric: no tile");
    demand(c.memoryPressure.events->size() <= MemoryPressureService::eventLimit,
           "pressure: too many changes are kept");
    for (const auto& event : *c.memoryPressure.events)
        fraction(event.usedFraction, "pressure: the part in use");

    constexpr std::int32_t leastNice = -20, mostNice = 20;
    std::set<std::int32_t> pids;
    const auto& reading = *c.cpu.latest;
    const double cores = reading ? static_cast<double>(reading->perCoreUsage.size()) : 1e3;
    for (const ProcessSnapshot& process : *c.processes.processes) {
        demand(pids.insert(process.pid).second, "processes: one is there twice");
        demand(process.cpuPercent >= 0.0 && process.cpuPercent <= cores + 1.0,
               fmt::format("processes: {} keeps {} cores busy", process.pid, process.cpuPercent));
        demand(process.nice >= leastNice && process.nice <= mostNice, "processes: a niceness");
        demand(process.threadCount >= 0, "processes: a number of threads");
    }
    constexpr double percent = 100.0;
    for (const auto& [pid, impact] : *c.energyByPID)
        demand(std::isfinite(impact.score) && impact.cpuComponent >= 0.0 &&
                   impact.cpuComponent <= percent * (cores + 1.0) &&
                   impact.wakeupsPerSecond >= 0.0 && impact.gpuComponent >= 0.0 &&
                   impact.score >= impact.cpuComponent + impact.gpuComponent,
               fmt::format("energy: {} costs {}, with {} of the processor", pid, impact.score,
                           impact.cpuComponent));
    const double window = c.hogDetector.configuration->windowSeconds;
    constexpr double rounding = 1e-6;
    for (const HogReport& hog : *c.hogDetector.hogs)
        demand(hog.activeSeconds >= 0.0 && hog.activeSeconds <= window + rounding &&
                   hog.averageCPU >= 0.0 && hog.averageCPU <= hog.peakCPU + rounding &&
                   hog.firstObserved <= hog.lastObserved,
               fmt::format("busy in the background: {} s of {}, {} of {}", hog.activeSeconds,
                           window, hog.averageCPU, hog.peakCPU));
}

}  // namespace vtx
