// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <chrono>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Bytes.h"
#include "platform/linux/SensorKeys.h"
#include "platform/simulated/ManualClock.h"
#include "platform/simulated/SimulatedUserDefaults.h"
#include "smc/SMCNumericDecoder.h"
#include "support/AtOnceExecutor.h"

namespace vtx::test {

struct FakeDeviceChanges final : DeviceChanges {
    std::uint64_t generation() override { return now; }
    std::uint64_t now = 1;
};

/// What the store of keys needs around it.
struct SensorBench {
    [[nodiscard]] SensorKeys::Tools tools() {
        return {changes,
                defaults,
                {worker, clock, [time = time] { return *time; }, Duration(0)},
                SensorKeyNames::stableHash};
    }
    /// Time passes and devices may have come or gone.
    void devicesChanged() {
        clock.advanceBy(std::chrono::seconds(1));
        ++changes.now;
    }

    ManualClock clock;
    /// Of those who measure reads; stands still unless a test moves it.
    std::shared_ptr<Instant> time = std::make_shared<Instant>();
    FakeDeviceChanges changes;
    SimulatedUserDefaults defaults;
    AtOnceExecutor worker;
};

/// The keys of a machine, asked as the user client is asked.
class KeyReader {
public:
    explicit KeyReader(SensorKeys& keys) : keys_(keys) {}

    [[nodiscard]] std::optional<double> value(std::string_view name) const {
        SMCRequest request;
        request.command = smcCommands::readValue;
        request.key = packSMCCode(name);
        const auto answer = keys_.answer(request);
        if (answer.result != smcResults::success) return std::nullopt;
        if (name == "#KEY") return std::to_integer<int>(answer.bytes[3]);
        return decodeNumeric(answer.bytes, answer.dataType, answer.dataSize);
    }
    [[nodiscard]] std::string type(std::string_view name) const {
        SMCRequest request;
        request.command = smcCommands::keyInformation;
        request.key = packSMCCode(name);
        const auto answer = keys_.answer(request);
        return answer.result == smcResults::success ? textOf(answer.dataType) : "";
    }
    [[nodiscard]] std::vector<std::string> names() const {
        std::vector<std::string> all;
        SMCRequest request;
        request.command = smcCommands::keyAtIndex;
        for (auto answer = keys_.answer(request); answer.result == smcResults::success;
             answer = keys_.answer(request)) {
            all.push_back(textOf(answer.key));
            ++request.index;
        }
        return all;
    }
    /// Those that begin so, each with its value.
    [[nodiscard]] std::map<std::string, std::optional<double>> beginning(
        std::string_view prefix) const {
        std::map<std::string, std::optional<double>> found;
        for (const auto& name : names())
            if (name.starts_with(prefix)) found[name] = value(name);
        return found;
    }
    /// Values of the keys that discovery takes up, hottest last.
    [[nodiscard]] std::vector<double> processors() const {
        std::vector<double> values;
        for (const auto& [name, value] : beginning("TC"))
            if (value) values.push_back(*value);
        std::ranges::sort(values);
        return values;
    }

private:
    static std::string textOf(std::uint32_t code) {
        std::string text;
        for (int shift = 24; shift >= 0; shift -= 8)
            text += static_cast<char>((code >> shift) & 0xffU);
        return text;
    }

    SensorKeys& keys_;
};

}  // namespace vtx::test
