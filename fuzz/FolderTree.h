// SPDX-License-Identifier: MIT
// The folders of a machine, in which any file may say anything.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <bitset>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>

#include "Fuzz.h"
#include "linux/TemporaryTree.h"

namespace vtx::fuzz {

struct File {
    const char* path;
    /// What it says where the input does not say otherwise.
    std::string_view usual;
};

/// The input names a file by its place here, so that a new one stands at the end.
inline constexpr std::array files{
    File{"/proc/stat", "cpu  8 0 8 80\ncpu0 4 0 4 40\ncpu1 4 0 4 40\nintr 1\n"},
    File{"/proc/cpuinfo", "processor : 0\nmodel name : Chip 7\n"},
    File{"/proc/meminfo",
         "MemTotal: 90 kB\nMemFree: 40 kB\nMemAvailable: 50 kB\nSwapTotal: 9 kB\nSwapFree: 4 kB\n"},
    File{"/proc/pressure/memory",
         "some avg10=0.00 avg60=0.00 avg300=0.00 total=1\n"
         "full avg10=0.00 avg60=0.00 avg300=0.00 total=1\n"},
    File{"/proc/sys/kernel/osrelease", "6.1.0\n"},
    File{"/proc/device-tree/compatible", "maker,board|maker,chip|"},
    File{"/proc/device-tree/model", "A Board|"},
    File{"/sys/class/dmi/id/product_name", "Model\n"},
    File{"/sys/class/dmi/id/board_name", "Board\n"},
    File{"/sys/class/dmi/id/product_family", "Family\n"},
    File{"/run/udev/data/+dmi:id", "E:MEMORY_DEVICE_0_TYPE=DDR4\n"},
    File{"/sys/devices/system/edac/mc/mc0/dimm0/dimm_mem_type", "Registered-DDR4\n"},
    File{"/sys/devices/system/cpu/present", "0-1\n"},
    File{"/sys/devices/cpu_core/cpus", "0\n"},
    File{"/sys/devices/cpu_atom/cpus", "1\n"},
    File{"/sys/devices/system/cpu/cpu0/cpu_capacity", "1024\n"},
    File{"/sys/devices/system/cpu/cpu1/cpu_capacity", "512\n"},
    File{"/sys/devices/system/cpu/cpufreq/policy0/related_cpus", "0\n"},
    File{"/sys/devices/system/cpu/cpufreq/policy0/cpuinfo_max_freq", "3000000\n"},
    File{"/sys/devices/system/cpu/cpufreq/policy0/cpuinfo_min_freq", "800000\n"},
    File{"/sys/devices/system/cpu/cpufreq/policy0/scaling_available_frequencies", ""},
    File{"/sys/devices/system/cpu/cpufreq/policy0/scaling_boost_frequencies", ""},
    File{"/sys/devices/system/cpu/cpufreq/policy0/scaling_cur_freq", "900000\n"},
    File{"/sys/devices/system/cpu/cpufreq/policy0/stats/time_in_state", ""},
    File{"/sys/devices/system/cpu/cpufreq/policy1/related_cpus", "1\n"},
    File{"/sys/devices/system/cpu/cpufreq/policy1/cpuinfo_max_freq", "2000000\n"},
    File{"/sys/devices/system/cpu/cpufreq/policy1/cpuinfo_avg_freq", "1000000\n"},
    File{"/sys/devices/system/cpu/cpufreq/policy1/scaling_available_frequencies",
         "2000000 1000000\n"},
    File{"/sys/devices/system/cpu/cpufreq/policy1/scaling_cur_freq", "1000000\n"},
    File{"/sys/devices/platform/coretemp.0/hwmon/hwmon0/name", "coretemp\n"},
    File{"/sys/devices/platform/coretemp.0/hwmon/hwmon0/temp1_input", "45000\n"},
    File{"/sys/devices/platform/coretemp.0/hwmon/hwmon0/temp1_label", "Package id 0\n"},
    File{"/sys/devices/platform/coretemp.0/hwmon/hwmon0/temp1_fault", "0\n"},
    File{"/sys/devices/platform/coretemp.0/hwmon/hwmon0/temp2_input", "44000\n"},
    File{"/sys/devices/platform/coretemp.0/hwmon/hwmon0/temp2_label", "Core 0\n"},
    File{"/sys/devices/platform/coretemp.0/hwmon/hwmon0/temp3_input", "43000\n"},
    File{"/sys/devices/platform/coretemp.0/hwmon/hwmon0/temp3_label", "Core 1\n"},
    File{"/sys/devices/platform/coretemp.0/hwmon/hwmon0/temp4_input", "43000\n"},
    File{"/sys/devices/platform/coretemp.0/hwmon/hwmon0/temp4_label", "Core 2\n"},
    File{"/sys/devices/platform/coretemp.0/hwmon/hwmon0/fan1_input", "1200\n"},
    File{"/sys/devices/platform/coretemp.0/hwmon/hwmon0/fan1_label", ""},
    File{"/sys/devices/platform/coretemp.0/hwmon/hwmon0/fan1_alarm", "0\n"},
    File{"/sys/devices/platform/coretemp.0/power/runtime_status", "active\n"},
    File{"/sys/devices/platform/coretemp.0/power/control", "auto\n"},
    File{"/sys/devices/platform/coretemp.0/power/autosuspend_delay_ms", "2000\n"},
    File{"/sys/devices/virtual/thermal/thermal_zone0/hwmon1/name", "acpitz\n"},
    File{"/sys/devices/virtual/thermal/thermal_zone0/hwmon1/temp1_input", "27800\n"},
    File{"/sys/devices/virtual/thermal/thermal_zone0/type", "acpitz\n"},
    File{"/sys/devices/virtual/thermal/thermal_zone0/mode", "enabled\n"},
    File{"/sys/devices/virtual/thermal/thermal_zone0/temp", "27800\n"},
    File{"/sys/devices/virtual/thermal/thermal_zone0/trip_point_0_type", "passive\n"},
    File{"/sys/devices/virtual/thermal/thermal_zone0/trip_point_0_temp", "90000\n"},
    File{"/sys/devices/virtual/thermal/thermal_zone0/trip_point_0_hyst", "2000\n"},
    File{"/sys/devices/virtual/thermal/thermal_zone0/trip_point_1_type", "critical\n"},
    File{"/sys/devices/virtual/thermal/thermal_zone0/trip_point_1_temp", "105000\n"},
    File{"/sys/devices/virtual/thermal/thermal_zone0/cdev0/type", "Processor\n"},
    File{"/sys/devices/virtual/thermal/thermal_zone0/cdev0_trip_point", "0\n"},
    File{"/sys/devices/virtual/thermal/thermal_zone1/type", "x86_pkg_temp\n"},
    File{"/sys/devices/virtual/thermal/thermal_zone1/temp", "50000\n"},
    File{"/sys/class/power_supply/BAT0/type", "Battery\n"},
    File{"/sys/class/power_supply/BAT0/scope", "System\n"},
    File{"/sys/class/power_supply/BAT0/present", "1\n"},
    File{"/sys/class/power_supply/BAT0/temp", "300\n"},
    File{"/sys/class/power_supply/BAT0/uevent", ""},
    File{"/sys/class/power_supply/BAT0/status", "Discharging\n"},
    File{"/sys/class/power_supply/BAT0/capacity", "50\n"},
    File{"/sys/class/power_supply/BAT0/energy_now", "20000000\n"},
    File{"/sys/class/power_supply/BAT0/energy_full", "40000000\n"},
    File{"/sys/class/power_supply/BAT0/voltage_now", "12000000\n"},
    File{"/sys/class/power_supply/BAT0/voltage_min_design", "11000000\n"},
    File{"/sys/class/power_supply/BAT0/power_now", "9000000\n"},
    File{"/sys/class/power_supply/BAT0/cycle_count", "12\n"},
    File{"/sys/class/power_supply/AC/type", "Mains\n"},
    File{"/sys/class/power_supply/AC/scope", "System\n"},
    File{"/sys/class/power_supply/AC/online", "0\n"},
    File{"/sys/block/sda/hidden", "0\n"},
    File{"/sys/block/sda/device/model", "Disk\n"},
    File{"/sys/block/sda/diskseq", "1\n"},
    File{"/sys/block/nvme0n1/hidden", "0\n"},
    File{"/sys/block/nvme0n1/device/name", "Card\n"},
    File{"/sys/block/nvme0c1n1/hidden", "1\n"},
    File{"/sys/block/zram0/mm_stat", "100 50 4096 0 4096 0 0 0 0\n"},
    File{"/sys/class/net/wlan0/uevent", "DEVTYPE=wlan\nINTERFACE=wlan0\n"},
    File{"/sys/devices/pci/card/gpu_busy_percent", "30\n"},
    File{"/sys/devices/pci/card/gt/gt0/rc6_residency_ms", "100\n"},
    File{"/sys/devices/pci/card/gt/gt0/rc6_enable", "1\n"},
    File{"/sys/devices/pci/card/gt/gt1/rc6_residency_ms", "200\n"},
    File{"/sys/devices/pci/card/gt/gt1/rc6_enable", "1\n"},
};

/// At which the input says that what follows comes between the two moments.
inline constexpr std::size_t secondMoment = 255;

/// What the files say at two moments.
using Texts = std::array<std::string_view, files.size()>;
struct Moments {
    Texts first;
    Texts second;
    /// Which of the files the input says something of.
    std::bitset<files.size()> told;
};

/// Parts that end with a zero byte: the place of a file, counted from 1, and all that it says.
inline Moments momentsOf(std::string_view input) {
    Moments moments;
    for (std::size_t i = 0; i < files.size(); ++i)
        moments.first.at(i) = moments.second.at(i) = files.at(i).usual;
    bool isSecond = false;
    while (!input.empty()) {
        const auto part = input.substr(0, input.find('\0'));
        input.remove_prefix(std::min(part.size() + 1, input.size()));
        if (part.empty()) continue;
        const std::size_t place = static_cast<unsigned char>(part.front());
        if (place == secondMoment) isSecond = true;
        if (place > files.size() || place == 0) continue;
        moments.told.set(place - 1);
        moments.second.at(place - 1) = part.substr(1);
        if (!isSecond) moments.first.at(place - 1) = part.substr(1);
    }
    return moments;
}

/// Made once, with every file it will ever have: only what they say is the input's.
class FolderTree {
public:
    FolderTree() {
        for (std::size_t i = 0; i < files.size(); ++i) {
            tree_.write(files.at(i).path, "");
            // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system's own way
            opened_.at(i) = ::open((tree_.path() + files.at(i).path).c_str(), O_RDWR | O_CLOEXEC);
            expect(opened_.at(i) >= 0);
            isOfDeviceTree_[i] =
                std::string_view(files.at(i).path).find("device-tree") != std::string_view::npos;
        }
        link("/sys/devices/system/cpu/cpu0/cpufreq", "../cpufreq/policy0");
        link("/sys/devices/system/cpu/cpu1/cpufreq", "../cpufreq/policy1");
        link("/sys/class/hwmon/hwmon0", "../../devices/platform/coretemp.0/hwmon/hwmon0");
        link("/sys/devices/platform/coretemp.0/hwmon/hwmon0/device", "../..");
        link("/sys/class/hwmon/hwmon1", "../../devices/virtual/thermal/thermal_zone0/hwmon1");
        link("/sys/class/thermal/thermal_zone0", "../../devices/virtual/thermal/thermal_zone0");
        link("/sys/class/thermal/thermal_zone1", "../../devices/virtual/thermal/thermal_zone1");
        link("/sys/class/net/wlan0/phy80211", "../../../devices");
    }

