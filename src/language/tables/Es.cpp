// SPDX-License-Identifier: MIT
#include "language/tables/Tables.h"

namespace vtx::tables {
namespace {

using enum L10n::Key;

constexpr auto esTable = std::to_array<TextEntry>({
    // Sections of the interface
    {section_overview, "Resumen"},
    {section_cpu, "CPU"},
    {section_gpu, "GPU"},
    {section_memory, "RAM"},
    {section_processes, "Procesos"},
    {section_system, "Sistema"},
    {section_settings, "Ajustes"},
    {section_network, "Red"},
    {section_battery, "Batería"},

    // CPU
    {cpu_total, "Total"},
    {cpu_pCores, "Núcleos P"},
    {cpu_eCores, "Núcleos E"},
    {cpu_perCore, "Por núcleo"},
    {cpu_layoutMissing, "No se ha podido leer la topología de la CPU."},
    {cpu_idle, "Inactiva"},

    // Memory
    {memory_used, "usado"},
    {memory_ofTotal, "de %@"},
    {memory_breakdown, "Desglose"},
    {memory_available, "Disponible"},
    {memory_free, "Libre"},
    {memory_wired, "Residente"},
    {memory_active, "Activa"},
    {memory_inactive, "Inactiva"},
    {memory_compressed, "Comprimida"},
    {memory_swap, "Swap"},
    {memory_topConsumers, "Mayor consumo"},
    {memory_collecting, "Recopilando datos…"},
    {memory_purgeTitle, "Liberar memoria"},
    {memory_purgeBody,
     "Pide al kernel que descarte las páginas inactivas. macOS solicita tu contraseña una vez — el "
     "permiso dura ~5 minutos."},
    {memory_purgeButton, "Liberar RAM"},
    {memory_purgeFreed, "Liberado"},
    {memory_purgeGrew, "El uso ha aumentado durante la operación"},
    {memory_pressureTitle, "Presión de memoria"},
    {memory_pressureWarning,
     "Queda poca RAM — cerrar pestañas o apps reduce la carga al instante."},
    {memory_pressureCritical,
     "macOS está limitando el rendimiento. Cierra algo de la lista siguiente."},
    {memory_noConsumers,
     "Ningún proceso de usuario consume una cantidad significativa de memoria."},
    {memory_statusNormal, "Normal"},
    {memory_statusWarning, "Advertencia"},
    {memory_statusCritical, "Crítica"},

    // GPU
    {gpu_device, "Dispositivo"},
    {gpu_unavailableTitle, "Estadísticas de la GPU no disponibles"},
    {gpu_unavailableBody,
     "En este sistema, IOAccelerator no devuelve PerformanceStatistics. Es habitual en máquinas "
     "virtuales y versiones beta del sistema."},

    // Background hogs
    {hog_title, "Procesos en segundo plano"},
    {hog_empty, "Nada ha superado el umbral todavía."},
    {hog_disabledHint, "Activa el detector en Ajustes para ver los procesos en segundo plano."},

    // System information
    {system_chip, "Chip"},
    {system_modelName, "Modelo"},
    {system_architecture, "Arquitectura"},
    {system_archAppleSilicon, "Apple Silicon"},
    {system_archIntel, "Intel"},
    {system_archUnknown, "Desconocida"},
    {system_cores, "Núcleos"},
    {system_pCluster, "Máx. clúster P"},
    {system_eCluster, "Máx. clúster E"},
    {system_max, "Máx."},
    {system_memorySection, "Memoria"},
    {system_memorySize, "Tamaño"},
    {system_memoryType, "Tipo"},
    {system_memorySpeed, "Velocidad"},
    {system_gpu, "GPU"},
    {system_gpuModel, "Modelo"},
    {system_gpuCores, "Núcleos"},
    {system_battery, "Batería"},
    {system_batteryDesignCapacity, "Capacidad de diseño"},
    {system_batteryCycles, "Número de ciclos"},
    {system_batteryTemperature, "Temperatura"},
    {system_cooling, "Refrigeración"},
    {system_fans, "Ventiladores"},
    {system_modelSection, "Modelo"},
    {system_modelFamily, "Familia"},
    {system_modelIdentifier, "Identificador"},

    // Settings
    {settings_menuBarTiles, "Barra de menús — mosaicos visibles"},
    {settings_menuBarTilesFooter, "Elige los mosaicos que quieres ver en la barra de menús."},
    {settings_menuBarLive, "Barra de menús — valores en tiempo real"},
    {settings_menuBarLiveFooter,
     "Si se activa, el mosaico muestra un valor en tiempo real como 'CPU 34%' en lugar de solo el "
     "icono. Se puede ajustar para cada componente."},
    {settings_cpu, "CPU"},
    {settings_gpu, "GPU"},
    {settings_memory, "Memoria"},
    {settings_cpuTemp, "Temperatura de la CPU"},
    {settings_cpuLive, "CPU en tiempo real"},
    {settings_gpuLive, "GPU en tiempo real"},
    {settings_memoryLive, "RAM en tiempo real"},
    {settings_cpuTempLive, "Temperatura de la CPU en tiempo real"},
    {settings_updates, "Actualización"},
    {settings_updateInterval, "Intervalo de actualización"},
    {settings_graphs, "Gráficos"},
    {settings_graphCPU, "CPU total"},
    {settings_graphPCore, "Núcleos P"},
    {settings_graphECore, "Núcleos E"},
    {settings_graphGPU, "GPU"},
    {settings_graphMemory, "Memoria"},
    {settings_colors, "Colores (en lugar de los predeterminados)"},
    {settings_colorsFooter, "Déjalo vacío para usar el predeterminado. Haz clic para cambiarlo."},
    {settings_alerts, "Notificaciones"},
    {settings_alertsFooter,
     "Las notificaciones solo aparecen cuando un estado se mantiene unos diez segundos."},
    {settings_alertsDenied,
     "⚠️ macOS ha denegado las notificaciones de Vantrix — actívalas en Ajustes del Sistema → "
     "Notificaciones."},
    {settings_alertPressure, "Presión crítica de memoria"},
    {settings_memorySection, "Memoria"},
    {settings_autoRelief, "Liberar automáticamente si hay presión"},
    {settings_autoReliefBody,
     "Con una presión de memoria ≠ Normal, Vantrix pide a libmalloc que libere las páginas sin "
     "usar de su **propio** proceso. Los demás procesos no se tocan nunca."},
    {settings_widget, "Miniwidget"},
    {settings_widgetEnabled, "Mostrar el miniwidget flotante"},
    {settings_widgetBody,
     "Vista compacta de CPU, GPU y memoria en una ventana flotante siempre visible — práctica en "
     "una segunda pantalla mientras juegas."},
    {settings_startup, "Inicio"},
    {settings_launchAtLogin, "Abrir al iniciar sesión"},
    {settings_launchAtLoginError, "No se ha podido cambiar la apertura al iniciar sesión"},
    {settings_about, "Acerca de"},
    {settings_version, "Versión"},
    {settings_build, "Compilación"},
    {settings_aboutFooter,
     "Vantrix lee las métricas del sistema mediante Mach, sysctl e IOKit. Nunca modifica otros "
     "procesos ni ejecuta operaciones con privilegios."},
    {settings_language, "Idioma"},
    {settings_languageFooter,
     "'Automático' sigue la región configurada en los Ajustes del Sistema de macOS."},
    {settings_hogHeader, "Detector de procesos en segundo plano"},
    {settings_hogEnabled, "Activar el detector"},
    {settings_hogBody,
     "Vigila los procesos que consumen mucha CPU mientras su app no está en primer plano."},
    {settings_hogCPUThreshold, "Umbral de CPU"},
    {settings_hogMinDuration, "Duración mínima"},

    // Network
    {network_title, "Red"},
    {network_unavailable, "No se ha detectado ninguna interfaz de red."},
    {network_downSpeed, "Descarga"},
    {network_upSpeed, "Subida"},
    {network_totalDown, "Recibido"},
    {network_totalUp, "Enviado"},
    {network_interfaces, "Interfaces"},
    {network_active, "Activa"},
    {network_inactive, "Inactiva"},
    {network_noActive, "Ninguna interfaz activa"},
    {network_ipv4, "IPv4"},
    {network_ipv6, "IPv6"},
    {network_macAddress, "MAC"},
    {network_typeWiFi, "Wi-Fi"},
    {network_typeEthernet, "Ethernet"},
    {network_typeLoopback, "Bucle local"},
    {network_typeCellular, "Móvil"},
    {network_typeOther, "Otra"},
    {network_typeVPN, "VPN"},

    // Battery
    {battery_unavailable, "Este Mac no tiene batería."},
    {battery_charge, "Carga"},
    {battery_powerSource, "Fuente de alimentación"},
    {battery_charging, "Cargando"},
    {battery_discharging, "Con batería"},
    {battery_acAttached, "Adaptador de corriente"},
    {battery_full, "Carga completa"},
    {battery_timeUntilFull, "Tiempo hasta la carga completa"},
    {battery_timeRemaining, "Tiempo restante"},
    {battery_calculating, "Calculando…"},
    {battery_health, "Estado"},
    {battery_healthExcellent, "Excelente"},
    {battery_healthGood, "Bueno"},
    {battery_healthFair, "Aceptable"},
    {battery_healthPoor, "Reparación recomendada"},
    {battery_currentCapacity, "Capacidad actual"},
    {battery_maxCapacity, "Capacidad máxima"},
    {battery_voltage, "Tensión"},
    {battery_amperage, "Corriente"},
    {battery_powerDraw, "Consumo eléctrico"},
    {battery_isCharged, "Cargada"},
    {battery_lowPowerMode, "Modo de bajo consumo"},

    // First run
    {firstRun_title, "Te damos la bienvenida a Vantrix"},
    {firstRun_subtitle, "Elige tu idioma. Puedes cambiarlo en cualquier momento en Ajustes."},
    {firstRun_continue, "Continuar"},
    {firstRun_changeHint, "Puedes cambiar el idioma en cualquier momento en Ajustes → Idioma."},

    // Charts
    {last60s, "Últimos 60 s"},
});

// Laid over the list above.
constexpr auto esTableV3Additions = std::to_array<TextEntry>({
    // Sections of the interface
    {section_disk, "Disco"},
    {section_power, "Potencia"},
    {section_fan, "Ventilador"},
    {section_ane, "Neural Engine"},

    // GPU
    {gpu_components, "Componentes"},

    // Disk
    {disk_read, "Lectura"},
    {disk_write, "Escritura"},
    {disk_volumes, "Volúmenes"},
    {disk_history, "Historial de transferencia"},

    // Power
    {power_packageDraw, "Consumo del paquete"},
    {power_rails, "Líneas de alimentación"},
    {power_package, "Paquete"},
    {power_system, "Sistema"},
    {power_batteryEnergy, "Energía de la batería"},
    {power_history, "Historial de potencia"},

    // Fan readings
    {fan_unavailable, "Este Mac no tiene ventilador."},
    {fan_currentRPM, "RPM actuales"},
    {fan_load, "Carga del ventilador"},
    {fan_label, "Ventilador"},
    {fan_target, "Objetivo"},

    // Neural Engine
    {ane_unavailableTitle, "Neural Engine no disponible"},
    {ane_unavailableBody,
     "Este equipo no tiene ANE o macOS ha bloqueado el acceso en esta sesión."},
    {ane_utilization, "Utilización"},
    {ane_active, "Activo"},
    {ane_power, "Potencia"},
    {ane_activeJobs, "Tareas activas"},
    {ane_history, "Historial de utilización"},

    // Settings
    {settings_menuBarTilesFooterDragDrop,
     "Arrastra los mosaicos para reordenarlos. Muéstralos u ocúltalos con los interruptores."},
    {settings_disk, "Disco"},
    {settings_power, "Potencia"},
    {settings_fan, "Ventilador"},
    {settings_ane, "Neural Engine"},
    {settings_diskLive, "Disco en tiempo real"},
    {settings_powerLive, "Potencia en tiempo real"},
    {settings_fanLive, "Ventilador en tiempo real"},
    {settings_aneLive, "ANE en tiempo real"},
    {settings_compactMode, "Modo compacto"},
    {settings_compactModeHeader, "Barra de menús compacta"},
    {settings_compactModeFooter, "Muestra solo la métrica más crítica en la barra de menús."},
    {settings_iconsFooter, "Elige otros símbolos para la barra de menús."},
    {settings_presetsFooter,
     "Preajustes rápidos para configuraciones mínimas, equilibradas o avanzadas."},
    {settings_chartStyle, "Estilo"},
    {settings_graphDisk, "Disco"},
    {settings_graphPower, "Potencia"},
    {settings_graphANE, "Neural Engine"},
    {settings_chartLine, "Línea"},
    {settings_chartArea, "Área"},
    {settings_chartBar, "Barras"},
    {settings_alertsFooter,
     "Las notificaciones solo aparecen cuando un estado se mantiene un tiempo: CPU/GPU/temperatura "
     "~10 s, RAM/presión ~30 s."},
});

}  // namespace

TextLists es() { return {esTable, esTableV3Additions}; }

}  // namespace vtx::tables
