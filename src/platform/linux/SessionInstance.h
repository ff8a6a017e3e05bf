// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "base/Executor.h"
#include "base/Subscription.h"
#include "platform/linux/RunLoop.h"

struct sd_bus;

namespace vtx {

/// Lets one program of a kind run in the user's session: the first that starts owns a name on the
/// session's bus, and a later one asks it to show itself, by the method that desktops use for that
/// too, org.freedesktop.Application.Activate. Main thread; made before the application object,
/// owned by the program's `main`.
class SessionInstance {
public:
    enum class Claim {
        first,       ///< nobody else runs any more; the name is held until the object goes
        handedOver,  ///< another one runs and was asked to show itself
        unanswered,  ///< another one runs and did not answer
        noBus,       ///< nobody can tell
    };

    /// The name has the form of a bus name; the object's path is the same with slashes.
    SessionInstance(std::string name, std::string busAddress);
    ~SessionInstance();
    SessionInstance(const SessionInstance&) = delete;
    SessionInstance& operator=(const SessionInstance&) = delete;

    /// Waits for the bus, for a second at most, and for another one's answer, for five. Once.
    Claim claim();

    /// Calls `onActivate` on the main executor for every later start, those included that came
    /// since the claim. Logs where there is no bus; does nothing without a claim.
    void listen(RunLoop& loop, Executor& main, std::function<void()> onActivate);

private:
    struct Table;

    [[nodiscard]] bool connect();
    [[nodiscard]] Claim askFirst();
    void process();
    void close();

    const std::string name_;
    const std::string path_;
    const std::string busAddress_;
    bool hasClaimed_ = false;
    sd_bus* bus_ = nullptr;
    std::function<void()> onActivate_;
    Subscription watch_;
    std::shared_ptr<SessionInstance*> self_;  ///< what a job under way holds weakly
};

}  // namespace vtx
