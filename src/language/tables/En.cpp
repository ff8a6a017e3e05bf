// SPDX-License-Identifier: MIT
#include "language/tables/Tables.h"

namespace vtx::tables {
namespace {

using enum L10n::Key;

constexpr auto enTable = std::to_array<TextEntry>({
    // Sections of the interface
    {section_overview, "Overview"},
    {section_cpu, "CPU"},
    {section_gpu, "GPU"},
    {section_memory, "RAM"},
    {section_processes, "Processes"},
    {section_system, "System"},
    {section_settings, "Settings"},
    {section_network, "Network"},
    {section_battery, "Battery"},

    // CPU
    {cpu_total, "Total"},
    {cpu_pCores, "P-cores"},
    {cpu_eCores, "E-cores"},
    {cpu_perCore, "Per core"},
    {cpu_layoutMissing, "CPU topology could not be read."},
    {cpu_idle, "Idle"},

    // Memory
    {memory_used, "used"},
    {memory_ofTotal, "of %@"},
    {memory_breakdown, "Breakdown"},
    {memory_available, "Available"},
    {memory_free, "Free"},
    {memory_wired, "Wired"},
    {memory_active, "Active"},
    {memory_inactive, "Inactive"},
    {memory_compressed, "Compressed"},
    {memory_swap, "Swap"},
    {memory_topConsumers, "Top consumers"},
    {memory_collecting, "Collecting…"},
    {memory_purgeTitle, "Free memory"},
    {memory_purgeBody,
     "Asks the kernel to drop inactive pages. macOS prompts for your password once — the grant "
     "lasts ~5 minutes."},
    {memory_purgeButton, "Free RAM"},
    {memory_purgeFreed, "Freed"},
    {memory_purgeGrew, "Usage grew during the operation"},
    {memory_pressureTitle, "Memory pressure"},
    {memory_pressureWarning,
     "RAM is getting tight — quitting tabs/apps reduces the load instantly."},
    {memory_pressureCritical, "macOS is throttling now. Quit something from the list below."},
    {memory_noConsumers, "No user processes with meaningful memory usage."},
    {memory_statusNormal, "Normal"},
    {memory_statusWarning, "Warning"},
    {memory_statusCritical, "Critical"},

    // GPU
    {gpu_device, "Device"},
    {gpu_unavailableTitle, "GPU statistics unavailable"},
    {gpu_unavailableBody,
     "On this system IOAccelerator returns no PerformanceStatistics. Common in VMs or beta OS "
     "releases."},

    // Background hogs
    {hog_title, "Background hogs"},
    {hog_empty, "Nothing has crossed the threshold yet."},
    {hog_disabledHint, "Enable the detector in Settings to see background hogs."},

    // System information
    {system_chip, "Chip"},
    {system_modelName, "Model"},
    {system_architecture, "Architecture"},
    {system_archAppleSilicon, "Apple Silicon"},
    {system_archIntel, "Intel"},
    {system_archUnknown, "Unknown"},
    {system_cores, "Cores"},
    {system_pCluster, "P-cluster max"},
    {system_eCluster, "E-cluster max"},
    {system_max, "Max"},
    {system_memorySection, "Memory"},
    {system_memorySize, "Size"},
    {system_memoryType, "Type"},
    {system_memorySpeed, "Speed"},
    {system_gpu, "GPU"},
    {system_gpuModel, "Model"},
    {system_gpuCores, "Cores"},
    {system_battery, "Battery"},
    {system_batteryDesignCapacity, "Design capacity"},
    {system_batteryCycles, "Cycle count"},
    {system_batteryTemperature, "Temperature"},
    {system_cooling, "Cooling"},
    {system_fans, "Fans"},
    {system_modelSection, "Model"},
    {system_modelFamily, "Family"},
    {system_modelIdentifier, "Identifier"},

    // Settings
    {settings_menuBarTiles, "Menu bar — visible tiles"},
    {settings_menuBarTilesFooter, "Toggle the tiles you want to see in the menu bar."},
    {settings_menuBarLive, "Menu bar — live values"},
    {settings_menuBarLiveFooter,
     "When enabled, the tile shows a live value like 'CPU 34%' instead of just the icon. "
     "Toggleable per component."},
    {settings_cpu, "CPU"},
    {settings_gpu, "GPU"},
    {settings_memory, "Memory"},
    {settings_cpuTemp, "CPU temperature"},
    {settings_cpuLive, "CPU as live label"},
    {settings_gpuLive, "GPU as live label"},
    {settings_memoryLive, "RAM as live label"},
    {settings_cpuTempLive, "CPU temperature as live label"},
    {settings_updates, "Updates"},
    {settings_updateInterval, "Refresh interval"},
    {settings_graphs, "Graphs"},
    {settings_graphCPU, "CPU total"},
    {settings_graphPCore, "P-cores"},
    {settings_graphECore, "E-cores"},
    {settings_graphGPU, "GPU"},
    {settings_graphMemory, "Memory"},
    {settings_colors, "Colors (override default)"},
    {settings_colorsFooter, "Leave empty for default. Tap to change."},
    {settings_alerts, "Notifications"},
    {settings_alertsFooter,
     "Notifications only fire after a state persists for about ten seconds."},
    {settings_alertsDenied,
     "⚠️ macOS denied notifications for Vantrix — enable them in System Settings → Notifications."},
    {settings_alertPressure, "Critical memory pressure"},
    {settings_memorySection, "Memory"},
    {settings_autoRelief, "Auto-free memory under pressure"},
    {settings_autoReliefBody,
     "Under memory pressure ≠ Normal, Vantrix asks libmalloc to release unused pages in **its "
     "own** process. Other processes are never touched."},
    {settings_widget, "Mini widget"},
    {settings_widgetEnabled, "Show floating mini widget"},
    {settings_widgetBody,
     "Compact CPU/GPU/Mem display in a floating, always-on-top window — handy on a second display "
     "while gaming."},
    {settings_startup, "Startup"},
    {settings_launchAtLogin, "Launch at login"},
    {settings_launchAtLoginError, "Couldn't update Launch at login"},
    {settings_about, "About"},
    {settings_version, "Version"},
    {settings_build, "Build"},
    {settings_aboutFooter,
     "Vantrix reads system metrics via Mach, sysctl, and IOKit. It never modifies other processes "
     "and runs no privileged operations."},
    {settings_language, "Language"},
    {settings_languageFooter, "'Automatic' follows the region set in macOS System Settings."},
    {settings_hogHeader, "Background hog detector"},
    {settings_hogEnabled, "Enable detector"},
    {settings_hogBody,
     "Watches for processes that hold significant CPU while their app isn't focused."},
    {settings_hogCPUThreshold, "CPU threshold"},
    {settings_hogMinDuration, "Minimum duration"},

    // Network
    {network_title, "Network"},
    {network_unavailable, "No network interfaces detected."},
    {network_downSpeed, "Download"},
    {network_upSpeed, "Upload"},
    {network_totalDown, "Received"},
    {network_totalUp, "Sent"},
    {network_interfaces, "Interfaces"},
    {network_active, "Active"},
    {network_inactive, "Inactive"},
    {network_noActive, "No active interface"},
    {network_ipv4, "IPv4"},
    {network_ipv6, "IPv6"},
    {network_macAddress, "MAC"},
    {network_typeWiFi, "Wi-Fi"},
    {network_typeEthernet, "Ethernet"},
    {network_typeLoopback, "Loopback"},
    {network_typeCellular, "Cellular"},
    {network_typeOther, "Other"},
    {network_typeVPN, "VPN"},

    // Battery
    {battery_unavailable, "This Mac has no battery."},
    {battery_charge, "Charge"},
    {battery_powerSource, "Power source"},
    {battery_charging, "Charging"},
    {battery_discharging, "On battery"},
    {battery_acAttached, "Power adapter"},
    {battery_full, "Fully charged"},
    {battery_timeUntilFull, "Time until full"},
    {battery_timeRemaining, "Time remaining"},
    {battery_calculating, "Calculating…"},
    {battery_health, "Health"},
    {battery_healthExcellent, "Excellent"},
    {battery_healthGood, "Good"},
    {battery_healthFair, "Fair"},
    {battery_healthPoor, "Service recommended"},
    {battery_currentCapacity, "Current capacity"},
    {battery_maxCapacity, "Max capacity"},
    {battery_voltage, "Voltage"},
    {battery_amperage, "Current"},
    {battery_powerDraw, "Power draw"},
    {battery_isCharged, "Charged"},
    {battery_lowPowerMode, "Low Power Mode"},

    // First run
    {firstRun_title, "Welcome to Vantrix"},
    {firstRun_subtitle, "Choose your language. You can change it any time in Settings."},
    {firstRun_continue, "Continue"},
    {firstRun_changeHint, "You can change the language any time in Settings → Language."},

    // Charts
    {last60s, "Last 60 s"},
});

// Laid over the list above. What came later: disk, power, fan and Neural Engine, alerts, export and
// updates, and the newer wording of one text of that list.
constexpr auto enTableV3Additions = std::to_array<TextEntry>({
    // Sections of the interface
    {section_energy, "Energy"},
    {section_disk, "Disk"},
    {section_power, "Power"},
    {section_fan, "Fan"},
    {section_ane, "Neural Engine"},

    // GPU
    {gpu_components, "Components"},

    // Disk
    {disk_read, "Read"},
    {disk_write, "Write"},
    {disk_volumes, "Volumes"},
    {disk_history, "Throughput history"},

    // Power
    {power_packageDraw, "Package draw"},
    {power_rails, "Rails"},
    {power_package, "Package"},
    {power_system, "System"},
    {power_total, "Total power"},
    {power_chip, "Chip"},
    {power_batteryEnergy, "Battery energy"},
    {power_history, "Power history"},

    // Fan readings
    {fan_unavailable, "This Mac is fanless."},
    {fan_currentRPM, "Current RPM"},
    {fan_load, "Fan load"},
    {fan_label, "Fan"},
    {fan_target, "Target"},

    // Fan control
    {fanControl_title, "Fan control"},
    {fanControl_warning,
     "Hardware override. Manually overriding the fans can raise temperatures. Vantrix "
     "automatically returns to firmware control on quit, on sleep, and after a safety timeout."},
    {fanControl_failsafeNote,
     "Fail-safe: fans revert to firmware control on quit, on sleep, and after 30 minutes."},
    {fanControl_consentTitle, "Enable fan control?"},
    {fanControl_consentBody,
     "This lets Vantrix write your Mac's fan speed. Off by default. You can return to automatic at "
     "any time."},
    {fanControl_consentToggle, "I understand the risk — allow control"},
    {fanControl_verifyTitle, "Verify on this Mac"},
    {fanControl_verifyBody,
     "A one-time, supervised test: one fan is briefly driven to confirm control works on this "
     "hardware, then immediately returned to automatic."},
    {fanControl_verifyButton, "Test fan"},
    {fanControl_verifying, "Testing …"},
    {fanControl_verifiedBadge, "Verified on this Mac"},
    {fanControl_noResponse, "No response detected — this Mac doesn't appear to support control."},
    {fanControl_enableToggle, "Manual control"},
    {fanControl_manualLabel, "Manual"},
    {fanControl_autoButton, "Automatic"},
    {fanControl_targetLabel, "Target RPM"},
    {fanControl_blocked,
     "macOS refused write access. Controlling fans on this Mac needs a privileged helper."},
    {fanControl_helperTitle, "Install helper"},
    {fanControl_helperBody,
     "Fan control needs a small privileged background service (runs as root, only to write the fan "
     "values). You can remove it again any time."},
    {fanControl_helperInstall, "Install helper"},
    {fanControl_helperApprove, "Approve in System Settings"},
    {fanControl_helperApprovalNeeded, "macOS still needs to approve the background service."},
    {fanControl_helperInstalled, "Helper active"},

    // Neural Engine
    {ane_unavailableTitle, "Neural Engine not available"},
    {ane_unavailableBody, "Either the host has no ANE, or macOS gated access this session."},
    {ane_utilization, "Utilization"},
    {ane_active, "Active"},
    {ane_power, "Power"},
    {ane_activeJobs, "Active jobs"},
    {ane_history, "Utilization history"},

    // Settings
    {settings_menuBarTilesFooterDragDrop,
     "Drag tiles to reorder. Toggle visibility with the switches."},
    {settings_disk, "Disk"},
    {settings_power, "Power"},
    {settings_fan, "Fan"},
    {settings_ane, "Neural Engine"},
    {settings_diskLive, "Disk as live label"},
    {settings_powerLive, "Power as live label"},
    {settings_fanLive, "Fan as live label"},
    {settings_aneLive, "ANE as live label"},
    {settings_compactMode, "Compact mode"},
    {settings_compactModeHeader, "Compact menu bar"},
    {settings_compactModeFooter, "Show only the most critical metric in the menu bar."},
    {settings_iconsFooter, "Choose alternate menu-bar symbols."},
    {settings_presetsFooter, "Quick presets for minimal, balanced, or power-user setups."},
    {settings_chartStyle, "Style"},
    {settings_graphDisk, "Disk"},
    {settings_graphPower, "Power"},
    {settings_graphANE, "Neural Engine"},
    {settings_chartLine, "Line"},
    {settings_chartArea, "Area"},
    {settings_chartBar, "Bar"},
    {settings_alertsFooter,
     "Notifications only fire after a state persists for a while: CPU/GPU/temperature ~10 s, "
     "RAM/pressure ~30 s."},
    {settings_data, "Data"},
    {settings_exportCSV, "Export history as CSV …"},
    {settings_exportCSVFooter,
     "Saves the current session’s history (up to 1 hour) — CPU, GPU, memory, disk, power and "
     "Neural Engine — as a CSV file."},
    {settings_checkUpdates, "Check for Updates …"},
    {settings_autoUpdate, "Check for updates automatically"},

    // Alerts
    {alert_cpu_title, "CPU usage high"},
    {alert_cpu_body, "CPU at {value}% (threshold: {threshold}%)"},
    {alert_gpu_title, "GPU usage high"},
    {alert_gpu_body, "GPU at {value}% (threshold: {threshold}%)"},
    {alert_memory_title, "Memory almost full"},
    {alert_memory_body, "RAM at {value}% used"},
    {alert_pressure_title, "Memory pressure critical"},
    {alert_pressure_body,
     "macOS has been reporting critical memory pressure for a while. Quit large apps or free up "
     "some memory."},
    {alert_temp_title, "Temperature high"},
    {alert_temp_body, "Hottest sensor at {value} °C (threshold: {threshold} °C)"},
});

}  // namespace

TextLists en() { return {enTable, enTableV3Additions}; }

}  // namespace vtx::tables
