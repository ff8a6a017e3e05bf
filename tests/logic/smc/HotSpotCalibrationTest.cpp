// SPDX-License-Identifier: MIT
#include "smc/HotSpotCalibration.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "smc/PersistentDenylistStore.h"
#include "support/SMCBench.h"

namespace vtx {
namespace {

using namespace std::chrono_literals;

constexpr auto category = "SMCBridge";

// A calibration that is handed its polls by the test.
struct Calibrated {
    explicit Calibrated(const std::vector<std::string>& keys = {}, const SensorKeySet& preset = {},
                        SimulatedUserDefaults::Values settings = {})
        : bench(MacShape::standard(), std::move(settings)),
          calibration({"Apple M9", "Mac99,1", "30A1"}, keys, preset, bench.platform.userDefaults,
                      bench.clock) {}

    TestBench bench;
    HotSpotCalibration calibration;

    void poll(const std::vector<SensorValue>& readings) { calibration.updateCalibration(readings); }
    void pollAfter(Duration span, const std::vector<SensorValue>& readings) {
        bench.advance(span);
        poll(readings);
    }
    [[nodiscard]] std::optional<std::string> stored() const {
        const auto data =
            bench.platform.userDefaults.data("Vantrix.HotSpotDenylist.v1.Apple_M9.Mac99,1.30A1");
        return data ? std::optional(std::string(asText(*data))) : std::nullopt;
    }
};

const std::vector<SensorValue> five{
    {"Tp01", 50}, {"Tp02", 51}, {"Tp03", 52}, {"Tp04", 53}, {"Tp05", 70}};

TEST(HotSpotClassifier, fewer_than_four_peaks_tell_nothing) {
    const auto verdict = HotSpotClassifier::classifyWithStats({{"a", 10}, {"b", 50}, {"c", 140}});
    EXPECT_TRUE(verdict.denylist.empty());
    EXPECT_EQ(verdict.baseline, 0.0);
    EXPECT_EQ(verdict.cutoff, 0.0);
}

TEST(HotSpotClassifier, a_peak_well_above_the_cooler_part_of_the_field_is_a_hot_spot) {
    const auto verdict = HotSpotClassifier::classifyWithStats(
        {{"a", 50}, {"b", 70}, {"c", 51}, {"d", 52}, {"e", 53}});
    EXPECT_EQ(verdict.baseline, 51);
    EXPECT_EQ(verdict.cutoff, 63);
    EXPECT_EQ(verdict.denylist, SensorKeySet{"b"});
}

TEST(HotSpotClassifier, the_baseline_is_the_peak_at_the_fortieth_percentile) {
    for (const auto& [count, place] : {std::pair(4, 0), {5, 1}, {10, 3}, {20, 7}}) {
        SensorPeaks peaks;
        for (int i = 0; i < count; ++i)
            peaks.emplace(std::string(1, static_cast<char>('a' + i)), i);
        EXPECT_EQ(HotSpotClassifier::classifyWithStats(peaks).baseline, place) << count;
    }
}

TEST(HotSpotClassifier, a_peak_at_the_cutoff_is_a_hot_spot) {
    const auto verdict =
        HotSpotClassifier::classifyWithStats({{"a", 50}, {"b", 50}, {"c", 62}, {"d", 61.9}});
    EXPECT_EQ(verdict.denylist, SensorKeySet{"c"});
}

TEST(PersistentDenylistStore, keys_name_chip_model_and_build) {
    EXPECT_EQ(PersistentDenylistStore::storageKey("Apple M3 Pro", "Mac15,6", "24.C 101"),
              "Vantrix.HotSpotDenylist.v1.Apple_M3_Pro.Mac15,6.24_C_101");
    EXPECT_EQ(PersistentDenylistStore::storageKey("", "", ""), "Vantrix.HotSpotDenylist.v1...");
}

TEST(PersistentDenylistStore, a_list_comes_back_in_ascending_order) {
    SimulatedUserDefaults defaults;
    PersistentDenylistStore::save(defaults, "key", {"b", "\"", "a", "B"});
    EXPECT_EQ(PersistentDenylistStore::load(defaults, "key"),
              (std::vector<std::string>{"\"", "B", "a", "b"}));
    EXPECT_EQ(PersistentDenylistStore::load(defaults, "other"), std::nullopt);
}

TEST(HotSpotCalibration, a_minute_after_the_first_poll_the_window_closes) {
    Calibrated c;
    c.poll(five);
    c.pollAfter(59'999'999us, five);
    EXPECT_FALSE(c.calibration.isDone());
    EXPECT_EQ(c.stored(), std::nullopt);
    c.pollAfter(1us, five);
    EXPECT_TRUE(c.calibration.isDone());
    EXPECT_EQ(c.calibration.denylist(), SensorKeySet{"Tp05"});
    EXPECT_TRUE(c.calibration.peaks().empty());
}

TEST(HotSpotCalibration, the_window_begins_with_the_first_poll_and_not_before) {
    Calibrated c;
    c.pollAfter(3600s, five);
    EXPECT_FALSE(c.calibration.isDone());
    c.pollAfter(60s, five);
    EXPECT_TRUE(c.calibration.isDone());
}

TEST(HotSpotCalibration, tells_the_hot_spots_hottest_first_and_stores_all_in_order) {
    Calibrated c({"Tp01", "Tp0x"}, {"Tp0x"});
    auto readings = five;
    readings.push_back({"Tp00", 99.96});
    readings.push_back({"Tp06", 50});
    readings.push_back({"Tp0x", 140});
    c.poll(readings);
    c.pollAfter(60s, {});
    EXPECT_TRUE(c.bench.log.contains(
        LogLevel::standard, category,
        "CPU sensor calibration complete: denylisted 2 hot-spot sensors above 62.0 °C: "
        "Tp00=100.0°C, Tp05=70.0°C; persisted 3 total"));
    EXPECT_EQ(c.stored(), R"(["Tp00","Tp05","Tp0x"])");
}

TEST(HotSpotCalibration, hot_spots_of_one_temperature_are_told_by_their_names) {
    Calibrated c;
    auto readings = five;
    for (const auto* key : {"Tp09", "Tp06", "Tp07"}) readings.push_back({key, 70});
    for (const auto* key : {"Tp10", "Tp11", "Tp12"}) readings.push_back({key, 50});
    c.poll(readings);
    c.pollAfter(60s, {});
    EXPECT_TRUE(c.bench.log.contains("Tp05=70.0°C, Tp06=70.0°C, Tp07=70.0°C, Tp09=70.0°C"));
}

TEST(HotSpotCalibration, three_sensors_tell_nothing_and_an_empty_list_is_stored) {
    Calibrated c;
    c.poll({{"Tp01", 20}, {"Tp02", 60}, {"Tp03", 140}});
    c.pollAfter(60s, {});
    EXPECT_TRUE(c.bench.log.contains(
        LogLevel::info, category,
        "CPU sensor calibration complete: 3 sensors, no hot-spots detected (40th-pct peak 0.0 °C); "
        "persisted 0 total"));
    EXPECT_EQ(c.stored(), "[]");
}

TEST(HotSpotCalibration, a_calm_field_is_told_with_its_baseline) {
    Calibrated c;
    c.poll({{"Tp01", 50}, {"Tp02", 51.25}, {"Tp03", 52}, {"Tp04", 53}, {"Tp05", 54}});
    c.pollAfter(60s, {});
    EXPECT_TRUE(c.bench.log.contains("5 sensors, no hot-spots detected (40th-pct peak 51.2 °C)"));
}

TEST(HotSpotCalibration, keys_of_the_preset_do_not_enter_the_peaks) {
    Calibrated c({"Tp01", "Tp02", "Te05"}, {"Tp02", "Te06"});
    EXPECT_EQ(c.calibration.denylist(), SensorKeySet{"Tp02"});
    c.poll({{"Tp01", 50}, {"Tp02", 90}, {"Te05", 40}});
    EXPECT_EQ(c.calibration.peaks(), (SensorPeaks{{"Te05", 40}, {"Tp01", 50}}));
    c.pollAfter(60s, {});
    EXPECT_TRUE(c.bench.log.contains("2 sensors, no hot-spots"));
    EXPECT_TRUE(c.bench.log.contains("persisted 1 total"));
}

TEST(HotSpotCalibration, each_key_keeps_its_highest_value) {
    Calibrated c;
    c.poll({{"Tp01", 50}, {"Tp02", 40}});
    c.pollAfter(1s, {{"Tp01", 45}, {"Tp02", 41}});
    EXPECT_EQ(c.calibration.peaks(), (SensorPeaks{{"Tp01", 50}, {"Tp02", 41}}));
}

TEST(HotSpotCalibration, a_key_that_first_reports_in_the_last_second_counts) {
    Calibrated c;
    c.poll({{"Tp01", 50}, {"Tp02", 50}, {"Tp03", 50}});
    c.pollAfter(59s, {{"Tp04", 80}});
    c.pollAfter(1s, {});
    EXPECT_EQ(c.calibration.denylist(), SensorKeySet{"Tp04"});
}

TEST(HotSpotCalibration, the_values_of_the_closing_poll_count) {
    Calibrated c;
    c.poll({{"Tp01", 50}, {"Tp02", 50}, {"Tp03", 50}, {"Tp04", 50}});
    c.pollAfter(60s, {{"Tp04", 62}});
    EXPECT_EQ(c.calibration.denylist(), SensorKeySet{"Tp04"});
}

TEST(HotSpotCalibration, polls_without_values_still_let_the_time_pass) {
    Calibrated c;
    c.poll({});
    c.pollAfter(60s, {});
    EXPECT_TRUE(c.calibration.isDone());
    EXPECT_EQ(c.stored(), "[]");
}

TEST(HotSpotCalibration, a_machine_that_slept_through_the_window_closes_it_on_waking) {
    Calibrated c;
    c.poll(five);
    c.bench.sleepMachine(3600s);
    c.poll({});
    EXPECT_EQ(c.calibration.denylist(), SensorKeySet{"Tp05"});
}

TEST(HotSpotCalibration, the_window_is_measured_by_the_wall_clock) {
    Calibrated c;
    c.poll(five);
    c.bench.clock.setWallClock(ManualClock::start + 2h);
    c.poll(five);
    EXPECT_TRUE(c.calibration.isDone());
}

TEST(HotSpotCalibration, a_clock_that_was_set_back_does_not_hold_the_window_open) {
    Calibrated c;
    c.poll(five);
    c.bench.clock.setWallClock(ManualClock::start - 2h);
    c.pollAfter(59s, five);
    EXPECT_FALSE(c.calibration.isDone());
    c.pollAfter(1s, five);
    EXPECT_TRUE(c.calibration.isDone());
}

TEST(HotSpotCalibration, a_store_that_fails_changes_nothing_of_this_run) {
    Calibrated c;
    c.bench.platform.userDefaults.failsToStore = true;
    c.poll(five);
    c.pollAfter(60s, {});
    EXPECT_EQ(c.calibration.denylist(), SensorKeySet{"Tp05"});
    EXPECT_TRUE(c.bench.platform.userDefaults.stored.empty());
}

// The whole minute over the SMC.

TEST(CalibratedBridge, the_poll_that_closes_the_window_still_counts_the_hot_spots) {
    SMCBench b;
    b.addFloats({{"Tp01", 50}, {"Tp02", 50}, {"Tp03", 50}, {"Tp04", 50}, {"Tp05", 65}});
    const auto bridge = b.open();
    const auto poll = [&] { return bridge->readTemperatureReading()->cpuMaxC; };
    EXPECT_EQ(poll(), 65);
    b.advance(60s);
    EXPECT_EQ(poll(), 65);
    EXPECT_TRUE(bridge->calibration().isDone());
    EXPECT_EQ(poll(), 50);
}

TEST(CalibratedBridge, what_was_found_is_no_longer_asked_for) {
    SMCBench b;
    b.addFloats({{"Tp01", 50}, {"Tp02", 50}, {"Tp03", 50}, {"Tp04", 50}, {"Tp05", 65}});
    const auto bridge = b.open();
    (void)bridge->readTemperatureReading();
    b.advance(60s);
    (void)bridge->readTemperatureReading();
    const auto reads = b.smc.key("Tp05").reads;
    (void)bridge->readTemperatureReading();
    EXPECT_EQ(b.smc.key("Tp05").reads, reads);
    EXPECT_EQ(b.smc.key("Tp04").reads, reads + 1);
}

TEST(CalibratedBridge, a_run_that_ends_within_the_minute_stores_nothing) {
    SMCBench b;
    b.addFloats({{"Tp01", 50}, {"Tp02", 50}, {"Tp03", 50}, {"Tp04", 80}});
    {
        const auto bridge = b.open();
        (void)bridge->readTemperatureReading();
        b.advance(59s);
        (void)bridge->readTemperatureReading();
    }
    EXPECT_TRUE(b.defaults.stored.empty());
    EXPECT_FALSE(b.open()->calibration().isDone());
}

}  // namespace
}  // namespace vtx
