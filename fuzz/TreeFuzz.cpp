// SPDX-License-Identifier: MIT
// A machine's folders, in which any file may say anything: what the readers of whole trees make of
// them, at two moments.
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "Fuzz.h"
#include "linux/FakeRunLoop.h"
#include "linux/SteadyMemory.h"
#include "linux/TemporaryTree.h"
#include "platform/linux/AmdLoad.h"
#include "platform/linux/BatteryReader.h"
#include "platform/linux/BlockDevices.h"
#include "platform/linux/CoreChannels.h"
#include "platform/linux/IdentityNodes.h"
#include "platform/linux/IntelLoad.h"
#include "platform/linux/LinkKinds.h"
#include "platform/linux/LinuxMemoryPressure.h"
#include "platform/linux/LinuxSysctl.h"
#include "platform/linux/MachineIdentity.h"
#include "platform/linux/Parse.h"
#include "platform/linux/PressureTriggers.h"
#include "platform/linux/RuntimePower.h"
#include "platform/linux/SensorFile.h"
#include "platform/linux/SensorScan.h"
#include "platform/linux/SensorZones.h"
#include "platform/linux/ThermalZones.h"

using namespace vtx;
using namespace std::chrono_literals;

namespace {

struct File {
    const char* path;
    /// What it says where the input does not say otherwise.
    std::string_view usual;
};

constexpr std::string_view coretemp = "/sys/devices/platform/coretemp.0";
constexpr std::string_view card = "/sys/devices/pci/card";

/// The input names a file by its place here, so that a new one stands at the end.
constexpr std::array files{
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
constexpr std::size_t secondMoment = 255;

/// What the files say at two moments.
using Texts = std::array<std::string_view, files.size()>;
struct Moments {
    Texts first;
    Texts second;
};

/// Parts that end with a zero byte: the place of a file, counted from 1, and all that it says.
Moments momentsOf(std::string_view input) {
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
        moments.second.at(place - 1) = part.substr(1);
        if (!isSecond) moments.first.at(place - 1) = part.substr(1);
    }
    return moments;
}

/// Made once, with every file it will ever have: only what they say is the input's.
class Tree {
public:
    Tree() {
        for (std::size_t i = 0; i < files.size(); ++i) {
            tree_.write(files.at(i).path, "");
            // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system's own way
            opened_.at(i) = ::open((tree_.path() + files.at(i).path).c_str(), O_RDWR | O_CLOEXEC);
            fuzz::expect(opened_.at(i) >= 0);
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
            std::string text(texts.at(i));
            if (std::string_view(files.at(i).path).find("device-tree") != std::string_view::npos)
                std::ranges::replace(text, '|', '\0');
            if (text == said_.at(i)) continue;
            const int file = opened_.at(i);
            fuzz::expect(::pwrite(file, text.data(), text.size(), 0) ==
                         static_cast<ssize_t>(text.size()));
            fuzz::expect(::ftruncate(file, static_cast<off_t>(text.size())) == 0);
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
};

/// Refuses, or hands out a descriptor that is never ready.
struct Triggers final : PressureTriggers {
    explicit Triggers(bool areThere) : areThere_(areThere) {}
    FileDescriptor open(const char*) override {
        // NOLINTNEXTLINE(cppcoreguidelines-pro-type-vararg): the system's own way
        return areThere_ ? FileDescriptor(::open("/dev/null", O_RDWR | O_CLOEXEC))
                         : FileDescriptor();
    }

private:
    bool areThere_;
};

struct Changes final : DeviceChanges {
    std::uint64_t generation() override { return now; }
    std::uint64_t now = 1;
};

/// What all readers share.
struct Machine {
    LinuxRoot root;
    ManualClock clock;
    std::shared_ptr<Changes> changes = std::make_shared<Changes>();
};

/// Some of the readers, made at the first moment.
class Readers {
public:
    explicit Readers(Machine& shared) : machine(shared) {}
    Readers(const Readers&) = delete;
    Readers& operator=(const Readers&) = delete;
    virtual ~Readers() = default;

    /// Once, at the first moment.
    virtual void look() {}
    /// At each moment.
    virtual void read() {}

protected:
    Machine& machine;
};

class Processors final : public Readers {
public:
    using Readers::Readers;

    void look() override {
        const auto numbers = processors_.numbers();
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            fuzz::expect(numbers[i] < cpuNumberLimit && processors_.placeOf(numbers[i]) == i);
            fuzz::expect(processors_.levelAt(i) < processors_.levelCount());
        }
        for (std::size_t level = 0; level < processors_.levelCount(); ++level)
            fuzz::expect(numbers.empty() || processors_.countAt(level) > 0);
        std::set<std::size_t> places;
        for (const auto& policy : cpuFreq_.policies()) {
            fuzz::expect(!policy.places.empty() && std::ranges::is_sorted(policy.places));
            for (const auto place : policy.places)
                fuzz::expect(place < processors_.count() && places.insert(place).second);
        }
        for (const std::size_t level : {0U, 1U}) {
            const auto steps = cpuFreq_.stepsKHz(level);
            fuzz::expect(steps.size() <= 384);
            for (std::size_t i = 0; i < steps.size(); ++i)
                fuzz::expect(isClock(steps[i]) && (i == 0 || steps[i - 1] < steps[i]));
        }
        for (const auto& policy : channels_->policies)
            for (const auto& core : policy.cores)
                fuzz::expect(core.stateCount() <= channels_->stateNames.size() &&
                             core.firstValue + core.stateCount() <= channels_->valueCount);
    }

    /// No state of a processor loses time, and all together gain no more than it counted.
    void read() override {
        const auto ticksBefore = ticksByPlace();
        const auto before = residencies_.values();
        const bool isUnderstood = stat_.read();
        fuzz::expect(residencies_.read() == isUnderstood);
        const auto ticks = ticksByPlace();
        const auto& now = residencies_.values();
        for (const auto& policy : channels_->policies) {
            for (const auto& [name, place, steps, first] : policy.cores) {
                double gained = 0.0;
                for (std::size_t i = first; i <= first + steps.size(); ++i) {
                    fuzz::expect(now[i] >= before[i]);
                    gained += static_cast<double>(now[i] - before[i]);
                }
                double counted = 0.0;
                for (std::size_t word = 0; word < 4; ++word)
                    counted += ticks[place].at(word) - ticksBefore[place].at(word);
                const double most = counted * 1e7 + static_cast<double>(steps.size() + 1);
                fuzz::expect(gained <= most * (1.0 + 1e-9));
                fuzz::expect(hasRead_ || gained == 0.0);
            }
        }
        hasRead_ = hasRead_ || isUnderstood;
    }

private:
    std::vector<std::array<std::uint32_t, 4>> ticksByPlace() const {
        std::vector<std::array<std::uint32_t, 4>> words;
        for (const auto& ticks : stat_.ticks()) words.push_back(ticks.words());
        return words;
    }

    LinuxProcessors processors_{machine.root};
    CpuFreq cpuFreq_{machine.root, processors_};
    std::shared_ptr<const CoreChannels> channels_ =
        std::make_shared<const CoreChannels>(machine.root, processors_, cpuFreq_);
    CoreResidencies residencies_{machine.root, processors_, channels_};
    CpuStatReader stat_{machine.root, processors_};
    bool hasRead_ = false;
};

class Sensors final : public Readers {
public:
    explicit Sensors(Machine& shared) : Readers(shared) {
        for (const auto& sensor : sensors_)
            files_.push_back(std::make_unique<SensorFile>(
                machine.root, [&clock = machine.clock] { return clock.continuous(); }, sensor));
    }

