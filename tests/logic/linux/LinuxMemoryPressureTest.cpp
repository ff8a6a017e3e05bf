// SPDX-License-Identifier: MIT
#include "platform/linux/LinuxMemoryPressure.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>

#include "linux/FakeRunLoop.h"
#include "linux/SteadyMemory.h"
#include "linux/TemporaryTree.h"

namespace vtx::test {
namespace {

using namespace std::chrono_literals;

constexpr std::uint32_t allLevels =
    memoryPressureNormal | memoryPressureWarn | memoryPressureCritical;

/// Hands out descriptors that are never ready, or the writing ends of pipes that nobody reads.
struct FakeTriggers final : PressureTriggers {
    bool isRefused = false;
    bool isOnlyFirstTaken = false;
    bool hasFailed = false;
    std::vector<std::string> asked;

    FileDescriptor open(const char* trigger) override {
        asked.emplace_back(trigger);
        if (isRefused || (isOnlyFirstTaken && asked.size() > 1)) return {};
        if (!hasFailed) return FileDescriptor(::eventfd(0, EFD_CLOEXEC));
        std::array<int, 2> ends{};
        EXPECT_EQ(::pipe(ends.data()), 0);
        ::close(ends[0]);
        return FileDescriptor(ends[1]);
    }
};

/// A machine whose stalls a test writes.
struct Machine {
    Machine() {
        stall(0, 0);
        tree.write("/proc/meminfo", "MemTotal: 9 kB\nMemFree: 8 kB\nMemAvailable: 8 kB\n");
    }
    void write(double some, double full, std::uint64_t someMicros, std::uint64_t fullMicros) const {
        tree.write("/proc/pressure/memory",
                   fmt::format("some avg10={:.2f} avg60=0.00 avg300=0.00 total={}\n"
                               "full avg10={:.2f} avg60=0.00 avg300=0.00 total={}\n",
                               some, someMicros, full, fullMicros));
    }
    /// Microseconds of stall more than before.
    void stall(std::uint64_t some, std::uint64_t full) {
        someTotal += some;
        fullTotal += full;
        write(0, 0, someTotal, fullTotal);
    }
    void start(std::uint32_t mask = allLevels) {
        source = pressure.create(mask);
        source->setEventHandler([this](std::uint32_t data) { told.push_back(data); });
        source->activate();
    }
    void sample() { static_cast<void>(memory.read()); }

