// SPDX-License-Identifier: MIT
#include "language/tables/Tables.h"

namespace vtx::tables {
namespace {

using enum L10n::Key;

constexpr auto plTable = std::to_array<TextEntry>({
    // Sections of the interface
    {section_overview, "Przegląd"},
    {section_cpu, "CPU"},
    {section_gpu, "GPU"},
    {section_memory, "RAM"},
    {section_processes, "Procesy"},
    {section_system, "System"},
    {section_settings, "Ustawienia"},
    {section_network, "Sieć"},
    {section_battery, "Bateria"},

    // CPU
    {cpu_total, "Łącznie"},
    {cpu_pCores, "Rdzenie P"},
    {cpu_eCores, "Rdzenie E"},
    {cpu_perCore, "Według rdzeni"},
    {cpu_layoutMissing, "Nie udało się odczytać topologii CPU."},
    {cpu_idle, "Bezczynność"},

    // Memory
    {memory_used, "użyte"},
    {memory_ofTotal, "z %@"},
    {memory_breakdown, "Podział"},
    {memory_available, "Dostępna"},
    {memory_free, "Wolna"},
    {memory_wired, "Zarezerwowana"},
    {memory_active, "Aktywna"},
    {memory_inactive, "Nieaktywna"},
    {memory_compressed, "Skompresowana"},
    {memory_swap, "Swap"},
    {memory_topConsumers, "Największe zużycie"},
    {memory_collecting, "Zbieranie danych…"},
    {memory_purgeTitle, "Zwalnianie pamięci"},
    {memory_purgeBody,
     "Prosi jądro systemu o zwolnienie nieaktywnych stron pamięci. macOS jednorazowo zapyta o "
     "hasło — zgoda jest ważna ok. 5 minut."},
    {memory_purgeButton, "Zwolnij RAM"},
    {memory_purgeFreed, "Zwolniono"},
    {memory_purgeGrew, "Użycie wzrosło podczas operacji"},
    {memory_pressureTitle, "Obciążenie pamięci"},
    {memory_pressureWarning,
     "Zaczyna brakować pamięci RAM — zamknięcie kart lub aplikacji od razu zmniejszy obciążenie."},
    {memory_pressureCritical, "macOS ogranicza teraz wydajność. Zamknij coś z poniższej listy."},
    {memory_noConsumers, "Brak procesów użytkownika o znaczącym użyciu pamięci."},
    {memory_statusNormal, "Normalne"},
    {memory_statusWarning, "Ostrzeżenie"},
    {memory_statusCritical, "Krytyczne"},

    // GPU
    {gpu_device, "Urządzenie"},
    {gpu_unavailableTitle, "Statystyki GPU niedostępne"},
    {gpu_unavailableBody,
     "W tym systemie IOAccelerator nie zwraca PerformanceStatistics. Zdarza się to często na "
     "maszynach wirtualnych i w wersjach beta systemu."},

    // Background hogs
    {hog_title, "Procesy w tle"},
    {hog_empty, "Nic jeszcze nie przekroczyło progu."},
    {hog_disabledHint, "Włącz wykrywanie w Ustawieniach, aby zobaczyć obciążające procesy w tle."},

    // System information
    {system_chip, "Czip"},
    {system_modelName, "Model"},
    {system_architecture, "Architektura"},
    {system_archAppleSilicon, "Apple Silicon"},
    {system_archIntel, "Intel"},
    {system_archUnknown, "Nieznana"},
    {system_cores, "Rdzenie"},
    {system_pCluster, "Klaster P maks."},
    {system_eCluster, "Klaster E maks."},
    {system_max, "Maks."},
    {system_memorySection, "Pamięć"},
    {system_memorySize, "Rozmiar"},
    {system_memoryType, "Typ"},
    {system_memorySpeed, "Szybkość"},
    {system_gpu, "GPU"},
    {system_gpuModel, "Model"},
    {system_gpuCores, "Rdzenie"},
    {system_battery, "Bateria"},
    {system_batteryDesignCapacity, "Pojemność projektowa"},
    {system_batteryCycles, "Liczba cykli"},
    {system_batteryTemperature, "Temperatura"},
    {system_cooling, "Chłodzenie"},
    {system_fans, "Wentylatory"},
    {system_modelSection, "Model"},
    {system_modelFamily, "Rodzina"},
    {system_modelIdentifier, "Identyfikator"},

    // Settings
    {settings_menuBarTiles, "Pasek menu — widoczne kafelki"},
    {settings_menuBarTilesFooter, "Wybierz kafelki, które mają być widoczne na pasku menu."},
    {settings_cpu, "CPU"},
    {settings_gpu, "GPU"},
    {settings_memory, "Pamięć"},
    {settings_cpuTemp, "Temperatura CPU"},
    {settings_updates, "Odświeżanie"},
    {settings_updateInterval, "Interwał odświeżania"},
    {settings_graphs, "Wykresy"},
    {settings_graphCPU, "CPU łącznie"},
    {settings_graphPCore, "Rdzenie P"},
    {settings_graphECore, "Rdzenie E"},
    {settings_graphGPU, "GPU"},
    {settings_graphMemory, "Pamięć"},
    {settings_alerts, "Powiadomienia"},
    {settings_alertsFooter,
     "Powiadomienia pojawiają się dopiero, gdy dany stan utrzymuje się przez pewien czas: "
     "CPU/GPU/temperatura ~10 s, RAM/obciążenie pamięci ~30 s."},
    {settings_alertPressure, "Krytyczne obciążenie pamięci"},
    {settings_widget, "Miniwidżet"},
    {settings_widgetEnabled, "Pokazuj pływający miniwidżet"},
    {settings_startup, "Uruchamianie"},
    {settings_launchAtLogin, "Uruchamiaj podczas logowania"},
    {settings_about, "O programie"},
    {settings_version, "Wersja"},
    {settings_build, "Kompilacja"},
    {settings_language, "Język"},
    {settings_languageFooter,
     "'Automatycznie' podąża za regionem ustawionym w Ustawieniach systemowych macOS."},
    {settings_hogHeader, "Wykrywanie obciążających procesów w tle"},
    {settings_hogEnabled, "Włącz wykrywanie"},
    {settings_hogBody,
     "Wykrywa procesy, które mocno obciążają CPU, gdy ich aplikacja nie jest aktywna."},
    {settings_hogCPUThreshold, "Próg CPU"},
    {settings_hogMinDuration, "Minimalny czas trwania"},

    // Network
    {network_title, "Sieć"},
    {network_unavailable, "Nie wykryto interfejsów sieciowych."},
    {network_downSpeed, "Pobieranie"},
    {network_upSpeed, "Wysyłanie"},
    {network_totalDown, "Odebrano"},
    {network_totalUp, "Wysłano"},
    {network_interfaces, "Interfejsy"},
    {network_active, "Aktywny"},
    {network_inactive, "Nieaktywny"},
    {network_noActive, "Brak aktywnego interfejsu"},
    {network_ipv4, "IPv4"},
    {network_ipv6, "IPv6"},
    {network_macAddress, "MAC"},
    {network_typeWiFi, "Wi-Fi"},
    {network_typeEthernet, "Ethernet"},
    {network_typeLoopback, "Pętla zwrotna"},
    {network_typeCellular, "Sieć komórkowa"},
    {network_typeOther, "Inny"},
    {network_typeVPN, "VPN"},

    // Battery
    {battery_unavailable, "Ten Mac nie ma baterii."},
    {battery_charge, "Poziom naładowania"},
    {battery_powerSource, "Źródło zasilania"},
    {battery_charging, "Ładowanie"},
    {battery_discharging, "Zasilanie z baterii"},
    {battery_acAttached, "Zasilacz"},
    {battery_full, "W pełni naładowana"},
    {battery_timeUntilFull, "Do pełnego naładowania"},
    {battery_timeRemaining, "Pozostały czas"},
    {battery_calculating, "Obliczanie…"},
    {battery_health, "Kondycja"},
    {battery_healthExcellent, "Doskonała"},
    {battery_healthGood, "Dobra"},
    {battery_healthFair, "Przeciętna"},
    {battery_healthPoor, "Zalecany serwis"},
    {battery_currentCapacity, "Bieżąca pojemność"},
    {battery_maxCapacity, "Maksymalna pojemność"},
    {battery_voltage, "Napięcie"},
    {battery_amperage, "Natężenie"},
    {battery_powerDraw, "Pobór mocy"},
    {battery_isCharged, "Naładowana"},
    {battery_lowPowerMode, "Tryb niskiego zużycia energii"},

    // First run
    {firstRun_title, "Witamy w programie Vantrix"},
    {firstRun_subtitle, "Wybierz język. Możesz go zmienić w każdej chwili w Ustawieniach."},
    {firstRun_continue, "Kontynuuj"},
    {firstRun_changeHint, "Język możesz zmienić w każdej chwili w sekcji Ustawienia → Język."},

    // Charts
    {last60s, "Ostatnie 60 s"},
});

// Laid over the list above. What came later: disk, power, fan readings and Neural Engine.
constexpr auto plTableV3Additions = std::to_array<TextEntry>({
    // Sections of the interface
    {section_disk, "Dysk"},
    {section_power, "Moc"},
    {section_fan, "Wentylator"},
    {section_ane, "Neural Engine"},

    // GPU
    {gpu_components, "Komponenty"},

    // Disk
    {disk_read, "Odczyt"},
    {disk_write, "Zapis"},
    {disk_volumes, "Woluminy"},
    {disk_history, "Historia transferu"},

    // Power
    {power_packageDraw, "Pobór mocy układu"},
    {power_rails, "Linie zasilania"},
    {power_package, "Układ"},
    {power_system, "System"},
    {power_batteryEnergy, "Energia baterii"},
    {power_history, "Historia mocy"},

    // Fan readings
    {fan_unavailable, "Ten Mac nie ma wentylatora."},
    {fan_currentRPM, "Bieżące obr./min"},
    {fan_load, "Obciążenie wentylatora"},
    {fan_label, "Wentylator"},
    {fan_target, "Cel"},

    // Neural Engine
    {ane_unavailableTitle, "Neural Engine niedostępny"},
    {ane_unavailableBody,
     "Ten komputer nie ma ANE albo macOS blokuje do niego dostęp w tej sesji."},
    {ane_utilization, "Użycie"},
    {ane_active, "Aktywny"},
    {ane_power, "Moc"},
    {ane_activeJobs, "Aktywne zadania"},
    {ane_history, "Historia użycia"},

    // Settings
    {settings_menuBarTilesFooterDragDrop,
     "Przeciągnij kafelki, aby zmienić ich kolejność. Widoczność ustawisz przełącznikami."},
    {settings_disk, "Dysk"},
    {settings_power, "Moc"},
    {settings_fan, "Wentylator"},
    {settings_ane, "Neural Engine"},
    {settings_diskLive, "Dysk: wartość na żywo"},
    {settings_powerLive, "Moc: wartość na żywo"},
    {settings_fanLive, "Wentylator: wartość na żywo"},
    {settings_aneLive, "ANE: wartość na żywo"},
    {settings_compactMode, "Tryb kompaktowy"},
    {settings_compactModeHeader, "Kompaktowy pasek menu"},
    {settings_compactModeFooter, "Pokazuj na pasku menu tylko najbardziej krytyczny wskaźnik."},
    {settings_iconsFooter, "Wybierz inne symbole dla paska menu."},
    {settings_presetsFooter, "Gotowe ustawienia: minimalne, zrównoważone lub dla zaawansowanych."},
    {settings_chartStyle, "Styl"},
    {settings_graphDisk, "Dysk"},
    {settings_graphPower, "Moc"},
    {settings_graphANE, "Neural Engine"},
    {settings_chartLine, "Liniowy"},
    {settings_chartArea, "Warstwowy"},
    {settings_chartBar, "Słupkowy"},
});

}  // namespace

TextLists pl() { return {plTable, plTableV3Additions}; }

}  // namespace vtx::tables
