// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

/// Names of the texts of the interface. A view names a key and asks `Localization` for its text
/// when it draws; the texts themselves stand in `tables/`, one file per language.
namespace vtx::L10n {

/// Area, underscore, item. The raw text of a key is its name here, so renaming one renames both.
enum class Key : std::uint16_t {
    // Sections of the interface
    section_overview,
    section_cpu,
    section_gpu,
    section_memory,
    section_processes,
    section_system,
    section_settings,
    section_network,
    section_battery,
    section_energy,
    section_disk,
    section_power,
    section_fan,
    section_ane,

    // CPU
    cpu_total,
    cpu_pCores,
    cpu_eCores,
    cpu_perCore,
    cpu_layoutMissing,
    cpu_idle,

    // Memory
    memory_used,
    memory_ofTotal,
    memory_breakdown,
    memory_available,
    memory_free,
    memory_wired,
    memory_active,
    memory_inactive,
    memory_compressed,
    memory_swap,
    memory_topConsumers,
    memory_collecting,
    memory_purgeTitle,
    memory_purgeBody,
    memory_purgeButton,
    memory_purgeFreed,
    memory_purgeGrew,
    memory_pressureTitle,
    memory_pressureWarning,
    memory_pressureCritical,
    memory_noConsumers,
    memory_statusNormal,
    memory_statusWarning,
    memory_statusCritical,

    // GPU
    gpu_device,
    gpu_unavailableTitle,
    gpu_unavailableBody,
    gpu_components,

    // Disk
    disk_read,
    disk_write,
    disk_volumes,
    disk_history,

    // Power
    power_packageDraw,
    power_rails,
    power_package,
    power_system,
    power_total,
    power_chip,
    power_batteryEnergy,
    power_history,

    // Fan readings
    fan_unavailable,
    fan_currentRPM,
    fan_load,
    fan_label,
    fan_target,

    // Fan control
    fanControl_title,
    fanControl_warning,
    fanControl_failsafeNote,
    fanControl_consentTitle,
    fanControl_consentBody,
    fanControl_consentToggle,
    fanControl_verifyTitle,
    fanControl_verifyBody,
    fanControl_verifyButton,
    fanControl_verifying,
    fanControl_verifiedBadge,
    fanControl_noResponse,
    fanControl_enableToggle,
    fanControl_manualLabel,
    fanControl_autoButton,
    fanControl_targetLabel,
    fanControl_blocked,
    fanControl_helperTitle,
    fanControl_helperBody,
    fanControl_helperInstall,
    fanControl_helperApprove,
    fanControl_helperApprovalNeeded,
    fanControl_helperInstalled,

    // Neural Engine
    ane_unavailableTitle,
    ane_unavailableBody,
    ane_utilization,
    ane_active,
    ane_power,
    ane_activeJobs,
    ane_history,

    // Background hogs
    hog_title,
    hog_empty,
    hog_disabledHint,

    // System information
    system_chip,
    system_modelName,
    system_architecture,
    system_archAppleSilicon,
    system_archIntel,
    system_archUnknown,
    system_cores,
    system_pCluster,
    system_eCluster,
    system_max,
    system_memorySection,
    system_memorySize,
    system_memoryType,
    system_memorySpeed,
    system_gpu,
    system_gpuModel,
    system_gpuCores,
    system_battery,
    system_batteryDesignCapacity,
    system_batteryCycles,
    system_batteryTemperature,
    system_cooling,
    system_fans,
    system_modelSection,
    system_modelFamily,
    system_modelIdentifier,

