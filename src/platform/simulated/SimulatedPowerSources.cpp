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
    Snapshot(const SimulatedMac& mac, Instruments& instruments)
        : power_(mac.power()),
          description_(mac.battery.description()),
          hasBattery_(mac.processors.shape().hasBattery),
          instruments_(instruments),
          held_(instruments.handles.hold(handles::powerSourcesInfo)) {}

    [[nodiscard]] std::optional<std::string> providingPowerSourceType() const override {
        if (instruments_.enter(operations::powerSourcesType)) return std::nullopt;
        return typeOf(power_);
    }
    [[nodiscard]] std::optional<std::size_t> powerSourceCount() const override {
        if (instruments_.enter(operations::powerSourcesList)) return std::nullopt;
        return hasBattery_ ? 1 : 0;
    }
    [[nodiscard]] PropertyView powerSourceDescription(std::size_t index) const override {
        if (instruments_.enter(operations::powerSourcesDescription)) return {};
        return hasBattery_ && index == 0 ? PropertyView(description_) : PropertyView();
    }

private:
    SimulatedPower power_;
    Property description_;
    bool hasBattery_;
    Instruments& instruments_;
    Subscription held_;
};

}  // namespace

std::unique_ptr<PowerSourcesInfo> SimulatedPowerSources::copyPowerSourcesInfo() {
    instruments_.counter.count(operations::powerSourcesCopy);
    if (instruments_.failures.take(operations::powerSourcesNull)) return nullptr;
    return std::make_unique<Snapshot>(mac_, instruments_);
}

}  // namespace vtx
