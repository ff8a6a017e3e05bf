// SPDX-License-Identifier: MIT
#include "smc/TemperatureService.h"

#include <gtest/gtest.h>

#include "platform/simulated/SimulatedSensors.h"
#include "smc/SMCBridge.h"
#include "support/SMCBench.h"

namespace vtx {
namespace {

using namespace std::chrono_literals;

MacShape withoutSMC() {
    MacShape shape = MacShape::standard();
    shape.smcKeyCount = 0;
    return shape;
}

std::optional<double> cpuMaxC(const TemperatureService& service) {
    const auto& latest = *service.latest;
    return latest ? latest->cpuMaxC : std::nullopt;
}

// A machine with one sensor in the SMC and one in the event system.
struct TwoSources : SMCBench {
    TwoSources() {
        addFloat("Tp01", 50);
        mac.hidSensors.clear();
        mac.hidSensors.add("PMU tdie1", [] { return 70.0; });
    }
    void failSMC() {
        smc.change("Tp01", [](auto& key) { key.failsEvery = 1; });
    }
    void healSMC() {
        smc.change("Tp01", [](auto& key) { key.failsEvery = 0; });
    }
    std::optional<double> poll(TemperatureService& service, float celsius) {
        smc.setFloat("Tp01", celsius);
        service.refresh();
        return cpuMaxC(service);
    }
};

TEST(TemperatureService, construction_ends_with_the_first_reading) {
    TestBench b;
    const TemperatureService service;
    ASSERT_TRUE(*service.latest);
    EXPECT_EQ((*service.latest)->timestamp, b.clock.now());
    EXPECT_EQ(service.lastSource(), SensorSource::smc);
    EXPECT_GT((*service.latest)->batteryC.value_or(0), 20);
}

TEST(TemperatureService, values_are_smoothed_over_three_polls) {
    TwoSources b;
    TemperatureService service;
    EXPECT_EQ(cpuMaxC(service), 50);
    EXPECT_EQ(b.poll(service, 52), 50);
    EXPECT_EQ(b.poll(service, 90), 52);
    EXPECT_EQ(b.poll(service, 52), 52);
}

TEST(TemperatureService, the_event_system_is_asked_only_where_the_smc_gives_nothing) {
    TwoSources b;
    TemperatureService service;
    service.refresh();
    EXPECT_EQ(b.platform.calls(operations::dlopenSelf), 0U);
    b.failSMC();
    service.refresh();
    service.refresh();
    EXPECT_EQ(b.platform.calls(operations::dlopenSelf), 1U);
    EXPECT_EQ(cpuMaxC(service), 70);
    EXPECT_EQ(service.lastSource(), SensorSource::iohid);
}

TEST(TemperatureService, the_first_value_of_another_source_comes_as_it_is) {
    TwoSources b;
    TemperatureService service;
    (void)b.poll(service, 51);
    b.failSMC();
    service.refresh();
    EXPECT_EQ(cpuMaxC(service), 70);
    b.healSMC();
    EXPECT_EQ(b.poll(service, 99), 99);
}

TEST(TemperatureService, a_poll_without_a_reading_leaves_reading_and_samples) {
    TwoSources b;
    b.failures.failAlways(operations::dlopenSelf);
    TemperatureService service;
    (void)b.poll(service, 52);
    const auto before = *service.latest;
    b.failSMC();
    b.advance(3600s);
    service.refresh();
    EXPECT_EQ(*service.latest, before);
    b.healSMC();
    EXPECT_EQ(b.poll(service, 90), 52) << "the window still holds 50 and 52";
}

TEST(TemperatureService, a_reading_without_the_processor_empties_the_samples) {
    TwoSources b;
    b.addFloat("B0AT", 30);
    TemperatureService service;
    (void)b.poll(service, 52);
    b.failSMC();
    service.refresh();
    EXPECT_EQ(cpuMaxC(service), std::nullopt);
    EXPECT_EQ((*service.latest)->batteryC, 30);
    EXPECT_EQ(service.lastSource(), SensorSource::smc) << "no fallback";
    b.healSMC();
    EXPECT_EQ(b.poll(service, 90), 90);
}

TEST(TemperatureService, a_machine_without_an_smc_is_read_by_its_event_system) {
    TestBench b(withoutSMC());
    const TemperatureService service;
    EXPECT_EQ(service.lastSource(), SensorSource::iohid);
    EXPECT_NEAR(cpuMaxC(service).value_or(0), 38, 1);
}

TEST(TemperatureService, a_machine_without_any_sensor_never_has_a_reading) {
    TestBench b(withoutSMC());
    b.failures.failAlways(operations::dlopenSelf);
    TemperatureService service;
    for (int i = 0; i < 10; ++i) service.refresh();
    EXPECT_EQ(*service.latest, std::nullopt);
    EXPECT_EQ(service.lastSource(), std::nullopt);
    EXPECT_EQ(b.platform.calls(operations::dlopenSelf), 1U) << "it is tried once";
}

TEST(TemperatureService, an_empty_reading_of_the_event_system_is_published) {
    TestBench b(withoutSMC());
    b.mac.hidSensors.clear();
    const TemperatureService service;
    EXPECT_EQ(*service.latest, (TemperatureReading{std::nullopt, std::nullopt, b.clock.now()}));
}

TEST(TemperatureService, follows_the_load_of_the_machine) {
    TestBench b;
    TemperatureService service;
    const double idle = *cpuMaxC(service);
    b.mac.processors.setLoadOfAll({1, 0, 0});
    const auto pollFor = [&](int seconds) {
        for (int i = 0; i < seconds; ++i) {
            b.advance(1s);
            service.refresh();
        }
        return *cpuMaxC(service);
    };
    const double soon = pollFor(3);
    const double later = pollFor(40);
    EXPECT_GT(soon, idle + 2);
    EXPECT_GT(later, soon + 10);
    b.mac.processors.setLoadOfAll({});
    EXPECT_LT(pollFor(60), idle + 2);
}

// A minute on the living machine, then what calibration stored.
SimulatedUserDefaults::Values calibrate(std::uint64_t seed, const MacShape& shape) {
    TestBench b(shape);
    b.mac.live(seed);
    TemperatureService service;
    for (int i = 0; i < 60; ++i) {
        b.advance(1s);
        service.refresh();
    }
    EXPECT_TRUE(SMCBridge::shared()->calibration().isDone());
    return b.platform.userDefaults.stored;
}

TEST(TemperatureService, the_calibration_minute_finds_the_planted_hot_spots_and_only_those) {
    for (std::uint64_t seed = 1; seed <= 12; ++seed)
        for (const std::size_t keys : {300U, 2000U}) {
            MacShape shape = MacShape::standard();
            shape.smcKeyCount = keys;
            const auto stored = calibrate(seed, shape);
            ASSERT_EQ(stored.size(), 1U);
            EXPECT_EQ(asText(stored.begin()->second), R"(["Tp0H","Tp0n"])") << seed;
        }
}

TEST(TemperatureService, without_hot_spots_the_minute_finds_none) {
    MacShape shape = MacShape::standard();
    shape.hotSpots.clear();
    for (std::uint64_t seed = 1; seed <= 6; ++seed)
        EXPECT_EQ(asText(calibrate(seed, shape).begin()->second), "[]") << seed;
}

TEST(TemperatureService, after_a_restart_calibration_is_skipped_and_the_hot_spots_stay_out) {
    const auto stored = calibrate(1, MacShape::standard());
    TestBench b(MacShape::standard(), stored);
    TemperatureService service;
    EXPECT_TRUE(b.log.contains("restored=2, calibration=skipped"));
    for (int i = 0; i < 120; ++i) {
        b.advance(1s);
        service.refresh();
    }
    EXPECT_EQ(b.platform.userDefaults.writes, 0);
    EXPECT_EQ(b.mac.smc.key("Tp0H").reads, 1U) << "discovery alone";
    EXPECT_FALSE(b.log.contains("calibration complete"));
    EXPECT_LT(*cpuMaxC(service), 50) << "it idles";
}

TEST(TemperatureService, its_steady_poll_reads_each_sensor_in_use_once) {
    const auto stored = calibrate(1, MacShape::standard());
    TestBench b(MacShape::standard(), stored);
    TemperatureService service;
    b.platform.resetCalls();
    for (int i = 0; i < 10; ++i) service.refresh();
    const std::size_t inUse = sensors::cpuKeys(MacShape::standard()).size() - 2;
    EXPECT_EQ(b.platform.calls(operations::smcReadValue), 10 * (inUse + 1));
    EXPECT_EQ(b.platform.totalCalls(), 2 * b.platform.calls(operations::smcReadValue));
}

}  // namespace
}  // namespace vtx
