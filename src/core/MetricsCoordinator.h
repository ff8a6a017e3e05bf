// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "base/Published.h"
#include "base/TaskScope.h"
#include "core/DisplayPreferences.h"
#include "core/HistoryPoint.h"
#include "core/PollingMode.h"
#include "core/Services.h"

namespace vtx {

class Workspace;

/// The subsystems that are sampled only where something asks for them.
enum class Subsystem { gpu, memory, temperature, thermal, disk, fan, ane };

/// The one central observable object: owns every monitor and service, holds the preferences, and
/// runs the loop that drives all sampling. Lives on the main executor, made once by the menu-bar
/// controller, and lasts for the life of the process. It never chooses a mode itself.
class MetricsCoordinator : public ObservableObject {
    // First, since what follows is made from them.
    const Ports ports_;
    Executor& main_;
    std::unique_ptr<Services> services_;

public:
    /// Loads the preferences and puts them in force; the loop does not start. The ports and
    /// executors must outlive the coordinator.
    MetricsCoordinator(std::unique_ptr<Services> services, const Ports& ports,
                       const Executors& executors);
    ~MetricsCoordinator() override;

    CPUMonitor& cpu;
    GPUMonitor& gpu;
    MemoryMonitor& memory;
    ThermalMonitor& thermal;
    TemperatureService& temperature;
    NetworkMonitor& network;
    BatteryMonitor& battery;
    ProcessManager& processes;
    MemoryPressureService& memoryPressure;
    LoginItemService& loginItem;
    AlertsService& alerts;
    SystemInfoService& systemInfo;
    DiskIOMonitor& diskIO;
    FanMonitor& fan;
    ANEMonitor& ane;
    AppEnergyService& appEnergy;
    BackgroundHogDetector& hogDetector;

    /// The user's session, for what the user asks of other programs.
    Workspace& workspace;

    /// What the user set. Each change is saved and put in force at once.
    Published<DisplayPreferences> preferences;

    // The last hour of passes that began while a surface was open; empty at each launch. Fractions
    // from 0.0 to 1.0, but for the disks' bytes per second.
    Published<HistorySeries> cpuHistory{*this};
    Published<HistorySeries> pCoreHistory{*this};
    Published<HistorySeries> eCoreHistory{*this};
    Published<HistorySeries> gpuHistory{*this};
    Published<HistorySeries> memoryHistory{*this};  ///< used of the total
    Published<HistorySeries> diskReadHistory{*this};
    Published<HistorySeries> diskWriteHistory{*this};
    Published<HistorySeries> aneHistory{*this};

    /// What each process costs in energy, by pid, of the last pass that sampled processes.
    Published<AppEnergyService::Impacts> energyByPID{*this};

    /// Identifier of the tile that compact mode shows: the metric that most deserves it.
    Published<std::string> criticalMetric{*this, "cpu"};
    Published<PollingMode> pollingMode{*this, PollingMode::background};

    /// Restarts the loop with the present mode and interval, which causes a pass at once. In
    /// `suspended` it only stops it.
    void start();
    /// Stops the loop; a pass under way runs to its end.
    void stop();
    [[nodiscard]] bool isRunning() const { return refreshTask_.has_value(); }

    /// The only way in which the mode changes. The present mode again is no change.
    void setPollingMode(PollingMode mode);

    /// One pass: samples all that is needed now. Passes may overlap.
    Task<> refreshAll();

    /// The battery's step of a pass: hands over what its monitor does not read itself.
    void refreshBattery();

    /// Whether a pass samples the subsystem now.
    [[nodiscard]] bool needsSubsystem(Subsystem subsystem) const;
    [[nodiscard]] bool needsCPU() const;

    /// Adds one point, stamped `now`, to the history of every metric that has a reading.
    void appendHistory(Date now);
    /// The last hour of the histories as comma-separated text, whatever window the charts show.
    [[nodiscard]] std::string exportHistoryCSV() const;

    /// The metric with the highest score of those that are enabled and have a reading.
    [[nodiscard]] std::string resolveCriticalMetric() const;
    /// Whether the tile may be shown as the critical one; false for what is no tile.
    [[nodiscard]] bool isMetricEnabled(std::string_view id) const;

    /// Whether the machine runs on its battery. A platform without an answer is a fatal error.
    [[nodiscard]] static bool isOnBattery(const Ports& ports);

    /// Seconds between two passes, before the next start.
    [[nodiscard]] double effectiveInterval() const;

private:
    /// The tokens of the sleep and wake observers; going, it removes them.
    struct WorkspaceObserverHolder {
        Subscription sleepToken;
        Subscription wakeToken;
    };

    void applyLanguage();
    void applyAutoRelief();
    void applyHogDetector();
    void installPreferenceSink();
    void observeSystemPower();
    void bridgeNestedMonitorChanges();
    Task<> poll(std::stop_token stop, Duration interval);
    void updateCriticalMetric();
    void evaluateAlerts();
    [[nodiscard]] bool needsProcesses() const;
    [[nodiscard]] bool areProcessesDue(Duration sinceLast) const;

    /// When the last sample of processes began; absent before the first. Not a date, so that a
    /// clock that was set back for hours does not stop the samples for as long.
    std::optional<Instant> lastProcessRefresh_;

    Subscription preferencesPersistence_;
    Subscriptions nestedMonitorBridges_;
    std::optional<TaskHandle> refreshTask_;
    WorkspaceObserverHolder workspaceObservers_;
    TaskScope tasks_;  // last: its frames use all of the above
};

}  // namespace vtx
