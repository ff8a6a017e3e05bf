// SPDX-License-Identifier: MIT
#pragma once

namespace vtx {

/// What keeps the program up to date, with windows of its own. Main executor.
class SoftwareUpdater {
public:
    SoftwareUpdater() = default;
    SoftwareUpdater(const SoftwareUpdater&) = delete;
    SoftwareUpdater& operator=(const SoftwareUpdater&) = delete;
    virtual ~SoftwareUpdater() = default;

    /// False where updates come with the system and not with the program. Nothing below does
    /// anything then.
    [[nodiscard]] virtual bool isAvailable() const = 0;

    /// From now on it looks for updates by itself, if it is set to.
    virtual void start() = 0;
    /// Looks now, and shows what it finds.
    virtual void checkForUpdates() = 0;

    /// Whether it looks by itself; it remembers what it is set to.
    [[nodiscard]] virtual bool automaticallyChecksForUpdates() const = 0;
    virtual void setAutomaticallyChecksForUpdates(bool automatically) = 0;
};

}  // namespace vtx
