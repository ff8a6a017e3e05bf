// SPDX-License-Identifier: MIT
#include "language/tables/Tables.h"

namespace vtx::tables {
namespace {

using enum L10n::Key;

constexpr auto nlTable = std::to_array<TextEntry>({
    // Sections of the interface
    {section_overview, "Overzicht"},
    {section_cpu, "CPU"},
    {section_gpu, "GPU"},
    {section_memory, "RAM"},
    {section_processes, "Processen"},
    {section_system, "Systeem"},
    {section_settings, "Instellingen"},
    {section_network, "Netwerk"},
    {section_battery, "Batterij"},

    // CPU
    {cpu_total, "Totaal"},
    {cpu_pCores, "P-cores"},
    {cpu_eCores, "E-cores"},
    {cpu_perCore, "Per core"},
    {cpu_layoutMissing, "De CPU-topologie kon niet worden gelezen."},
    {cpu_idle, "Inactief"},

    // Memory
    {memory_used, "gebruikt"},
    {memory_ofTotal, "van %@"},
    {memory_breakdown, "Verdeling"},
    {memory_available, "Beschikbaar"},
    {memory_free, "Vrij"},
    {memory_wired, "Vast"},
    {memory_active, "Actief"},
    {memory_inactive, "Inactief"},
    {memory_compressed, "Gecomprimeerd"},
    {memory_swap, "Swap"},
    {memory_topConsumers, "Grootste verbruikers"},
    {memory_collecting, "Gegevens verzamelen…"},
    {memory_purgeTitle, "Geheugen vrijmaken"},
    {memory_purgeBody,
     "Vraagt de kernel om inactieve pagina’s vrij te geven. macOS vraagt één keer om je wachtwoord "
     "— de toestemming geldt ongeveer 5 minuten."},
    {memory_purgeButton, "RAM vrijmaken"},
    {memory_purgeFreed, "Vrijgemaakt"},
    {memory_purgeGrew, "Het gebruik nam toe tijdens de bewerking"},
    {memory_pressureTitle, "Geheugenbelasting"},
    {memory_pressureWarning,
     "Het RAM raakt vol — sluit tabbladen of apps en de belasting daalt meteen."},
    {memory_pressureCritical, "macOS beperkt nu de prestaties. Sluit iets uit de lijst hieronder."},
    {memory_noConsumers, "Geen gebruikersprocessen met noemenswaardig geheugengebruik."},
    {memory_statusNormal, "Normaal"},
    {memory_statusWarning, "Waarschuwing"},
    {memory_statusCritical, "Kritiek"},

    // GPU
    {gpu_device, "Apparaat"},
    {gpu_unavailableTitle, "GPU-statistieken niet beschikbaar"},
    {gpu_unavailableBody,
     "Op dit systeem levert IOAccelerator geen PerformanceStatistics. Komt vaak voor in VM’s en "
     "bij bètaversies van het OS."},

    // Background hogs
    {hog_title, "Achtergrond-veelvraten"},
    {hog_empty, "De drempel is nog niet overschreden."},
    {hog_disabledHint,
     "Schakel de detectie in via Instellingen om achtergrond-veelvraten te zien."},

    // System information
    {system_chip, "Chip"},
    {system_modelName, "Model"},
    {system_architecture, "Architectuur"},
    {system_archAppleSilicon, "Apple Silicon"},
    {system_archIntel, "Intel"},
    {system_archUnknown, "Onbekend"},
    {system_cores, "Cores"},
    {system_pCluster, "P-cluster max."},
    {system_eCluster, "E-cluster max."},
    {system_max, "Max."},
    {system_memorySection, "Geheugen"},
    {system_memorySize, "Grootte"},
    {system_memoryType, "Type"},
    {system_memorySpeed, "Snelheid"},
    {system_gpu, "GPU"},
    {system_gpuModel, "Model"},
    {system_gpuCores, "Cores"},
    {system_battery, "Batterij"},
    {system_batteryDesignCapacity, "Ontwerpcapaciteit"},
    {system_batteryCycles, "Aantal laadcycli"},
    {system_batteryTemperature, "Temperatuur"},
    {system_cooling, "Koeling"},
    {system_fans, "Ventilatoren"},
    {system_modelSection, "Model"},
    {system_modelFamily, "Familie"},
    {system_modelIdentifier, "Identificatie"},

    // Settings
    {settings_menuBarTiles, "Menubalk — zichtbare tegels"},
    {settings_menuBarTilesFooter, "Kies welke tegels je in de menubalk wilt zien."},
    {settings_cpu, "CPU"},
    {settings_gpu, "GPU"},
    {settings_memory, "Geheugen"},
    {settings_cpuTemp, "CPU-temperatuur"},
    {settings_updates, "Vernieuwen"},
    {settings_updateInterval, "Vernieuwingsinterval"},
    {settings_graphs, "Grafieken"},
    {settings_graphCPU, "CPU totaal"},
    {settings_graphPCore, "P-cores"},
    {settings_graphECore, "E-cores"},
    {settings_graphGPU, "GPU"},
    {settings_graphMemory, "Geheugen"},
    {settings_alerts, "Meldingen"},
    {settings_alertsFooter,
     "Meldingen verschijnen pas als een toestand even aanhoudt: CPU/GPU/temperatuur ~10 s, "
     "RAM/geheugenbelasting ~30 s."},
    {settings_alertPressure, "Kritieke geheugenbelasting"},
    {settings_widget, "Miniwidget"},
    {settings_widgetEnabled, "Zwevende miniwidget tonen"},
    {settings_startup, "Opstarten"},
    {settings_launchAtLogin, "Openen bij inloggen"},
    {settings_about, "Over Vantrix"},
    {settings_version, "Versie"},
    {settings_build, "Build"},
    {settings_language, "Taal"},
    {settings_languageFooter, "'Automatisch' volgt de regio in de macOS-systeeminstellingen."},
    {settings_hogHeader, "Detectie van achtergrond-veelvraten"},
    {settings_hogEnabled, "Detectie inschakelen"},
    {settings_hogBody,
     "Signaleert processen die veel CPU in beslag nemen terwijl hun app niet op de voorgrond "
     "staat."},
    {settings_hogCPUThreshold, "CPU-drempel"},
    {settings_hogMinDuration, "Minimale duur"},

    // Network
    {network_title, "Netwerk"},
    {network_unavailable, "Geen netwerkinterfaces gevonden."},
    {network_downSpeed, "Download"},
    {network_upSpeed, "Upload"},
    {network_totalDown, "Ontvangen"},
    {network_totalUp, "Verzonden"},
    {network_interfaces, "Interfaces"},
    {network_active, "Actief"},
    {network_inactive, "Inactief"},
    {network_noActive, "Geen actieve interface"},
    {network_ipv4, "IPv4"},
    {network_ipv6, "IPv6"},
    {network_macAddress, "MAC"},
    {network_typeWiFi, "Wi-Fi"},
    {network_typeEthernet, "Ethernet"},
    {network_typeLoopback, "Loopback"},
    {network_typeCellular, "Mobiel"},
    {network_typeOther, "Overig"},
    {network_typeVPN, "VPN"},

    // Battery
    {battery_unavailable, "Deze Mac heeft geen batterij."},
    {battery_charge, "Laadniveau"},
    {battery_powerSource, "Voedingsbron"},
    {battery_charging, "Wordt opgeladen"},
    {battery_discharging, "Op batterij"},
    {battery_acAttached, "Lichtnetadapter"},
    {battery_full, "Volledig opgeladen"},
    {battery_timeUntilFull, "Resterende laadtijd"},
    {battery_timeRemaining, "Resterende tijd"},
    {battery_calculating, "Berekenen…"},
    {battery_health, "Conditie"},
    {battery_healthExcellent, "Uitstekend"},
    {battery_healthGood, "Goed"},
    {battery_healthFair, "Redelijk"},
    {battery_healthPoor, "Onderhoud aanbevolen"},
    {battery_currentCapacity, "Huidige capaciteit"},
    {battery_maxCapacity, "Maximale capaciteit"},
    {battery_voltage, "Spanning"},
    {battery_amperage, "Stroomsterkte"},
    {battery_powerDraw, "Stroomverbruik"},
    {battery_isCharged, "Opgeladen"},
    {battery_lowPowerMode, "Energiebesparingsmodus"},

    // First run
    {firstRun_title, "Welkom bij Vantrix"},
    {firstRun_subtitle, "Kies je taal. Je kunt dit altijd wijzigen via Instellingen."},
    {firstRun_continue, "Doorgaan"},
    {firstRun_changeHint, "Je kunt de taal altijd wijzigen via Instellingen → Taal."},

    // Charts
    {last60s, "Laatste 60 s"},
});

// Laid over the list above. What came later: disk, power, fan readings and Neural Engine.
constexpr auto nlTableV3Additions = std::to_array<TextEntry>({
    // Sections of the interface
    {section_disk, "Schijf"},
    {section_power, "Vermogen"},
    {section_fan, "Ventilator"},
    {section_ane, "Neural Engine"},

    // GPU
    {gpu_components, "Onderdelen"},

    // Disk
    {disk_read, "Lezen"},
    {disk_write, "Schrijven"},
    {disk_volumes, "Volumes"},
    {disk_history, "Doorvoerverloop"},

    // Power
    {power_packageDraw, "Packageverbruik"},
    {power_rails, "Voedingslijnen"},
    {power_package, "Package"},
    {power_system, "Systeem"},
    {power_batteryEnergy, "Batterijenergie"},
    {power_history, "Vermogensverloop"},

    // Fan readings
    {fan_unavailable, "Deze Mac heeft geen ventilator."},
    {fan_currentRPM, "Huidig toerental"},
    {fan_load, "Ventilatorbelasting"},
    {fan_label, "Ventilator"},
    {fan_target, "Doel"},

    // Neural Engine
    {ane_unavailableTitle, "Neural Engine niet beschikbaar"},
    {ane_unavailableBody,
     "Deze computer heeft geen ANE, of macOS blokkeert de toegang in deze sessie."},
    {ane_utilization, "Gebruik"},
    {ane_active, "Actief"},
    {ane_power, "Vermogen"},
    {ane_activeJobs, "Actieve taken"},
    {ane_history, "Gebruiksverloop"},

    // Settings
    {settings_menuBarTilesFooterDragDrop,
     "Sleep tegels om de volgorde te wijzigen. Toon of verberg ze met de schakelaars."},
    {settings_disk, "Schijf"},
    {settings_power, "Vermogen"},
    {settings_fan, "Ventilator"},
    {settings_ane, "Neural Engine"},
    {settings_diskLive, "Schijf als livewaarde"},
    {settings_powerLive, "Vermogen als livewaarde"},
    {settings_fanLive, "Ventilator als livewaarde"},
    {settings_aneLive, "ANE als livewaarde"},
    {settings_compactMode, "Compacte modus"},
    {settings_compactModeHeader, "Compacte menubalk"},
    {settings_compactModeFooter, "Toon alleen de meest kritieke waarde in de menubalk."},
    {settings_iconsFooter, "Kies andere symbolen voor de menubalk."},
    {settings_presetsFooter,
     "Kant-en-klare instellingen: minimaal, gebalanceerd of voor gevorderden."},
    {settings_chartStyle, "Stijl"},
    {settings_graphDisk, "Schijf"},
    {settings_graphPower, "Vermogen"},
    {settings_graphANE, "Neural Engine"},
    {settings_chartLine, "Lijn"},
    {settings_chartArea, "Vlak"},
    {settings_chartBar, "Staaf"},
});

}  // namespace

TextLists nl() { return {nlTable, nlTableV3Additions}; }

}  // namespace vtx::tables
