// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

#include "platform/UserNotificationCenter.h"
#include "platform/simulated/Instruments.h"

namespace vtx {

/// The notifications of the simulated machine's user, who grants the right to them at first and
/// answers at once. Main executor.
class SimulatedUserNotificationCenter final : public UserNotificationCenter {
public:
    explicit SimulatedUserNotificationCenter(Instruments& instruments)
        : instruments_(instruments) {}

    /// What the user says to the next request for the right.
    bool isGranted = true;

    /// From now on no call is answered, until `answer` does it for all in their order.
    void hold() { isHolding_ = true; }
    void answer();

    /// Every notification that was taken, oldest first.
    [[nodiscard]] const std::vector<NotificationRequest>& posted() const { return posted_; }
    /// Forgets them: the user has cleared the list.
    void forget() { posted_.clear(); }
    /// What stands in the user's list: of each identifier the newest.
    [[nodiscard]] std::vector<NotificationRequest> shown() const;

    void requestAuthorization(Authorized completion) override;
    void add(const NotificationRequest& request, Added completion) override;

private:
    void tell(std::function<void()> completion);

    Instruments& instruments_;
    std::vector<NotificationRequest> posted_;
    std::vector<std::function<void()>> held_;
    bool isHolding_ = false;
};

}  // namespace vtx
