// SPDX-License-Identifier: MIT
#include "memory/MemoryPressureService.h"

#include <gtest/gtest.h>

#include "base/TaskScope.h"
#include "platform/MemoryPressureSource.h"
#include "platform/simulated/Operations.h"
#include "support/CoordinatorBench.h"

namespace vtx {
namespace {

using Pressure = MemoryStats::Pressure;
using Event = MemoryPressureService::Event;

constexpr auto category = "MemoryPressureService";
constexpr std::uint64_t mebibyte = 1 << 20;

// A service on a bench, attached to a monitor and to a manager of processes.
struct Pressed {
    TestBench bench;
    std::optional<MemoryMonitor> memory{std::in_place, bench.ports(), bench.executors()};
    std::optional<ProcessManager> processes{std::in_place, bench.ports(), bench.executors()};
    MemoryPressureService service{bench.ports(), bench.executors(), &*memory, &*processes};
    TaskScope tasks{bench.main};

    void press(Pressure level) {
        memory->pressure = level;
        bench.settle();
    }
    void fill(std::uint64_t used, std::uint64_t total) {
        MemoryStats stats;
        stats.usedBytes = used;
        stats.totalBytes = total;
        memory->latest = stats;
    }
    void run(std::vector<SimulatedProcess> all) {
        bench.mac.processes.removeAll();
        for (auto& process : all) bench.mac.processes.add(std::move(process));
        tasks.spawn([this](std::stop_token) { return processes->refresh(); });
        bench.settle();
    }
    [[nodiscard]] std::vector<std::string> targets(std::size_t limit) const {
        std::vector<std::string> names;
        for (const auto& process : service.suggestedCleanupTargets(limit))
            names.push_back(process.name);
        return names;
    }
    [[nodiscard]] std::size_t reliefs() const {
        return bench.platform.calls(operations::mallocZonePressureRelief);
    }
};

SimulatedProcess sized(std::string name, std::uint64_t mebibytes) {
    static std::int32_t pid = 1000;
    SimulatedProcess process;
    process.pid = ++pid;
    process.uid = SimulatedProcesses::user;
    process.path = "/Applications/" + name;
    process.name = std::move(name);
    process.residentBytes = mebibytes * mebibyte;
    return process;
}

TEST(MemoryPressureService, a_change_of_level_is_an_event_one_turn_later) {
    Pressed p;
    p.memory->pressure = Pressure::warning;
    EXPECT_TRUE(p.service.events->empty());
    p.bench.settle();
    ASSERT_EQ(p.service.events->size(), 1U);
    const Event& event = p.service.events->front();
    EXPECT_EQ(event.from, Pressure::normal);
    EXPECT_EQ(event.to, Pressure::warning);
    EXPECT_EQ(event.timestamp, p.bench.clock.now());
    EXPECT_EQ(event.usedFraction, 0.0);
}

TEST(MemoryPressureService, events_are_told_apart_and_stand_newest_first) {
    Pressed p;
    p.press(Pressure::warning);
    p.press(Pressure::critical);
    const auto& events = *p.service.events;
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0].from, Pressure::warning);
    EXPECT_EQ(events[0].to, Pressure::critical);
    EXPECT_NE(events[0].id, events[1].id);
    EXPECT_EQ(events[0], Event(events[0]));
    EXPECT_NE(events[0], events[1]);
}

TEST(MemoryPressureService, the_sixty_fifth_event_pushes_out_the_oldest) {
    Pressed p;
    for (int i = 0; i < 64; ++i) p.press(i % 2 == 0 ? Pressure::warning : Pressure::normal);
    EXPECT_EQ(p.service.events->size(), 64U);
    const UUID second = p.service.events->at(62).id;
    p.press(Pressure::critical);
    EXPECT_EQ(p.service.events->size(), 64U);
    EXPECT_EQ(p.service.events->front().to, Pressure::critical);
    EXPECT_EQ(p.service.events->back().id, second);
}

TEST(MemoryPressureService, the_level_handled_already_is_no_event_and_no_relief) {
    Pressed p;
    p.service.autoRelieveOnPressure = true;
    p.press(Pressure::warning);
    p.press(Pressure::warning);
    p.service.handlePressureChange(Pressure::warning);
    EXPECT_EQ(p.service.events->size(), 1U);
    EXPECT_EQ(p.reliefs(), 1U);
}

