// SPDX-License-Identifier: MIT
#pragma once

#include <cmath>

#include "core/MetricsCoordinator.h"
#include "platform/simulated/SimulatedProcesses.h"

namespace vtx::test {

/// Readings of a busy laptop, of every section at once.
class SampleReadings {
public:
    static void tell(MetricsCoordinator& c) {
        tellProcessor(c);
        c.gpu.latest = GPUStats{0.42, 0.18, 0.41, {}};
        tellMemory(c);
        tellConsumers(c);
        tellDrives(c);
        c.fan.latest = FanStats{{{0, 2864, 2900, 1350, 5777}, {1, 2712, {}, 1522, 6241}}, {}};
        tellNetwork(c);
        tellBattery(c);
        tellHistories(c);
    }

private:
    static constexpr std::uint64_t gib = std::uint64_t{1} << 30;
    static constexpr std::uint64_t mib = std::uint64_t{1} << 20;

    static void tellProcessor(MetricsCoordinator& c) {
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
        c.cpu.latest = stats;
    }

    static void tellMemory(MetricsCoordinator& c) {
        MemoryStats stats;
        stats.totalBytes = 32 * gib;
        stats.wiredBytes = 31 * gib / 10;
        stats.activeBytes = 142 * gib / 10;
        stats.compressedBytes = 41 * gib / 10;
        stats.inactiveBytes = 74 * gib / 10;
        stats.freeBytes = 32 * gib / 10;
        stats.usedBytes = stats.wiredBytes + stats.activeBytes + stats.compressedBytes;
        stats.swapUsedBytes = 640 * mib;
        c.memory.latest = stats;
        c.memory.pressure = MemoryStats::Pressure::warning;
    }

    static void tellConsumers(MetricsCoordinator& c) {
        const std::pair<const char*, std::uint64_t> consumers[] = {{"Photo Studio", 6'246 * mib},
                                                                   {"firefox", 4'915 * mib},
                                                                   {"rust-analyzer", 3'277 * mib},
                                                                   {"virtual-machine", 2'048 * mib},
                                                                   {"node", 870 * mib},
                                                                   {"Music", 412 * mib}};
        std::vector<ProcessSnapshot> processes;
        for (const auto& [name, bytes] : consumers) {
            ProcessSnapshot one;
            one.name = name;
            one.executablePath = "/Applications/one";
            one.uid = SimulatedProcesses::user;
            one.residentMemoryBytes = bytes;
            processes.push_back(one);
        }
        c.processes.processes = processes;
    }

    static void tellDrives(MetricsCoordinator& c) {
        DiskIOReading reading;
        reading.volumes = {volume("Internal SSD", "disk0", 1'945 * mib, 846 * mib),
                           volume("A very long name of an external drive in a dock", "disk4",
                                  312 * mib, 4'300 * mib)};
        reading.bytesReadPerSecond = 38.4 * mib;
        reading.bytesWrittenPerSecond = 12.7 * mib;
        reading.readIOPS = 612;
        reading.writeIOPS = 248;
        c.diskIO.latest = reading;
    }

    static DiskIOSnapshot volume(const char* name, const char* device, std::uint64_t read,
                                 std::uint64_t written) {
        DiskIOSnapshot made;
        made.name = name;
        made.bsdDevice = device;
        made.bytesRead = read;
        made.bytesWritten = written;
        return made;
    }

    static void tellNetwork(MetricsCoordinator& c) {
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
        primary.ipv6 = "2001:0db8:85a3:1234:5678:8a2e:0370:7334";
        primary.macAddress = "3c:22:fb:0a:7e:91";
        reading.primary = primary;
        reading.bytesInPerSecond = 8.4 * mib;
        reading.bytesOutPerSecond = 412 * 1024;
        reading.totalBytesIn = 6'461 * mib;
        reading.totalBytesOut = 874 * mib;
        c.network.latest = reading;
    }

    static void tellBattery(MetricsCoordinator& c) {
        SystemInfo machine = *c.systemInfo.info;
        machine.batteryDesignCapacityMAh = 8694;
        machine.batteryCycleCount = 184;
        c.systemInfo.info = machine;
        BatteryReading reading;
        reading.chargeFraction = 0.48;
        reading.powerSource = BatteryReading::PowerSource::battery;
        reading.chargingState = BatteryReading::ChargingState::discharging;
        reading.minutesRemaining = 252;
        reading.currentCapacityMAh = 5381;
        reading.maxCapacityMAh = 6013;
        reading.voltageMV = 12310;
        reading.amperageMA = -1284;
        reading.lowPowerModeEnabled = true;
        reading.temperatureC = 31.0;
        c.battery.latest = reading;
    }

    static void tellHistories(MetricsCoordinator& c) {
        HistorySeries cpu;
        HistorySeries memory;
        HistorySeries read;
        HistorySeries written;
        for (int second = 0; second < 60; ++second) {
            const Date at{std::chrono::seconds(second)};
            const double wave = std::sin(second / 5.0);
            cpu.push_back({at, 0.3 + 0.2 * wave});
            memory.push_back({at, 0.67 + 0.0005 * second});
            read.push_back({at, (60 + 55 * wave) * mib});
            written.push_back({at, (20 - 15 * wave) * mib});
        }
        for (auto* history : {&c.cpuHistory, &c.pCoreHistory, &c.eCoreHistory, &c.gpuHistory})
            *history = cpu;
        c.memoryHistory = memory;
        c.diskReadHistory = read;
        c.diskWriteHistory = written;
    }
};

}  // namespace vtx::test
