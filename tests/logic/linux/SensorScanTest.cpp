// SPDX-License-Identifier: MIT
#include "platform/linux/SensorScan.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <set>
#include <string>
#include <vector>

#include "linux/SensorTree.h"

namespace vtx::test {
namespace {

using Texts = std::vector<std::string>;

/// Identities of the processor's sensors.
Texts processorsOf(const std::vector<FoundSensor>& sensors) {
    Texts found;
    for (const auto& sensor : sensors)
        if (sensor.kind == SensorKind::temperature && sensor.role == SensorRole::processor)
            found.push_back(sensor.identity);
    return found;
}

Texts processorsOf(const std::string& machine) {
    return processorsOf(findSensors(LinuxRoot(fixture(machine))));
}

TEST(SensorScan, a_hybrid_laptop_has_its_package_and_not_its_cores) {
    EXPECT_EQ(processorsOf("intel-hybrid-laptop-6.12"),
              Texts{"/sys/devices/platform/coretemp.0|coretemp|Package id 0"});
}

TEST(SensorScan, two_sockets_are_two_processors_whose_cores_stay_apart) {
    const auto sensors = findSensors(LinuxRoot(fixture("two-socket-server-5.15")));
    EXPECT_EQ(processorsOf(sensors),
              (Texts{"/sys/devices/platform/coretemp.0|coretemp|Package id 0",
                     "/sys/devices/platform/coretemp.1|coretemp|Package id 1"}));
    std::set<std::string> all;
    for (const auto& sensor : sensors) all.insert(sensor.identity);
    EXPECT_EQ(all.size(), sensors.size());
    EXPECT_TRUE(all.contains("/sys/devices/platform/coretemp.0|coretemp|Core 3"));
    EXPECT_TRUE(all.contains("/sys/devices/platform/coretemp.1|coretemp|Core 3"));
}

TEST(SensorScan, other_machines_have_what_their_processor_says) {
    EXPECT_EQ(processorsOf("amd-desktop-6.8"),
              Texts{"/sys/devices/pci0000:00/0000:00:18.3|k10temp|Tctl"});
    EXPECT_EQ(processorsOf("amd-two-gpus-laptop-6.15"),
              Texts{"/sys/devices/pci0000:00/0000:00:18.3|k10temp|Tctl"});
    EXPECT_EQ(processorsOf("dell-laptop-6.1"),
              Texts{"/sys/devices/platform/coretemp.0|coretemp|Package id 0"});
    EXPECT_EQ(processorsOf("arm-big-little-board-6.6"),
              Texts{"/sys/devices/virtual/thermal/thermal_zone0|cpu_thermal|temp1"});
}

TEST(SensorScan, a_machine_without_sensors_has_none) {
    EXPECT_TRUE(findSensors(LinuxRoot(fixture("virtual-server-6.18"))).empty());
}

TEST_F(SensorTree, of_the_die_and_the_control_temperature_the_die_counts) {
    const auto chip = addChip(0, "/sys/devices/pci0000:00/0000:00:18.3", "k10temp");
    addSensor(chip, "temp1", "70000\n", "Tctl\n");
    addSensor(chip, "temp2", "50000\n", "Tdie\n");
    EXPECT_EQ(processorsOf(findSensors(root)),
              Texts{"/sys/devices/pci0000:00/0000:00:18.3|k10temp|Tdie"});
}

TEST_F(SensorTree, cores_stand_in_for_a_package_that_is_not_told) {
    const auto chip = addChip(0, coretemp0, "coretemp");
    addSensor(chip, "temp2", "50000\n", "Core 0\n");
    addSensor(chip, "temp3", "51000\n", "Core 1\n");
    EXPECT_EQ(processorsOf(findSensors(root)).size(), 2u);
}

TEST_F(SensorTree, a_board_stands_in_for_a_processor_that_tells_nothing) {
    const auto chip = addChip(0, "/sys/devices/platform/nct6775.656", "nct6798");
    addSensor(chip, "temp2", "115000\n", "CPUTIN\n");
    addSensor(chip, "temp7", "41500\n", "PECI Agent 0\n");
    EXPECT_EQ(processorsOf(findSensors(root)),
              Texts{"/sys/devices/platform/nct6775.656|nct6798|PECI Agent 0"});
}

TEST_F(SensorTree, a_board_is_passed_over_where_the_processor_tells) {
    addSensor(addChip(0, "/sys/devices/platform/thinkpad_hwmon", "thinkpad"), "temp1", "52000\n",
              "CPU\n");
    addSensor(addChip(1, coretemp0, "coretemp"), "temp1", "52000\n", "Package id 0\n");
    EXPECT_EQ(processorsOf(findSensors(root)),
              Texts{"/sys/devices/platform/coretemp.0|coretemp|Package id 0"});
}

TEST_F(SensorTree, zones_stand_in_where_no_chip_tells) {
    addZone(0, "acpitz", "27800\n", "Processor");
    addZone(1, "x86_pkg_temp", "55000\n");
    EXPECT_EQ(processorsOf(findSensors(root)),
              Texts{"/sys/devices/virtual/thermal/thermal_zone1|x86_pkg_temp|"});
}

TEST_F(SensorTree, a_zone_that_slows_the_processor_is_its_own_by_whatever_name) {
    addZone(0, "bigcore0", "55000\n", "cpufreq-cpu4");
    addZone(1, "modem", "45000\n", "modem-power");
    addZone(2, "center", "45000\n");
    EXPECT_EQ(processorsOf(findSensors(root)),
              Texts{"/sys/devices/virtual/thermal/thermal_zone0|bigcore0|"});
}

TEST_F(SensorTree, a_zone_that_only_has_a_fan_or_other_trips_is_not_the_processors) {
    addZone(0, "board", "55000\n", "pwm-fan");
    tree.write(addZone(1, "case", "55000\n", "cpufreq-cpu0") + "/trip_point_0_type", "active\n");
    tree.write(addZone(2, "skin", "55000\n", "cpufreq-cpu0") + "/cdev0_trip_point", "../x\n");
    tree.remove(addZone(3, "lid", "55000\n", "cpufreq-cpu0") + "/cdev0_trip_point");
    tree.remove(addZone(4, "palm", "55000\n", "cpufreq-cpu0") + "/cdev0/type");
    tree.write("/sys/class/thermal/cooling_device0/type", "Processor\n");
    EXPECT_TRUE(findSensors(root).empty());
}

TEST_F(SensorTree, the_firmwares_zone_is_the_last_resort) {
    addZone(0, "acpitz", "47000\n", "Processor");
    EXPECT_EQ(processorsOf(findSensors(root)),
              Texts{"/sys/devices/virtual/thermal/thermal_zone0|acpitz|"});
    const auto chip = addChip(0, "/sys/devices/platform/dell_smm_hwmon", "dell_smm");
    addSensor(chip, "temp1", "50000\n", "CPU\n");
    EXPECT_EQ(processorsOf(findSensors(root)),
              Texts{"/sys/devices/platform/dell_smm_hwmon|dell_smm|CPU"});
}

TEST_F(SensorTree, a_zone_of_which_hwmon_tells_is_not_told_twice) {
    const auto zone = addZone(0, "acpitz", "47000\n", "Processor");
    tree.write(zone + "/hwmon0/name", "acpitz\n");
    tree.write(zone + "/hwmon0/temp1_input", "47000\n");
    link(tree.path() + "/sys/class/hwmon/hwmon0",
         std::filesystem::canonical(tree.path()) / (zone + "/hwmon0").substr(1));
    EXPECT_EQ(processorsOf(findSensors(root)),
              Texts{"/sys/devices/virtual/thermal/thermal_zone0|acpitz|temp1"});
}

TEST_F(SensorTree, another_number_changes_no_identity) {
    addSensor(addChip(1, coretemp0, "coretemp"), "temp1", "50000\n", "Package id 0\n");
    addSensor(addChip(2, coretemp1, "coretemp"), "temp1", "60000\n", "Package id 1\n");
    const auto before = processorsOf(findSensors(root));
    removeChip(1, coretemp0);
    removeChip(2, coretemp1);
    addSensor(addChip(7, coretemp0, "coretemp"), "temp1", "50000\n", "Package id 0\n");
    addSensor(addChip(3, coretemp1, "coretemp"), "temp1", "60000\n", "Package id 1\n");
    EXPECT_EQ(processorsOf(findSensors(root)), before);
}

TEST_F(SensorTree, drivers_of_the_old_kind_have_their_files_at_the_device) {
    const std::string device = "/sys/devices/platform/coretemp.0";
    tree.write(device + "/name", "coretemp\n");
    tree.write(device + "/temp1_input", "50000\n");
    std::filesystem::create_directories(tree.path() + device + "/hwmon/hwmon0");
    link(tree.path() + device + "/hwmon/hwmon0/device",
         std::filesystem::canonical(tree.path()) / device.substr(1));
    link(tree.path() + "/sys/class/hwmon/hwmon0",
         std::filesystem::canonical(tree.path()) / (device + "/hwmon/hwmon0").substr(1));
    EXPECT_EQ(processorsOf(findSensors(root)), Texts{device + "|coretemp|temp1"});
}

TEST_F(SensorTree, twins_are_told_apart_by_their_channel) {
    const auto chip = addChip(0, coretemp0, "coretemp");
    addSensor(chip, "temp1", "50000\n", "Package id 0\n");
    addSensor(chip, "temp2", "60000\n", "Package id 0\n");
    EXPECT_EQ(processorsOf(findSensors(root)),
              (Texts{"/sys/devices/platform/coretemp.0|coretemp|Package id 0|temp1",
                     "/sys/devices/platform/coretemp.0|coretemp|Package id 0|temp2"}));
}

TEST_F(SensorTree, labels_that_say_what_others_are_called_make_no_twins) {
    const auto chip = addChip(0, coretemp0, "coretemp");
    const std::array labels{"a\n", "a\n", "a|temp1\n", "a|temp1#2\n"};
    for (std::size_t i = 0; i < labels.size(); ++i)
        addSensor(chip, "temp" + std::to_string(i + 1), "50000\n", labels.at(i));
    std::set<std::string> identities;
    for (const auto& sensor : findSensors(root)) identities.insert(sensor.identity);
    EXPECT_EQ(identities.size(), labels.size());
}

TEST_F(SensorTree, chips_of_one_name_that_stand_nowhere_have_their_order) {
    for (const char* number : {"3", "5"}) {
        const std::string folder = std::string("/sys/devices/virtual/hwmon/hwmon") + number;
        tree.write(folder + "/name", "cpu_thermal\n");
        tree.write(folder + "/temp1_input", "50000\n");
        link(tree.path() + "/sys/class/hwmon/hwmon" + number,
             std::filesystem::canonical(tree.path()) / folder.substr(1));
    }
    EXPECT_EQ(processorsOf(findSensors(root)),
              (Texts{"/sys/devices/virtual|cpu_thermal|temp1|temp1",
                     "/sys/devices/virtual|cpu_thermal|temp1|temp1#2"}));
}

TEST_F(SensorTree, a_battery_of_the_machine_tells_its_temperature_and_a_mouse_does_not) {
    for (const auto& [name, scope] :
         {std::pair{"BAT0", "System\n"}, std::pair{"mouse", "Device\n"}, std::pair{"BAT1", ""}}) {
        const std::string folder = std::string("/sys/class/power_supply/") + name;
        tree.write(folder + "/type", "Battery\n");
        if (*scope) tree.write(folder + "/scope", scope);
        tree.write(folder + "/temp", "305\n");
    }
    tree.write("/sys/class/power_supply/AC/type", "Mains\n");
    tree.write("/sys/class/power_supply/AC/temp", "305\n");
    Texts found;
    for (const auto& sensor : findSensors(root)) {
        EXPECT_EQ(sensor.kind, SensorKind::batteryTemperature);
        found.push_back(sensor.device);
    }
    EXPECT_EQ(found, (Texts{"/sys/class/power_supply/BAT0", "/sys/class/power_supply/BAT1"}));
}

TEST_F(SensorTree, hostile_names_and_labels_are_names_like_others) {
    const auto chip = addChip(0, coretemp0, "core\ntemp\xff");
    addSensor(chip, "temp1", "50000\n", "CPU\nPackage id 0\xff\n");
    addSensor(chip, "temp2", "50000\n", std::string(100'000, 'x'));
    tree.write(chip + "/temp3_input/x", "a folder\n");
    tree.write(chip + "/temp4_label", "no figure\n");
    tree.write(chip + "/temp5_input", "50000\n");
    tree.write(chip + "/temp5_label/x", "a folder\n");
    const auto sensors = findSensors(root);
    ASSERT_EQ(sensors.size(), 4u);
    EXPECT_EQ(sensors[0].identity,
              "/sys/devices/platform/coretemp.0|core\ntemp\xff|CPU\nPackage id 0\xff");
    EXPECT_EQ(sensors[1].stem, "temp2");
    EXPECT_LT(sensors[1].identity.size(), 200u);
}

TEST_F(SensorTree, links_that_lead_nowhere_or_out_of_the_machine_are_no_chips) {
    std::filesystem::create_directories(tree.path() + "/sys/class/hwmon");
    std::filesystem::create_symlink("../../nowhere", tree.path() + "/sys/class/hwmon/hwmon0");
    std::filesystem::create_symlink("hwmon1", tree.path() + "/sys/class/hwmon/hwmon1");
    std::filesystem::create_symlink("/proc/self", tree.path() + "/sys/class/hwmon/hwmon2");
    tree.write("/sys/class/hwmon/hwmon3", "a file\n");
    tree.write("/sys/class/hwmon/hwmon4/temp1_input", "no name\n");
    EXPECT_TRUE(findSensors(root).empty());
}

TEST_F(SensorTree, ten_thousand_sensors_are_looked_at_up_to_a_bound) {
    const auto chip = addChip(0, coretemp0, "coretemp");
    for (int i = 0; i < 9'999; ++i) {
        std::ofstream(tree.path() + chip + "/temp" + std::to_string(i) + "_input") << "50000\n";
    }
    EXPECT_EQ(findSensors(root).size(), mostSensors);
}

}  // namespace
}  // namespace vtx::test
