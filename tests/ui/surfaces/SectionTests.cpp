// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "SurfaceBench.h"
#include "ui/kit/HistoryChart.h"
#include "ui/kit/ListRows.h"
#include "ui/surfaces/ANESection.h"
#include "ui/surfaces/BatterySection.h"
#include "ui/surfaces/CPUSection.h"
#include "ui/surfaces/DiskSection.h"
#include "ui/surfaces/FanSection.h"
#include "ui/surfaces/GPUSection.h"
#include "ui/surfaces/MemorySection.h"
#include "ui/surfaces/NetworkSection.h"
#include "ui/surfaces/OverviewTab.h"
#include "ui/surfaces/SystemInfoSection.h"

namespace vtx {
namespace {

/// What a screen reader hears of a page, without what is hidden.
class SectionTest : public testing::Test {
protected:
    template <class Page>
    Page& show() {
        auto page = std::make_unique<Page>(bench.coordinator);
        Page& shown = *page;
        page_ = std::move(page);
        page_->resize(360, page_->sizeHint().height());
        test::show(*page_);
        return shown;
    }
    QString said(const char* name) {
        auto* found = heard(QAccessible::queryAccessibleInterface(page_.get()), name);
        if (!found) return QStringLiteral("not there");
        return found->text(QAccessible::Value);
    }
    bool hears(const char* name) { return said(name) != "not there"; }
    /// What a screen reader hears of the chart of that name.
    QString course(const char* name) {
        for (QWidget* child : page_->findChildren<QWidget*>()) {
            auto* spoken = QAccessible::queryAccessibleInterface(child);
            if (dynamic_cast<HistoryChart*>(child) && test::spokenName(*spoken) == name)
                return spoken->text(QAccessible::Description);
        }
        return QStringLiteral("not there");
    }
    /// A first point of a history, and nothing else.
    static void record(Published<HistorySeries>& history, double value) {
        history.modify([value](HistorySeries& series) { series.push_back({Date{}, value}); });
        test::settle();
    }
    template <class Part>
    Part& only() {
        Part* found = nullptr;
        for (QWidget* child : page_->findChildren<QWidget*>())
            if (auto* part = dynamic_cast<Part*>(child)) found = part;
        return *found;
    }

    test::SurfaceBench bench;

private:
    static QAccessibleInterface* heard(QAccessibleInterface* from, const char* name) {
        if (!from || from->state().invisible) return nullptr;
        if (test::spokenName(*from) == QString::fromUtf8(name)) return from;
        for (int i = 0; i < from->childCount(); ++i)
            if (auto* found = heard(from->child(i), name)) return found;
        return nullptr;
    }

