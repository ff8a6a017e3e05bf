// SPDX-License-Identifier: MIT
// What the strip says of the processor, held against the test's own look at /proc/stat over the
// same seconds.
#include <vector>

#include "support/DesktopTest.h"
#include "support/ProcStat.h"

namespace vtx::e2e {
namespace {

using namespace std::chrono_literals;

/// Percentage points by which two means over several seconds may differ: both count in hundredths
/// of a second, and not over quite the same ones.
constexpr double tolerance = 6.0;
constexpr Span watched = 11s;
/// From one reading to the next: each text tells of that time before it appeared.
constexpr Span interval = 1s;

struct Means {
    double spoken;
    double measured;
};

class CpuE2E : public DesktopTest {
protected:
    Means compare() {
        struct Text {
            SteadyTime since;
            int percent;
        };
        LoadRecord load;
        std::vector<Text> texts;
        const Accessible element = *strip();
        watchFor(watched, [&] {
            load.look();
            const auto percent = percentIn(element.name());
            if (percent && (texts.empty() || texts.back().percent != *percent))
                texts.push_back({std::chrono::steady_clock::now(), *percent});
        });
        const SteadyTime end = std::chrono::steady_clock::now();
        const SteadyTime start = end - watched + 2 * interval;

        // From the first to the last change that was seen, so that whole readings are compared.
        // Where a text stayed for long, the load did too, and any moment serves as well.
        SteadyTime from = start, to = end;
        for (const Text& text : texts)
            if (text.since >= start && from == start) from = text.since;
        if (!texts.empty() && texts.back().since - from > watched / 2) to = texts.back().since;

        double sum = 0;
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const SteadyTime shown = std::clamp(texts[i].since, from, to);
            const SteadyTime gone =
                i + 1 < texts.size() ? std::clamp(texts[i + 1].since, from, to) : to;
            constexpr double middleOfCut = 0.5;  // the spoken number is cut, not rounded
            const double percent = std::min(100.0, texts[i].percent + middleOfCut);
            sum += percent * std::chrono::duration<double>(gone - shown).count();
        }
        return {sum / std::chrono::duration<double>(to - from).count(),
                load.percentBetween(from - interval, to - interval)};
    }
};

TEST_F(CpuE2E, the_strip_agrees_with_the_kernel_about_the_machine_as_it_is) {
    startVantrix();
    const Means means = compare();
    EXPECT_NEAR(means.spoken, means.measured, tolerance);
    RecordProperty("spoken", std::to_string(means.spoken));
    RecordProperty("measured", std::to_string(means.measured));
}

TEST_F(CpuE2E, the_strip_agrees_with_the_kernel_with_one_core_kept_busy) {
    startVantrix();
    BusyCore core;
    (void)eventually([&core] { return core.cpuSeconds() > 0.5; });
    const double before = core.cpuSeconds();
    const SteadyTime started = std::chrono::steady_clock::now();
    const Means means = compare();
    const std::chrono::duration<double> span = std::chrono::steady_clock::now() - started;
    const double mine = 100.0 * (core.cpuSeconds() - before) / span.count() /
                        std::max(1U, std::thread::hardware_concurrency());
    EXPECT_NEAR(means.spoken, means.measured, tolerance);
    EXPECT_GE(means.spoken, mine - tolerance) << "less than what the test's own thread took";
    EXPECT_GT(mine, 0.0);
    RecordProperty("spoken", std::to_string(means.spoken));
    RecordProperty("measured", std::to_string(means.measured));
    RecordProperty("ownThread", std::to_string(mine));
}

TEST_F(CpuE2E, the_strip_follows_when_every_core_becomes_busy) {
    startVantrix();
    std::vector<BusyCore> cores(std::max(1U, std::thread::hardware_concurrency()));
    constexpr int nearlyAll = 90;
    constexpr Span threeReadings = 3500ms;
    EXPECT_TRUE(eventually([this] { return spokenCpu().value_or(0) >= nearlyAll; }, threeReadings));
}

}  // namespace
}  // namespace vtx::e2e
