// SPDX-License-Identifier: MIT
// Values of the registry, of any kind in any place: what drives, the graphics and the battery are
// said to have done, and what the machine is said to be.
#include <cmath>
#include <cstring>

#include "Fuzz.h"
#include "base/ValidUtf8.h"
#include "platform/simulated/Instruments.h"
#include "platform/simulated/ManualClock.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "smc/BatteryTemperatureReader.h"
#include "telemetry/BatteryMonitor.h"
#include "telemetry/DiskIOMonitor.h"
#include "telemetry/GPUMonitorEngine.h"
#include "telemetry/SystemInfoDetection.h"

using namespace vtx;

namespace {

constexpr int deepest = 3;

/// Takes values off the input; an absent one where that says so, or is used up.
class Values {
public:
    explicit Values(std::span<const std::byte> input) : input_(input) {}

    std::optional<Property> next(int depth = 0) {
        switch (byte() % 9) {
            case 0:
                return Property(byte() % 2 == 0);
            case 1:
                return Property(number<std::int64_t>());
            case 2:
                return Property(number<double>());
            case 3:
                return Property(text());
            case 4:
                return Property(toData(text()));
            case 5:
                return depth == deepest ? Property(0) : Property(list(depth));
            case 6:
                return depth == deepest ? Property(1.5) : Property(map(depth));
            case 7:
                return Property(static_cast<std::int64_t>(byte()));
            default:
                return std::nullopt;
        }
    }
    [[nodiscard]] bool areUsedUp() const { return input_.empty(); }
    std::optional<std::int64_t> integer() {
        const auto value = next();
        return value ? PropertyView(*value).number() : std::nullopt;
    }
    /// A map with these keys, where the values are there.
    template <class... Keys>
    Property mapOf(Keys... keys) {
        PropertyMap made;
        const auto add = [&](const char* key) {
            if (auto value = next(1)) made.emplace(key, *std::move(value));
        };
        (add(keys), ...);
        // Not always a map.
        return byte() % 16 == 0 ? next().value_or(Property(0)) : Property(std::move(made));
    }

private:
    unsigned byte() {
        if (input_.empty()) return 8;
        const auto first = std::to_integer<unsigned>(input_.front());
        input_ = input_.subspan(1);
        return first;
    }
    template <class Number>
    Number number() {
        Number value{};
        const auto bytes = input_.first(std::min(sizeof value, input_.size()));
        std::memcpy(&value, bytes.data(), bytes.size());
        input_ = input_.subspan(bytes.size());
        return value;
    }
    std::string text() {
        const auto bytes = input_.first(std::min<std::size_t>(byte() % 12, input_.size()));
        input_ = input_.subspan(bytes.size());
        return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    }
    PropertyList list(int depth) {
        PropertyList made;
        for (auto count = byte() % 4; count > 0; --count)
            if (auto value = next(depth + 1)) made.push_back(*std::move(value));
        return made;
    }
    PropertyMap map(int depth) {
        PropertyMap made;
        for (auto count = byte() % 4; count > 0; --count)
            if (auto value = next(depth + 1)) made.emplace(text(), *std::move(value));
        return made;
    }

    std::span<const std::byte> input_;
};

/// Made once: only the values are those of the input.
struct Machine {
    using Node = SimulatedRegistry::Node;

    ManualClock clock;
    SimulatedRegistry registry;
    Instruments instruments;
    SimulatedIORegistry port{registry, instruments};
    Node services = registry.root(planes::service);
    Node device = registry.add(services, "disk", "IOBlockStorageDevice");
    Node driver = registry.add(device, "driver", "IOBlockStorageDriver");
    Node medium = registry.add(driver, "medium", "IOMedia");
    Node accelerator = registry.add(services, "gpu", "IOAccelerator");
    Node battery = registry.add(services, "battery", "AppleSmartBattery");

    /// A whole one, with values of its own.
    SimulatedPlatform platform{clock, MacShape::laptop()};
    SimulatedRegistry& devices = platform.mac.registry;

