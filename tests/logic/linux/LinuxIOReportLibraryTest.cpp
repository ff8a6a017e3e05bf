// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxIOReportLibrary.h"

#include <fmt/format.h>
#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>

#include "linux/SteadyMemory.h"
#include "linux/TemporaryTree.h"
#include "platform/linux/LinuxIORegistry.h"
#include "platform/linux/LinuxSysctl.h"
#include "platform/simulated/ManualClock.h"
#include "telemetry/CPUClockMonitorEngine.h"
#include "telemetry/IOReportBridge.h"

namespace vtx::test {
namespace {

constexpr const char* libraryPath = "/usr/lib/libIOReport.dylib";

/// A recorded machine or a tree, and the clocks that the logic makes of it.
struct Machine {
    explicit Machine(const std::string& folder)
        : root(folder),
          processors(root),
          cpuFreq(root, processors),
          registry(processors, cpuFreq),
          memory(root),
          sysctl(root, processors, memory.reader),
          library(root, processors, cpuFreq) {}

    [[nodiscard]] bool isThere() { return library.open(libraryPath, 10) != nullptr; }

    void start() {
        auto bridge = IOReportBridge::load(library, clock);
        ASSERT_TRUE(bridge);
        auto subscription = bridge->makeCPUFrequencySubscription();
        const auto layout = CoreLayout::detect(sysctl, registry);
        ASSERT_TRUE(subscription && layout);
        engine.emplace(std::move(bridge), std::move(*subscription), *layout);
        EXPECT_FALSE(engine->nextSample());
    }
    [[nodiscard]] std::optional<double> p() { return take().pCoreMHz; }
    [[nodiscard]] ClusterClockSample take() {
        return engine->nextSample().value_or(ClusterClockSample{});
    }

    ManualClock clock;
    LinuxRoot root;
    LinuxProcessors processors;
    CpuFreq cpuFreq;
    LinuxIORegistry registry;
    SteadyMemory memory;
    LinuxSysctl sysctl;
    LinuxIOReportLibrary library;
    std::optional<CPUClockMonitorEngine> engine;
};

/// Four processors: 0 and 1 fast and 2 and 3 efficient, each pair with one clock.
struct CoreClocks : testing::Test {
    CoreClocks() {
        tree.write("/sys/devices/system/cpu/present", "0-3\n");
        tree.write("/sys/devices/cpu_core/cpus", "0-1\n");
        tree.write("/sys/devices/cpu_atom/cpus", "2-3\n");
        set(0, "related_cpus", "0 1\n");
        set(2, "related_cpus", "2 3\n");
        for (const int policy : {0, 2}) {
            set(policy, "cpuinfo_min_freq", "1000000\n");
            set(policy, "cpuinfo_max_freq", policy == 0 ? "3000000\n" : "2000000\n");
            set(policy, "scaling_available_frequencies",
                policy == 0 ? "1000000 2000000 3000000\n" : "1000000 2000000\n");
        }
        writeTicks();
    }

    void set(int policy, std::string_view file, std::string_view text) const {
        tree.write(fmt::format("/sys/devices/system/cpu/cpufreq/policy{}/{}", policy, file), text);
    }
    void removeFile(int policy, std::string_view file) const {
        tree.remove(fmt::format("/sys/devices/system/cpu/cpufreq/policy{}/{}", policy, file));
    }
    void setTimes(int at1000, int at2000, int at3000) const {
        set(0, "stats/time_in_state",
            fmt::format("1000000 {}\n2000000 {}\n3000000 {}\n", at1000, at2000, at3000));
    }
    void setCurrent(int policy, int kHz) const {
        set(policy, "scaling_cur_freq", fmt::format("{}\n", kHz));
    }
    /// These processors run for half a second, the others not at all.
    void run(std::initializer_list<std::size_t> places) {
        for (const auto place : places) busy.at(place) += 50;
        writeTicks();
    }
    void writeTicks() const {
        std::string text = "cpu  0 0 0 0\n";
        for (std::size_t i = 0; i < busy.size(); ++i)
            text += fmt::format("cpu{} {} 0 0 1000 0 0 0 0 0 0\n", i, busy.at(i));
        tree.write("/proc/stat", text + "intr 0\n");
    }

