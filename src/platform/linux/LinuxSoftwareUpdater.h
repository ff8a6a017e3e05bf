// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <vector>

#include "base/Signal.h"
#include "platform/SoftwareUpdater.h"
#include "platform/linux/PackageKit.h"

namespace vtx {

class UserDefaults;
class UserNotificationCenter;

/// Updates by PackageKit, where the system's bus has it or could start it: whether the package that
/// the program's file is of has a newer one, after the lists of packages were fetched anew. It
/// installs nothing: that is done with the system's other updates. Off at first, it looks by itself
/// once a day when switched on, and tells of what it finds by a notification. Main executor; owned
/// by the platform.
class LinuxSoftwareUpdater final : public SoftwareUpdater {
public:
    /// What it works with; all outlives it.
    struct Tools {
        SystemBus& bus;
        Clock& clock;
        UserDefaults& defaults;
        UserNotificationCenter& notifications;
    };

    static constexpr auto automaticKey = "updates.checksAutomatically";
    /// Seconds since 1970 of the last look that came to an answer.
    static constexpr auto lastLookKey = "updates.lastCheck";
    static constexpr Duration interval = std::chrono::hours(24);
    /// After one that failed.
    static constexpr Duration retryInterval = std::chrono::hours(1);
    /// Logging in is busy enough.
    static constexpr Duration leastDelay = std::chrono::minutes(1);

    /// The file that is running.
    LinuxSoftwareUpdater(const Tools& tools, std::string executable);

    [[nodiscard]] bool isAvailable() const override { return isAvailable_; }
    [[nodiscard]] Subscription onAvailabilityChange(std::function<void()> handler) override {
        return availabilityChanged_.subscribe(std::move(handler));
    }
    void start() override;
    void checkForUpdates(Answered answered) override;
    [[nodiscard]] bool automaticallyChecksForUpdates() const override { return isAutomatic_; }
    void setAutomaticallyChecksForUpdates(bool automatically) override;

private:
    using Interest = PackageTransaction::Interest;

    void askWhetherItRuns();
    void becomeAvailable();
    void plan();
    [[nodiscard]] Duration delay() const;
    void lookByItself();

    void look(Interest interest, Answered answered);
    void fetchLists(PackageID own);
    void findNewer(const PackageID& own);
    void run(const std::string& method, std::function<int(sd_bus_message*)> append,
             std::function<void(const std::vector<ToldPackage>&)> succeeded);
    void answer(const UpdateAnswer& what);
    void notify(const std::string& version);

    Tools tools_;
    std::string executable_;
    bool isAvailable_ = false;
    bool isAutomatic_;
    bool isFailing_ = false;
    Signal<> availabilityChanged_;
    PatientCall question_;
    Subscription coming_;
    Subscription timer_;
    PackageTransaction transaction_;
    Interest interest_ = Interest::background;
    std::vector<Answered> waiting_;  ///< not empty while it looks
};

}  // namespace vtx
