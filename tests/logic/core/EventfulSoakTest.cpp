// SPDX-License-Identifier: MIT
// A long life full of events: every reading stays within its bounds, and nothing grows.
#include <fmt/format.h>
#include <gtest/gtest.h>
#include <malloc.h>

#include <cstdlib>
#include <string>

#include "support/EventfulMachine.h"

namespace vtx {
namespace {

/// What may lie about at one moment and not at another: a queue's last block, a longer text.
constexpr std::size_t slackBytes = 128 << 10;
/// Of each drive that ever was: its names are kept, as its number is never given again.
constexpr std::size_t bytesOfADrive = 256;

// Half a day unless VANTRIX_SOAK_DAYS says otherwise, as the long run of all tests does.
Duration lifeTime() {
    const char* const days = std::getenv("VANTRIX_SOAK_DAYS");
    return std::chrono::hours(days ? std::max(std::atoi(days), 1) * 24 : 12);
}

// The same in each run, unless VANTRIX_SOAK_SEED names another: the one of a life that failed.
std::uint64_t seed() {
    const char* const named = std::getenv("VANTRIX_SOAK_SEED");
    return named ? std::strtoull(named, nullptr, 10) : 20'251'122;
}

/// Bytes that are in use. 0 where a sanitizer does the allocating.
std::size_t bytesInUse() {
    const auto facts = ::mallinfo2();
    return facts.uordblks + facts.hblkhd;
}

class EventfulLife {
public:
    /// Until then, and through so many rounds of events. The first complaint ends it.
    void liveUntil(Duration age, std::size_t rounds) {
        const std::size_t steps = rounds * EventfulMachine::round;
        while ((machine.lived() < age || machine.steps() < steps) && !machine.complaint())
            machine.step();
    }
    [[nodiscard]] std::string where() const {
        return fmt::format("seed {}, step {} ({}): {}", seed(), machine.steps(),
                           machine.lastEvent(), machine.complaint().value_or("all is well"));
    }

    EventfulMachine machine{seed()};
};

TEST(Soak, an_eventful_life_leaves_every_reading_within_its_bounds_and_nothing_behind) {
    EventfulLife life;
    EventfulMachine& machine = life.machine;
    const Duration whole = lifeTime();
    life.liveUntil(whole / 4, 1);
    machine.comeToRest();
    const std::size_t bytes = bytesInUse();
    const auto handles = machine.handles();
    const std::size_t timers = machine.timers();
    const std::string timersBefore = machine.timersInWords();
    const std::size_t drives = machine.drivesEver();

    life.liveUntil(whole, 3);
    ASSERT_FALSE(machine.complaint()) << life.where();
    machine.comeToRest();
    const std::size_t kept = (machine.drivesEver() - drives) * bytesOfADrive;
    EXPECT_LE(bytesInUse(), bytes + slackBytes + kept) << life.where();
    EXPECT_EQ(machine.handles(), handles) << life.where();
    EXPECT_LE(machine.timers(), timers)
        << life.where() << "; " << timersBefore << "then " << machine.timersInWords();
    EXPECT_TRUE(machine.isReadAnew()) << life.where();
    EXPECT_GT(machine.readings(), machine.steps());
    RecordProperty("steps", std::to_string(machine.steps()));
    RecordProperty("readings", std::to_string(machine.readings()));
    RecordProperty("alerts", std::to_string(machine.alerts()));
}

}  // namespace
}  // namespace vtx
