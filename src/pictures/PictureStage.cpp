// SPDX-License-Identifier: MIT
#include "pictures/PictureStage.h"

#include "base/QueueExecutor.h"
#include "base/Shared.h"
#include "core/UpdaterService.h"
#include "fan/SharedFans.h"
#include "language/Localization.h"
#include "platform/simulated/ManualClock.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "smc/SharedSensors.h"
#include "telemetry/SharedTelemetry.h"

namespace vtx {
namespace {

constexpr std::uint64_t memoryBytes = std::uint64_t{32} << 30;
constexpr std::uint64_t seed = 1;

std::optional<CPUStats> cpuStats(std::optional<double> load) {
    if (!load) return std::nullopt;
    CPUStats stats;
    stats.totalUsage = stats.pCoreUsage = *load;
    return stats;
}

std::optional<GPUStats> gpuStats(std::optional<double> load) {
    if (!load) return std::nullopt;
    GPUStats stats;
    stats.deviceUtilization = *load;
    return stats;
}

std::optional<MemoryStats> memoryStats(std::optional<double> used) {
    if (!used) return std::nullopt;
    MemoryStats stats;
    stats.totalBytes = memoryBytes;
    stats.usedBytes = static_cast<std::uint64_t>(*used * static_cast<double>(memoryBytes));
    return stats;
}

std::optional<DiskIOReading> diskReading(const SampleReadings& readings) {
    DiskIOReading reading;
    reading.bytesReadPerSecond = readings.diskRead;
    reading.bytesWrittenPerSecond = readings.diskWritten;
    return reading;
}

FanStats fanStats(std::optional<int> rpm) {
    FanStats stats;
    if (rpm) stats.fans.push_back({0, *rpm, {}, {}, {}});
    return stats;
}

}  // namespace

struct PictureStage::Machine {
    Machine() : platform(clock, MacShape::laptop()) {
        Shared<Localization>::setFactory(
            [this] { return std::make_unique<Localization>(platform.locale); });
        Shared<UpdaterService>::setFactory(
            [this] { return std::make_unique<UpdaterService>(platform.softwareUpdater); });
        platform.mac.live(seed);
    }
    ~Machine() {
        Shared<UpdaterService>::reset();
        Shared<Localization>::reset();
        AppLog::install(previousSink);
    }
    Machine(const Machine&) = delete;
    Machine& operator=(const Machine&) = delete;

    void settle() {
        while (main.runOne() || tick.runOne() || blocking.runOne()) {
        }
    }
    void advanceTo(Instant target) {
        settle();
        while (clock.fireNext(target)) settle();
        clock.advanceTo(target);
        settle();
    }

    ManualClock clock;
    SimulatedPlatform platform;
    LogSink* previousSink = AppLog::install(&platform.unifiedLog);
    QueueExecutor main, tick, blocking;
    SharedTelemetry telemetry{platform.ports()};
    SharedSensors sensors{platform.ports()};
    SharedFans fans{platform.ports()};
    std::optional<MetricsCoordinator> coordinator;
};

PictureStage::PictureStage(Language language) : machine_(std::make_unique<Machine>()) {
    const Ports ports = machine_->platform.ports();
    const Executors executors{machine_->main, machine_->tick, machine_->blocking};
    machine_->coordinator.emplace(std::make_unique<Services>(ports, executors), ports, executors);
    change([language](DisplayPreferences& preferences) {
        preferences.languageCode = rawValue(language);
        preferences.hasCompletedFirstRunLanguage = true;
    });
}

PictureStage::~PictureStage() = default;

MetricsCoordinator& PictureStage::coordinator() { return *machine_->coordinator; }

void PictureStage::change(const std::function<void(DisplayPreferences&)>& edit) {
    coordinator().preferences.modify(edit);
    machine_->settle();
}

void PictureStage::publish(const SampleReadings& readings) {
    MetricsCoordinator& to = coordinator();
    to.cpu.latest = cpuStats(readings.cpu);
    to.gpu.latest = gpuStats(readings.gpu);
    to.memory.latest = memoryStats(readings.memory);
    to.temperature.latest = TemperatureReading{readings.cpuCelsius, std::nullopt, {}};
    to.thermal.latest = ThermalStats{readings.thermal, {}};
    to.diskIO.latest = diskReading(readings);
    to.fan.latest = fanStats(readings.fanRPM);
}

void PictureStage::run(Duration span) {
    coordinator().setPollingMode(PollingMode::active);
    coordinator().start();
    machine_->advanceTo(machine_->clock.continuous() + span);
    coordinator().stop();
}

}  // namespace vtx
