// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/linux/DeviceChanges.h"
#include "platform/linux/LinuxRoot.h"
#include "platform/linux/PacedSensor.h"
#include "platform/linux/SensorKeyNames.h"
#include "platform/linux/SensorScan.h"
#include "platform/shapes/SMCBlock.h"

namespace vtx {

/// The machine's sensors as a store of values under keys of four characters:
///
/// | key | type | value |
/// |---|---|---|
/// | #KEY | ui32 | how many keys there are |
/// | FNum | ui8 | how many fans, at most ten |
/// | F0Ac, F0Tg, F0Mn, F0Mx, F1Ac, ... | flt | a fan's speed, target, least and most, where told |
/// | B0AT | flt | the battery's temperature, the hottest of several, where one tells it |
/// | TC?? | flt | what the hardware itself calls a processor's temperature |
/// | S??? | sp78 | every other temperature: single cores, drives, graphics, the board |
///
/// Whoever looks for the processor's temperature takes up the keys "TC??" by name and type and
/// passes over all others without reading them, so that no drive and no graphics device is woken
/// for it. A performance core that runs far hotter than its efficient neighbours is among those
/// passed over: the processor's own figure covers it. Of more than three processors a single key
/// tells the hottest, since whoever weighs many sensors against each other would take the one
/// that works, among idle ones, for a faulty one.
///
/// Devices that came are found within a second of the announcement, when somebody asks; their keys
/// come after those that are there. A key is never taken back: one whose sensor went fails, and
/// answers again if the sensor comes back under whatever number. Any thread; looks for devices on
/// the main executor. Owned by the platform.
class SensorKeys {
public:
    struct Tools {
        DeviceChanges& changes;
        UserDefaults& defaults;
        PacedSensor::Tools reading;
        SensorKeyNames::Hash hash = SensorKeyNames::stableHash;
    };

    static constexpr std::size_t mostFans = 10;
    /// Of more, one key tells the hottest.
    static constexpr std::size_t mostProcessors = 3;

    /// Looks for nothing before it is asked.
    SensorKeys(const LinuxRoot& root, const Tools& tools);

    /// Whether the machine has no sensor of any kind.
    [[nodiscard]] bool isEmpty();
    /// To the commands that read; any other fails.
    [[nodiscard]] SMCAnswer answer(const SMCRequest& request);

private:
    using Sensor = std::shared_ptr<PacedSensor>;
    /// Changes only while it is made: whoever reads it holds it without the mutex.
    struct Key {
        std::uint32_t type = 0;
        std::vector<Sensor> sensors;          ///< the hottest of them is the value
        std::optional<std::uint32_t> number;  ///< the value of a key without sensors
    };
    struct KnownSensor {
        std::string folder;
        Sensor sensor;
    };

    // With the mutex held.
    void lookAgainIfDue();
    void look();
    void addFan(const FoundSensor& fan);
    void addTemperatures(const std::vector<FoundSensor>& found);
    void add(std::string_view name, std::string_view type, const FoundSensor& sensor,
             std::string_view part = "input");
    void addNamed(std::string_view prefix, std::string_view type, const FoundSensor& sensor);
    void setNumber(std::string_view name, std::string_view type, std::size_t number);
    [[nodiscard]] Key& keyOf(std::string_view name, std::string_view type);
    [[nodiscard]] Sensor sensorOf(const FoundSensor& sensor, std::string_view part);
    [[nodiscard]] std::shared_ptr<const Key> find(std::uint32_t code) const;

    [[nodiscard]] static SMCAnswer describe(std::uint32_t code, const Key& key);
    [[nodiscard]] static SMCAnswer valueOf(std::uint32_t code, const Key& key);

    const LinuxRoot& root_;
    const Tools tools_;
    std::mutex mutex_;  ///< of all below
    SensorKeyNames names_;
    std::optional<Instant> lastCheck_;
    std::uint64_t generation_ = 0;  ///< of the last look
    std::vector<std::uint32_t> order_;
    std::map<std::uint32_t, std::shared_ptr<Key>> keys_;
    /// Identities that ever had a key of the processor's of their own. They keep it when a driver
    /// comes that knows better: who looked for the processor's temperature does not look again.
    std::set<std::string> offered_;
    std::vector<std::string> fans_;              ///< identities by number
    std::map<std::string, KnownSensor> known_;   ///< by identity and part
    std::map<std::string, KnownSensor> before_;  ///< while looking: those of the last look
    std::map<std::string, std::shared_ptr<ReadPace>> paces_;  ///< by device
};

}  // namespace vtx
