// SPDX-License-Identifier: MIT
#include "language/tables/Tables.h"

namespace vtx::tables {
namespace {

using enum L10n::Key;

constexpr auto itTable = std::to_array<TextEntry>({
    // Sections of the interface
    {section_overview, "Panoramica"},
    {section_cpu, "CPU"},
    {section_gpu, "GPU"},
    {section_memory, "RAM"},
    {section_processes, "Processi"},
    {section_system, "Sistema"},
    {section_settings, "Impostazioni"},
    {section_network, "Rete"},
    {section_battery, "Batteria"},

    // CPU
    {cpu_total, "Totale"},
    {cpu_pCores, "Core P"},
    {cpu_eCores, "Core E"},
    {cpu_perCore, "Per core"},
    {cpu_layoutMissing, "Impossibile leggere la topologia della CPU."},
    {cpu_idle, "Inattiva"},

    // Memory
    {memory_used, "usato"},
    {memory_ofTotal, "di %@"},
    {memory_breakdown, "Ripartizione"},
    {memory_available, "Disponibile"},
    {memory_free, "Libera"},
    {memory_wired, "Vincolata"},
    {memory_active, "Attiva"},
    {memory_inactive, "Inattiva"},
    {memory_compressed, "Compressa"},
    {memory_swap, "Swap"},
    {memory_topConsumers, "Maggiori consumi"},
    {memory_collecting, "Raccolta dati in corso…"},
    {memory_purgeTitle, "Libera memoria"},
    {memory_purgeBody,
     "Chiede al kernel di scartare le pagine inattive. macOS richiede la password una sola volta — "
     "l'autorizzazione dura ~5 minuti."},
    {memory_purgeButton, "Libera RAM"},
    {memory_purgeFreed, "Liberata"},
    {memory_purgeGrew, "L'utilizzo è aumentato durante l'operazione"},
    {memory_pressureTitle, "Pressione memoria"},
    {memory_pressureWarning,
     "La RAM sta per esaurirsi — chiudere schede o app riduce subito il carico."},
    {memory_pressureCritical,
     "macOS sta limitando le prestazioni. Chiudi qualcosa dall'elenco qui sotto."},
    {memory_noConsumers, "Nessun processo utente con un uso significativo di memoria."},
    {memory_statusNormal, "Normale"},
    {memory_statusWarning, "Attenzione"},
    {memory_statusCritical, "Critica"},

    // GPU
    {gpu_device, "Dispositivo"},
    {gpu_unavailableTitle, "Statistiche GPU non disponibili"},
    {gpu_unavailableBody,
     "Su questo sistema IOAccelerator non restituisce PerformanceStatistics. È frequente nelle "
     "macchine virtuali e nelle versioni beta del sistema."},

    // Background hogs
    {hog_title, "Processi in background"},
    {hog_empty, "Nulla ha ancora superato la soglia."},
    {hog_disabledHint,
     "Attiva il rilevamento nelle Impostazioni per vedere i processi in background."},

    // System information
    {system_chip, "Chip"},
    {system_modelName, "Modello"},
    {system_architecture, "Architettura"},
    {system_archAppleSilicon, "Apple Silicon"},
    {system_archIntel, "Intel"},
    {system_archUnknown, "Sconosciuta"},
    {system_cores, "Core"},
    {system_pCluster, "Max cluster P"},
    {system_eCluster, "Max cluster E"},
    {system_max, "Max"},
    {system_memorySection, "Memoria"},
    {system_memorySize, "Dimensione"},
    {system_memoryType, "Tipo"},
    {system_memorySpeed, "Velocità"},
    {system_gpu, "GPU"},
    {system_gpuModel, "Modello"},
    {system_gpuCores, "Core"},
    {system_battery, "Batteria"},
    {system_batteryDesignCapacity, "Capacità nominale"},
    {system_batteryCycles, "Numero di cicli"},
    {system_batteryTemperature, "Temperatura"},
    {system_cooling, "Raffreddamento"},
    {system_fans, "Ventole"},
    {system_modelSection, "Modello"},
    {system_modelFamily, "Famiglia"},
    {system_modelIdentifier, "Identificatore"},

    // Settings
    {settings_menuBarTiles, "Barra dei menu — riquadri visibili"},
    {settings_menuBarTilesFooter, "Scegli i riquadri da mostrare nella barra dei menu."},
    {settings_menuBarLive, "Barra dei menu — valori in tempo reale"},
    {settings_menuBarLiveFooter,
     "Quando l'opzione è attiva, il riquadro mostra un valore in tempo reale come 'CPU 34%' invece "
     "della sola icona. Regolabile per ogni componente."},
    {settings_cpu, "CPU"},
    {settings_gpu, "GPU"},
    {settings_memory, "Memoria"},
    {settings_cpuTemp, "Temperatura CPU"},
    {settings_cpuLive, "CPU in tempo reale"},
    {settings_gpuLive, "GPU in tempo reale"},
    {settings_memoryLive, "RAM in tempo reale"},
    {settings_cpuTempLive, "Temperatura CPU in tempo reale"},
    {settings_updates, "Aggiornamento"},
    {settings_updateInterval, "Intervallo di aggiornamento"},
    {settings_graphs, "Grafici"},
    {settings_graphCPU, "CPU totale"},
    {settings_graphPCore, "Core P"},
    {settings_graphECore, "Core E"},
    {settings_graphGPU, "GPU"},
    {settings_graphMemory, "Memoria"},
    {settings_colors, "Colori (al posto di quelli predefiniti)"},
    {settings_colorsFooter, "Lascia vuoto per il colore predefinito. Fai clic per cambiarlo."},
    {settings_alerts, "Notifiche"},
    {settings_alertsFooter,
     "Le notifiche compaiono solo se uno stato persiste per circa dieci secondi."},
    {settings_alertsDenied,
     "⚠️ macOS ha negato le notifiche a Vantrix — attivale in Impostazioni di Sistema → Notifiche."},
    {settings_alertPressure, "Pressione critica della memoria"},
    {settings_memorySection, "Memoria"},
    {settings_autoRelief, "Libera automaticamente in caso di pressione"},
    {settings_autoReliefBody,
     "Con una pressione memoria ≠ Normale, Vantrix chiede a libmalloc di rilasciare le pagine "
     "inutilizzate del **proprio** processo. Gli altri processi non vengono mai toccati."},
    {settings_widget, "Mini widget"},
    {settings_widgetEnabled, "Mostra il mini widget fluttuante"},
    {settings_widgetBody,
     "Vista compatta di CPU, GPU e memoria in una finestra fluttuante sempre in primo piano — "
     "utile su un secondo schermo mentre giochi."},
    {settings_startup, "Avvio"},
    {settings_launchAtLogin, "Apri al login"},
    {settings_launchAtLoginError, "Impossibile modificare l'apertura al login"},
    {settings_about, "Informazioni"},
    {settings_version, "Versione"},
    {settings_build, "Build"},
    {settings_aboutFooter,
     "Vantrix legge le metriche di sistema tramite Mach, sysctl e IOKit. Non modifica mai altri "
     "processi e non esegue operazioni privilegiate."},
    {settings_language, "Lingua"},
    {settings_languageFooter,
     "'Automatico' segue la regione impostata nelle Impostazioni di Sistema macOS."},
    {settings_hogHeader, "Rilevamento dei processi in background"},
    {settings_hogEnabled, "Attiva il rilevamento"},
    {settings_hogBody,
     "Individua i processi che usano molta CPU mentre la loro app non è in primo piano."},
    {settings_hogCPUThreshold, "Soglia CPU"},
    {settings_hogMinDuration, "Durata minima"},

    // Network
    {network_title, "Rete"},
    {network_unavailable, "Nessuna interfaccia di rete rilevata."},
    {network_downSpeed, "Download"},
    {network_upSpeed, "Upload"},
    {network_totalDown, "Ricevuti"},
    {network_totalUp, "Inviati"},
    {network_interfaces, "Interfacce"},
    {network_active, "Attiva"},
    {network_inactive, "Inattiva"},
    {network_noActive, "Nessuna interfaccia attiva"},
    {network_ipv4, "IPv4"},
    {network_ipv6, "IPv6"},
    {network_macAddress, "MAC"},
    {network_typeWiFi, "Wi-Fi"},
    {network_typeEthernet, "Ethernet"},
    {network_typeLoopback, "Loopback"},
    {network_typeCellular, "Cellulare"},
    {network_typeOther, "Altro"},
    {network_typeVPN, "VPN"},

    // Battery
    {battery_unavailable, "Questo Mac non ha una batteria."},
    {battery_charge, "Carica"},
    {battery_powerSource, "Alimentazione"},
    {battery_charging, "In carica"},
    {battery_discharging, "A batteria"},
    {battery_acAttached, "Alimentatore"},
    {battery_full, "Completamente carica"},
    {battery_timeUntilFull, "Tempo alla carica completa"},
    {battery_timeRemaining, "Tempo rimanente"},
    {battery_calculating, "Calcolo in corso…"},
    {battery_health, "Stato"},
    {battery_healthExcellent, "Ottimo"},
    {battery_healthGood, "Buono"},
    {battery_healthFair, "Discreto"},
    {battery_healthPoor, "Assistenza consigliata"},
    {battery_currentCapacity, "Capacità attuale"},
    {battery_maxCapacity, "Capacità massima"},
    {battery_voltage, "Tensione"},
    {battery_amperage, "Corrente"},
    {battery_powerDraw, "Potenza assorbita"},
    {battery_isCharged, "Carica"},
    {battery_lowPowerMode, "Modalità risparmio energetico"},

    // First run
    {firstRun_title, "Ti diamo il benvenuto in Vantrix"},
    {firstRun_subtitle,
     "Scegli la lingua. Puoi cambiarla in qualsiasi momento nelle Impostazioni."},
    {firstRun_continue, "Continua"},
    {firstRun_changeHint, "Puoi cambiare la lingua in qualsiasi momento in Impostazioni → Lingua."},

    // Charts
    {last60s, "Ultimi 60 s"},
});

// Laid over the list above.
constexpr auto itTableV3Additions = std::to_array<TextEntry>({
    // Sections of the interface
    {section_disk, "Disco"},
    {section_power, "Potenza"},
    {section_fan, "Ventola"},
    {section_ane, "Neural Engine"},

    // GPU
    {gpu_components, "Componenti"},

    // Disk
    {disk_read, "Lettura"},
    {disk_write, "Scrittura"},
    {disk_volumes, "Volumi"},
    {disk_history, "Cronologia throughput"},

    // Power
    {power_packageDraw, "Consumo del package"},
    {power_rails, "Linee di alimentazione"},
    {power_package, "Package"},
    {power_system, "Sistema"},
    {power_batteryEnergy, "Energia della batteria"},
    {power_history, "Cronologia potenza"},

    // Fan readings
    {fan_unavailable, "Questo Mac non ha ventole."},
    {fan_currentRPM, "Giri/min attuali"},
    {fan_load, "Carico ventola"},
    {fan_label, "Ventola"},
    {fan_target, "Obiettivo"},

    // Neural Engine
    {ane_unavailableTitle, "Neural Engine non disponibile"},
    {ane_unavailableBody,
     "Il computer non ha un'ANE oppure macOS ne ha bloccato l'accesso in questa sessione."},
    {ane_utilization, "Utilizzo"},
    {ane_active, "Attivo"},
    {ane_power, "Potenza"},
    {ane_activeJobs, "Operazioni attive"},
    {ane_history, "Cronologia utilizzo"},

    // Settings
    {settings_menuBarTilesFooterDragDrop,
     "Trascina i riquadri per riordinarli. Mostrali o nascondili con gli interruttori."},
    {settings_disk, "Disco"},
    {settings_power, "Potenza"},
    {settings_fan, "Ventola"},
    {settings_ane, "Neural Engine"},
    {settings_diskLive, "Disco in tempo reale"},
    {settings_powerLive, "Potenza in tempo reale"},
    {settings_fanLive, "Ventola in tempo reale"},
    {settings_aneLive, "ANE in tempo reale"},
    {settings_compactMode, "Modalità compatta"},
    {settings_compactModeHeader, "Barra dei menu compatta"},
    {settings_compactModeFooter, "Mostra nella barra dei menu solo la metrica più critica."},
    {settings_iconsFooter, "Scegli simboli alternativi per la barra dei menu."},
    {settings_presetsFooter, "Preset rapidi per configurazioni minime, bilanciate o avanzate."},
    {settings_chartStyle, "Stile"},
    {settings_graphDisk, "Disco"},
    {settings_graphPower, "Potenza"},
    {settings_graphANE, "Neural Engine"},
    {settings_chartLine, "Linea"},
    {settings_chartArea, "Area"},
    {settings_chartBar, "Barre"},
    {settings_alertsFooter,
     "Le notifiche compaiono solo se uno stato persiste per un po': CPU/GPU/temperatura ~10 s, "
     "RAM/pressione ~30 s."},
});

}  // namespace

TextLists it() { return {itTable, itTableV3Additions}; }

}  // namespace vtx::tables
