// SPDX-License-Identifier: MIT
// What holds of the published temperature whatever the sensors say. Each seed is one machine, and
// always the same one.
#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <limits>
#include <random>

#include "smc/TemperatureService.h"
#include "support/SMCBench.h"

namespace vtx {
namespace {

using namespace std::chrono_literals;

// A machine of some sensors, among them hot spots and broken ones, that warms and cools at random.
class RandomField {
public:
    explicit RandomField(std::uint64_t seed) : random_(seed) {
        count_ = 1 + below(40);
        for (std::size_t i = 0; i < count_; ++i) bench.addFloat(name(i), 40);
        for (std::size_t i = 0; i < count_; ++i) offsets_.push_back(offset());
    }

    SMCBench bench;

    // The next values of all sensors. Tells the hottest that a sensor could credibly say.
    std::optional<double> next() {
        baseC_ = std::clamp(baseC_ + real(-3, 3), 25.0, 100.0);
        std::optional<double> hottest;
        for (std::size_t i = 0; i < count_; ++i) {
            const float value =
                below(20) == 0 ? nonsense() : static_cast<float>(baseC_ + offsets_[i]);
            const bool fails = below(15) == 0;
            bench.smc.setFloat(name(i), value);
            bench.smc.change(name(i), [fails](auto& key) { key.failsEvery = fails ? 1 : 0; });
            if (fails || !(value > 0.0F && value < 150.0F)) continue;
            hottest = std::max(hottest.value_or(0), static_cast<double>(value));
        }
        return hottest;
    }
    std::size_t below(std::size_t limit) { return random_() % limit; }
    double real(double from, double to) {
        return from + (to - from) * static_cast<double>(random_() >> 11) / 9007199254740992.0;
    }
    [[nodiscard]] std::size_t count() const { return count_; }
    static std::string name(std::size_t i) {
        return fmt::format("Tp{}{}", static_cast<char>('a' + i / 10), i % 10);
    }

private:
    double offset() { return below(8) == 0 ? real(12, 60) : real(-4, 4); }
    float nonsense() {
        constexpr float values[] = {0.0F,
                                    -40.0F,
                                    150.0F,
                                    1e30F,
                                    std::numeric_limits<float>::quiet_NaN(),
                                    std::numeric_limits<float>::infinity()};
        return values[below(std::size(values))];
    }

    std::mt19937_64 random_;
    std::size_t count_ = 0;
    std::vector<double> offsets_;
    double baseC_ = 45.0;
};

constexpr std::uint64_t fields = 60;
constexpr int polls = 90;  // calibration ends within

TEST(TemperatureProperty, the_published_never_exceeds_the_hottest_credible_sensor) {
    for (std::uint64_t seed = 0; seed < fields; ++seed) {
        RandomField field(seed);
        field.bench.failures.failAlways(operations::dlopenSelf);
        TemperatureService service;
        // The median of three polls is no higher than the hottest of these.
        std::deque<double> recent{40.0};
        for (int poll = 0; poll < polls; ++poll) {
            field.bench.advance(1s);
            if (const auto hottest = field.next()) recent.push_back(*hottest);
            if (recent.size() > 3) recent.pop_front();
            service.refresh();
            const auto& latest = *service.latest;
            if (!latest || !latest->cpuMaxC) continue;
            EXPECT_LE(*latest->cpuMaxC, *std::ranges::max_element(recent)) << seed << " " << poll;
            EXPECT_TRUE(*latest->cpuMaxC > 0 && *latest->cpuMaxC < 150) << seed << " " << poll;
        }
    }
}

// Values of a calm field of several sensors, before and after calibration.
struct CalmField {
    explicit CalmField(std::uint64_t seed) : random(seed), count(8 + random() % 20) {
        for (std::size_t i = 0; i < count; ++i) bench.addFloat(RandomField::name(i), 40);
    }
    SMCBench bench;
    std::mt19937_64 random;
    std::size_t count;

    void next(int poll) {
        for (std::size_t i = 0; i < count; ++i)
            bench.smc.setFloat(
                RandomField::name(i),
                40.0F + static_cast<float>((i * 7 + static_cast<std::size_t>(poll) * 3) % 9));
    }
};

TEST(TemperatureProperty, a_lone_sensor_that_spikes_moves_nothing) {
    for (std::uint64_t seed = 0; seed < fields; ++seed) {
        const auto published = [seed](bool spikes) {
            CalmField field(seed);
            TemperatureService service;
            std::vector<std::optional<double>> all;
            for (int poll = 0; poll < 50; ++poll) {
                field.bench.advance(1s);
                field.next(poll);
                const auto sensor = RandomField::name(field.random() % field.count);
                const auto rise = static_cast<float>(70 + field.random() % 79);
                if (spikes && poll % 2 == 0) field.bench.smc.setFloat(sensor, rise);
                service.refresh();
                all.push_back((*service.latest)->cpuMaxC);
            }
            return all;
        };
        EXPECT_EQ(published(true).size(), published(false).size());
        const auto calm = published(false);
        const auto spiked = published(true);
        for (std::size_t i = 0; i < calm.size(); ++i)
            EXPECT_LE(*spiked[i], *calm[i] + 8) << seed << " poll " << i;
        for (std::size_t i = 0; i < calm.size(); ++i) EXPECT_LE(*spiked[i], 48) << seed;
    }
}

TEST(TemperatureProperty, a_single_poll_on_which_the_whole_field_spikes_moves_nothing) {
    for (std::uint64_t seed = 0; seed < fields; ++seed) {
        CalmField field(seed);
        TemperatureService service;
        const int spike = 3 + static_cast<int>(field.random() % 40);
        for (int poll = 0; poll < 50; ++poll) {
            field.bench.advance(1s);
            field.next(poll);
            if (poll == spike)
                for (std::size_t i = 0; i < field.count; ++i)
                    field.bench.smc.setFloat(RandomField::name(i), 120);
            service.refresh();
            EXPECT_LE(*(*service.latest)->cpuMaxC, 48) << seed << " poll " << poll;
            EXPECT_GE(*(*service.latest)->cpuMaxC, 40) << seed << " poll " << poll;
        }
    }
}

}  // namespace
}  // namespace vtx