    [[nodiscard]] const std::string& path() const { return tree_.path(); }

    /// Writes what is not there already into the files that readers may hold open. In those of the
    /// device tree a bar stands for the zero byte, which ends a part of the input.
    void say(const Texts& texts) {
        for (std::size_t i = 0; i < files.size(); ++i) {
            // Told by where it stands: comparing all of them would take more time than the readers
            // of a few take.
            const bool isUsual = texts.at(i).data() == files.at(i).usual.data();
            if (isUsual && saysUsual_[i]) continue;
            saysUsual_[i] = isUsual;
            std::string text(texts.at(i));
            if (isOfDeviceTree_[i]) std::ranges::replace(text, '|', '\0');
            if (text == said_.at(i)) continue;
            const int file = opened_.at(i);
            expect(::pwrite(file, text.data(), text.size(), 0) ==
                   static_cast<ssize_t>(text.size()));
            expect(::ftruncate(file, static_cast<off_t>(text.size())) == 0);
            said_.at(i) = std::move(text);
        }
    }

private:
    static std::filesystem::path parent() {
        const std::filesystem::path inMemory = "/dev/shm";
        const bool isChosen = std::getenv("TMPDIR") != nullptr;
        return !isChosen && ::access(inMemory.c_str(), W_OK) == 0
                   ? inMemory
                   : std::filesystem::temp_directory_path();
    }
    void link(const std::string& at, const std::string& target) const {
        const std::filesystem::path file = tree_.path() + at;
        std::filesystem::create_directories(file.parent_path());
        std::filesystem::create_symlink(target, file);
    }

    test::TemporaryTree tree_{parent()};
    std::array<int, files.size()> opened_{};
    std::array<std::string, files.size()> said_;
    std::bitset<files.size()> saysUsual_;
    std::bitset<files.size()> isOfDeviceTree_;
};

}  // namespace vtx::fuzz