TEST(MemoryPressureService, relieves_on_every_change_but_the_return_to_normal) {
    Pressed p;
    p.service.autoRelieveOnPressure = true;
    p.press(Pressure::warning);
    EXPECT_EQ(p.reliefs(), 1U);
    p.press(Pressure::critical);
    EXPECT_EQ(p.reliefs(), 2U);
    p.press(Pressure::warning);
    EXPECT_EQ(p.reliefs(), 3U);
    p.press(Pressure::normal);
    EXPECT_EQ(p.reliefs(), 3U);
}

TEST(MemoryPressureService, without_the_preference_relief_is_for_the_button_alone) {
    Pressed p;
    p.press(Pressure::critical);
    EXPECT_EQ(*p.service.lastReliefAt, std::nullopt);
    p.bench.platform.heapRelief.unusedBytes = 12345;
    EXPECT_EQ(p.service.relieveOwnProcess(), 12345);
    EXPECT_EQ(*p.service.lastReliefAt, p.bench.clock.now());
    EXPECT_EQ(*p.service.lastReliefBytesFreed, 12345);
    EXPECT_TRUE(
        p.bench.log.contains(LogLevel::info, category, "self pressure relief: ~12345 bytes"));
}

TEST(MemoryPressureService, a_relief_that_gave_nothing_is_recorded_like_any_other) {
    Pressed p;
    p.bench.platform.heapRelief.unusedBytes = 7;
    (void)p.service.relieveOwnProcess();
    p.bench.clock.advanceBy(seconds(9));
    EXPECT_EQ(p.service.relieveOwnProcess(), 0);
    EXPECT_EQ(*p.service.lastReliefBytesFreed, 0);
    EXPECT_EQ(*p.service.lastReliefAt, p.bench.clock.now());
}

TEST(MemoryPressureService, a_level_in_force_before_attaching_is_no_event) {
    TestBench bench;
    MemoryMonitor memory(bench.ports(), bench.executors());
    ProcessManager processes(bench.ports(), bench.executors());
    memory.pressure = Pressure::critical;
    MemoryPressureService service(bench.ports(), bench.executors(), &memory, &processes);
    service.autoRelieveOnPressure = true;
    bench.settle();
    EXPECT_TRUE(service.events->empty());
    EXPECT_EQ(*service.lastReliefAt, std::nullopt);
    memory.pressure = Pressure::warning;
    bench.settle();
    EXPECT_EQ(service.events->front().from, Pressure::critical);
}

TEST(MemoryPressureService, attaching_again_replaces_and_reads_the_level_without_an_event) {
    Pressed p;
    MemoryMonitor other(p.bench.ports(), p.bench.executors());
    other.pressure = Pressure::critical;
    p.service.attach(other, *p.processes);
    p.press(Pressure::warning);  // of the first monitor
    EXPECT_TRUE(p.service.events->empty());
    other.pressure = Pressure::normal;
    p.bench.settle();
    ASSERT_EQ(p.service.events->size(), 1U);
    EXPECT_EQ(p.service.events->front().from, Pressure::critical);
}

TEST(MemoryPressureService, attaches_only_where_both_are_given) {
    TestBench bench;
    MemoryMonitor memory(bench.ports(), bench.executors());
    MemoryPressureService service(bench.ports(), bench.executors(), &memory);
    memory.pressure = Pressure::critical;
    bench.settle();
    EXPECT_TRUE(service.events->empty());
    EXPECT_TRUE(service.suggestedCleanupTargets(3).empty());
    service.handlePressureChange(Pressure::warning);
    EXPECT_EQ(service.events->front().from, Pressure::normal);
}

TEST(MemoryPressureService, the_used_part_is_cut_to_whole_percent_in_the_log) {
    Pressed p;
    p.fill(734, 1000);
    p.press(Pressure::warning);
    EXPECT_DOUBLE_EQ(p.service.events->front().usedFraction, 0.734);
    EXPECT_TRUE(p.bench.log.contains(LogLevel::standard, category,
                                     "pressure normal → warning at used=73%"));
}

TEST(MemoryPressureService, the_used_part_lies_within_its_range_and_never_divides_by_nothing) {
    Pressed p;
    p.fill(2000, 1000);
    p.press(Pressure::warning);
    EXPECT_EQ(p.service.events->front().usedFraction, 1.0);
    p.fill(2000, 0);
    p.press(Pressure::critical);
    EXPECT_EQ(p.service.events->front().usedFraction, 0.0);
}

