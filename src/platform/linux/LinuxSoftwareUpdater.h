// SPDX-License-Identifier: MIT
#pragma once

#include "platform/SoftwareUpdater.h"

namespace vtx {

/// There is none: what was installed by the system's packages is updated with them. Main executor.
class LinuxSoftwareUpdater final : public SoftwareUpdater {
public:
    [[nodiscard]] bool isAvailable() const override { return false; }
    void start() override {}
    void checkForUpdates() override {}
    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return false; }
    void setAutomaticallyChecksForUpdates(bool) override {}
};

}  // namespace vtx
