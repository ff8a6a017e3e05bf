// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace vtx {

/// A text that is shown to the user at once, whatever program is in front, with the default sound.
struct NotificationRequest {
    /// A newer one replaces an older one of the same identifier.
    std::string identifier;
    std::string title;
    std::string body;

    friend bool operator==(const NotificationRequest&, const NotificationRequest&) = default;
};

/// Where the user's notifications go. Never waits. Main executor, as all completions: each comes
/// once, perhaps before the call returns, and perhaps when nobody waits for it any more.
class UserNotificationCenter {
public:
    /// Whether notifications may be shown; where the request failed, why.
    struct Authorization {
        bool isGranted = false;
        std::optional<std::string> error;
    };
    using Authorized = std::function<void(Authorization)>;
    /// Takes what went wrong, or nothing.
    using Added = std::function<void(std::optional<std::string> error)>;

    UserNotificationCenter() = default;
    UserNotificationCenter(const UserNotificationCenter&) = delete;
    UserNotificationCenter& operator=(const UserNotificationCenter&) = delete;
    virtual ~UserNotificationCenter() = default;

    /// `requestAuthorizationWithOptions` for alerts and sounds.
    virtual void requestAuthorization(Authorized completion) = 0;

    /// `addNotificationRequest` without a trigger.
    virtual void add(const NotificationRequest& request, Added completion) = 0;
};

}  // namespace vtx
