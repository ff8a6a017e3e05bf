// SPDX-License-Identifier: MIT
#include "language/tables/Tables.h"

namespace vtx::tables {
namespace {

using enum L10n::Key;

constexpr auto ptTable = std::to_array<TextEntry>({
    // Sections of the interface
    {section_overview, "Visão geral"},
    {section_cpu, "CPU"},
    {section_gpu, "GPU"},
    {section_memory, "RAM"},
    {section_processes, "Processos"},
    {section_system, "Sistema"},
    {section_settings, "Definições"},
    {section_network, "Rede"},
    {section_battery, "Bateria"},

    // CPU
    {cpu_total, "Total"},
    {cpu_pCores, "Núcleos P"},
    {cpu_eCores, "Núcleos E"},
    {cpu_perCore, "Por núcleo"},
    {cpu_layoutMissing, "Não foi possível ler a topologia da CPU."},
    {cpu_idle, "Inativa"},

    // Memory
    {memory_used, "usado"},
    {memory_ofTotal, "de %@"},
    {memory_breakdown, "Composição"},
    {memory_available, "Disponível"},
    {memory_free, "Livre"},
    {memory_wired, "Reservada"},
    {memory_active, "Ativa"},
    {memory_inactive, "Inativa"},
    {memory_compressed, "Comprimida"},
    {memory_swap, "Swap"},
    {memory_topConsumers, "Maior consumo"},
    {memory_collecting, "A recolher dados…"},
    {memory_purgeTitle, "Libertar memória"},
    {memory_purgeBody,
     "Pede ao kernel que descarte as páginas inativas. O macOS solicita a palavra-passe uma vez — "
     "a autorização é válida durante ~5 minutos."},
    {memory_purgeButton, "Libertar RAM"},
    {memory_purgeFreed, "Libertado"},
    {memory_purgeGrew, "A utilização aumentou durante a operação"},
    {memory_pressureTitle, "Pressão da memória"},
    {memory_pressureWarning,
     "A RAM está a escassear — fechar separadores ou apps reduz de imediato a carga."},
    {memory_pressureCritical, "O macOS está a limitar o desempenho. Feche algo da lista abaixo."},
    {memory_noConsumers, "Nenhum processo do utilizador com consumo de memória relevante."},
    {memory_statusNormal, "Normal"},
    {memory_statusWarning, "Aviso"},
    {memory_statusCritical, "Crítica"},

    // GPU
    {gpu_device, "Dispositivo"},
    {gpu_unavailableTitle, "Estatísticas da GPU indisponíveis"},
    {gpu_unavailableBody,
     "Neste sistema, o IOAccelerator não devolve PerformanceStatistics. É comum em máquinas "
     "virtuais e em versões beta do sistema."},

    // Background hogs
    {hog_title, "Processos em segundo plano"},
    {hog_empty, "Ainda nada ultrapassou o limiar."},
    {hog_disabledHint, "Ative o detetor nas Definições para ver os processos em segundo plano."},

    // System information
    {system_chip, "Chip"},
    {system_modelName, "Modelo"},
    {system_architecture, "Arquitetura"},
    {system_archAppleSilicon, "Apple Silicon"},
    {system_archIntel, "Intel"},
    {system_archUnknown, "Desconhecida"},
    {system_cores, "Núcleos"},
    {system_pCluster, "Máx. do cluster P"},
    {system_eCluster, "Máx. do cluster E"},
    {system_max, "Máx."},
    {system_memorySection, "Memória"},
    {system_memorySize, "Tamanho"},
    {system_memoryType, "Tipo"},
    {system_memorySpeed, "Velocidade"},
    {system_gpu, "GPU"},
    {system_gpuModel, "Modelo"},
    {system_gpuCores, "Núcleos"},
    {system_battery, "Bateria"},
    {system_batteryDesignCapacity, "Capacidade nominal"},
    {system_batteryCycles, "Número de ciclos"},
    {system_batteryTemperature, "Temperatura"},
    {system_cooling, "Arrefecimento"},
    {system_fans, "Ventoinhas"},
    {system_modelSection, "Modelo"},
    {system_modelFamily, "Família"},
    {system_modelIdentifier, "Identificador"},

    // Settings
    {settings_menuBarTiles, "Barra de menus — mosaicos visíveis"},
    {settings_menuBarTilesFooter, "Escolha os mosaicos que quer ver na barra de menus."},
    {settings_menuBarLive, "Barra de menus — valores em tempo real"},
    {settings_menuBarLiveFooter,
     "Quando a opção está ativada, o mosaico mostra um valor em tempo real como 'CPU 34%' em vez "
     "de apenas o ícone. Ajustável para cada componente."},
    {settings_cpu, "CPU"},
    {settings_gpu, "GPU"},
    {settings_memory, "Memória"},
    {settings_cpuTemp, "Temperatura da CPU"},
    {settings_cpuLive, "CPU em tempo real"},
    {settings_gpuLive, "GPU em tempo real"},
    {settings_memoryLive, "RAM em tempo real"},
    {settings_cpuTempLive, "Temperatura da CPU em tempo real"},
    {settings_updates, "Atualização"},
    {settings_updateInterval, "Intervalo de atualização"},
    {settings_graphs, "Gráficos"},
    {settings_graphCPU, "CPU total"},
    {settings_graphPCore, "Núcleos P"},
    {settings_graphECore, "Núcleos E"},
    {settings_graphGPU, "GPU"},
    {settings_graphMemory, "Memória"},
    {settings_colors, "Cores (em vez das predefinidas)"},
    {settings_colorsFooter, "Deixe vazio para usar a cor predefinida. Clique para alterar."},
    {settings_alerts, "Notificações"},
    {settings_alertsFooter,
     "As notificações só surgem quando um estado se mantém durante cerca de dez segundos."},
    {settings_alertsDenied,
     "⚠️ O macOS recusou as notificações do Vantrix — ative-as em Definições do Sistema → "
     "Notificações."},
    {settings_alertPressure, "Pressão crítica da memória"},
    {settings_memorySection, "Memória"},
    {settings_autoRelief, "Libertar automaticamente em caso de pressão"},
    {settings_autoReliefBody,
     "Com pressão da memória ≠ Normal, o Vantrix pede à libmalloc que liberte as páginas não "
     "utilizadas do **seu próprio** processo. Os outros processos nunca são afetados."},
    {settings_widget, "Mini widget"},
    {settings_widgetEnabled, "Mostrar o mini widget flutuante"},
    {settings_widgetBody,
     "Vista compacta de CPU, GPU e memória numa janela flutuante sempre visível — útil num segundo "
     "ecrã enquanto joga."},
    {settings_startup, "Arranque"},
    {settings_launchAtLogin, "Abrir ao iniciar sessão"},
    {settings_launchAtLoginError, "Não foi possível alterar a abertura ao iniciar sessão"},
    {settings_about, "Acerca do Vantrix"},
    {settings_version, "Versão"},
    {settings_build, "Compilação"},
    {settings_aboutFooter,
     "O Vantrix lê as métricas do sistema através de Mach, sysctl e IOKit. Nunca modifica outros "
     "processos nem executa operações privilegiadas."},
    {settings_language, "Idioma"},
    {settings_languageFooter,
     "'Automático' segue a região definida nas Definições do Sistema macOS."},
    {settings_hogHeader, "Detetor de processos em segundo plano"},
    {settings_hogEnabled, "Ativar o detetor"},
    {settings_hogBody,
     "Deteta processos que consomem muita CPU enquanto a respetiva app não está em primeiro "
     "plano."},
    {settings_hogCPUThreshold, "Limiar da CPU"},
    {settings_hogMinDuration, "Duração mínima"},

    // Network
    {network_title, "Rede"},
    {network_unavailable, "Nenhuma interface de rede detetada."},
    {network_downSpeed, "Descarregamento"},
    {network_upSpeed, "Envio"},
    {network_totalDown, "Recebido"},
    {network_totalUp, "Enviado"},
    {network_interfaces, "Interfaces"},
    {network_active, "Ativa"},
    {network_inactive, "Inativa"},
    {network_noActive, "Nenhuma interface ativa"},
    {network_ipv4, "IPv4"},
    {network_ipv6, "IPv6"},
    {network_macAddress, "MAC"},
    {network_typeWiFi, "Wi-Fi"},
    {network_typeEthernet, "Ethernet"},
    {network_typeLoopback, "Loopback"},
    {network_typeCellular, "Rede móvel"},
    {network_typeOther, "Outra"},
    {network_typeVPN, "VPN"},

    // Battery
    {battery_unavailable, "Este Mac não tem bateria."},
    {battery_charge, "Carga"},
    {battery_powerSource, "Fonte de alimentação"},
    {battery_charging, "A carregar"},
    {battery_discharging, "Com bateria"},
    {battery_acAttached, "Adaptador de corrente"},
    {battery_full, "Carga completa"},
    {battery_timeUntilFull, "Tempo até à carga completa"},
    {battery_timeRemaining, "Tempo restante"},
    {battery_calculating, "A calcular…"},
    {battery_health, "Estado"},
    {battery_healthExcellent, "Excelente"},
    {battery_healthGood, "Bom"},
    {battery_healthFair, "Razoável"},
    {battery_healthPoor, "Assistência recomendada"},
    {battery_currentCapacity, "Capacidade atual"},
    {battery_maxCapacity, "Capacidade máxima"},
    {battery_voltage, "Tensão"},
    {battery_amperage, "Corrente"},
    {battery_powerDraw, "Consumo elétrico"},
    {battery_isCharged, "Carregada"},
    {battery_lowPowerMode, "Modo de baixo consumo"},

    // First run
    {firstRun_title, "Damos-lhe as boas-vindas ao Vantrix"},
    {firstRun_subtitle, "Escolha o seu idioma. Pode alterá-lo a qualquer momento nas Definições."},
    {firstRun_continue, "Continuar"},
    {firstRun_changeHint, "Pode alterar o idioma a qualquer momento em Definições → Idioma."},

    // Charts
    {last60s, "Últimos 60 s"},
});

// Laid over the list above.
constexpr auto ptTableV3Additions = std::to_array<TextEntry>({
    // Sections of the interface
    {section_disk, "Disco"},
    {section_power, "Potência"},
    {section_fan, "Ventoinha"},
    {section_ane, "Neural Engine"},

    // GPU
    {gpu_components, "Componentes"},

    // Disk
    {disk_read, "Leitura"},
    {disk_write, "Escrita"},
    {disk_volumes, "Volumes"},
    {disk_history, "Histórico de transferência"},

    // Power
    {power_packageDraw, "Consumo do pacote"},
    {power_rails, "Linhas de alimentação"},
    {power_package, "Pacote"},
    {power_system, "Sistema"},
    {power_batteryEnergy, "Energia da bateria"},
    {power_history, "Histórico de potência"},

    // Fan readings
    {fan_unavailable, "Este Mac não tem ventoinha."},
    {fan_currentRPM, "RPM atuais"},
    {fan_load, "Carga da ventoinha"},
    {fan_label, "Ventoinha"},
    {fan_target, "Alvo"},

    // Neural Engine
    {ane_unavailableTitle, "Neural Engine indisponível"},
    {ane_unavailableBody,
     "Ou este computador não tem ANE, ou o macOS bloqueou o acesso nesta sessão."},
    {ane_utilization, "Utilização"},
    {ane_active, "Ativo"},
    {ane_power, "Potência"},
    {ane_activeJobs, "Tarefas ativas"},
    {ane_history, "Histórico de utilização"},

    // Settings
    {settings_menuBarTilesFooterDragDrop,
     "Arraste os mosaicos para os reordenar. Mostre-os ou oculte-os com os interruptores."},
    {settings_disk, "Disco"},
    {settings_power, "Potência"},
    {settings_fan, "Ventoinha"},
    {settings_ane, "Neural Engine"},
    {settings_diskLive, "Disco em tempo real"},
    {settings_powerLive, "Potência em tempo real"},
    {settings_fanLive, "Ventoinha em tempo real"},
    {settings_aneLive, "ANE em tempo real"},
    {settings_compactMode, "Modo compacto"},
    {settings_compactModeHeader, "Barra de menus compacta"},
    {settings_compactModeFooter, "Mostra apenas a métrica mais crítica na barra de menus."},
    {settings_iconsFooter, "Escolha outros símbolos para a barra de menus."},
    {settings_presetsFooter,
     "Predefinições rápidas para configurações mínimas, equilibradas ou avançadas."},
    {settings_chartStyle, "Estilo"},
    {settings_graphDisk, "Disco"},
    {settings_graphPower, "Potência"},
    {settings_graphANE, "Neural Engine"},
    {settings_chartLine, "Linha"},
    {settings_chartArea, "Área"},
    {settings_chartBar, "Barras"},
    {settings_alertsFooter,
     "As notificações só surgem quando um estado se mantém durante algum tempo: "
     "CPU/GPU/temperatura ~10 s, RAM/pressão ~30 s."},
});

}  // namespace

TextLists pt() { return {ptTable, ptTableV3Additions}; }

}  // namespace vtx::tables
