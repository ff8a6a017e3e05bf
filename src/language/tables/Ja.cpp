// SPDX-License-Identifier: MIT
#include "language/tables/Tables.h"

namespace vtx::tables {
namespace {

using enum L10n::Key;

constexpr auto jaTable = std::to_array<TextEntry>({
    // Sections of the interface
    {section_overview, "概要"},
    {section_cpu, "CPU"},
    {section_gpu, "GPU"},
    {section_memory, "RAM"},
    {section_processes, "プロセス"},
    {section_system, "システム"},
    {section_settings, "設定"},
    {section_network, "ネットワーク"},
    {section_battery, "バッテリー"},

    // CPU
    {cpu_total, "全体"},
    {cpu_pCores, "Pコア"},
    {cpu_eCores, "Eコア"},
    {cpu_perCore, "コア別"},
    {cpu_layoutMissing, "CPUトポロジーを読み取れませんでした。"},
    {cpu_idle, "アイドル"},

    // Memory
    {memory_used, "使用中"},
    {memory_ofTotal, "合計%@"},
    {memory_breakdown, "内訳"},
    {memory_available, "利用可能"},
    {memory_free, "空き"},
    {memory_wired, "確保済み"},
    {memory_active, "アクティブ"},
    {memory_inactive, "非アクティブ"},
    {memory_compressed, "圧縮"},
    {memory_swap, "スワップ"},
    {memory_topConsumers, "使用量の多いプロセス"},
    {memory_collecting, "収集中…"},
    {memory_purgeTitle, "メモリを解放"},
    {memory_purgeBody,
     "非アクティブなページを破棄するようカーネルに要求します。"
     "macOSから一度だけパスワードの入力を求められ、許可は約5分間有効です。"},
    {memory_purgeButton, "RAMを解放"},
    {memory_purgeFreed, "解放済み"},
    {memory_purgeGrew, "操作中に使用量が増加しました"},
    {memory_pressureTitle, "メモリプレッシャー"},
    {memory_pressureWarning,
     "RAMが不足してきています。"
     "タブやアプリを閉じると、すぐに負荷が下がります。"},
    {memory_pressureCritical,
     "macOSが処理を抑制しています。"
     "下のリストからいずれかを終了してください。"},
    {memory_noConsumers, "メモリを多く使用しているユーザープロセスはありません。"},
    {memory_statusNormal, "正常"},
    {memory_statusWarning, "警告"},
    {memory_statusCritical, "危険"},

    // GPU
    {gpu_device, "デバイス"},
    {gpu_unavailableTitle, "GPUの統計情報を利用できません"},
    {gpu_unavailableBody,
     "このシステムではIOAcceleratorがPerformanceStatisticsを返しません。"
     "仮想マシンやベータ版OSではよくあることです。"},

    // Background hogs
    {hog_title, "バックグラウンドの大食漢"},
    {hog_empty, "しきい値を超えたプロセスはまだありません。"},
    {hog_disabledHint, "バックグラウンドの大食漢を表示するには、設定で検出を有効にしてください。"},

    // System information
    {system_chip, "チップ"},
    {system_modelName, "モデル"},
    {system_architecture, "アーキテクチャ"},
    {system_archAppleSilicon, "Appleシリコン"},
    {system_archIntel, "Intel"},
    {system_archUnknown, "不明"},
    {system_cores, "コア数"},
    {system_pCluster, "Pクラスタ最大周波数"},
    {system_eCluster, "Eクラスタ最大周波数"},
    {system_max, "最大"},
    {system_memorySection, "メモリ"},
    {system_memorySize, "容量"},
    {system_memoryType, "種類"},
    {system_memorySpeed, "速度"},
    {system_gpu, "GPU"},
    {system_gpuModel, "モデル"},
    {system_gpuCores, "コア数"},
    {system_battery, "バッテリー"},
    {system_batteryDesignCapacity, "設計容量"},
    {system_batteryCycles, "充放電回数"},
    {system_batteryTemperature, "温度"},
    {system_cooling, "冷却"},
    {system_fans, "ファン"},
    {system_modelSection, "機種"},
    {system_modelFamily, "シリーズ"},
    {system_modelIdentifier, "機種ID"},

    // Settings
    {settings_menuBarTiles, "メニューバー：表示項目"},
    {settings_menuBarTilesFooter, "メニューバーに表示する項目を選択します。"},
    {settings_cpu, "CPU"},
    {settings_gpu, "GPU"},
    {settings_memory, "メモリ"},
    {settings_cpuTemp, "CPU温度"},
    {settings_updates, "更新"},
    {settings_updateInterval, "更新間隔"},
    {settings_graphs, "グラフ"},
    {settings_graphCPU, "CPU全体"},
    {settings_graphPCore, "Pコア"},
    {settings_graphECore, "Eコア"},
    {settings_graphGPU, "GPU"},
    {settings_graphMemory, "メモリ"},
    {settings_alerts, "通知"},
    {settings_alertsFooter,
     "状態がしばらく続いた場合にのみ通知します。"
     "CPU／GPU／温度は約10秒、RAM／メモリプレッシャーは約30秒です。"},
    {settings_alertPressure, "メモリプレッシャー（危険）"},
    {settings_widget, "ミニウィジェット"},
    {settings_widgetEnabled, "フローティングミニウィジェットを表示"},
    {settings_startup, "起動"},
    {settings_launchAtLogin, "ログイン時に起動"},
    {settings_about, "情報"},
    {settings_version, "バージョン"},
    {settings_build, "ビルド"},
    {settings_language, "言語"},
    {settings_languageFooter, "「自動」はmacOSシステム設定の地域に従います。"},
    {settings_hogHeader, "バックグラウンドの大食漢の検出"},
    {settings_hogEnabled, "検出を有効にする"},
    {settings_hogBody, "アプリが前面にない間もCPUを多く使い続けるプロセスを監視します。"},
    {settings_hogCPUThreshold, "CPUのしきい値"},
    {settings_hogMinDuration, "最短継続時間"},

    // Network
    {network_title, "ネットワーク"},
    {network_unavailable, "ネットワークインターフェイスが見つかりません。"},
    {network_downSpeed, "ダウンロード"},
    {network_upSpeed, "アップロード"},
    {network_totalDown, "受信"},
    {network_totalUp, "送信"},
    {network_interfaces, "インターフェイス"},
    {network_active, "アクティブ"},
    {network_inactive, "非アクティブ"},
    {network_noActive, "アクティブなインターフェイスなし"},
    {network_ipv4, "IPv4"},
    {network_ipv6, "IPv6"},
    {network_macAddress, "MAC"},
    {network_typeWiFi, "Wi-Fi"},
    {network_typeEthernet, "Ethernet"},
    {network_typeLoopback, "ループバック"},
    {network_typeCellular, "モバイル通信"},
    {network_typeOther, "その他"},
    {network_typeVPN, "VPN"},

    // Battery
    {battery_unavailable, "このMacにはバッテリーがありません。"},
    {battery_charge, "充電残量"},
    {battery_powerSource, "電源"},
    {battery_charging, "充電中"},
    {battery_discharging, "バッテリー駆動"},
    {battery_acAttached, "電源アダプタ"},
    {battery_full, "フル充電"},
    {battery_timeUntilFull, "フル充電まで"},
    {battery_timeRemaining, "残り時間"},
    {battery_calculating, "計算中…"},
    {battery_health, "バッテリーの状態"},
    {battery_healthExcellent, "非常に良好"},
    {battery_healthGood, "良好"},
    {battery_healthFair, "普通"},
    {battery_healthPoor, "修理サービス推奨"},
    {battery_currentCapacity, "現在の容量"},
    {battery_maxCapacity, "最大容量"},
    {battery_voltage, "電圧"},
    {battery_amperage, "電流"},
    {battery_powerDraw, "消費電力"},
    {battery_isCharged, "充電済み"},
    {battery_lowPowerMode, "低電力モード"},

    // First run
    {firstRun_title, "Vantrixへようこそ"},
    {firstRun_subtitle, "言語を選択してください。設定でいつでも変更できます。"},
    {firstRun_continue, "続ける"},
    {firstRun_changeHint, "言語は「設定」→「言語」でいつでも変更できます。"},

    // Charts
    {last60s, "直近60秒"},
});

// Laid over the list above. What came later: disk, power, fan readings and Neural Engine.
constexpr auto jaTableV3Additions = std::to_array<TextEntry>({
    // Sections of the interface
    {section_disk, "ディスク"},
    {section_power, "電力"},
    {section_fan, "ファン"},
    {section_ane, "Neural Engine"},

    // GPU
    {gpu_components, "コンポーネント"},

    // Disk
    {disk_read, "読み込み"},
    {disk_write, "書き込み"},
    {disk_volumes, "ボリューム"},
    {disk_history, "スループットの履歴"},

    // Power
    {power_packageDraw, "パッケージ消費電力"},
    {power_rails, "電源レール"},
    {power_package, "パッケージ"},
    {power_system, "システム"},
    {power_batteryEnergy, "バッテリー電力量"},
    {power_history, "電力の履歴"},

    // Fan readings
    {fan_unavailable, "このMacにはファンがありません。"},
    {fan_currentRPM, "現在のRPM"},
    {fan_load, "ファン負荷"},
    {fan_label, "ファン"},
    {fan_target, "目標"},

    // Neural Engine
    {ane_unavailableTitle, "Neural Engineを利用できません"},
    {ane_unavailableBody,
     "このコンピュータにANEが搭載されていないか、"
     "このセッションではmacOSがアクセスを制限しています。"},
    {ane_utilization, "使用率"},
    {ane_active, "アクティブ"},
    {ane_power, "電力"},
    {ane_activeJobs, "実行中のジョブ"},
    {ane_history, "使用率の履歴"},

    // Settings
    {settings_menuBarTilesFooterDragDrop,
     "項目をドラッグして並べ替えます。表示／非表示はスイッチで切り替えます。"},
    {settings_disk, "ディスク"},
    {settings_power, "電力"},
    {settings_fan, "ファン"},
    {settings_ane, "Neural Engine"},
    {settings_diskLive, "ディスクをライブ表示"},
    {settings_powerLive, "電力をライブ表示"},
    {settings_fanLive, "ファンをライブ表示"},
    {settings_aneLive, "ANEをライブ表示"},
    {settings_compactMode, "コンパクトモード"},
    {settings_compactModeHeader, "コンパクトメニューバー"},
    {settings_compactModeFooter, "最も注意が必要な指標だけをメニューバーに表示します。"},
    {settings_iconsFooter, "メニューバーに使う別のアイコンを選択します。"},
    {settings_presetsFooter, "ミニマル、バランス、パワーユーザー向けのクイックプリセットです。"},
    {settings_chartStyle, "スタイル"},
    {settings_graphDisk, "ディスク"},
    {settings_graphPower, "電力"},
    {settings_graphANE, "Neural Engine"},
    {settings_chartLine, "折れ線"},
    {settings_chartArea, "面"},
    {settings_chartBar, "棒"},
});

}  // namespace

TextLists ja() { return {jaTable, jaTableV3Additions}; }

}  // namespace vtx::tables
