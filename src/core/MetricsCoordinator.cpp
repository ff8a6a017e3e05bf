// SPDX-License-Identifier: MIT
#include "core/MetricsCoordinator.h"

#include <algorithm>
#include <cmath>

#include "base/Fault.h"
#include "base/Log.h"
#include "base/PostBurst.h"
#include "base/Sleep.h"
#include "core/PassTable.h"
#include "language/Localization.h"
#include "platform/PowerSources.h"
#include "platform/ProcessInfo.h"
#include "platform/UserDefaults.h"
#include "platform/Workspace.h"

namespace vtx {
namespace {

constexpr Logger logger{"MetricsCoordinator"};
constexpr double batterySaverFactor = 2.0;
constexpr Duration bridgeInterval = std::chrono::milliseconds(50);
constexpr std::chrono::seconds processInterval{5};
/// Whoever closed a surface may open it again.
constexpr std::chrono::seconds processPatience{15};

/// Those of the drives, of power, of the fans and of the Neural Engine raise no alert.
AlertRules alertRulesOf(const DisplayPreferences& p) {
    return {.cpu = {p.alertCPUEnabled, p.alertCPUThreshold},
            .gpu = {p.alertGPUEnabled, p.alertGPUThreshold},
            .memory = {p.alertMemoryEnabled, p.alertMemoryThreshold},
            .isPressureEnabled = p.alertPressureEnabled,
            .temperature = {p.alertTempEnabled, p.alertTempCelsius}};
}

}  // namespace

MetricsCoordinator::MetricsCoordinator(std::unique_ptr<Services> services, const Ports& ports,
                                       const Executors& executors)
    : ports_(ports),
      main_(executors.main),
      services_(std::move(services)),
      cpu(services_->cpu),
      gpu(services_->gpu),
      memory(services_->memory),
      thermal(services_->thermal),
      temperature(services_->temperature),
      network(services_->network),
      battery(services_->battery),
      processes(services_->processes),
      memoryPressure(services_->memoryPressure),
      loginItem(services_->loginItem),
      alerts(services_->alerts),
      systemInfo(services_->systemInfo),
      diskIO(services_->diskIO),
      fan(services_->fan),
      ane(services_->ane),
      appEnergy(services_->appEnergy),
      hogDetector(services_->hogDetector),
      workspace(ports.workspace),
      preferences(*this, DisplayPreferences::load(ports.userDefaults)),
      tasks_(executors.main) {
    applyAutoRelief();
    memoryPressure.attach(memory, processes);
    applyHogDetector();
    applyLanguage();
    installPreferenceSink();
    if (!SystemInfoService::isRunningTests(ports_.processInfo)) observeSystemPower();
    bridgeNestedMonitorChanges();
}

MetricsCoordinator::~MetricsCoordinator() { stop(); }

double MetricsCoordinator::effectiveInterval() const {
    using P = DisplayPreferences;
    // These two ignore a NaN, which so becomes the shortest interval.
    const double base =
        std::fmin(std::fmax(preferences->refreshIntervalSeconds, P::minRefreshIntervalSeconds),
                  P::maxRefreshIntervalSeconds);
    return *pollingMode == PollingMode::batterySaver ? base * batterySaverFactor : base;
}

void MetricsCoordinator::start() {
    stop();
    if (*pollingMode == PollingMode::suspended) return;
    const double interval = effectiveInterval();
    refreshTask_ = tasks_.spawn([this, interval](std::stop_token stop) {
        return poll(std::move(stop), seconds(interval));
    });
    logger.info("MetricsCoordinator started (mode={}, interval={:f}s)", name(*pollingMode),
                interval);
}

void MetricsCoordinator::stop() {
    if (refreshTask_) refreshTask_->cancel();
    refreshTask_.reset();
}

void MetricsCoordinator::setPollingMode(PollingMode mode) {
    if (mode == *pollingMode) return;
    logger.info("Polling mode → {}", name(mode));
    pollingMode = mode;
    // An observer may have chosen another one meanwhile.
    if (*pollingMode == PollingMode::suspended)
        stop();
    else
        start();
}

Task<> MetricsCoordinator::poll(std::stop_token stop, Duration interval) {
    // A loop that was replaced before it began leaves the first pass to its successor: two passes
    // within a millisecond would publish a load measured over next to no time.
    while (!stop.stop_requested()) {
        co_await refreshAll();
        if (stop.stop_requested()) co_return;
        co_await ports_.clock.sleepUntil(ports_.clock.continuous() + interval, interval / 10, stop);
    }
}

Task<> MetricsCoordinator::refreshAll() {
    const auto rows = passTable();
    std::vector<Task<>> concurrent;
    concurrent.reserve(rows.size());
    std::vector<bool> needed;
    needed.reserve(rows.size());
    for (const PassRow& row : rows) needed.push_back(!row.isNeeded || row.isNeeded(*this));
    const bool keepsHistory = *pollingMode == PollingMode::active;

    {
        const PostBurst burst;
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (rows[i].phase != PassPhase::concurrent || !needed[i]) continue;
            concurrent.push_back(rows[i].refresh(*this));
            concurrent.back().start(main_);
        }
    }
    for (std::size_t i = 0; i < rows.size(); ++i)
        if (rows[i].phase == PassPhase::main && needed[i]) rows[i].refreshNow(*this);
    if (*pollingMode == PollingMode::active) {
        for (std::size_t i = 0; i < rows.size(); ++i)
            if (rows[i].phase == PassPhase::activeOnly && needed[i]) rows[i].refreshNow(*this);
    }
    for (auto& task : concurrent) co_await task;

