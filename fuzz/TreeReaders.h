// SPDX-License-Identifier: MIT
// Those who read the folders of a machine: what they have in common, and those of its processors
// and sensors.
#pragma once

#include <array>
#include <bitset>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "FolderTree.h"
#include "Fuzz.h"
#include "linux/SteadyMemory.h"
#include "platform/linux/CoreChannels.h"
#include "platform/linux/Parse.h"
#include "platform/linux/RuntimePower.h"
#include "platform/linux/SensorFile.h"
#include "platform/linux/SensorScan.h"
#include "platform/linux/SensorZones.h"
#include "platform/linux/ThermalZones.h"

namespace vtx::fuzz {

/// What all readers share.
struct Machine {
    LinuxRoot root;
    /// The files that may say something else than usual.
    std::bitset<files.size()> told;
    ManualClock clock;
    std::shared_ptr<test::NoChanges> changes = std::make_shared<test::NoChanges>();

    [[nodiscard]] bool isToldOf(std::string_view folder) const {
        for (std::size_t i = 0; i < files.size(); ++i)
            if (told[i] && std::string_view(files.at(i).path).starts_with(folder)) return true;
        return false;
    }
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
            expect(numbers[i] < cpuNumberLimit && processors_.placeOf(numbers[i]) == i);
            expect(processors_.levelAt(i) < processors_.levelCount());
        }
        for (std::size_t level = 0; level < processors_.levelCount(); ++level)
            expect(numbers.empty() || processors_.countAt(level) > 0);
        std::set<std::size_t> places;
        for (const auto& policy : cpuFreq_.policies()) {
            expect(!policy.places.empty() && std::ranges::is_sorted(policy.places));
            for (const auto place : policy.places)
                expect(place < processors_.count() && places.insert(place).second);
        }
        for (const std::size_t level : {0U, 1U}) {
            const auto steps = cpuFreq_.stepsKHz(level);
            expect(steps.size() <= 384);
            for (std::size_t i = 0; i < steps.size(); ++i)
                expect(isClock(steps[i]) && (i == 0 || steps[i - 1] < steps[i]));
        }
        for (const auto& policy : channels_->policies)
            for (const auto& core : policy.cores)
                expect(core.stateCount() <= channels_->stateNames.size() &&
                       core.firstValue + core.stateCount() <= channels_->valueCount);
    }

    /// No state of a processor loses time, and all together gain no more than it counted.
    void read() override {
        const auto ticksBefore = ticksByPlace();
        const auto before = residencies_.values();
        const bool isUnderstood = stat_.read();
        expect(residencies_.read() == isUnderstood);
        const auto ticks = ticksByPlace();
        const auto& now = residencies_.values();
        for (const auto& policy : channels_->policies) {
            for (const auto& [name, place, steps, first] : policy.cores) {
                double gained = 0.0;
                for (std::size_t i = first; i <= first + steps.size(); ++i) {
                    expect(now[i] >= before[i]);
                    gained += static_cast<double>(now[i] - before[i]);
                }
                double counted = 0.0;
                for (std::size_t word = 0; word < 4; ++word)
                    counted += ticks[place].at(word) - ticksBefore[place].at(word);
                const double most = counted * 1e7 + static_cast<double>(steps.size() + 1);
                expect(gained <= most * (1.0 + 1e-9));
                expect(hasRead_ || gained == 0.0);
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

inline constexpr std::string_view coretemp = "/sys/devices/platform/coretemp.0";

/// What sensors say, which is not asked when they are looked for.
inline bool isValueOfSensor(std::string_view path) {
    for (const std::string_view end : {"_input", "_fault", "_alarm", "/temp"})
        if (path.ends_with(end)) return true;
    return path.find("/power/") != std::string_view::npos;
}

class Sensors final : public Readers {
public:
    /// All are looked for; those are read of whose devices something is told.
    explicit Sensors(Machine& shared) : Readers(shared) {
        for (const auto& sensor : sensors_)
            if (machine.isToldOf(sensor.device)) read_.push_back(Read{machine, sensor});
    }

    void look() override {
        expect(sensors_.size() <= mostSensors);
        std::set<std::string> identities;
        for (const auto& sensor : sensors_) {
            expect(!sensor.device.empty() && !sensor.folder.empty());
            expect(sensor.identity.starts_with(sensor.device));
            expect(identities.insert(sensor.identity).second);
        }
        expect(std::ranges::is_sorted(sensors_, {}, &FoundSensor::device));
    }
    void read() override {
        const auto state = power_.state();
        for (const auto& [sensor, file] : read_) {
            const auto value = file->read();
            const bool isFan = sensor.kind == SensorKind::fan;
            expect(!value || (isFan ? *value >= 0.0 && *value < 65535.0
                                    : *value > -128.0 && *value < 127.0 && *value != 0.0));
            // One that sleeps is not asked, where it told at first that it may.
            if (sensor.folder.starts_with(coretemp) && state == RuntimePower::State::asleep &&
                maySleep_)
                expect(!value);
        }
    }

private:
    struct Read {
        Read(Machine& machine, const FoundSensor& found)
            : sensor(found),
              file(std::make_unique<SensorFile>(
                  machine.root, [&clock = machine.clock] { return clock.continuous(); }, found)) {}
        const FoundSensor& sensor;
        std::unique_ptr<SensorFile> file;
    };
    [[nodiscard]] std::optional<std::string> statusAtFirst() const {
        return machine.root.readText(std::string(coretemp) + "/power/runtime_status");
    }

    /// Looked for once where nothing is told by which they are found.
    static std::vector<FoundSensor> found(const Machine& machine) {
        for (std::size_t i = 0; i < files.size(); ++i)
            if (machine.told[i] && !isValueOfSensor(files.at(i).path))
                return findSensors(machine.root);
        static const auto usual = findSensors(machine.root);
        return usual;
    }

    std::vector<FoundSensor> sensors_ = found(machine);
    std::vector<Read> read_;
    bool maySleep_ = statusAtFirst().value_or("unsupported") != "unsupported";
    RuntimePower power_{machine.root, std::string(coretemp)};
};

class Power final : public Readers {
public:
    using Readers::Readers;

    void read() override {
        const auto delay = power_.autosuspendDelay();
        expect(!delay || (*delay >= Duration(0) && *delay <= std::chrono::hours(24)));
    }

private:
    RuntimePower power_{machine.root, std::string(coretemp)};
};

class Zones final : public Readers {
public:
    using Readers::Readers;

    void look() override {
        for (const auto& zone : thermalZones(machine.root)) {
            expect(zone.folder.starts_with("/sys/devices/") && zone.type.size() <= 100);
            const auto isPassive = [&](const char* trip) {
                return machine.root.readText(zone.folder + trip) == "passive";
            };
            expect(zone.cooling == ZoneCooling::none || isPassive("/trip_point_0_type") ||
                   isPassive("/trip_point_1_type"));
        }
    }
    void read() override {
        const auto level = levels_.level();
        expect(!level || (*level >= 0 && *level <= 3));
    }

private:
    ThermalZones levels_{machine.root, machine.changes};
};

}  // namespace vtx::fuzz
