// SPDX-License-Identifier: MIT
// What happens to the devices of an eventful machine, and to the calls that ask for them.
#include <fmt/format.h>

#include <array>
#include <limits>

#include "platform/shapes/SMCValue.h"
#include "platform/simulated/Operations.h"
#include "support/EventfulMachine.h"

namespace vtx {
namespace {

/// Calls that fail while the program runs, each with whatever the kernel may say. One without power
/// sources is left out: a platform has an answer to that, or the program ends.
constexpr std::array failing{
    operations::hostProcessorInfo,
    operations::hostProcessorInfoNull,
    operations::hostProcessorInfoFewEntries,
    operations::hostProcessorInfoSurplusEntries,
    operations::hostProcessorInfoZeroProcessors,
    operations::hostStatistics64,
    operations::getifaddrs,
    operations::getifaddrsNull,
    operations::getifaddrsNoAddress,
    operations::getnameinfo,
    operations::powerSourcesType,
    operations::powerSourcesList,
    operations::powerSourcesDescription,
    operations::kernProcAllSize,
    operations::kernProcAllFill,
    operations::kernProcAllShort,
    operations::procPidRusage,
    operations::getMatchingServices,
    operations::getMatchingServicesNull,
    operations::getMatchingService,
    operations::iteratorNext,
    operations::getChildIterator,
    operations::getParentEntry,
    operations::getRegistryEntryID,
    operations::createCFProperties,
    operations::createCFPropertiesNull,
    operations::createCFProperty,
    operations::ioReportCreateSamples,
    operations::ioReportCreateSamplesDelta,
    operations::ioReportCreateSamplesDeltaNoList,
    operations::serviceOpen,
    operations::connectCallStructMethod,
    operations::connectCallStructMethodOutputSize,
    operations::hidClientCopyServices,
    operations::hidCopyEvent,
    operations::hidCopyProperty,
    operations::addNotificationRequest,
};
constexpr std::array lyingKeys{"Tp01", "Tp05", "Te05", "TCMz", "B0AT", "F0Ac",
                               "F1Ac", "F0Mx", "F0Mn", "FNum", "Tf04"};
constexpr std::array absurdities{0.0F,
                                 -0.0F,
                                 -128.0F,
                                 127.5F,
                                 1e9F,
                                 -1e9F,
                                 std::numeric_limits<float>::infinity(),
                                 std::numeric_limits<float>::quiet_NaN()};
constexpr std::size_t mostDevices = 6;

}  // namespace

void EventfulMachine::driveComes() {
    if (drives_.size() >= mostDevices) return driveGoes();
    SimulatedDisks::Description description;
    if (!oneIn(4)) description.product = fmt::format(" DRIVE {} ", upTo(9));
    if (!oneIn(4)) description.bsdName = fmt::format("disk{}", 1 + upTo(3));
    const Node drive = bench_.mac.disks.attach(description);
    // Some have counted for long: the next bytes begin their counters anew.
    if (oneIn(3)) bench_.mac.disks.setCounters(drive, {~0ULL - 4096, ~0ULL - 1, ~0ULL, ~0ULL - 9});
    drives_.push_back(drive);
    ++drivesEver_;
}

void EventfulMachine::driveGoes() {
    if (drives_.empty()) return;
    const auto gone = drives_.begin() + static_cast<std::ptrdiff_t>(upTo(drives_.size() - 1));
    bench_.mac.disks.detach(*gone);
    drives_.erase(gone);
}

void EventfulMachine::driveCounts() {
    for (const Node drive : drives_)
        bench_.mac.disks.add(drive, {upTo(1 << 20), upTo(1 << 20), upTo(100), upTo(100)});
}

void EventfulMachine::driveBeginsAnew() {
    if (drives_.empty()) return;
    bench_.mac.disks.setCounters(oneOf(drives_), {});
}

void EventfulMachine::interfaceComes() {
    auto& all = bench_.mac.network.interfaces;
    if (interfaces_.size() >= mostDevices) return interfaceGoes();
    auto& made = all.emplace_back();
    made.name = fmt::format("en{}", 20 + steps_);
    made.mac = std::array<std::uint8_t, 6>{2, 0, 0, 0, 0, static_cast<std::uint8_t>(steps_)};
    if (!oneIn(3)) made.addresses = {"192.0.2.99", "2001:db8::99"};
    if (oneIn(3)) made.bytesIn = made.bytesOut = 0xffff'ff00U;
    made.hasCounters = !oneIn(5);
    made.hasLink = !oneIn(6);
    interfaces_.push_back(made.name);
}

void EventfulMachine::interfaceGoes() {
    if (interfaces_.empty()) return;
    const auto at = interfaces_.begin() + static_cast<std::ptrdiff_t>(upTo(interfaces_.size() - 1));
    bench_.mac.network.remove(*at);
    interfaces_.erase(at);
}

void EventfulMachine::interfaceTurns() {
    auto& one = bench_.mac.network.at(oneIn(2) || interfaces_.empty() ? "en0" : oneOf(interfaces_));
    one.flags ^= interfaceIsUp;
    if (oneIn(3)) one.flags ^= interfaceIsRunning;
}

void EventfulMachine::interfaceWraps() {
    bench_.mac.network.width = oneIn(2) ? CounterWidth::bits32 : CounterWidth::bits64;
    bench_.mac.network.add("en0", 0xffff'0000U, 0xffff'0000U);
}

void EventfulMachine::batteryChanges() {
    const auto perhaps = [this](std::int64_t least, std::int64_t most) {
        const auto value =
            least + static_cast<std::int64_t>(upTo(static_cast<std::uint64_t>(most - least)));
        return oneIn(5) ? std::nullopt : std::optional(value);
    };
    BatteryFigures figures;
    figures.currentCapacity = perhaps(0, 110);
    figures.maxCapacity = oneIn(8) ? std::optional<std::int64_t>(0) : perhaps(100, 100);
    figures.isCharging = oneIn(5) ? std::nullopt : std::optional(oneIn(2));
    figures.minutesToFull = perhaps(-1, 300);
    figures.minutesToEmpty = perhaps(-1, 900);
    figures.rawCurrentCapacity = perhaps(0, 1200);
    figures.rawMaxCapacity = perhaps(1000, 5200);
    figures.designCapacity = perhaps(0, 5200);
    figures.voltage = perhaps(0, 20'000);
    figures.amperage = perhaps(-9000, 9000);
    figures.cycleCount = perhaps(0, 3000);
    figures.temperature = perhaps(-1000, 6000);
    bench_.mac.setBattery(figures);
}

void EventfulMachine::powerChanges() {
    constexpr std::array all{SimulatedPower::mains, SimulatedPower::battery,
                             SimulatedPower::uninterruptible, SimulatedPower::unknown};
    bench_.mac.setPower(oneOf(all));
    bench_.mac.setLowPowerMode(oneIn(2));
}

void EventfulMachine::sensorLies() {
    const std::string key = oneOf(lyingKeys);
    auto& smc = bench_.mac.smc;
    if (!truth_.contains(key)) truth_.emplace(key, smc.key(key));
    if (oneIn(5)) {
        if (smc.has(key)) smc.remove(key);
        return;
    }
    SimulatedSMCKey lie = truth_.at(key);
    switch (upTo(3)) {
        case 0:
            lie.failsEvery = 1 + upTo(3);
            break;
        case 1:
            lie.claimedSize = static_cast<std::uint32_t>(upTo(64));
            break;
        case 2:
            lie.hidesInformation = true;
            break;
        default:
            lie.source = nullptr;
            lie.value = encodeSMCFloat(oneOf(absurdities));
    }
    smc.add(key, std::move(lie));
}

void EventfulMachine::sensorRecovers() {
    for (auto& [key, value] : truth_) bench_.mac.smc.add(key, std::move(value));
    truth_.clear();
}

void EventfulMachine::callFails() {
    const auto operation = oneOf(failing);
    const int result = oneIn(2) ? Failures::usualResult : static_cast<int>(upTo(200));
    if (oneIn(4)) return bench_.failures.failAlways(operation, result);
    bench_.failures.failNext(operation, 1 + upTo(20), result);
}

void EventfulMachine::callsHeal() { bench_.failures.healAll(); }

}  // namespace vtx
