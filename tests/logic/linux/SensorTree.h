// SPDX-License-Identifier: MIT
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>

#include "linux/SensorMachine.h"
#include "linux/TemporaryTree.h"

namespace vtx::test {

/// A machine whose sensors a test lays out as the kernel does.
struct SensorTree : testing::Test {
    static void link(const std::filesystem::path& at, const std::filesystem::path& to) {
        std::filesystem::create_directories(at.parent_path());
        std::filesystem::remove(at);
        std::filesystem::create_symlink(
            std::filesystem::relative(to, std::filesystem::canonical(at.parent_path())), at);
    }
    /// A chip of hwmon on a device, which gets the number; gives the folder of its files.
    std::string addChip(int number, const std::string& device, const std::string& name) const {
        const std::string folder = device + "/hwmon/hwmon" + std::to_string(number);
        tree.write(folder + "/name", name + "\n");
        link(tree.path() + "/sys/class/hwmon/hwmon" + std::to_string(number),
             std::filesystem::canonical(tree.path()) / folder.substr(1));
        return folder;
    }
    void removeChip(int number, const std::string& device) const {
        tree.remove("/sys/class/hwmon/hwmon" + std::to_string(number));
        tree.remove(device + "/hwmon");
    }
    void addSensor(const std::string& folder, const std::string& stem, std::string_view value,
                   std::string_view label = "") const {
        tree.write(folder + "/" + stem + "_input", value);
        if (!label.empty()) tree.write(folder + "/" + stem + "_label", label);
    }
    /// A zone with a passive trip point at which the devices of these types cool it.
    std::string addZone(int number, const std::string& type, std::string_view value,
                        const std::string& cooling = "") const {
        const std::string folder =
            "/sys/devices/virtual/thermal/thermal_zone" + std::to_string(number);
        tree.write(folder + "/type", type + "\n");
        tree.write(folder + "/temp", value);
        tree.write(folder + "/trip_point_0_type", "passive\n");
        if (!cooling.empty()) {
            tree.write(folder + "/cdev0/type", cooling + "\n");
            tree.write(folder + "/cdev0_trip_point", "0\n");
        }
        link(tree.path() + "/sys/class/thermal/thermal_zone" + std::to_string(number),
             std::filesystem::canonical(tree.path()) / folder.substr(1));
        return folder;
    }

    TemporaryTree tree;
    LinuxRoot root{tree.path()};
    SensorBench bench;
};

inline constexpr const char* coretemp0 = "/sys/devices/platform/coretemp.0";
inline constexpr const char* coretemp1 = "/sys/devices/platform/coretemp.1";

}  // namespace vtx::test
