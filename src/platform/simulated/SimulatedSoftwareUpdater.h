// SPDX-License-Identifier: MIT
#pragma once

#include <utility>
#include <vector>

#include "base/Signal.h"
#include "platform/SoftwareUpdater.h"

namespace vtx {

/// An updater that remembers what it was asked for and answers what it is told to. Main executor.
class SimulatedSoftwareUpdater final : public SoftwareUpdater {
public:
    [[nodiscard]] bool isAvailable() const override { return isAvailable_; }
    [[nodiscard]] Subscription onAvailabilityChange(std::function<void()> handler) override {
        return availabilityChanged_.subscribe(std::move(handler));
    }
    void start() override { ++starts; }
    void checkForUpdates(Answered answered) override {
        ++checks;
        if (isHolding) return held_.push_back(std::move(answered));
        answered(answer);
    }
    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return automatic; }
    void setAutomaticallyChecksForUpdates(bool automatically) override {
        automatic = automatically;
    }

    void setAvailable(bool available) {
        if (std::exchange(isAvailable_, available) != available) availabilityChanged_.emit();
    }
    /// Answers all that was asked while it was holding.
    void release() {
        isHolding = false;
        for (const auto& answered : std::exchange(held_, {})) answered(answer);
    }

    bool automatic = true;
    UpdateAnswer answer;
    /// While set, no question is answered.
    bool isHolding = false;
    int starts = 0;
    int checks = 0;

private:
    bool isAvailable_ = true;
    std::vector<Answered> held_;
    Signal<> availabilityChanged_;
};

}  // namespace vtx
