// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <list>
#include <map>

#include "platform/UserNotificationCenter.h"
#include "platform/linux/PatientCall.h"

namespace vtx {

/// The notifications of the desktop, by org.freedesktop.Notifications on the session's bus. The
/// right to notify is there being a server, running or to be started by the bus; the user's own
/// switches are the server's matter. Between two notifications it follows nothing: whether the
/// server is another one by then, and what it can do, is asked with each. Main executor; owned by
/// the platform.
class LinuxUserNotificationCenter final : public UserNotificationCenter {
public:
    /// Null for no bus, which counts as no server. Bus and clock must outlive the object.
    LinuxUserNotificationCenter(SystemBus* session, Clock& clock)
        : session_(session), clock_(clock) {}

    void requestAuthorization(Authorized completion) override;
    void add(const NotificationRequest& request, Added completion) override;

private:
    /// What the server says of itself.
    struct Server {
        std::string owner;  ///< its name on the bus; empty where it did not answer
        bool takesMarkup = false;
        bool playsSound = false;
    };
    /// Of a notification that was taken; the number means something to that one server.
    struct Shown {
        std::string owner;
        std::uint32_t id = 0;
    };
    using Calls = std::list<PatientCall>;

    void askForActivatable(Calls::iterator call, Authorized completion);
    void notify(Calls::iterator call, const NotificationRequest& request, const Server& server,
                Added completion);
    [[nodiscard]] static Server serverOf(BusMessage& capabilities);
    [[nodiscard]] std::uint32_t replacedBy(const std::string& identifier,
                                           const std::string& owner) const;
    void remember(const std::string& identifier, BusMessage& answer);

    [[nodiscard]] Calls::iterator begin() {
        return calls_.emplace(calls_.end(), *session_, clock_);
    }

    SystemBus* const session_;
    Clock& clock_;
    std::map<std::string, Shown> shown_;  ///< by identifier
    bool isOddAnswerLogged_ = false;
    Calls calls_;  ///< those under way
};

}  // namespace vtx
