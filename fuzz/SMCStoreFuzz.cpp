// SPDX-License-Identifier: MIT
// Sensors and fans over an SMC whose every answer is the next bytes of the input.
#include <algorithm>

#include "Fuzz.h"
#include "base/Bytes.h"
#include "fan/FanMonitor.h"
#include "fan/SharedFans.h"
#include "platform/simulated/ManualClock.h"
#include "platform/simulated/SimulatedPlatform.h"
#include "smc/SMCBridge.h"
#include "telemetry/FanCountReader.h"

using namespace vtx;

namespace {

constexpr std::size_t headSize = 15;  // before the value and how long that is

std::uint32_t take(std::span<const std::byte>& input) {
    const auto number = readLittleEndian32(input.first<4>());
    input = input.subspan(4);
    return number;
}

// Once the input is used up every call fails. No input answers for more than a few dozen keys:
// walking thousands more says nothing new, and takes its time.
SMCAnswer nextAnswer(const SMCRequest& request, std::span<const std::byte>& input) {
    SMCAnswer answer;
    answer.result = smcResults::failure;
    if (input.size() < headSize) return answer;
    answer.key = take(input);
    answer.dataSize = take(input);
    answer.dataType = take(input);
    answer.attributes = std::to_integer<std::uint8_t>(input[0]);
    answer.result = std::to_integer<std::uint8_t>(input[1]);
    const auto length = std::to_integer<std::size_t>(input[2]);
    input = input.subspan(3);
    const auto value = input.first(std::min(length, input.size()));
    answer.bytes.assign(value.begin(), value.end());
    input = input.subspan(value.size());
    if (request.key == packSMCCode("#KEY"))
        std::fill_n(answer.bytes.begin(), std::min<std::size_t>(answer.bytes.size(), 3),
                    std::byte{});
    return answer;
}

void poll(SMCBridge& bridge, FanMonitor& fans) {
    if (const auto reading = bridge.readTemperatureReading()) {
        fuzz::expect(reading->cpuMaxC || reading->batteryC);
        fuzz::expect(!reading->cpuMaxC || (*reading->cpuMaxC > 0.0 && *reading->cpuMaxC < 150.0));
    }
    fans.refresh();
    for (const FanReading& fan : fans.latest->fans)
        fuzz::expect(fan.currentRPM >= 0 && fan.currentRPM <= 12000);
}

/// Made once, as making it takes longer than all the rest: only what the SMC answers is the
/// input's.
struct Machine {
    ManualClock clock;
    SimulatedPlatform platform{clock, shape()};

    Machine() { platform.mac.smc.services = {"AppleSMCKeysEndpoint", "AppleSMC"}; }

    static MacShape shape() {
        MacShape shape = MacShape::standard();
        shape.smcKeyCount = 0;
        return shape;
    }

    /// Nothing of an input is left for the next one.
    void forget() {
        const auto stored = platform.userDefaults.stored;
        for (const auto& [key, value] : stored) platform.userDefaults.remove(key);
        fuzz::expect(platform.outstanding() == 0);
    }
};

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static Machine machine;
    machine.platform.mac.smc.answerWith(
        [input = fuzz::asInputBytes(data, size)](const SMCRequest& request) mutable {
            return nextAnswer(request, input);
        });
    {
        const Ports ports = machine.platform.ports();
        const SharedFans shared(ports);
        const auto bridge = SMCBridge::open(ports);
        FanMonitor fans(ports);
        for (int i = 0; i < 4; ++i) {
            poll(*bridge, fans);
            machine.clock.advanceBy(std::chrono::seconds(25));
        }
        // Of the first byte, or of the ten that are asked.
        const auto fanCount = FanCountReader(ports.smc).count();
        fuzz::expect(fanCount >= 0 && fanCount <= 255);
    }
    machine.forget();
    return 0;
}