    TemporaryTree tree;
    std::array<int, 4> busy{};
};

TEST(LinuxIOReportLibrary, is_not_there_on_a_machine_without_cpufreq) {
    EXPECT_FALSE(Machine(fixture("virtual-server-6.18")).isThere());
    EXPECT_FALSE(Machine(TemporaryTree().path()).isThere());
}

TEST(LinuxIOReportLibrary, is_there_on_machines_that_tell_a_clock) {
    for (const auto* name : {"intel-hybrid-laptop-6.12", "arm-big-little-board-6.6",
                             "arm-three-tier-6.10", "amd-two-gpus-laptop-6.15"}) {
        Machine machine(fixture(name));
        EXPECT_TRUE(machine.isThere()) << name;
        EXPECT_FALSE(machine.library.open("/usr/lib/libother.so", 10));
    }
}

TEST(LinuxIOReportLibrary, has_a_channel_for_each_processor_that_has_a_clock) {
    Machine laptop(fixture("intel-hybrid-laptop-6.12"));
    const auto library = laptop.library.open(libraryPath, 10);
    const auto found = library->copyChannelsInGroup("CPU Stats", std::nullopt);
    ASSERT_TRUE(found);
    std::string names;
    for (std::size_t i = 0; i < *library->channelCount(*found); ++i)
        names.append(*library->channelName(*library->channel(*found, i))).append(" ");
    // Processor 3 is offline.
    EXPECT_EQ(names,
              "PCPU0 PCPU1 PCPU2 PCPU4 PCPU5 PCPU6 PCPU7 ECPU8 ECPU9 ECPU10 ECPU11 ECPU12 ECPU13 "
              "ECPU14 ECPU15 ");
    EXPECT_FALSE(library->channel(*found, 15));
}

TEST(LinuxIOReportLibrary, has_no_other_group_and_no_other_symbol) {
    Machine laptop(fixture("intel-hybrid-laptop-6.12"));
    const auto library = laptop.library.open(libraryPath, 10);
    EXPECT_FALSE(library->copyChannelsInGroup("Energy Model", std::nullopt));
    EXPECT_FALSE(library->copyChannelsInGroup("CPU Stats", "CPU Complex Performance States"));
    EXPECT_TRUE(library->resolve("IOReportStateGetResidency"));
    EXPECT_FALSE(library->resolve("IOReportStateGetColour"));
}

TEST(LinuxIOReportLibrary, a_channel_has_idle_and_then_its_steps) {
    Machine board(fixture("arm-big-little-board-6.6"));
    const auto library = board.library.open(libraryPath, 10);
    const auto found = library->copyChannelsInGroup("CPU Stats", "CPU Core Performance States");
    const auto channel = library->channel(*found, 0).value();
    EXPECT_EQ(library->stateCount(channel), 7);
    EXPECT_EQ(library->stateName(channel, 0), "IDLE");
    EXPECT_EQ(library->stateName(channel, 6), "P6");
    for (const std::int32_t index : {-1, 7, 1 << 30}) {
        EXPECT_FALSE(library->stateName(channel, index));
        EXPECT_EQ(library->stateResidency(channel, index), 0);
    }
}

TEST(LinuxIOReportLibrary, a_core_of_a_middle_cluster_has_a_clock_of_its_own_cluster) {
    const TemporaryTree tree;
    std::filesystem::copy(
        fixture("arm-three-tier-6.10"), tree.path(),
        std::filesystem::copy_options::recursive | std::filesystem::copy_options::copy_symlinks);
    Machine machine(tree.path());
    machine.start();
    auto stat = machine.root.read("/proc/stat").value();
    const std::string line = "cpu4 1040 ";
    ASSERT_NE(stat.find(line), std::string::npos);
    tree.write("/proc/stat", stat.replace(stat.find(line), line.size(), "cpu4 1090 "));
    EXPECT_EQ(machine.p(), 1190.4);
}

TEST_F(CoreClocks, are_weighted_with_the_times_at_each_clock) {
    setTimes(0, 500, 7);
    Machine machine(tree.path());
    machine.start();
    run({0});
    setTimes(75, 500, 32);
    EXPECT_DOUBLE_EQ(*machine.p(), 0.75 * 1000 + 0.25 * 3000);
}

TEST_F(CoreClocks, are_those_of_running_time_only) {
    setTimes(0, 0, 0);
    Machine machine(tree.path());
    machine.start();
    setTimes(100, 0, 0);
    EXPECT_FALSE(machine.p());
    run({0});
    setTimes(100, 0, 100);
    EXPECT_EQ(machine.p(), 3000.0);
}

TEST_F(CoreClocks, of_a_core_that_was_idle_do_not_count) {
    setCurrent(0, 2'000'000);
    setCurrent(2, 1'000'000);
    Machine machine(tree.path());
    machine.start();
    run({1});
    const auto sample = machine.take();
    EXPECT_EQ(sample.pCoreMHz, 2000.0);
    EXPECT_FALSE(sample.eCoreMHz);
}

TEST_F(CoreClocks, of_each_cluster_are_its_own) {
    setCurrent(0, 3'000'000);
    setCurrent(2, 1'000'000);
    Machine machine(tree.path());
    machine.start();
    run({0, 3});
    const auto sample = machine.take();
    EXPECT_EQ(sample.pCoreMHz, 3000.0);
    EXPECT_EQ(sample.eCoreMHz, 1000.0);
}

TEST_F(CoreClocks, that_are_current_are_averaged_and_booked_on_the_nearest_step) {
    setCurrent(0, 2'200'000);
    Machine machine(tree.path());
    machine.start();
    run({0});
    setCurrent(0, 2'900'000);  // 2550 on average
    EXPECT_EQ(machine.p(), 3000.0);
    run({0});
    setCurrent(0, 1'900'000);  // 2400 on average
    EXPECT_EQ(machine.p(), 2000.0);
}

TEST_F(CoreClocks, above_the_highest_step_are_booked_on_it) {
    setCurrent(0, 3'400'000);
    Machine machine(tree.path());
    machine.start();
    run({0});
    EXPECT_EQ(machine.p(), 3000.0);
}

TEST_F(CoreClocks, of_a_cluster_without_steps_are_left_out) {
    setCurrent(0, 2'000'000);
    setCurrent(2, 2'000'000);
    removeFile(2, "scaling_available_frequencies");
    removeFile(2, "cpuinfo_max_freq");
    Machine machine(tree.path());
    machine.start();
    run({0, 2});
    const auto sample = machine.take();
    EXPECT_EQ(sample.pCoreMHz, 2000.0);
    EXPECT_EQ(sample.eCoreMHz, std::nullopt);
}

TEST_F(CoreClocks, of_damaged_times_at_the_start_come_from_the_current_clock) {
    set(0, "stats/time_in_state", "junk\n");
    setCurrent(0, 2'000'000);
    Machine machine(tree.path());
    machine.start();
    run({0});
    EXPECT_EQ(machine.p(), 2000.0);
}

TEST_F(CoreClocks, before_an_idle_interval_are_not_averaged_into_the_next) {
    setCurrent(0, 3'000'000);
    Machine machine(tree.path());
    machine.start();
    EXPECT_FALSE(machine.p());
    run({0});
    setCurrent(0, 1'000'000);
    EXPECT_EQ(machine.p(), 1000.0);
}

TEST_F(CoreClocks, that_the_kernel_averages_are_taken_as_they_are) {
    setCurrent(0, 1'000'000);
    set(0, "cpuinfo_avg_freq", "3000000\n");
    Machine machine(tree.path());
    machine.start();
    run({0});
    EXPECT_EQ(machine.p(), 3000.0);
    // Without an answer of its own the kernel's current clock serves.
    set(0, "cpuinfo_avg_freq", "<unknown>\n");
    run({0});
    EXPECT_EQ(machine.p(), 1000.0);
}

TEST_F(CoreClocks, before_an_interval_that_the_kernel_averaged_do_not_count_after_it) {
    setCurrent(0, 3'000'000);
    set(0, "cpuinfo_avg_freq", "<unknown>\n");
    Machine machine(tree.path());
    machine.start();
    run({0});
    set(0, "cpuinfo_avg_freq", "2000000\n");
    EXPECT_EQ(machine.p(), 2000.0);
    run({0});
    set(0, "cpuinfo_avg_freq", "<unknown>\n");
    setCurrent(0, 1'000'000);
    EXPECT_EQ(machine.p(), 1000.0);
}

TEST_F(CoreClocks, of_two_intervals_are_told_apart) {
    setTimes(0, 0, 0);
    Machine machine(tree.path());
    machine.start();
    run({0});
    setTimes(100, 0, 0);
    EXPECT_EQ(machine.p(), 1000.0);
    run({0});
    setTimes(100, 100, 0);
    EXPECT_EQ(machine.p(), 2000.0);
}

TEST_F(CoreClocks, are_absent_for_the_interval_in_which_the_times_were_reset) {
    setTimes(500, 500, 500);
    Machine machine(tree.path());
    machine.start();
    run({0});
    setTimes(0, 0, 600);
    EXPECT_FALSE(machine.p());
    run({0});
    setTimes(0, 100, 600);
    EXPECT_EQ(machine.p(), 2000.0);
}

TEST_F(CoreClocks, are_absent_while_the_times_are_damaged) {
    for (const auto* text :
         {"", "\n", "junk\n", "1000000 100\n2000000 1", "1000000 900\n",
          "1000000 900\n2000000 -1\n3000000 0\n", "1000000 900\n2500000 0\n3000000 0\n"}) {
        setTimes(0, 0, 0);
        Machine machine(tree.path());
        machine.start();
        run({0});
        set(0, "stats/time_in_state", text);
        EXPECT_FALSE(machine.p()) << text;
    }
}

TEST_F(CoreClocks, are_absent_while_the_current_clock_is_none) {
    setCurrent(0, 2'000'000);
    Machine machine(tree.path());
    machine.start();
    for (const auto* text : {"", "0\n", "-5\n", "junk\n", "2000000000000\n", "<unsupported>\n"}) {
        run({0});
        set(0, "scaling_cur_freq", text);
        EXPECT_FALSE(machine.p()) << text;
    }
    removeFile(0, "scaling_cur_freq");
    run({0});
    EXPECT_FALSE(machine.p());
}

TEST_F(CoreClocks, of_processors_that_were_offline_at_start_are_told_once_they_are_online) {
    tree.remove("/sys/devices/cpu_core");
    tree.remove("/sys/devices/cpu_atom");
    setCurrent(0, 1'000'000);
    // What the kernel refuses to tell of them is there all the same; a folder refuses too.
    const std::filesystem::path processors = tree.path() + "/sys/devices/system/cpu";
    std::filesystem::remove_all(processors / "cpufreq/policy2");
    for (const auto* file : {"related_cpus", "scaling_cur_freq", "cpuinfo_max_freq"})
        std::filesystem::create_directories(processors / "cpufreq/policy2" / file);
    for (const auto* processor : {"cpu2", "cpu3"}) {
        std::filesystem::create_directory(processors / processor);
        std::filesystem::create_symlink("../cpufreq/policy2", processors / processor / "cpufreq");
    }
    Machine machine(tree.path());
    machine.start();
    run({2, 3});
    EXPECT_EQ(machine.p(), std::nullopt);
    removeFile(2, "scaling_cur_freq");
    setCurrent(2, 3'000'000);
    run({2, 3});
    EXPECT_EQ(machine.p(), 3000.0);
}

TEST_F(CoreClocks, need_the_processors_counters) {
    setCurrent(0, 2'000'000);
    Machine machine(tree.path());
    machine.start();
    tree.write("/proc/stat", "");
    EXPECT_FALSE(machine.p());
    run({0});
    EXPECT_EQ(machine.p(), 2000.0);
}

TEST_F(CoreClocks, are_not_asked_for_where_no_policy_tells_one) {
    EXPECT_FALSE(Machine(tree.path()).isThere());
    setCurrent(0, 0);
    EXPECT_FALSE(Machine(tree.path()).isThere());
    setCurrent(0, 1'000'000);
    EXPECT_TRUE(Machine(tree.path()).isThere());
}

TEST_F(CoreClocks, of_two_subscriptions_do_not_mix) {
    setTimes(0, 0, 0);
    Machine first(tree.path());
    first.start();
    run({0});
    setTimes(100, 0, 0);
    Machine second(tree.path());
    second.start();
    run({0});
    setTimes(100, 0, 300);
    EXPECT_EQ(first.p(), 2500.0);
    EXPECT_EQ(second.p(), 3000.0);
}

}  // namespace
}  // namespace vtx::test
