// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedMemory.h"

#include <gtest/gtest.h>

#include <set>

#include "platform/MemoryPressureSource.h"
#include "platform/simulated/ManualClock.h"

namespace vtx {
namespace {

using namespace std::chrono_literals;

std::uint64_t sum(const VMPageCounts& p) {
    return p.free + p.active + p.inactive + p.wired + p.speculative + p.compressor;
}

TEST(SimulatedMemory, a_living_one_moves_within_what_the_machine_has) {
    ManualClock clock;
    SimulatedMemory memory(clock);
    memory.live(1);
    std::set<std::uint64_t> seen;
    for (int i = 0; i < 200; ++i) {
        clock.advanceBy(30s);
        const auto pages = memory.pages();
        EXPECT_LE(sum(pages) * SimulatedMemory::pageSize, SimulatedMemory::totalBytes);
        EXPECT_LE(memory.swap().used, memory.swap().total);
        seen.insert(pages.active);
    }
    EXPECT_GT(seen.size(), 100U);
}

TEST(SimulatedMemory, a_living_one_is_under_pressure_rarely_and_comes_back_to_normal) {
    ManualClock clock;
    SimulatedMemory memory(clock);
    std::vector<std::uint32_t> told;
    const auto token =
        memory.pressureChanged.subscribe([&told](std::uint32_t data) { told.push_back(data); });
    memory.live(1);
    Duration pressed{};
    for (Duration span{}; span < 24h; span += 5s) {
        clock.advanceBy(5s);
        if (!told.empty() && told.back() != memoryPressureNormal) pressed += 5s;
    }
    EXPECT_GT(pressed, 0s);
    EXPECT_LT(pressed, 2h);
    EXPECT_NE(std::ranges::find(told, memoryPressureNormal), told.end());
}

TEST(SimulatedMemory, pages_that_are_set_end_its_life_and_its_timer) {
    ManualClock clock;
    SimulatedMemory memory(clock);
    memory.live(1);
    memory.setPages({.active = 7});
    clock.advanceBy(10s);
    EXPECT_EQ(memory.pages(), (VMPageCounts{.active = 7}));
    EXPECT_TRUE(clock.pending().empty());
}

}  // namespace
}  // namespace vtx