    std::unique_ptr<QWidget> page_;
};

TEST_F(SectionTest, the_processor_shows_its_load_and_that_of_each_core) {
    show<CPUSection>();
    CPUStats stats;
    stats.totalUsage = 0.23;
    stats.layout.pCoreCount = 2;
    stats.pPerCore = {0.72, 0.5};
    bench.coordinator.cpu.latest = stats;
    test::settle();
    EXPECT_EQ(said("Total"), QString::fromUtf8("23 %, 2 P · 0 E"));
    EXPECT_EQ(said("P1"), "72 %");
    EXPECT_EQ(said("P2"), "50 %");
    EXPECT_TRUE(hears("P1"));
    EXPECT_FALSE(hears("E1"));
    EXPECT_TRUE(hears("Last 60 s"));
}

TEST_F(SectionTest, each_chart_of_the_processor_follows_its_own_history) {
    show<CPUSection>();
    auto& c = bench.coordinator;
    record(c.cpuHistory, 0.1);
    EXPECT_EQ(course("CPU gesamt"), "Last 60 s, 10 %, Min 10 %, Avg 10 %, Max 10 %");
    record(c.pCoreHistory, 0.2);
    EXPECT_EQ(course("P-cores"), "Last 60 s, 20 %, Min 20 %, Avg 20 %, Max 20 %");
    record(c.eCoreHistory, 0.3);
    EXPECT_EQ(course("E-cores"), "Last 60 s, 30 %, Min 30 %, Avg 30 %, Max 30 %");
}

TEST_F(SectionTest, each_other_chart_follows_its_history) {
    auto& c = bench.coordinator;
    show<GPUSection>();
    record(c.gpuHistory, 0.4);
    EXPECT_EQ(course("GPU"), "Last 60 s, 40 %, Min 40 %, Avg 40 %, Max 40 %");
    show<MemorySection>();
    record(c.memoryHistory, 0.5);
    EXPECT_EQ(course("RAM used"), "Last 60 s, 50 %, Min 50 %, Avg 50 %, Max 50 %");
    bench.change([](auto& p) { p.graphsDisk = true; });
    show<DiskSection>();
    record(c.diskReadHistory, 1 << 20);
    EXPECT_EQ(course("Throughput history"), "Last 60 s, Read 1.0 MB/s, Max 1.0 MB/s");
    record(c.diskWriteHistory, 2 << 20);
    EXPECT_TRUE(course("Throughput history").endsWith("Write 2.0 MB/s, Max 2.0 MB/s"));
}

TEST_F(SectionTest, the_charts_of_the_processor_go_with_their_preferences) {
    show<CPUSection>();
    EXPECT_TRUE(hears("CPU gesamt"));
    bench.change([](auto& p) { p.graphsCPU = false; });
    test::settle();
    EXPECT_FALSE(hears("CPU gesamt"));
    EXPECT_TRUE(hears("Last 60 s"));
    bench.change([](auto& p) { p.graphsPCore = p.graphsECore = false; });
    test::settle();
    EXPECT_FALSE(hears("Last 60 s"));
}

TEST(SectionOnOneKindOfCore, a_machine_without_efficiency_cores_has_no_chart_of_them) {
    AppBench bench(MacShape::withoutLevels());
    MetricsCoordinator coordinator(std::make_unique<Services>(bench.ports(), bench.executors()),
                                   bench.ports(), bench.executors());
    OverviewTab overview(coordinator);
    CPUSection section(coordinator);
    for (QWidget* page : std::initializer_list<QWidget*>{&overview, &section}) {
        test::show(*page);
        EXPECT_NE(test::spokenAs(*page, "P-cores"), nullptr);
        EXPECT_EQ(test::spokenAs(*page, "E-cores"), nullptr);
    }
}

TEST_F(SectionTest, the_graphics_give_way_to_a_note_where_they_tell_no_load) {
    show<GPUSection>();
    bench.coordinator.gpu.latest = GPUStats{0.42, 0.18, std::nullopt, {}};
    test::settle();
    EXPECT_EQ(said("Device"), "42 %");
    EXPECT_EQ(said("Tiler"), "18 %");
    EXPECT_EQ(said("Renderer"), QString::fromUtf8("—"));
    bench.coordinator.gpu.isAvailable = false;
    test::settle();
    EXPECT_TRUE(hears("GPU statistics unavailable"));
    EXPECT_FALSE(hears("Device"));
    EXPECT_FALSE(hears("Last 60 s"));
}

TEST_F(SectionTest, the_memory_collects_until_there_is_a_reading) {
    show<MemorySection>();
    EXPECT_TRUE(hears("Collecting…"));
    EXPECT_FALSE(hears("used"));
    MemoryStats stats;
    stats.totalBytes = std::uint64_t{32} << 30;
    stats.usedBytes = stats.wiredBytes = std::uint64_t{16} << 30;
    bench.coordinator.memory.latest = stats;
    test::settle();
    EXPECT_FALSE(hears("Collecting…"));
    EXPECT_EQ(said("used"), "16.0 GB, of 32.0 GB, Normal");
    EXPECT_EQ(said("Wired"), "16.0 GB");
    EXPECT_TRUE(hears("Speicher-Aufteilung: 50 Prozent belegt."));
    EXPECT_TRUE(hears("No user processes with meaningful memory usage."));
}

TEST_F(SectionTest, the_six_largest_processes_are_listed_and_followed) {
    show<MemorySection>();
    bench.runProcesses({1, 8, 3, 6, 2, 7, 4, 5});
    test::settle();
    QStringList names;
    auto* list = QAccessible::queryAccessibleInterface(&only<ListRows>());
    for (int i = 0; i < list->childCount(); ++i) names << test::spokenName(*list->child(i));
    EXPECT_EQ(names, (QStringList{"8 GB", "7 GB", "6 GB", "5 GB", "4 GB", "3 GB"}));
}

TEST_F(SectionTest, a_banner_stands_while_memory_runs_short) {
    show<MemorySection>();
    EXPECT_FALSE(hears("Memory pressure"));
    bench.coordinator.memory.pressure = MemoryStats::Pressure::critical;
    test::settle();
    EXPECT_EQ(said("Memory pressure"), "Critical");
    bench.coordinator.memory.pressure = MemoryStats::Pressure::normal;
    test::settle();
    EXPECT_FALSE(hears("Memory pressure"));
}

TEST_F(SectionTest, the_drives_have_a_card_only_where_there_are_some) {
    show<DiskSection>();
    EXPECT_EQ(said("Read"), QString::fromUtf8("0 B/s — IOPS"));
    EXPECT_FALSE(hears("Volumes"));
    DiskIOReading reading;
    reading.volumes.resize(1);
    reading.volumes[0].name = "Internal SSD";
    bench.coordinator.diskIO.latest = reading;
    test::settle();
    EXPECT_TRUE(hears("Volumes"));
    EXPECT_TRUE(hears("Internal SSD"));
    EXPECT_FALSE(hears("Throughput history"));
    bench.change([](auto& p) { p.graphsDisk = true; });
    test::settle();
    EXPECT_TRUE(hears("Throughput history"));
}

TEST_F(SectionTest, each_fan_has_a_card_while_it_is_there) {
    show<FanSection>();
    EXPECT_TRUE(hears("This Mac is fanless."));
    bench.coordinator.fan.latest =
        FanStats{{{0, 2864, 2900, 1350, 5777}, {1, 2712, {}, {}, {}}}, {}};
    test::settle();
    EXPECT_EQ(said("Current RPM"), "2864");
    EXPECT_TRUE(hears("Fan 1"));
    EXPECT_TRUE(hears("Fan 2"));
    EXPECT_FALSE(hears("This Mac is fanless."));
    bench.coordinator.fan.latest = FanStats{{{0, 2864, 2900, 1350, 5777}}, {}};
    test::settle();
    EXPECT_FALSE(hears("Fan 2"));
    bench.coordinator.fan.latest = FanStats{};
    test::settle();
    EXPECT_TRUE(hears("This Mac is fanless."));
    EXPECT_FALSE(hears("Fan 1"));
}

TEST_F(SectionTest, the_network_lists_its_interfaces) {
    show<NetworkSection>();
    EXPECT_TRUE(hears("Collecting…"));
    NetworkReading reading;
    bench.coordinator.network.latest = reading;
    test::settle();
    EXPECT_TRUE(hears("No network interfaces detected."));
    reading.interfaces.resize(1);
    reading.interfaces[0].bsdName = "en0";
    reading.bytesInPerSecond = 1024;
    bench.coordinator.network.latest = reading;
    test::settle();
    EXPECT_EQ(said("Download"), "1 KB/s Received 0 KB");
    EXPECT_TRUE(hears("en0"));
    EXPECT_TRUE(hears("No active interface"));
    EXPECT_FALSE(hears("No network interfaces detected."));
}

TEST_F(SectionTest, the_battery_follows_its_readings) {
    show<BatterySection>();
    EXPECT_TRUE(hears("Collecting…"));
    BatteryReading reading;
    reading.chargeFraction = 0.68;
    reading.chargingState = BatteryReading::ChargingState::discharging;
    bench.coordinator.battery.latest = reading;
    test::settle();
    EXPECT_EQ(said("Charge"), "68 %, On battery");
    EXPECT_EQ(said("Time remaining"), QString::fromUtf8("Calculating…"));
    EXPECT_FALSE(hears("Low Power Mode"));
    EXPECT_FALSE(hears("Voltage"));
    reading.lowPowerModeEnabled = true;
    reading.voltageMV = 12310;
    bench.coordinator.battery.latest = reading;
    test::settle();
    EXPECT_TRUE(hears("Low Power Mode"));
    EXPECT_EQ(said("Voltage"), "12.31 V");
}

TEST_F(SectionTest, the_battery_follows_what_the_machine_says_of_it) {
    BatteryReading reading;
    reading.chargeFraction = 0.68;
    bench.coordinator.battery.latest = reading;
    show<BatterySection>();
    bench.tellMachine([](SystemInfo& machine) { machine.batteryCycleCount = 184; });
    test::settle();
    EXPECT_EQ(said("Cycle count"), "184");
}

TEST_F(SectionTest, the_machine_is_told_in_the_language_in_force) {
    show<SystemInfoSection>();
    bench.tellMachine([](SystemInfo& machine) { machine.chipName = "A chip"; });
    test::settle();
    EXPECT_EQ(said("Model"), "A chip");
    EXPECT_TRUE(hears("Cooling"));
    Localization::shared().setPreference(Language::de);
    test::settle();
    EXPECT_FALSE(hears("Cooling"));
    EXPECT_EQ(said("Lüfter"), "2");
}

TEST_F(SectionTest, the_neural_engine_says_why_it_shows_nothing) {
    show<ANESection>();
    EXPECT_TRUE(hears("Neural Engine not available"));
}

}  // namespace
}  // namespace vtx
