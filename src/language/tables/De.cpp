// SPDX-License-Identifier: MIT
#include "language/tables/Tables.h"

namespace vtx::tables {
namespace {

using enum L10n::Key;

constexpr auto deTable = std::to_array<TextEntry>({
    // Sections of the interface
    {section_overview, "Übersicht"},
    {section_cpu, "CPU"},
    {section_gpu, "GPU"},
    {section_memory, "RAM"},
    {section_processes, "Prozesse"},
    {section_system, "System"},
    {section_settings, "Einstellungen"},
    {section_network, "Netzwerk"},
    {section_battery, "Batterie"},

    // CPU
    {cpu_total, "Gesamt"},
    {cpu_pCores, "P-Kerne"},
    {cpu_eCores, "E-Kerne"},
    {cpu_perCore, "Pro Kern"},
    {cpu_layoutMissing, "Die CPU-Topologie konnte nicht gelesen werden."},
    {cpu_idle, "Leerlauf"},

    // Memory
    {memory_used, "belegt"},
    {memory_ofTotal, "von %@"},
    {memory_breakdown, "Aufschlüsselung"},
    {memory_available, "Verfügbar"},
    {memory_free, "Frei"},
    {memory_wired, "Reserviert"},
    {memory_active, "Aktiv"},
    {memory_inactive, "Inaktiv"},
    {memory_compressed, "Komprimiert"},
    {memory_swap, "Swap"},
    {memory_topConsumers, "Größte Verbraucher"},
    {memory_collecting, "Daten werden gesammelt …"},
    {memory_purgeTitle, "Speicher freigeben"},
    {memory_purgeBody,
     "Bittet den Kernel, inaktive Seiten zu verwerfen. macOS fragt einmal nach deinem Passwort — "
     "die Berechtigung gilt ~5 Minuten."},
    {memory_purgeButton, "RAM freigeben"},
    {memory_purgeFreed, "Freigegeben"},
    {memory_purgeGrew, "Die Belegung ist während des Vorgangs gestiegen"},
    {memory_pressureTitle, "Speicherdruck"},
    {memory_pressureWarning,
     "Der RAM wird knapp — das Schließen von Tabs oder Apps entlastet sofort."},
    {memory_pressureCritical, "macOS drosselt jetzt. Beende etwas aus der Liste unten."},
    {memory_noConsumers, "Keine Benutzerprozesse mit nennenswertem Speicherverbrauch."},
    {memory_statusNormal, "Normal"},
    {memory_statusWarning, "Warnung"},
    {memory_statusCritical, "Kritisch"},

    // GPU
    {gpu_device, "Gerät"},
    {gpu_unavailableTitle, "GPU-Statistik nicht verfügbar"},
    {gpu_unavailableBody,
     "Auf diesem System liefert IOAccelerator keine PerformanceStatistics. Das kommt in virtuellen "
     "Maschinen und Beta-Versionen häufig vor."},

    // Background hogs
    {hog_title, "Hintergrund-Hogs"},
    {hog_empty, "Bisher hat nichts die Schwelle überschritten."},
    {hog_disabledHint,
     "Aktiviere die Erkennung in den Einstellungen, um Hintergrund-Hogs zu sehen."},

    // System information
    {system_chip, "Chip"},
    {system_modelName, "Modell"},
    {system_architecture, "Architektur"},
    {system_archAppleSilicon, "Apple Silicon"},
    {system_archIntel, "Intel"},
    {system_archUnknown, "Unbekannt"},
    {system_cores, "Kerne"},
    {system_pCluster, "P-Cluster max."},
    {system_eCluster, "E-Cluster max."},
    {system_max, "Max."},
    {system_memorySection, "Arbeitsspeicher"},
    {system_memorySize, "Größe"},
    {system_memoryType, "Typ"},
    {system_memorySpeed, "Geschwindigkeit"},
    {system_gpu, "GPU"},
    {system_gpuModel, "Modell"},
    {system_gpuCores, "Kerne"},
    {system_battery, "Batterie"},
    {system_batteryDesignCapacity, "Nennkapazität"},
    {system_batteryCycles, "Ladezyklen"},
    {system_batteryTemperature, "Temperatur"},
    {system_cooling, "Kühlung"},
    {system_fans, "Lüfter"},
    {system_modelSection, "Modell"},
    {system_modelFamily, "Familie"},
    {system_modelIdentifier, "Kennung"},

    // Settings
    {settings_menuBarTiles, "Menüleiste — sichtbare Kacheln"},
    {settings_menuBarTilesFooter, "Wähle die Kacheln, die in der Menüleiste erscheinen sollen."},
    {settings_menuBarLive, "Menüleiste — Live-Werte"},
    {settings_menuBarLiveFooter,
     "Wenn aktiviert, zeigt die Kachel statt nur des Symbols einen Live-Wert wie 'CPU 34%'. Für "
     "jede Komponente einzeln umschaltbar."},
    {settings_cpu, "CPU"},
    {settings_gpu, "GPU"},
    {settings_memory, "Arbeitsspeicher"},
    {settings_cpuTemp, "CPU-Temperatur"},
    {settings_cpuLive, "CPU als Live-Wert"},
    {settings_gpuLive, "GPU als Live-Wert"},
    {settings_memoryLive, "RAM als Live-Wert"},
    {settings_cpuTempLive, "CPU-Temperatur als Live-Wert"},
    {settings_updates, "Aktualisierung"},
    {settings_updateInterval, "Aktualisierungsintervall"},
    {settings_graphs, "Diagramme"},
    {settings_graphCPU, "CPU gesamt"},
    {settings_graphPCore, "P-Kerne"},
    {settings_graphECore, "E-Kerne"},
    {settings_graphGPU, "GPU"},
    {settings_graphMemory, "Arbeitsspeicher"},
    {settings_colors, "Farben (Standard überschreiben)"},
    {settings_colorsFooter, "Für die Standardfarbe leer lassen. Zum Ändern klicken."},
    {settings_alerts, "Benachrichtigungen"},
    {settings_alertsFooter,
     "Benachrichtigungen erscheinen erst, wenn ein Zustand etwa zehn Sekunden lang anhält."},
    {settings_alertsDenied,
     "⚠️ macOS hat Benachrichtigungen für Vantrix abgelehnt — aktiviere sie in den "
     "Systemeinstellungen → Mitteilungen."},
    {settings_alertPressure, "Kritischer Speicherdruck"},
    {settings_memorySection, "Arbeitsspeicher"},
    {settings_autoRelief, "Bei Speicherdruck automatisch freigeben"},
    {settings_autoReliefBody,
     "Bei Speicherdruck ≠ Normal bittet Vantrix libmalloc, ungenutzte Seiten im **eigenen** "
     "Prozess freizugeben. Andere Prozesse werden nie angetastet."},
    {settings_widget, "Mini-Widget"},
    {settings_widgetEnabled, "Schwebendes Mini-Widget anzeigen"},
    {settings_widgetBody,
     "Kompakte Anzeige von CPU, GPU und Speicher in einem schwebenden Fenster, das immer im "
     "Vordergrund bleibt — praktisch auf einem zweiten Bildschirm beim Spielen."},
    {settings_startup, "Start"},
    {settings_launchAtLogin, "Bei der Anmeldung starten"},
    {settings_launchAtLoginError, "Der Start bei der Anmeldung konnte nicht geändert werden"},
    {settings_about, "Über Vantrix"},
    {settings_version, "Version"},
    {settings_build, "Build"},
    {settings_aboutFooter,
     "Vantrix liest Systemmesswerte über Mach, sysctl und IOKit. Es verändert keine anderen "
     "Prozesse und führt keine privilegierten Vorgänge aus."},
    {settings_language, "Sprache"},
    {settings_languageFooter, "'Automatisch' folgt der Region in den macOS-Systemeinstellungen."},
    {settings_hogHeader, "Erkennung von Hintergrund-Hogs"},
    {settings_hogEnabled, "Erkennung aktivieren"},
    {settings_hogBody,
     "Achtet auf Prozesse, die viel CPU beanspruchen, während ihre App nicht im Vordergrund ist."},
    {settings_hogCPUThreshold, "CPU-Schwelle"},
    {settings_hogMinDuration, "Mindestdauer"},

    // Network
    {network_title, "Netzwerk"},
    {network_unavailable, "Keine Netzwerkschnittstellen gefunden."},
    {network_downSpeed, "Download"},
    {network_upSpeed, "Upload"},
    {network_totalDown, "Empfangen"},
    {network_totalUp, "Gesendet"},
    {network_interfaces, "Schnittstellen"},
    {network_active, "Aktiv"},
    {network_inactive, "Inaktiv"},
    {network_noActive, "Keine aktive Schnittstelle"},
    {network_ipv4, "IPv4"},
    {network_ipv6, "IPv6"},
    {network_macAddress, "MAC"},
    {network_typeWiFi, "WLAN"},
    {network_typeEthernet, "Ethernet"},
    {network_typeLoopback, "Loopback"},
    {network_typeCellular, "Mobilfunk"},
    {network_typeOther, "Sonstige"},
    {network_typeVPN, "VPN"},

    // Battery
    {battery_unavailable, "Dieser Mac hat keine Batterie."},
    {battery_charge, "Ladung"},
    {battery_powerSource, "Stromquelle"},
    {battery_charging, "Wird geladen"},
    {battery_discharging, "Batteriebetrieb"},
    {battery_acAttached, "Netzteil"},
    {battery_full, "Vollständig geladen"},
    {battery_timeUntilFull, "Verbleibende Ladezeit"},
    {battery_timeRemaining, "Verbleibende Zeit"},
    {battery_calculating, "Wird berechnet …"},
    {battery_health, "Zustand"},
    {battery_healthExcellent, "Ausgezeichnet"},
    {battery_healthGood, "Gut"},
    {battery_healthFair, "Mäßig"},
    {battery_healthPoor, "Wartung empfohlen"},
    {battery_currentCapacity, "Aktuelle Kapazität"},
    {battery_maxCapacity, "Maximale Kapazität"},
    {battery_voltage, "Spannung"},
    {battery_amperage, "Stromstärke"},
    {battery_powerDraw, "Leistungsaufnahme"},
    {battery_isCharged, "Geladen"},
    {battery_lowPowerMode, "Stromsparmodus"},

    // First run
    {firstRun_title, "Willkommen bei Vantrix"},
    {firstRun_subtitle,
     "Wähle deine Sprache. Du kannst sie jederzeit in den Einstellungen ändern."},
    {firstRun_continue, "Weiter"},
    {firstRun_changeHint, "Du kannst die Sprache jederzeit unter Einstellungen → Sprache ändern."},

    // Charts
    {last60s, "Letzte 60 s"},
});

// Laid over the list above.
constexpr auto deTableV3Additions = std::to_array<TextEntry>({
    // Sections of the interface
    {section_energy, "Energie"},
    {section_disk, "Festplatte"},
    {section_power, "Leistung"},
    {section_fan, "Lüfter"},
    {section_ane, "Neural Engine"},

    // GPU
    {gpu_components, "Komponenten"},

    // Disk
    {disk_read, "Lesen"},
    {disk_write, "Schreiben"},
    {disk_volumes, "Volumes"},
    {disk_history, "Durchsatzverlauf"},

    // Power
    {power_packageDraw, "Package-Leistungsaufnahme"},
    {power_rails, "Versorgungsschienen"},
    {power_package, "Package"},
    {power_system, "System"},
    {power_total, "Gesamtleistung"},
    {power_chip, "Chip"},
    {power_batteryEnergy, "Batterieenergie"},
    {power_history, "Leistungsverlauf"},

    // Fan readings
    {fan_unavailable, "Dieser Mac hat keinen Lüfter."},
    {fan_currentRPM, "Aktuelle Drehzahl"},
    {fan_load, "Lüfterauslastung"},
    {fan_label, "Lüfter"},
    {fan_target, "Ziel"},

    // Fan control
    {fanControl_title, "Lüftersteuerung"},
    {fanControl_warning,
     "Eingriff in die Hardware. Die Lüfter von Hand zu steuern kann die Temperaturen erhöhen. "
     "Vantrix kehrt beim Beenden, im Ruhezustand und nach einer Sicherheitsfrist automatisch zur "
     "Firmware-Steuerung zurück."},
    {fanControl_failsafeNote,
     "Fail-Safe: Beim Beenden, im Ruhezustand und nach 30 Minuten kehren die Lüfter automatisch in "
     "den Firmware-Modus zurück."},
    {fanControl_consentTitle, "Lüftersteuerung aktivieren?"},
    {fanControl_consentBody,
     "Damit darf Vantrix die Lüfterdrehzahl deines Mac vorgeben. Standardmäßig aus. Du kannst "
     "jederzeit zur Automatik zurückkehren."},
    {fanControl_consentToggle, "Ich kenne das Risiko — Steuerung erlauben"},
    {fanControl_verifyTitle, "Auf diesem Mac prüfen"},
    {fanControl_verifyBody,
     "Ein einmaliger, überwachter Test: Ein Lüfter wird kurz angesteuert, um zu bestätigen, dass "
     "die Steuerung auf dieser Hardware funktioniert, und danach sofort wieder der Automatik "
     "überlassen."},
    {fanControl_verifyButton, "Lüfter testen"},
    {fanControl_verifying, "Test läuft …"},
    {fanControl_verifiedBadge, "Auf diesem Mac geprüft"},
    {fanControl_noResponse,
     "Keine Reaktion erkannt — dieser Mac scheint die Steuerung nicht zu unterstützen."},
    {fanControl_enableToggle, "Manuelle Steuerung"},
    {fanControl_manualLabel, "Manuell"},
    {fanControl_autoButton, "Automatisch"},
    {fanControl_targetLabel, "Zieldrehzahl"},
    {fanControl_blocked,
     "macOS hat den Schreibzugriff verweigert. Auf diesem Mac braucht die Lüftersteuerung ein "
     "privilegiertes Hilfsprogramm."},
    {fanControl_helperTitle, "Hilfsprogramm installieren"},
    {fanControl_helperBody,
     "Die Lüftersteuerung braucht einen kleinen privilegierten Hintergrunddienst (läuft als root, "
     "nur um die Lüfterwerte zu schreiben). Du kannst ihn jederzeit wieder entfernen."},
    {fanControl_helperInstall, "Hilfsprogramm installieren"},
    {fanControl_helperApprove, "In den Systemeinstellungen erlauben"},
    {fanControl_helperApprovalNeeded, "macOS muss den Hintergrunddienst noch erlauben."},
    {fanControl_helperInstalled, "Hilfsprogramm aktiv"},

    // Neural Engine
    {ane_unavailableTitle, "Neural Engine nicht verfügbar"},
    {ane_unavailableBody,
     "Entweder hat dieser Rechner keine ANE oder macOS hat den Zugriff in dieser Sitzung "
     "gesperrt."},
    {ane_utilization, "Auslastung"},
    {ane_active, "Aktiv"},
    {ane_power, "Leistung"},
    {ane_activeJobs, "Aktive Aufträge"},
    {ane_history, "Auslastungsverlauf"},

    // Settings
    {settings_menuBarTilesFooterDragDrop,
     "Ziehe die Kacheln, um sie neu anzuordnen. Die Schalter blenden sie ein und aus."},
    {settings_disk, "Festplatte"},
    {settings_power, "Leistung"},
    {settings_fan, "Lüfter"},
    {settings_ane, "Neural Engine"},
    {settings_diskLive, "Festplatte als Live-Wert"},
    {settings_powerLive, "Leistung als Live-Wert"},
    {settings_fanLive, "Lüfter als Live-Wert"},
    {settings_aneLive, "ANE als Live-Wert"},
    {settings_compactMode, "Kompaktmodus"},
    {settings_compactModeHeader, "Kompakte Menüleiste"},
    {settings_compactModeFooter, "Zeigt in der Menüleiste nur den kritischsten Messwert."},
    {settings_iconsFooter, "Wähle andere Symbole für die Menüleiste."},
    {settings_presetsFooter, "Fertige Voreinstellungen: minimal, ausgewogen oder für Power-User."},
    {settings_chartStyle, "Stil"},
    {settings_graphDisk, "Festplatte"},
    {settings_graphPower, "Leistung"},
    {settings_graphANE, "Neural Engine"},
    {settings_chartLine, "Linie"},
    {settings_chartArea, "Fläche"},
    {settings_chartBar, "Balken"},
    {settings_alertsFooter,
     "Benachrichtigungen erscheinen erst, wenn ein Zustand eine Weile anhält: CPU/GPU/Temperatur "
     "~10 s, RAM/Speicherdruck ~30 s."},
    {settings_data, "Daten"},
    {settings_exportCSV, "Verlauf als CSV exportieren …"},
    {settings_exportCSVFooter,
     "Sichert den Verlauf der aktuellen Sitzung (bis zu 1 Stunde) — CPU, GPU, Arbeitsspeicher, "
     "Festplatte, Leistung und Neural Engine — als CSV-Datei."},
    {settings_checkUpdates, "Nach Updates suchen …"},
    {settings_autoUpdate, "Automatisch nach Updates suchen"},

    // Alerts
    {alert_cpu_title, "CPU-Auslastung hoch"},
    {alert_cpu_body, "CPU bei {value}% (Schwelle: {threshold}%)"},
    {alert_gpu_title, "GPU-Auslastung hoch"},
    {alert_gpu_body, "GPU bei {value}% (Schwelle: {threshold}%)"},
    {alert_memory_title, "Arbeitsspeicher fast voll"},
    {alert_memory_body, "RAM bei {value}% belegt"},
    {alert_pressure_title, "Speicherdruck kritisch"},
    {alert_pressure_body,
     "macOS meldet seit einer Weile kritischen Speicherdruck. Schließe große Apps oder gib "
     "Speicher frei."},
    {alert_temp_title, "Temperatur hoch"},
    {alert_temp_body, "Höchster Sensor bei {value} °C (Schwelle: {threshold} °C)"},
});

}  // namespace

TextLists de() { return {deTable, deTableV3Additions}; }

}  // namespace vtx::tables
