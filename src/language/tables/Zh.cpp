// SPDX-License-Identifier: MIT
#include "language/tables/Tables.h"

namespace vtx::tables {
namespace {

using enum L10n::Key;

constexpr auto zhTable = std::to_array<TextEntry>({
    // Sections of the interface
    {section_overview, "概览"},
    {section_cpu, "CPU"},
    {section_gpu, "GPU"},
    {section_memory, "内存"},
    {section_processes, "进程"},
    {section_system, "系统"},
    {section_settings, "设置"},
    {section_network, "网络"},
    {section_battery, "电池"},

    // CPU
    {cpu_total, "整体"},
    {cpu_pCores, "性能核心"},
    {cpu_eCores, "能效核心"},
    {cpu_perCore, "各核心"},
    {cpu_layoutMissing, "无法读取CPU拓扑结构。"},
    {cpu_idle, "闲置"},

    // Memory
    {memory_used, "已用"},
    {memory_ofTotal, "共%@"},
    {memory_breakdown, "明细"},
    {memory_available, "可用"},
    {memory_free, "空闲"},
    {memory_wired, "联动"},
    {memory_active, "活跃"},
    {memory_inactive, "非活跃"},
    {memory_compressed, "已压缩"},
    {memory_swap, "交换空间"},
    {memory_topConsumers, "占用最多的进程"},
    {memory_collecting, "正在收集…"},
    {memory_purgeTitle, "释放内存"},
    {memory_purgeBody,
     "请求内核丢弃非活跃页面。"
     "macOS会要求输入一次密码，授权在约5分钟内有效。"},
    {memory_purgeButton, "释放内存"},
    {memory_purgeFreed, "已释放"},
    {memory_purgeGrew, "操作期间内存用量增加"},
    {memory_pressureTitle, "内存压力"},
    {memory_pressureWarning, "内存开始紧张，关闭标签页或退出应用可立即减轻负载。"},
    {memory_pressureCritical, "macOS正在限制性能。请退出下方列表中的部分进程。"},
    {memory_noConsumers, "没有占用大量内存的用户进程。"},
    {memory_statusNormal, "正常"},
    {memory_statusWarning, "警告"},
    {memory_statusCritical, "严重"},

    // GPU
    {gpu_device, "设备"},
    {gpu_unavailableTitle, "GPU统计信息不可用"},
    {gpu_unavailableBody,
     "此系统上的IOAccelerator未返回PerformanceStatistics。"
     "这在虚拟机或测试版系统中很常见。"},

    // Background hogs
    {hog_title, "后台耗电进程"},
    {hog_empty, "尚无进程超过阈值。"},
    {hog_disabledHint, "在设置中启用检测，即可查看后台耗电进程。"},

    // System information
    {system_chip, "芯片"},
    {system_modelName, "型号"},
    {system_architecture, "架构"},
    {system_archAppleSilicon, "Apple芯片"},
    {system_archIntel, "Intel"},
    {system_archUnknown, "未知"},
    {system_cores, "核心数"},
    {system_pCluster, "性能集群最高频率"},
    {system_eCluster, "能效集群最高频率"},
    {system_max, "最高"},
    {system_memorySection, "内存"},
    {system_memorySize, "容量"},
    {system_memoryType, "类型"},
    {system_memorySpeed, "速度"},
    {system_gpu, "GPU"},
    {system_gpuModel, "型号"},
    {system_gpuCores, "核心数"},
    {system_battery, "电池"},
    {system_batteryDesignCapacity, "设计容量"},
    {system_batteryCycles, "循环计数"},
    {system_batteryTemperature, "温度"},
    {system_cooling, "散热"},
    {system_fans, "风扇"},
    {system_modelSection, "机型"},
    {system_modelFamily, "系列"},
    {system_modelIdentifier, "标识符"},

    // Settings
    {settings_menuBarTiles, "菜单栏：显示项目"},
    {settings_menuBarTilesFooter, "选择要在菜单栏中显示的项目。"},
    {settings_cpu, "CPU"},
    {settings_gpu, "GPU"},
    {settings_memory, "内存"},
    {settings_cpuTemp, "CPU温度"},
    {settings_updates, "刷新"},
    {settings_updateInterval, "刷新间隔"},
    {settings_graphs, "图表"},
    {settings_graphCPU, "CPU整体"},
    {settings_graphPCore, "性能核心"},
    {settings_graphECore, "能效核心"},
    {settings_graphGPU, "GPU"},
    {settings_graphMemory, "内存"},
    {settings_alerts, "通知"},
    {settings_alertsFooter,
     "状态持续一段时间后才会发送通知："
     "CPU/GPU/温度约10秒，内存用量/压力约30秒。"},
    {settings_alertPressure, "内存压力严重"},
    {settings_widget, "迷你小组件"},
    {settings_widgetEnabled, "显示浮动迷你小组件"},
    {settings_startup, "启动"},
    {settings_launchAtLogin, "登录时启动"},
    {settings_about, "关于"},
    {settings_version, "版本"},
    {settings_build, "构建版本"},
    {settings_language, "语言"},
    {settings_languageFooter, "「自动」会跟随macOS系统设置中的地区。"},
    {settings_hogHeader, "后台耗电进程检测"},
    {settings_hogEnabled, "启用检测"},
    {settings_hogBody, "监测应用不在前台时仍大量占用CPU的进程。"},
    {settings_hogCPUThreshold, "CPU阈值"},
    {settings_hogMinDuration, "最短持续时间"},

    // Network
    {network_title, "网络"},
    {network_unavailable, "未检测到网络接口。"},
    {network_downSpeed, "下载"},
    {network_upSpeed, "上传"},
    {network_totalDown, "已接收"},
    {network_totalUp, "已发送"},
    {network_interfaces, "接口"},
    {network_active, "活跃"},
    {network_inactive, "非活跃"},
    {network_noActive, "无活跃接口"},
    {network_ipv4, "IPv4"},
    {network_ipv6, "IPv6"},
    {network_macAddress, "MAC"},
    {network_typeWiFi, "Wi-Fi"},
    {network_typeEthernet, "以太网"},
    {network_typeLoopback, "环回"},
    {network_typeCellular, "蜂窝网络"},
    {network_typeOther, "其他"},
    {network_typeVPN, "VPN"},

    // Battery
    {battery_unavailable, "此Mac没有电池。"},
    {battery_charge, "电量"},
    {battery_powerSource, "电源"},
    {battery_charging, "正在充电"},
    {battery_discharging, "电池供电"},
    {battery_acAttached, "电源适配器"},
    {battery_full, "已充满"},
    {battery_timeUntilFull, "充满还需"},
    {battery_timeRemaining, "剩余时间"},
    {battery_calculating, "正在计算…"},
    {battery_health, "电池健康"},
    {battery_healthExcellent, "极佳"},
    {battery_healthGood, "良好"},
    {battery_healthFair, "一般"},
    {battery_healthPoor, "建议维修"},
    {battery_currentCapacity, "当前容量"},
    {battery_maxCapacity, "最大容量"},
    {battery_voltage, "电压"},
    {battery_amperage, "电流"},
    {battery_powerDraw, "功耗"},
    {battery_isCharged, "已充电"},
    {battery_lowPowerMode, "低电量模式"},

    // First run
    {firstRun_title, "欢迎使用Vantrix"},
    {firstRun_subtitle, "请选择语言。可随时在设置中更改。"},
    {firstRun_continue, "继续"},
    {firstRun_changeHint, "可随时在「设置」→「语言」中更改语言。"},

    // Charts
    {last60s, "最近60秒"},
});

// Laid over the list above. What came later: disk, power, fan readings and Neural Engine.
constexpr auto zhTableV3Additions = std::to_array<TextEntry>({
    // Sections of the interface
    {section_disk, "磁盘"},
    {section_power, "功耗"},
    {section_fan, "风扇"},
    {section_ane, "神经网络引擎"},

    // GPU
    {gpu_components, "组件"},

    // Disk
    {disk_read, "读取"},
    {disk_write, "写入"},
    {disk_volumes, "宗卷"},
    {disk_history, "吞吐量历史"},

    // Power
    {power_packageDraw, "封装功耗"},
    {power_rails, "电源轨"},
    {power_package, "封装"},
    {power_system, "系统"},
    {power_batteryEnergy, "电池能量"},
    {power_history, "功耗历史"},

    // Fan readings
    {fan_unavailable, "此Mac没有风扇。"},
    {fan_currentRPM, "当前转速（RPM）"},
    {fan_load, "风扇负载"},
    {fan_label, "风扇"},
    {fan_target, "目标"},

    // Neural Engine
    {ane_unavailableTitle, "神经网络引擎不可用"},
    {ane_unavailableBody, "此电脑没有ANE，或者macOS在本次会话中限制了访问。"},
    {ane_utilization, "使用率"},
    {ane_active, "活跃"},
    {ane_power, "功耗"},
    {ane_activeJobs, "活跃任务"},
    {ane_history, "使用率历史"},

    // Settings
    {settings_menuBarTilesFooterDragDrop, "拖移项目可重新排序，使用开关可显示或隐藏项目。"},
    {settings_disk, "磁盘"},
    {settings_power, "功耗"},
    {settings_fan, "风扇"},
    {settings_ane, "神经网络引擎"},
    {settings_diskLive, "磁盘实时数值"},
    {settings_powerLive, "功耗实时数值"},
    {settings_fanLive, "风扇实时数值"},
    {settings_aneLive, "ANE实时数值"},
    {settings_compactMode, "紧凑模式"},
    {settings_compactModeHeader, "紧凑菜单栏"},
    {settings_compactModeFooter, "菜单栏中仅显示最关键的指标。"},
    {settings_iconsFooter, "为菜单栏选择其他图标。"},
    {settings_presetsFooter, "快速应用精简、均衡或高级用户预设。"},
    {settings_chartStyle, "样式"},
    {settings_graphDisk, "磁盘"},
    {settings_graphPower, "功耗"},
    {settings_graphANE, "神经网络引擎"},
    {settings_chartLine, "折线"},
    {settings_chartArea, "面积"},
    {settings_chartBar, "柱形"},
});

}  // namespace

TextLists zh() { return {zhTable, zhTableV3Additions}; }

}  // namespace vtx::tables