    void look() override {
        fuzz::expect(sensors_.size() <= mostSensors);
        std::set<std::string> identities;
        for (const auto& sensor : sensors_) {
            fuzz::expect(!sensor.device.empty() && !sensor.folder.empty());
            fuzz::expect(sensor.identity.starts_with(sensor.device));
            fuzz::expect(identities.insert(sensor.identity).second);
        }
        fuzz::expect(std::ranges::is_sorted(sensors_, {}, &FoundSensor::device));
        for (const auto& zone : thermalZones(machine.root)) {
            fuzz::expect(zone.folder.starts_with("/sys/devices/") && zone.type.size() <= 100);
            const auto trip = machine.root.readText(zone.folder + "/trip_point_0_type");
            const auto other = machine.root.readText(zone.folder + "/trip_point_1_type");
            fuzz::expect(zone.cooling == ZoneCooling::none || trip == "passive" ||
                         other == "passive");
        }
    }
    void read() override {
        const auto state = power_.state();
        for (std::size_t i = 0; i < sensors_.size(); ++i) {
            const auto value = files_[i]->read();
            const bool isFan = sensors_[i].kind == SensorKind::fan;
            fuzz::expect(!value || (isFan ? *value >= 0.0 && *value < 65535.0
                                          : *value > -128.0 && *value < 127.0 && *value != 0.0));
            // One that sleeps is not asked.
            if (sensors_[i].folder.starts_with(coretemp) && state == RuntimePower::State::asleep)
                fuzz::expect(!value);
        }
        const auto delay = power_.autosuspendDelay();
        fuzz::expect(!delay || (*delay >= 0s && *delay <= 24h));
        const auto level = zones_.level();
        fuzz::expect(!level || (*level >= 0 && *level <= 3));
    }

private:
    std::vector<FoundSensor> sensors_ = findSensors(machine.root);
    std::vector<std::unique_ptr<SensorFile>> files_;
    RuntimePower power_{machine.root, std::string(coretemp)};
    ThermalZones zones_{machine.root, machine.changes};
};

class Identity final : public Readers {
public:
    using Readers::Readers;