    const Date now = ports_.clock.now();
    const Instant instant = ports_.clock.continuous();
    const Duration sinceProcesses =
        lastProcessRefresh_ ? instant - *lastProcessRefresh_ : Duration::max();
    if (areProcessesDue(sinceProcesses)) {
        lastProcessRefresh_ = instant;
        co_await processes.refresh();
        energyByPID = appEnergy.compute(*processes.processes);
        hogDetector.observe(*processes.processes);
    } else if (!needsProcesses() && sinceProcesses >= processPatience) {
        co_await processes.rest();
    }
    if (keepsHistory) appendHistory(now);
    updateCriticalMetric();
    evaluateAlerts();
}

void MetricsCoordinator::evaluateAlerts() {
    alerts.evaluate(alertRulesOf(*preferences), *cpu.latest, *gpu.latest, *memory.latest,
                    *thermal.latest, *temperature.latest);
}

void MetricsCoordinator::refreshBattery() {
    const auto& reading = *temperature.latest;
    battery.refresh(reading ? reading->batteryC : std::nullopt,
                    ports_.processInfo.isLowPowerModeEnabled());
}

bool MetricsCoordinator::needsProcesses() const {
    return *pollingMode == PollingMode::active || preferences->hogDetectorEnabled;
}

bool MetricsCoordinator::areProcessesDue(Duration sinceLast) const {
    return needsProcesses() && sinceLast >= processInterval;
}

bool MetricsCoordinator::needsCPU() const {
    const DisplayPreferences& p = *preferences;
    return *pollingMode == PollingMode::active || p.menuBarCompact || p.showCPU ||
           p.menuBarLiveCPU || p.alertCPUEnabled;
}

bool MetricsCoordinator::needsSubsystem(Subsystem subsystem) const {
    const DisplayPreferences& p = *preferences;
    if (*pollingMode == PollingMode::active || p.menuBarCompact) return true;
    switch (subsystem) {
        case Subsystem::gpu:
            return p.showGPU || p.menuBarLiveGPU || p.alertGPUEnabled;
        case Subsystem::memory:
            return p.showMemory || p.menuBarLiveMemory || p.alertMemoryEnabled ||
                   p.alertPressureEnabled || p.autoRelieveOnPressure;
        case Subsystem::temperature:
            return p.showThermal || p.menuBarLiveTemp || p.alertTempEnabled;
        case Subsystem::thermal:
            return true;
        case Subsystem::disk:
            return p.showDiskIO || p.menuBarLiveDisk || p.alertDiskEnabled;
        case Subsystem::fan:
            return p.showFan || p.menuBarLiveFan || p.alertFanEnabled;
        case Subsystem::ane:
            break;
    }
    return p.showANE || p.menuBarLiveANE || p.alertANEEnabled;
}

bool MetricsCoordinator::isOnBattery(const Ports& ports) {
    const auto info = ports.powerSources.copyPowerSourcesInfo();
    if (!info) programmingFault("the platform gave no power sources");
    return info->providingPowerSourceType() == "Battery Power";
}

void MetricsCoordinator::applyLanguage() {
    Localization::shared().setPreference(languageFromStoredCode(preferences->languageCode));
}

void MetricsCoordinator::applyAutoRelief() {
    const bool wanted = preferences->autoRelieveOnPressure;
    if (*memoryPressure.autoRelieveOnPressure != wanted)
        memoryPressure.autoRelieveOnPressure = wanted;
}

void MetricsCoordinator::applyHogDetector() {
    const DisplayPreferences& p = *preferences;
    if (*hogDetector.isEnabled != p.hogDetectorEnabled)
        hogDetector.isEnabled = p.hogDetectorEnabled;
    const BackgroundHogDetector::Configuration wanted{
        .cpuThreshold = p.hogCPUThreshold, .minDurationSeconds = p.hogMinDurationSeconds};
    if (*hogDetector.configuration != wanted) hogDetector.configuration = wanted;
}

void MetricsCoordinator::installPreferenceSink() {
    const auto changes = dropFirst(removeDuplicates(preferences.stream()));
    preferencesPersistence_ = changes([this](const DisplayPreferences& changed) {
        changed.save(ports_.userDefaults);
        applyAutoRelief();
        applyHogDetector();
        applyLanguage();
    });
}

void MetricsCoordinator::observeSystemPower() {
    workspaceObservers_.sleepToken =
        ports_.workspace.onWillSleep([this] { setPollingMode(PollingMode::suspended); });
    workspaceObservers_.wakeToken =
        ports_.workspace.onDidWake([this] { setPollingMode(PollingMode::background); });
}

void MetricsCoordinator::bridgeNestedMonitorChanges() {
    // While nobody looks at the coordinator there is nobody to tell, and no timer need run.
    Stream<Changed> merged = [this](std::function<void(const Changed&)> next) {
        return merge<Changed>(
            {changes(cpu.objectWillChange), changes(gpu.objectWillChange),
             changes(memory.objectWillChange), changes(thermal.objectWillChange),
             changes(temperature.objectWillChange), changes(network.objectWillChange),
             changes(battery.objectWillChange), changes(processes.objectWillChange),
             changes(diskIO.objectWillChange), changes(fan.objectWillChange),
             changes(ane.objectWillChange), changes(hogDetector.objectWillChange)})(
            [this, next = std::move(next)](const Changed& change) {
                if (objectWillChange.hasSubscribers()) next(change);
            });
    };
    const auto throttled = throttleLatest(std::move(merged), bridgeInterval, ports_.clock, main_);
    nestedMonitorBridges_.push_back(throttled([this](const Changed&) { objectWillChange.emit(); }));
}

}  // namespace vtx