    // Settings
    settings_menuBarTiles,
    settings_menuBarTilesFooter,
    settings_menuBarTilesFooterDragDrop,
    settings_menuBarLive,
    settings_menuBarLiveFooter,
    settings_cpu,
    settings_gpu,
    settings_memory,
    settings_cpuTemp,
    settings_disk,
    settings_power,
    settings_fan,
    settings_ane,
    settings_cpuLive,
    settings_gpuLive,
    settings_memoryLive,
    settings_cpuTempLive,
    settings_diskLive,
    settings_powerLive,
    settings_fanLive,
    settings_aneLive,
    settings_compactMode,
    settings_compactModeHeader,
    settings_compactModeFooter,
    settings_iconsFooter,
    settings_presetsFooter,
    settings_updates,
    settings_updateInterval,
    settings_graphs,
    settings_graphCPU,
    settings_graphPCore,
    settings_graphECore,
    settings_graphGPU,
    settings_graphMemory,
    settings_chartStyle,
    settings_graphDisk,
    settings_graphPower,
    settings_graphANE,
    settings_chartLine,
    settings_chartArea,
    settings_chartBar,
    settings_colors,
    settings_colorsFooter,
    settings_alerts,
    settings_alertsFooter,
    settings_alertsDenied,
    settings_alertPressure,
    settings_memorySection,
    settings_autoRelief,
    settings_autoReliefBody,
    settings_widget,
    settings_widgetEnabled,
    settings_widgetBody,
    settings_startup,
    settings_launchAtLogin,
    settings_launchAtLoginError,
    settings_about,
    settings_version,
    settings_build,
    settings_aboutFooter,
    settings_language,
    settings_languageFooter,
    settings_hogHeader,
    settings_hogEnabled,
    settings_hogBody,
    settings_hogCPUThreshold,
    settings_hogMinDuration,
    settings_data,
    settings_exportCSV,
    settings_exportCSVFooter,
    settings_checkUpdates,
    settings_autoUpdate,

    // Network
    network_title,
    network_unavailable,
    network_downSpeed,
    network_upSpeed,
    network_totalDown,
    network_totalUp,
    network_interfaces,
    network_active,
    network_inactive,
    network_noActive,
    network_ipv4,
    network_ipv6,
    network_macAddress,
    network_typeWiFi,
    network_typeEthernet,
    network_typeLoopback,
    network_typeCellular,
    network_typeOther,
    network_typeVPN,

    // Battery
    battery_unavailable,
    battery_charge,
    battery_powerSource,
    battery_charging,
    battery_discharging,
    battery_acAttached,
    battery_full,
    battery_timeUntilFull,
    battery_timeRemaining,
    battery_calculating,
    battery_health,
    battery_healthExcellent,
    battery_healthGood,
    battery_healthFair,
    battery_healthPoor,
    battery_currentCapacity,
    battery_maxCapacity,
    battery_voltage,
    battery_amperage,
    battery_powerDraw,
    battery_isCharged,
    battery_lowPowerMode,

    // First run
    firstRun_title,
    firstRun_subtitle,
    firstRun_continue,
    firstRun_changeHint,

    // Alerts
    alert_cpu_title,
    alert_cpu_body,
    alert_gpu_title,
    alert_gpu_body,
    alert_memory_title,
    alert_memory_body,
    alert_pressure_title,
    alert_pressure_body,
    alert_temp_title,
    alert_temp_body,

    // Charts
    last60s,
};

inline constexpr std::size_t keyCount = static_cast<std::size_t>(Key::last60s) + 1;

/// The place of a key in a list of one entry per key.
constexpr std::size_t indexOf(Key key) { return static_cast<std::size_t>(key); }

/// Every key, in the order of declaration.
inline constexpr std::array<Key, keyCount> allKeys = [] {
    std::array<Key, keyCount> keys{};
    for (std::size_t index = 0; index < keyCount; ++index) keys[index] = static_cast<Key>(index);
    return keys;
}();

/// The name of a key, such as "section_overview"; valid for the run.
[[nodiscard]] std::string_view rawValue(Key key);

/// The key of that name, spelled exactly; absent where there is none.
[[nodiscard]] std::optional<Key> keyFromRawValue(std::string_view rawValue);

}  // namespace vtx::L10n
