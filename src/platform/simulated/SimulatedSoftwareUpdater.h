// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SoftwareUpdater.h"

namespace vtx {

/// An updater that remembers what it was asked for. Main executor.
class SimulatedSoftwareUpdater final : public SoftwareUpdater {
public:
    [[nodiscard]] bool isAvailable() const override { return available; }
    void start() override { ++starts; }
    void checkForUpdates() override { ++checks; }
    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return automatic; }
    void setAutomaticallyChecksForUpdates(bool automatically) override {
        automatic = automatically;
    }

    bool available = true;
    bool automatic = true;
    int starts = 0;
    int checks = 0;
};

}  // namespace vtx
