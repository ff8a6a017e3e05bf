// SPDX-License-Identifier: MIT
#include "EveryTile.h"

#include <chrono>
#include <memory>

#include "TemporaryFolder.h"
#include "base/Executors.h"
#include "base/SerialExecutor.h"
#include "base/Shared.h"
#include "core/MetricsCoordinator.h"
#include "fan/SharedFans.h"
#include "language/Localization.h"
#include "platform/linux/LinuxPlatform.h"
#include "platform/linux/PollRunLoop.h"
#include "smc/SharedSensors.h"
#include "telemetry/SharedTelemetry.h"

namespace vtx::bench {
namespace {

/// Rates are differences, and slow chips answer the second time.
constexpr auto untilAllAreKnown = std::chrono::milliseconds(2200);

/// A coordinator on this machine without a surface.
struct Observer {
    explicit Observer(const std::filesystem::path& settings)
        : platform(loop, loop.executor(), optionsWith(settings)) {
        const Ports ports = platform.ports();
        Shared<Localization>::setFactory(
            [ports] { return std::make_unique<Localization>(ports.locale); });
        const Executors executors{loop.executor(), tick, blocking};
        coordinator = std::make_unique<MetricsCoordinator>(
            std::make_unique<Services>(ports, executors), ports, executors);
    }
    ~Observer() { Shared<Localization>::reset(); }
    Observer(const Observer&) = delete;
    Observer& operator=(const Observer&) = delete;

    static LinuxPlatform::Options optionsWith(const std::filesystem::path& settings) {
        LinuxPlatform::Options options;
        options.configFolder = settings;
        return options;
    }

    PollRunLoop loop;
    SerialExecutor tick, blocking;
    LinuxPlatform platform;
    SharedTelemetry telemetry{platform.ports()};
    SharedSensors sensors{platform.ports()};
    SharedFans fans{platform.ports()};
    std::unique_ptr<MetricsCoordinator> coordinator;
};

void storeStarted(DisplayPreferences preferences, const std::filesystem::path& configFolder) {
    preferences.hasCompletedFirstRunLanguage = true;
    LinuxUserDefaults store(configFolder);
    preferences.save(store);
}

}  // namespace

void storeEveryTile(const std::filesystem::path& configFolder) {
    DisplayPreferences preferences;
    preferences.showCPU = preferences.showGPU = preferences.showThermal = true;
    preferences.showMemory = preferences.showDiskIO = preferences.showFan = true;
    storeStarted(std::move(preferences), configFolder);
}

void storeFirstStart(const std::filesystem::path& configFolder) { storeStarted({}, configFolder); }

void storeWidget(const std::filesystem::path& configFolder) {
    DisplayPreferences preferences;
    preferences.miniWidgetEnabled = true;
    storeStarted(std::move(preferences), configFolder);
}

std::vector<std::string> tilesWithoutSource() {
    const TemporaryFolder settings;
    storeEveryTile(settings.path());
    Observer observer(settings.path());
    MetricsCoordinator& coordinator = *observer.coordinator;
    coordinator.start();
    observer.loop.runUntil([] { return false; }, untilAllAreKnown);
    coordinator.stop();

    std::vector<std::string> missing;
    const auto& temperature = *coordinator.temperature.latest;
    const auto& disk = *coordinator.diskIO.latest;
    if (!*coordinator.cpu.latest) missing.emplace_back("CPU");
    if (!*coordinator.gpu.latest) missing.emplace_back("GPU");
    if (!temperature || !temperature->cpuMaxC) missing.emplace_back("temperature");
    if (!*coordinator.memory.latest) missing.emplace_back("memory");
    if (!disk || disk->volumes.empty()) missing.emplace_back("disk");
    if (!coordinator.fan.latest->maxRPM()) missing.emplace_back("fan");
    return missing;
}

}  // namespace vtx::bench
