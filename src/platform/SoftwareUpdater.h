// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <string>

#include "base/Subscription.h"

namespace vtx {

/// What looking for an update came to.
struct UpdateAnswer {
    enum class Kind {
        upToDate,
        available,    ///< a newer version can be had
        notPackaged,  ///< the program is of no package, so that none can replace it
        failed
    };

    Kind kind = Kind::upToDate;
    /// The newer one.
    std::string version = {};
    /// What went wrong, in words; empty where nobody said.
    std::string error = {};

    friend bool operator==(const UpdateAnswer&, const UpdateAnswer&) = default;
};

/// What keeps the program up to date. Main executor.
class SoftwareUpdater {
public:
    /// Told once, perhaps before the call returns, and perhaps when nobody waits for it any more.
    using Answered = std::function<void(const UpdateAnswer&)>;

    SoftwareUpdater() = default;
    SoftwareUpdater(const SoftwareUpdater&) = delete;
    SoftwareUpdater& operator=(const SoftwareUpdater&) = delete;
    virtual ~SoftwareUpdater() = default;

    /// False where nobody can be asked: updates come with the system then, and nothing below does
    /// anything. Known some time after the start.
    [[nodiscard]] virtual bool isAvailable() const = 0;
    /// Tells after `isAvailable` has changed.
    [[nodiscard]] virtual Subscription onAvailabilityChange(std::function<void()> handler) = 0;

    /// From now on it looks for updates by itself, if it is set to, and tells the user of one.
    virtual void start() = 0;
    /// Looks now, for a user who waits for the answer. May take minutes.
    virtual void checkForUpdates(Answered answered) = 0;

    /// Whether it looks by itself; it remembers what it is set to.
    [[nodiscard]] virtual bool automaticallyChecksForUpdates() const = 0;
    virtual void setAutomaticallyChecksForUpdates(bool automatically) = 0;
};

}  // namespace vtx