    void set(Node node, const char* key, std::optional<Property> value) {
        registry.unset(node, key);
        if (value) registry.set(node, key, *std::move(value));
    }
};

void tryDrive(Machine& machine, Values& values) {
    machine.set(machine.device, "Device Characteristics", values.mapOf("Product Name"));
    machine.set(machine.medium, "BSD Name", values.next());
    DiskIOMonitor drives(machine.port, machine.clock);
    for (int i = 0; i < 2; ++i) {
        machine.set(machine.driver, "Statistics",
                    values.mapOf("Bytes (Read)", "Bytes (Write)", "Operations (Read)",
                                 "Operations (Write)"));
        drives.refresh();
        const DiskIOReading& reading = **drives.latest;
        fuzz::expect(reading.volumes.size() <= 1);
        for (const auto& rate : {reading.bytesReadPerSecond, reading.bytesWrittenPerSecond,
                                 reading.readIOPS, reading.writeIOPS})
            fuzz::expect(!rate || (std::isfinite(*rate) && *rate >= 0.0));
        machine.clock.advanceBy(std::chrono::seconds(1));
    }
}

void tryGraphics(Machine& machine, Values& values) {
    machine.set(
        machine.accelerator, "PerformanceStatistics",
        values.mapOf("Device Utilization %", "Tiler Utilization %", "Renderer Utilization %"));
    GPUMonitorEngine graphics(machine.port, machine.clock);
    const auto stats = graphics.sample();
    if (!stats) return;
    for (const auto& load : {std::optional(stats->deviceUtilization), stats->tilerUtilization,
                             stats->rendererUtilization})
        fuzz::expect(!load || (*load >= 0.0 && *load <= 1.0));
}

void tryBattery(Machine& machine, Values& values) {
    machine.set(machine.battery, "Temperature", values.next());
    const auto celsius = BatteryTemperatureReader::readFromAppleSmartBattery(machine.port);
    fuzz::expect(!celsius || std::isfinite(*celsius));
}

void tryCharge(Machine& machine, Values& values) {
    BatteryFigures source;
    for (auto* figure : {&source.currentCapacity, &source.maxCapacity, &source.minutesToFull,
                         &source.minutesToEmpty})
        *figure = values.integer();
    machine.platform.mac.setBattery(source);
    const Property told = values.mapOf("AppleRawCurrentCapacity", "AppleRawMaxCapacity", "Voltage",
                                       "Amperage", "DesignCapacity", "CycleCount", "MaxCapacity");
    machine.devices.setWhole(machine.devices.ofClass("AppleSmartBattery").front(), told);
    BatteryMonitor battery(machine.platform.ports());
    fuzz::expect(battery.isAvailable());
    battery.refresh(std::nullopt, false);
    const BatteryReading& reading = **battery.latest;
    fuzz::expect(!reading.chargeFraction || std::isfinite(*reading.chargeFraction));
    for (const auto& minutes : {reading.minutesUntilFull, reading.minutesRemaining})
        fuzz::expect(!minutes || *minutes >= 0);
    const PropertyView own(told);
    fuzz::expect(reading.voltageMV == own["Voltage"].number());
    // One that lost its sign gets it back, and no other changes.
    const auto amperage = own["Amperage"].number();
    fuzz::expect(reading.amperageMA.has_value() == amperage.has_value());
    if (amperage)
        fuzz::expect(*amperage - *reading.amperageMA == (*amperage > 0x3fff'ffff ? 1LL << 32 : 0));
}

void tryMachine(Machine& machine, Values& values) {
    machine.devices.setWhole(machine.devices.at("IODeviceTree:/memory"),
                             values.mapOf("dram-type", "dram-speed"));
    machine.devices.setWhole(machine.devices.at("IODeviceTree:/product"),
                             values.mapOf("product-name"));
    machine.devices.setWhole(
        machine.platform.mac.accelerators().front(),
        values.mapOf("PerformanceStatistics", "model", "IOClass", "gpu-core-count"));
    const SystemInfo info = SystemInfoDetection(machine.platform.ports()).detect();
    fuzz::expect(!info.ramType || (!info.ramType->empty() && isValidUtf8(*info.ramType)));
    fuzz::expect(!info.ramSpeedMTps || (*info.ramSpeedMTps >= 0 && *info.ramSpeedMTps <= 4294));
    fuzz::expect(!info.modelFamily.empty() && isValidUtf8(info.modelFamily));
    fuzz::expect(info.hasGPU || (!info.gpuName && !info.gpuCoreCount));
    fuzz::expect(!info.gpuName || !info.gpuName->empty());
    fuzz::expect(info.totalCores == info.pCoreCount + info.eCoreCount && info.totalCores > 0);
    fuzz::expect(info.fanCount >= 0 && info.fanCount <= 255);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Machine machine;
    Values values(fuzz::asInputBytes(data, size));
    for (auto* const look : {tryDrive, tryGraphics, tryBattery, tryCharge, tryMachine}) {
        look(machine, values);
        // With no value left the others would say what they said of the input before.
        if (values.areUsedUp()) break;
    }
    fuzz::expect(machine.instruments.handles.outstanding() == 0);
    fuzz::expect(machine.platform.outstanding() == 0);
    return 0;
}