    void look() override {
        const MachineIdentity identity(machine.root);
        for (const auto& text : {identity.chip, identity.model, identity.family})
            fuzz::expect(!text || !text->empty());
        for (const auto& entry : identity.compatible)
            fuzz::expect(!entry.empty() && entry.find('\0') == std::string::npos);
        if (const auto node = makeMemoryNode(machine.root)) {
            auto properties = *node->properties();
            fuzz::expect(std::get<Data>(properties.at("dram-type").value()).size() < 16);
        }
        auto product = *makeProductNode(machine.root)->properties();
        fuzz::expect(!std::get<Data>(product.at("product-name").value()).empty());
    }
};

class Devices final : public Readers {
public:
    using Readers::Readers;

    void look() override {
        const auto disks = listBlockDevices(machine.root);
        fuzz::expect(std::ranges::is_sorted(disks, {}, &BlockDevice::name));
        for (const auto& disk : disks) {
            fuzz::expect(disk.name == "sda" || disk.name == "nvme0n1");
            fuzz::expect(!disk.product || !disk.product->empty());
            fuzz::expect((disk.paths == std::vector<std::string>{"nvme0c1n1"}) ==
                         (disk.name == "nvme0n1"));
        }
        const auto link = readLinkFacts(machine.root, "wlan0");
        fuzz::expect(link.isWireless && !link.hasDevice);
        fuzz::expect(link.deviceType.find('\n') == std::string::npos);
        KernelLink ether;
        ether.hardwareType = 1;
        fuzz::expect(kindOf(ether, link) ==
                     (link.deviceType == "wwan" ? LinkKind::cellular : LinkKind::wifi));
    }
};

class Battery final : public Readers {
public:
    using Readers::Readers;

    void read() override {
        const auto state = battery_.read();
        if (!state) return;
        fuzz::expect(!state->percent || (*state->percent >= 0 && *state->percent <= 100));
        for (const auto& minutes : {state->minutesToEmpty, state->minutesToFull})
            fuzz::expect(!minutes || (*minutes >= 0 && *minutes <= 6000));
        fuzz::expect(!(state->powersMachine && isSupplyOnline(machine.root)));
        fuzz::expect(!state->currentMAh || *state->currentMAh >= 0);
    }

private:
    BatteryReader battery_{machine.root, machine.changes};
};

class Memory final : public Readers {
public:
    explicit Memory(Machine& shared) : Readers(shared) {
        for (const bool areThere : {false, true}) {
            auto& stalls = *stalls_.emplace_back(std::make_unique<Stalls>(*this, areThere));
            stalls.source->setEventHandler([&told = stalls.told](std::uint32_t level) {
                fuzz::expect(level == memoryPressureNormal || level == memoryPressureWarn ||
                             level == memoryPressureCritical);
                // Each change is told once.
                fuzz::expect(told != level);
                told = level;
            });
            stalls.source->activate();
        }
    }

    void read() override {
        tryMemory();
        tryStalls();
    }

private:
    struct Stalls {
        Stalls(Memory& memory, bool areThere)
            : triggers(areThere),
              pressure(memory.machine.root, loop, memory.machine.clock, triggers, memory.reader_),
              source(pressure.create(memoryPressureNormal | memoryPressureWarn |
                                     memoryPressureCritical)) {}
        Triggers triggers;
        test::FakeRunLoop loop;
        std::uint32_t told = memoryPressureNormal;
        LinuxMemoryPressure pressure;
        std::unique_ptr<MemoryPressureSource> source;
    };

