// SPDX-License-Identifier: MIT
#include "platform/linux/SensorFile.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "base/QueueExecutor.h"
#include "linux/SensorTree.h"
#include "platform/linux/PacedSensor.h"

namespace vtx::test {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

struct FigureOfASensor : SensorTree {
    FigureOfASensor() {
        sensor.folder = folder;
        sensor.stem = "temp1";
        tree.write(folder + "/temp1_input", "52000\n");
        tree.write(folder + "/fan2_input", "0\n");
    }
    void becomeFan() {
        sensor.kind = SensorKind::fan;
        sensor.stem = "fan2";
    }
    void set(const std::string& name, std::string_view text) const {
        tree.write(folder + "/" + name, text);
    }
    void open(std::string_view part = "input") {
        file.emplace(root, [time = bench.time] { return *time; }, sensor, part);
    }
    [[nodiscard]] std::optional<double> now() {
        if (!file) open();
        return file->read();
    }

    const std::string folder = "/sys/devices/x/hwmon/hwmon0";
    FoundSensor sensor;
    std::optional<SensorFile> file;
};

TEST_F(FigureOfASensor, is_what_its_file_says_each_time) {
    EXPECT_EQ(now(), 52.0);
    set("temp1_input", "53000\n");
    EXPECT_EQ(now(), 53.0);
}

TEST_F(FigureOfASensor, is_absent_while_the_driver_calls_it_faulty) {
    set("temp1_fault", "1\n");
    EXPECT_EQ(now(), std::nullopt);
    set("temp1_fault", "0\n");
    EXPECT_EQ(now(), 52.0);
    set("temp1_fault", "junk\n");
    EXPECT_EQ(now(), 52.0);
}

TEST_F(FigureOfASensor, is_absent_for_anything_but_a_short_number) {
    for (const std::string& text : {std::string("0\n"), std::string("junk\n"), std::string(),
                                    std::string(40, '9') + "\n", std::string(100'000, '1')}) {
        set("temp1_input", text);
        EXPECT_EQ(now(), std::nullopt) << text.substr(0, 50);
    }
    tree.remove(folder + "/temp1_input");
    tree.write(folder + "/temp1_input/x", "a folder\n");
    open();
    EXPECT_EQ(now(), std::nullopt);
    tree.remove(folder);
    open();
    EXPECT_EQ(now(), std::nullopt);
}

TEST_F(FigureOfASensor, comes_back_with_its_file) {
    EXPECT_EQ(now(), 52.0);
    tree.remove(folder);
    open();
    EXPECT_EQ(now(), std::nullopt);
    set("temp1_input", "54000\n");
    EXPECT_EQ(now(), 54.0);
}

TEST_F(FigureOfASensor, of_a_fan_at_rest_is_zero_unless_the_chip_says_that_it_should_turn) {
    becomeFan();
    EXPECT_EQ(now(), 0.0);
    set("fan2_alarm", "1\n");
    open();
    EXPECT_EQ(now(), std::nullopt);
    set("fan2_input", "900\n");
    EXPECT_EQ(now(), 900.0);
    set("fan2_fault", "1\n");
    open();
    EXPECT_EQ(now(), std::nullopt);
}

TEST_F(FigureOfASensor, of_a_fan_is_one_of_several) {
    becomeFan();
    set("fan2_max", "5700\n");
    set("fan2_alarm", "1\n");
    set("fan2_min", "0\n");
    open("max");
    EXPECT_EQ(now(), 5700.0);
    open("min");
    EXPECT_EQ(now(), 0.0);
    open("target");
    EXPECT_EQ(now(), std::nullopt);
}

TEST_F(FigureOfASensor, of_a_zone_and_of_a_battery_stands_in_a_file_of_its_own) {
    set("temp", "47000\n");
    sensor.stem.clear();
    EXPECT_EQ(now(), 47.0);
    set("temp", "305\n");
    sensor.kind = SensorKind::batteryTemperature;
    sensor.stem = "temp";
    open();
    EXPECT_EQ(now(), 30.5);
}

TEST_F(FigureOfASensor, of_a_sleeping_device_is_absent_without_asking_it) {
    set("device/power/control", "auto\n");
    set("device/power/autosuspend_delay_ms", "5000\n");
    for (const auto* status : {"suspended\n", "suspending\n", "error\n", ""}) {
        set("device/power/runtime_status", "active\n");
        open();
        set("device/power/runtime_status", status);
        EXPECT_EQ(now(), std::nullopt) << status;
    }
    set("device/power/runtime_status", "active\n");
    EXPECT_EQ(now(), 52.0);
}

TEST_F(FigureOfASensor, of_a_device_that_suspends_itself_leaves_it_the_time_to_do_so) {
    set("device/power/runtime_status", "active\n");
    set("device/power/control", "auto\n");
    set("device/power/autosuspend_delay_ms", "5000\n");
    EXPECT_EQ(now(), 52.0);
    set("temp1_input", "60000\n");
    *bench.time += milliseconds(5999);
    EXPECT_EQ(now(), 52.0);
    *bench.time += milliseconds(1);
    EXPECT_EQ(now(), 60.0);
}

TEST_F(FigureOfASensor, of_a_device_that_never_sleeps_is_asked_every_time) {
    for (const auto* status : {"unsupported\n", "active\n"}) {
        set("device/power/runtime_status", status);
        set("device/power/control", "on\n");
        open();
        set("temp1_input", "52000\n");
        EXPECT_EQ(now(), 52.0);
        set("temp1_input", "60000\n");
        EXPECT_EQ(now(), 60.0) << status;
    }
}

TEST_F(FigureOfASensor, of_a_device_that_waits_too_long_is_asked_every_time) {
    set("device/power/runtime_status", "active\n");
    set("device/power/control", "auto\n");
    set("device/power/autosuspend_delay_ms", "10001\n");
    EXPECT_EQ(now(), 52.0);
    set("temp1_input", "60000\n");
    EXPECT_EQ(now(), 60.0);
}

/// A sensor whose reads take as long as a test says.
struct PaceOfASensor : FigureOfASensor {
    /// The time goes on by `readTakes` between the two looks at it that measure a read.
    TimeSource clockOfReads() {
        return [this] {
            const Instant seen = *bench.time;
            *bench.time += readTakes;
            return seen;
        };
    }
    void start() {
        auto source = std::make_shared<SensorFile>(root, [] { return Instant(); }, sensor);
        paced.emplace(source, pace,
                      PacedSensor::Tools{worker, bench.clock, clockOfReads(), Duration(0)});
    }

    Duration readTakes{0};
    QueueExecutor worker;
    std::shared_ptr<ReadPace> pace = std::make_shared<ReadPace>();
    std::optional<PacedSensor> paced;
};

TEST_F(PaceOfASensor, that_is_not_known_is_left_to_the_worker) {
    start();
    EXPECT_EQ(paced->value(), std::nullopt);
    EXPECT_EQ(worker.drain(), 1u);
    EXPECT_EQ(paced->value(), 52.0);
}

TEST_F(PaceOfASensor, that_answers_fast_is_read_at_once_from_then_on) {
    start();
    (void)paced->value();
    worker.drain();
    set("temp1_input", "60000\n");
    EXPECT_EQ(paced->value(), 60.0);
    EXPECT_TRUE(worker.isEmpty());
}

TEST_F(PaceOfASensor, that_answers_slowly_stays_with_the_worker_and_is_one_call_behind) {
    readTakes = milliseconds(40);
    start();
    (void)paced->value();
    worker.drain();
    for (int i = 0; i < 100; ++i) {
        bench.clock.advanceBy(seconds(1));
        set("temp1_input", i % 2 == 0 ? "60000\n" : "50000\n");
        EXPECT_EQ(paced->value(), i == 0 ? 52.0 : i % 2 == 0 ? 50.0 : 60.0) << i;
        EXPECT_EQ(worker.drain(), 1u);
    }
}

TEST_F(PaceOfASensor, that_becomes_slow_is_asked_at_the_worker_before_the_next_call) {
    start();
    (void)paced->value();
    worker.drain();
    readTakes = seconds(1);
    EXPECT_EQ(paced->value(), 52.0);
    EXPECT_EQ(worker.drain(), 1u);
    set("temp1_input", "60000\n");
    EXPECT_EQ(paced->value(), 52.0);
}

TEST_F(PaceOfASensor, whose_chip_turned_slow_by_another_keeps_its_value_until_the_worker_answers) {
    start();
    (void)paced->value();
    worker.drain();
    set("temp1_input", "60000\n");
    EXPECT_EQ(paced->value(), 60.0);
    pace->note(ReadPace::Reader::caller, seconds(1), *bench.time);
    EXPECT_EQ(paced->value(), 60.0);
    set("temp1_input", "61000\n");
    EXPECT_EQ(worker.drain(), 1u);
    EXPECT_EQ(paced->value(), 61.0);
}

/// How many of ten sensors of one chip tell a value when they are first asked.
struct FirstCallsToAChip : PaceOfASensor {
    [[nodiscard]] int answered(PacedSensor::FirstCall firstCall) {
        int count = 0;
        for (int i = 0; i < 10; ++i) {
            PacedSensor one(
                std::make_shared<SensorFile>(
                    root, [] { return Instant(); }, sensor),
                pace, PacedSensor::Tools{atOnce, bench.clock, clockOfReads(), milliseconds(200)},
                firstCall);
            if (one.value()) ++count;
        }
        return count;
    }
    AtOnceExecutor atOnce;
};

TEST_F(FirstCallsToAChip, wait_for_all_figures_of_a_quick_one) {
    EXPECT_EQ(answered(PacedSensor::FirstCall::waitsWithinBound), 10);
}

TEST_F(FirstCallsToAChip, wait_no_longer_than_a_bound_for_a_slow_one) {
    readTakes = milliseconds(50);  // a call that waits looks at the time thrice: 150 ms
    EXPECT_EQ(answered(PacedSensor::FirstCall::waitsWithinBound), 2);
}

TEST_F(FirstCallsToAChip, wait_for_each_figure_that_is_searched_for) {
    readTakes = milliseconds(50);
    EXPECT_EQ(answered(PacedSensor::FirstCall::waits), 10);
}

TEST_F(PaceOfASensor, that_hangs_becomes_absent_and_holds_up_nobody) {
    start();
    for (int i = 0; i < 20; ++i) {
        bench.clock.advanceBy(seconds(1));
        EXPECT_EQ(paced->value(), std::nullopt);
    }
    EXPECT_EQ(worker.drain(), 1u);
}

}  // namespace
}  // namespace vtx::test
