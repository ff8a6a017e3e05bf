// SPDX-License-Identifier: MIT
#include "telemetry/CoreLayout.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <map>
#include <string>

#include "platform/Sysctl.h"
#include "support/RegistryBench.h"

namespace vtx {
namespace {

// Kernel values of 4 or 8 bytes.
class FakeSysctl : public Sysctl {
public:
    std::map<std::string, std::int32_t, std::less<>> narrow;
    std::map<std::string, std::int64_t, std::less<>> wide;

    int sysctlbyname(std::string_view name, std::span<std::byte> into, std::size_t& size) override {
        if (const auto found = narrow.find(name); found != narrow.end())
            return copy(found->second, into, size);
        if (const auto found = wide.find(name); found != wide.end())
            return copy(found->second, into, size);
        return ENOENT;
    }

private:
    template <class Number>
    static int copy(Number number, std::span<std::byte> into, std::size_t& size) {
        if (into.size() < sizeof number) return ENOMEM;
        std::memcpy(into.data(), &number, sizeof number);
        size = sizeof number;
        return 0;
    }
};

class TwoLevels final : public FakeSysctl {
public:
    TwoLevels() {
        narrow = {{"hw.nperflevels", 2},
                  {"hw.perflevel0.logicalcpu", 8},
                  {"hw.perflevel1.logicalcpu", 4},
                  {"hw.logicalcpu", 12}};
    }
};

// On a machine without devices.
std::optional<CoreLayout> detect(Sysctl& sysctl) {
    RegistryBench devices;
    return CoreLayout::detect(sysctl, devices.port);
}

TEST(CoreLayout, two_levels_are_performance_and_efficiency_cores) {
    TwoLevels sysctl;
    const auto layout = detect(sysctl);
    ASSERT_TRUE(layout);
    EXPECT_EQ(layout->pCoreCount, 8);
    EXPECT_EQ(layout->eCoreCount, 4);
    EXPECT_TRUE(layout->pCoreFrequencyStepsMHz.empty());
    EXPECT_TRUE(layout->clusterMap.empty());
}

TEST(CoreLayout, one_level_has_no_efficiency_cores_even_if_a_second_count_is_there) {
    TwoLevels sysctl;
    sysctl.narrow["hw.nperflevels"] = 1;
    sysctl.wide["hw.perflevel1.cpufrequency_max"] = 2'000'000'000;
    const auto layout = detect(sysctl);
    ASSERT_TRUE(layout);
    EXPECT_EQ(layout->eCoreCount, 0);
    EXPECT_EQ(layout->eCoreMaxMHz, std::nullopt);
}

TEST(CoreLayout, a_second_level_that_cannot_be_read_counts_zero_cores) {
    TwoLevels sysctl;
    sysctl.narrow.erase("hw.perflevel1.logicalcpu");
    EXPECT_EQ(detect(sysctl)->eCoreCount, 0);
}

TEST(CoreLayout, without_levels_every_processor_is_a_performance_core) {
    FakeSysctl sysctl;
    sysctl.narrow["hw.logicalcpu"] = 6;
    const auto layout = detect(sysctl);
    ASSERT_TRUE(layout);
    CoreLayout expected;
    expected.pCoreCount = 6;
    EXPECT_EQ(*layout, expected);
}

TEST(CoreLayout, a_level_count_or_first_level_below_one_counts_as_no_levels) {
    for (const char* name : {"hw.nperflevels", "hw.perflevel0.logicalcpu"}) {
        for (const std::int32_t value : {0, -1}) {
            TwoLevels sysctl;
            sysctl.narrow[name] = value;
            const auto layout = detect(sysctl);
            ASSERT_TRUE(layout) << name;
            EXPECT_EQ(layout->pCoreCount, 12) << name;
            EXPECT_EQ(layout->eCoreCount, 0) << name;
        }
    }
}

TEST(CoreLayout, a_machine_that_tells_no_number_of_processors_has_no_layout) {
    FakeSysctl sysctl;
    EXPECT_EQ(detect(sysctl), std::nullopt);
    sysctl.narrow["hw.logicalcpu"] = 0;
    EXPECT_EQ(detect(sysctl), std::nullopt);
}

TEST(CoreLayout, top_clocks_are_hertz_of_their_level_in_MHz) {
    TwoLevels sysctl;
    sysctl.wide = {{"hw.perflevel0.cpufrequency_max", 3'696'000'000},
                   {"hw.perflevel1.cpufrequency_max", 2'424'000'000}};
    const auto layout = detect(sysctl);
    EXPECT_EQ(layout->pCoreMaxMHz, 3696.0);
    EXPECT_EQ(layout->eCoreMaxMHz, 2424.0);
}

TEST(CoreLayout, only_the_first_level_falls_back_on_the_machines_top_clock) {
    TwoLevels sysctl;
    sysctl.wide["hw.cpufrequency_max"] = 3'000'000'000;
    EXPECT_EQ(CoreLayout::sysctlMaxMHz(sysctl, 0), 3000.0);
    EXPECT_EQ(CoreLayout::sysctlMaxMHz(sysctl, 1), std::nullopt);
}

TEST(CoreLayout, a_top_clock_below_one_hertz_is_absent) {
    TwoLevels sysctl;
    sysctl.wide = {{"hw.perflevel0.cpufrequency_max", 0}, {"hw.cpufrequency_max", -1}};
    EXPECT_EQ(CoreLayout::sysctlMaxMHz(sysctl, 0), std::nullopt);
}

// A machine with the tables of both clusters and the top clocks that the kernel would tell.
struct Tabled : RegistryBench {
    Tabled() {
        sysctl.wide = {{"hw.perflevel0.cpufrequency_max", 1'000'000'000},
                       {"hw.perflevel1.cpufrequency_max", 2'000'000'000}};
        addCpu(addCpus(), 1, "E");
    }
    void addTables(std::vector<double> eSteps, std::vector<double> pSteps) {
        addPowerManager({{"voltage-states1-sram", encodeVoltageStates(eSteps, StepUnit::megahertz)},
                         {"voltage-states5-sram", encodeVoltageStates(pSteps, StepUnit::hertz)}});
    }
    CoreLayout detect() { return CoreLayout::detect(sysctl, port).value(); }

    TwoLevels sysctl;
};

TEST(CoreLayout, the_tables_and_their_last_steps_are_taken_before_the_kernels_values) {
    Tabled t;
    t.addTables({600, 2424, 2400}, {600, 3696});
    const auto layout = t.detect();
    EXPECT_EQ(layout.pCoreFrequencyStepsMHz, (std::vector<double>{600, 3696}));
    EXPECT_EQ(layout.eCoreFrequencyStepsMHz, (std::vector<double>{600, 2424, 2400}));
    EXPECT_EQ(layout.pCoreMaxMHz, 3696.0);
    EXPECT_EQ(layout.eCoreMaxMHz, 2400.0);  // the last, not the largest
    EXPECT_EQ(layout.clusterMap, (std::vector{ClusterType::performance, ClusterType::efficiency}));
}

TEST(CoreLayout, a_cluster_without_a_table_has_the_kernels_top_clock) {
    Tabled t;
    t.addTables({}, {600, 3696});
    EXPECT_EQ(t.detect().pCoreMaxMHz, 3696.0);
    EXPECT_EQ(t.detect().eCoreMaxMHz, 2000.0);
    Tabled other;
    other.addTables({600, 2424}, {});
    EXPECT_EQ(other.detect().pCoreMaxMHz, 1000.0);
    EXPECT_EQ(other.detect().eCoreMaxMHz, 2424.0);
}

TEST(CoreLayout, a_table_of_one_step_is_enough_for_a_top_clock) {
    Tabled t;
    t.addTables({700}, {900});
    EXPECT_EQ(t.detect().pCoreMaxMHz, 900.0);
    EXPECT_EQ(t.detect().eCoreMaxMHz, 700.0);
}

TEST(CoreLayout, one_level_has_no_top_clock_of_efficiency_cores_even_with_their_table) {
    Tabled t;
    t.sysctl.narrow["hw.nperflevels"] = 1;
    t.addTables({600, 2424}, {600, 3696});
    EXPECT_EQ(t.detect().eCoreMaxMHz, std::nullopt);
    EXPECT_EQ(t.detect().eCoreFrequencyStepsMHz.size(), 2U);
    EXPECT_EQ(t.detect().pCoreMaxMHz, 3696.0);
}

TEST(CoreLayout, without_levels_the_devices_are_not_even_asked) {
    Tabled t;
    t.sysctl.narrow.erase("hw.nperflevels");
    t.addTables({600, 2424}, {600, 3696});
    const auto layout = t.detect();
    EXPECT_EQ(layout.pCoreMaxMHz, 1000.0);
    EXPECT_TRUE(layout.pCoreFrequencyStepsMHz.empty());
    EXPECT_TRUE(layout.eCoreFrequencyStepsMHz.empty());
    EXPECT_TRUE(layout.clusterMap.empty());
    EXPECT_EQ(t.instruments.counter.totalCalls(), 0U);
}

}  // namespace
}  // namespace vtx