    void tryMemory() {
        const auto sample = reader_.read();
        fuzz::expect(!sample || sample->info.total > 0);
        std::array<std::byte, 32> record{};
        std::size_t size = record.size();
        fuzz::expect((sysctl_.sysctlbyname("vm.swapusage", record, size) == 0) ==
                     sample.has_value());
        if (!sample) return;
        std::array<std::uint64_t, 3> swap{};  // total, available, used
        std::memcpy(swap.data(), record.data(), sizeof swap);
        fuzz::expect(swap[0] == sample->info.swapTotal * 1024);
        fuzz::expect(swap[2] <= swap[0] && swap[1] == swap[0] - swap[2]);
        const auto pages = pageCountsOf(sample->info, sample->zramBytes, 4096);
        fuzz::expect(pages.free + pages.active + pages.inactive + pages.wired + pages.compressor ==
                     sample->info.total / 4);
    }

    /// A stall is told, and its end when nothing stalled meanwhile.
    void tryStalls() {
        auto& byTriggers = *stalls_.back();
        fuzz::expect(byTriggers.loop.watched() == 2);
        byTriggers.loop.fire(0);
        fuzz::expect(byTriggers.told != memoryPressureNormal);
        machine.clock.advanceBy(2s);
        fuzz::expect(byTriggers.told == memoryPressureNormal);
    }

    LinuxProcessors processors_{machine.root};
    MemInfoReader reader_{machine.root, machine.clock, *machine.changes};
    LinuxSysctl sysctl_{machine.root, processors_, reader_};
    std::vector<std::unique_ptr<Stalls>> stalls_;
};

class Graphics final : public Readers {
public:
    using Readers::Readers;

    void read() override {
        for (const auto& percent : {amd_.next(), intel_.next()})
            fuzz::expect(!percent || *percent <= 100);
    }

private:
    std::vector<std::string> counterPaths() const {
        std::vector<std::string> paths;
        for (const auto& counter :
             IntelLoad::countersOf(machine.root, std::string(card), "/sys/none"))
            paths.push_back(machine.root.path(counter));
        return paths;
    }

    AmdLoad amd_{machine.root.path(std::string(card) + "/gpu_busy_percent")};
    IntelLoad intel_{machine.clock, [](Duration) {}, counterPaths()};
};

using MakeReaders = std::unique_ptr<Readers> (*)(Machine&);
template <class Made>
std::unique_ptr<Readers> make(Machine& machine) {
    return std::make_unique<Made>(machine);
}

/// Who reads the files whose paths have this in them.
struct Reading {
    std::string_view part;
    MakeReaders make;
};
constexpr std::array readings{
    Reading{"/proc/stat", make<Processors>},  Reading{"/proc/cpuinfo", make<Processors>},
    Reading{"/cpu", make<Processors>},        Reading{"/coretemp", make<Sensors>},
    Reading{"/thermal", make<Sensors>},       Reading{"/power_supply/", make<Sensors>},
    Reading{"/proc/cpuinfo", make<Identity>}, Reading{"/device-tree/", make<Identity>},
    Reading{"dmi", make<Identity>},           Reading{"dimm_mem_type", make<Identity>},
    Reading{"/block/", make<Devices>},        Reading{"/net/", make<Devices>},
    Reading{"/power_supply/", make<Battery>}, Reading{"/proc/meminfo", make<Memory>},
    Reading{"/pressure/", make<Memory>},      Reading{"osrelease", make<Memory>},
    Reading{"/zram", make<Memory>},           Reading{"/card/", make<Graphics>}};

/// Those whose files say something else than usual; the others say nothing new, and take their
/// time.
std::vector<std::unique_ptr<Readers>> readersOf(const Moments& moments, Machine& machine) {
    std::set<MakeReaders> wanted;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const auto& [path, usual] = files.at(i);
        if (moments.first.at(i) == usual && moments.second.at(i) == usual) continue;
        for (const auto& [part, make] : readings)
            if (std::string_view(path).find(part) != std::string_view::npos) wanted.insert(make);
    }
    std::vector<std::unique_ptr<Readers>> readers;
    for (const auto& make : wanted) readers.push_back(make(machine));
    return readers;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Tree tree;
    Machine machine{.root = LinuxRoot(tree.path()), .clock = {}};
    const auto moments = momentsOf(fuzz::asInputText(data, size));
    tree.say(moments.first);
    // Each processor is looked for in files of its own: thousands say nothing new, and take their
    // time.
    if (LinuxProcessors(machine.root).count() > 64) return 0;
    const auto readers = readersOf(moments, machine);
    for (const auto& each : readers) {
        each->look();
        each->read();
    }
    machine.clock.advanceBy(1s);
    tree.say(moments.second);
    for (const auto& each : readers) each->read();
    return 0;
}