TEST(MemoryPressureService, goes_on_without_its_monitor_and_its_manager) {
    Pressed p;
    p.fill(500, 1000);
    p.memory.reset();
    p.processes.reset();
    p.service.handlePressureChange(Pressure::critical);
    EXPECT_EQ(p.service.events->front().usedFraction, 0.0);
    EXPECT_TRUE(p.service.suggestedCleanupTargets(3).empty());
}

TEST(MemoryPressureService, a_delivery_under_way_to_a_service_that_has_gone_is_nothing) {
    TestBench bench;
    MemoryMonitor memory(bench.ports(), bench.executors());
    ProcessManager processes(bench.ports(), bench.executors());
    {
        const MemoryPressureService service(bench.ports(), bench.executors(), &memory, &processes);
        memory.pressure = Pressure::critical;
    }
    bench.settle();
    EXPECT_TRUE(bench.log.lines(category).empty());
}

TEST(CleanupTargets, are_the_largest_of_the_users_own) {
    Pressed p;
    p.run({sized("b", 200), sized("e", 1), sized("a", 900), sized("d", 30), sized("c", 100)});
    EXPECT_EQ(p.targets(3), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_EQ(p.targets(0), std::vector<std::string>{});
    EXPECT_EQ(p.targets(100).size(), 5U);
}

TEST(CleanupTargets, of_one_size_stand_as_they_do_in_the_list) {
    Pressed p;
    p.run({sized("b", 100), sized("a", 100), sized("d", 200), sized("c", 100)});
    EXPECT_EQ(p.targets(4), (std::vector<std::string>{"d", "a", "b", "c"}));
    EXPECT_EQ(p.targets(2), (std::vector<std::string>{"d", "a"}));
}

TEST(CleanupTargets, are_nobody_elses_and_not_the_systems) {
    Pressed p;
    auto others = sized("others", 900);
    others.uid = 0;
    auto pathless = sized("pathless", 900);
    pathless.path.clear();
    auto desktop = sized("desktop", 900);
    desktop.isSystemSoftware = true;
    std::vector<SimulatedProcess> all{others, pathless, desktop};
    for (const auto* folder :
         {"/System/", "/usr/libexec/", "/usr/sbin/", "/usr/bin/", "/sbin/", "/bin/"}) {
        auto system = sized("system", 900);
        system.path = std::string(folder) + "system";
        all.push_back(system);
    }
    p.run(all);
    EXPECT_TRUE(p.targets(3).empty());
    auto local = sized("local", 1);
    local.path = "/usr/local/bin/local";
    auto packaged = sized("packaged", 2);
    packaged.path = "/usr/bin/packaged";
    packaged.isSystemSoftware = false;
    all.push_back(local);
    all.push_back(packaged);
    p.run(all);
    EXPECT_EQ(p.targets(3), (std::vector<std::string>{"packaged", "local"}));
}

TEST(CleanupTargets, of_an_empty_list_are_none) {
    Pressed p;
    EXPECT_TRUE(p.targets(3).empty());
}

TEST(PressureInTheCoordinator, is_attached_from_the_start_with_the_stored_preference) {
    DisplayPreferences stored;
    stored.autoRelieveOnPressure = true;
    SimulatedUserDefaults writer;
    stored.save(writer);
    CoordinatorBench b(writer.stored);
    EXPECT_TRUE(*b.coordinator.memoryPressure.autoRelieveOnPressure);
    b.mac.memory.setPressure(memoryPressureWarn);
    b.settle();
    EXPECT_EQ(b.coordinator.memoryPressure.events->size(), 1U);
    EXPECT_EQ(b.platform.calls(operations::mallocZonePressureRelief), 1U);
}

TEST(PressureInTheCoordinator, follows_the_preference_and_is_told_only_where_it_changes) {
    CoordinatorBench b;
    int told = 0;
    const auto token =
        b.coordinator.memoryPressure.autoRelieveOnPressure.subscribe([&told](bool) { ++told; });
    b.change([](auto& p) { p.showGPU = true; });
    EXPECT_EQ(told, 1);  // the value at the subscription
    b.change([](auto& p) { p.autoRelieveOnPressure = true; });
    EXPECT_TRUE(*b.coordinator.memoryPressure.autoRelieveOnPressure);
    EXPECT_EQ(told, 2);
}

}  // namespace
}  // namespace vtx
