// SPDX-License-Identifier: MIT
#include "language/tables/Tables.h"

namespace vtx::tables {
namespace {

using enum L10n::Key;

constexpr auto frTable = std::to_array<TextEntry>({
    // Sections of the interface
    {section_overview, "Vue d'ensemble"},
    {section_cpu, "CPU"},
    {section_gpu, "GPU"},
    {section_memory, "RAM"},
    {section_processes, "Processus"},
    {section_system, "Système"},
    {section_settings, "Réglages"},
    {section_network, "Réseau"},
    {section_battery, "Batterie"},

    // CPU
    {cpu_total, "Total"},
    {cpu_pCores, "Cœurs P"},
    {cpu_eCores, "Cœurs E"},
    {cpu_perCore, "Par cœur"},
    {cpu_layoutMissing, "Impossible de lire la topologie du CPU."},
    {cpu_idle, "Inactif"},

    // Memory
    {memory_used, "utilisé"},
    {memory_ofTotal, "sur %@"},
    {memory_breakdown, "Répartition"},
    {memory_available, "Disponible"},
    {memory_free, "Libre"},
    {memory_wired, "Résidente"},
    {memory_active, "Active"},
    {memory_inactive, "Inactive"},
    {memory_compressed, "Compressée"},
    {memory_swap, "Swap"},
    {memory_topConsumers, "Plus gros consommateurs"},
    {memory_collecting, "Collecte en cours…"},
    {memory_purgeTitle, "Libérer de la mémoire"},
    {memory_purgeBody,
     "Demande au noyau de libérer les pages inactives. macOS demande votre mot de passe une seule "
     "fois — l'autorisation est valable ~5 minutes."},
    {memory_purgeButton, "Libérer la RAM"},
    {memory_purgeFreed, "Libéré"},
    {memory_purgeGrew, "L'utilisation a augmenté pendant l'opération"},
    {memory_pressureTitle, "Pression mémoire"},
    {memory_pressureWarning,
     "La RAM commence à manquer — fermer des onglets ou des apps réduit aussitôt la charge."},
    {memory_pressureCritical,
     "macOS bride maintenant les performances. Fermez l'un des éléments de la liste ci-dessous."},
    {memory_noConsumers, "Aucun processus utilisateur ne consomme beaucoup de mémoire."},
    {memory_statusNormal, "Normale"},
    {memory_statusWarning, "Avertissement"},
    {memory_statusCritical, "Critique"},

    // GPU
    {gpu_device, "Appareil"},
    {gpu_unavailableTitle, "Statistiques GPU indisponibles"},
    {gpu_unavailableBody,
     "Sur ce système, IOAccelerator ne renvoie aucune donnée PerformanceStatistics. C'est courant "
     "dans les machines virtuelles et les versions bêta du système."},

    // Background hogs
    {hog_title, "Gros consommateurs en arrière-plan"},
    {hog_empty, "Rien n'a encore dépassé le seuil."},
    {hog_disabledHint,
     "Activez la détection dans les Réglages pour voir les gros consommateurs en arrière-plan."},

    // System information
    {system_chip, "Puce"},
    {system_modelName, "Modèle"},
    {system_architecture, "Architecture"},
    {system_archAppleSilicon, "Apple Silicon"},
    {system_archIntel, "Intel"},
    {system_archUnknown, "Inconnue"},
    {system_cores, "Cœurs"},
    {system_pCluster, "Max. cluster P"},
    {system_eCluster, "Max. cluster E"},
    {system_max, "Max."},
    {system_memorySection, "Mémoire"},
    {system_memorySize, "Taille"},
    {system_memoryType, "Type"},
    {system_memorySpeed, "Vitesse"},
    {system_gpu, "GPU"},
    {system_gpuModel, "Modèle"},
    {system_gpuCores, "Cœurs"},
    {system_battery, "Batterie"},
    {system_batteryDesignCapacity, "Capacité nominale"},
    {system_batteryCycles, "Nombre de cycles"},
    {system_batteryTemperature, "Température"},
    {system_cooling, "Refroidissement"},
    {system_fans, "Ventilateurs"},
    {system_modelSection, "Modèle"},
    {system_modelFamily, "Famille"},
    {system_modelIdentifier, "Identifiant"},

    // Settings
    {settings_menuBarTiles, "Barre des menus — tuiles visibles"},
    {settings_menuBarTilesFooter, "Choisissez les tuiles à afficher dans la barre des menus."},
    {settings_menuBarLive, "Barre des menus — valeurs en temps réel"},
    {settings_menuBarLiveFooter,
     "Si l'option est activée, la tuile affiche une valeur en temps réel comme 'CPU 34%' au lieu "
     "de la seule icône. Réglable pour chaque composant."},
    {settings_cpu, "CPU"},
    {settings_gpu, "GPU"},
    {settings_memory, "Mémoire"},
    {settings_cpuTemp, "Température du CPU"},
    {settings_cpuLive, "CPU en temps réel"},
    {settings_gpuLive, "GPU en temps réel"},
    {settings_memoryLive, "RAM en temps réel"},
    {settings_cpuTempLive, "Température du CPU en temps réel"},
    {settings_updates, "Actualisation"},
    {settings_updateInterval, "Intervalle d'actualisation"},
    {settings_graphs, "Graphiques"},
    {settings_graphCPU, "CPU total"},
    {settings_graphPCore, "Cœurs P"},
    {settings_graphECore, "Cœurs E"},
    {settings_graphGPU, "GPU"},
    {settings_graphMemory, "Mémoire"},
    {settings_colors, "Couleurs (remplacer la valeur par défaut)"},
    {settings_colorsFooter, "Laissez vide pour la couleur par défaut. Cliquez pour modifier."},
    {settings_alerts, "Notifications"},
    {settings_alertsFooter,
     "Les notifications n'apparaissent que si un état persiste une dizaine de secondes."},
    {settings_alertsDenied,
     "⚠️ macOS a refusé les notifications de Vantrix — activez-les dans Réglages Système → "
     "Notifications."},
    {settings_alertPressure, "Pression mémoire critique"},
    {settings_memorySection, "Mémoire"},
    {settings_autoRelief, "Libérer automatiquement en cas de pression"},
    {settings_autoReliefBody,
     "Quand la pression mémoire ≠ Normale, Vantrix demande à libmalloc de libérer les pages "
     "inutilisées de **son propre** processus. Les autres processus ne sont jamais touchés."},
    {settings_widget, "Mini-widget"},
    {settings_widgetEnabled, "Afficher le mini-widget flottant"},
    {settings_widgetBody,
     "Affichage compact du CPU, du GPU et de la mémoire dans une fenêtre flottante toujours au "
     "premier plan — pratique sur un second écran pendant que vous jouez."},
    {settings_startup, "Démarrage"},
    {settings_launchAtLogin, "Lancer à l'ouverture de session"},
    {settings_launchAtLoginError, "Impossible de modifier le lancement à l'ouverture de session"},
    {settings_about, "À propos"},
    {settings_version, "Version"},
    {settings_build, "Build"},
    {settings_aboutFooter,
     "Vantrix lit les mesures du système via Mach, sysctl et IOKit. Il ne modifie jamais d'autres "
     "processus et n'exécute aucune opération privilégiée."},
    {settings_language, "Langue"},
    {settings_languageFooter,
     "'Automatique' suit la région définie dans les Réglages Système macOS."},
    {settings_hogHeader, "Détection des gros consommateurs en arrière-plan"},
    {settings_hogEnabled, "Activer la détection"},
    {settings_hogBody,
     "Surveille les processus qui sollicitent fortement le CPU alors que leur app n'est pas au "
     "premier plan."},
    {settings_hogCPUThreshold, "Seuil CPU"},
    {settings_hogMinDuration, "Durée minimale"},

    // Network
    {network_title, "Réseau"},
    {network_unavailable, "Aucune interface réseau détectée."},
    {network_downSpeed, "Téléchargement"},
    {network_upSpeed, "Envoi"},
    {network_totalDown, "Reçu"},
    {network_totalUp, "Envoyé"},
    {network_interfaces, "Interfaces"},
    {network_active, "Active"},
    {network_inactive, "Inactive"},
    {network_noActive, "Aucune interface active"},
    {network_ipv4, "IPv4"},
    {network_ipv6, "IPv6"},
    {network_macAddress, "MAC"},
    {network_typeWiFi, "Wi-Fi"},
    {network_typeEthernet, "Ethernet"},
    {network_typeLoopback, "Bouclage"},
    {network_typeCellular, "Cellulaire"},
    {network_typeOther, "Autre"},
    {network_typeVPN, "VPN"},

    // Battery
    {battery_unavailable, "Ce Mac n'a pas de batterie."},
    {battery_charge, "Charge"},
    {battery_powerSource, "Source d'alimentation"},
    {battery_charging, "En charge"},
    {battery_discharging, "Sur batterie"},
    {battery_acAttached, "Adaptateur secteur"},
    {battery_full, "Complètement chargée"},
    {battery_timeUntilFull, "Temps avant charge complète"},
    {battery_timeRemaining, "Temps restant"},
    {battery_calculating, "Calcul en cours…"},
    {battery_health, "État"},
    {battery_healthExcellent, "Excellent"},
    {battery_healthGood, "Bon"},
    {battery_healthFair, "Moyen"},
    {battery_healthPoor, "Entretien recommandé"},
    {battery_currentCapacity, "Capacité actuelle"},
    {battery_maxCapacity, "Capacité maximale"},
    {battery_voltage, "Tension"},
    {battery_amperage, "Intensité"},
    {battery_powerDraw, "Consommation électrique"},
    {battery_isCharged, "Chargée"},
    {battery_lowPowerMode, "Mode économie d'énergie"},

    // First run
    {firstRun_title, "Bienvenue dans Vantrix"},
    {firstRun_subtitle,
     "Choisissez votre langue. Vous pourrez la changer à tout moment dans les Réglages."},
    {firstRun_continue, "Continuer"},
    {firstRun_changeHint, "Vous pouvez changer de langue à tout moment dans Réglages → Langue."},

    // Charts
    {last60s, "60 dernières secondes"},
});

// Laid over the list above.
constexpr auto frTableV3Additions = std::to_array<TextEntry>({
    // Sections of the interface
    {section_disk, "Disque"},
    {section_power, "Puissance"},
    {section_fan, "Ventilateur"},
    {section_ane, "Neural Engine"},

    // GPU
    {gpu_components, "Composants"},

    // Disk
    {disk_read, "Lecture"},
    {disk_write, "Écriture"},
    {disk_volumes, "Volumes"},
    {disk_history, "Historique du débit"},

    // Power
    {power_packageDraw, "Consommation du package"},
    {power_rails, "Rails d'alimentation"},
    {power_package, "Package"},
    {power_system, "Système"},
    {power_batteryEnergy, "Énergie de la batterie"},
    {power_history, "Historique de la puissance"},

    // Fan readings
    {fan_unavailable, "Ce Mac n'a pas de ventilateur."},
    {fan_currentRPM, "Vitesse actuelle (tr/min)"},
    {fan_load, "Charge du ventilateur"},
    {fan_label, "Ventilateur"},
    {fan_target, "Cible"},

    // Neural Engine
    {ane_unavailableTitle, "Neural Engine indisponible"},
    {ane_unavailableBody,
     "Soit cette machine n'a pas d'ANE, soit macOS en a bloqué l'accès pour cette session."},
    {ane_utilization, "Utilisation"},
    {ane_active, "Actif"},
    {ane_power, "Puissance"},
    {ane_activeJobs, "Tâches actives"},
    {ane_history, "Historique d'utilisation"},

    // Settings
    {settings_menuBarTilesFooterDragDrop,
     "Faites glisser les tuiles pour les réorganiser. Les interrupteurs les affichent ou les "
     "masquent."},
    {settings_disk, "Disque"},
    {settings_power, "Puissance"},
    {settings_fan, "Ventilateur"},
    {settings_ane, "Neural Engine"},
    {settings_diskLive, "Disque en temps réel"},
    {settings_powerLive, "Puissance en temps réel"},
    {settings_fanLive, "Ventilateur en temps réel"},
    {settings_aneLive, "ANE en temps réel"},
    {settings_compactMode, "Mode compact"},
    {settings_compactModeHeader, "Barre des menus compacte"},
    {settings_compactModeFooter,
     "N'affiche que la mesure la plus critique dans la barre des menus."},
    {settings_iconsFooter, "Choisissez d'autres symboles pour la barre des menus."},
    {settings_presetsFooter,
     "Préréglages rapides pour une configuration minimale, équilibrée ou avancée."},
    {settings_chartStyle, "Style"},
    {settings_graphDisk, "Disque"},
    {settings_graphPower, "Puissance"},
    {settings_graphANE, "Neural Engine"},
    {settings_chartLine, "Courbe"},
    {settings_chartArea, "Aire"},
    {settings_chartBar, "Barres"},
    {settings_alertsFooter,
     "Les notifications n'apparaissent que si un état persiste un certain temps\u00a0: "
     "CPU/GPU/température ~10 s, RAM/pression ~30 s."},
});

}  // namespace

TextLists fr() { return {frTable, frTableV3Additions}; }

}  // namespace vtx::tables
