// SPDX-License-Identifier: MIT
#include "pictures/BusyLaptop.h"

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <tuple>
#include <utility>

#include "platform/simulated/SimulatedProcesses.h"

namespace vtx::samples {
namespace {

constexpr std::uint64_t mib = std::uint64_t{1} << 20;
constexpr std::uint64_t gib = std::uint64_t{1} << 30;
constexpr std::uint64_t memorySize = 32 * gib;
constexpr int historySeconds = 60;

std::uint64_t part(std::uint64_t whole, double fraction) {
    return static_cast<std::uint64_t>(static_cast<double>(whole) * fraction);
}

void tellProcessor(MetricsCoordinator& to) {
    CPUStats stats;
    stats.layout.pCoreCount = 8;
    stats.layout.eCoreCount = 4;
    stats.layout.pCoreMaxMHz = 3700;
    stats.layout.eCoreMaxMHz = 2420;
    stats.totalUsage = 0.23;
    stats.pCoreUsage = 0.31;
    stats.eCoreUsage = 0.09;
    stats.pPerCore = {0.72, 0.58, 0.41, 0.33, 0.18, 0.14, 0.08, 1.0};
    stats.ePerCore = {0.16, 0.10, 0.005, 0.0};
    stats.pCoreCurrentFrequencyMHz = 3228;
    to.cpu.latest = stats;
}

void tellConsumers(MetricsCoordinator& to,
                   const std::vector<std::pair<std::string, std::uint64_t>>& consumers) {
    std::vector<ProcessSnapshot> processes;
    for (const auto& [name, bytes] : consumers) {
        ProcessSnapshot one;
        one.name = name;
        one.executablePath = "/Applications/" + name;
        one.uid = SimulatedProcesses::user;
        one.residentMemoryBytes = bytes;
        processes.push_back(std::move(one));
    }
    to.processes.processes = std::move(processes);
}

DiskIOSnapshot volume(const char* name, const char* device, std::uint64_t read,
                      std::uint64_t written) {
    DiskIOSnapshot made;
    made.name = name;
    made.bsdDevice = device;
    made.bytesRead = read;
    made.bytesWritten = written;
    return made;
}

void tellDrives(MetricsCoordinator& to) {
    DiskIOReading reading;
    reading.volumes = {
        volume("Internal SSD", "disk0", 1'945 * mib, 846 * mib),
        volume("A very long name of an external drive in a dock", "disk4", 312 * mib, 4'300 * mib)};
    reading.bytesReadPerSecond = 38.4 * static_cast<double>(mib);
    reading.bytesWrittenPerSecond = 12.7 * static_cast<double>(mib);
    reading.readIOPS = 612;
    reading.writeIOPS = 248;
    to.diskIO.latest = reading;
}

void tellNetwork(MetricsCoordinator& to) {
    using Kind = LinkKind;
    NetworkReading reading;
    const std::tuple<const char*, Kind, bool> interfaces[] = {
        {"en0", Kind::wifi, true},     {"en5", Kind::ethernet, false},
        {"utun3", Kind::vpn, true},    {"pdp_ip0", Kind::cellular, false},
        {"lo0", Kind::loopback, true}, {"br-0123456789ab", Kind::other, false}};
    for (const auto& [name, kind, isActive] : interfaces) {
        NetworkInterfaceSnapshot one;
        one.bsdName = name;
        one.kind = kind;
        one.isActive = isActive;
        reading.interfaces.push_back(one);
    }
    NetworkInterfaceSnapshot& primary = reading.interfaces.front();
    primary.ipv4 = "192.168.1.42";
    primary.ipv6 = "2001:db8:85a3:1234:5678:8a2e:370:7334";
    primary.macAddress = "3c:22:fb:0a:7e:91";
    reading.primary = primary;
    reading.bytesInPerSecond = 8.4 * static_cast<double>(mib);
    reading.bytesOutPerSecond = 412 * 1024;
    reading.totalBytesIn = 6'461 * mib;
    reading.totalBytesOut = 874 * mib;
    to.network.latest = reading;
}

/// A minute of a wave around `middle`, with a little unrest that is the same each time.
HistorySeries wave(double middle, double height, double length, double unrest) {
    HistorySeries series;
    for (int second = 0; second < historySeconds; ++second) {
        const double noise = std::sin(second * 2.3) * std::sin(second * 0.71) * unrest;
        series.push_back({Date{std::chrono::seconds(second)},
                          middle + height * std::sin(second / length) + noise});
    }
    return series;
}

void tellHistories(MetricsCoordinator& to) {
    to.cpuHistory = wave(0.28, 0.08, 7, 0.16);
    to.pCoreHistory = wave(0.36, 0.12, 6, 0.2);
    to.eCoreHistory = wave(0.14, 0.03, 9, 0.1);
    to.gpuHistory = wave(0.4, 0.06, 4, 0.1);
    to.memoryHistory = wave(0.66, 0.01, 20, 0.002);
    constexpr auto perSecond = static_cast<double>(mib);
    to.diskReadHistory = wave(60 * perSecond, 50 * perSecond, 5, 6 * perSecond);
    to.diskWriteHistory = wave(20 * perSecond, -15 * perSecond, 5, 4 * perSecond);
}

}  // namespace

void memoryUsed(MetricsCoordinator& to, double fraction, MemoryStats::Pressure pressure) {
    MemoryStats stats;
    stats.totalBytes = memorySize;
    stats.usedBytes = part(memorySize, fraction);
    stats.wiredBytes = part(stats.usedBytes, 0.145);
    stats.compressedBytes = part(stats.usedBytes, 0.19);
    stats.activeBytes = stats.usedBytes - stats.wiredBytes - stats.compressedBytes;
    stats.freeBytes = part(memorySize - stats.usedBytes, 0.3);
    stats.inactiveBytes = memorySize - stats.usedBytes - stats.freeBytes;
    stats.swapUsedBytes = 640 * mib;
    to.memory.latest = stats;
    to.memory.pressure = pressure;
}

void battery(MetricsCoordinator& to, BatteryReading::ChargingState state, double charge) {
    using State = BatteryReading::ChargingState;
    using Source = BatteryReading::PowerSource;
    SystemInfo machine = *to.systemInfo.info;
    machine.batteryDesignCapacityMAh = 8694;
    machine.batteryCycleCount = 184;
    machine.totalRAMBytes = memorySize;
    machine.architecture = SystemInfo::Architecture::appleSilicon;
    to.systemInfo.info = machine;
    BatteryReading reading;
    const bool discharges = state == State::discharging;
    reading.chargeFraction = charge;
    reading.chargingState = state;
    reading.powerSource = discharges ? Source::battery : Source::acAdapter;
    if (discharges) reading.minutesRemaining = std::lround(charge * 370);
    reading.maxCapacityMAh = 7913;
    reading.currentCapacityMAh = std::lround(charge * 7913);
    reading.voltageMV = 12310;
    reading.amperageMA = discharges ? -1284 : 2410;
    reading.lowPowerModeEnabled = discharges;
    reading.temperatureC = 31.0;
    to.battery.latest = reading;
}

void busyLaptop(MetricsCoordinator& to) {
    tellProcessor(to);
    to.gpu.latest = GPUStats{0.42, 0.18, 0.41, {}};
    to.temperature.latest = TemperatureReading{63.0, std::nullopt, {}};
    memoryUsed(to, 0.58, MemoryStats::Pressure::normal);
    tellConsumers(to, {{"Photo Studio", 6'246 * mib},
                       {"firefox", 4'915 * mib},
                       {"rust-analyzer", 3'277 * mib},
                       {"virtual-machine", 2'048 * mib},
                       {"node", 870 * mib},
                       {"Music", 412 * mib}});
    tellDrives(to);
    to.fan.latest = FanStats{{{0, 2864, 2900, 1350, 5777}, {1, 2712, {}, 1522, 6241}}, {}};
    tellNetwork(to);
    battery(to, BatteryReading::ChargingState::discharging, 0.68);
    tellHistories(to);
}

void fullLoad(MetricsCoordinator& to) {
    CPUStats stats = **to.cpu.latest;
    stats.totalUsage = stats.pCoreUsage = stats.eCoreUsage = 1.0;
    stats.pPerCore.assign(stats.pPerCore.size(), 1.0);
    stats.ePerCore.assign(stats.ePerCore.size(), 1.0);
    stats.pCoreCurrentFrequencyMHz = 3700;
    stats.eCoreCurrentFrequencyMHz = 2420;
    to.cpu.latest = stats;
    to.gpu.latest = GPUStats{1.0, 1.0, 1.0, {}};
    to.temperature.latest = TemperatureReading{108.0, std::nullopt, {}};
    memoryUsed(to, 0.97, MemoryStats::Pressure::critical);
}

void extremes(MetricsCoordinator& to) {
    constexpr auto most = std::numeric_limits<std::uint64_t>::max();
    fullLoad(to);
    CPUStats stats = **to.cpu.latest;
    stats.layout.pCoreCount = 64;
    stats.layout.eCoreCount = 32;
    stats.pPerCore.assign(64, 1.0);
    stats.ePerCore.assign(32, 1.0);
    to.cpu.latest = stats;
    tellConsumers(to, {{"A process whose name is as long as a whole sentence about it", 31 * gib},
                       {"com.example.helper.with.a.long.bundle.identifier", 1024 * mib - 1},
                       {"a", 1}});
    DiskIOReading drives = **to.diskIO.latest;
    drives.volumes.front().bytesRead = drives.volumes.front().bytesWritten = most;
    drives.bytesReadPerSecond = drives.bytesWrittenPerSecond = 99'999.9 * static_cast<double>(mib);
    drives.readIOPS = drives.writeIOPS = 12'345'678;
    to.diskIO.latest = drives;
    to.fan.latest =
        FanStats{{{0, 65535, 65535, 0, 65535}, {1, 0, 0, 1200, 6000}, {9, 0, {}, {}, {}}}, {}};
    NetworkReading network = **to.network.latest;
    network.bytesInPerSecond = network.bytesOutPerSecond = 1'023.99 * static_cast<double>(gib);
    network.totalBytesIn = network.totalBytesOut = most;
    network.primary->ipv6 = "2001:0db8:85a3:1234:5678:8a2e:0370:7334";
    to.network.latest = network;
}

}  // namespace vtx::samples
