// SPDX-License-Identifier: MIT
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/shapes/SMCValue.h"
#include "platform/simulated/Operations.h"
#include "smc/SMCBridge.h"
#include "support/TestBench.h"

namespace vtx {

/// A bench whose SMC has the keys that the test adds and no others, but for their number.
class SMCBench : public TestBench {
public:
    explicit SMCBench(MacShape shape = MacShape::standard(),
                      SimulatedUserDefaults::Values settings = {})
        : TestBench(std::move(shape), std::move(settings)) {
        smc.clear();
        smc.add("#KEY", {.type = "ui32", .source = [this] {
                             return encodeSMCUnsigned32(static_cast<std::uint32_t>(smc.keyCount()));
                         }});
    }

    SimulatedSMC& smc = mac.smc;
    SimulatedUserDefaults& defaults = platform.userDefaults;

    void add(std::string_view name, std::string_view type, Data value) {
        smc.add(name, {.type = std::string(type), .value = std::move(value)});
    }
    void addFloat(std::string_view name, float value) { add(name, "flt ", encodeSMCFloat(value)); }
    void addFloats(const std::vector<std::pair<std::string_view, float>>& all) {
        for (const auto& [name, value] : all) addFloat(name, value);
    }
    [[nodiscard]] std::unique_ptr<SMCBridge> open() { return SMCBridge::open(ports()); }
    [[nodiscard]] SMCClient client() {
        return {platform.smc, SMCClient::openConnection(platform.smc)};
    }
};

}  // namespace vtx