    TemporaryTree tree;
    std::uint64_t someTotal = 0, fullTotal = 0;
    LinuxRoot root{tree.path()};
    ManualClock clock;
    FakeRunLoop loop;
    FakeTriggers triggers;
    NoChanges changes;
    MemInfoReader memory{root, clock, changes};
    LinuxMemoryPressure pressure{root, loop, clock, triggers, memory};
    std::vector<std::uint32_t> told;
    std::unique_ptr<MemoryPressureSource> source;
};

using Told = std::vector<std::uint32_t>;

TEST(LinuxMemoryPressure, asks_for_windows_that_everybody_may_ask_for_and_then_waits) {
    Machine m;
    m.start();
    EXPECT_EQ(m.triggers.asked,
              (std::vector<std::string>{"some 150000 2000000", "full 200000 2000000"}));
    ASSERT_EQ(m.loop.watched(), 2U);
    EXPECT_EQ(m.loop.events(0), POLLPRI);
    EXPECT_EQ(m.told, Told{});
    EXPECT_TRUE(m.clock.pending().empty()) << "nothing wakes while nothing happens";
}

TEST(LinuxMemoryPressure, a_trigger_that_fires_is_told_at_once) {
    Machine m;
    m.start();
    m.loop.fire(0);
    EXPECT_EQ(m.told, Told{memoryPressureWarn});
    m.loop.fire(1);
    EXPECT_EQ(m.told, (Told{memoryPressureWarn, memoryPressureCritical}));
    m.loop.fire(0);
    EXPECT_EQ(m.told.size(), 2U) << "the lesser level is in force as well";
}

TEST(LinuxMemoryPressure, a_calm_window_after_an_event_is_told_as_normal_and_ends_the_looks) {
    Machine m;
    m.start();
    m.loop.fire(0);
    m.stall(74'000, 0);
    m.clock.advanceBy(2s);
    EXPECT_EQ(m.told, (Told{memoryPressureWarn, memoryPressureNormal}));
    EXPECT_TRUE(m.clock.pending().empty());
    m.loop.fire(0);
    EXPECT_EQ(m.told.back(), memoryPressureWarn) << "the next event counts again";
}

TEST(LinuxMemoryPressure, while_tasks_go_on_stalling_the_level_stays) {
    Machine m;
    m.start();
    m.loop.fire(0);
    for (int window = 0; window < 5; ++window) {
        m.stall(76'000, 0);
        m.clock.advanceBy(2s);
        EXPECT_EQ(m.told, Told{memoryPressureWarn}) << window;
        EXPECT_EQ(m.clock.pending().size(), 1U);
    }
    m.clock.advanceBy(2s);
    EXPECT_EQ(m.told, (Told{memoryPressureWarn, memoryPressureNormal}));
}

TEST(LinuxMemoryPressure, a_level_comes_down_by_steps_and_up_again) {
    Machine m;
    m.start();
    m.loop.fire(1);
    m.stall(400'000, 90'000);
    m.clock.advanceBy(2s);
    EXPECT_EQ(m.told, (Told{memoryPressureCritical, memoryPressureWarn}));
    m.stall(400'000, 210'000);
    m.clock.advanceBy(2s);
    EXPECT_EQ(m.told.back(), memoryPressureCritical);
    m.clock.advanceBy(2s);
    EXPECT_EQ(m.told.back(), memoryPressureNormal);
}

TEST(LinuxMemoryPressure, a_sleep_of_the_machine_does_not_count_as_a_stall) {
    Machine m;
    m.start();
    m.loop.fire(0);
    m.stall(100'000, 0);
    m.clock.sleepMachine(3600s);
    m.clock.advanceBy(1s);
    EXPECT_EQ(m.told, (Told{memoryPressureWarn, memoryPressureNormal}));
}

TEST(LinuxMemoryPressure, totals_that_cannot_be_read_after_an_event_end_it) {
    Machine m;
    m.start();
    m.tree.write("/proc/pressure/memory", "nonsense");
    m.loop.fire(1);
    m.clock.advanceBy(2s);
    EXPECT_EQ(m.told, (Told{memoryPressureCritical, memoryPressureNormal}));
    EXPECT_TRUE(m.clock.pending().empty());
}

TEST(LinuxMemoryPressure, where_triggers_are_refused_the_averages_come_with_the_memorys_samples) {
    for (const bool firstTaken : {false, true}) {
        Machine m;
        (firstTaken ? m.triggers.isOnlyFirstTaken : m.triggers.isRefused) = true;
        m.start();
        EXPECT_EQ(m.loop.watched(), 0U);
        m.write(7.49, 0, 0, 0);
        m.sample();
        EXPECT_EQ(m.told, Told{});
        m.write(7.5, 0, 0, 0);
        EXPECT_EQ(m.told, Told{}) << "nobody sampled it";
        m.sample();
        EXPECT_EQ(m.told, Told{memoryPressureWarn});
        m.write(40, 10, 0, 0);
        m.sample();
        EXPECT_EQ(m.told.back(), memoryPressureCritical);
        m.write(3.74, 5, 0, 0);
        m.sample();
        EXPECT_EQ(m.told.size(), 2U) << "not calm yet";
        m.write(3.74, 4.99, 0, 0);
        m.sample();
        EXPECT_EQ(m.told, (Told{memoryPressureWarn, memoryPressureCritical, memoryPressureNormal}));
        EXPECT_TRUE(m.clock.pending().empty());
    }
}

TEST(LinuxMemoryPressure, damaged_averages_change_nothing) {
    Machine m;
    m.triggers.isRefused = true;
    m.start();
    m.write(50, 0, 0, 0);
    m.sample();
    for (const auto* text : {"", "some", "some avg10=99.00 total=1\n", "full avg10=x total=1\n"}) {
        m.tree.write("/proc/pressure/memory", text);
        m.sample();
        EXPECT_EQ(m.told, Told{memoryPressureWarn}) << text;
    }
}

TEST(LinuxMemoryPressure, a_kernel_without_the_file_stays_normal_and_is_not_asked_again) {
    Machine m;
    m.tree.remove("/proc/pressure");
    m.triggers.isRefused = true;
    m.start();
    m.write(90, 90, 0, 0);
    m.sample();
    EXPECT_EQ(m.told, Told{});
}

TEST(LinuxMemoryPressure, a_trigger_that_the_kernel_took_away_is_not_listened_to_for_ever) {
    Machine m;
    m.triggers.hasFailed = true;
    m.start();
    m.loop.fire(0);
    EXPECT_EQ(m.told, Told{});
    EXPECT_EQ(m.loop.watched(), 0U);
    m.write(50, 0, 0, 0);
    m.sample();
    EXPECT_EQ(m.told, Told{memoryPressureWarn}) << "the averages go on in its place";
}

TEST(LinuxMemoryPressure, once_cancelled_nothing_is_told_nor_kept) {
    for (const bool refused : {false, true}) {
        Machine m;
        m.triggers.isRefused = refused;
        m.start();
        if (!refused) m.loop.fire(0);
        m.source->cancel();
        m.told.clear();
        m.write(90, 90, 9'000'000, 9'000'000);
        m.sample();
        m.clock.advanceBy(10s);
        EXPECT_EQ(m.told, Told{});
        EXPECT_EQ(m.loop.watched(), 0U);
        EXPECT_TRUE(m.clock.pending().empty());
        m.source.reset();
    }
}

TEST(LinuxMemoryPressure, levels_outside_of_the_mask_are_not_told) {
    Machine m;
    m.start(memoryPressureCritical);
    m.loop.fire(0);
    m.clock.advanceBy(2s);
    EXPECT_EQ(m.told, Told{});
    m.loop.fire(1);
    EXPECT_EQ(m.told, Told{memoryPressureCritical});
}

TEST(KernelPressureTriggers, a_recorded_file_is_left_as_it_is) {
    const Machine m;
    const auto before = contentsOf(m.tree / "proc/pressure/memory");
    EXPECT_FALSE(KernelPressureTriggers(m.root).open("some 150000 2000000"));
    EXPECT_EQ(contentsOf(m.tree / "proc/pressure/memory"), before);
}

}  // namespace
}  // namespace vtx::test
