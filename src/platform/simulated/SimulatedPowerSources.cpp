// SPDX-License-Identifier: MIT
#include "platform/simulated/SimulatedPowerSources.h"

#include <utility>

#include "platform/simulated/Operations.h"

namespace vtx {
namespace {

std::optional<std::string> typeOf(SimulatedPower power) {
    switch (power) {
        case SimulatedPower::mains:
            return "AC Power";
        case SimulatedPower::battery:
            return "Battery Power";
        case SimulatedPower::uninterruptible:
            return "UPS Power";
        case SimulatedPower::unknown:
            break;
    }
    return std::nullopt;
}

/// What the machine ran on when it was asked.
class Snapshot final : public PowerSourcesInfo {
public:
    Snapshot(SimulatedPower power, Instruments& instruments)
        : power_(power),
          instruments_(instruments),
          held_(instruments.handles.hold(handles::powerSourcesInfo)) {}

    [[nodiscard]] std::optional<std::string> providingPowerSourceType() const override {
        if (instruments_.enter(operations::powerSourcesType)) return std::nullopt;
        return typeOf(power_);
    }

private:
    SimulatedPower power_;
    Instruments& instruments_;
    Subscription held_;
};

}  // namespace

std::unique_ptr<PowerSourcesInfo> SimulatedPowerSources::copyPowerSourcesInfo() {
    instruments_.counter.count(operations::powerSourcesCopy);
    if (instruments_.failures.take(operations::powerSourcesNull)) return nullptr;
    return std::make_unique<Snapshot>(mac_.power(), instruments_);
}

}  // namespace vtx
